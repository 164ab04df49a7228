// The connection to the lobby server: its socket, what waits of an arrival, and the sending of messages.
#pragma once

#include "foundation/log.h"
#include "platform/network.h"
#include "session/wire/session.h"
#include "ui/text/messages.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ombrin {

class Link {
public:
    /// A message whose end has not come after so many bytes is thrown away up to its end, with a line in the log.
    static constexpr std::size_t kTailLimit = std::size_t{4} * 1024 * 1024;

    Link(Network& network, Session& session, Messages& messages, Log& log, Socket::Events events);

    Socket& Winsock() { return *socket; }
    bool IsConnected() const { return socket->IsConnected(); }
    /// Why the last connection that was asked for did not come.
    ConnectFailure WhyNot() const { return whyNot; }
    void SetWhyNot(ConnectFailure why) { whyNot = why; }

    /// Sends the whole text; without a connection it tells the user, and the text is lost.
    void SendData(std::string_view data) { SendData(data, text::kError18); }
    void SendData(std::string_view data, const LanguageText& notConnected);

    /// Differs from one connection to the next: a routine that comes back from a wait in another epoch belongs to a
    /// connection that is gone, and sends nothing.
    std::uint64_t Epoch() const { return epoch; }

    /// Starts a connection and a new epoch. Raises what Socket::Connect raises.
    void Connect(const std::string& host, int port);
    /// Closes; what had arrived and was not taken is gone.
    void Close();

    /// Takes what has arrived, joined to what waited, up to the last end of a message; the rest waits on. Nothing when
    /// the socket had no data. A single character behind the last end is thrown away by the cutting rule, unless it is
    /// a digit, with which the next message can begin.
    std::optional<std::string> TakeWholeMessages();

private:
    void StartEpoch();

    Session& session;
    Messages& messages;
    Log& log;
    std::unique_ptr<Socket> socket;
    std::string tail;
    bool skipping = false; ///< the end of a message that was too long has not come yet
    std::uint64_t epoch = 0;
    ConnectFailure whyNot = ConnectFailure::None;
};

} // namespace ombrin
