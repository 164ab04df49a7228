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
#include "platform/user_registry.h"
#include "platform/waiter.h"
#include "session/areas.h"
#include "session/control_events.h"
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
    Dialogs(ModalStack& stack, Settings& settings, Session& session, Profile& profile, Localisation& language,
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
    ControlEvents Events; ///< never raised

    void UserControl_InitProperties(const std::string& ambientFont);
    /// What a container has stored, before the control is shown. `UserData` is given to UserControl_Show.
    void UserControl_ReadProperties(const StoredProperties::Bag& bag);
    void UserControl_WriteProperties(StoredProperties::Bag& bag) const;
    /// Starts the session and waits in it as long as dialogs are open: with a record `<user>;<lobby>;<host>;<port>`
    /// from an embedding container, else in stand-alone mode. Raises ProgramEnding when the program ends meanwhile.
    void UserControl_Show(std::optional<std::string> userData);
    /// The end of the control; no event reaches it afterwards.
    void UserControl_Terminate();

    // The public surface, in the order of the interface
    std::string Test; ///< of no use here
    std::string& m_DPGameList() { return areas->directPlay.m_DPGameList; }
    directplay::DirectX7* objDX() { return areas->directPlay.objDX.get(); } ///< nullptr until InitDirectX, as below
    directplay::DirectPlay4* objDP4() { return areas->directPlay.objDP4.get(); }
    directplay::DirectPlayLobby3* objDPLobby() { return areas->directPlay.objDPLobby.get(); }
    directplay::Enumeration* objDPEnumServProv() { return areas->directPlay.objDPEnumServProv.get(); }
    directplay::Enumeration* objDPEnumLocApps() { return areas->directPlay.objDPEnumLocApps.get(); }
    directplay::LobbyConnection* objDPLobbyConnection();
    directplay::SessionData* objDPSessionData();
    void Configure_Click() { areas->configuration.Configure_Click(); }
    void DisplayPMDialog() { areas->pm.DisplayPMDialog(); }
    /// The stored properties but for `UserName`, which is a mark of the session; the setter of each reports its change
    /// there.
    StoredProperties Properties{StoredProperties::Bag{}};
    void Refresh() {}
    std::string SetAXParams(std::string_view pUserName);
    const std::string& UserName() const { return session.UserName; }
    void SetUserName(std::string_view name);
    void Buddies_Click() {}
    bool IsSocketConnected() { return areas->keepAlive.IsSocketConnected(); }
    void SetGameLobby(std::string_view Buf) { areas->lobbies.SetGameLobby(Buf); }
    void DisplayMainLobby(std::string_view Buf) { areas->lobbies.DisplayMainLobby(Buf); }
    void AccountCreated(std::string_view Buf) { areas->logon.AccountCreated(Buf); }
    void DisplayLogonBanner() { areas->logon.DisplayLogonBanner(); }
    void DisplayCreateAccount(bool ShowLogon) { areas->logon.DisplayCreateAccount(ShowLogon); }
    void ProcessLogonBanner() { areas->logon.ProcessLogonBanner(); }
    /// The game that the dialog for it edits, and the applications that it offers.
    std::string& ConfiguredGame() { return session.ConfiguredGame; }
    std::string& DPGameList() { return dialogs.ConfigureGame.DPGameList; }
    void InitDirectX() { areas->directPlay.InitDirectX(); }
    void EnumDPLocApps() { areas->directPlay.EnumDPLocApps(); }
    void LaunchDPGame(std::string_view LaunchIP) { areas->directPlay.LaunchDPGame(LaunchIP); }
    void CheckAutoStart() { areas->autoStart.CheckAutoStart(); }
    /// False when the text could not be sent, of which the user has been told.
    bool SendData(std::string_view Data);
    void ProcessRoomPassword() { areas->rooms.ProcessRoomPassword(); }
    /// The key's path stands for its handle.
    std::int32_t SetValueEx(std::string_view hKey, std::string_view sValueName, std::int32_t lType,
                            const RegistryValue& vValue) {
        return ombrin::SetValueEx(platform.registry, hKey, sValueName, lType, vValue);
    }
    std::int32_t QueryValueEx(std::string_view lhKey, std::string_view szValueName, RegistryValue& vValue) {
        return ombrin::QueryValueEx(platform.registry, lhKey, szValueName, vValue);
    }
    /// Ends the connection and logs on anew: the only way back from a lost one. Waits in dialogs, as Show does.
    void CloseSocket() { areas->keepAlive.CloseSocket(); }
    void btnAddBuddy_Click() { areas->buddies.btnAddBuddy_Click(); }
    void btnRemoveBuddy_Click() { areas->buddies.btnRemoveBuddy_Click(); }

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
    Profile profile;
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
