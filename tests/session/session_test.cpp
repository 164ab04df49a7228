// Start-up in both modes, the connection and the ways out of waiting for it, logon and accounts.
#include "support/played_client.h"

namespace ombrin::test {

using testing::StartsWith;

namespace {

struct Session : PlayedClient, testing::Test {
    void MakesAccount(const std::string& name) {
        CreateAccount& dialog = forms.CreateAccount;
        for (TextBox* box : {&dialog.LogonName, &dialog.Password, &dialog.ConfirmPassword}) Types(*box, name);
        Presses(dialog.Create);
    }
};

/// With the logon dialog before him.
struct Logon : Session {
    Logon() {
        HasChosen();
        Shows();
    }
};

/// With the name and the password sent.
struct Refused : Logon {
    Refused() {
        Connects();
        Accepts();
        EXPECT_EQ(Heard(), "Ombrin:15:ann;temp;192.0.2.10;pw;:~");
    }
};

} // namespace

TEST_F(Session, AnEmbeddedClientGoesStraightToItsLobby) {
    HasChosen();
    Shows("bob;Quake;10.0.0.1;80");
    EXPECT_EQ(Top(), "");
    EXPECT_EQ(Marks().m_UserData, "bob;Quake;10.0.0.1");
    EXPECT_EQ(Marks().m_LocalIP, "192.0.2.10") << "the machine's, until the server tells another";
    EXPECT_EQ(Server().RemoteHost + ":" + std::to_string(Server().RemotePort), "10.0.0.1:80");
    Accepts();
    EXPECT_EQ(Heard(), "Ombrin:2:bob;Quake;192.0.2.10;:~");
    EXPECT_EQ(view.ChatFrame.Caption(), "Lobby - Quake");
    EXPECT_TRUE(view.Configure.Visible());
    EXPECT_FALSE(view.Enabled());
}

TEST_F(Session, TheFirstStartAsksForTheLanguageAndThenForTheLobbies) {
    client.Inis().Write("AVfLang.ini", "Languages", "Language2", "Deutsch");
    client.Inis().Write("AVfLang.ini", "Deutsch", "Cancel", "Abbrechen");
    Shows();
    EXPECT_EQ(Top(), "ChooseLanguage");
    EXPECT_FALSE(forms.ChooseLanguage.Radio[0].Visible());
    Presses(forms.ChooseLanguage.Radio[1]);
    Presses(forms.ChooseLanguage.OKButton);
    EXPECT_EQ(client.Inis().Read("AVfLang.ini", "CurrentLanguage", "Language"), "Deutsch");
    Connects();
    EXPECT_EQ(forms.Connection.CancelButton.Caption(), "Abbrechen");
    Accepts();
    Sends("22:Go,1;Chess,2;~");
    EXPECT_EQ(Top(), "LobbyFilter");
}

TEST_F(Session, TheLogonDialogIsFilledFromTheStoreAndItsInputIsTested) {
    HasChosen();
    client.Store().SaveSetting("Settings", "UserName", "old");
    client.Store().SaveSetting("Settings", "IP", "host7");
    client.Store().SaveSetting("Settings", "HTTPPort", "");
    Shows();
    UsrNmPwIP& dialog = forms.UsrNmPwIP;
    EXPECT_EQ(dialog.LogonName.Text(), "old");
    EXPECT_EQ(dialog.HostMachine.Text(), "host7");
    EXPECT_EQ(dialog.HTTPPort.Text(), "80");
    EXPECT_TRUE(dialog.LogonName.HasFocus());
    EXPECT_EQ(dialog.LogonName.SelLength(), 3u);

    Types(dialog.LogonName, "");
    Presses(dialog.Connect);
    EXPECT_EQ(Top(), "UsrNmPwIP") << "an empty name is passed over without a message";
    const struct {
        TextBox& box;
        std::string text, complaint;
    } kBad[] = {
        {dialog.LogonName, "a\"b", "ERROR:  usernames cannot contain"},
        {dialog.LogonName, "a:b", "ERROR:  usernames cannot contain"},
        {dialog.Password, "a;b", "ERROR:  passwords cannot contain"},
    };
    for (const auto& row : kBad) {
        Types(dialog.LogonName, "good name");
        Types(row.box, row.text);
        Presses(dialog.Connect);
        IsTold(StartsWith(row.complaint));
        EXPECT_EQ(Top(), "UsrNmPwIP");
    }
    Types(dialog.LogonName, "a b");
    Types(dialog.Password, "");
    for (const char* noHost : {"", "http://"}) {
        Types(dialog.HostMachine, noHost);
        Presses(dialog.Connect);
        IsTold("Host machine and HTTP port must be entered.");
    }
    for (const auto& [typed, kept] : {std::pair("HTTP://a", "a"), std::pair("Http://a", "Http://a")}) {
        Types(dialog.HostMachine, typed);
        Presses(dialog.Connect);
        EXPECT_EQ(Marks().m_RemoteHost, kept) << "two spellings of the scheme are cut off";
        Presses(forms.Connection.CancelButton);
    }
    Types(dialog.HostMachine, "http://lobby7");
    EXPECT_EQ(Key(dialog.HTTPPort, UserInput::kEnter), UserInput::kEnter) << "the key is let through";
    EXPECT_EQ(Top(), "Connection");
    EXPECT_EQ(client.Store().GetSetting("Settings", "IP"), "lobby7");
    EXPECT_EQ(Marks().m_UserData, "a b;temp;lobby7");
    Accepts();
    EXPECT_EQ(Heard(), "Ombrin:15:a b;temp;192.0.2.10;;:~") << "an empty password is a field of its own";
}

TEST_F(Session, PresetsHideTheirFieldsAndTheStoreGoesBeforeTheFile) {
    HasChosen();
    client.Store().SaveSetting("Settings", "IP", "typed.before");
    client.Store().SaveSetting("Settings", "DefaultIP", "preset.example");
    client.Inis().Write("av.ini", "AutoConnect", "DefaultIP", "other.example");
    client.Inis().Write("av.ini", "AutoConnect", "DefaultHTTPPort", "8080");
    Shows();
    EXPECT_EQ(forms.UsrNmPwIP.HostMachine.Text(), "preset.example");
    EXPECT_EQ(forms.UsrNmPwIP.HTTPPort.Text(), "8080");
    EXPECT_FALSE(forms.UsrNmPwIP.HostMachine.Visible() || forms.UsrNmPwIP.Label3.Visible());
    EXPECT_FALSE(forms.UsrNmPwIP.HTTPPort.Visible() || forms.UsrNmPwIP.Label4.Visible());
}

TEST_F(Logon, CancelLeadsBackToTheLogonDialogAndCloseEndsTheClient) {
    for (int turn = 0; turn < 2; ++turn) {
        Connects();
        turn == 1 ? Closes(forms.Connection) : Presses(forms.Connection.CancelButton);
        EXPECT_EQ(Top(), "UsrNmPwIP");
        EXPECT_EQ(Server().State(), SocketState::Closed);
    }
    Presses(forms.UsrNmPwIP.CloseButton);
    EXPECT_TRUE(closeClientRaised);
    EXPECT_EQ(Top(), "");
    EXPECT_EQ(Server().connects, 2);
}

TEST_F(Logon, WhyAConnectionDoesNotComeIsKeptAndTracedAndTheDialogStays) {
    Connects();
    for (const auto why : {ConnectFailure::Refused, ConnectFailure::UnknownHost, ConnectFailure::TimedOut}) {
        Do([&] { Server().Fail(why); });
        EXPECT_EQ(Top(), "Connection");
        EXPECT_EQ(client.Connection().WhyNot(), why);
        EXPECT_NE(world.LogText().find(std::string("does not come: ") + std::string(ToText(why))), std::string::npos);
        Presses(forms.Connection.CancelButton);
        Presses(forms.UsrNmPwIP.Connect);
        EXPECT_EQ(client.Connection().WhyNot(), ConnectFailure::None) << "a new try starts without a reason";
    }
}

TEST_F(Logon, ATakenPortOrAnUnreachableHostIsTriedAgainAfterAPauseUntilTheUserCancels) {
    Do([&] { Server().connectErrors = {10048, 10065, 10065}; });
    Connects();
    EXPECT_EQ(Top(), "Connection");
    Passes(Connector::kRetryPause - Milliseconds(1));
    EXPECT_EQ(Server().connects, 1) << "not before the pause is over";
    Passes(Milliseconds(1));
    EXPECT_EQ(Server().connects, 2);
    EXPECT_EQ(BoxText(), "Error: host in unreachable.  Error number: 10065");
    EXPECT_EQ(client.Connection().WhyNot(), ConnectFailure::Unreachable);
    Answers(BoxResult::Ok);
    Passes(Connector::kRetryPause);
    Answers(BoxResult::Ok);
    Presses(forms.Connection.CancelButton);
    Passes(Milliseconds(60000));
    EXPECT_EQ(Top(), "UsrNmPwIP");
    EXPECT_EQ(Server().connects, 3) << "no further try once the user has given up";
}

TEST_F(Session, AStartThatFailsForAnotherReasonIsToldInItsOwnWords) {
    const struct {
        const char *what, *heartBeat, *userData;
        int number;
    } kCases[] = {
        {"heartbeat is no number", "often", "bob;Go;10.0.0.1;80", 13},
        {"heartbeat is too large", "40000", "bob;Go;10.0.0.1;80", 6},
        {"port is no number", "", "bob;Go;10.0.0.1;http", 13},
        {"no port", "", "bob;Go;10.0.0.1", 13},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.what);
        PlayedClient other;
        other.HasChosen();
        other.client.Store().SaveSetting("Settings", "HeartBeat", row.heartBeat);
        other.Shows(row.userData);
        const std::string expected =
            "Unknown Error: in module UserControl_Show().  Error number: " + std::to_string(row.number) + ",";
        EXPECT_TRUE(other.BoxText().starts_with(expected)) << other.BoxText();
        EXPECT_EQ(other.Server().connects, 0);
    }
}

