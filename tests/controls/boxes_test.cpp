#include "controls/boxes.h"

#include "controls/user_input.h"
#include "scripted_waiter.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

class BoxesTest : public testing::Test, protected Stage {
protected:
    Page view{"View"};
    Boxes boxes{stack};
    UserInput input{view, stack};
};

TEST_F(BoxesTest, ABoxHasItsButtonsAndACloseBoxWhereThatHasAMeaning) {
    using enum BoxResult;
    const struct {
        BoxButtons buttons;
        std::vector<BoxResult> has;
        std::optional<BoxResult> closed;
    } kBoxes[] = {
        {BoxButtons::Ok, {Ok}, Ok},
        {BoxButtons::OkCancel, {Ok, Cancel}, Cancel},
        {BoxButtons::YesNo, {Yes, No}, std::nullopt},
    };
    for (const auto& box : kBoxes)
        for (const BoxResult button : {Ok, Cancel, BoxResult{3}, Yes, No}) {
            SCOPED_TRACE(testing::Message() << static_cast<int>(box.buttons) << " " << static_cast<int>(button));
            const bool has = std::count(box.has.begin(), box.has.end(), button) == 1;
            user.Then([&] {
                EXPECT_EQ(!input.PressButton(button), has);
                if (has) return;
                const bool closed = !input.Close(*stack.Top());
                EXPECT_EQ(closed, box.closed.has_value());
                if (!closed) stack.Top()->Hide();
            });
            const BoxResult result = boxes.Show("Sure?", "Title", box.buttons);
            EXPECT_EQ(result, has ? button : box.closed.value_or(result));
        }
}

TEST_F(BoxesTest, AQuestionTakesItsOwnKindOfAnswerOrACancel) {
    const struct {
        std::function<std::string()> ask;
        std::function<Refusal()> answer, bad;
        std::string result, cancelled;
    } kQuestions[] = {
        {[&] { return boxes.Ask("Name:"); }, [&] { return input.AnswerText("ann"); },
         [&] { return input.AnswerText("a\n"); }, "ann", ""},
        {[&] { return boxes.ChooseFile("Game", "*.exe"); }, [&] { return input.AnswerFile("/g/hl.exe"); },
         [&] { return input.AnswerFile(""); }, "/g/hl.exe", ""},
        {[&] { return std::to_string(boxes.ChooseColour(0).value_or(-1)); }, [&] { return input.AnswerColour(255); },
         [&] { return input.AnswerColour(-1); }, "255", "-1"},
    };
    for (const auto& question : kQuestions) {
        SCOPED_TRACE(question.result);
        user.Then([&] {
            EXPECT_TRUE(question.bad());
            for (const auto& other : kQuestions) {
                if (&other != &question) {
                    EXPECT_TRUE(other.answer());
                }
            }
            EXPECT_FALSE(question.answer());
        });
        EXPECT_EQ(question.ask(), question.result);
        user.Then([&] { EXPECT_FALSE(input.PressButton(BoxResult::Cancel)); });
        EXPECT_EQ(question.ask(), question.cancelled);
        user.Then([&] { EXPECT_FALSE(input.Close(*stack.Top())); });
        EXPECT_EQ(question.ask(), question.cancelled);
    }
}

} // namespace
} // namespace ombrin
