#include "session/server_codes.h"

#include "session/wire/codes.h"

#include <algorithm>
#include <array>

namespace ombrin {

namespace {

using Payload = std::string_view;

struct ServerCode {
    std::string_view code;
    void (*run)(Areas& a, Payload p);
};

void LobbyList(Areas& a, Payload p) {
    if (!a.session.m_UserListSeen) a.sound.Play("EnterLobby2");
    a.lobbies.SwitchLobbies(p);
}

void OwnRoom(Areas& a, Payload p) {
    a.rooms.RoomCreated();
    a.rooms.AddRoomUserNames(p);
    a.pinger.PingTimer_Timer();
}

constexpr std::array kServerCodes{
    ServerCode{"0", [](Areas& a, Payload p) { a.users.AddGameLobbyUsers(p); }},
    ServerCode{"1", [](Areas& a, Payload p) { a.chat.AddGameLobbyChatLines(p); }},
    ServerCode{"2", [](Areas& a, Payload p) { a.rooms.AddGameLobbyRooms(p); }},
    ServerCode{"3", [](Areas& a, Payload p) { a.rooms.AddRoomUserNames(p); }},
    ServerCode{"4", [](Areas& a, Payload p) { a.chat.AddRoomChatLines(p); }},
    ServerCode{"5", OwnRoom},
    ServerCode{"7", [](Areas& a, Payload p) { a.rooms.RoomEntered(p); }},
    ServerCode{"8", [](Areas& a, Payload p) { a.rooms.RemoveRoomUser(p); }},
    ServerCode{"9", [](Areas& a, Payload) { a.rooms.LeaveRoom(); }},
    ServerCode{"10", [](Areas& a, Payload) { a.rooms.DestroyRoom(); }},
    ServerCode{"11", [](Areas& a, Payload p) { a.rooms.RemoveGameLobbyRoom(p); }},
    ServerCode{"12", [](Areas& a, Payload p) { a.launcher.LaunchGame(p); }},
    ServerCode{"13", [](Areas& a, Payload p) { a.users.SetUserStatus(p); }},
    ServerCode{"14", [](Areas& a, Payload p) { a.rooms.SetRoomStatus(p); }},
    ServerCode{"15", [](Areas& a, Payload p) { a.users.RemoveGameLobbyUser(p); }},
    ServerCode{"17", [](Areas& a, Payload) { a.rooms.CreateRefused(); }},
    ServerCode{"18", [](Areas& a, Payload) { a.rooms.EnterRefused(text::kError2); }},
    ServerCode{"19", [](Areas& a, Payload) { a.rooms.EnterRefused(text::kError3); }},
    ServerCode{"20", [](Areas& a, Payload) { a.general.NotLoggedOn(); }},
    ServerCode{"21", [](Areas& a, Payload p) { a.lobbies.SetGameLobby(p); }},
    ServerCode{"22", LobbyList},
    ServerCode{"23", [](Areas& a, Payload) { a.logon.LogonRefused(text::kError6); }},
    ServerCode{"24", [](Areas& a, Payload) { a.logon.LogonRefused(text::kError7); }},
    ServerCode{"25", [](Areas& a, Payload) { a.logon.LogonRefused(text::kError8); }},
    ServerCode{"27", [](Areas& a, Payload p) { a.logon.AccountAccepted(p); }},
    ServerCode{"28", [](Areas& a, Payload) { a.logon.AccountRefused(text::kError9); }},
    ServerCode{"29", [](Areas& a, Payload) { a.logon.AccountRefused(text::kError10); }},
    ServerCode{"30", [](Areas& a, Payload) { a.logon.AccountRefused(text::kError11); }},
    ServerCode{"31", [](Areas& a, Payload) { a.logon.AccountRefused(text::kError12); }},
    ServerCode{"32", [](Areas& a, Payload) { a.logon.AccountRefused(text::kError13); }},
    ServerCode{"33", [](Areas& a, Payload) { a.rooms.PasswordRefused(); }},
    ServerCode{"34", [](Areas& a, Payload) { a.rooms.ProcessRoomPassword(); }},
    ServerCode{"35", [](Areas& a, Payload p) { a.pm.ReceivePrivateMessage(p); }},
    ServerCode{"36", [](Areas& a, Payload p) { a.general.DisplayGeneralErrorMessage(p); }},
    ServerCode{"37", [](Areas& a, Payload p) { a.banners.SetupBannerAds(p); }},
    ServerCode{"38", [](Areas& a, Payload) { a.general.TakeLogoffButton(); }},
    ServerCode{"39", [](Areas& a, Payload p) { a.directPlay.SetDirectPlayGames(p); }},
    ServerCode{"40", [](Areas& a, Payload p) { a.discovery.SetDirectIPGame(p); }},
    ServerCode{"41", [](Areas& a, Payload p) { a.buddies.DisplayBuddyList(p); }},
    ServerCode{"42", [](Areas& a, Payload) { a.rooms.Rejected(); }},
    ServerCode{"43", [](Areas& a, Payload) { a.rooms.Banned(); }},
    ServerCode{"44", [](Areas&, Payload) {}}, // accepted and ignored
    ServerCode{"45", [](Areas& a, Payload p) { a.general.TakeAddress(p); }},
    ServerCode{"46", [](Areas& a, Payload p) { a.lobbies.PasswordRefused(p); }},
    ServerCode{"47", [](Areas& a, Payload p) { a.users.AddAllUsersToListBox(p); }},
    ServerCode{"48", [](Areas& a, Payload p) { a.users.AddUserToAllUsersListBox(p); }},
    ServerCode{"49", [](Areas& a, Payload p) { a.users.RemoveUserFromAllUsersListBox(p); }},
    ServerCode{"50", [](Areas& a, Payload p) { a.update.GetFilesFromServer(p); }},
};

static_assert(std::equal(kServerCodes.begin(), kServerCodes.end(), kServerCodeNames.begin(), kServerCodeNames.end(),
                         [](const ServerCode& row, const CodeName& name) { return row.code == name.code; }),
              "every code of the wire has its row here, in the same order");

} // namespace

bool RunServerCode(Areas& areas, std::string_view code, std::string_view payload) {
    const auto row = std::find_if(kServerCodes.begin(), kServerCodes.end(),
                                  [code](const ServerCode& candidate) { return candidate.code == code; });
    if (row == kServerCodes.end()) return false;
    row->run(areas, payload);
    return true;
}

} // namespace ombrin
