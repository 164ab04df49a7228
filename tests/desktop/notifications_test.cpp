// What a person who looks elsewhere is told by the desktop.
#include "desktop/stage.h"
#include "hosts/desktop/notifications.h"
#include "hosts/desktop/own_texts.h"

#include <QEventLoop>
#include <QTimer>
#include <gmock/gmock.h>

namespace ombrin::test {

namespace {

using testing::ElementsAre;

/// Writes down `title|body`.
class WrittenDown : public desktop::Announcer {
public:
    void Announce(Notice, const QString& title, const QString& body) override {
        told.push_back((title + QLatin1Char('|') + body).toStdString());
        if (waits != nullptr) waits->quit();
    }
    void Wait() {
        QEventLoop loop;
        waits = &loop;
        QTimer::singleShot(10'000, &loop, &QEventLoop::quit); // a fault must not hang the tests
        loop.exec();
        waits = nullptr;
    }
    std::vector<std::string> told;

private:
    QEventLoop* waits = nullptr;
};

std::string Held(const char* text) { return *CodePage::Usual().FromUtf8(text); }

TEST(Notifications, ShowTextFromOutsideAsPlainTextOfALimitedLengthInTheUsersLanguage) {
    const std::string longText(500, 'x'), cut = std::string(199, 'x') + "…";
    const struct {
        const char* language;
        Notice what;
        std::string who, text, told;
    } kCases[] = {
        {"English", Notice::PrivateMessage, "bob", "hi", "Private message from bob|hi"},
        {"English", Notice::BuddyOnLine, "bob", "Go", "bob is here|In the lobby Go"},
        {"Deutsch", Notice::PrivateMessage, Held("Jürgen"), Held("grüß dich"),
         "Private Nachricht von Jürgen|grüß dich"},
        {"Français", Notice::BuddyOnLine, Held("Zoë"), "Go", "Zoë est là|Dans le lobby Go"},
        {"English", Notice::PrivateMessage, "<i>bob</i>", "<b>1 & 2</b> \"%1\"",
         "Private message from <i>bob</i>|&lt;b&gt;1 &amp; 2&lt;/b&gt; &quot;%1&quot;"},
        {"English", Notice::PrivateMessage, "%1\nbob", "a\x1b[2J\r\n\tb\x7f", "Private message from %1 bob|a [2J b"},
        {"English", Notice::PrivateMessage, "bob", longText, "Private message from bob|" + cut},
        {"English", Notice::PrivateMessage, std::string(60, 'n'), "",
         "Private message from " + std::string(60, 'n') + "|"},
        {"English", Notice::PrivateMessage, std::string(61, 'n'), "",
         "Private message from " + std::string(59, 'n') + "…|"},
    };
    for (const auto& row : kCases) {
        desktop::SetOwnLanguage([&row] { return std::string(row.language); });
        WrittenDown desk;
        desktop::DesktopNotifier(CodePage::Usual(), desk).Notify(row.what, row.who, row.text);
        EXPECT_THAT(desk.told, ElementsAre(row.told));
    }
    desktop::SetOwnLanguage([] { return std::string(); });
}

TEST(Notifications, OfACrowdAreTheFirstAndThenTheNewestOfEachKind) {
    WrittenDown desk;
    desktop::DesktopNotifier notifier(CodePage::Usual(), desk, Milliseconds(50));
    for (const char* text : {"one", "two", "three"}) notifier.Notify(Notice::PrivateMessage, "bob", text);
    notifier.Notify(Notice::BuddyOnLine, "cid", "Go");
    EXPECT_THAT(desk.told, ElementsAre("Private message from bob|one", "cid is here|In the lobby Go"));
    desk.Wait();
    EXPECT_EQ(desk.told.size(), 3U);
    EXPECT_EQ(desk.told.back(), "Private message from bob|three");
}

TEST(Notifications, KeepQuietWhileOneOfTheWindowsIsActive) {
    Stage stage("English");
    WrittenDown desk;
    desktop::DesktopNotifier notifier(CodePage::Usual(), desk);
    stage.LogsOn();
    const auto told = [&] {
        notifier.Notify(Notice::PrivateMessage, "bob", "hi");
        return desk.told.size();
    };
    stage.Step([&] { EXPECT_EQ(told(), 0U); });
    stage.Step([&] {
        stage.window.hide();
        EXPECT_EQ(told(), 1U);
        desktop::BringUp(stage.window);
        EXPECT_TRUE(stage.window.isVisible());
    });
    EXPECT_TRUE(stage.Run());
}

} // namespace

} // namespace ombrin::test
