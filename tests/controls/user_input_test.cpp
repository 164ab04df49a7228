#include "controls/user_input.h"

#include "controls/main_view.h"
#include "platform/posix/clock.h"
#include "platform/posix/event_loop.h"
#include "scripted_waiter.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The main view with some rows, handlers that write down their runs, and a dialog.
class UserInputTest : public testing::Test, protected Stage, private FormObserver {
protected:
    UserInputTest() {
        input.ShowView(true);
        stack.SetObserver(this);
        for (const char* name : {"ann", "bob", "carl"}) view.UserList.Add(name);
        for (const char* name : {"Quake : 1", "Doom : 2"}) view.lbLobbies.Add(name);
        view.msflxMainChatLines.SetRows(4);
        view.Create.Click = Says("Create");
        view.UserList.ItemClick = Says("UserList click");
        view.UserList.DblClick = Says("UserList dblclick");
        view.UserList.MouseUp = [this](int button) {
            said.push_back("UserList mouse " + std::to_string(button));
            if (button == UserInput::kRight) view.PopUp(view.UserMenu);
        };
        view.lbLobbies.Click = Says("lbLobbies click");
        view.msflxMainChatLines.Click = Says("cell");
        view.msflxMainChatLines.KeyDown = [this](int&, int) { said.emplace_back("key"); };
        view.PMMenu.Click = Says("PMMenu");
        view.EnterRoomMenu.Click = Says("EnterRoomMenu");
        view.MainText.SetText("draft");
    }
    std::function<void()> Says(const std::string& what) {
        return [this, what] { said.push_back(what); };
    }
    void FormShown(Form&) override {}
    void FormHidden(Form&) override {}
    void MenuOpened(Menu& menu) override { said.push_back("menu " + menu.Name()); }
    std::vector<std::string> Said() { return std::exchange(said, {}); }
    Refusal Press(Control& control, int key, int shift = UserInput::kNoShift) { return input.Key(control, key, shift); }
    /// Runs a step while the dialog is up.
    void Under(const std::function<void()>& step) {
        user.Then([&] {
            step();
            dialog.Hide();
        });
        dialog.ShowModal();
    }
    /// Everything that an input can change.
    std::string World() {
        std::string world = view.MainText.Text();
        world += view.Focus() == nullptr ? " -" : " " + view.Focus()->Name();
        world += " " + view.UserList.rows.Text(view.UserList.SelectedItem()) + " " + view.lbLobbies.SelectedText();
        world += " " + std::to_string(view.msflxMainChatLines.Row()) + std::to_string(view.msflxMainChatLines.Col());
        world += view.OpenMenu() == nullptr ? " -" : " " + view.OpenMenu()->Name();
        for (const auto& what : said) world += " " + what;
        return world;
    }

    VirtualClock clock;
    EventLoop loop{clock};
    View view{loop};
    Form dialog{stack, "Dialog", "Dialog"};
    OptionButton first{dialog, "First"};
    Boxes boxes{stack};
    UserInput input{view, stack};
    std::vector<std::string> said;
};

