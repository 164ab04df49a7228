// The one event loop of every host, over epoll.
#pragma once

#include "platform/alarms.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <unordered_map>

namespace ombrin {

/// One thread. Dispatches one callback at a time, so that a callback may run the loop again, drop its own handle or
/// any other. A toolkit watches Descriptor(), which is readable whenever DispatchOne has something to do.
class EventLoop : public Alarms {
public:
    enum class Interest : unsigned { Read = 1, Write = 2, ReadWrite = 3 };

    /// A descriptor that is looked at while the handle lives.
    class Watch {
    public:
        Watch() = default;
        Watch(Watch&& other) noexcept : loop(other.loop), id(other.id) { other.loop = nullptr; }
        Watch& operator=(Watch&& other) noexcept;
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;
        ~Watch() { Drop(); }
        void Drop();
        void SetInterest(Interest interest);

    private:
        friend class EventLoop;
        Watch(EventLoop* loop, std::uint64_t id) : loop(loop), id(id) {}
        EventLoop* loop = nullptr;
        std::uint64_t id = 0;
    };

    /// Alarms fall due by this clock, which may be a virtual one.
    explicit EventLoop(const Clock& clock);
    ~EventLoop() override;
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    Watch OnReady(int descriptor, Interest interest, std::function<void()> callback);
    /// Read interest that runs also while the loop is held: the way of signals.
    Watch OnUrgent(int descriptor, std::function<void()> callback);
    void Post(std::function<void()> callback);

    TimePoint Now() const override { return clock.Now(); }
    Id At(TimePoint when, std::function<void()> callback) override;
    void Cancel(Id id) override;

    /// Runs at most one callback: a post, a due alarm or a ready descriptor. False when there was none.
    bool DispatchOne();
    /// While held, only posts and what is urgent run: no socket is read and no timer fires.
    void Hold(bool held);

    /// Sleeps until something may be due: a descriptor (also `other`, -1 for none), the next alarm, or `limit`.
    void Wait(int other, Milliseconds limit);
    /// When the next alarm falls due, or TimePoint::max().
    TimePoint NextAlarm() const;
    /// epoll descriptor, for a toolkit; alarms keep it readable through a timer descriptor. While held it tells only of
    /// what may run, so that a toolkit does not spin on a socket that may not be read.
    int Descriptor() const { return poller; }

private:
    struct Watched {
        int poller, descriptor;
        Interest interest;
        std::function<void()> callback;
    };
    /// Descriptors that are looked at together.
    struct Lookout {
        int poller;
        std::deque<std::uint64_t> ready; ///< told by the last look, not yet dispatched
    };

    bool DispatchPost();
    bool DispatchAlarm();
    bool DispatchReady(Lookout& lookout);
    Watch AddWatch(const Lookout& lookout, int descriptor, Interest interest, std::function<void()> callback);
    void ArmTimer();

    const Clock& clock;
    int poller; ///< timer, waker, urgent and, unless held, usual
    Lookout usual, urgent;
    int timer;
    int waker;
    bool held = false;
    std::uint64_t nextId = 1;
    std::deque<std::function<void()>> posts;
    std::map<std::pair<TimePoint, Id>, std::function<void()>> alarms;
    std::unordered_map<Id, TimePoint> alarmTimes;
    std::unordered_map<std::uint64_t, std::shared_ptr<Watched>> watches;
};

} // namespace ombrin
