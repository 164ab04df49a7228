#include "controls/timer.h"

namespace ombrin {

Timer::Timer(Container& parent, Alarms& alarms, std::string name, Milliseconds interval, bool on)
    : Control(parent, ControlKind::Timer, std::move(name)), alarms(alarms), interval(interval) {
    SetOn(on);
}

void Timer::SetOn(bool value) {
    if (on == value) return;
    on = value;
    Restart();
}

void Timer::SetInterval(Milliseconds value) {
    if (interval == value) return;
    interval = value;
    Restart();
}

void Timer::Restart() {
    alarms.Cancel(alarm);
    alarm = Alarms::kNone;
    if (on && interval > Milliseconds(0)) Arm(alarms.Now() + interval);
}

void Timer::Arm(TimePoint when) {
    due = when;
    alarm = alarms.At(when, [this] { Due(); });
}

void Timer::Due() {
    // Ticks that a busy machine has missed are not made up for, and the beat stays.
    const auto missed = (alarms.Now() - due) / interval;
    Arm(due + (missed + 1) * interval);
    if (running || !Tick) return;
    struct Running {
        bool& flag;
        explicit Running(bool& flag) : flag(flag) { flag = true; }
        ~Running() { flag = false; }
    } mark(running);
    Tick();
}

} // namespace ombrin
