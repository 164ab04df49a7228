#include "hosts/banners/web_banner.h"

#include "hosts/banners/addresses.h"

#include <QChildEvent>
#include <QDialog>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNotification>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <memory>
#include <utility>

namespace ombrin::banners {

namespace {

const QUrl kBlank{QStringLiteral("about:blank")};
constexpr int kAsked = 10; ///< per cent of a page of which nothing has come yet, as the engine counts

/// Dragging something out of a page would hold the client in a wait of the engine's.
QWebEngineScript NothingIsDragged() {
    QWebEngineScript script;
    script.setName(QStringLiteral("nothing is dragged"));
    script.setSourceCode(
        QStringLiteral("window.addEventListener('dragstart', e => e.preventDefault(), {capture: true});"));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    return script;
}

} // namespace

void LocalFilesRefused::interceptRequest(QWebEngineUrlRequestInfo& request) {
    if (!MayBePart(request.requestUrl())) request.block(true);
}

WebBanner::WebBanner(QWidget* place, OpenLink open) : BannerView(place), page(profile, std::move(open)) {
    Guard(profile);
    view.hide();
    view.setFocusPolicy(Qt::ClickFocus);
    view.setContextMenuPolicy(Qt::PreventContextMenu);
    view.setAcceptDrops(false);
    view.installEventFilter(this);
    view.setPage(&page);
    // A page is shown from its first bytes on, as its last may never come. What did not come at all, or has broken
    // down, leaves the place as it is without a banner.
    connect(&page, &QWebEnginePage::loadProgress, this, [this](int percent) {
        if (percent > kAsked && percent < 100) ShowPage(true);
    });
    connect(&page, &QWebEnginePage::loadFinished, this, [this](bool came) { ShowPage(came); });
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, [this] { view.hide(); });
}

void WebBanner::Guard(QWebEngineProfile& strangers) {
    strangers.setUrlRequestInterceptor(&localFiles);
    strangers.setNotificationPresenter([](std::unique_ptr<QWebEngineNotification> shown) { shown->close(); });
    strangers.scripts()->insert(NothingIsDragged());
    connect(&strangers, &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

void WebBanner::Navigate(const QUrl& address) {
    if (address == kBlank) view.hide(); // at once, as the next moments may belong to a game
    page.setUrl(MayBePage(address) ? address : kBlank);
}

void WebBanner::ShowPage(bool came) { view.setVisible(came && page.url() != kBlank); }

/// The engine's inner widget comes with the first page and again with a new process; the keyboard goes past it. A
/// window that the engine opens for an input field is none of ours.
bool WebBanner::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &view || event->type() != QEvent::ChildPolished) return false;
    QObject* const child = static_cast<QChildEvent*>(event)->child();
    if (auto* dialog = qobject_cast<QDialog*>(child))
        QMetaObject::invokeMethod(dialog, &QDialog::reject, Qt::QueuedConnection);
    else if (auto* inner = qobject_cast<QWidget*>(child))
        inner->setFocusPolicy(Qt::ClickFocus);
    return false;
}

} // namespace ombrin::banners
