// SIGINT and SIGTERM as an event like any other.
#pragma once

#include "platform/posix/descriptor.h"
#include "platform/posix/event_loop.h"

#include <functional>

namespace ombrin {

/// Runs the callback for each signal that comes, also while the loop is held. SIGPIPE is ignored from then on.
class EndSignals {
public:
    /// Keeps both signals from ending the process. A program whose libraries start threads calls it before they do;
    /// otherwise the constructor does it.
    static void Block();
    /// They end the process again: for a program that has failed and waits only for its user to have read why.
    static void Unblock();

    EndSignals(EventLoop& loop, std::function<void()> ended);

private:
    Descriptor descriptor;
    EventLoop::Watch watch;
};

} // namespace ombrin
