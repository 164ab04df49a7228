#include "controls/boxes.h"

#include "scripted_waiter.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

class BoxesTest : public testing::Test, protected Stage {
protected:
    MessageBoxForm& Box() { return dynamic_cast<MessageBoxForm&>(*stack.Top()); }
    InputBoxForm& Question() { return dynamic_cast<InputBoxForm&>(*stack.Top()); }
    Boxes boxes{stack};
};

TEST_F(BoxesTest, ABoxHasItsButtonsAndACloseBoxWhereThatHasAMeaning) {
    using enum BoxResult;
    const struct {
        BoxButtons buttons;
        std::vector<BoxResult> has, hasNot;
        std::optional<BoxResult> closed;
    } kBoxes[] = {
        {BoxButtons::Ok, {Ok}, {Cancel, Yes, No}, Ok},
        {BoxButtons::OkCancel, {Ok, Cancel}, {Yes, No, BoxResult{3}}, Cancel},
        {BoxButtons::YesNo, {Yes, No}, {Ok, Cancel}, std::nullopt},
    };
    for (const auto& box : kBoxes) {
        SCOPED_TRACE(static_cast<int>(box.buttons));
        for (const BoxResult button : box.has) {
            user.Then([&] {
                EXPECT_EQ(Box().Text(), "No <b>markup</b>");
                EXPECT_EQ(Box().Caption(), "Title");
                EXPECT_EQ(Box().Icon(), BoxIcon::Exclamation);
                for (const BoxResult other : box.hasNot) EXPECT_FALSE(Box().Press(other));
                EXPECT_TRUE(Box().Press(button));
            });
            EXPECT_EQ(boxes.Show("No <b>markup</b>", "Title", box.buttons, BoxIcon::Exclamation), button);
        }
        user.Then([&] {
            EXPECT_EQ(static_cast<bool>(Box().CloseBox), box.closed.has_value());
            box.closed ? Box().CloseBox() : Box().Hide();
        });
        const BoxResult result = boxes.Show("Sure?", "Title", box.buttons);
        EXPECT_EQ(result, box.closed.value_or(result));
    }
    user.Then([&] {
        EXPECT_EQ(Box().Caption(), kUsualTitle);
        EXPECT_EQ(Box().Icon(), BoxIcon::None);
        Box().Press(Ok);
    });
    boxes.ShowPlain("plain");
}

TEST_F(BoxesTest, AnInputBoxAnswersWhatWasTypedAndNothingAfterACancel) {
    const struct {
        const char* how;
        std::function<void()> end;
        const char* answer;
    } kEnds[] = {
        {"OK", [&] { Question().Accept(); }, "ann"},
        {"Cancel", [&] { Question().Cancel(); }, ""},
        {"close box", [&] { Question().CloseBox(); }, ""},
        {"OK under another answer",
         [&] {
             user.Then([&] { Question().Accept(); });
             boxes.Ask("Other?");
             Question().Accept();
         },
         "ann"},
    };
    for (const auto& end : kEnds) {
        user.Then([&] {
            EXPECT_EQ(Question().Prompt(), "Name:");
            EXPECT_EQ(Question().Answer.Text(), "");
            EXPECT_TRUE(Question().Answer.HasFocus());
            Question().Answer.Type("ann");
            end.end();
        });
        EXPECT_EQ(boxes.Ask("Name:"), end.answer) << end.how;
    }
}

} // namespace
} // namespace ombrin
