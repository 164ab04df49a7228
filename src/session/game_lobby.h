// The main control of the client: the connection, the main view with its dialogs, and one user's presence on the
// server. A host creates it, shows it, and ends when CloseClient arrives.
#pragma once

#include "controls/user_input.h"
#include "foundation/places.h"
#include "launch/directplay/cls_direct_play.h"
#include "lobby/text_colour.h"
#include "platform/alarms.h"
#include "platform/components.h"
#include "platform/desktop.h"
#include "platform/disks.h"
#include "platform/integrity.h"
#include "platform/local_files.h"
#include "platform/network.h"
#include "platform/notifier.h"
#include "platform/pings.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/waiter.h"
#include "session/areas.h"
#include "session/stored_properties.h"
#include "ui/layout.h"
#include "ui/skins.h"
#include "ui/text/view_language.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ombrin {

/// What a client needs of the machine. Everything outlives the control.
struct Platform {
    Network& network;
    Alarms& alarms;
    const Clock& clock;
    Files& files;
    LocalFiles& localFiles;
    Sound& sound;
    Clipboard& clipboard;
    Pings& pings;
    Notifier& notifier;
    Browser& browser;
    Pictures& pictures;
    Processes& processes;
    Components& components;
    Integrity& integrity;
    Registry& registry;
    directplay::Service& directPlay;
    Disks& disks;
    TargetOpener& opener;
    const TextMeasure& measure;
    Waiter& waiter;
    std::function<void(bool)> holdEvents; ///< no socket event and no timer while true
    Places places;
};

/// All the dialogs, which exist from the start.
struct Dialogs {
    Dialogs(ModalStack& stack, Settings& settings, Session& session, IniFiles& files, Localisation& language,
            Messages& messages, ConfigurableButtons& targets, Clipboard& clipboard, Trap& trap);

    ombrin::ChooseLanguage ChooseLanguage;
    ombrin::Connection Connection;
    ombrin::LobbyFilter LobbyFilter;
    ombrin::ExeMainLobby ExeMainLobby;
    ombrin::UsrNmPwIP UsrNmPwIP;
    ombrin::CreateAccount CreateAccount;
    ombrin::NewRoom NewRoom;
    ombrin::RoomPassword RoomPassword;
    ombrin::PMDialog PMDialog;
    ombrin::ConfigureGame ConfigureGame;
    ombrin::frmAbout frmAbout;
    ombrin::PauseAV PauseAV;
    ombrin::FindingGame FindingGame;
    ombrin::DownloadProgress DownloadProgress;

    std::vector<Form*> All() {
        return {&ChooseLanguage, &Connection, &LobbyFilter,  &ExeMainLobby,    &UsrNmPwIP,
                &CreateAccount,  &NewRoom,    &RoomPassword, &PMDialog,        &ConfigureGame,
                &frmAbout,       &PauseAV,    &FindingGame,  &DownloadProgress};
    }
};

class GameLobby {
public:
    explicit GameLobby(Platform platform);
    ~GameLobby();
    GameLobby(const GameLobby&) = delete;
    GameLobby& operator=(const GameLobby&) = delete;

    /// The host must end. Raised from inside a routine that still finishes its steps; the handler only notes it.
    std::function<void()> CloseClient;

    /// Starts the session and waits in it as long as dialogs are open: with a record `<user>;<lobby>;<host>;<port>`
    /// from an embedding container, else in stand-alone mode. Raises ProgramEnding when the program ends meanwhile.
    void UserControl_Show(std::optional<std::string> userData);
    /// The end of the control; no event reaches it afterwards.
    void UserControl_Terminate();

    // The public surface
    std::string SetAXParams(std::string_view pUserName);
    const std::string& UserName() const { return session.UserName; }
    void SetUserName(std::string_view name);
    /// The stored properties; the setter of each reports its change there.
    StoredProperties Properties;
    void Refresh() {}
    void SetGameLobby(std::string_view Buf) { areas->lobbies.SetGameLobby(Buf); }
    void DisplayMainLobby(std::string_view Buf) { areas->lobbies.DisplayMainLobby(Buf); }
    void AccountCreated(std::string_view Buf) { areas->logon.AccountCreated(Buf); }
    void DisplayLogonBanner() { areas->logon.DisplayLogonBanner(); }
    void DisplayCreateAccount(bool ShowLogon) { areas->logon.DisplayCreateAccount(ShowLogon); }
    void ProcessLogonBanner() { areas->logon.ProcessLogonBanner(); }
    void SendData(std::string_view Data);
    const std::string& m_DPGameList() const { return areas->directPlay.m_DPGameList; }
    void InitDirectX() { areas->directPlay.InitDirectX(); }
    void EnumDPLocApps() { areas->directPlay.EnumDPLocApps(); }
    void LaunchDPGame(std::string_view LaunchIP) { areas->directPlay.LaunchDPGame(LaunchIP); }
    void Configure_Click() { areas->configuration.Configure_Click(); }
    void CheckAutoStart() { areas->autoStart.CheckAutoStart(); }
    void ProcessRoomPassword() { areas->rooms.ProcessRoomPassword(); }
    void DisplayPMDialog() { areas->pm.DisplayPMDialog(); }
    void btnAddBuddy_Click() { areas->buddies.btnAddBuddy_Click(); }
    void btnRemoveBuddy_Click() { areas->buddies.btnRemoveBuddy_Click(); }
    bool IsSocketConnected() { return areas->keepAlive.IsSocketConnected(); }
    /// Ends the connection and logs on anew: the only way back from a lost one. Waits in dialogs, as Show does.
    void CloseSocket() { areas->keepAlive.CloseSocket(); }

    /// Not part of this control, but of the same library; it does not outlive it.
    clsDirectPlay DirectPlayForHost() { return {platform.directPlay, session, trap}; }

    /// The main view's size in pixels, at any time.
    void Resize(int width, int height);

    // For hosts that paint and drive it
    View& MainView() { return view; }
    Dialogs& Forms() { return dialogs; }
    ModalStack& Stack() { return stack; }
    UserInput& Input() { return input; }
    const Session& Marks() const { return session; }
    Position RoomPosition() const { return areas->position.Now(); }
    const Link& Connection() const { return link; }
    Settings& Store() { return settings; }
    IniFiles& Inis() { return iniFiles; }
    Log& Trace() { return log; }
    Registry& Hive() { return platform.registry; }

private:
    void Winsock_Connect();
    void Winsock_DataArrival();
    void Winsock_Failed(ConnectFailure why);
    void Start(std::optional<std::string> userData);
    void ReadPresets();

    Platform platform;
    ModalStack stack;
    Boxes boxes;
    Log log;
    Trap trap;
    IniFiles iniFiles;
    Settings settings;
    Localisation language;
    Messages messages;
    ConfigurableButtons targets;
    View view;
    Layout layout;
    UserInput input;
    Session session;
    Dialogs dialogs;
    Skins skins;
    ViewLanguage viewLanguage;
    TextColours textColours;
    Link link;
    std::unique_ptr<Areas> areas;
};

} // namespace ombrin
