#include "hosts/library/game_lobby_parts.h"
#include "hosts/library/guarded.h"

namespace ombrin::host {

std::string GameLobby::Parts::Bytes(std::string_view utf8) const { return Held(machine.page, utf8); }

GameLobby::GameLobby(Machine& machine) : parts(Guarded([&] { return std::make_unique<Parts>(machine.Inside()); })) {
    parts->control.CloseClient = [this] {
        if (CloseClient) CloseClient();
    };
    parts->machine.lobbies.push_back(this);
}

GameLobby::~GameLobby() {
    std::erase(parts->machine.lobbies, this);
    try {
        parts->control.UserControl_Terminate();
    } catch (const ProgramEnding&) { // a box that nobody can answer any more
    }
}

void GameLobby::Show(const std::optional<std::string>& userData) {
    Guarded([&] { parts->control.UserControl_Show(userData ? std::optional(parts->Bytes(*userData)) : std::nullopt); });
}

std::string GameLobby::Test() const { return parts->Text(parts->control.Test); }

void GameLobby::SetTest(const std::string& text) {
    Guarded([&] { parts->control.Test = parts->Bytes(text); });
}

std::string GameLobby::m_DPGameList() const { return parts->Text(parts->control.m_DPGameList()); }

void GameLobby::Set_m_DPGameList(const std::string& list) {
    Guarded([&] { parts->control.m_DPGameList() = parts->Bytes(list); });
}

GameLobby::Handle GameLobby::objDX() const { return parts->control.objDX(); }
GameLobby::Handle GameLobby::objDP4() const { return parts->control.objDP4(); }
GameLobby::Handle GameLobby::objDPLobby() const { return parts->control.objDPLobby(); }
GameLobby::Handle GameLobby::objDPEnumServProv() const { return parts->control.objDPEnumServProv(); }
GameLobby::Handle GameLobby::objDPEnumLocApps() const { return parts->control.objDPEnumLocApps(); }
GameLobby::Handle GameLobby::objDPLobbyConnection() const { return parts->control.objDPLobbyConnection(); }
GameLobby::Handle GameLobby::objDPSessionData() const { return parts->control.objDPSessionData(); }

void GameLobby::Configure_Click() {
    Guarded([&] { parts->control.Configure_Click(); });
}

void GameLobby::DisplayPMDialog() {
    Guarded([&] { parts->control.DisplayPMDialog(); });
}

std::string GameLobby::SetAXParams(const std::string& pUserName) {
    return Guarded([&] { return parts->Text(parts->control.SetAXParams(parts->Bytes(pUserName))); });
}

std::string GameLobby::UserName() const { return parts->Text(parts->control.UserName()); }

void GameLobby::SetUserName(const std::string& name) {
    Guarded([&] {
        parts->stored.values.PropertyChanged = PropertyChanged;
        parts->control.SetUserName(parts->Bytes(name));
    });
}

bool GameLobby::IsSocketConnected() {
    return Guarded([&] { return parts->control.IsSocketConnected(); });
}

void GameLobby::SetGameLobby(const std::string& Buf) {
    Guarded([&] { parts->control.SetGameLobby(parts->Bytes(Buf)); });
}

void GameLobby::DisplayMainLobby(const std::string& Buf) {
    Guarded([&] { parts->control.DisplayMainLobby(parts->Bytes(Buf)); });
}

void GameLobby::AccountCreated(const std::string& Buf) {
    Guarded([&] { parts->control.AccountCreated(parts->Bytes(Buf)); });
}

void GameLobby::DisplayLogonBanner() {
    Guarded([&] { parts->control.DisplayLogonBanner(); });
}

void GameLobby::DisplayCreateAccount(bool ShowLogon) {
    Guarded([&] { parts->control.DisplayCreateAccount(ShowLogon); });
}

void GameLobby::ProcessLogonBanner() {
    Guarded([&] { parts->control.ProcessLogonBanner(); });
}

std::string GameLobby::ConfiguredGame() const { return parts->Text(parts->control.ConfiguredGame()); }

void GameLobby::SetConfiguredGame(const std::string& game) {
    Guarded([&] { parts->control.ConfiguredGame() = parts->Bytes(game); });
}

std::string GameLobby::DPGameList() const { return parts->Text(parts->control.DPGameList()); }

void GameLobby::SetDPGameList(const std::string& list) {
    Guarded([&] { parts->control.DPGameList() = parts->Bytes(list); });
}

void GameLobby::InitDirectX() {
    Guarded([&] { parts->control.InitDirectX(); });
}

void GameLobby::EnumDPLocApps() {
    Guarded([&] { parts->control.EnumDPLocApps(); });
}

void GameLobby::LaunchDPGame(const std::string& LaunchIP) {
    Guarded([&] { parts->control.LaunchDPGame(parts->Bytes(LaunchIP)); });
}

void GameLobby::CheckAutoStart() {
    Guarded([&] { parts->control.CheckAutoStart(); });
}

bool GameLobby::SendData(const std::string& Data) {
    return Guarded([&] { return parts->control.SendData(parts->Bytes(Data)); });
}

void GameLobby::ProcessRoomPassword() {
    Guarded([&] { parts->control.ProcessRoomPassword(); });
}

std::int32_t GameLobby::SetValueEx(const std::string& hKey, const std::string& sValueName, std::int32_t lType,
                                   const RegistryValue& vValue) {
    return Guarded([&] {
        const auto* text = std::get_if<std::string>(&vValue);
        const RegistryValue held = text == nullptr ? vValue : RegistryValue(parts->Bytes(*text));
        return parts->control.SetValueEx(parts->Bytes(hKey), parts->Bytes(sValueName), lType, held);
    });
}

std::int32_t GameLobby::QueryValueEx(const std::string& lhKey, const std::string& szValueName, RegistryValue& vValue) {
    return Guarded([&] {
        const auto result = parts->control.QueryValueEx(parts->Bytes(lhKey), parts->Bytes(szValueName), vValue);
        if (auto* text = std::get_if<std::string>(&vValue)) *text = parts->Text(*text);
        return result;
    });
}

void GameLobby::CloseSocket() {
    Guarded([&] { parts->control.CloseSocket(); });
}

void GameLobby::btnAddBuddy_Click() {
    Guarded([&] { parts->control.btnAddBuddy_Click(); });
}

void GameLobby::btnRemoveBuddy_Click() {
    Guarded([&] { parts->control.btnRemoveBuddy_Click(); });
}

bool GameLobby::IsConnected() const { return parts->control.Connection().IsConnected(); }
bool GameLobby::IsInLobby() const { return IsConnected() && parts->control.Marks().m_UserListSeen; }
std::string GameLobby::m_UserName() const { return parts->Text(parts->control.Marks().m_UserName); }
std::string GameLobby::m_CurrentLobby() const { return parts->Text(parts->control.Marks().m_CurrentLobby); }
std::string GameLobby::m_CurrentRoom() const { return parts->Text(parts->control.Marks().m_CurrentRoom); }

Controls& GameLobby::View() { return parts->view; }

void GameLobby::ReadProperties(const Bag& bag) {
    Guarded([&] { parts->control.UserControl_ReadProperties(parts->stored.Taken(bag)); });
}

Control::Stored& GameLobby::Properties() const { return parts->stored; }

} // namespace ombrin::host
