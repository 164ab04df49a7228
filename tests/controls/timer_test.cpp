#include "controls/timer.h"

#include "platform/posix/clock.h"
#include "platform/posix/event_loop.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A timer of one second, started at 0; the test turns the clock.
class TimerTest : public testing::Test {
protected:
    TimerTest() {
        timer.Tick = [this] { ticks.push_back(Now()); };
    }
    long Now() const { return (clock.Now() - start).count(); }
    void RunDue() {
        for (int i = 0; loop.DispatchOne(); ++i) ASSERT_LT(i, 100) << "it ticks for ever";
    }
    /// Time passes as it does for a client that has nothing else to do.
    void PassUntil(long millisecond) {
        const TimePoint until = start + Milliseconds(millisecond);
        while (loop.NextAlarm() <= until) {
            clock.MoveTo(loop.NextAlarm());
            ASSERT_NO_FATAL_FAILURE(RunDue());
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

TEST_F(TimerTest, ItTicksAtEachIntervalAndNotBefore) {
    PassUntil(999);
    EXPECT_THAT(ticks, IsEmpty());
    PassUntil(3500);
    EXPECT_THAT(ticks, ElementsAre(1000, 2000, 3000));
}

TEST_F(TimerTest, SwitchedOffItIsSilentAndOnAgainItWaitsAWholeInterval) {
    PassUntil(900);
    timer.SetOn(false);
    PassUntil(5500);
    timer.SetOn(true);
    PassUntil(6000);
    timer.SetOn(true);
    PassUntil(7000);
    EXPECT_THAT(ticks, ElementsAre(6500));
}

TEST_F(TimerTest, ANewIntervalStartsAtOnceAndTheSameOneChangesNothing) {
    PassUntil(600);
    timer.SetInterval(Milliseconds(1000));
    PassUntil(1500);
    timer.SetInterval(Milliseconds(300));
    PassUntil(2200);
    timer.SetOn(false);
    timer.SetInterval(Milliseconds(100));
    PassUntil(3000);
    EXPECT_THAT(ticks, ElementsAre(1000, 1800, 2100));
}

TEST_F(TimerTest, AnIntervalOfNothingStopsItUntilItGetsAnother) {
    timer.SetInterval(Milliseconds(0));
    timer.SetOn(false);
    timer.SetOn(true);
    PassUntil(5000);
    EXPECT_THAT(ticks, IsEmpty());
    EXPECT_TRUE(timer.On());
    timer.SetInterval(Milliseconds(500));
    PassUntil(6000);
    EXPECT_THAT(ticks, ElementsAre(5500, 6000));
}

TEST_F(TimerTest, TicksThatABusyMachineMissedAreNotMadeUpFor) {
    clock.MoveTo(start + Milliseconds(4600));
    RunDue();
    EXPECT_THAT(ticks, ElementsAre(4600));
    PassUntil(6100);
    EXPECT_THAT(ticks, ElementsAre(4600, 5000, 6000)) << "the beat is the old one";
}

TEST_F(TimerTest, ItDoesNotTickAgainWhileItsOwnRoutineWaits) {
    timer.Tick = [&] {
        ticks.push_back(Now());
        if (ticks.size() == 1) PassUntil(3400);
        ticks.push_back(-Now());
    };
    PassUntil(4000);
    EXPECT_THAT(ticks, ElementsAre(1000, -3400, 4000, -4000));
}

TEST_F(TimerTest, ARoutineThatFailsOrStopsItsTimerLeavesItUsable) {
    timer.Tick = [&] {
        ticks.push_back(Now());
        if (ticks.size() == 1) throw std::runtime_error("failed");
        timer.SetOn(false);
    };
    EXPECT_THROW(PassUntil(1000), std::runtime_error);
    PassUntil(5000);
    EXPECT_THAT(ticks, ElementsAre(1000, 2000));
}

TEST_F(TimerTest, ATimerThatIsGoneTakesItsAlarmAlong) {
    Container otherView("Other");
    {
        Timer other(otherView, loop, "Other", Milliseconds(500), true);
        timer.SetOn(false);
        EXPECT_EQ(loop.NextAlarm(), start + Milliseconds(500));
    }
    EXPECT_EQ(loop.NextAlarm(), TimePoint::max());
}

} // namespace
} // namespace ombrin
