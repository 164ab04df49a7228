#include "platform/recording/recording_network.h"

#include "foundation/runtime_error.h"

namespace ombrin::recording {

class TellingSocket : public Socket {
public:
    TellingSocket(TellingNetwork& network, std::string name, Events given)
        : network(network), name(std::move(name)), events(std::move(given)) {
        inner = network.real.MakeSocket(this->name, {[this] {
                                                         LocalPort = inner->LocalPort;
                                                         Told("connected");
                                                         events.connected();
                                                     },
                                                     [this](std::size_t bytes) { events.dataArrival(bytes); },
                                                     [this] {
                                                         Told("closed");
                                                         events.closed();
                                                     },
                                                     [this](ConnectFailure why) {
                                                         Told("failed", {{"why", std::string(ToText(why))}});
                                                         events.failed(why);
                                                     }});
    }

    SocketState State() const override { return inner->State(); }
    std::string LocalIP() const override { return inner->LocalIP(); }

    void Connect() override {
        network.journal({"connect", {{"host", RemoteHost}, {"port", std::int64_t{RemotePort}}, {"socket", name}}});
        auto& errors = network.connectErrors;
        const int error = errors.empty() ? 0 : errors.front();
        if (errors.size() > 1) errors.pop_front();
        if (error == static_cast<int>(ErrorNumber::AddressInUse)) throw RuntimeError(ErrorNumber::AddressInUse);
        if (error == static_cast<int>(ErrorNumber::HostUnreachable)) throw RuntimeError(ErrorNumber::HostUnreachable);
        if (error != 0) throw RuntimeError(error, "Application-defined error");
        inner->RemoteHost = RemoteHost;
        inner->RemotePort = RemotePort;
        inner->LocalPort = LocalPort;
        inner->Connect();
        LocalPort = inner->LocalPort;
    }

    void Close() override {
        inner->Close();
        LocalPort = 0;
    }

    void SendData(std::string_view data) override {
        inner->SendData(data);
        if (network.tellData) Told("sent", {{"data", std::string(data)}});
    }

    std::string GetData() override {
        std::string data = inner->GetData();
        if (network.tellData) Told("received", {{"data", data}});
        return data;
    }

private:
    void Told(const char* event, std::vector<std::pair<std::string, Event::Value>> more = {}) {
        more.insert(more.begin(), {"socket", name});
        network.journal({event, std::move(more)});
    }

    TellingNetwork& network;
    std::string name;
    Events events;
    std::unique_ptr<Socket> inner;
};

std::unique_ptr<Socket> TellingNetwork::MakeSocket(const std::string& name, Socket::Events events) {
    return std::make_unique<TellingSocket>(*this, name, std::move(events));
}

void PlayedSocket::Connect() {
    ++connects;
    if (!connectErrors.empty()) {
        const int error = connectErrors.front();
        connectErrors.pop_front();
        if (error != 0) throw RuntimeError(error, "Application-defined error");
    }
    state = SocketState::Connecting;
}

void PlayedSocket::Close() {
    state = SocketState::Closed;
    received.clear();
}

void PlayedSocket::SendData(std::string_view data) {
    if (state != SocketState::Connected) throw RuntimeError(ErrorNumber::InvalidProcedureCall, "not connected");
    sent.emplace_back(data);
}

void PlayedSocket::Accept() {
    state = SocketState::Connected;
    events.connected();
}

void PlayedSocket::Fail(ConnectFailure why) {
    state = SocketState::Failed;
    events.failed(why);
}

void PlayedSocket::Sends(std::string_view data) {
    received.append(data);
    events.dataArrival(received.size());
}

void PlayedSocket::CloseByPeer() {
    state = SocketState::ClosedByPeer;
    events.closed();
}

std::unique_ptr<Socket> PlayedNetwork::MakeSocket(const std::string& name, Socket::Events events) {
    auto socket = std::make_unique<PlayedSocket>(std::move(events));
    sockets[name] = socket.get();
    return socket;
}

} // namespace ombrin::recording
