#include "session/wire/link.h"

#include "foundation/text.h"
#include "session/wire/codec.h"

namespace ombrin {

Link::Link(Network& network, Session& session, Messages& messages, Log& log, Socket::Events events)
    : session(session), messages(messages), log(log), socket(network.MakeSocket("Winsock", std::move(events))) {}

void Link::SendData(std::string_view data, const LanguageText& notConnected) {
    if (!socket->IsConnected()) {
        messages.DisplayMessage(notConnected);
        return;
    }
    if (session.TracingOn) {
        std::string_view rest = data.substr(data.find(kCodeEnd) + 1);
        log.TraceMessage(
            Join("sent code ", rest.substr(0, rest.find(kCodeEnd)), ", ", std::to_string(data.size()), " characters"));
    }
    socket->SendData(data);
}

void Link::StartEpoch() {
    ++epoch;
    tail.clear();
    skipping = false;
}

void Link::Connect(const std::string& host, int port) {
    StartEpoch();
    whyNot = ConnectFailure::None;
    socket->RemoteHost = host;
    socket->RemotePort = port;
    socket->LocalPort = 0;
    socket->Connect();
}

void Link::Close() {
    StartEpoch();
    socket->Close();
}

std::optional<std::string> Link::TakeWholeMessages() {
    std::string data = socket->GetData();
    if (data.empty()) return std::nullopt;
    const bool hasEnd = data.find(kMessageEnd) != std::string::npos;
    if (skipping) {
        const std::size_t end = data.find(kMessageEnd);
        if (end == std::string::npos) return std::string();
        data.erase(0, end + 1);
        skipping = false;
    }
    const std::size_t end = data.rfind(kMessageEnd);
    std::string whole;
    if (end == std::string::npos) {
        tail += data;
    } else {
        whole = std::move(tail);
        whole.append(data, 0, end + 1);
        tail = data.substr(end + 1);
    }
    if (hasEnd && tail.size() == 1 && (tail.front() < '0' || tail.front() > '9')) tail.clear();
    if (tail.size() > kTailLimit) {
        tail = {};
        skipping = true;
        log.TraceMessage(Join("a message from the server has no end within ", std::to_string(kTailLimit),
                              " characters and is thrown away"));
    }
    return whole;
}

} // namespace ombrin