TEST_F(Session, ASettingsFileThatCannotBeReadCostsBoxesAndNothingElse) {
    HasChosen();
    world.files.broken = "/home/windows/AV.ini";
    const auto boxes = [&] {
        int count = 0;
        for (; Top() == "MessageBox"; Answers(BoxResult::Ok)) {
            EXPECT_TRUE(BoxText().starts_with("Error")) << BoxText();
            ++count;
        }
        return count;
    };
    Shows();
    EXPECT_EQ(boxes(), 2) << "host and port";
    Connects();
    Accepts();
    Sends("22:Go,1;Chess,2;~");
    EXPECT_EQ(boxes(), 2) << "the lobbies to display, for the list and for the dialog that asks";
    Presses(forms.LobbyFilter.SelectAll);
    Presses(forms.LobbyFilter.OK);
    EXPECT_EQ(boxes(), 1) << "they are not kept";
    EXPECT_EQ(Texts(view.lbLobbies.rows), (std::vector<std::string>{"Go : 1", "Chess : 2"}));
}

TEST_F(Refused, ARefusedLogonIsRepeatedOverTheSameSocket) {
    const std::pair<const char*, const char*> kRefusals[] = {
        {"23:~", "Logon Error: Max users exceeded.  Try again later."},
        {"24:~", "Logon Error: Invalid logon attempt."},
        {"25:~", "Logon Error: User already logged on."},
    };
    for (const auto& [code, text] : kRefusals) {
        Sends(code);
        IsTold(text);
        EXPECT_EQ(Top(), "UsrNmPwIP");
        Types(forms.UsrNmPwIP.Password, "better");
        Presses(forms.UsrNmPwIP.Connect);
        EXPECT_EQ(Heard(), "Ombrin:15:ann;temp;lobby.example;better;:~");
    }
    Sends("45:10.0.0.5;~22:Go,1;Chess,2;~");
    EXPECT_EQ(Heard(), "Ombrin:2:ann;Go;10.0.0.5;;:~");
    EXPECT_EQ(Server().connects, 1);
    Sends("0:ann;1;~");
    EXPECT_TRUE(view.Enabled());
}

