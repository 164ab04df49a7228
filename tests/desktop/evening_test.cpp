// Whole runs through the real windows, each by the keyboard alone and by the mouse.
#include "desktop/evening.h"
#include "lobby/text_colour.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <gtest/gtest.h>

namespace ombrin::test {

namespace {

class FirstEvening : public Evening {
protected:
    void ChoosesLanguage() {
        for (const auto& [section, key, value] : {std::tuple("Languages", "Language1", "English"),
                                                  {"Languages", "Language2", "Deutsch"},
                                                  {"Deutsch", "Cancel", "Abbrechen"}})
            stage.client.Inis().Write("AVfLang.ini", section, key, value);
        Keys(forms.ChooseLanguage.Radio[0]);
        byKeys ? stage.Presses(Qt::Key_Down) : stage.Clicks(forms.ChooseLanguage.Radio[1]);
        Confirm(forms.ChooseLanguage.OKButton);
        Sees(logon);
        Keys(logon.LogonName);
    }
};

TEST_P(FirstEvening, FromTheFirstStartToTheLobbyAndAnotherLobbyAndTheEnd) {
    ChoosesLanguage();
    Fill(logon.LogonName, QStringLiteral("a:b"));
    Fill(logon.Password, QStringLiteral("pw"));
    Fill(logon.HostMachine, QStringLiteral("lobby.example"));
    byKeys ? stage.TabsTo(logon.HTTPPort) : stage.Clicks(logon.HTTPPort);
    See([this] {
        EXPECT_EQ(static_cast<QLineEdit*>(stage.WidgetOf(logon.HTTPPort))->selectedText(), QStringLiteral("80"));
    });
    Confirm(logon.Connect);
    SeesBox("ERROR:  usernames cannot contain");
    AnswerOk();
    Keys(byKeys ? static_cast<Control&>(logon.HTTPPort) : logon.Connect);
    Fill(logon.LogonName, QStringLiteral("ann"));
    Confirm(logon.Connect);
    Sees(forms.Connection);
    Keys(forms.Connection.CancelButton);
    See([this] {
        EXPECT_EQ(stage.WidgetOf(forms.Connection.CancelButton)->property("text"), QStringLiteral("Abbrechen"));
    });
    Cancel(forms.Connection.CancelButton);
    Sees(logon);
    See([this] { EXPECT_TRUE(stage.window.isActiveWindow()); });
    Fill(logon.Password, QStringLiteral("worse"));
    Confirm(logon.Connect);
    stage.Accepts();
    Hears("Ombrin:15:ann;temp;192.0.2.10;worse;:~");
    stage.Sends("24:~");
    SeesBox("Logon Error: Invalid logon attempt.");
    AnswerOk();
    Fill(logon.Password, QStringLiteral("better"));
    Confirm(logon.Connect);
    Hears("Ombrin:15:ann;temp;lobby.example;better;:~");

    stage.Sends("45:10.0.0.5;~22:Go,1;Chess,2;Tea,3;~");
    Sees(forms.LobbyFilter);
    Keys(forms.LobbyFilter.GameList);
    Push(forms.LobbyFilter.OK);
    Cancel(forms.LobbyFilter.Cancel);
    Sees(forms.LobbyFilter);
    Push(forms.LobbyFilter.SelectAll);
    Mark(forms.LobbyFilter.GameList, 2);
    Push(forms.LobbyFilter.OK);
    Hears("Ombrin:2:ann;Go;10.0.0.5;;:~");
    stage.Sends("0:ann;1;bob;1;cid;1;~47:ann;bob;cid;~");
    Hears("Ombrin:19:ann:~");
    See([this] { EXPECT_EQ(stage.client.Inis().Read("AV.ini", "GameFilter", "DisplayedGames"), "Go;Chess;"); });

    Keys(view.MainText);
    Fill(view.MainText, QStringLiteral("hi: é"));
    Confirm(view.SendMain);
    Hears("Ombrin:3:ann;Go;10.0.0.5;hi%*|@ \xE9;:~");
    Keys(view.MainText);

    if (byKeys) {
        stage.TabsTo(view.UserList);
        stage.Presses(Qt::Key_Down);
        stage.Presses(Qt::Key_Menu);
        stage.Presses(Qt::Key_I);
    } else {
        stage.ClicksRow(view.UserList, 1, Qt::RightButton);
        stage.ClicksText(QStringLiteral("&Ignore"));
    }
    stage.Sends("1:bob:boo:;cid:hello:;~");
    See([this] {
        EXPECT_EQ(view.msflxMainChatLines.Rows(), 3) << "the header, the own line, and cid's";
        EXPECT_EQ(view.UserList.rows.Text(view.UserList.SelectedItem()), "bob");
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    });

    if (byKeys) {
        stage.TabsTo(view.lbLobbies);
        stage.Presses(Qt::Key_Down);
        stage.Presses(Qt::Key_Return);
    } else {
        stage.DoubleClicksRow(view.lbLobbies, 1);
    }
    Hears("Ombrin:12:ann;Go;10.0.0.5;:~");
    stage.Sends("22:Go,1;Chess,2;~");
    Hears("Ombrin:2:ann;Chess;10.0.0.5;;:~");
    Hears("");
    stage.Step([this] { stage.window.close(); });
    See([] { ADD_FAILURE() << "the program goes on"; });
    EXPECT_TRUE(stage.Run());
    EXPECT_TRUE(stage.client.Stack().Ending());
}

TEST_P(FirstEvening, AnAccountIsMadeFromTheLogonDialog) {
    ChoosesLanguage();
    CreateAccount& account = forms.CreateAccount;
    Fill(logon.HostMachine, QStringLiteral("lobby.example"));
    Push(logon.NewAccount);
    Sees(account);
    Keys(account.LogonName);
    Cancel(account.Cancel);
    Sees(logon);
    Push(logon.NewAccount);
    Fill(account.LogonName, QStringLiteral("dora"));
    Fill(account.Password, QStringLiteral("secret"));
    Fill(account.ConfirmPassword, QStringLiteral("secrets"));
    Confirm(account.Create);
    See([this, &account] {
        EXPECT_EQ(stage.WidgetOf(account.sbStatusBar)->property("text"), QStringLiteral("Passwords do not match."));
    });
    Fill(account.ConfirmPassword, QStringLiteral("secret"));
    Confirm(account.Create);
    Sees(forms.Connection);
    stage.Accepts();
    Hears("Ombrin:17:dora;secret;secret;:~");
    stage.Sends("27:dora;secret;~");
    SeesBox("Account created successfully.");
    AnswerOk();
    Sees(logon);
    Keys(logon.Connect);
    Confirm(logon.Connect);
    Hears("Ombrin:15:dora;temp;lobby.example;secret;:~");
    EXPECT_TRUE(stage.Run());
}

INSTANTIATE_TEST_SUITE_P(By, FirstEvening, BothHands(), NameOf);

} // namespace

} // namespace ombrin::test
