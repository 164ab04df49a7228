#include "hosts/skin/screen.h"

#include "hosts/desktop/look.h"
#include "hosts/desktop/qt_start.h"
#include "hosts/skin/window/chooser.h"
#include "hosts/skin/window/preview.h"
#include "platform/posix/end_signals.h"

#include <QApplication>
#include <filesystem>
#include <stdexcept>

namespace ombrin::skin {

namespace {

/// Qt, with settings of its own: the client's window keeps its place.
class Desk {
public:
    Desk() {
        start.reset();
        QCoreApplication::setApplicationName(QStringLiteral("ombrin-skin"));
        QCoreApplication::setOrganizationName(QStringLiteral("ombrin"));
        QCoreApplication::setApplicationVersion(QStringLiteral(OMBRIN_VERSION));
        QApplication::setQuitOnLastWindowClosed(false); // the end is the client's
    }
    void Wear(const desktop::Look::Wishes& wishes) { desktop::Look::Install(application, wishes); }

private:
    int count = 1;
    char name[12] = "ombrin-skin";
    char* words[2] = {name, nullptr};
    std::optional<desktop::NeedsDisplay> start{std::in_place, name};
    QApplication application{count, words};
};

std::string TextOf(const Files& files, const std::string& path) {
    return files.StampOf(path) ? files.Read(path) : std::string();
}

} // namespace

bool HasScreen() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

void ShowPreview(Wardrobe& wardrobe, const std::string& name, const PreviewOptions& options) {
    if (options.out && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!HasScreen()) throw std::runtime_error("there is no display; --out FILE writes a picture without one");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    const Skin skin = wardrobe.Skins().Read(name);
    Shelf::Check(skin);
    const PosixFiles files(wardrobe.Page());
    EndSignals::Block(); // before Qt has threads of its own; the end takes the sample's folder away
    Desk desk;
    SampleWorld world(skin, TextOf(files, wardrobe.Home().WindowsDirectory() + "/AVfLang.ini"), wardrobe.Page());
    desk.Wear(world.Wishes());
    Preview preview(world, desktop::Look::ChatFont(), wardrobe.Page());
    const QSize size(options.width, options.height);
    if (!options.out) return preview.Show(size);
    if (!preview.Picture(size).save(QString::fromStdString(*options.out), "PNG"))
        throw std::runtime_error("cannot write " + *options.out);
}

void ShowChooser(Wardrobe& wardrobe) {
    Desk desk;
    desk.Wear({});
    desktop::Look::ShowProgramIcon();
    Chooser(wardrobe).exec();
}

} // namespace ombrin::skin