TEST_F(UserInputTest, WhatAPersonCouldNotDoIsRefusedAndChangesNothing) {
    const auto underTheDialog = [this](std::function<Refusal()> act) {
        return [this, act] {
            Refusal refusal;
            Under([&] { refusal = act(); });
            return refusal;
        };
    };
    View& v = view;
    const auto click = [&] { return input.Click(v.Create); };
    const auto choose = [&] { return input.Choose(v.PMMenu); };
    const struct {
        const char* what;
        std::function<Refusal()> act;
        const char* why;
        std::function<void()> given = [] {};
    } kCases[] = {
        {"view not shown", click, "the view is not shown", [&] { input.ShowView(false); }},
        {"view disabled", click, "the view is disabled", [&] { v.SetEnabled(false); }},
        {"hidden button", click, "hidden", [&] { v.Create.SetVisible(false); }},
        {"disabled button", click, "disabled", [&] { v.Create.SetEnabled(false); }},
        {"hidden entry", choose, "hidden", [&] { v.PMMenu.SetVisible(false); }},
        {"entry of a closed menu", choose, "no menu is open", [&] { v.CloseMenu(); }},
        {"entry of another menu", [&] { return input.Choose(v.EnterRoomMenu); }, "the open menu has no such entry"},
        {"entry that does nothing yet", [&] { return input.Choose(v.AddBuddy); }, "does nothing yet"},
        {"behind a dialog", underTheDialog(click), "behind Dialog"},
        {"menu behind a dialog", underTheDialog(choose), "behind Dialog"},
        {"no close box", underTheDialog([&] { return input.Close(dialog); }), "has no close box"},
        {"closing what is not up", [&] { return input.Close(dialog); }, "not shown"},
        {"dialog that is not up", [&] { return input.Click(first); }, "its form is not shown"},
        {"row that is gone", [&] { return input.Select(v.UserList, 3, true); }, "no such row"},
        {"double click behind the last", [&] { return input.DoubleClick(v.lbLobbies, 2); }, "no such row"},
        {"list box without a choice", [&] { return input.Click(v.lbLobbies); }, "no row is selected"},
        {"row's mark", [&] { return input.Select(v.UserList, 0, false); }, "a row of this list stays selected"},
        {"rows of a button", [&] { return input.Select(v.Create, 0, true); }, "has no rows"},
        {"menu of a text box", [&] { return input.RightClick(v.MainText, 0); }, "has no menu"},
        {"cell behind the last", [&] { return input.ClickCell(v.msflxMainChatLines, 4, 0); }, "no such cell"},
        {"two lines in one", [&] { return input.Type(v.MainText, "a\nb"); }, "one line only"},
        {"NUL", [&] { return input.Type(v.MainText, std::string_view("a\0b", 3)); }, "one line only"},
        {"key for a button", [&] { return Press(v.Create, 13); }, "takes no keys"},
        {"click on a label", [&] { return input.Click(v.RoomsLabel); }, "takes no click"},
    };
    Under([] {}); // its first show settles the focus
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        input.ShowView(true);
        view.SetEnabled(true);
        v.Create.SetEnabled(true);
        v.Create.SetVisible(true);
        v.PMMenu.SetVisible(true);
        view.PopUp(view.UserMenu);
        one.given();
        const std::string before = World();
        EXPECT_EQ(one.act().value_or("taken"), one.why);
        EXPECT_EQ(World(), before);
    }
}

TEST_F(UserInputTest, EveryOtherInputClosesTheMenu) {
    dialog.CloseBox = [&] { dialog.Hide(); };
    const struct {
        const char* what;
        std::function<void()> waits; ///< empty: the input is for the view
        std::function<Refusal()> act;
    } kInputs[] = {
        {"button", {}, [&] { return input.Click(view.Create); }},
        {"row", {}, [&] { return input.Select(view.lbLobbies, 0, true); }},
        {"right click in a list without a menu", {}, [&] { return input.RightClick(view.lbLobbies, -1); }},
        {"cell", {}, [&] { return input.ClickCell(view.msflxMainChatLines, 1, 1); }},
        {"text", {}, [&] { return input.Type(view.MainText, "x"); }},
        {"key", {}, [&] { return Press(view.MainText, 'x'); }},
        {"entry", {}, [&] { return input.Choose(view.PMMenu); }},
        {"box", [&] { boxes.ShowPlain("x"); }, [&] { return input.PressButton(BoxResult::Ok); }},
        {"close box", [&] { dialog.ShowModal(); }, [&] { return input.Close(dialog); }},
    };
    for (const auto& one : kInputs) {
        view.PopUp(view.UserMenu);
        const auto act = [&] { EXPECT_EQ(one.act().value_or("taken"), "taken") << one.what; };
        if (one.waits) user.Then(act);
        one.waits ? one.waits() : act();
        EXPECT_EQ(view.OpenMenu(), nullptr) << one.what;
    }
}

