// The messages of the client, one function a code. `userData` is the session's record `<user>;<lobby>;<address>` and
// goes as it is. In every other field ":", ";" and "~" are escaped; texts that the caller has encoded stay as they are.
#pragma once

#include <string>
#include <string_view>

namespace ombrin::client_message {

using Text = std::string_view;

/// 0. The one message without a closing "~".
std::string LobbyNames();
/// 2, as an embedded client sends it first: without the password field.
std::string EnterLobby(Text userData);
std::string EnterLobby(Text userData, Text password);
/// 3
std::string LobbyLine(Text userData, Text encodedLine);
/// 4
std::string CreateRoom(Text userData, Text room, Text maxUsers, Text locked, Text password, Text publicIP);
/// 5
std::string RoomLine(Text userData, Text encodedLine, Text room);
/// 7, without a password
std::string EnterRoom(Text userData, Text room, Text publicIP);
/// 7, the answer to a room's question: one field fewer
std::string EnterPasswordRoom(Text userData, Text room, Text password);
/// 8
std::string LeaveRoom(Text userData, Text room);
/// 9
std::string DestroyRoom(Text userData, Text room);
/// 10
std::string Launch(Text userData, Text room);
/// 11
std::string PreviewRoom(Text userData, Text room);
/// 12
std::string LeaveLobby(Text userData);
/// 12, when the connection closes
std::string Closing();
/// 14
std::string BackFromGame(Text userData, Text room);
/// 15
std::string Logon(Text userData, Text password);
/// 17
std::string CreateAccount(Text name, Text password, Text confirmation);
/// 18
std::string PrivateMessage(Text userData, Text recipient, Text encodedText);
/// 19
std::string BuddyList(Text user);
/// 21
std::string AddBuddy(Text user, Text buddy);
/// 22
std::string RemoveBuddy(Text user, Text buddy);
/// 23
std::string RejectUser(Text userData, Text room, Text user);
/// 24, on the file-transfer connection
std::string RequestFile(Text file);
/// 25, on the file-transfer connection
std::string FileReceived();
/// 27, on the file-transfer connection
std::string TransferGivenUp();
/// 28
std::string HeartBeat();
/// 29
std::string JoinRunningGame();

} // namespace ombrin::client_message
