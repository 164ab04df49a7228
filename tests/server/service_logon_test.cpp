#include "world.h"

#include "server/names.h"

namespace ombrin::server::test {

using testing::HasSubstr;
using testing::Not;

struct Logon : World, testing::Test {};

TEST_F(Logon, WhatIsRefusedIsAnsweredByItsCode) {
    accounts.Add({"Ann", "hash of pw"});
    const std::string nameRecord = "x;temp;1";
    const struct {
        const char* what;
        std::string message, answer;
    } kRefusals[] = {
        {"wrong password", client_message::Logon("Ann;temp;1", "pW"), "24:~"},
        {"no password", client_message::Logon("Ann;temp;1", ""), "24:~"},
        {"unknown name", client_message::Logon("Bob;temp;1", "pw"), "24:~"},
        {"other spelling", client_message::Logon("ann;temp;1", "pw"), "24:~"},
        {"name too long", client_message::Logon("thirteenchars;temp;1", "pw"), "24:~"},
        {"account: no name", client_message::CreateAccount(" ", "pw", "pw"), "28:~"},
        {"account: 13 characters", client_message::CreateAccount("thirteenchars", "pw", "pw"), "28:~"},
        {"account: bad character", client_message::CreateAccount("a<b", "pw", "pw"), "28:~"},
        {"account: unseen character", client_message::CreateAccount("Ann\xA0", "pw", "pw"), "28:~"},
        {"account: the greeting's name", client_message::CreateAccount("aRDVELLE", "pw", "pw"), "28:~"},
        {"account: no password", client_message::CreateAccount("bob", "", ""), "29:~"},
        {"account: long password", client_message::CreateAccount("bob", "thirteenchars", "thirteenchars"), "29:~"},
        {"account: they differ", client_message::CreateAccount("bob", "pw", "wp"), "30:~"},
        {"account: taken in other case", client_message::CreateAccount("aNN", "pw", "pw"), "31:~"},
        {"a line", client_message::LobbyLine(nameRecord, "hi"), "20:~"},
        {"a lobby", client_message::EnterLobby(nameRecord), "20:~"},
        {"leaving", client_message::LeaveLobby(nameRecord), "20:~"},
        {"another language", "GET / HTTP/1.1~", "20:~"},
        {"a field too few", "Ombrin:15:Ann;temp;pw;:~", "20:~"},
        {"a heartbeat", client_message::HeartBeat(), ""},
        {"the end", client_message::Closing(), ""},
    };
    for (const auto& refusal : kRefusals) {
        Client& client = Connects("x", Join("10.1.0.", std::to_string(clients.size())));
        client.Says(refusal.message);
        EXPECT_EQ(client.Reads(), refusal.answer) << refusal.what;
    }
    EXPECT_EQ(accounts.Count(), 1U);
}

TEST_F(Logon, ANewAccountIsAnsweredAsStoredAndLogsOnOverTheSameConnection) {
    Client& ann = Connects("Ann B");
    ann.Says(client_message::CreateAccount(" Ann B ", "secret", "secret"));
    EXPECT_EQ(ann.Reads(), "27:Ann B;secret;~");
    ann.LogsOn("secret");
    EXPECT_THAT(ann.Reads(), HasSubstr("22:"));
    EXPECT_THAT(log.text, Not(HasSubstr("secret")));
}

TEST_F(Logon, TwoWhoWantTheSameNameAtOnceGetItOnce) {
    Client& first = Connects("ann");
    Client& second = Connects("ann");
    service.Receive(*first.session, "Ombrin:17:ann;pw;pw;:");
    service.Receive(*second.session, "Ombrin:17:ANN;pw;pw;:");
    clock.Turn(Milliseconds(0));
    EXPECT_EQ(first.Reads(), "27:ann;pw;~");
    EXPECT_EQ(second.Reads(), "31:~");
}

TEST_F(Logon, ANameThatIsOnIsRefusedUntilItsConnectionWasSilentForFiveMinutes) {
    Client& old = InLobby("ann");
    Client& bob = InLobby("bob");
    clock.Turn(Service::kTakeOver - Milliseconds(1));

    Client& early = Connects("ann");
    early.LogsOn();
    EXPECT_EQ(early.Reads(), "25:~");

    clock.Turn(Milliseconds(1));
    Client& thief = Connects("ann");
    thief.LogsOn("wrong");
    EXPECT_EQ(thief.Reads(), "24:~");
    EXPECT_FALSE(old.closed);

    Client& again = Connects("ann");
    again.LogsOn();
    EXPECT_THAT(again.Reads(), HasSubstr("22:Go,1;"));
    EXPECT_TRUE(old.closed);
    EXPECT_EQ(bob.Reads(), "15:ann;~49:ann;Go;1;~");

    Disconnects(old);
    EXPECT_EQ(bob.Reads(), "") << "the old connection's end is nobody's end any more";
    again.Enters("Go");
    EXPECT_EQ(bob.Reads(), "0:ann;1;~48:ann;Go;~");
}

TEST_F(Logon, AHeartbeatKeepsAnyoneOn) {
    Client& ann = InLobby("ann");
    for (int i = 0; i < 5; ++i) {
        clock.Turn(std::chrono::minutes(4));
        ann.Says(client_message::HeartBeat());
        service.CloseSilent();
    }
    EXPECT_FALSE(ann.closed);
    clock.Turn(Service::kSilence - Milliseconds(1));
    service.CloseSilent();
    EXPECT_FALSE(ann.closed);
    clock.Turn(Milliseconds(1));
    service.CloseSilent();
    EXPECT_TRUE(ann.closed);
}

TEST_F(Logon, WhoGoesWhileHisPasswordIsCheckedIsForgotten) {
    accounts.Add({"ann", "hash of pw"});
    Client& ann = Connects("ann");
    service.Receive(*ann.session, "Ombrin:15:ann;temp;1;pw;:");
    Disconnects(ann);
    clock.Turn(Milliseconds(0));
    EXPECT_EQ(service.users.Count(), 0U);
    EXPECT_EQ(ann.Reads(), "");
}

TEST_F(Logon, WhatIsSentBehindALogonWaitsForItsAnswer) {
    accounts.Add({"ann", "hash of pw"});
    Client& ann = Connects("ann");
    ann.Says(client_message::Logon("ann;temp;1", "pw") + client_message::EnterLobby("ann;Go;1", ""));
    EXPECT_THAT(ann.Reads(), HasSubstr("~21:Go;~"));
}

TEST_F(Logon, TenWrongPasswordsSlowTheirAddressAndNobodyElse) {
    accounts.Add({"ann", "hash of pw"});
    Client& thief = Connects("ann", "10.6.6.6");
    for (int i = 0; i < LogonThrottle::kFreeFailures; ++i) {
        thief.LogsOn("guess");
        EXPECT_EQ(thief.Reads(), "24:~") << i;
    }
    thief.LogsOn("guess");
    clock.Turn(LogonThrottle::kFirstDelay - Milliseconds(1));
    EXPECT_EQ(thief.Reads(), "");
    Client& elsewhere = Connects("ann", "10.0.0.9");
    elsewhere.LogsOn();
    EXPECT_THAT(elsewhere.Reads(), HasSubstr("22:"));
    Disconnects(elsewhere);
    clock.Turn(Milliseconds(1));
    EXPECT_EQ(thief.Reads(), "24:~");

    Client& helper = Connects("ann", "10.6.6.6");
    thief.LogsOn("guess");
    helper.LogsOn();
    clock.Turn(std::chrono::seconds(2));
    EXPECT_EQ(thief.Reads(), "24:~");
    EXPECT_EQ(helper.Reads(), "") << "a second connection from there waits behind the first";
    clock.Turn(std::chrono::seconds(2));
    EXPECT_THAT(helper.Reads(), HasSubstr("22:")) << "the right password is let in";
    thief.LogsOn("guess");
    EXPECT_EQ(thief.Reads(), "24:~") << "and makes up for the wrong ones";
}

TEST_F(Logon, AServerThatIsFullOfUsersOrAccountsSaysSo) {
    Configuration small = Lobbies();
    small.limits.users = 1;
    World tiny(small);
    Client& ann = tiny.LoggedOn("ann");
    Client& bob = tiny.LoggedOn("bob");
    EXPECT_EQ(bob.Reads(), "23:~");
    EXPECT_THAT(tiny.log.text, HasSubstr("was refused: the server is full"));
    tiny.Disconnects(ann);
    bob.LogsOn();
    EXPECT_THAT(bob.Reads(), HasSubstr("22:"));

    small.limits.accounts = 0;
    World none(small);
    Client& cid = none.Connects("cid");
    cid.Says(client_message::CreateAccount("cid", "pw", "pw"));
    EXPECT_EQ(cid.Reads(), "32:~");
}

struct OpenServer : World, testing::Test {
    OpenServer() : World(Lobbies(), {.openAccounts = true, .trustEmbedded = true}) {}
};

TEST_F(OpenServer, AnUnknownNameGetsAnAccountWithThisPassword) {
    Client& ann = Connects("ann");
    ann.LogsOn("");
    EXPECT_THAT(ann.Reads(), HasSubstr("22:"));
    Disconnects(ann);
    Client& thief = Connects("ann");
    thief.LogsOn("other");
    EXPECT_EQ(thief.Reads(), "24:~");
    for (const char* bad : {"a<b", "", " ann", "Ardvelle", "aNn"}) {
        Client& other = Connects(bad);
        other.LogsOn();
        EXPECT_EQ(other.Reads(), "24:~") << bad;
    }
}

TEST_F(OpenServer, AnEmbeddedClientIsOnWithItsFirstMessageAndInTheLobby) {
    Client& ann = Connects("ann", "10.0.0.7");
    ann.Says(client_message::EnterLobby("ann;Go;192.168.1.1"));
    const std::string read = ann.Reads();
    EXPECT_THAT(read, testing::StartsWith("45:10.0.0.7;~21:Go;~0:ann;1;~"));
    EXPECT_THAT(read, Not(HasSubstr("22:")));

    Client& twin = Connects("ANN");
    twin.Says(client_message::EnterLobby("ANN;Go;1"));
    EXPECT_EQ(twin.Reads(), "20:~");
    twin.Says(client_message::EnterLobby("bob;Go;1"));
    EXPECT_EQ(twin.Reads(), "20:~") << "only a first message is a logon";

    Client& guest = Connects("guest");
    guest.Says(client_message::EnterLobby("guest;Chess;1"));
    EXPECT_EQ(guest.Reads(), "45:10.0.0.1;~46:Go,1;Chess,0;~");
    guest.Enters("Chess", "rook");
    EXPECT_THAT(guest.Reads(), HasSubstr("21:Chess;~"));
}

TEST_F(Logon, WhatTheConfigurationNamesComesBehindTheLobbyList) {
    Configuration full = Lobbies();
    full.banners = {{"http://a.example/x;y", 30}};
    full.changeOfLobby = false;
    full.directPlayGames = {{"Go", "Go 3000"}};
    full.directIPGames = {{"Chess", "chess.exe"}};
    World rich(full);
    Client& ann = rich.LoggedOn("ann");
    const std::string banner = "30;26;http%*|@//a.example/x^}|#y;";
    EXPECT_EQ(ann.Reads(),
              "45:10.0.0.1;~22:Go,0;Chess,0;~37:2:" + banner + banner + "~38:~39:Go;Go 3000;~40:Chess;chess.exe;~");
}

TEST_F(Logon, WhoComesAgainAndAgainWaitsAndNobodyElseDoes) {
    const std::size_t atOnce = service.configuration.limits.connectionsPerAddress;
    const auto asks = [](Client& client) {
        client.Says(client_message::LobbyNames());
        return client.Reads();
    };
    for (std::size_t i = 1; i < atOnce; ++i) Disconnects(Connects("x"));
    EXPECT_NE(asks(Connects("x")), "");
    Client& late = Connects("x");
    EXPECT_EQ(asks(late), "");
    EXPECT_NE(asks(Connects("y", "10.0.0.2")), "");
    clock.Turn(Milliseconds(100));
    EXPECT_NE(late.Reads(), "");
    for (std::size_t i = 0; i < atOnce; ++i) Disconnects(Connects("x"));
    Client& last = Connects("x");
    clock.Turn(Arrivals::kLongest);
    EXPECT_NE(asks(last), "") << "nobody waits longer";
}

} // namespace ombrin::server::test
