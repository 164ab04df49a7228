// Starting the connection, and starting it again where the system says that another try may work.
#pragma once

#include "lobby/desk.h"
#include "platform/alarms.h"

namespace ombrin {

/// Under 10048 (address in use) and 10065 (host unreachable) it tries again after a pause, for as long as nobody gives
/// up; under any other failure it raises what the socket raised.
class Connector {
public:
    /// Between two tries, so that a machine without a network is not kept busy and a user can cancel.
    static constexpr Milliseconds kRetryPause{1000};
    /// The line of a connection that is under way, without the local port.
    static constexpr std::string_view kUsualTrace = "attempting to connect to the server.  Local port: ";

    Connector(Desk desk, Alarms& alarms) : desk(desk), alarms(alarms) {}
    ~Connector() { alarms.Cancel(retry); }
    Connector(const Connector&) = delete;
    Connector& operator=(const Connector&) = delete;

    /// To m_RemoteHost and m_RemotePort; `trace` is kUsualTrace, or another one like it. Returns at once, but for the
    /// box of an unreachable host. Raises 13 or 6 when the port is no number.
    void Start(std::string_view trace);
    /// Gives up: no further try, and the socket is closed.
    void GiveUp();

    /// The last line of defence of the routines that start a connection.
    void ReportFailure(const Failure& failure);

private:
    void Try();

    Desk desk;
    Alarms& alarms;
    Alarms::Id retry = Alarms::kNone;
    std::string trace;
};

} // namespace ombrin
