// Web banners from a server on loopback, by the real engine where there is one.
#include "desktop/stage.h"
#include "hosts/desktop/banner_browser.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

namespace ombrin::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kEngine = "libQt6WebEngineCore";

/// Serves one page at every address.
class WebServer : public QTcpServer {
public:
    WebServer() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* const browser = nextPendingConnection();
            connect(browser, &QTcpSocket::readyRead, this, [this, browser] {
                if (!browser->readAll().contains("\r\n\r\n")) return;
                browser->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n" + page);
                browser->disconnectFromHost();
            });
        });
    }
    std::string Address() const { return "http://127.0.0.1:" + std::to_string(serverPort()) + "/"; }
    QByteArray page;
};

std::string MapsOf(qint64 process) {
    QFile maps(QStringLiteral("/proc/%1/maps").arg(process));
    EXPECT_TRUE(maps.open(QIODevice::ReadOnly));
    return maps.readAll().toStdString();
}

/// In a loop that never sleeps, as the engine does its work on this thread.
bool Until(const std::function<bool()>& holds) {
    constexpr int kLook = 10, kPatience = 10'000; // ms
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (holds()) loop.quit();
    });
    look.start(kLook);
    QTimer::singleShot(kPatience, &loop, [&loop] { loop.exit(1); });
    return holds() || loop.exec() == 0;
}

class Banner : public testing::Test {
protected:
    void SetUp() override {
        stage.window.show();
        stage.window.activateWindow();
        stage.view.BannerAd.SetVisible(true);
        stage.board.Frame();
        Write().setFocus();
        browser.Attach(stage.board, stage.view.BannerAd, stage.client.Trace());
    }

    QWidget& Write() { return *stage.WidgetOf(stage.view.MainText); }
    QWidget& Place() { return *stage.WidgetOf(stage.view.BannerAd); }
    QString Title() { return Engine() == nullptr ? QString() : Engine()->property("title").toString(); }
    QWidget* Engine() {
        for (QWidget* inner : Place().findChildren<QWidget*>())
            if (inner->inherits("QWebEngineView")) return inner;
        return nullptr;
    }

    void Shows(const QByteArray& page) {
        web.page = page;
        browser.Navigate(web.Address());
    }
    /// What the page's script makes of this is its title.
    void Runs(const QByteArray& promise) {
        Shows("<body><script>const after = ms => new Promise(r => setTimeout(r, ms));"
              "(async () => " +
              promise + ")().then(what => document.title = 'now ' + what)</script>");
    }
    bool BecomesTitle(const char* title) {
        return Until([&] { return Title() == QLatin1String(title); });
    }
    QColor Middle() { return Place().grab().toImage().pixelColor(Place().rect().center()); }
    bool BecomesColour(bool green) {
        return Until([&] { return (Middle() == QColor(Qt::green)) == green; });
    }

    Stage stage{"English"};
    WebServer web;
    desktop::BannerBrowser browser{CodePage::Usual(), stage.world.opener};
};

/// With the engine itself.
class ShownBanner : public Banner {
protected:
    void SetUp() override {
        const QStringList modules = desktop::BannerBrowser::UsualModules();
        if (!std::any_of(modules.begin(), modules.end(), [](const QString& file) { return QFile::exists(file); }))
            GTEST_SKIP() << "Qt WebEngine is not installed, so that the module of the banners was not built";
#ifdef __SANITIZE_THREAD__
        GTEST_SKIP() << "the engine's threads are not built for ThreadSanitizer, which would not see how they wait";
#endif
        Banner::SetUp();
    }
};

TEST_F(ShownBanner, IsInItsPlaceUntilTheNextOneAndLeavesItForAGame) {
    Shows("<body style='background: #00ff00'>");
    ASSERT_TRUE(BecomesColour(true)) << stage.world.LogText();
    EXPECT_THAT(MapsOf(QCoreApplication::applicationPid()), HasSubstr(kEngine)) << "the other test looks for nothing";
    EXPECT_EQ(Place().size(), QSize(468, 60));
    EXPECT_EQ(Engine()->size(), Place().size());
    Shows("<body style='background: #ff0000'>");
    EXPECT_TRUE(BecomesColour(false));
    Shows("<body style='background: #00ff00'>");
    EXPECT_TRUE(BecomesColour(true));
    browser.Navigate("about:blank");
    EXPECT_TRUE(BecomesColour(false));
    EXPECT_FALSE(Engine()->isVisible());
}

