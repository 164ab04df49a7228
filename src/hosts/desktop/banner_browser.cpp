#include "hosts/desktop/banner_browser.h"

#include "foundation/text.h"
#include "ui/web_address.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QOpenGLContext>
#include <QVBoxLayout>
#include <algorithm>

/// Of the windows' library, for engines such as this; no header that is open to others has it.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);

namespace ombrin::desktop {

namespace {

/// The engine takes the context that all windows share for given, and only asks it for its format where nothing is
/// drawn by it. One that is not created is enough; a created one from the start costs every client 60 MB and 0.1 s.
void HaveSharedContext() {
    if (QOpenGLContext::globalShareContext() == nullptr)
        qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
}

} // namespace

QStringList BannerBrowser::UsualModules() {
    const QString name = QStringLiteral("/libombrin-banners.so");
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/" OMBRIN_MODULES_BESIDE);
    return {QDir::cleanPath(beside) + name, QStringLiteral(OMBRIN_MODULES) + name};
}

void BannerBrowser::Navigate(std::string_view address) {
    if (IsWebAddress(address)) Load();
    if (view != nullptr) view->Navigate(QUrl(QString::fromUtf8(page.ToUtf8(address))));
}

void BannerBrowser::Load() {
    if (tried || place == nullptr) return;
    tried = true;
    QString why;
    view = MakeView(why);
    if (view == nullptr) log->TraceMessage(Join("no banners are shown: ", why.toStdString()));
}

banners::BannerView* BannerBrowser::MakeView(QString& why) {
    const auto file =
        std::find_if(modules.begin(), modules.end(), [](const QString& f) { return QFileInfo::exists(f); });
    if (file == modules.end()) {
        why = QStringLiteral("their module is not installed");
        return nullptr;
    }
    HaveSharedContext();
    QLibrary module(*file);
    module.setLoadHints(QLibrary::PreventUnloadHint); // the engine's threads run to the program's end
    const auto make = reinterpret_cast<banners::MakeBannerView>(module.resolve(banners::kMakeBannerView));
    if (make == nullptr) {
        why = module.errorString();
        return nullptr;
    }
    QWidget* const where = board->PainterOf(*place)->Widget();
    banners::BannerView* const made = make(
        where, [this](const QUrl& link) { OpenOutside(link); }, why);
    if (made == nullptr) return nullptr;
    auto* const whole = new QVBoxLayout(where);
    whole->setContentsMargins({});
    whole->addWidget(made);
    return made;
}

void BannerBrowser::OpenOutside(const QUrl& link) {
    const std::string address = link.toEncoded().toStdString();
    if (IsWebAddress(address)) opener.Open(address, "");
}

} // namespace ombrin::desktop
