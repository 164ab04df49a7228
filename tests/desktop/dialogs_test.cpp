// Dialogs and boxes as windows: opened and closed without end, under the end of the connection and of the program, and
// found by the Tab key and by a screen reader.
#include "desktop/stage.h"

#include "foundation/runtime_error.h"

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace ombrin::test {

namespace {

class Windows : public testing::Test {
protected:
    Stage stage{"English"};
    Boxes boxes{stage.client.Stack()};
    Dialogs& forms = stage.forms;

    void See(std::function<void()> look) { stage.Step(std::move(look)); }
    /// Each way to wait, in the order of the dialogs.
    std::vector<std::function<void()>> Waits() {
        std::vector<std::function<void()>> waits;
        for (Form* form : forms.All()) waits.push_back([form] { form->ShowModal(); });
        waits.push_back([this] { boxes.Show("Is it <b>so</b>?", "Title", BoxButtons::YesNo, BoxIcon::Exclamation); });
        waits.push_back([this] { boxes.Ask("Your name?"); });
        return waits;
    }
    static void End(Form& form) {
        if (auto* box = dynamic_cast<MessageBoxForm*>(&form))
            EXPECT_TRUE(box->Press(BoxResult::No));
        else if (auto* question = dynamic_cast<InputBoxForm*>(&form))
            question->Cancel();
        else
            form.Hide();
    }
    /// Fills the dialogs, as most of them start empty.
    void Furnishes() {
        for (int i = 0; i < 3; ++i) {
            forms.ChooseLanguage.Radio[static_cast<std::size_t>(i)].SetCaption("Language " + std::to_string(i));
            forms.ChooseLanguage.Radio[static_cast<std::size_t>(i)].SetVisible(true);
        }
        forms.ChooseLanguage.Radio[0].SetOn(true);
        forms.LobbyFilter.Create("Go,1;Chess,2;");
        forms.ExeMainLobby.LobbyList = "Go,1;Chess,2;";
    }
    static bool TakesFocus(const Control& control) {
        const ControlKind kind = control.Kind();
        // Of a group Tab reaches the one that is on, and the arrow keys the others.
        if (const auto* option = dynamic_cast<const OptionButton*>(&control); option != nullptr && !option->On())
            return false;
        return kind != ControlKind::Label && kind != ControlKind::StatusBar && kind != ControlKind::Image &&
               control.Visible() && control.Enabled();
    }
};

TEST_F(Windows, OpenAndCloseAThousandTimesWithoutGrowing) {
    int closed = 0;
    stage.LogsOn();
    See([&, this] {
        for (const auto& wait : Waits()) {
            qsizetype before = 0;
            for (int turn = 0; turn < 1000; ++turn) {
                QTimer::singleShot(0, &stage, [this] {
                    Form* top = stage.client.Stack().Top();
                    ASSERT_NE(top, nullptr);
                    EXPECT_EQ(stage.Front() == &stage.window, top == &forms.UsrNmPwIP);
                    EXPECT_TRUE(stage.Front()->isVisible());
                    stage.loop.Enter([top] { End(*top); });
                });
                stage.loop.Enter(wait);
                ASSERT_FALSE(stage.client.Stack().Ending());
                ASSERT_EQ(stage.client.Stack().Top(), nullptr);
                ++closed;
                if (turn == 10) before = QApplication::allWidgets().size();
            }
            EXPECT_LE(QApplication::allWidgets().size(), before);
        }
    });
    stage.Until([&] { return closed == 11 * 1000; }, "the last box", 240'000);
    EXPECT_TRUE(stage.Run());
}

TEST(WindowsAtTheEnd, TheConnectionAndThenTheProgramEndUnderEachOfThem) {
    constexpr std::size_t kWaits = 11;
    for (std::size_t first = 0; first < kWaits; ++first) {
        SCOPED_TRACE(first);
        struct Case : Windows {
            void TestBody() override {}
            using Windows::boxes;
            using Windows::stage;
            using Windows::Waits;
        } windows;
        Stage& stage = windows.stage;
        auto waits = windows.Waits();
        ASSERT_EQ(waits.size(), kWaits);
        std::vector<std::string> ended;
        const auto waitsIn = [&](const char* name, std::function<void()> wait) {
            stage.Step([&, name, wait] {
                stage.loop.Enter([&] {
                    try {
                        wait();
                    } catch (const ProgramEnding&) {
                        ended.emplace_back(name);
                        throw;
                    }
                });
            });
        };
        stage.LogsOn();
        waitsIn("outer", waits[first]);
        waitsIn("middle", [&] { windows.boxes.Show("box", "title"); });
        waitsIn("inner", [&] { windows.boxes.Ask("question"); });
        stage.Step([&] { stage.loop.Enter([&] { stage.Server().CloseByPeer(); }); });
        stage.Step([&] {
            EXPECT_EQ(stage.client.Stack().Visible().size(), 3u) << "the end of the connection closes none";
            EXPECT_TRUE(stage.Front()->isActiveWindow());
        });
        stage.Step([&] { stage.world.loop.Post([&] { stage.client.Stack().RequestEnd(); }); });
        stage.Step([] { ADD_FAILURE() << "the program goes on"; });
        EXPECT_TRUE(stage.Run());
        EXPECT_EQ(ended, (std::vector<std::string>{"inner", "middle", "outer"}));
        EXPECT_EQ(stage.client.Stack().Depth(), 0u);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
}

TEST_F(Windows, TabReachesEverythingThatTakesKeysAndComesBack) {
    const auto walks = [this](std::string name, const std::vector<Control*>& controls) {
        See([=, this] {
            std::set<QWidget*> seen, expected;
            for (int i = 0; i < 60 && QApplication::focusWidget() != nullptr; ++i) {
                seen.insert(QApplication::focusWidget());
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            }
            for (const Control* control : controls)
                if (TakesFocus(*control) && stage.board.PainterOf(*control) != nullptr)
                    expected.insert(stage.WidgetOf(*control));
            EXPECT_GT(expected.size(), 0u);
            for (QWidget* widget : expected)
                EXPECT_TRUE(seen.contains(widget))
                    << name << ": Tab does not reach " << widget->objectName().toStdString();
            for (QWidget* widget : seen)
                EXPECT_TRUE(expected.contains(widget))
                    << name << ": Tab leads to "
                    << (widget == nullptr ? "nothing" : widget->objectName().toStdString());
        });
    };
    Furnishes();
    walks("UsrNmPwIP", forms.UsrNmPwIP.Controls());
    stage.LogsOn();
    walks("main view", stage.view.Controls());
    for (Form* form : forms.All()) {
        if (form == &forms.UsrNmPwIP) continue;
        See([this, form] { stage.loop.Enter([form] { form->ShowModal(); }); });
        walks(form->Name(), form->Controls());
        See([this, form] { stage.loop.Enter([form] { form->Hide(); }); });
    }
    EXPECT_TRUE(stage.Run());
}

TEST_F(Windows, EnterPressesTheButtonThatHasTheFocus) {
    stage.LogsOn();
    Furnishes();
    See([this] { stage.loop.Enter([this] { forms.LobbyFilter.ShowModal(); }); });
    stage.TabsTo(forms.LobbyFilter.ClearAll);
    stage.Presses(Qt::Key_Return);
    See([this] {
        const RowList& rows = forms.LobbyFilter.GameList.rows;
        EXPECT_FALSE(rows.Selected(rows.At(0)));
        EXPECT_TRUE(forms.LobbyFilter.Visible());
    });
    stage.TabsTo(forms.LobbyFilter.Cancel);
    stage.Presses(Qt::Key_Return);
    See([this] {
        EXPECT_FALSE(forms.LobbyFilter.Visible());
        EXPECT_EQ(stage.client.Inis().Read("AV.ini", "GameFilter", "DisplayedGames"), "Go;Chess;");
    });
    EXPECT_TRUE(stage.Run());
}

TEST_F(Windows, AScreenReaderFindsANameAndTheRightRoleForEverything) {
    const std::map<ControlKind, QAccessible::Role> kRoles{
        {ControlKind::Button, QAccessible::PushButton},
        {ControlKind::CheckBox, QAccessible::CheckBox},
        {ControlKind::OptionButton, QAccessible::RadioButton},
        {ControlKind::TextBox, QAccessible::EditableText},
        {ControlKind::ComboBox, QAccessible::ComboBox},
        {ControlKind::Label, QAccessible::StaticText},
        {ControlKind::StatusBar, QAccessible::StaticText},
        {ControlKind::ListBox, QAccessible::Tree},
        {ControlKind::ListView, QAccessible::Tree},
        {ControlKind::FlexGrid, QAccessible::StaticText},
    };
    const auto reads = [&](const std::vector<Control*>& controls) {
        See([&, controls] {
            for (const Control* control : controls) {
                const auto role = kRoles.find(control->Kind());
                if (role == kRoles.end() || !control->Visible() || stage.board.PainterOf(*control) == nullptr) continue;
                const auto* label = dynamic_cast<const Label*>(control);
                if (label != nullptr && label->Caption().empty()) continue;
                QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(stage.WidgetOf(*control));
                ASSERT_NE(spoken, nullptr) << control->Name();
                EXPECT_EQ(spoken->role(), role->second) << control->Parent().Name() << "." << control->Name();
                EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty())
                    << control->Parent().Name() << "." << control->Name();
            }
        });
    };
    Furnishes();
    reads(forms.UsrNmPwIP.Controls());
    stage.LogsOn();
    reads(stage.view.Controls());
    for (Form* form : forms.All()) {
        if (form == &forms.UsrNmPwIP) continue;
        See([this, form] { stage.loop.Enter([form] { form->ShowModal(); }); });
        reads(form->Controls());
        See([this, form] { stage.loop.Enter([form] { form->Hide(); }); });
    }
    See([this] { forms.CreateAccount.sbStatusBar.SetText("Passwords do not match."); });
    See([this] {
        QAccessibleInterface* status =
            QAccessible::queryAccessibleInterface(stage.WidgetOf(forms.CreateAccount.sbStatusBar));
        EXPECT_TRUE(status->text(QAccessible::Name).contains(QStringLiteral("do not match")));
    });
    EXPECT_TRUE(stage.Run());
}

} // namespace

} // namespace ombrin::test
