// A timer of the main view.
#pragma once

#include "controls/control.h"
#include "platform/alarms.h"

namespace ombrin {

/// Ticks each `interval` while it is on; an interval of 0 stops it. It does not tick again while its own handler is
/// still on the stack; a tick that is due meanwhile is left out.
class Timer : public Control {
public:
    Timer(Container& parent, Alarms& alarms, std::string name, Milliseconds interval, bool on);
    ~Timer() override { alarms.Cancel(alarm); }

    bool On() const { return on; }
    /// Turning it on starts a whole interval; one that is on already goes on as it was.
    void SetOn(bool value);
    Milliseconds Interval() const { return interval; }
    void SetInterval(Milliseconds value);

    std::function<void()> Tick;

private:
    void Restart();
    void Arm(TimePoint when);
    void Due();

    Alarms& alarms;
    Milliseconds interval;
    bool on = false, running = false;
    TimePoint due{};
    Alarms::Id alarm = Alarms::kNone;
};

} // namespace ombrin
