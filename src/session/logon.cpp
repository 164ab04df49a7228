#include "session/logon.h"

#include "foundation/text.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ombrin {

bool Logon::LogonDialogClosed() {
    if (!dialogs.logon.Closed) return false;
    closeClient();
    return true;
}

void Logon::TakeRecordApart(std::string_view record) {
    Session& session = desk.session;
    const std::string text(record);
    std::string_view rest = text;
    // The last field of a container's record need not be closed: it is what is left.
    session.UserName = GetCommand(rest, kFieldEnd);
    session.m_CurrentLobby = GetCommand(rest, kFieldEnd);
    const std::size_t hostEnd = rest.find(kFieldEnd);
    session.m_RemoteHost = rest.substr(0, hostEnd);
    const std::string_view port = hostEnd == std::string_view::npos ? std::string_view{} : rest.substr(hostEnd + 1);
    session.m_RemotePort = port.substr(0, port.find(kFieldEnd));
    session.m_UserData = Join(session.UserName, ";", session.m_CurrentLobby, ";", session.m_RemoteHost);
}

void Logon::FitLogonDialog() {
    constexpr int kLargest = std::numeric_limits<std::int16_t>::max();
    const auto twips = [](int pixels) {
        constexpr int kTwipsPerPixel = 15;
        return static_cast<std::int16_t>(std::min(pixels, kLargest / kTwipsPerPixel) * kTwipsPerPixel);
    };
    dialogs.logon.m_iViewHeight = twips(layout.Height());
    dialogs.logon.m_iViewWidth = twips(layout.Width());
    dialogs.logon.UsrNmPwIP_Form_Resize();
}

void Logon::ProcessLogonBanner() {
    desk.trap(__func__, [&] {
        UsrNmPwIP& dialog = dialogs.logon;
        Session& session = desk.session;
        session.m_CreatingAccount = false;
        dialog.EnsureLoaded();
        while (!dialog.ConnectPressed && !dialog.Closed) {
            const struct {
                const std::string& preset;
                TextBox& box;
                Label& label;
            } kPresets[] = {{session.m_DefaultHost, dialog.HostMachine, dialog.Label3},
                            {session.m_DefaultPort, dialog.HTTPPort, dialog.Label4}};
            for (const auto& row : kPresets) {
                if (row.preset.empty()) continue;
                row.box.SetVisible(false);
                row.label.SetVisible(false);
                row.box.SetText(row.preset);
            }
            FitLogonDialog();
            dialog.ShowModal();
            if (dialog.Closed) {
                closeClient();
                continue;
            }
            if (std::exchange(dialog.NewAccountPressed, false)) {
                DisplayCreateAccount(false);
                if (dialogs.account.Canceled) continue;
                if (session.m_ServerConnected) return; // the account was asked for over the open socket
                session.m_CreatingAccount = true;
            }
            if (!dialog.HostMachine.Text().empty() && !dialog.HTTPPort.Text().empty()) return;
            dialog.ConnectPressed = session.m_CreatingAccount = false;
            desk.messages.DisplayMessage(text::kError17);
        }
    });
}

void Logon::DisplayLogonBanner() {
    desk.trap(__func__, [&] {
        UsrNmPwIP& dialog = dialogs.logon;
        if (dialog.Visible()) return; // whoever has opened it goes on when it closes
        Session& session = desk.session;
        const auto epoch = desk.link.Epoch();
        const bool wasConnected = session.m_ServerConnected;
        desk.TraceMessage("logon banner displayed");
        dialog.ConnectPressed = false;
        while (true) {
            ProcessLogonBanner();
            if (LogonDialogClosed()) return;
            if (!session.m_ServerConnected) {
                const TextBox& name = session.m_CreatingAccount ? dialogs.account.LogonName : dialog.LogonName;
                session.m_UserData =
                    Join(name.Text(), ";temp;", dialog.HostMachine.Text(), ";", dialog.HTTPPort.Text());
                // A host has closed the connection under the dialog: no caller goes on to another.
                if (wasConnected) ConnectToRecord();
                return;
            }
            // A refused logon is repeated on the open socket.
            if (dialogs.mainLobby.LobbySelected || desk.link.Epoch() != epoch) return;
            session.m_UserData = Join(dialog.LogonName.Text(), ";temp;", dialog.HostMachine.Text());
            // The name may be another than that of the refused try.
            session.m_UserName = session.UserName = dialog.LogonName.Text();
            session.m_CurrentLobby = "temp";
            session.m_RemoteHost = dialog.HostMachine.Text();
            desk.link.SendData(client_message::Logon(session.m_UserData, dialog.Password.Text()));
            dialogs.mainLobby.LobbySelected = true;
            if (!dialogs.connection.WaitAndAskCanceled()) return;
        }
    });
}

void Logon::RunCancelLoop(std::string_view connectTrace) {
    while (true) {
        // The connection can have come while a box of an earlier step stood open.
        if (desk.session.m_ServerConnected || !dialogs.connection.WaitAndAskCanceled()) return;
        desk.TraceMessage("connection to the server canceled by user");
        connector.GiveUp();
        DisplayLogonBanner();
        if (LogonDialogClosed()) return;
        TakeRecordApart(desk.session.m_UserData);
        connector.Start(connectTrace);
    }
}

void Logon::ConnectToRecord() {
    TakeRecordApart(desk.session.m_UserData);
    connector.Start(Connector::kUsualTrace);
    if (desk.session.m_StandAlone) RunCancelLoop(Connector::kUsualTrace);
}

void Logon::DisplayCreateAccount(bool ShowLogon) {
    desk.trap(__func__, [&] {
        const auto epoch = desk.link.Epoch();
        CreateAccount& dialog = dialogs.account;
        desk.TraceMessage("create account dialog displayed");
        while (true) {
            dialog.ShowModal();
            if (desk.link.Epoch() != epoch) return;
            if (dialog.Canceled) {
                if (ShowLogon) DisplayLogonBanner();
                return;
            }
            if (!desk.session.m_ServerConnected) return;
            desk.link.SendData(client_message::CreateAccount(dialog.LogonName.Text(), dialog.Password.Text(),
                                                             dialog.ConfirmPassword.Text()));
            if (!dialogs.connection.WaitAndAskCanceled()) return;
        }
    });
}

void Logon::AccountCreated(std::string_view Buf) {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        desk.TraceMessage("account created");
        const std::string name(GetCommand(Buf, kFieldEnd));
        const std::string password(GetCommand(Buf, kFieldEnd));
        desk.settings.SaveSetting("Settings", "UserName", name);
        desk.settings.SaveSetting("Settings", "UserPassword", password);
        session.m_CurrentLobby = "temp";
        session.m_UserData = Join(name, ";temp;", desk.link.Winsock().LocalIP());
        dialogs.connection.Hide();
        desk.messages.DisplayMessage(text::kAccountCreated);
        dialogs.logon.EnsureLoaded();
        dialogs.logon.LogonName.SetText(name);
        dialogs.logon.Password.SetText(password);
        DisplayLogonBanner();
    });
}

void Logon::LogonRefused(const LanguageText& why) {
    dialogs.mainLobby.LobbySelected = false;
    dialogs.connection.Hide();
    desk.messages.DisplayMessage(why);
    DisplayLogonBanner();
}

void Logon::AccountAccepted(std::string_view Buf) {
    dialogs.connection.Hide();
    AccountCreated(Buf);
}

void Logon::AccountRefused(const LanguageText& why) {
    dialogs.connection.Hide();
    desk.messages.DisplayMessage(why);
    DisplayCreateAccount(true);
}

} // namespace ombrin
