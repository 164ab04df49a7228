// The entry control: asks a host for the names of its games, and tells the container which of them was clicked.
#pragma once

#include "controls/list_models.h"
#include "controls/simple_models.h"
#include "controls/user_input.h"
#include "foundation/log.h"
#include "lobby/row_limit.h"
#include "platform/network.h"
#include "session/control_events.h"
#include "session/stored_properties.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace ombrin {

class MainLobby {
public:
    static constexpr int kPort = 80;
    /// What a host can make this control hold: rows, and characters of a name. The rest is left out, with trace lines.
    static constexpr std::size_t kMostGames = 10'000, kLongestName = 1'024;

    /// Everything outlives the control.
    MainLobby(Network& network, ModalStack& stack, Log& log);
    MainLobby(const MainLobby&) = delete;
    MainLobby& operator=(const MainLobby&) = delete;

    /// `GameListBox=` and the row that was clicked last: for the container, in the form of a query parameter.
    std::string m_GameLobby;

    /// The stored properties; the setter of each reports its change there.
    StoredProperties Properties{StoredProperties::Bag{{"BytesReceived", 0}}};
    void Refresh() {}
    void Connect(std::string_view /*RemoteHost*/ = {}, std::string_view /*RemotePort*/ = {}) {}
    void SendData(std::string_view /*Data*/) {}

    std::function<void(std::int32_t bytesTotal)> DataArrival; ///< never raised, like the others
    ControlEvents Events;

    void UserControl_InitProperties(const std::string& ambientFont) { Properties.InitProperties(ambientFont); }
    /// `IPAddress`, the host to ask, comes in this way alone and is never written.
    void UserControl_ReadProperties(const StoredProperties::Bag& bag);
    void UserControl_WriteProperties(StoredProperties::Bag& bag) const { Properties.WriteProperties(bag); }
    /// Asks the host. Its answer comes later; a host that cannot be reached leaves the list empty.
    void UserControl_Show();

    // For hosts that paint and drive it
    struct Face : Page {
        Face() : Page("MainLobby") {}
        ListBox GameList{*this, "GameList"};
        Label Label1{*this, "Label1", "Games"};
    };
    Face& MainView() { return face; }
    UserInput& Input() { return input; }
    bool IsConnected() const { return socket->IsConnected(); }

private:
    void Winsock_Connect();
    void Winsock_DataArrival();
    void Winsock_Close();
    void GameList_Click();
    void AddRow(std::string_view name);

    Log& log;
    Face face;
    UserInput input;
    RowLimit limit;
    std::string IPAddress;
    std::string rest;     ///< of a name whose end has not come
    bool tooLong = false; ///< that name is one that is left out
    bool saidTooLong = false;
    std::unique_ptr<Socket> socket; ///< last, as its events use all the others
};

} // namespace ombrin
