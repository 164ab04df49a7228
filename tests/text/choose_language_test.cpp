#include "ui/text/choose_language.h"

#include "language_stage.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

using testing::ElementsAre;

class ChooseLanguageTest : public testing::Test, protected LanguageStage {
protected:
    struct Seen {
        std::vector<std::string> offered, on;
        std::string title;
    };
    /// Opens the dialog, looks at it, does what a user does, and answers what was seen.
    Seen Open(const std::function<void()>& act) {
        Seen seen;
        user.Then([&] {
            seen.title = dialog.Caption();
            for (const OptionButton& radio : dialog.Radio) {
                if (radio.Visible()) seen.offered.push_back(radio.Name() + "=" + radio.Caption());
                if (radio.On()) seen.on.push_back(radio.Name());
            }
            act();
        });
        dialog.ShowModal();
        return seen;
    }
    ChooseLanguage dialog{stack, language, trap};
};

TEST_F(ChooseLanguageTest, EachLanguageStandsAtItsNumberUpToFourteen) {
    Lies("[Languages]\nLanguage1=\nLanguage2=Deutsch\nLanguage14=Suomi\nLanguage15=Dansk\nLanguage0=x\n");
    const Seen seen = Open([&] {
        dialog.Radio[13].SetOn(true);
        dialog.OKButton.Click();
    });
    EXPECT_THAT(seen.offered, ElementsAre("Radio2=Deutsch", "Radio14=Suomi"));
    EXPECT_EQ(dialog.SelectedLanguage(), "Suomi");
}

TEST_F(ChooseLanguageTest, TheFirstIsProposedAndACancelChoosesNone) {
    Lies("[Languages]\nLanguage1=English\nLanguage2=Deutsch\n");
    for (const std::function<void()>& givesUp : {dialog.CancelButton.Click, dialog.CloseBox}) {
        EXPECT_THAT(Open([&] { dialog.OKButton.Click(); }).on, ElementsAre("Radio1"));
        EXPECT_EQ(dialog.SelectedLanguage(), "English");
        Open(givesUp);
        EXPECT_EQ(dialog.SelectedLanguage(), "") << "also after an earlier choice";
    }
}

TEST_F(ChooseLanguageTest, TheLanguageInForceIsSelectedAndSpoken) {
    Lies("[CurrentLanguage]\nLanguage=Deutsch\n[Languages]\nLanguage1=English\nLanguage2=Deutsch\n"
         "[Deutsch]\nChooseLanguage=Sprache\nCancel=Abbrechen\n");
    const Seen seen = Open([&] { dialog.OKButton.Click(); });
    EXPECT_THAT(seen.on, ElementsAre("Radio2"));
    EXPECT_EQ(seen.title, "Sprache");
    EXPECT_EQ(dialog.CancelButton.Caption() + dialog.OKButton.Caption(), "AbbrechenOK");
}

} // namespace
} // namespace ombrin
