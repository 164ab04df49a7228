#include "controls/simple_models.h"

#include <functional>
#include <gmock/gmock.h>
#include <utility>

namespace ombrin {
namespace {

TEST(TextBox, WhatIsTypedStopsAtItsLengthAndReplacesTheSelection) {
    constexpr char kBackspace = 8;
    const struct {
        const char* what;
        std::size_t start, length;
        char typed;
        const char* text;
        std::size_t cursor;
    } kCases[] = {
        {"at the start", 0, 0, 'x', "xabcd", 1},
        {"over two", 1, 2, 'x', "axd", 2},
        {"back in the middle", 2, 0, kBackspace, "acd", 1},
        {"back at the start", 0, 0, kBackspace, "abcd", 0},
        {"back over two", 1, 2, kBackspace, "ad", 1},
        {"behind the end", 99, 99, 'x', "abcdx", 5},
        {"from the third on", 2, 99, 'x', "abx", 3},
    };
    Container form("Form");
    TextBox box(form, "Name", {.maxLength = 5});
    for (const auto& one : kCases) {
        box.SetText("abcd");
        box.Select(one.start, one.length);
        box.TypeCharacter(one.typed);
        EXPECT_EQ(box.Text(), one.text) << one.what;
        EXPECT_EQ(box.SelStart(), one.cursor) << one.what;
        EXPECT_EQ(box.SelLength(), 0U) << one.what;
    }
    box.Type("abcdefgh");
    box.TypeCharacter('x');
    EXPECT_EQ(box.Text(), "abcde");
    EXPECT_EQ(box.SelStart(), 5U) << "the cursor stands behind what was typed";
    box.SetText("longer than five");
    EXPECT_EQ(box.Text(), "longer than five") << "the client's own texts are not cut";
    TextBox open(form, "Message", {});
    open.Type(std::string(40'000, 'x'));
    EXPECT_EQ(open.Text().size(), 32'000U);
}

TEST(OptionsAndBoxes, OneOptionOfAFormIsOnAndABoxTellsEachChange) {
    Container form("Form"), other("Other");
    OptionButton first(form, "Radio1"), second(form, "Radio2"), elsewhere(other, "Radio1");
    CheckBox box(form, "Box", "");
    std::vector<bool> seen;
    box.Click = [&] { seen.push_back(box.On()); };
    for (const bool on : {false, true, true, false, true}) box.SetOn(on);
    EXPECT_THAT(seen, testing::ElementsAre(true, false, true));
    for (OptionButton* button : {&elsewhere, &first, &second}) button->SetOn(true);
    EXPECT_FALSE(first.On());
    EXPECT_TRUE(second.On() && elsewhere.On() && box.On());
}

TEST(Control, APainterIsToldOnceUntilItLooks) {
    struct : ModelWatcher {
        void Dirty(Control&) override { ++told; }
        int told = 0;
    } painter;
    Container form("Form");
    TextBox box(form, "Name", {});
    box.Watch(&painter);
    const struct {
        const char* what;
        std::function<void()> step;
        int told;
    } kSteps[] = {
        {"a change", [&] { box.SetVisible(false); }, 1},
        {"it has not looked yet", [&] { box.SetEnabled(false); }, 0},
        {"nothing has changed", [&] { box.Looked(), box.SetEnabled(false); }, 0},
        {"the selection goes back to the start", [&] { box.SetText(box.Text()); }, 1},
        {"it has gone", [&] { box.Watch(nullptr), box.SetText("x"); }, 0},
    };
    for (const auto& step : kSteps) {
        step.step();
        EXPECT_EQ(std::exchange(painter.told, 0), step.told) << step.what;
    }
}

TEST(Control, TheFocusGoesToWhatCanTakeItAndTellsOnce) {
    Container form("Form");
    TextBox name(form, "Name", {}), hidden(form, "Hidden", {}), disabled(form, "Disabled", {});
    int told = 0;
    name.GotFocus = [&] { ++told; };
    hidden.SetVisible(false);
    disabled.SetEnabled(false);
    EXPECT_TRUE(name.SetFocus());
    for (TextBox* box : {&name, &hidden, &disabled}) EXPECT_EQ(box->SetFocus(), box == &name);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(name.HasFocus());
}

} // namespace
} // namespace ombrin
