#include "session/wire/client_message.h"

#include "foundation/text.h"
#include "session/wire/codec.h"

namespace ombrin::client_message {

namespace {

/// `Ombrin:<code>:<head>;<field>;…:~`. What a user typed or another user sent may hold separators: no field can end the
/// message and begin one of its own. Encoding leaves encoded text and proper names as they are.
template <class... Fields>
std::string Message(Text code, Text head, const Fields&... fields) {
    std::string message = Join("Ombrin:", code, ":", head, ";");
    ((message += EncodeData(fields), message += ';'), ...);
    message += ":~";
    return message;
}

} // namespace

std::string LobbyNames() { return "Ombrin:0:"; }
std::string EnterLobby(Text userData) { return Message("2", userData); }
std::string EnterLobby(Text userData, Text password) { return Message("2", userData, password); }
std::string LobbyLine(Text userData, Text encodedLine) { return Message("3", userData, encodedLine); }
std::string CreateRoom(Text userData, Text room, Text maxUsers, Text locked, Text password, Text publicIP) {
    return Message("4", userData, room, maxUsers, locked, password, publicIP);
}
std::string RoomLine(Text userData, Text encodedLine, Text room) { return Message("5", userData, encodedLine, room); }
std::string EnterRoom(Text userData, Text room, Text publicIP) { return Message("7", userData, room, "", publicIP); }
std::string EnterPasswordRoom(Text userData, Text room, Text password) {
    return Message("7", userData, room, password);
}
std::string LeaveRoom(Text userData, Text room) { return Message("8", userData, room); }
std::string DestroyRoom(Text userData, Text room) { return Message("9", userData, room); }
std::string Launch(Text userData, Text room) { return Message("10", userData, room); }
std::string PreviewRoom(Text userData, Text room) { return Message("11", userData, room); }
std::string LeaveLobby(Text userData) { return Message("12", userData); }
std::string Closing() { return "Ombrin:12:~"; }
std::string BackFromGame(Text userData, Text room) { return Message("14", userData, room); }
std::string Logon(Text userData, Text password) { return Message("15", userData, password); }
std::string CreateAccount(Text name, Text password, Text confirmation) {
    return Message("17", EncodeData(name), password, confirmation);
}
std::string PrivateMessage(Text userData, Text recipient, Text encodedText) {
    return Message("18", userData, recipient, encodedText);
}
std::string BuddyList(Text user) { return Join("Ombrin:19:", EncodeData(user), ":~"); }
std::string AddBuddy(Text user, Text buddy) { return Message("21", EncodeData(user), buddy); }
std::string RemoveBuddy(Text user, Text buddy) { return Message("22", EncodeData(user), buddy); }
std::string RejectUser(Text userData, Text room, Text user) { return Message("23", userData, room, user); }
std::string RequestFile(Text file) { return Join("Ombrin:24:", EncodeData(file), ":~"); }
std::string FileReceived() { return "Ombrin:25:~"; }
std::string TransferGivenUp() { return "Ombrin:27:~"; }
std::string HeartBeat() { return "Ombrin:28::~"; }
std::string JoinRunningGame() { return Message("29", "3"); }

} // namespace ombrin::client_message
