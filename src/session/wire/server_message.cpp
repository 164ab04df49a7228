#include "session/wire/server_message.h"

#include "foundation/text.h"
#include "session/wire/codec.h"

#include <algorithm>

namespace ombrin::server_message {

namespace {

template <class... Fields>
void Append(std::string& message, const Fields&... fields) {
    ((message += fields, message += kFieldEnd), ...);
}

/// `<code>:<field>;<field>;…~`
template <class... Fields>
std::string Message(Text code, const Fields&... fields) {
    std::string message = Join(code, ":");
    Append(message, fields...);
    message += kMessageEnd;
    return message;
}

std::string Lobbies(Text code, std::span<const LobbyCount> lobbies) {
    std::string message = Join(code, ":");
    for (const LobbyCount& entry : lobbies) Append(message, Join(entry.lobby, ",", std::to_string(entry.users)));
    message += kMessageEnd;
    return message;
}

std::string Rooms(Text code, std::span<const RoomRecord> rooms) {
    std::string message = Join(code, ":");
    for (const RoomRecord& entry : rooms)
        Append(message, entry.room, entry.status, entry.address, std::to_string(entry.users),
               std::to_string(entry.max));
    message += kMessageEnd;
    return message;
}

void AppendUser(std::string& message, const RoomUser& entry) {
    Append(message, entry.user, entry.address, entry.publicAddress ? Text("Y") : Text("N"));
}

/// `<sender>:<text>:`
std::string Line(Text sender, Text encodedText) { return Join(sender, ":", encodedText, ":"); }

} // namespace

std::string LobbyNames(std::span<const Text> lobbies) {
    std::string names;
    for (const Text lobby : lobbies) Append(names, lobby);
    return names;
}

std::string Bare(Text code) { return Message(code); }

std::string UsersOfLobby(std::span<const UserStatus> users) {
    std::string message = "0:";
    for (const UserStatus& entry : users) Append(message, entry.user, entry.status);
    message += kMessageEnd;
    return message;
}

std::string LobbyLine(Text user, Text encodedLine) { return Message("1", Line(user, encodedLine)); }

std::string RoomsOfLobby(std::span<const RoomRecord> rooms) { return Rooms("2", rooms); }

std::string UsersOfRoom(std::span<const RoomUser> users) {
    std::string message = "3:";
    for (const RoomUser& entry : users) AppendUser(message, entry);
    message += kMessageEnd;
    return message;
}

std::string RoomLine(Text user, Text encodedLine) { return Message("4", Line(user, encodedLine)); }

std::string RoomCreated(const RoomUser& creator) {
    std::string message = "5:";
    AppendUser(message, creator);
    message += kMessageEnd;
    return message;
}

std::string RoomEntered(Text creator) { return Message("7", creator); }
std::string UserLeftRoom(Text user) { return Message("8", user); }
std::string RoomGone(Text room) { return Message("11", room); }

std::string Launch(Text address) { return Message("12", address); }

std::string StatusOfUsers(std::span<const StatusChange> changes) {
    std::string message = "13:";
    for (const StatusChange& entry : changes)
        Append(message, Join(entry.status, ":", entry.user), entry.room, entry.address);
    message += kMessageEnd;
    return message;
}

std::string StatusOfRooms(std::span<const RoomRecord> rooms) { return Rooms("14", rooms); }
std::string UserLeftLobby(Text user) { return Message("15", user); }
std::string LobbySet(Text lobby) { return Message("21", lobby); }
std::string LobbyList(std::span<const LobbyCount> lobbies) { return Lobbies("22", lobbies); }
std::string AccountCreated(Text name, Text password) { return Message("27", name, password); }
std::string PrivateMessage(Text sender, Text encodedText) { return Message("35", sender, Line(sender, encodedText)); }

std::string GeneralMessage(Text text) {
    std::string shown(text);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c == kFieldEnd || c == kMessageEnd; }, ',');
    return Message("36", shown);
}

std::string Banners(std::span<const Banner> banners) {
    std::string message = Join("37:", std::to_string(banners.empty() ? 0 : banners.size() + 1), ":");
    const auto append = [&](const Banner& banner) {
        const std::string address = EncodeData(banner.address);
        Append(message, std::to_string(banner.seconds), std::to_string(address.size()), address);
    };
    for (const Banner& banner : banners) append(banner);
    if (!banners.empty()) append(banners.back());
    message += kMessageEnd;
    return message;
}

std::string DirectPlayGames(std::span<const DirectPlayGame> games) {
    std::string message = "39:";
    for (const DirectPlayGame& entry : games) Append(message, entry.game, entry.application);
    message += kMessageEnd;
    return message;
}

std::string DirectIPGame(Text game, Text executable) { return Message("40", game, executable); }

std::string Buddies(std::span<const Buddy> buddies) {
    std::string message = "41:";
    for (const Buddy& entry : buddies) Append(message, entry.user, entry.lobby);
    message += kMessageEnd;
    return message;
}

std::string AddressSeen(Text address) { return Message("45", address); }
std::string LobbyPasswordRefused(std::span<const LobbyCount> lobbies) { return Lobbies("46", lobbies); }

std::string UsersOfService(std::span<const Text> users) {
    std::string message = "47:";
    for (const Text user : users) Append(message, user);
    message += kMessageEnd;
    return message;
}

std::string UserCame(Text user, Text lobby) { return Message("48", user, lobby); }
std::string UserWent(Text user, Text lobby, bool fromService) {
    return Message("49", user, lobby, fromService ? Text("1") : Text("0"));
}

std::string RequiredFiles(Text host, Text port, std::span<const RequiredFile> files) {
    std::string message = "50:";
    Append(message, host, port);
    for (const RequiredFile& file : files)
        Append(message, file.name, std::to_string(file.size), std::to_string(file.directory), file.version);
    message += kMessageEnd;
    return message;
}

} // namespace ombrin::server_message
