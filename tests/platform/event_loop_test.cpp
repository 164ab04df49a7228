#include "platform/posix/event_loop.h"

#include "platform/posix/clock.h"
#include "platform/posix/descriptor.h"

#include <gmock/gmock.h>
#include <poll.h>
#include <unistd.h>

namespace ombrin {
namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

/// A pipe whose reading end is watched.
struct Pipe {
    Pipe() {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe(ends), 0);
        readEnd.Reset(ends[0]);
        writeEnd.Reset(ends[1]);
    }
    void Fill() { EXPECT_EQ(write(writeEnd.Number(), "x", 1), 1); }
    void Empty() {
        char taken = 0;
        EXPECT_EQ(read(readEnd.Number(), &taken, 1), 1);
    }
    Descriptor readEnd, writeEnd;
};

bool Readable(int descriptor, int milliseconds) {
    pollfd looked{descriptor, POLLIN, 0};
    return poll(&looked, 1, milliseconds) == 1;
}

class EventLoopTest : public testing::Test {
protected:
    void RunAll() {
        for (int i = 0; loop.DispatchOne(); ++i) ASSERT_LT(i, 1000) << "the loop finds something for ever";
    }
    std::function<void()> Says(std::string what) {
        return [this, what] { said.push_back(what); };
    }
    /// Fills the pipe, and empties it when it is found ready.
    EventLoop::Watch Watches(Pipe& pipe, std::function<void()> then) {
        pipe.Fill();
        return loop.OnReady(pipe.readEnd.Number(), EventLoop::Interest::Read, [&pipe, then] {
            pipe.Empty();
            then();
        });
    }

    VirtualClock clock;
    EventLoop loop{clock};
    std::vector<std::string> said;
};

TEST_F(EventLoopTest, AlarmsRunInTheOrderOfTheirTimesAndThenOfTheirSetting) {
    const TimePoint start = loop.Now();
    loop.At(start + 2s, Says("late"));
    loop.At(start + 1s, Says("first of two"));
    loop.At(start + 1s, Says("second of two"));
    loop.At(start - 1s, Says("overdue"));
    EXPECT_EQ(loop.NextAlarm(), start - 1s);
    RunAll();
    EXPECT_THAT(said, ElementsAre("overdue")) << "nothing runs before its time";
    clock.MoveTo(start + 1h);
    RunAll();
    EXPECT_THAT(said, ElementsAre("overdue", "first of two", "second of two", "late"));
    EXPECT_EQ(loop.NextAlarm(), TimePoint::max());
}

TEST_F(EventLoopTest, ACancelledAlarmStaysSilentAndANumberIsNotUsedTwice) {
    const Alarms::Id gone = loop.At(loop.Now(), Says("cancelled"));
    Alarms::Id second = Alarms::kNone;
    loop.At(loop.Now(), [&] { loop.Cancel(second); });
    second = loop.At(loop.Now(), Says("cancelled by another alarm"));
    const Alarms::Id done = loop.At(loop.Now(), Says("kept"));
    loop.Cancel(gone);
    loop.Cancel(gone);
    loop.Cancel(Alarms::kNone);
    RunAll();
    loop.Cancel(done);
    EXPECT_THAT(said, ElementsAre("kept"));
    EXPECT_NE(loop.At(loop.Now(), [] {}), done);
}

TEST_F(EventLoopTest, PostsComeFirstThenAlarmsThenDescriptorsOneACall) {
    Pipe pipe;
    const auto watch = Watches(pipe, Says("descriptor"));
    loop.At(loop.Now(), Says("alarm"));
    loop.Post(Says("post"));
    loop.Post(Says("second post"));
    for (std::size_t step = 1; step <= 4; ++step) {
        EXPECT_TRUE(loop.DispatchOne());
        EXPECT_EQ(said.size(), step);
    }
    EXPECT_THAT(said, ElementsAre("post", "second post", "alarm", "descriptor"));
    EXPECT_FALSE(loop.DispatchOne());
}

