#include "session/connector.h"

#include "foundation/text.h"

namespace ombrin {

void Connector::Start(std::string_view line) {
    alarms.Cancel(retry);
    trace = line;
    desk.session.m_LocalIP = desk.link.Winsock().LocalIP();
    Try();
}

void Connector::Try() {
    std::optional<Failure> failure;
    try {
        desk.link.Connect(desk.session.m_RemoteHost, ToLong(desk.session.m_RemotePort));
    } catch (const RuntimeError& error) {
        failure = Failure{error.Number(), error.what()};
    }
    if (!failure) {
        desk.TraceMessage(Join(trace, std::to_string(desk.link.Winsock().LocalPort)));
        return;
    }
    const auto epoch = desk.link.Epoch();
    if (failure->number == static_cast<int>(ErrorNumber::AddressInUse)) {
        desk.TraceMessage("PORT_IN_USE error occured, going to retry with a new port #");
    } else if (failure->number == static_cast<int>(ErrorNumber::HostUnreachable)) {
        desk.link.SetWhyNot(ConnectFailure::Unreachable);
        desk.trap.log.LogError(Join("Error: host in unreachable.  Error number: ", std::to_string(failure->number)),
                               true);
    } else {
        throw RuntimeError(failure->number, failure->description);
    }
    if (desk.link.Epoch() != epoch) return; // given up under the box
    retry = alarms.At(alarms.Now() + kRetryPause, [this] {
        std::optional<Failure> again;
        try {
            Try();
        } catch (const RuntimeError& error) {
            again = Failure{error.Number(), error.what()};
        }
        if (again) ReportFailure(*again);
    });
}

void Connector::GiveUp() {
    alarms.Cancel(retry);
    desk.link.Close();
}

void Connector::ReportFailure(const Failure& failure) {
    desk.trap.log.LogError(
        Join("Unknown Error: in module UserControl_Show().  Error number: ", std::to_string(failure.number),
             ",  Error Line: 0,  Description: ", failure.description),
        true);
}

} // namespace ombrin
