// Arrivals: cut anywhere, joined, without an end, under open forms; and the end of the program under them.
#include "support/played_client.h"

#include "session/wire/codes.h"

#include <algorithm>

namespace ombrin::test {

namespace {

struct Arrival : PlayedClient, testing::Test {};

/// Everything that a logon leaves behind, in an order that does not depend on what waited for what.
std::vector<std::string> StateOf(PlayedClient& client) {
    std::vector<std::string> state = PlayedClient::Texts(client.view.UserList.rows);
    for (const auto& text : PlayedClient::Texts(client.view.lbLobbies.rows)) state.push_back("lobby " + text);
    for (const auto& text : PlayedClient::Texts(client.view.lbAllUsers.rows)) state.push_back("all " + text);
    for (const auto& text : client.Chat()) state.push_back(text);
    std::sort(state.begin(), state.end());
    for (std::string heard = client.Heard(); !heard.empty(); heard = client.Heard()) state.push_back(heard);
    state.push_back(client.Marks().m_UserData + (client.view.Enabled() ? " enabled" : " disabled"));
    state.push_back("top " + client.Top());
    return state;
}

std::vector<std::string> StateAfter(const std::string& script, std::size_t cut) {
    PlayedClient client;
    client.HasChosen();
    client.Shows();
    client.Connects();
    client.Accepts();
    client.Sends(script.substr(0, cut));
    client.Sends(script.substr(cut));
    while (client.Top() == "MessageBox") client.Answers(BoxResult::Ok);
    return StateOf(client);
}

} // namespace

TEST(ArrivalCuts, ALogonCutAtAnyByteEndsInTheSameState) {
    const std::pair<std::string, const char*> kScripts[] = {
        {"45:10.0.0.5;~22:Go,1;Chess,2;~0:ann;1;bob;3;~47:ann;bob;~48:cid;Chess;~1:bob:hi you:;~0:dan;1;~13:2:dan;;;~"
         "15:bob;~",
         "bob: hi you"},
        // The rest arrives in a nested run under an open box.
        {"45:10.0.0.5;~22:Go,1;Chess,2;~47:ann;bob;~36:stop;~0:ann;1;bob;1;~1:bob:one:;cid:two:;~48:eve;Go;~",
         "lobby Go : 2"},
    };
    for (const auto& [script, sign] : kScripts) {
        const auto whole = StateAfter(script, script.size());
        EXPECT_NE(std::find(whole.begin(), whole.end(), sign), whole.end()) << sign;
        for (std::size_t cut = 1; cut < script.size(); ++cut)
            EXPECT_EQ(StateAfter(script, cut), whole) << "cut at " << cut << " of " << script;
    }
}

TEST_F(Arrival, ASingleCharacterBehindTheLastEndIsThrownAwayUnlessACodeCanBeginWithIt) {
    LogsOn();
    Sends("1:bob:one:;~x");
    Sends("1:bob:two:;~1");
    Sends(":bob:three:;~;");
    Sends("1:bob:four:;~");
    EXPECT_EQ(Chat(), (std::vector<std::string>{"bob: one", "bob: two", "bob: three", "bob: four"}));
}

TEST_F(Arrival, AMessageWithoutAnEndIsThrownAwayAtItsLimitAndTheNextIsHandled) {
    LogsOn();
    Sends("1:bob:" + std::string(Link::kTailLimit - 6, 'x'));
    Sends(":;~");
    EXPECT_EQ(Chat().size(), 1u) << "at the limit it is still one message";
    Sends("1:cid:" + std::string(Link::kTailLimit - 5, 'x'));
    EXPECT_NE(world.LogText().find("has no end within 4194304 characters"), std::string::npos);
    Sends("more of it");
    Sends("and its end:;~1:dan:after:;~");
    EXPECT_EQ(Chat().back(), "dan: after");
    EXPECT_EQ(Chat().size(), 2u);
    Sends("1:cid:" + std::string(Link::kTailLimit - 5, 'x'));
    Sends(":;~x");
    Sends("1:dan:again:;~");
    EXPECT_EQ(Chat().back(), "dan: again") << "the one character behind the end is thrown away here too";
}

TEST_F(Arrival, UnknownCodesAreLoggedAndEmptyOnesVanish) {
    LogsOn();
    Sends("abc~:x;~~~ ~1:bob:end:;~");
    EXPECT_EQ(world.LogText().find("unrecognized command:  received"), std::string::npos);
    for (const char* code : {"6", "51", "01", " 1", "-1"}) {
        Sends(std::string(code) + ":x;~1:bob:after " + code + ":;~");
        EXPECT_EQ(Chat().back(), std::string("bob: after ") + code);
        EXPECT_NE(world.LogText().find(std::string("unrecognized command: ") + code + " received."), std::string::npos);
    }
}

TEST_F(Arrival, EveryCodeOfTheWireIsHandledWithAnyPayload) {
    for (const CodeName& row : kServerCodeNames) {
        for (const char* payload : {"", ";", ":", ";;;;", "x", "x;", "x;y", "x:y;z:", ",;,;", "9,9;"}) {
            PlayedClient other;
            other.LogsOn();
            other.Sends(std::string(row.code) + ":" + payload + "~1:bob:on:;~");
            for (int form = 0; form < 8 && other.Top() != ""; ++form) {
                if (other.BoxText().starts_with("The server would like"))
                    other.Answers(BoxResult::No);
                else if (other.Top() == "MessageBox")
                    other.Answers(BoxResult::Ok);
                else
                    other.Do([&] { other.client.Stack().Top()->Hide(); });
            }
            if (row.code == "23" || row.code == "24" || row.code == "25") continue; // back in the logon dialog's loop
            EXPECT_EQ(other.world.LogText().find("unrecognized"), std::string::npos) << row.code;
        }
    }
}

TEST_F(Arrival, AtSixtyFourOpenFormsNothingMoreIsReadUntilOneCloses) {
    LogsOn();
    for (int i = 0; i < 64; ++i)
        Do([this] { world.loop.At(world.clock.Now(), [this] { Server().Sends("36:box;~"); }); });
    EXPECT_EQ(client.Stack().Visible().size(), 64u);
    Do([&] { world.loop.At(world.clock.Now(), [&] { Server().Sends("1:bob:on:;~"); }); });
    Passes(Milliseconds(1000));
    EXPECT_TRUE(Chat().empty());
    Answers(BoxResult::Ok);
    EXPECT_EQ(Chat().back(), "bob: on");
}

TEST_F(Arrival, TheProgramEndsInsideNestedForms) {
    for (const bool byCloseClient : {false, true}) {
        PlayedClient other;
        other.endsOnCloseClient = true;
        other.HasChosen("Go;");
        other.Shows();
        other.Connects();
        other.Accepts();
        other.Sends("46:Go,1;~36:behind;~");  // the choice of a lobby,
        other.Sends("36:one;~1:bob:late:;~"); // a box over it,
        other.Sends("24:~");                  // and another that leads to the logon dialog
        EXPECT_EQ(other.client.Stack().Visible().size(), 3u);
        if (byCloseClient) {
            other.Answers(BoxResult::Ok);
            other.Presses(other.forms.UsrNmPwIP.CloseButton);
            EXPECT_TRUE(other.closeClientRaised);
        } else {
            other.Do([&] { other.client.Stack().RequestEnd(); });
        }
        EXPECT_EQ(other.client.Stack().Visible().size(), 0u);
        EXPECT_EQ(other.client.Stack().Depth(), 0u);
        EXPECT_TRUE(other.Chat().empty()) << "no routine goes on behind the end";
    }
}

} // namespace ombrin::test
