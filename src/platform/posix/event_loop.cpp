#include "platform/posix/event_loop.h"

#include "foundation/runtime_error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace ombrin {

namespace {

unsigned ToEpoll(EventLoop::Interest interest) {
    const auto bits = static_cast<unsigned>(interest);
    return ((bits & 1U) != 0 ? EPOLLIN | EPOLLRDHUP : 0U) | ((bits & 2U) != 0 ? EPOLLOUT : 0U);
}

void Add(int poller, int descriptor, unsigned events, std::uint64_t id = 0) {
    epoll_event event{};
    event.events = events;
    event.data.u64 = id;
    if (epoll_ctl(poller, EPOLL_CTL_ADD, descriptor, &event) != 0)
        throw RuntimeError(ErrorNumber::DeviceIo, "a descriptor cannot be watched");
}

int Checked(int descriptor) {
    if (descriptor < 0) throw RuntimeError(ErrorNumber::DeviceIo, "no descriptor is left for the event loop");
    return descriptor;
}

/// Takes what makes a timer or a waker readable; false when it was not.
bool Drain(int counter) {
    std::uint64_t count = 0;
    return read(counter, &count, sizeof count) > 0;
}

} // namespace

EventLoop::Watch& EventLoop::Watch::operator=(Watch&& other) noexcept {
    if (this != &other) {
        Drop();
        loop = other.loop;
        id = other.id;
        other.loop = nullptr;
    }
    return *this;
}

void EventLoop::Watch::Drop() {
    if (loop == nullptr) return;
    const auto found = loop->watches.find(id);
    if (found != loop->watches.end()) {
        epoll_ctl(found->second->poller, EPOLL_CTL_DEL, found->second->descriptor, nullptr);
        loop->watches.erase(found);
    }
    loop = nullptr;
}

void EventLoop::Watch::SetInterest(Interest interest) {
    if (loop == nullptr) return;
    Watched& watched = *loop->watches.at(id);
    if (watched.interest == interest) return;
    watched.interest = interest;
    epoll_event event{};
    event.events = ToEpoll(interest);
    event.data.u64 = id;
    epoll_ctl(watched.poller, EPOLL_CTL_MOD, watched.descriptor, &event);
}

EventLoop::EventLoop(const Clock& clock)
    : clock(clock), poller(Checked(epoll_create1(EPOLL_CLOEXEC))), usual{Checked(epoll_create1(EPOLL_CLOEXEC)), {}},
      urgent{Checked(epoll_create1(EPOLL_CLOEXEC)), {}},
      timer(Checked(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC))),
      waker(Checked(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))) {
    Add(poller, timer, EPOLLIN);
    Add(poller, waker, EPOLLIN);
    Add(poller, urgent.poller, EPOLLIN);
    Add(poller, usual.poller, EPOLLIN);
}

EventLoop::~EventLoop() {
    close(waker);
    close(timer);
    close(urgent.poller);
    close(usual.poller);
    close(poller);
}

EventLoop::Watch EventLoop::AddWatch(const Lookout& lookout, int descriptor, Interest interest,
                                     std::function<void()> callback) {
    const std::uint64_t id = nextId++;
    Add(lookout.poller, descriptor, ToEpoll(interest), id);
    watches.emplace(id, std::make_shared<Watched>(Watched{lookout.poller, descriptor, interest, std::move(callback)}));
    return Watch(this, id);
}

EventLoop::Watch EventLoop::OnReady(int descriptor, Interest interest, std::function<void()> callback) {
    return AddWatch(usual, descriptor, interest, std::move(callback));
}

EventLoop::Watch EventLoop::OnUrgent(int descriptor, std::function<void()> callback) {
    return AddWatch(urgent, descriptor, Interest::Read, std::move(callback));
}

void EventLoop::Post(std::function<void()> callback) {
    posts.push_back(std::move(callback));
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(waker, &one, sizeof one);
}

Alarms::Id EventLoop::At(TimePoint when, std::function<void()> callback) {
    const Id id = nextId++;
    alarms.emplace(std::pair(when, id), std::move(callback));
    alarmTimes.emplace(id, when);
    if (alarms.begin()->first.second == id) ArmTimer();
    return id;
}

void EventLoop::Cancel(Id id) {
    const auto found = alarmTimes.find(id);
    if (found == alarmTimes.end()) return;
    alarms.erase({found->second, id});
    alarmTimes.erase(found);
}

TimePoint EventLoop::NextAlarm() const { return alarms.empty() ? TimePoint::max() : alarms.begin()->first.first; }

void EventLoop::ArmTimer() {
    itimerspec spec{};
    if (!alarms.empty() && !held && clock.RunsByItself()) {
        const auto left = std::max(Milliseconds(1), std::chrono::duration_cast<Milliseconds>(NextAlarm() - Now()));
        spec.it_value.tv_sec = left.count() / 1000;
        spec.it_value.tv_nsec = left.count() % 1000 * 1'000'000;
    }
    timerfd_settime(timer, 0, &spec, nullptr);
}

bool EventLoop::DispatchPost() {
    if (posts.empty()) return false;
    const auto callback = std::move(posts.front());
    posts.pop_front();
    if (posts.empty()) Drain(waker);
    callback();
    return true;
}

bool EventLoop::DispatchAlarm() {
    if (alarms.empty() || NextAlarm() > Now()) return false;
    const auto due = alarms.begin();
    alarmTimes.erase(due->first.second);
    const auto callback = std::move(due->second);
    alarms.erase(due);
    ArmTimer();
    callback();
    return true;
}

bool EventLoop::DispatchReady(Lookout& lookout) {
    auto& ready = lookout.ready;
    if (ready.empty()) {
        std::array<epoll_event, 64> events{};
        const int count = epoll_wait(lookout.poller, events.data(), static_cast<int>(events.size()), 0);
        for (int i = 0; i < count; ++i) ready.push_back(events[static_cast<std::size_t>(i)].data.u64);
    }
    while (!ready.empty()) {
        const std::uint64_t id = ready.front();
        ready.pop_front();
        const auto found = watches.find(id);
        if (found == watches.end()) continue; // dropped since the look
        const auto watched = found->second;   // lives through its own callback
        watched->callback();
        return true;
    }
    return false;
}

bool EventLoop::DispatchOne() {
    if (DispatchPost() || DispatchReady(urgent)) return true;
    if (held) return false;
    if (DispatchAlarm()) return true;
    if (Drain(timer)) ArmTimer(); // it was set for an alarm that is cancelled
    return DispatchReady(usual);
}

void EventLoop::Hold(bool hold) {
    if (held == hold) return;
    held = hold;
    if (held)
        epoll_ctl(poller, EPOLL_CTL_DEL, usual.poller, nullptr);
    else
        Add(poller, usual.poller, EPOLLIN);
    ArmTimer();
}

void EventLoop::Wait(int other, Milliseconds limit) {
    if (!posts.empty() || !urgent.ready.empty()) return;
    if (!held) {
        if (!usual.ready.empty()) return;
        if (!alarms.empty() && clock.RunsByItself())
            limit = std::min(limit, std::max(Milliseconds(0), std::chrono::ceil<Milliseconds>(NextAlarm() - Now())));
    }
    std::array<pollfd, 2> looked{pollfd{poller, POLLIN, 0}, pollfd{other, POLLIN, 0}};
    const int time = limit > Milliseconds(INT32_MAX) ? -1 : static_cast<int>(limit.count());
    poll(looked.data(), looked.size(), time);
}

} // namespace ombrin
