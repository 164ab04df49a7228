#include "session/game_lobby.h"

#include "controls/grid_routines.h"
#include "foundation/text.h"
#include "session/server_codes.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

namespace ombrin {

Dialogs::Dialogs(ModalStack& stack, Settings& settings, Session& session, Profile& profile, Localisation& language,
                 Messages& messages, ConfigurableButtons& targets, Clipboard& clipboard, Trap& trap)
    : ChooseLanguage(stack, language, trap), Connection(stack, settings, session, language, trap),
      LobbyFilter(stack, profile, trap), ExeMainLobby(stack, settings, session, language, trap),
      UsrNmPwIP(stack, settings, language, messages.boxes, targets, trap), CreateAccount(stack, language, trap),
      NewRoom(stack, messages, language, trap), RoomPassword(stack, messages, language, trap),
      PMDialog(stack, settings, messages, language, clipboard, trap),
      ConfigureGame(stack, settings, profile, session, messages.boxes, language, trap), frmAbout(stack),
      PauseAV(stack, language, trap), FindingGame(stack), DownloadProgress(stack, language, trap) {}

GameLobby::GameLobby(Platform given)
    : platform(std::move(given)), stack(platform.waiter, platform.holdEvents), boxes(stack),
      log(platform.files, platform.clock, platform.places.SystemDirectory(), boxes), trap(log),
      iniFiles(platform.files, platform.places.WindowsDirectory()), profile(iniFiles, trap),
      settings(platform.files, platform.places.SettingsFile()), language(profile), messages(boxes, language),
      targets(profile, platform.opener, boxes, trap, platform.places.AppPath()), view(platform.alarms),
      layout(view, platform.measure, log), input(view, stack),
      dialogs(stack, settings, session, profile, language, messages, targets, platform.clipboard, trap),
      skins(view, {settings, iniFiles, platform.pictures, platform.places.AppPath()}, trap),
      viewLanguage(view, language, dialogs.ChooseLanguage, trap),
      textColours(settings, trap,
                  {&view.lbLobbies, &view.msflxMainChatLines, &view.MainText, &view.RoomText, &view.UserList,
                   &view.lbAllUsers, &view.RoomList, &view.msflexRoomLines, &view.RoomUserList, &view.BuddyLV,
                   &dialogs.NewRoom.NewRoomName, &dialogs.NewRoom.MaxUsers, &dialogs.NewRoom.Password,
                   &dialogs.PMDialog.msflxPMLines, &dialogs.PMDialog.PrivateMessage, &dialogs.PMDialog.User,
                   &dialogs.RoomPassword.Password}),
      link(platform.network, session, messages, log,
           {[this] { Winsock_Connect(); }, [this](std::size_t) { Winsock_DataArrival(); },
            [this] { areas->keepAlive.Winsock_Close(); }, [this](ConnectFailure why) { Winsock_Failed(why); }}) {
    targets.Attach(view);
    const auto closeClient = [this] {
        if (CloseClient) CloseClient();
    };
    areas = std::make_unique<Areas>(
        Desk{view, session, link, messages, language, settings, profile, trap},
        AreaNeeds{.sound = platform.sound,
                  .clipboard = platform.clipboard,
                  .measure = platform.measure,
                  .alarms = platform.alarms,
                  .pings = platform.pings,
                  .notifier = platform.notifier,
                  .browser = platform.browser,
                  .processes = platform.processes,
                  .registry = platform.registry,
                  .directPlay = platform.directPlay,
                  .disks = platform.disks,
                  .waiter = platform.waiter,
                  .dialogs = {dialogs.UsrNmPwIP, dialogs.CreateAccount, dialogs.Connection, dialogs.ExeMainLobby},
                  .roomDialogs = {dialogs.NewRoom, dialogs.RoomPassword},
                  .pmDialog = dialogs.PMDialog,
                  .configurationDialogs = {dialogs.ConfigureGame, dialogs.LobbyFilter, dialogs.frmAbout},
                  .pauseAV = dialogs.PauseAV,
                  .findingGame = dialogs.FindingGame,
                  .textColours = textColours,
                  .lobbyFilter = dialogs.LobbyFilter,
                  .layout = layout,
                  .roomWord = viewLanguage.m_sRoomWord,
                  .appPath = platform.places.AppPath(),
                  .systemDirectory = platform.places.SystemDirectory(),
                  .closeClient = closeClient,
                  .localFiles = platform.localFiles,
                  .update = {platform.network, platform.alarms, platform.localFiles, platform.components,
                             platform.integrity, platform.processes, dialogs.DownloadProgress, platform.places,
                             closeClient}});
}

GameLobby::~GameLobby() = default;

void GameLobby::UserControl_Show(std::optional<std::string> userData) {
    input.ShowView(true);
    if (const auto failure = Trap::FailureOf([&] { Start(std::move(userData)); }))
        areas->connector.ReportFailure(*failure);
}

void GameLobby::Start(std::optional<std::string> userData) {
    session.m_UserListSeen = false;
    InitializeMSFlexGrid(view.msflxMainChatLines, false);
    InitializeMSFlexGrid(view.msflexRoomLines, false);
    LoadTracingOn(session, settings);
    areas->update.FindDirectories();
    layout.UserControl_Resize();
    view.SetEnabled(false);
    dialogs.UsrNmPwIP.Closed = false;
    dialogs.UsrNmPwIP.ConnectPressed = false;
    dialogs.ExeMainLobby.LobbySelected = false;
    session.m_IsRoomCreator = false;
    session.m_CurrentRoom.clear();
    session.m_SelectedRoom.clear();
    session.m_ServerConnected = false;
    areas->banners.ForgetMarks();
    areas->ignored.StartAnew();
    session.ChatSoundsOn = settings.GetSetting("Settings", "EnableChatLineSounds") == "1";
    areas->keepAlive.ReadHeartBeat();
    viewLanguage.SetForeignLanguage();
    textColours.SetTextColor();
    skins.LoadSkins();
    areas->directPlay.InitDirectX();
    areas->directPlay.m_DPGameList.clear();
    areas->directPlay.EnumDPLocApps();
    dialogs.ConfigureGame.DPGameList = areas->directPlay.m_DPGameList;
    session.m_StandAlone = !userData.has_value();
    view.Configure.SetVisible(true); // of use in either mode
    view.Configure.SetEnabled(true);
    if (session.m_StandAlone) {
        ReadPresets();
        areas->logon.DisplayLogonBanner();
        if (areas->logon.LogonDialogClosed()) return;
    } else {
        session.m_UserData = *userData;
    }
    areas->logon.TakeRecordApart(session.m_UserData);
    if (!session.m_StandAlone) areas->autoStart.CheckAutoStart();
    areas->connector.Start(Connector::kUsualTrace);
    if (session.m_StandAlone) areas->logon.RunCancelLoop(Connector::kUsualTrace);
}

/// The store first, then the file, each when not empty.
void GameLobby::ReadPresets() {
    const struct {
        std::string& preset;
        std::string_view key;
    } kPresets[] = {{session.m_DefaultHost, "DefaultIP"}, {session.m_DefaultPort, "DefaultHTTPPort"}};
    for (const auto& row : kPresets) {
        row.preset = settings.GetSetting("Settings", row.key);
        if (row.preset.empty())
            row.preset = profile.ReadIniValue("av.ini", "AutoConnect", row.key, IniFiles::kShortValueLength);
    }
}

void GameLobby::Resize(int width, int height) {
    layout.Resize(width, height);
    areas->logon.FitLogonDialog();
}

void GameLobby::UserControl_Terminate() {
    areas->connector.GiveUp();
    areas->banners.RestoreNavigateSound();
    areas->ignored.Release();
    areas->directPlay8.DirectX8CleanUp();
}

std::string GameLobby::SetAXParams(std::string_view pUserName) {
    session.UserName = pUserName;
    return {};
}

void GameLobby::SetUserName(std::string_view name) {
    session.UserName = name;
    Properties.Report("UserName");
}

void GameLobby::UserControl_InitProperties(const std::string& ambientFont) {
    Properties.InitProperties(ambientFont);
    session.UserName = Session().UserName;
}

void GameLobby::UserControl_ReadProperties(const StoredProperties::Bag& bag) {
    Properties.ReadProperties(bag);
    const auto name = bag.find("UserName");
    if (name == bag.end()) return;
    if (const auto* text = std::get_if<std::string>(&name->second)) session.UserName = *text;
}

void GameLobby::UserControl_WriteProperties(StoredProperties::Bag& bag) const {
    Properties.WriteProperties(bag);
    bag.insert_or_assign("UserName", session.UserName);
}

/// The two descriptions are there with the objects that make them.
directplay::LobbyConnection* GameLobby::objDPLobbyConnection() {
    return objDPLobby() == nullptr ? nullptr : &areas->directPlay.objDPLobbyConnection;
}

directplay::SessionData* GameLobby::objDPSessionData() {
    return objDP4() == nullptr ? nullptr : &areas->directPlay.objDPSessionData;
}

bool GameLobby::SendData(std::string_view Data) {
    const bool connected = link.IsConnected();
    return trap(__func__, [&] { link.SendData(Data); }) && connected;
}

void GameLobby::Winsock_Connect() {
    trap(__func__, [&] {
        log.TraceMessage("connection to the server made successfully");
        dialogs.Connection.Hide();
        session.m_ServerConnected = true;
        std::string_view record = session.m_UserData;
        session.m_UserName = GetCommand(record, kFieldEnd);
        session.m_CurrentLobby = GetCommand(record, kFieldEnd);
        session.UserName = session.m_UserName;
        session.m_UserData = Join(session.m_UserName, ";", session.m_CurrentLobby, ";", link.Winsock().LocalIP());
        if (session.m_CurrentLobby != "temp") language.SetLobbyCaption(view.ChatFrame, session.m_CurrentLobby);
        if (!session.m_StandAlone) {
            session.ConfiguredGame = session.m_CurrentLobby;
            link.SendData(client_message::EnterLobby(session.m_UserData));
            log.TraceMessage("game lobby connect request to host");
        } else if (session.m_CreatingAccount) {
            const CreateAccount& account = dialogs.CreateAccount;
            link.SendData(client_message::CreateAccount(account.LogonName.Text(), account.Password.Text(),
                                                        account.ConfirmPassword.Text()));
            log.TraceMessage("create account request to host");
        } else {
            link.SendData(client_message::Logon(session.m_UserData, dialogs.UsrNmPwIP.Password.Text()));
            log.TraceMessage("sending logon request to host");
        }
    });
}

void GameLobby::Winsock_DataArrival() {
    trap(__func__, [&] {
        // The run owns the text of its messages: whatever arrives while one of them waits is handled nested, from a
        // text of its own.
        const std::optional<std::string> arrival = link.TakeWholeMessages();
        if (!arrival) {
            log.TraceMessage("no data arrived to the socket");
            return;
        }
        const auto epoch = link.Epoch();
        std::string_view rest = *arrival;
        while (!rest.empty() && link.Epoch() == epoch && !stack.Ending()) {
            std::string_view message = GetCommand(rest, kMessageEnd);
            const std::string_view code = GetCommand(message, kCodeEnd);
            if (session.TracingOn && !code.empty())
                log.TraceMessage(
                    Join("received code ", code, ", ", std::to_string(message.size()), " characters of payload"));
            if (!RunServerCode(*areas, code, message) && !code.empty())
                log.LogError(
                    Join("Error: occured in module Winsock_DataArrival(), unrecognized command: ", code, " received."),
                    false);
        }
    });
}

/// Nothing of the client reacts to it; a host can show the reason beside the dialog that waits.
void GameLobby::Winsock_Failed(ConnectFailure why) {
    trap(__func__, [&] {
        link.SetWhyNot(why);
        log.TraceMessage(Join("the connection to ", session.m_RemoteHost, " does not come: ", ToText(why)));
    });
}

} // namespace ombrin
