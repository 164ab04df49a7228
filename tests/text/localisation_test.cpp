#include "language_stage.h"
#include "ui/text/messages.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

class LocalisationTest : public testing::Test, protected LanguageStage {
protected:
    Messages messages{boxes, language};
    Container place{"Place"};
};

TEST_F(LocalisationTest, AWordIsEnglishWhereverTheFileHasNoTextForIt) {
    const struct {
        const char *what, *file, *word;
    } kFiles[] = {
        {"no language chosen", "[Deutsch]\nReady=Bereit\n[]\nReady=x\n", "Ready"},
        {"choice", "[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nReady=Bereit\n", "Bereit"},
        {"another language", "[CurrentLanguage]\nLanguage=Dansk\n[Deutsch]\nReady=Bereit\n", "Ready"},
        {"empty text", "[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nReady=\n", "Ready"},
        {"a section named English", "[CurrentLanguage]\nLanguage=English\n[English]\nReady=All set\n", "All set"},
        {"English without a section", "[CurrentLanguage]\nLanguage=English\n", "Ready"},
    };
    EXPECT_EQ(language.TranslateWord("Ready", "Ready"), "Ready") << "no file at all";
    for (const auto& one : kFiles) {
        Lies(one.file);
        EXPECT_EQ(language.TranslateWord("Ready", "Ready"), one.word) << one.what;
    }
    EXPECT_EQ(files.Content("/system/AVClLogs.txt"), "") << "nothing of this is an error";
}

TEST_F(LocalisationTest, AMessageIsShownTranslatedAndAloneAndItsAnswerComesBack) {
    Lies("[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nError9=Falsch!\nEnterBuddyName=Wer?\n");
    const auto reads = [&](const std::string& text, BoxResult answer) {
        user.Then([this, text, answer] {
            auto& box = dynamic_cast<MessageBoxForm&>(*stack.Top());
            EXPECT_EQ(box.Text(), text);
            EXPECT_EQ(box.Caption(), kUsualTitle);
            box.Press(answer);
        });
    };
    reads("Falsch!", BoxResult::Ok); // without the limit and the characters
    messages.DisplayMessage(text::kError9);
    reads(std::string(text::kDestroyRoom.english), BoxResult::No);
    EXPECT_EQ(messages.DisplayMessage(text::kDestroyRoom, BoxButtons::YesNo), BoxResult::No);
    user.Then([&] {
        auto& question = dynamic_cast<InputBoxForm&>(*stack.Top());
        EXPECT_EQ(question.Prompt(), "Wer?");
        question.Hide();
    });
    messages.DisplayInputBox(text::kEnterBuddyName.english, text::kEnterBuddyName.key);
}

TEST_F(LocalisationTest, CaptionsFollowTheLanguageThatWasSettledAtTheStart) {
    Lies("[CurrentLanguage]\nLanguage=Dansk\n[Deutsch]\nSelect=Los\nReady=Bereit\nUsers=\n[Dansk]\nSelect=Kom\n");
    Button button(place, "Select", "Select");
    StatusBar bar(place, "Bar");
    ListView list(place, "List", {"Users"});
    const auto apply = [&] {
        language.SetFLButton(button, "Select");
        language.SetFLStatusbar(bar, "Ready", "Ready");
        language.SetFLListViewColumnHeader(list, "Users", 1);
    };
    apply();
    EXPECT_EQ(button.Caption(), "Select") << "none is settled yet";
    EXPECT_EQ(bar.Text(), "Ready") << "the bar always gets a text";
    language.SetFLLanguage("Deutsch");
    apply();
    EXPECT_EQ(button.Caption(), "Los");
    EXPECT_EQ(bar.Text(), "Bereit");
    EXPECT_EQ(list.Headers()[0], "Users");
    language.SetFLLanguage("Suomi");
    apply();
    EXPECT_EQ(button.Caption(), "Los") << "what has no text stays as it is";
    EXPECT_EQ(bar.Text(), "Ready");
}

TEST_F(LocalisationTest, ADialogIsTranslatedTextByTextAndNeverIntoEnglish) {
    Form form{stack, "RoomPassword", "Room Password"};
    Label label(form, "Label1", "Password:");
    Button ok(form, "OKButton", "OK"), cancel(form, "CancelButton", "Cancel");
    for (const char* none : {"", "English", "Suomi"}) {
        Lies("[CurrentLanguage]\nLanguage=" + std::string(none) + "\n[English]\nOK=Okay\n[]\nOK=x\n");
        language.TranslateForm(form);
        EXPECT_EQ(ok.Caption(), "OK") << none;
    }
    Lies("[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nRoomPassword=Raumpasswort\nPassword=Passwort:\nCancel=\n");
    language.TranslateForm(form);
    EXPECT_EQ(form.Caption() + label.Caption() + ok.Caption() + cancel.Caption(), "RaumpasswortPasswort:OKCancel");
}

TEST_F(LocalisationTest, DialogsOfTheSettledLanguageKeepToItWhateverTheFileSaysLater) {
    Form form{stack, "DownloadProgress", "Download Progress"};
    const struct {
        const char *settled, *inFile, *caption;
    } kCases[] = {{"", "Deutsch", "Download Progress"},
                  {"Dansk", "", "Download Progress"},
                  {"Dansk", "English", "Download Progress"},
                  {"Dansk", "Deutsch", "Hentning"}};
    for (const auto& row : kCases) {
        Lies("[CurrentLanguage]\nLanguage=" + std::string(row.inFile) +
             "\n[]\nDownloadProgress=x\n[Deutsch]\nDownloadProgress=Download\n[Dansk]\nDownloadProgress=Hentning\n");
        language.SetFLLanguage(row.settled);
        language.SetFLOnDialog(form);
        EXPECT_EQ(form.Caption(), row.caption) << row.settled << " " << row.inFile;
    }
}

TEST_F(LocalisationTest, TheChatIsNamedAfterItsLobby) {
    const std::pair<const char*, const char*> kFiles[] = {
        {"[CurrentLanguage]\nLanguage=English\n[English]\nLobby=Hall\n", "Lobby - Quake"},
        {"[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nLobby=Halle\n", "Halle - Quake"},
        {"[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\nLobby=\n", "as before"},
    };
    for (const auto& [file, caption] : kFiles) {
        Label label(place, "ChatFrame", "as before");
        Lies(file);
        language.SetLobbyCaption(label, "Quake");
        EXPECT_EQ(label.Caption(), caption) << file;
    }
}

} // namespace
} // namespace ombrin
