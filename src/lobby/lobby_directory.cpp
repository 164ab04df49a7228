#include "lobby/lobby_directory.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "lobby/lobby_list.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

#include <limits>

namespace ombrin {

void ReplaceLobbyNameInUserData(std::string& userData, std::string_view lobby) {
    std::string_view rest = userData;
    const std::string_view user = GetCommand(rest, kFieldEnd);
    GetCommand(rest, kFieldEnd);
    userData = Join(user, ";", lobby, ";", rest);
}

LobbyDirectory::LobbyDirectory(Desk desk, AutoStart& autoStart, Connection& connection, LobbyFilter& filter,
                               ExeMainLobby& dialog)
    : desk(desk), autoStart(autoStart), connection(connection), filter(filter), dialog(dialog) {
    desk.view.lbLobbies.MouseUp = [this](int button) { lbLobbies_MouseUp(button); };
}

void LobbyDirectory::AddLobbiesToListBox(std::string_view data, ListBox& list) {
    desk.trap(__func__, [&] {
        g_LobbyListData = data;
        if (list.rows.Count() > 0) return;
        std::string displayed = LobbyFilter::DisplayedGames(desk.profile);
        if (displayed.empty()) {
            const auto epoch = desk.link.Epoch();
            filter.Hide(); // opened by a list before this one; it is chosen from this one instead
            filter.Create(data);
            filter.ShowModal();
            if (desk.link.Epoch() != epoch) return; // the list of a connection that is gone
            displayed = filter.SelectedGames;
        }
        list.Clear();
        for (LobbyEntry entry; CutLobbyEntry(data, entry);)
            if (GameInFilter(entry.name, displayed)) list.Add(LobbyRow(entry.name, entry.count));
        if (list.rows.Count() > 0) list.Select(list.rows.At(0), true);
    });
}

void LobbyDirectory::BeginChoice() {
    desk.TraceMessage("logon successfull, server requesting display of main lobby");
    if (connection.Visible()) connection.Hide();
}

/// The chosen lobby becomes the current one, in all places that name it.
void LobbyDirectory::TakeLobby(const std::string& row) {
    Session& session = desk.session;
    session.m_CurrentLobby = LobbyNameOfRow(row);
    desk.TraceMessage(Join("user selected lobby ", session.m_CurrentLobby));
    ReplaceLobbyNameInUserData(session.m_UserData, session.m_CurrentLobby);
    autoStart.CheckAutoStart();
    desk.language.SetLobbyCaption(desk.view.ChatFrame, session.m_CurrentLobby);
    session.ConfiguredGame = session.m_CurrentLobby;
    desk.view.CleanUpTimer.SetOn(true); // a change of lobby has stopped it
}

void LobbyDirectory::SwitchLobbies(std::string_view data) {
    desk.trap(__func__, [&] {
        const auto epoch = desk.link.Epoch();
        BeginChoice();
        AddLobbiesToListBox(data, desk.view.lbLobbies);
        if (desk.link.Epoch() != epoch) return; // the filter stood open while another logon began
        TakeLobby(desk.view.lbLobbies.SelectedText());
        desk.link.SendData(client_message::EnterLobby(desk.session.m_UserData, ""));
        desk.TraceMessage(Join("attempting to connect to lobby ", desk.session.m_CurrentLobby));
    });
}

void LobbyDirectory::SetGameLobby(std::string_view data) {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        session.m_CurrentLobby = GetCommand(data, kFieldEnd);
        autoStart.CheckAutoStart();
        desk.language.SetLobbyCaption(desk.view.ChatFrame, session.m_CurrentLobby);
        ReplaceLobbyNameInUserData(session.m_UserData, session.m_CurrentLobby);
        session.ConfiguredGame = session.m_CurrentLobby;
    });
}

void LobbyDirectory::DisplayMainLobby(std::string_view data) {
    desk.trap(__func__, [&] {
        const auto epoch = desk.link.Epoch();
        BeginChoice();
        dialog.LobbySelected = false;
        dialog.LobbyList = data;
        if (dialog.Visible()) return;
        dialog.AddGamesToListBox();
        dialog.ShowModal();
        if (desk.link.Epoch() != epoch) return;
        TakeLobby(dialog.ExeGameList.SelectedText());
        desk.link.SendData(client_message::EnterLobby(desk.session.m_UserData, dialog.Password.Text()));
        desk.TraceMessage(Join("attempting to connect to lobby ", desk.session.m_CurrentLobby));
        if (!connection.Visible()) connection.ShowModal();
    });
}

void LobbyDirectory::PasswordRefused(std::string_view data) {
    dialog.StatusText = text::kInvalidLobbyPassword.english;
    DisplayMainLobby(data);
}

void LobbyDirectory::UpdateLobbyUserCount(std::string_view lobby, bool increase) {
    desk.trap(__func__, [&] {
        desk.TraceMessage(Join("updating lobby ", lobby, " users count"));
        lobby = Trim(lobby);
        RowList& rows = desk.view.lbLobbies.rows;
        const RowId row = rows.Find(lobby);
        if (!row) return;
        const int count = ToInteger(StrExtractRight(rows.Text(row), ":")) + (increase ? 1 : -1);
        using Limits = std::numeric_limits<std::int16_t>;
        if (count < Limits::min() || count > Limits::max()) throw RuntimeError(ErrorNumber::Overflow);
        rows.SetText(row, LobbyRow(lobby, std::to_string(count)));
    });
}

void LobbyDirectory::lbLobbies_MouseUp(int button) {
    if (button == UserInput::kRight) desk.view.PopUp(desk.view.GamesMenu);
}

} // namespace ombrin
