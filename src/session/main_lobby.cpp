#include "session/main_lobby.h"

#include "foundation/runtime_error.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

namespace ombrin {

MainLobby::MainLobby(Network& network, ModalStack& stack, Log& log)
    : log(log), input(face, stack), limit(log, "games", kMostGames),
      socket(network.MakeSocket("Winsock", {[this] { Winsock_Connect(); },
                                            [this](std::size_t) { Winsock_DataArrival(); }, [this] { Winsock_Close(); },
                                            [this](ConnectFailure why) {
                                                this->log.TraceMessage(
                                                    Join("the entry host does not answer: ", ToText(why)));
                                            }})) {
    face.GameList.Click = [this] { GameList_Click(); };
}

void MainLobby::UserControl_ReadProperties(const StoredProperties::Bag& bag) {
    Properties.ReadProperties(bag);
    const auto given = bag.find("IPAddress");
    const auto* host = given == bag.end() ? nullptr : std::get_if<std::string>(&given->second);
    IPAddress = host == nullptr ? std::string() : *host;
}

void MainLobby::UserControl_Show() {
    input.ShowView(true);
    rest.clear();
    tooLong = false;
    socket->RemoteHost = IPAddress;
    socket->RemotePort = kPort;
    socket->LocalPort = 0;
    try {
        socket->Connect();
    } catch (const RuntimeError& error) { // the user is told of nothing here, and sees an empty list
        log.TraceMessage(Join("the entry host cannot be asked: ", error.what()));
    }
}

/// The one message without an end.
void MainLobby::Winsock_Connect() { socket->SendData(client_message::LobbyNames()); }

void MainLobby::Winsock_DataArrival() {
    const std::string arrival = socket->GetData();
    std::string_view s = arrival;
    for (std::size_t end = s.find(kFieldEnd); end != std::string_view::npos; end = s.find(kFieldEnd)) {
        AddRow(s.substr(0, end));
        s.remove_prefix(end + 1);
    }
    // The rest is no row. A name that the network has cut in two is put together again with the next arrival.
    tooLong = tooLong || rest.size() + s.size() > kLongestName;
    rest = tooLong ? std::string() : rest.append(s);
    const RowList& rows = face.GameList.rows;
    if (rows.Count() > 0) face.GameList.Select(rows.At(0), true);
}

void MainLobby::AddRow(std::string_view name) {
    if (tooLong || rest.size() + name.size() > kLongestName) {
        if (!std::exchange(saidTooLong, true))
            log.TraceMessage("the entry host has names that are too long for a game");
    } else if (!limit.IsFull(face.GameList.rows)) {
        face.GameList.Add(Join(rest, name));
    }
    rest.clear();
    tooLong = false;
}

void MainLobby::Winsock_Close() { socket->Close(); }

void MainLobby::GameList_Click() { m_GameLobby = Join("GameListBox=", face.GameList.SelectedText()); }

} // namespace ombrin
