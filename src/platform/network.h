// TCP connections as the client uses them.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace ombrin {

/// Why a connection that was asked for does not come.
enum class ConnectFailure { None, Refused, UnknownHost, Unreachable, TimedOut };

/// "refused", "unknown host", "unreachable", "timed out"; empty for None.
std::string_view ToText(ConnectFailure why);

enum class SocketState : int { Closed = 0, Resolving = 4, Connecting = 6, Connected = 7, ClosedByPeer = 8, Failed = 9 };

/// One socket of a control; it can be connected again after a close. Events come from the event loop, one at a time,
/// never from inside a call. A socket may be closed or connected anew, but not destroyed, inside its own event.
class Socket {
public:
    struct Events {
        std::function<void()> connected;
        std::function<void(std::size_t bytes)> dataArrival; ///< GetData has something
        std::function<void()> closed;                       ///< the peer has closed; everything it sent has arrived
        std::function<void(ConnectFailure)> failed;         ///< the connection does not come
    };

    virtual ~Socket() = default;

    std::string RemoteHost; ///< name or address
    int RemotePort = 0;
    int LocalPort = 0; ///< 0 lets the system choose; after Connect the port in use, 0 while the name is looked up

    virtual SocketState State() const = 0;
    bool IsConnected() const { return State() == SocketState::Connected; }
    /// Address of this end; while there is no connection, an address of this machine.
    virtual std::string LocalIP() const = 0;

    /// Returns at once; `connected` or `failed` comes later. Raises 10048 (address in use), 10065 (host unreachable)
    /// and other numbers when that is known at once.
    virtual void Connect() = 0;
    /// No event comes afterwards, also none that was already due.
    virtual void Close() = 0;
    /// Queues the whole text. Raises 10055 when the peer has not taken kQueueLimit bytes.
    virtual void SendData(std::string_view data) = 0;
    /// All that has arrived and was not yet taken.
    virtual std::string GetData() = 0;

    static constexpr std::size_t kQueueLimit = std::size_t{4} * 1024 * 1024;
};

class Network {
public:
    virtual ~Network() = default;
    /// `name` is the control's name and tells the sockets of a client apart.
    virtual std::unique_ptr<Socket> MakeSocket(const std::string& name, Socket::Events events) = 0;
};

} // namespace ombrin