TEST_F(Refused, CancellingARepeatedLogonLeavesTheSocketOpenAndNoDialog) {
    Refuses("24:~");
    Presses(forms.UsrNmPwIP.Connect);
    Presses(forms.Connection.CancelButton);
    EXPECT_EQ(Top(), "");
    Sends("22:Go,1;Chess,2;~0:ann;1;~");
    EXPECT_TRUE(view.Enabled()) << "the server's late answer still leads into the lobby";
}

TEST_F(Refused, AnAccountIsMadeRefusedAndMade) {
    Do([&] { client.DisplayCreateAccount(false); });
    CreateAccount& dialog = forms.CreateAccount;
    const struct {
        const char *name, *password, *confirmation, *status;
    } kBad[] = {
        {"eve", "", "pw", "All fields must be filled in."},
        {"e~e", "pw", "pw", "Invalid characters: `~!@#$%^&*()-=+\\|[{]};:',<.>/?\""},
        {"eve", "pw1", "pw2", "Passwords do not match."},
    };
    for (const auto& row : kBad) {
        Types(dialog.LogonName, row.name);
        Types(dialog.Password, row.password);
        Types(dialog.ConfirmPassword, row.confirmation);
        Presses(dialog.Create);
        EXPECT_EQ(dialog.sbStatusBar.Text(), row.status);
    }
    Types(dialog.LogonName, " twelve chars and more"); // of which a name can have twelve
    Types(dialog.Password, "pw");
    Types(dialog.ConfirmPassword, "pw");
    EXPECT_EQ(Key(dialog.ConfirmPassword, UserInput::kEnter), 0);
    EXPECT_EQ(Heard(), "Ombrin:17:twelve char;pw;pw;:~");
    const std::pair<const char*, const char*> kRefusals[] = {
        {"28:~", "ERROR:  names or passwords cannot exceed 12 characters"},
        {"29:~", "ERROR:  names or passwords cannot exceed 12 characters"},
        {"30:~", "Error: passwords don't match."},
        {"31:~", "Error: user already exists."},
        {"32:~", "Error: create account failed."},
    };
    for (const auto& [code, text] : kRefusals) {
        Sends(code);
        IsTold(StartsWith(text));
        Presses(dialog.Create);
        EXPECT_EQ(Heard(), "Ombrin:17:twelve char;pw;pw;:~");
    }
    Sends("27:eve;secret;~");
    IsTold("Account created successfully.");
    EXPECT_EQ(Top(), "UsrNmPwIP");
    EXPECT_EQ(forms.UsrNmPwIP.LogonName.Text(), "eve");
    EXPECT_EQ(client.Store().GetSetting("Settings", "UserPassword"), "secret");
    Presses(forms.UsrNmPwIP.Connect);
    EXPECT_EQ(Heard(), "Ombrin:15:eve;temp;lobby.example;secret;:~");
}