TEST_F(EventLoopTest, ACallbackMayRunTheLoopAgain) {
    Pipe pipe;
    loop.At(loop.Now(), [&] {
        said.push_back("outer begins");
        RunAll();
        said.push_back("outer ends");
    });
    loop.At(loop.Now(), Says("alarm"));
    const auto watch = Watches(pipe, [&] {
        said.push_back("descriptor begins");
        loop.Post(Says("post"));
        RunAll();
        said.push_back("descriptor ends");
    });
    RunAll();
    EXPECT_THAT(said,
                ElementsAre("outer begins", "alarm", "descriptor begins", "post", "descriptor ends", "outer ends"));
}

TEST_F(EventLoopTest, AWatchMayDropItselfAndAnotherOfTheSameLook) {
    Pipe pipes[2];
    EventLoop::Watch watches[2];
    const std::string text(100, 'x'); // the callback's own data must outlive the drop
    for (std::size_t i = 0; i < 2; ++i) {
        pipes[i].Fill();
        watches[i] = loop.OnReady(pipes[i].readEnd.Number(), EventLoop::Interest::Read, [&, text] {
            for (EventLoop::Watch& watch : watches) watch.Drop();
            said.push_back(text);
        });
    }
    RunAll();
    EXPECT_THAT(said, ElementsAre(text));
}

TEST_F(EventLoopTest, AWatchTellsOnlyWhatItIsInterestedIn) {
    Pipe pipe;
    auto watch = loop.OnReady(pipe.writeEnd.Number(), EventLoop::Interest::Read, Says("ready"));
    EXPECT_FALSE(loop.DispatchOne());
    watch.SetInterest(EventLoop::Interest::Write);
    EXPECT_TRUE(loop.DispatchOne());
    EventLoop::Watch moved = std::move(watch);
    watch.Drop(); // no longer its own
    EXPECT_TRUE(loop.DispatchOne());
    moved = EventLoop::Watch();
    EXPECT_FALSE(loop.DispatchOne());
    EXPECT_FALSE(Readable(loop.Descriptor(), 0)) << "the pipe is no longer looked at";
}

TEST_F(EventLoopTest, WhileHeldOnlyPostsAndSignalsRunAndTheRestFollows) {
    Pipe pipe, signal;
    signal.Fill();
    const auto urgent = loop.OnUrgent(signal.readEnd.Number(), [&] {
        signal.Empty();
        said.push_back("signal");
    });
    const auto watch = Watches(pipe, Says("descriptor"));
    loop.At(loop.Now(), Says("alarm"));
    loop.Hold(true);
    loop.Post(Says("post"));
    RunAll();
    EXPECT_THAT(said, ElementsAre("post", "signal"));
    loop.Hold(false);
    RunAll();
    EXPECT_THAT(said, ElementsAre("post", "signal", "alarm", "descriptor"));
}

TEST_F(EventLoopTest, WhatTheLastLookFoundWaitsAlsoForTheEndOfAHold) {
    Pipe pipes[2];
    std::vector<EventLoop::Watch> watches;
    for (Pipe& pipe : pipes)
        watches.push_back(Watches(pipe, [&] {
            said.push_back("descriptor");
            loop.Hold(true);
        }));
    RunAll();
    EXPECT_EQ(said.size(), 1U);
    loop.Hold(false);
    RunAll();
    EXPECT_EQ(said.size(), 2U);
}