TEST_F(UserInputTest, ARightClickSelectsItsRowAndOpensTheMenu) {
    EXPECT_FALSE(input.RightClick(view.UserList, 2));
    EXPECT_THAT(Said(), ElementsAre("UserList click", "UserList mouse 2", "menu UserMenu"));
    EXPECT_FALSE(input.RightClick(view.UserList, -1));
    EXPECT_THAT(Said(), ElementsAre("UserList mouse 2", "menu UserMenu")) << "the empty area selects nothing";
    EXPECT_EQ(view.UserList.SelectedItem(), view.UserList.rows.At(2));
    EXPECT_FALSE(input.RightClick(view.lbLobbies, 0));
    EXPECT_THAT(Said(), ElementsAre("lbLobbies click")) << "a list without a menu";
}

TEST_F(UserInputTest, TheSecondClickMeetsTheWorldThatTheFirstOneLeft) {
    const auto opensTheDialog = [&] { Under([&] { EXPECT_THAT(said, IsEmpty()); }); };
    const struct {
        const char* what;
        std::function<void()> first;
        std::vector<std::string> said;
    } kCases[] = {
        {"as it was", [] {}, {"UserList mouse 1", "UserList dblclick"}},
        {"a dialog that has closed", opensTheDialog, {"UserList mouse 1", "UserList dblclick"}},
        {"hidden", [&] { view.UserList.SetVisible(false); }, {}},
        {"disabled", [&] { view.UserList.SetEnabled(false); }, {}},
        {"view disabled", [&] { view.SetEnabled(false); }, {}},
    };
    for (const auto& one : kCases) {
        view.SetEnabled(true);
        view.UserList.SetEnabled(true);
        view.UserList.SetVisible(true);
        view.UserList.ItemClick = one.first;
        EXPECT_FALSE(input.DoubleClick(view.UserList, 0)) << "its first click was taken";
        EXPECT_EQ(Said(), one.said) << one.what;
    }
    view.SetEnabled(true);
    EXPECT_FALSE(input.RightClick(view.UserList, 0));
    EXPECT_THAT(Said(), IsEmpty()) << "nor does a menu open there";
}

TEST_F(UserInputTest, KeysGoToTheirHandlerAndThenIntoTheBoxUnlessSwallowed) {
    TextBox& box = view.MainText;
    box.KeyPress = [&](int& key) {
        said.push_back(std::to_string(key));
        if (key == 120) key = 0;
        if (key == 121) key = 'z';
    };
    box.SetText("ab");
    box.Select(2, 0);
    for (const int key : {120, 121, 13, 27, 0xE4, 8, 8}) EXPECT_FALSE(Press(box, key));
    EXPECT_FALSE(Press(box, 'c', UserInput::kControl));
    EXPECT_EQ(box.Text(), "ab") << "an umlaut and the z came and went";
    EXPECT_THAT(Said(), ElementsAre("120", "121", "13", "27", "228", "8", "8")) << "a shortcut is no text";
    FlexGrid& grid = view.msflxMainChatLines;
    EXPECT_FALSE(Press(grid, 67, UserInput::kControl));
    EXPECT_FALSE(input.ClickCell(grid, 3, 1));
    EXPECT_FALSE(input.ClickCell(grid, 0, 0));
    EXPECT_THAT(Said(), ElementsAre("key", "cell", "cell"));
    EXPECT_TRUE(grid.HasFocus());
    EXPECT_EQ(grid.Row(), 3) << "a click on the header moves nowhere";
    EXPECT_EQ(grid.Col(), 1);
}

TEST_F(UserInputTest, BesideAModelessFormTheViewGoesOnAndBehindAModalOneBothWait) {
    Form progress{stack, "DownloadProgress", "Download Progress"};
    Button cancel{progress, "Cancel", "Cancel"};
    cancel.Click = Says("Cancel");
    progress.CloseBox = [&] { progress.Hide(); };
    progress.Show();
    EXPECT_FALSE(input.Click(view.Create));
    EXPECT_FALSE(input.Click(cancel));
    EXPECT_THAT(Said(), ElementsAre("Create", "Cancel"));
    Under([&] {
        EXPECT_EQ(input.Click(cancel).value_or("taken"), "behind Dialog");
        EXPECT_EQ(input.Close(progress).value_or("taken"), "behind another form");
    });
    EXPECT_FALSE(input.Close(progress));
    EXPECT_FALSE(progress.Visible());
    EXPECT_THAT(Said(), IsEmpty());
}

} // namespace
} // namespace ombrin
