// The messages of the server, one function a code. Texts of lines are encoded by the caller; no other field may hold
// ":", ";" or "~", but for addresses, which may hold ":".
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace ombrin::server_message {

using Text = std::string_view;

struct UserStatus {
    Text user;
    Text status;
};

struct RoomRecord {
    Text room;
    Text status;
    Text address; ///< of the game's server
    std::size_t users;
    int max;
};

struct RoomUser {
    Text user;
    Text address;
    bool publicAddress; ///< false: hidden from the other users' tool tips
};

struct StatusChange {
    Text status;
    Text user;
    Text room; ///< may be empty
    Text address;
};

struct LobbyCount {
    Text lobby;
    std::size_t users;
};

struct Buddy {
    Text user;
    Text lobby; ///< empty when he is not on line
};

struct Banner {
    int seconds;
    Text address; ///< as it is; encoded here, as its length counts the encoded form
};

struct DirectPlayGame {
    Text game;
    Text application;
};

struct RequiredFile {
    Text name;
    std::size_t size; ///< bytes
    int directory;
    Text version;
};

/// The answer to a client's 0: names alone, neither code nor end.
std::string LobbyNames(std::span<const Text> lobbies);
/// A code that carries nothing.
std::string Bare(Text code);
/// 0
std::string UsersOfLobby(std::span<const UserStatus> users);
/// 1
std::string LobbyLine(Text user, Text encodedLine);
/// 2
std::string RoomsOfLobby(std::span<const RoomRecord> rooms);
/// 3
std::string UsersOfRoom(std::span<const RoomUser> users);
/// 4
std::string RoomLine(Text user, Text encodedLine);
/// 5
std::string RoomCreated(const RoomUser& creator);
/// 7
std::string RoomEntered(Text creator);
/// 8
std::string UserLeftRoom(Text user);
/// 11
std::string RoomGone(Text room);
/// 12. Who reads it starts the game with this address.
std::string Launch(Text address);
/// 13
std::string StatusOfUsers(std::span<const StatusChange> changes);
/// 14
std::string StatusOfRooms(std::span<const RoomRecord> rooms);
/// 15
std::string UserLeftLobby(Text user);
/// 21
std::string LobbySet(Text lobby);
/// 22
std::string LobbyList(std::span<const LobbyCount> lobbies);
/// 27
std::string AccountCreated(Text name, Text password);
/// 35
std::string PrivateMessage(Text sender, Text encodedText);
/// 36; a ";" or "~" in the text becomes ",".
std::string GeneralMessage(Text text);
/// 37. The client never shows the last entry it is told of, so the last banner is told twice.
std::string Banners(std::span<const Banner> banners);
/// 39
std::string DirectPlayGames(std::span<const DirectPlayGame> games);
/// 40
std::string DirectIPGame(Text game, Text executable);
/// 41
std::string Buddies(std::span<const Buddy> buddies);
/// 45
std::string AddressSeen(Text address);
/// 46
std::string LobbyPasswordRefused(std::span<const LobbyCount> lobbies);
/// 47
std::string UsersOfService(std::span<const Text> users);
/// 48
std::string UserCame(Text user, Text lobby);
/// 49
std::string UserWent(Text user, Text lobby, bool fromService);
/// 50, with the address and the port of the update server.
std::string RequiredFiles(Text host, Text port, std::span<const RequiredFile> files);

} // namespace ombrin::server_message