TEST_F(ShownBanner, GetsNothingOfTheMachineAndNoWindowAndNoKeys) {
    const struct {
        const char* what;
        QByteArray script;
        const char* becomes;
    } kCases[] = {
        {"a window", "{ return window.open('/other') }", "now null"},
        {"boxes", "{ alert(1); return [confirm(2), prompt(3)] }", "now true,"},
        {"a page of this machine", "{ location = 'file:///etc/passwd'; await after(100); return location.protocol }",
         "now http:"},
        {"a page of the engine", "{ location = 'chrome://version'; await after(100); return location.protocol }",
         "now http:"},
        {"a program of the desktop", "{ location = 'mailto:a@b.example'; await after(100); return location.protocol }",
         "now http:"},
        {"a file", "{ return await fetch('file:///etc/passwd').then(() => 'read', () => 'refused') }", "now refused"},
        {"notifications", "{ return await Notification.requestPermission() }", "now denied"},
        {"the place",
         "{ return await new Promise(r => navigator.geolocation.getCurrentPosition(() => r('told'), e => r(e.code))) }",
         "now 1"},
        {"the clipboard", "{ return await navigator.clipboard.readText().then(() => 'read', e => e.name) }",
         "now NotAllowedError"},
        {"the keys",
         "{ document.body.innerHTML = '<input autofocus>'; document.body.firstChild.focus(); window.focus();"
         "  await after(100); return document.hasFocus() }",
         "now false"},
    };
    const auto windows = [] {
        const auto all = QApplication::topLevelWidgets();
        return std::count_if(all.begin(), all.end(), [](const QWidget* w) { return w->isVisible(); });
    };
    ASSERT_TRUE(QTest::qWaitForWindowActive(&stage.window));
    const auto before = windows();
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.what);
        Runs(row.script);
        EXPECT_TRUE(BecomesTitle(row.becomes)) << Title().toStdString();
        EXPECT_EQ(windows(), before);
        EXPECT_TRUE(Write().hasFocus());
    }
    EXPECT_THAT(stage.world.Told("open"), ElementsAre());
    for (int i = 0; i < 60; ++i) { // more than there are widgets
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_FALSE(Place().isAncestorOf(QApplication::focusWidget())) << "Tab leads into the banner";
    }
}

TEST_F(ShownBanner, HandsALinkThatWasClickedToTheDesktopsBrowser) {
    Shows("<body style='background: #00ff00'>"
          "<style>a { position: fixed; top: 0; height: 60px; width: 200px; color: #00ff00 }</style>"
          "<a style='left: 0' href='mailto:a@b.example' target='_blank'>no</a>"
          "<a style='left: 268px' href='https://ardvelle.example/?a=b&c' target='_blank'>yes</a>");
    ASSERT_TRUE(BecomesColour(true)); // what is not painted yet takes no clicks
    for (const int x : {100, 300}) QTest::mouseClick(Engine()->focusProxy(), Qt::LeftButton, {}, QPoint(x, 30));
    EXPECT_TRUE(Until([this] { return !stage.world.Told("open").empty(); }));
    EXPECT_THAT(stage.world.Told("open"), ElementsAre("https://ardvelle.example/?a=b&c"));
}

TEST_F(Banner, WithoutAModuleIsALineInTheLogAndNothingElse) {
    const struct {
        QString file;
        const char* says;
    } kCases[] = {
        {QStringLiteral("/nowhere/libombrin-banners.so"), "no banners are shown: their module is not installed"},
        {QStringLiteral("/etc/passwd"), "no banners are shown: Cannot load library"},
    };
    for (const auto& row : kCases) {
        desktop::BannerBrowser without(CodePage::Usual(), stage.world.opener, {row.file});
        without.Attach(stage.board, stage.view.BannerAd, stage.client.Trace());
        without.Navigate("about:blank");
        EXPECT_THAT(stage.world.LogText(), Not(HasSubstr(row.says))) << "before a page was to be shown";
        for (int i = 0; i < 2; ++i) without.Navigate("http://ardvelle.example/");
        EXPECT_EQ(QString::fromStdString(stage.world.LogText()).count(QLatin1String(row.says)), 1);
    }
    EXPECT_EQ(Engine(), nullptr);
}

TEST(Client, WithoutBannersHoldsNoBrowser) {
    const QTemporaryDir home;
    QProcess client;
    QProcessEnvironment scratch = QProcessEnvironment::systemEnvironment();
    scratch.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
    client.setProcessEnvironment(scratch);
    client.start(QStringLiteral(OMBRIN_EXE), {QStringLiteral("--home"), home.path()});
    ASSERT_TRUE(client.waitForStarted());
    const QString log = home.filePath(QStringLiteral("system/AVClLogs.txt"));
    EXPECT_TRUE(Until([&] { return QFile::exists(log); })) << client.readAll().toStdString();
    const std::string maps = MapsOf(client.processId());
    EXPECT_THAT(maps, HasSubstr("libQt6Widgets"));
    EXPECT_THAT(maps, Not(HasSubstr("WebEngine")));
    client.terminate();
    EXPECT_TRUE(client.waitForFinished());
}

} // namespace

} // namespace ombrin::test
