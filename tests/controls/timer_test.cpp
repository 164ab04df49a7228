#include "controls/timer.h"

#include "platform/posix/clock.h"
#include "platform/posix/event_loop.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

/// A timer of one second, started at 0; the test turns the clock.
struct TimerStage {
    TimerStage() {
        timer.Tick = [this] { ticks.push_back(Now()); };
    }
    long Now() const { return (clock.Now() - start).count(); }
    /// Time passes as it does for a client that has nothing else to do.
    void PassUntil(long millisecond) {
        const TimePoint until = start + Milliseconds(millisecond);
        while (loop.NextAlarm() <= until) {
            clock.MoveTo(std::max(clock.Now(), loop.NextAlarm()));
            loop.DispatchOne();
        }
        clock.MoveTo(until);
    }

    VirtualClock clock;
    EventLoop loop{clock};
    const TimePoint start = clock.Now();
    Container view{"View"};
    Timer timer{view, loop, "Timer", Milliseconds(1000), true};
    std::vector<long> ticks;
};

TEST(Timer, TicksAtEachIntervalSinceItWasLastSet) {
    const auto on = [](TimerStage& s) { s.timer.SetOn(true); };
    const auto off = [](TimerStage& s) { s.timer.SetOn(false); };
    const auto every = [](long interval) {
        return [interval](TimerStage& s) { s.timer.SetInterval(Milliseconds(interval)); };
    };
    const auto busyUntil4600 = [](TimerStage& s) { s.clock.MoveTo(s.start + Milliseconds(4600)); };
    const struct {
        const char* what;
        std::vector<std::pair<long, std::function<void(TimerStage&)>>> steps; ///< at their times
        long end;
        std::vector<long> ticks;
    } kCases[] = {
        {"left alone", {}, 3500, {1000, 2000, 3000}},
        {"off and on again, which waits a whole interval", {{900, off}, {5500, on}, {6000, on}}, 7000, {6500}},
        {"the same interval, and a new one", {{600, every(1000)}, {1500, every(300)}}, 2200, {1000, 1800, 2100}},
        {"a new interval while it is off", {{600, off}, {700, every(100)}}, 3000, {}},
        {"an interval of nothing", {{0, every(0)}, {0, off}, {0, on}, {5000, every(500)}}, 6000, {5500, 6000}},
        {"what a busy machine missed is not made up for", {{0, busyUntil4600}}, 6100, {4600, 5000, 6000}},
    };
    for (const auto& c : kCases) {
        TimerStage stage;
        for (const auto& [time, step] : c.steps) {
            stage.PassUntil(time);
            step(stage);
        }
        stage.PassUntil(c.end);
        EXPECT_EQ(stage.ticks, c.ticks) << c.what;
    }
}

TEST(Timer, ItsRoutineMayWaitFailOrStopIt) {
    TimerStage stage;
    stage.timer.Tick = [&] {
        stage.ticks.push_back(stage.Now());
        if (stage.ticks.size() == 1) stage.PassUntil(3400);
        if (stage.ticks.size() == 2) throw std::runtime_error("failed");
        if (stage.ticks.size() == 3) stage.timer.SetOn(false);
    };
    EXPECT_THROW(stage.PassUntil(4000), std::runtime_error);
    { const Timer gone(stage.view, stage.loop, "Gone", Milliseconds(500), true); }
    stage.PassUntil(9000);
    EXPECT_THAT(stage.ticks, testing::ElementsAre(1000, 4000, 5000)) << "none while the first one waits";
    EXPECT_EQ(stage.loop.NextAlarm(), TimePoint::max()) << "nor does one that is gone leave its alarm";
}

} // namespace
} // namespace ombrin
