#include "hosts/desktop/desktop_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <algorithm>
#include <utility>

namespace ombrin::desktop {

namespace {

/// A turn of the core's events at most, so that painting and input get theirs.
constexpr qint64 kTurn = 8; // ms

/// Between two breaths at least.
constexpr qint64 kBreath = 33; // ms

} // namespace

DesktopLoop::DesktopLoop(EventLoop& events) : events(events), notifier(events.Descriptor(), QSocketNotifier::Read) {
    more.setSingleShot(true);
    connect(&notifier, &QSocketNotifier::activated, this, [this] { Pump(); });
    connect(&more, &QTimer::timeout, this, [this] { Pump(); });
    QCoreApplication::instance()->installEventFilter(this);
}

void DesktopLoop::RunUntil(const bool& ended) {
    const bool* const outer = std::exchange(waitingFor, &ended);
    while (!ended && !stack->Ending())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    waitingFor = outer;
}

void DesktopLoop::RunToTheEnd() {
    const bool never = false;
    RunUntil(never);
}

void DesktopLoop::Pump() {
    if (blocking) return;
    QElapsedTimer turn;
    turn.start();
    bool left = true;
    while (left && turn.elapsed() < kTurn && !stack->Ending() && (waitingFor == nullptr || !*waitingFor)) {
        try {
            left = events.DispatchOne();
        } catch (const ProgramEnding&) { // every wait on the way out looks at its own mark
        }
    }
    if (left) more.start(0);
    changed();
}

void DesktopLoop::Enter(const std::function<void()>& input) {
    if (blocking || stack->Ending()) return;
    try {
        input();
    } catch (const ProgramEnding&) {
    }
    changed();
}

void DesktopLoop::Block(Milliseconds length) {
    if (blocking) return;
    blocking = true;
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < length.count()) {
        const auto left = length.count() - waited.elapsed();
        QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers,
                                        static_cast<int>(std::min<qint64>(left, 10)));
        QThread::msleep(static_cast<unsigned long>(std::min<qint64>(left, 5)));
    }
    blocking = false;
    more.start(0); // what the notifier told meanwhile
}

void DesktopLoop::Breathe() {
    if (blocking || (breathed.isValid() && breathed.elapsed() < kBreath)) return;
    blocking = true;
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    blocking = false;
    breathed.start();
    more.start(0); // as after a blocking wait
}

/// Clicks and keys of a blocking wait are dropped, not kept for later.
bool DesktopLoop::eventFilter(QObject*, QEvent* event) {
    if (!blocking) return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace ombrin::desktop
