// The desktop's tests run on no display, and keep nothing of the person who runs them.
#include "hosts/desktop/look.h"
#include "hosts/desktop/spoken.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// What Qt complains about is a fault of ours, but for what it says about a machine without a display or a sound card.
void Hear(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    for (const char* said : {"This plugin does not support", "No suitable graphics backend found",
                             "PulseAudioService:", "No audio device detected"})
        if (text.startsWith(QLatin1String(said))) return;
    ADD_FAILURE() << text.toStdString();
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1"); // a browser's engine has none for root
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCoreApplication::setOrganizationName(QStringLiteral("ombrin"));
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    ombrin::desktop::Look::Install(application, {});
    ombrin::desktop::InstallSpoken();
    qInstallMessageHandler(Hear);
    return RUN_ALL_TESTS();
}
