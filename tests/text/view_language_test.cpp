#include "ui/text/view_language.h"

#include "controls/grid_routines.h"
#include "language_stage.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

using testing::HasSubstr;

/// The main view at its start; each case starts a client of its own.
struct Client : LanguageStage {
    explicit Client(const std::string& file) {
        if (!file.empty()) Lies(file);
        for (FlexGrid* grid : {&view.msflxMainChatLines, &view.msflexRoomLines}) {
            grid->SetRow(0);
            grid->SetText("User");
            grid->SetCol(1);
            grid->SetText("Says");
            grid->SetRow(1);
            grid->SetText("a line");
        }
    }
    /// Starts it; the user, if asked, does this.
    void Start(const std::function<void()>& act = nullptr) {
        if (act) user.Then(act);
        viewLanguage.SetForeignLanguage();
        EXPECT_TRUE(user.Done()) << "the user was not asked";
    }

    View view{loop};
    ChooseLanguage dialog{stack, language, trap};
    ViewLanguage viewLanguage{view, language, dialog, trap};
};

const std::string kGerman = "[CurrentLanguage]\nLanguage=Deutsch\n[Deutsch]\n";

TEST(ViewLanguage, TheUserIsAskedUntilHeChoosesAndTheChoiceIsInForceAtOnce) {
    const std::string file = "[Languages]\nLanguage1=English\nLanguage2=Deutsch\n[Deutsch]\nRoom=Raum\nEnter=Hinein\n";
    Client cancelled(file);
    cancelled.Start([&] { cancelled.dialog.CancelButton.Click(); });
    EXPECT_EQ(cancelled.files.Content(Client::kPath), file) << "so the next start asks again";
    EXPECT_EQ(cancelled.view.Enter.Caption(), "Enter");

    Client chosen(file);
    chosen.Start([&] {
        chosen.dialog.Radio[1].SetOn(true);
        chosen.dialog.OKButton.Click();
    });
    EXPECT_EQ(chosen.view.Enter.Caption(), "Hinein");
    EXPECT_EQ(chosen.viewLanguage.m_sRoomWord, "Raum");
    const std::string stored = chosen.files.Content(Client::kPath);
    EXPECT_THAT(stored, HasSubstr("[CurrentLanguage]\nLanguage=Deutsch\n"));

    Client next(stored);
    next.Start();
    EXPECT_EQ(next.view.Enter.Caption(), "Hinein");
}

TEST(ViewLanguage, WithoutALanguageFileTheUserIsAskedInVainAndAllStaysEnglish) {
    Client client("");
    client.Start([&] { client.dialog.OKButton.Click(); });
    EXPECT_EQ(client.files.Content(Client::kPath) + client.viewLanguage.m_sRoomWord, "Room");
}

TEST(ViewLanguage, EnglishIsRememberedAndReadsNoTexts) {
    Client client("[CurrentLanguage]\nLanguage=English\n[English]\nEnter=Go in\nRoom=Chamber\nRooms=x\n");
    client.Start();
    EXPECT_EQ(client.view.Enter.Caption(), "Enter");
    EXPECT_EQ(client.viewLanguage.m_sRoomWord, "Room");
    EXPECT_EQ(client.view.RoomList.Headers()[0], "Rooms");
    EXPECT_THAT(client.files.Content("/system/AVClLogs.txt"), testing::Not(HasSubstr("displaying current language")));
}

TEST(ViewLanguage, WithoutAWordForRoomThePanelStaysAndTheOtherTextsApply) {
    for (const char* room : {"", "Room=\n"}) {
        Client client(kGerman + room + "Leave=Wechseln\nLeaveRoom=Hinaus\nSendLobby=Senden\n");
        client.Start();
        EXPECT_EQ(client.view.RoomBorder.Caption() + client.viewLanguage.m_sRoomWord, "Room:Room");
        EXPECT_EQ(client.view.Logoff.Caption(), "Wechseln") << "this key changes the lobby";
        EXPECT_EQ(client.view.Leave.Caption(), "Hinaus");
        EXPECT_EQ(client.view.SendMain.Caption() + client.view.SendRoom.Caption(), "SendenSend");
    }
    Client client(kGerman + "Room=Raum\n");
    client.Start();
    EXPECT_EQ(client.view.RoomBorder.Caption() + client.viewLanguage.m_sRoomWord, "Raum:Raum");
}

TEST(ViewLanguage, HeadingsThatHaveATextBecomeEmpty) {
    const struct {
        const char *key, *rooms, *users, *chat;
    } kKeys[] = {
        {"Rooms", "", "Users", "User|Says|a line"},
        {"Users", "Rooms", "", "User|Says|a line"},
        {"User", "Rooms", "Users", "|Says|"}, // which empties the chats
        {"Says", "Rooms", "Users", "User||"},
    };
    for (const auto& one : kKeys) {
        SCOPED_TRACE(one.key);
        Client client(kGerman + one.key + "=Text\n");
        client.Start();
        const View& view = client.view;
        EXPECT_EQ(view.RoomList.Headers()[0], one.rooms);
        EXPECT_EQ(view.UserList.Headers()[0], one.users);
        EXPECT_EQ(view.RoomUserList.Headers()[0], one.users);
        for (const FlexGrid* grid : {&view.msflxMainChatLines, &view.msflexRoomLines})
            EXPECT_EQ(grid->TextAt(0, 0) + "|" + grid->TextAt(0, 1) + "|" + grid->TextAt(1, 1), one.chat);
    }
}

TEST(ViewLanguage, MenusSpeakTheLanguageAndThoseWithoutTextsStayEnglish) {
    Client client(kGerman + "PrivateMessage=Nachricht\nUnIgnore=Nicht ignorieren\nEnter=Hinein\nReject=Hinaus\n"
                            "AddBuddy=Freund\n");
    client.Start();
    const View& view = client.view;
    const std::pair<const Captioned&, const char*> kCaptions[] = {
        {view.PM, "Nachricht"},
        {view.PMMenu, "Nachricht"},
        {view.BuddyPMMenu, "&Send Private Message..."},
        {view.IgnoreUser, "&Ignore"},
        {view.UnignoreUser, "Nicht ignorieren"},
        {view.EnterRoomMenu, "Hinein"},
        {view.RejectUserMenu, "Hinaus"},
        {view.AddBuddy, "Freund"},
        {view.btnAddBuddy, "Add Buddy"},
    };
    for (const auto& [control, caption] : kCaptions) EXPECT_EQ(control.Caption(), caption) << control.Name();
}

} // namespace
} // namespace ombrin
