#include "hosts/desktop/board.h"

#include "hosts/desktop/painters.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace ombrin::desktop {

namespace {

constexpr int kFrame = 16; // ms

} // namespace

Painter::Painter(Board& board, Control& control, QWidget* widget) : board(board), control(control), widget(widget) {
    widget->setObjectName(QString::fromStdString(control.Name()));
    widget->installEventFilter(this);
    control.Watch(&board);
}

Painter::~Painter() { control.Watch(nullptr); }

void Painter::Apply() {
    control.Looked();
    widget->setVisible(control.Visible());
    if (widget->isEnabled() != control.Enabled()) Enable(control.Enabled());
    ApplyOwn();
    // Once: afterwards a person may have moved it without the client, which refuses him while it waits.
    if (control.HasFocus() && control.Visible() && widget->isVisible() && board.FocusMovedTo(control))
        widget->setFocus();
}

/// Qt hands the keys on when their widget is disabled. They come back with it, unless the person has moved on.
void Painter::Enable(bool on) {
    const QWidget& window = *widget->window();
    const bool hadKeys = window.focusWidget() == widget;
    widget->setEnabled(on);
    const QWidget* const hasKeys = window.focusWidget();
    if (on && standIn != nullptr && standIn == hasKeys && control.HasFocus()) widget->setFocus();
    standIn = !on && hadKeys ? hasKeys : nullptr;
}

bool Painter::eventFilter(QObject* watched, QEvent* event) {
    if (watched != widget) return false;
    if (event->type() == QEvent::FocusIn && !board.IsApplying()) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::MouseFocusReason ||
            reason == Qt::ShortcutFocusReason)
            QMetaObject::invokeMethod(
                this, [this] { board.loop.Enter([this] { board.input.Focus(control); }); }, Qt::QueuedConnection);
    }
    if (event->type() == QEvent::KeyPress) return TakesKey(*static_cast<QKeyEvent*>(event));
    return false;
}

Board::Board(DesktopLoop& loop, UserInput& input, const CodePage& page) : loop(loop), input(input), page(page) {
    frame.setSingleShot(true);
    frame.setTimerType(Qt::PreciseTimer);
    connect(&frame, &QTimer::timeout, this, [this] { Frame(); });
}

Board::~Board() = default;

Painter& Board::Paint(Control& control, QWidget* parent) {
    auto painter = MakePainter(*this, control, parent);
    Painter& made = *painter;
    painters[&control] = std::move(painter);
    dirty.push_back(&control);
    Schedule();
    return made;
}

Painter* Board::PainterOf(const Control& control) const {
    const auto found = painters.find(&control);
    return found == painters.end() ? nullptr : found->second.get();
}

void Board::Dirty(Control& control) {
    dirty.push_back(&control);
    Schedule();
}

void Board::Schedule() {
    if (!frame.isActive()) frame.start(kFrame);
}

void Board::Frame() {
    applying = true;
    const auto changed = std::exchange(dirty, {});
    for (Control* control : changed)
        if (Painter* painter = PainterOf(*control)) painter->Apply();
    for (const auto& look : looks) look();
    applying = false;
}

void Board::Quietly(const std::function<void()>& show) {
    const bool before = std::exchange(applying, true);
    show();
    applying = before;
}

void Board::Refused(const Refusal& refusal) {
    if (refusal) QApplication::beep();
}

} // namespace ombrin::desktop
