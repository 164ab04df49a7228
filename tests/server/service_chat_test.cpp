#include "world.h"

#include "session/wire/codec.h"

namespace ombrin::server::test {

struct Chat : World, testing::Test {};

TEST_F(Chat, ALineIsHeardByThoseWhomItIsForAndForgesNothing) {
    Client& ann = InLobby("ann");
    Client& bob = InLobby("Bob");
    Client& cid = InLobby("cid", "Chess");
    const std::string record = ann.Record("Go"), line = "1:ann:a%*|@b^}|#c`@/<:;~", word = "35:ann;ann:psst:;~";
    const struct {
        std::string says, ann, bob, cid;
    } cases[] = {
        {client_message::LobbyLine(record, EncodeData("a:b;c~")), line, line, ""},
        {client_message::PrivateMessage(record, "bob", "psst"), word, word, ""},
        {client_message::PrivateMessage(record, "cid", "psst"), word, "", word},
        {client_message::PrivateMessage(record, "dan", "psst"), "36:dan is not on line.;~", "", ""},
        {client_message::PrivateMessage(record, "", "psst"), "36:There is no user of that name.;~", "", ""},
        {client_message::PrivateMessage(record, "ANN", "psst"), "36:You cannot send a private message to yourself.;~",
         "", ""},
    };
    for (const auto& trial : cases) {
        ann.Says(trial.says);
        EXPECT_EQ(ann.Reads(), trial.ann) << trial.says;
        EXPECT_EQ(bob.Reads(), trial.bob) << trial.says;
        EXPECT_EQ(cid.Reads(), trial.cid) << trial.says;
    }
    ann.Says("Ombrin:3:ann;Go;1;hi:;bob:I am bob:;:~Ombrin:3:ann;Go;1;x:y;:~Ombrin:18:ann;Go;1;bob;x:y;:~");
    EXPECT_EQ(bob.Reads(), "") << "a line that is not encoded";
    ann.Says(client_message::LeaveLobby(record));
    ForgetAllRead();
    ann.Says(client_message::LobbyLine(record, "hi"));
    EXPECT_EQ(ann.Reads() + bob.Reads(), "36:You are in no lobby.;~");
}

TEST_F(Chat, AFloodOfRequestsIsReadMoreSlowlyButWhole) {
    Client& ann = InLobby("ann");
    clock.Turn(std::chrono::seconds(1)); // entering has its price
    constexpr std::size_t kRequests = 1'000;
    std::string flood;
    for (std::size_t i = 0; i < kRequests; ++i) flood += client_message::BuddyList("ann");
    ann.Says(flood);
    const std::string_view answer = "41:~";
    const std::size_t atOnce = ann.Reads().size() / answer.size();
    EXPECT_GE(atOnce, Service::kPace.burst);
    EXPECT_LE(atOnce, Service::kPace.burst + 1);
    clock.Turn(std::chrono::seconds(1));
    const std::size_t inASecond = ann.Reads().size() / answer.size();
    EXPECT_NEAR(static_cast<double>(inASecond), Service::kPace.perSecond, 2);
    clock.Turn(std::chrono::seconds(3));
    EXPECT_FALSE(ann.Reads().empty());
    ann.Says(client_message::LobbyLine(ann.Record("Go"), "x"));
    EXPECT_EQ(ann.Reads(), "1:ann:x:;~");
}

} // namespace ombrin::server::test