TEST_F(Logon, TheAccountButtonOpensTheAddressOfTheSettingsFile) {
    client.Inis().Write("AV.ini", "CreateAccount", "CreateAccountURL", "https://ardvelle.example/new");
    Presses(forms.UsrNmPwIP.NewAccount);
    EXPECT_EQ(world.Told("open").back(), "https://ardvelle.example/new");
    EXPECT_EQ(Top(), "UsrNmPwIP");
    Do([this] { world.opener.result = 32; });
    Presses(forms.UsrNmPwIP.NewAccount);
    IsTold("Error jumping to:https://ardvelle.example/new");
}

TEST_F(Logon, WithoutSuchAnAddressTheAccountDialogMakesTheAccountWhenTheConnectionComes) {
    UsrNmPwIP& logon = forms.UsrNmPwIP;
    CreateAccount& account = forms.CreateAccount;
    Presses(logon.NewAccount);
    Presses(account.Cancel);
    Presses(logon.NewAccount);
    MakesAccount("eve");
    IsTold("Host machine and HTTP port must be entered.");
    Types(logon.HostMachine, "lobby.example");
    Presses(logon.NewAccount);
    Presses(account.Create);
    EXPECT_EQ(Marks().m_UserData, "eve;temp;lobby.example");
    Accepts();
    EXPECT_EQ(Heard(), "Ombrin:17:eve;eve;eve;:~");
    Refuses("31:~");
    Presses(account.Create);
    EXPECT_EQ(Heard(), "Ombrin:17:eve;eve;eve;:~");
    Refuses("27:eve;eve;~");
    Presses(logon.Connect);
    EXPECT_EQ(Heard(), "Ombrin:15:eve;temp;lobby.example;eve;:~");
    Sends("22:Go,1;~0:eve;1;~");
    EXPECT_TRUE(view.Enabled());
}

TEST_F(Refused, AnAccountCanBeMadeOverTheSocketOfARefusedLogon) {
    Refuses("24:~");
    Presses(forms.UsrNmPwIP.NewAccount);
    MakesAccount("eve");
    EXPECT_EQ(Heard(), "Ombrin:17:eve;eve;eve;:~");
    Refuses("27:eve;eve;~");
    Presses(forms.UsrNmPwIP.Connect);
    EXPECT_EQ(Heard(), "Ombrin:15:eve;temp;lobby.example;eve;:~");
    Sends("22:Go,1;~0:eve;1;~");
    EXPECT_EQ(Heard(), "Ombrin:2:eve;Go;lobby.example;;:~");
    EXPECT_EQ(Heard(), "Ombrin:19:eve:~") << "the name of the logon that was accepted";
    EXPECT_EQ(Heard(), "") << "nothing is sent twice on the way back through the waits";
}

TEST_F(Refused, ACancelEndsTheWaitThatIsOnTheScreenAndNoOlderOne) {
    Do([&] { client.DisplayCreateAccount(true); });
    MakesAccount("eve"); // an older wait on Connection
    Refuses("31:~");
    Presses(forms.CreateAccount.Cancel);
    EXPECT_EQ(Top(), "UsrNmPwIP");
    Presses(forms.UsrNmPwIP.Connect); // and a later one
    Presses(forms.Connection.CancelButton);
    EXPECT_EQ(Top(), "");
}

