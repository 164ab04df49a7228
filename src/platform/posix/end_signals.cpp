#include "platform/posix/end_signals.h"

#include <csignal>
#include <sys/signalfd.h>

namespace ombrin {

namespace {

sigset_t BothSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

} // namespace

void EndSignals::Block() {
    const sigset_t signals = BothSignals();
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

void EndSignals::Unblock() {
    const sigset_t signals = BothSignals();
    sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}

EndSignals::EndSignals(EventLoop& loop, std::function<void()> ended) {
    Block();
    const sigset_t signals = BothSignals();
    descriptor.Reset(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
    watch = loop.OnUrgent(descriptor.Number(), [this, ended = std::move(ended)] {
        signalfd_siginfo info{};
        [[maybe_unused]] const auto taken = read(descriptor.Number(), &info, sizeof info);
        ended();
    });
}

} // namespace ombrin
