// A network that tells what happens on its sockets: around real ones for the console, or with a peer that a test plays.
#pragma once

#include "platform/network.h"
#include "platform/recording/event.h"

#include <deque>
#include <map>
#include <optional>
#include <vector>

namespace ombrin::recording {

/// Passes everything on to another network and writes it down.
class TellingNetwork : public Network {
public:
    TellingNetwork(Network& real, Journal journal, bool tellData)
        : real(real), journal(std::move(journal)), tellData(tellData) {}
    std::unique_ptr<Socket> MakeSocket(const std::string& name, Socket::Events events) override;

    /// Error numbers that Connect raises, one a try, 0 for none; the last stays in force.
    std::deque<int> connectErrors;

private:
    friend class TellingSocket;
    Network& real;
    Journal journal;
    bool tellData;
};

/// A socket whose other end is played by calls. Events come at once, from inside those calls.
class PlayedSocket : public Socket {
public:
    explicit PlayedSocket(Events events) : events(std::move(events)) {}

    SocketState State() const override { return state; }
    std::string LocalIP() const override { return "192.0.2.10"; }
    void Connect() override;
    void Close() override;
    void SendData(std::string_view data) override;
    std::string GetData() override { return std::exchange(received, {}); }

    /// The peer's side.
    void Accept();
    void Fail(ConnectFailure why);
    void Sends(std::string_view data);
    void CloseByPeer();

    std::vector<std::string> sent; ///< each call of SendData
    std::deque<int> connectErrors; ///< raised by Connect, one a try; 0 for none
    int connects = 0;

private:
    Events events;
    SocketState state = SocketState::Closed;
    std::string received;
};

class PlayedNetwork : public Network {
public:
    std::unique_ptr<Socket> MakeSocket(const std::string& name, Socket::Events events) override;
    /// Owned by whoever asked for it. Raises std::out_of_range where nobody did.
    PlayedSocket& Named(const std::string& name) { return *sockets.at(name); }

private:
    std::map<std::string, PlayedSocket*> sockets;
};

} // namespace ombrin::recording
