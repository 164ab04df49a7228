// The desktop's way to wait: Qt's events with the core's own loop among them.
#pragma once

#include "controls/modal_stack.h"
#include "foundation/runtime_error.h"
#include "platform/posix/event_loop.h"
#include "platform/waiter.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <functional>

namespace ombrin::desktop {

class DesktopLoop : public QObject, public Waiter {
public:
    explicit DesktopLoop(EventLoop& events);
    void Attach(ModalStack& forms, std::function<void()> afterEvents) {
        stack = &forms;
        changed = std::move(afterEvents);
    }

    void RunUntil(const bool& ended) override;
    void Block(Milliseconds length) override;
    void Breathe() override;

    /// Until the end of the program is requested.
    void RunToTheEnd();

    /// The way of input into the core: nothing is let in while it blocks, and the program's end goes no further than
    /// to here. A Qt handler calls this last, as it may wait.
    void Enter(const std::function<void()>& input);

    bool IsBlocking() const { return blocking; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Pump();

    EventLoop& events;
    QSocketNotifier notifier;
    QTimer more; ///< goes on with what a turn left undone
    ModalStack* stack = nullptr;
    std::function<void()> changed;
    const bool* waitingFor = nullptr; ///< the innermost wait's mark
    bool blocking = false;
    QElapsedTimer breathed; ///< since the end of the last breath
};

} // namespace ombrin::desktop
