// Dialogs and boxes as windows: opened and closed without end, under the end of the connection and of the program, and
// found by the Tab key and by a screen reader.
#include "desktop/stage.h"

#include "foundation/runtime_error.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
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
        forms.DownloadProgress.DPLabel.SetCaption("Downloading file 1 of 2");
    }
    static bool TakesFocus(const Control& control) {
        const ControlKind kind = control.Kind();
        // Of a group Tab reaches the one that is on, and the arrow keys the others.
        if (const auto* option = dynamic_cast<const OptionButton*>(&control); option != nullptr && !option->On())
            return false;
        return kind != ControlKind::Label && kind != ControlKind::StatusBar && kind != ControlKind::Image &&
               kind != ControlKind::Frame && kind != ControlKind::ColourSwatch && kind != ControlKind::ProgressBar &&
               control.Visible() && control.Enabled();
    }
    /// From where the keys are, around until they come back.
    void ExpectTabbed(const std::vector<Control*>& controls) {
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
            EXPECT_TRUE(seen.contains(widget)) << "Tab does not reach " << widget->objectName().toStdString();
        for (QWidget* widget : seen)
            EXPECT_TRUE(expected.contains(widget))
                << "Tab leads to " << (widget == nullptr ? "nothing" : widget->objectName().toStdString());
    }
    /// By a name, and as what it is.
    void ExpectSpoken(const std::vector<Control*>& controls) {
        const std::map<ControlKind, QAccessible::Role> kRoles{
            {ControlKind::Button, QAccessible::PushButton},
            {ControlKind::CheckBox, QAccessible::CheckBox},
            {ControlKind::OptionButton, QAccessible::RadioButton},
            {ControlKind::TextBox, QAccessible::EditableText},
            {ControlKind::ComboBox, QAccessible::ComboBox},
            {ControlKind::Label, QAccessible::StaticText},
            {ControlKind::StatusBar, QAccessible::StaticText},
            {ControlKind::ListBox, QAccessible::List},
            {ControlKind::ListView, QAccessible::List},
            {ControlKind::FlexGrid, QAccessible::Document},
            {ControlKind::Frame, QAccessible::Grouping},
            {ControlKind::ColourSwatch, QAccessible::Graphic},
            {ControlKind::ProgressBar, QAccessible::ProgressBar},
        };
        for (const Control* control : controls) {
            SCOPED_TRACE(control->Name());
            const auto role = kRoles.find(control->Kind());
            if (role == kRoles.end() || !control->Visible() || stage.board.PainterOf(*control) == nullptr) continue;
            const auto* label = dynamic_cast<const Label*>(control);
            if (label != nullptr && label->Caption().empty()) continue;
            QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(stage.WidgetOf(*control));
            ASSERT_NE(spoken, nullptr);
            const bool hasColumns = control == &stage.view.BuddyLV;
            EXPECT_EQ(spoken->role(), hasColumns ? QAccessible::Table : role->second);
            EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty());
        }
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
    stage.Until([&] { return closed == static_cast<int>(Waits().size()) * 1000; }, "the last box", 240'000);
    EXPECT_TRUE(stage.Run());
}

