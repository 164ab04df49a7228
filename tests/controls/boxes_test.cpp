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
    const BoxResult kAll[] = {BoxResult::Ok, BoxResult::Cancel, BoxResult::Yes, BoxResult::No, BoxResult{3}};
    const struct {
        BoxButtons buttons;
        std::vector<BoxResult> has;
        std::optional<BoxResult> closed;
    } kBoxes[] = {
        {BoxButtons::Ok, {BoxResult::Ok}, BoxResult::Ok},
        {BoxButtons::OkCancel, {BoxResult::Ok, BoxResult::Cancel}, BoxResult::Cancel},
        {BoxButtons::YesNo, {BoxResult::Yes, BoxResult::No}, std::nullopt},
    };
    for (const auto& box : kBoxes) {
        SCOPED_TRACE(static_cast<int>(box.buttons));
        for (const BoxResult button : box.has) {
            user.Then([&] {
                for (const BoxResult other : kAll) {
                    if (std::count(box.has.begin(), box.has.end(), other) > 0) continue;
                    EXPECT_FALSE(Box().Press(other));
                    ASSERT_TRUE(Box().Visible());
                }
                EXPECT_TRUE(Box().Press(button));
            });
            EXPECT_EQ(boxes.Show("Sure?", "Title", box.buttons), button);
        }
        user.Then([&] {
            EXPECT_EQ(static_cast<bool>(Box().CloseBox), box.closed.has_value());
            box.closed ? Box().CloseBox() : Box().Hide();
        });
        const BoxResult result = boxes.Show("Sure?", "Title", box.buttons);
        if (box.closed) {
            EXPECT_EQ(result, *box.closed);
        }
    }
}

TEST_F(BoxesTest, ABoxShowsWhatItWasGivenAndAPlainOneTheUsualTitle) {
    user.Then([&] {
            EXPECT_EQ(Box().Text(), "No <b>markup</b>");
            EXPECT_EQ(Box().Caption(), "Title");
            EXPECT_EQ(Box().Icon(), BoxIcon::Exclamation);
            Box().Press(BoxResult::Ok);
        })
        .Then([&] {
            EXPECT_EQ(Box().Text(), "plain");
            EXPECT_EQ(Box().Caption(), kUsualTitle);
            EXPECT_EQ(Box().Icon(), BoxIcon::None);
            EXPECT_EQ(Box().Buttons(), BoxButtons::Ok);
            Box().Press(BoxResult::Ok);
        });
    boxes.Show("No <b>markup</b>", "Title", BoxButtons::Ok, BoxIcon::Exclamation);
    boxes.ShowPlain("plain");
    EXPECT_TRUE(user.Done());
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
    };
    for (const auto& end : kEnds) {
        user.Then([&] {
            EXPECT_EQ(Question().Prompt(), "Name:");
            EXPECT_EQ(Question().Caption(), "");
            EXPECT_EQ(Question().Answer.Text(), "");
            EXPECT_TRUE(Question().Answer.HasFocus());
            Question().Answer.Type("ann");
            end.end();
        });
        EXPECT_EQ(boxes.Ask("Name:"), end.answer) << end.how;
    }
}

TEST_F(BoxesTest, BoxesOverOneAnotherKeepTheirAnswersApart) {
    std::vector<std::string> answers;
    user.Then([&] {
            Question().Answer.Type("half typed");
            if (boxes.Show("Destroy?", "", BoxButtons::YesNo) == BoxResult::No) answers.emplace_back("no");
        })
        .Then([&] {
            answers.push_back(boxes.Ask("Other?"));
            EXPECT_EQ(Box().Text(), "Destroy?");
        })
        .Then([&] {
            EXPECT_EQ(stack.Visible().size(), 3U);
            Question().Answer.Type("other");
            Question().Accept();
        })
        .Then([&] { Box().Press(BoxResult::No); })
        .Then([&] { Question().Accept(); });
    answers.push_back(boxes.Ask("Name:"));
    EXPECT_THAT(answers, testing::ElementsAre("other", "no", "half typed"));
}

} // namespace
} // namespace ombrin
