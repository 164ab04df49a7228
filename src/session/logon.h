// Logging on and making accounts: the dialogs until there is something to do, and the answers of the server.
#pragma once

#include "lobby/desk.h"
#include "lobby/exe_main_lobby.h"
#include "session/account_dialog.h"
#include "session/connector.h"
#include "session/logon_dialog.h"
#include "session/wire/connection_dialog.h"
#include "ui/layout.h"

#include <functional>

namespace ombrin {

struct LogonDialogs {
    UsrNmPwIP& logon;
    CreateAccount& account;
    Connection& connection;
    ExeMainLobby& mainLobby;
};

class Logon {
public:
    /// `closeClient` raises the event on which the host ends; it returns.
    Logon(Desk desk, LogonDialogs dialogs, Connector& connector, const Layout& layout,
          std::function<void()> closeClient)
        : desk(desk), dialogs(dialogs), connector(connector), layout(layout), closeClient(std::move(closeClient)) {}

    /// Runs the logon dialog until there is something to do: the record for connecting stands in m_UserData, or the
    /// logon was sent over the open socket, or the dialog was closed. Connects by itself when the connection that it
    /// began with is gone at its end. Does nothing while the dialog is open.
    void DisplayLogonBanner();
    /// One visit to the dialog, repeated until its input is complete.
    void ProcessLogonBanner();
    void DisplayCreateAccount(bool ShowLogon);
    /// `<name>;<password>;`
    void AccountCreated(std::string_view Buf);

    /// The view has another size: the logon dialog covers it.
    void FitLogonDialog();

    /// Raises the event when the dialog was closed.
    bool LogonDialogClosed();
    /// Takes the four fields of the record apart and leaves three of them in m_UserData.
    void TakeRecordApart(std::string_view record);
    /// Shows Connection until the connection is there; a cancel leads back to the logon dialog.
    void RunCancelLoop(std::string_view connectTrace);

    /// The server refuses a logon; the next try goes over the same socket.
    void LogonRefused(const LanguageText& why);
    void AccountAccepted(std::string_view Buf);
    void AccountRefused(const LanguageText& why);

private:
    /// To the host of the record, which has its four fields.
    void ConnectToRecord();

    Desk desk;
    LogonDialogs dialogs;
    Connector& connector;
    const Layout& layout;
    std::function<void()> closeClient;
};

} // namespace ombrin