TEST_F(Refused, ASecondRefusalUnderTheOpenDialogSendsNothing) {
    Refuses("24:~");
    Refuses("25:~");
    EXPECT_EQ(Top(), "UsrNmPwIP");
    Refuses("31:~");
    Presses(forms.CreateAccount.Cancel);
    EXPECT_EQ(Top(), "UsrNmPwIP");
    EXPECT_EQ(Heard(), "");
}

TEST_F(Session, StoredPropertiesReportTheirChangesAndSurviveABag) {
    std::vector<std::string> changed;
    client.Properties.PropertyChanged = [&](std::string_view name) { changed.emplace_back(name); };
    StoredProperties::Bag bag;
    client.UserControl_WriteProperties(bag);
    EXPECT_EQ(std::get<std::string>(bag.at("UserName")), "0");
    EXPECT_EQ(bag.size(), 7u);
    client.UserControl_ReadProperties({{"UserName", std::string("eve")}});
    EXPECT_EQ(client.UserName(), "eve");
    client.SetAXParams("cid");
    client.UserControl_WriteProperties(bag);
    EXPECT_EQ(std::get<std::string>(bag.at("UserName")), "cid") << "the name in use, whoever set it";
    client.SetUserName("bob");
    EXPECT_TRUE(client.Properties.Set("BackColor", 255));
    EXPECT_FALSE(client.Properties.Set("BackColor", std::string("red")));
    EXPECT_FALSE(client.Properties.Set("BackStyle", 32768));
    EXPECT_FALSE(client.Properties.Set("Nothing", 1));
    EXPECT_EQ(changed, (std::vector<std::string>{"UserName", "BackColor"}));
    StoredProperties other({});
    client.UserControl_WriteProperties(bag);
    bag["Enabled"] = 7; // of another kind
    other.ReadProperties(bag);
    EXPECT_EQ(std::get<std::int32_t>(*other.Get("BackColor")), 255);
    EXPECT_FALSE(std::get<bool>(*other.Get("Enabled")));
}

TEST_F(Session, OtherAnswersOfTheServerAndATraceWithoutThePassword) {
    client.Store().SaveSetting("Settings", "TracingOn", "1");
    LogsOn();
    EXPECT_NE(world.LogText().find("sent code 15, "), std::string::npos);
    EXPECT_NE(world.LogText().find("received code 22, "), std::string::npos);
    EXPECT_EQ(world.LogText().find("pw"), std::string::npos);
    Sends("45:192.0.2.4;~");
    EXPECT_EQ(Marks().m_UserData + " " + Marks().m_LocalIP, "ann;Go;192.0.2.4 192.0.2.4");
    Sends("36:At: 10:30;more;~1:bob:behind:;~");
    EXPECT_EQ(BoxText(), "At: 10:30");
    EXPECT_TRUE(Chat().empty()) << "what stands behind it waits for the box";
    Answers(BoxResult::Ok);
    EXPECT_EQ(Chat(), std::vector<std::string>{"bob: behind"});
    Sends("38:~");
    EXPECT_FALSE(view.Logoff.Visible() || view.Logoff.Enabled());
    Sends("20:~");
    IsTold("Error: Connection to Ardvelle failed.  User not logged on.");
    EXPECT_FALSE(view.Enabled());
}

TEST_F(Session, ALostConnectionIsNoticedByTheNextSendAlone) {
    LogsOn();
    HangsUp();
    EXPECT_TRUE(Top().empty() && view.Enabled());
    Types(view.MainText, "hi");
    Presses(view.SendMain);
    IsTold("ERROR:  No longer connected to the server, data cannot be sent.");
    EXPECT_EQ(Chat(), std::vector<std::string>{"ann: hi"});
    EXPECT_EQ(Heard(), "");
}

TEST_F(Session, HeartbeatsGoOutByTheSetting) {
    const struct {
        const char* setting;
        std::vector<int> minutes; ///< in which a heartbeat goes out, of the first eight
    } kCases[] = {
        {"", {4, 8}},
        {"2", {2, 4, 6, 8}},
        {"0", {1, 5}},
    };
    for (const auto& row : kCases) {
        PlayedClient other;
        other.client.Store().SaveSetting("Settings", "HeartBeat", row.setting);
        other.LogsOn();
        std::vector<int> minutes;
        for (int minute = 1; minute <= 8; ++minute) {
            other.Passes(Milliseconds(60000));
            if (other.Heard() == "Ombrin:28::~") minutes.push_back(minute);
        }
        EXPECT_EQ(minutes, row.minutes) << "setting " << row.setting;
    }
}

} // namespace ombrin::test