TEST(WindowsAtTheEnd, TheConnectionAndThenTheProgramEndUnderEachOfThem) {
    std::size_t ways = 1; // as many as the first round counts
    for (std::size_t first = 0; first < ways; ++first) {
        SCOPED_TRACE(first);
        struct Case : Windows {
            void TestBody() override {}
            using Windows::boxes;
            using Windows::stage;
            using Windows::Waits;
        } windows;
        Stage& stage = windows.stage;
        auto waits = windows.Waits();
        ways = waits.size();
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

TEST_F(Windows, TheTabKeyAndAScreenReaderFindEverything) {
    const auto looks = [this](std::string name, const std::vector<Control*>& controls) {
        stage.Until([] { return QApplication::focusWidget() != nullptr; }, "the keys in " + name);
        See([=, this] {
            SCOPED_TRACE(name);
            ExpectSpoken(controls);
            ExpectTabbed(controls);
        });
    };
    Furnishes();
    looks("UsrNmPwIP", forms.UsrNmPwIP.Controls());
    stage.LogsOn();
    looks("main view", stage.view.Controls());
    for (Form* form : forms.All()) {
        if (form == &forms.UsrNmPwIP) continue;
        See([this, form] { stage.loop.Enter([form] { form->ShowModal(); }); });
        if (form == &forms.FindingGame)
            See([this, form] { ExpectSpoken(form->Controls()); }); // nothing in it takes keys
        else
            looks(form->Name(), form->Controls());
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

TEST_F(Windows, EscapeAndEnterMeanTheCloseBoxAndTheDefaultButton) {
    stage.LogsOn();
    See([this] { stage.client.Store().SaveSetting("Games", "Go", "C:\\Go\\GO.EXE"); });
    const auto configures = [this](Qt::Key key) {
        See([this] { stage.loop.Enter([this] { stage.client.Configure_Click(); }); });
        stage.TabsTo(forms.ConfigureGame.GameFile);
        See([this] { forms.ConfigureGame.GameFile.Type("C:\\Chess\\CHESS.EXE"); });
        stage.Presses(key);
        See([this] { EXPECT_FALSE(forms.ConfigureGame.Visible()); });
    };
    configures(Qt::Key_Escape);
    See([this] { EXPECT_EQ(stage.client.Store().GetSetting("Games", "Go"), "C:\\Go\\GO.EXE"); });
    configures(Qt::Key_Return);
    See([this] { EXPECT_EQ(stage.client.Store().GetSetting("Games", "Go"), "C:\\Chess\\CHESS.EXE"); });
    for (Form* form : std::initializer_list<Form*>{&forms.frmAbout, &forms.PauseAV})
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
            See([this, form] { stage.loop.Enter([form] { form->ShowModal(); }); });
            See([form] { EXPECT_TRUE(form->Visible()); });
            stage.Presses(key);
            See([form, key] { EXPECT_FALSE(form->Visible()) << form->Name() << " " << key; });
        }
    EXPECT_TRUE(stage.Run());
}

/// What a person would have to guess at, among a window's texts: a label that is not high enough for its lines, or a
/// caption wider than its place.
void LooksForCutTexts(QWidget& window) {
    for (const QWidget* shown : window.findChildren<QWidget*>()) {
        if (!shown->isVisible() || qobject_cast<const QLineEdit*>(shown) != nullptr) continue;
        const auto* label = qobject_cast<const QLabel*>(shown);
        const bool wraps = label != nullptr && label->wordWrap();
        const QSize hint = wraps ? QSize(0, label->heightForWidth(label->width())) : shown->minimumSizeHint();
        const QString what = window.windowTitle() + QLatin1Char(' ') + shown->objectName();
        EXPECT_GE(shown->height(), hint.height()) << what.toStdString();
        EXPECT_GE(shown->width(), hint.width()) << what.toStdString();
        const QRect place(shown->mapTo(&window, QPoint()), shown->size());
        EXPECT_TRUE(window.rect().contains(place)) << what.toStdString() << " leaves the window";
    }
}

TEST(DialogTexts, AreReadableToTheirLastWordInEachLanguage) {
    for (const char* language : {"English", "Deutsch",
                                 "Fran\xE7"
                                 "ais"}) {
        SCOPED_TRACE(language);
        Stage stage("");
        stage.Speaks(language);
        stage.LogsOn();
        const auto looksAt = [&stage](Form& form) {
            stage.Step([&] { stage.loop.Enter([&] { form.ShowModal(); }); });
            stage.Step([&] { LooksForCutTexts(*stage.Front()); });
            stage.Step([&] { stage.loop.Enter([&] { form.Hide(); }); });
        };
        looksAt(stage.forms.ConfigureGame);
        looksAt(stage.forms.frmAbout);
        DownloadProgress& download = stage.forms.DownloadProgress;
        stage.Step([&] {
            download.OfferOK();
            download.DPLabel.SetCaption(stage.client.Inis().Read("AVfLang.ini", language, "DownloadComplete"));
        });
        looksAt(download);
        int heights[8] = {};
        for (int which = 0; which < 8; ++which) {
            stage.Step([&, which] {
                stage.forms.PauseAV.AutoStartOn = (which & 4) == 0;
                stage.forms.PauseAV.UsesDirectPlay = (which & 2) == 0;
                stage.forms.PauseAV.IsCreator = (which & 1) != 0;
            });
            stage.Step([&] { stage.loop.Enter([&] { stage.forms.PauseAV.ShowModal(); }); });
            stage.Step([&, which] {
                LooksForCutTexts(*stage.Front());
                heights[which] = stage.Front()->height();
                EXPECT_EQ(stage.Front()->windowTitle(), stage.board.Text(stage.forms.PauseAV.Caption()));
            });
            stage.Step([&] { stage.loop.Enter([&] { stage.forms.PauseAV.Hide(); }); });
        }
        EXPECT_TRUE(stage.Run());
        EXPECT_GT(heights[0], heights[3]) << "the window of a short text is as high as that of the longest";
    }
}

} // namespace

} // namespace ombrin::test
