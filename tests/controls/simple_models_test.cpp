#include "controls/simple_models.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

/// A painter that looks when it is told to.
struct Painter : ModelWatcher {
    void Dirty(Control&) override { ++told; }
    int told = 0;
};

TEST(TextBox, TypedTextStopsAtTheLengthOfTheBox) {
    Container form("Form");
    TextBox box(form, "Name", {.maxLength = 5});
    box.Type("abcdefgh");
    EXPECT_EQ(box.Text(), "abcde");
    EXPECT_EQ(box.SelStart(), 5U) << "the cursor stands behind what was typed";
    box.TypeCharacter('x');
    EXPECT_EQ(box.Text(), "abcde");
    box.Select(1, 3);
    box.TypeCharacter('x');
    EXPECT_EQ(box.Text(), "axe") << "the selection makes room";
    box.SetText("longer than five");
    EXPECT_EQ(box.Text(), "longer than five") << "the client's own texts are not cut";
    EXPECT_EQ(box.SelStart(), 0U);

    TextBox open(form, "Message", {});
    open.Type(std::string(40'000, 'x'));
    EXPECT_EQ(open.Text().size(), 32'000U);
}

TEST(TextBox, ACharacterReplacesTheSelectionAndBackspaceTakesOneAway) {
    constexpr char kBackspace = 8;
    const struct {
        const char* what;
        std::size_t start, length;
        char typed;
        const char* text;
        std::size_t cursor;
    } kCases[] = {
        {"at the start", 0, 0, 'x', "xabcd", 1},
        {"at the end", 4, 0, 'x', "abcdx", 5},
        {"over two", 1, 2, 'x', "axd", 2},
        {"over all", 0, 4, 'x', "x", 1},
        {"back in the middle", 2, 0, kBackspace, "acd", 1},
        {"back at the start", 0, 0, kBackspace, "abcd", 0},
        {"back over two", 1, 2, kBackspace, "ad", 1},
        {"behind the end", 99, 99, 'x', "abcdx", 5},
        {"from the third on", 2, 99, 'x', "abx", 3},
    };
    for (const auto& one : kCases) {
        Container form("Form");
        TextBox box(form, "Name", {});
        box.SetText("abcd");
        box.Select(one.start, one.length);
        box.TypeCharacter(one.typed);
        EXPECT_EQ(box.Text(), one.text) << one.what;
        EXPECT_EQ(box.SelStart(), one.cursor) << one.what;
        EXPECT_EQ(box.SelLength(), 0U) << one.what;
    }
}

TEST(TextBox, ItsPainterHearsWhenTheClientTakesTheSelectionBackToTheStart) {
    Container form("Form");
    TextBox box(form, "Name", {});
    box.SetText("abcd");
    box.SelectAll();
    Painter painter;
    box.Watch(&painter);
    box.SetText("abcd");
    EXPECT_EQ(painter.told, 1);
    EXPECT_EQ(box.SelLength(), 0U);
}

TEST(OptionButton, OneOfAFormIsOnAndThoseOfOtherFormsStay) {
    Container form("Form"), other("Other");
    OptionButton first(form, "Radio1"), second(form, "Radio2"), elsewhere(other, "Radio1");
    CheckBox box(form, "Box", "");
    elsewhere.SetOn(true);
    box.SetOn(true);
    first.SetOn(true);
    second.SetOn(true);
    EXPECT_FALSE(first.On());
    EXPECT_TRUE(second.On());
    EXPECT_TRUE(elsewhere.On());
    EXPECT_TRUE(box.On());
    second.SetOn(false);
    EXPECT_FALSE(first.On() || second.On()) << "none is on either";
}

TEST(CheckBox, ItsRoutineRunsOnceForEachChangeAndSeesTheNewValue) {
    Container form("Form");
    CheckBox box(form, "Box", "Remember");
    std::vector<bool> seen;
    box.Click = [&] { seen.push_back(box.On()); };
    for (const bool on : {false, true, true, false}) box.SetOn(on);
    EXPECT_THAT(seen, testing::ElementsAre(true, false));
}

TEST(Control, APainterIsToldOnceUntilItLooks) {
    Container form("Form");
    Button button(form, "Create", "Create");
    Painter painter;
    button.SetCaption("before anybody watches");
    button.Watch(&painter);
    button.SetCaption("one");
    button.SetEnabled(false);
    EXPECT_EQ(painter.told, 1);
    button.Looked();
    button.SetEnabled(false);
    EXPECT_EQ(painter.told, 1) << "nothing has changed";
    button.SetVisible(false);
    EXPECT_EQ(painter.told, 2);
    button.Watch(nullptr);
    button.SetCaption("after it went");
    EXPECT_EQ(painter.told, 2);
}

TEST(Control, TheFocusGoesToWhatCanTakeItAndTellsOnce) {
    Container form("Form");
    TextBox name(form, "Name", {}), password(form, "Password", {});
    int told = 0;
    name.GotFocus = [&] { ++told; };
    EXPECT_TRUE(name.SetFocus());
    EXPECT_TRUE(name.SetFocus());
    EXPECT_EQ(told, 1);
    password.SetVisible(false);
    EXPECT_FALSE(password.SetFocus());
    password.SetVisible(true);
    password.SetEnabled(false);
    EXPECT_FALSE(password.SetFocus());
    EXPECT_TRUE(name.HasFocus());
    password.SetEnabled(true);
    EXPECT_TRUE(password.SetFocus());
    EXPECT_FALSE(name.HasFocus());
}

} // namespace
} // namespace ombrin
