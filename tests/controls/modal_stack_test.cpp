#include "scripted_waiter.h"

#include "../foundation/raised.h"
#include "controls/boxes.h"
#include "controls/menu.h"

#include <gmock/gmock.h>
#include <memory>

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
    user.Then([&] { two.ShowModal(); })
        .Then([&] {
            EXPECT_THAT(Visible(), ElementsAre("one", "two"));
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
    EXPECT_THAT(Visible(), IsEmpty());
}

TEST_F(ModalStackTest, AFormHiddenUnderAnotherOneIsGoneAtOnceAndItsRoutineReturnsLater) {
    std::vector<std::string> returned;
    user.Then([&] {
            two.ShowModal();
            returned.push_back("two");
        })
        .Then([&] {
            Said();
            one.Hide();
            EXPECT_THAT(Said(), ElementsAre("hidden one")) << "it was not the active one";
        })
        .Then([&] {
            EXPECT_THAT(Visible(), ElementsAre("two"));
            EXPECT_THAT(returned, IsEmpty());
            two.Hide();
            EXPECT_THAT(Said(), ElementsAre("hidden two", "deactivate two")) << "nothing below becomes active";
        });
    one.ShowModal();
    returned.push_back("one");
    EXPECT_THAT(returned, ElementsAre("two", "one"));
}

TEST_F(ModalStackTest, AFormThatIsUpCannotBeShownAgainButOneWhoseWaitHasEndedCan) {
    std::vector<std::string> returned;
    user.Then([&] {
            EXPECT_EQ(Raised([&] { one.ShowModal(); }), 400);
            one.Hide();
            one.ShowModal();
            returned.push_back("inner");
        })
        .Then([&] {
            EXPECT_THAT(Visible(), ElementsAre("one")) << "the ended wait does not take the form away";
            EXPECT_EQ(stack.Depth(), 2U);
            one.Hide();
        });
    one.ShowModal();
    returned.push_back("outer");
    EXPECT_THAT(returned, ElementsAre("inner", "outer"));
    EXPECT_EQ(stack.Depth(), 0U);

    three.Load = [&] { three.Show(); }; // a load that shows the form itself
    EXPECT_EQ(Raised([&] { three.ShowModal(); }), 400);
    EXPECT_THAT(Visible(), ElementsAre("three"));
}

TEST_F(ModalStackTest, AFormThatHidesItselfAsItAppearsIsNotWaitedFor) {
    one.Activate = [&] { one.Hide(); };
    one.ShowModal();
    EXPECT_THAT(Visible(), IsEmpty());
    one.Hide();
    EXPECT_EQ(std::count(said.begin(), said.end(), "hidden one"), 1);
}

TEST_F(ModalStackTest, TheEndOfTheProgramTakesThreeFormsAwayAndLetsNoneAppear) {
    int passed = 0;
    const auto shows = [&](Form& form) {
        return [&] {
            form.ShowModal();
            ++passed;
        };
    };
    user.Then(shows(two)).Then(shows(three)).Then([&] {
        Form late(stack, "late", "Late");
        late.Load = [&] { stack.RequestEnd(); };
        EXPECT_THROW(late.ShowModal(), ProgramEnding);
        EXPECT_THAT(Visible(), ElementsAre("one", "two", "three")) << "the routine that ends finishes its steps";
    });
    EXPECT_THROW(one.ShowModal(), ProgramEnding);
    EXPECT_EQ(passed, 0) << "no routine goes on behind its wait";
    EXPECT_THAT(Visible(), IsEmpty());
    EXPECT_EQ(stack.Depth(), 0U);
    EXPECT_FALSE(one.Visible() || two.Visible() || three.Visible());
    EXPECT_THROW(one.ShowModal(), ProgramEnding);
}

TEST_F(ModalStackTest, AFailureInAFormTakesItAwayAndPasses) {
    const std::function<void()> fails = [] { throw std::runtime_error("failed"); };
    user.Then([&] {
            one.Activate = fails;
            EXPECT_THROW(one.ShowModal(), std::runtime_error);
            EXPECT_THAT(Visible(), ElementsAre("two"));
            EXPECT_EQ(stack.Depth(), 1U);
        })
        .Then(fails);
    EXPECT_THROW(two.ShowModal(), std::runtime_error);
    EXPECT_THAT(Visible(), IsEmpty());
    EXPECT_EQ(stack.Depth(), 0U);
    EXPECT_FALSE(held);
}

TEST_F(ModalStackTest, AModelessFormIsNotWaitedForAndDoesNotComeUnderAModalOne) {
    one.Show();
    one.Show();
    EXPECT_THAT(Said(), ElementsAre("load one", "shown one", "activate one"));
    EXPECT_EQ(stack.Depth(), 0U);
    EXPECT_EQ(stack.TopModal(), nullptr);
    EXPECT_EQ(Raised([&] { one.ShowModal(); }), 400);
    user.Then([&] {
        EXPECT_EQ(stack.TopModal(), &two);
        EXPECT_EQ(Raised([&] { three.Show(); }), 401);
        EXPECT_FALSE(three.Visible());
        Said();
        two.Hide();
    });
    two.ShowModal();
    EXPECT_THAT(Said(), ElementsAre("hidden two", "deactivate two", "activate one"));
    one.Hide();
    EXPECT_THAT(Visible(), IsEmpty());
    user.Then([&] {
        three.Hide();
        three.Show();
    });
    three.ShowModal();
    EXPECT_THAT(Visible(), ElementsAre("three")) << "the wait has ended, and the form stays";
}

TEST_F(ModalStackTest, TheServerIsNotListenedToWhileTooManyFormsAreOpenOrWaitedFor) {
    std::vector<std::unique_ptr<Form>> forms;
    const auto open = [&] {
        forms.push_back(std::make_unique<Form>(stack, "form", ""));
        forms.back()->ShowModal();
    };
    const auto again = [&] {
        one.Hide();
        one.ShowModal();
    };
    const struct {
        std::size_t limit;
        std::function<void()> wait, end;
    } kLimits[] = {
        {ModalStack::kOpenLimit, open,
         [&] {
             forms[10]->Hide();
             EXPECT_FALSE(held) << "one has closed";
             for (const auto& form : forms) form->Hide();
         }},
        {ModalStack::kWaitLimit, again, [&] { one.Hide(); }},
    };
    for (const auto& row : kLimits) {
        SCOPED_TRACE(row.limit);
        for (std::size_t i = 1; i < row.limit; ++i)
            user.Then([&] {
                ASSERT_FALSE(held);
                row.wait();
            });
        user.Then([&] {
            EXPECT_TRUE(held);
            row.end();
        });
        row.wait();
        EXPECT_TRUE(user.Done());
        EXPECT_FALSE(held);
    }
}

TEST_F(ModalStackTest, TheUsualControlHasTheFocusAtFirstAndALaterChoiceStays) {
    TextBox name(one, "Name", {}), password(one, "Password", {});
    one.Default = &name;
    user.Then([&] {
            EXPECT_TRUE(name.HasFocus());
            password.SetFocus();
            one.Hide();
        })
        .Then([&] { one.Hide(); });
    one.ShowModal();
    one.ShowModal();
    EXPECT_TRUE(password.HasFocus());
}

} // namespace
} // namespace ombrin
