#include "scripted_waiter.h"

#include "../foundation/raised.h"
#include "controls/boxes.h"
#include "controls/menu.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Three dialogs that write down what happens to them, as does the host.
class ModalStackTest : public testing::Test, protected Stage, private FormObserver {
protected:
    ModalStackTest() {
        stack.SetObserver(this);
        for (Form* form : {&one, &two, &three}) {
            form->Load = [this, form] { Say("load", *form); };
            form->Activate = [this, form] { Say("activate", *form); };
            form->Deactivate = [this, form] { Say("deactivate", *form); };
        }
    }
    void Say(const std::string& what, const Form& form) { said.push_back(what + " " + form.Name()); }
    void FormShown(Form& form) override { Say("shown", form); }
    void FormHidden(Form& form) override { Say("hidden", form); }
    void MenuOpened(Menu&) override {}

    std::vector<std::string> Said() { return std::exchange(said, {}); }
    std::vector<std::string> Visible() const {
        std::vector<std::string> names;
        for (const Form* form : stack.Visible()) names.push_back(form->Name());
        return names;
    }

    Form one{stack, "one", "One"}, two{stack, "two", "Two"}, three{stack, "three", "Three"};
    std::vector<std::string> said;
};

TEST_F(ModalStackTest, ASecondFormTakesTheActivationAndGivesItBackAndABoxDoesNot) {
    Boxes boxes(stack);
    TextBox name(one, "Name", {}), password(one, "Password", {});
    one.Default = &name;
    user.Then([&] { two.ShowModal(); })
        .Then([&] {
            EXPECT_TRUE(name.HasFocus());
            password.SetFocus();
            two.Hide();
        })
        .Then([&] { boxes.ShowPlain("sorry"); })
        .Then([&] { dynamic_cast<MessageBoxForm&>(*stack.Top()).Press(BoxResult::Ok); })
        .Then([&] { one.Hide(); })
        .Then([&] { one.Hide(); });
    two.EnsureLoaded();
    Said();
    one.ShowModal();
    EXPECT_THAT(Said(), ElementsAre("load one", "shown one", "activate one", "deactivate one", "shown two",
                                    "activate two", "hidden two", "deactivate two", "activate one", "shown MessageBox",
                                    "hidden MessageBox", "hidden one", "deactivate one"));
    one.ShowModal();
    EXPECT_THAT(Said(), ElementsAre("shown one", "activate one", "hidden one", "deactivate one")) << "loaded already";
    EXPECT_TRUE(password.HasFocus()) << "the usual control has it at first, and a later choice stays";
}

TEST_F(ModalStackTest, AFormHiddenUnderAnotherOneIsGoneAtOnceAndItsRoutineReturnsLater) {
    user.Then([&] {
            two.ShowModal();
            said.emplace_back("two returns");
        })
        .Then([&] {
            Said();
            one.Hide();
            EXPECT_THAT(Said(), ElementsAre("hidden one")) << "it was not the active one";
            EXPECT_THAT(Visible(), ElementsAre("two"));
        })
        .Then([&] { two.Hide(); });
    one.ShowModal();
    EXPECT_THAT(Said(), ElementsAre("hidden two", "deactivate two", "two returns"));
}

TEST_F(ModalStackTest, AFormThatIsUpCannotBeShownAgainButOneWhoseWaitHasEndedCan) {
    user.Then([&] {
            EXPECT_EQ(Raised([&] { one.ShowModal(); }), 400);
            one.Hide();
            one.ShowModal();
            EXPECT_EQ(stack.Depth(), 1U) << "the outer wait alone is left";
        })
        .Then([&] {
            EXPECT_THAT(Visible(), ElementsAre("one")) << "the ended wait does not take the form away";
            one.Hide();
        });
    one.ShowModal();
    EXPECT_EQ(stack.Depth(), 0U);

    two.Activate = [&] { two.Hide(); }; // gone as it appears: not waited for
    two.ShowModal();
    EXPECT_THAT(Visible(), IsEmpty());
    three.Load = [&] { three.Show(); }; // a load that shows the form itself
    EXPECT_EQ(Raised([&] { three.ShowModal(); }), 400);
    EXPECT_THAT(Visible(), ElementsAre("three"));
}

TEST_F(ModalStackTest, TheEndOfTheProgramOrAFailureTakesTheFormsAwayAndLetsNoRoutineGoOn) {
    int passed = 0;
    const auto showsTwo = [&] {
        two.ShowModal();
        ++passed;
    };
    user.Then(showsTwo).Then([] { throw std::runtime_error("failed"); });
    EXPECT_THROW(one.ShowModal(), std::runtime_error);
    EXPECT_THAT(Visible(), IsEmpty());
    EXPECT_EQ(stack.Depth(), 0U);

    user.Then(showsTwo).Then([&] {
        three.Load = [&] { stack.RequestEnd(); };
        EXPECT_THROW(three.ShowModal(), ProgramEnding);
        EXPECT_THAT(Visible(), ElementsAre("one", "two")) << "the routine that ends finishes its steps";
    });
    EXPECT_THROW(one.ShowModal(), ProgramEnding);
    EXPECT_EQ(passed, 0) << "no routine goes on behind its wait";
    EXPECT_FALSE(one.Visible() || two.Visible() || three.Visible());
    EXPECT_EQ(stack.Depth(), 0U);
    EXPECT_THROW(one.ShowModal(), ProgramEnding);
}

TEST_F(ModalStackTest, AModelessFormIsNotWaitedForAndDoesNotComeUnderAModalOne) {
    one.Show();
    one.Show();
    EXPECT_THAT(Said(), ElementsAre("load one", "shown one", "activate one"));
    EXPECT_EQ(Raised([&] { one.ShowModal(); }), 400);
    user.Then([&] {
        EXPECT_EQ(stack.TopModal(), &two);
        EXPECT_EQ(Raised([&] { three.Show(); }), 401);
        Said();
        two.Hide();
    });
    two.ShowModal();
    EXPECT_THAT(Said(), ElementsAre("hidden two", "deactivate two", "activate one"));
    EXPECT_EQ(stack.TopModal(), nullptr);
    one.Hide();
    user.Then([&] {
        three.Hide();
        three.Show();
    });
    three.ShowModal();
    EXPECT_THAT(Visible(), ElementsAre("three")) << "the wait has ended, and the form stays";
}

TEST_F(ModalStackTest, TheServerIsNotListenedToWhileTooManyWaitsAreNested) {
    for (std::size_t i = 1; i < ModalStack::kWaitLimit; ++i)
        user.Then([&] {
            ASSERT_FALSE(held);
            one.Hide();
            one.ShowModal();
        });
    user.Then([&] {
        EXPECT_TRUE(held);
        one.Hide();
    });
    one.ShowModal();
    EXPECT_FALSE(held);
}

} // namespace
} // namespace ombrin
