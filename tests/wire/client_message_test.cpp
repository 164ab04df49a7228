#include "session/wire/client_message.h"
#include "session/wire/codes.h"

#include "foundation/text.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace ombrin {
namespace {

using namespace client_message;

constexpr Text kUser = "Ann;Arena;192.0.2.7";

struct Row {
    std::string_view code;
    std::string built, bytes;
};

const Row kRows[] = {
    {"0", LobbyNames(), "Ombrin:0:"},
    {"2", EnterLobby(kUser), "Ombrin:2:Ann;Arena;192.0.2.7;:~"},
    {"2", EnterLobby(kUser, ""), "Ombrin:2:Ann;Arena;192.0.2.7;;:~"},
    {"2", EnterLobby(kUser, "pw"), "Ombrin:2:Ann;Arena;192.0.2.7;pw;:~"},
    {"3", LobbyLine(kUser, "hi%*|@"), "Ombrin:3:Ann;Arena;192.0.2.7;hi%*|@;:~"},
    {"4", CreateRoom(kUser, "Duel", "4", "1", "pw", "Y"), "Ombrin:4:Ann;Arena;192.0.2.7;Duel;4;1;pw;Y;:~"},
    {"5", RoomLine(kUser, "hi", "Duel"), "Ombrin:5:Ann;Arena;192.0.2.7;hi;Duel;:~"},
    {"7", EnterRoom(kUser, "Duel", "N"), "Ombrin:7:Ann;Arena;192.0.2.7;Duel;;N;:~"},
    {"7", EnterPasswordRoom(kUser, "Duel", "pw"), "Ombrin:7:Ann;Arena;192.0.2.7;Duel;pw;:~"},
    {"8", LeaveRoom(kUser, "Duel"), "Ombrin:8:Ann;Arena;192.0.2.7;Duel;:~"},
    {"9", DestroyRoom(kUser, "Duel"), "Ombrin:9:Ann;Arena;192.0.2.7;Duel;:~"},
    {"10", Launch(kUser, "Duel"), "Ombrin:10:Ann;Arena;192.0.2.7;Duel;:~"},
    {"11", PreviewRoom(kUser, "Duel"), "Ombrin:11:Ann;Arena;192.0.2.7;Duel;:~"},
    {"12", LeaveLobby(kUser), "Ombrin:12:Ann;Arena;192.0.2.7;:~"},
    {"12", Closing(), "Ombrin:12:~"},
    {"14", BackFromGame(kUser, "Duel"), "Ombrin:14:Ann;Arena;192.0.2.7;Duel;:~"},
    {"15", Logon(kUser, "pw"), "Ombrin:15:Ann;Arena;192.0.2.7;pw;:~"},
    {"17", CreateAccount("Ann", "pw", "pv"), "Ombrin:17:Ann;pw;pv;:~"},
    {"18", PrivateMessage(kUser, "Bob", "hi"), "Ombrin:18:Ann;Arena;192.0.2.7;Bob;hi;:~"},
    {"19", BuddyList("Ann"), "Ombrin:19:Ann:~"},
    {"20", "", ""}, // the server knows it, the client has nothing that sends it
    {"21", AddBuddy("Ann", "Bob"), "Ombrin:21:Ann;Bob;:~"},
    {"22", RemoveBuddy("Ann", "Bob"), "Ombrin:22:Ann;Bob;:~"},
    {"23", RejectUser(kUser, "Duel", "Bob"), "Ombrin:23:Ann;Arena;192.0.2.7;Duel;Bob;:~"},
    {"24", RequestFile("maps.zip"), "Ombrin:24:maps.zip:~"},
    {"25", FileReceived(), "Ombrin:25:~"},
    {"27", TransferGivenUp(), "Ombrin:27:~"},
    {"28", HeartBeat(), "Ombrin:28::~"},
    {"29", JoinRunningGame(), "Ombrin:29:3;:~"},
};

TEST(ClientMessage, EachCodeIsBuiltByteByByte) {
    for (const Row& row : kRows) {
        EXPECT_EQ(row.built, row.bytes);
        EXPECT_TRUE(row.bytes.empty() || row.bytes.starts_with(Join("Ombrin:", row.code, ":"))) << row.bytes;
    }
}

TEST(ClientMessage, NoCodeOfTheTableIsLeftOut) {
    for (const CodeName& known : kClientCodeNames)
        EXPECT_TRUE(std::any_of(std::begin(kRows), std::end(kRows), [&](const Row& r) { return r.code == known.code; }))
            << "no row for " << known.code << ", " << known.name;
    for (const Row& row : kRows)
        EXPECT_TRUE(std::any_of(kClientCodeNames.begin(), kClientCodeNames.end(), [&](const CodeName& known) {
            return known.code == row.code;
        })) << row.code;
}

} // namespace
} // namespace ombrin
