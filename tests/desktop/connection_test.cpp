// A connection that is lost or silent, under the windows: what the bar says, and how far one press leads back.
#include "desktop/stage.h"

#include <QPushButton>
#include <gmock/gmock.h>

namespace ombrin::test {

namespace {

using testing::ElementsAreArray;
using namespace std::chrono_literals;

class LostConnection : public testing::Test {
protected:
    /// In the lobby Chess, which is not the first one.
    static void Enters(Stage& stage) {
        stage.LogsOn();
        stage.Sends("21:Chess;~");
    }
    static QWidget* Bar(const Stage& stage) {
        auto* bar = stage.window.findChild<QWidget*>(QStringLiteral("connectionBar"));
        return bar != nullptr && bar->isVisible() ? bar : nullptr;
    }
    static std::string Told(const Stage& stage) {
        return Bar(stage) == nullptr ? "" : Bar(stage)->accessibleName().toStdString();
    }
    static void Presses(Stage& stage, const QString& caption) {
        const auto button = [&stage, caption]() -> QWidget* {
            for (auto* candidate : stage.window.findChildren<QPushButton*>())
                if (candidate->text() == caption && candidate->isVisible()) return candidate;
            return nullptr;
        };
        stage.Click(button, [button] { return button()->rect().center(); });
    }
    static void HangsUp(Stage& stage) {
        stage.Step([&stage] { stage.loop.Enter([&stage] { stage.Server().CloseByPeer(); }); });
    }
    static void Passes(Stage& stage, Milliseconds time) {
        stage.Step([&stage, time] {
            stage.world.clock.MoveTo(stage.world.clock.Now() + time);
            stage.world.loop.Post([] {});
        });
    }
};

TEST_F(LostConnection, IsToldOnceOverNothingThatIsNeeded) {
    for (const char* language : {"English", "Deutsch",
                                 "Fran\xE7"
                                 "ais"}) {
        for (const QSize size : {QSize(992, 754), QSize(517, 396), QSize(1600, 760), QSize(1920, 1080)}) {
            Stage stage(language);
            stage.window.resize(size);
            Enters(stage);
            stage.Step([&] { EXPECT_EQ(Bar(stage), nullptr); });
            HangsUp(stage);
            stage.Step([&] {
                ASSERT_NE(Bar(stage), nullptr);
                EXPECT_TRUE(stage.window.rect().contains(Bar(stage)->geometry()));
                for (Control* control : stage.view.Controls()) {
                    if (control->Kind() == ControlKind::Image || stage.board.PainterOf(*control) == nullptr) continue;
                    const QWidget* widget = stage.WidgetOf(*control);
                    EXPECT_FALSE(widget->isVisible() && widget->geometry().intersects(Bar(stage)->geometry()))
                        << control->Name() << " in " << language;
                }
                for (const auto* part : Bar(stage)->findChildren<QWidget*>())
                    EXPECT_GE(part->width(), part->minimumSizeHint().width()) << language;
            });
            EXPECT_TRUE(stage.Run());
        }
    }
}

TEST_F(LostConnection, LeadsBackByOnePressAsFarAsAllIsAsExpected) {
    const struct {
        const char* what;
        std::string answers; ///< of the server, to the logon
        bool takesOver;      ///< the user, by a key
        std::vector<std::string> sent;
        std::string top;
    } kCases[] = {
        {"as before", "22:Go,1;Chess,2;~0:ann;1;~", false, {"15:ann;temp", "2:ann;Go", "12:ann;Go"}, ""},
        {"the lobby's users have not come yet", "22:Go,1;Chess,2;~", false, {"15:ann;temp", "2:ann;Go"}, ""},
        {"his lobby is gone", "22:Go,1;~0:ann;1;~", false, {"15:ann;temp", "2:ann;Go"}, ""},
        {"he does something himself", "22:Go,1;Chess,2;~0:ann;1;~", true, {"15:ann;temp", "2:ann;Go"}, ""},
        {"refused", "24:~", false, {"15:ann;temp"}, "MessageBox"},
        {"a password is asked for", "46:Go,1;Chess,2;~", false, {"15:ann;temp"}, "ExeMainLobby"},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.what);
        Stage stage("English");
        std::size_t before = 0;
        Enters(stage);
        HangsUp(stage);
        stage.Step([&] {
            EXPECT_EQ(Told(stage), "The connection to the server is lost.");
            before = stage.Server().sent.size();
        });
        Presses(stage, QStringLiteral("Log on again"));
        stage.Until([&] { return stage.Server().State() == SocketState::Connecting; }, "a connection");
        stage.Step([&] { EXPECT_EQ(Bar(stage), nullptr); });
        if (row.takesOver) stage.Presses(Qt::Key_Tab);
        stage.Accepts();
        stage.Sends("45:10.0.0.5;~" + row.answers);
        for (int i = 0; i < 5; ++i) stage.Step([] {}); // for steps that are none too many
        stage.Step([&] {
            std::vector<std::string> sent;
            for (std::size_t i = before; i < stage.Server().sent.size(); ++i) {
                const std::string& message = stage.Server().sent[i]; // "Ombrin:<code>:<user>;<lobby>;…"
                const std::size_t user = message.find(';');
                if (user != std::string::npos) sent.push_back(message.substr(7, message.find(';', user + 1) - 7));
            }
            EXPECT_THAT(sent, ElementsAreArray(row.sent));
            const Form* top = stage.client.Stack().Top();
            const std::string name = top == nullptr                                        ? ""
                                     : dynamic_cast<const MessageBoxForm*>(top) != nullptr ? "MessageBox"
                                                                                           : top->Name();
            EXPECT_EQ(name, row.top);
        });
        EXPECT_TRUE(stage.Run());
    }
}

TEST_F(LostConnection, IsWaitedForNoMore) {
    Stage stage("English");
    stage.LogsOn();
    const auto waits = [&stage] { return stage.window.findChild<QWidget*>(QStringLiteral("waiting"))->isVisible(); };
    stage.DoubleClicksRow(stage.view.lbLobbies, 1);
    stage.Until(waits, "the sign of waiting");
    HangsUp(stage);
    stage.Step([&] {
        EXPECT_FALSE(waits());
        EXPECT_FALSE(stage.view.Enabled());
        EXPECT_EQ(Told(stage), "The connection to the server is lost.");
    });
    EXPECT_TRUE(stage.Run());
}

TEST_F(LostConnection, OfferedTooWhenTheServerDoesNotAnswer) {
    Stage stage("English");
    stage.LogsOn();
    stage.DoubleClicksRow(stage.view.lbLobbies, 1);
    Passes(stage, 14'900ms);
    stage.Step([&] { EXPECT_EQ(Told(stage), ""); });
    Passes(stage, 100ms);
    stage.Step([&] { EXPECT_EQ(Told(stage), "The server does not answer."); });
    stage.Sends("22:Go,1;Chess,2;~0:ann;1;~"); // late, but it does
    stage.Step([&] { EXPECT_EQ(Told(stage), ""); });
    stage.DoubleClicksRow(stage.view.lbLobbies, 0);
    Passes(stage, 20s);
    Presses(stage, QStringLiteral("Hide"));
    Passes(stage, 20s);
    stage.Step([&] { EXPECT_EQ(Told(stage), "") << "he has seen it"; });
    HangsUp(stage);
    stage.Step([&] { EXPECT_EQ(Told(stage), "The connection to the server is lost."); });
    Presses(stage, QStringLiteral("Log on again"));
    stage.Until([&] { return stage.Server().State() == SocketState::Connecting; }, "a connection");
    EXPECT_TRUE(stage.Run());
}

} // namespace

} // namespace ombrin::test