TEST_F(EventLoopTest, WaitReturnsForWhateverIsDueAndSleepsOverTheRest) {
    const SystemClock running;
    EventLoop other(running);
    Pipe own, host;
    const auto watch = loop.OnReady(own.readEnd.Number(), EventLoop::Interest::Read, [] {});
    const struct {
        const char* what;
        EventLoop& looked;
        std::function<void()> given;
        Milliseconds atLeast;
    } kCases[] = {
        {"an alarm of a clock that stands", loop, [&] { loop.At(loop.Now() + 5ms, [] {}); }, 50ms},
        {"an alarm of one that runs", other, [&] { other.At(other.Now() + 5ms, [] {}); }, 4ms},
        {"a post that has run while held", loop, [&] { loop.Hold(true), loop.Post([] {}), RunAll(); }, 50ms},
        {"a post", loop, [&] { loop.Hold(false), loop.Post([] {}); }, 0ms},
        {"a descriptor of the host", loop, [&] { RunAll(), host.Fill(); }, 0ms},
        {"a watched descriptor", loop, [&] { host.Empty(), own.Fill(); }, 0ms},
    };
    for (const auto& row : kCases) {
        row.given();
        const auto before = std::chrono::steady_clock::now();
        row.looked.Wait(host.readEnd.Number(), row.atLeast == 50ms ? Milliseconds(50) : Milliseconds(60s));
        const auto waited = std::chrono::steady_clock::now() - before;
        EXPECT_GE(waited, row.atLeast) << row.what;
        EXPECT_LT(waited, 30s) << row.what;
    }
}

TEST(EventLoopInRealTime, ADescriptorTellsAToolkitWhenThereIsSomethingToDo) {
    SystemClock clock;
    EventLoop loop(clock);
    int count = 0;
    const auto runAll = [&] {
        while (loop.DispatchOne()) {
        }
        return count;
    };
    EXPECT_FALSE(Readable(loop.Descriptor(), 0));
    loop.Post([&] { ++count; });
    loop.Post([&] { ++count; });
    EXPECT_TRUE(Readable(loop.Descriptor(), 0));
    EXPECT_TRUE(loop.DispatchOne());
    EXPECT_TRUE(Readable(loop.Descriptor(), 0)) << "one post is left";
    EXPECT_EQ(runAll(), 2);
    EXPECT_FALSE(Readable(loop.Descriptor(), 0)) << "the toolkit would spin";

    // Two of one time, and later ones that were set first: each makes the descriptor readable in its turn.
    const TimePoint soon = loop.Now() + 5ms;
    const Alarms::Id late = loop.At(soon + 1h, [&] { count += 100; });
    loop.At(soon + 5ms, [&] { ++count; });
    loop.At(soon, [&] { ++count; });
    loop.At(soon, [&] { ++count; });
    loop.Cancel(loop.At(soon, [&] { count += 100; }));
    while (count < 5) {
        ASSERT_TRUE(Readable(loop.Descriptor(), 10'000)) << "an alarm is due and nobody hears of it";
        loop.DispatchOne();
    }
    loop.Cancel(late);
    runAll();
    EXPECT_FALSE(Readable(loop.Descriptor(), 0));

    loop.At(loop.Now(), [&] { ++count; });
    loop.Hold(true);
    Pipe pipe;
    pipe.Fill();
    const auto watch = loop.OnReady(pipe.readEnd.Number(), EventLoop::Interest::Read, [&] { pipe.Empty(); });
    EXPECT_FALSE(Readable(loop.Descriptor(), 20)) << "neither a timer nor a socket counts while held";
    loop.Post([] {});
    EXPECT_TRUE(Readable(loop.Descriptor(), 0));
    EXPECT_TRUE(loop.DispatchOne());
    EXPECT_FALSE(Readable(loop.Descriptor(), 20));
    loop.Hold(false);
    EXPECT_TRUE(Readable(loop.Descriptor(), 10'000));
    EXPECT_EQ(runAll(), 6);
    loop.Cancel(loop.At(loop.Now() + 1ms, [&] { count += 100; }));
    EXPECT_TRUE(Readable(loop.Descriptor(), 10'000)) << "the timer still runs";
    EXPECT_EQ(runAll(), 6);
    EXPECT_FALSE(Readable(loop.Descriptor(), 20)) << "a timer for a cancelled alarm rings once";
}

} // namespace
} // namespace ombrin
