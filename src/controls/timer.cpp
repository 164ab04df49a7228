#include "controls/timer.h"

#include <algorithm>

namespace ombrin {

Timer::Timer(Container& parent, Alarms& alarms, std::string name, Milliseconds interval, bool on)
    : Control(parent, ControlKind::Timer, std::move(name)), alarms(alarms), interval(interval) {
    SetOn(on);
}

void Timer::SetOn(bool value) {
    if (on == value) return;
    on = value;
    alarms.Cancel(alarm);
    alarm = Alarms::kNone;
    if (on) Arm(alarms.Now() + interval);
}

void Timer::SetInterval(Milliseconds value) {
    if (interval == value) return;
    interval = value;
    if (!on) return;
    SetOn(false);
    SetOn(true);
}

void Timer::Arm(TimePoint when) {
    due = when;
    alarm = alarms.At(when, [this] { Due(); });
}

void Timer::Due() {
    // Ticks that a busy machine has missed are not made up for.
    Arm(std::max(due + interval, alarms.Now()));
    if (running || !Tick) return;
    struct Running {
        bool& flag;
        explicit Running(bool& flag) : flag(flag) { flag = true; }
        ~Running() { flag = false; }
    } mark(running);
    Tick();
}

} // namespace ombrin
