// The list of lobbies, the choice of one, and the move from one to another.
#pragma once

#include "lobby/auto_start.h"
#include "lobby/desk.h"
#include "lobby/exe_main_lobby.h"
#include "lobby/lobby_filter.h"
#include "session/wire/connection_dialog.h"

namespace ombrin {

/// Replaces the second field of `<user>;<lobby>;<address>`.
void ReplaceLobbyNameInUserData(std::string& userData, std::string_view lobby);

class LobbyDirectory {
public:
    LobbyDirectory(Desk desk, AutoStart& autoStart, Connection& connection, LobbyFilter& filter, ExeMainLobby& dialog);

    /// The server's list after a logon or a change of lobby: enters the lobby of the selected row.
    void SwitchLobbies(std::string_view data);
    /// A lobby set by the server.
    void SetGameLobby(std::string_view data);
    /// Asks for a lobby and its password, and enters it.
    void DisplayMainLobby(std::string_view data);
    /// The server has refused a lobby password.
    void PasswordRefused(std::string_view data);
    /// Adds one to the count of a displayed lobby, or takes one off. There is no floor.
    void UpdateLobbyUserCount(std::string_view lobby, bool increase);

    /// Text of the last list, also with the lobbies that are not displayed.
    const std::string& ListData() const { return g_LobbyListData; }

private:
    void AddLobbiesToListBox(std::string_view data, ListBox& list);
    void BeginChoice();
    void TakeLobby(const std::string& row);
    void lbLobbies_MouseUp(int button);

    Desk desk;
    AutoStart& autoStart;
    Connection& connection;
    LobbyFilter& filter;
    ExeMainLobby& dialog;
    std::string g_LobbyListData;
};

} // namespace ombrin
