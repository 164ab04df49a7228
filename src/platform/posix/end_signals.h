// SIGINT and SIGTERM as an event like any other.
#pragma once

#include "platform/posix/descriptor.h"
#include "platform/posix/event_loop.h"

#include <functional>

namespace ombrin {

/// Blocks both signals for the process, before any thread is started, and runs the callback for each that comes, also
/// while the loop is held. SIGPIPE is ignored from then on.
class EndSignals {
public:
    EndSignals(EventLoop& loop, std::function<void()> ended);

private:
    Descriptor descriptor;
    EventLoop::Watch watch;
};

} // namespace ombrin
