// The painters of all control models, and the frame in which they apply what has changed.
#pragma once

#include "controls/user_input.h"
#include "foundation/code_page.h"
#include "hosts/desktop/desktop_loop.h"

#include <QPoint>
#include <QString>
#include <QTextDocument>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace ombrin::desktop {

class Board;

/// Shows one control model by one widget. The widget belongs to its parent widget, the painter to the board.
class Painter : public QObject {
public:
    Painter(Board& board, Control& control, QWidget* widget);
    ~Painter() override;

    QWidget* Widget() const { return widget; }
    Control& Model() const { return control; }

    /// What the model says now, once a frame in which it has changed.
    void Apply();

protected:
    virtual void ApplyOwn() = 0;
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// A key that the model may want; true when the widget must not see it.
    virtual bool TakesKey(QKeyEvent&) { return false; }

    Board& board;

private:
    void Enable(bool on);

    Control& control;
    QWidget* widget;
    const QWidget* standIn = nullptr; ///< has the keys while this widget, which had them, is disabled; a mark only
};

class Board : public QObject, public ModelWatcher {
public:
    Board(DesktopLoop& loop, UserInput& input, const CodePage& page);
    ~Board() override;

    DesktopLoop& loop;
    UserInput& input;

    QPoint menuPlace; ///< where the next pop-up menu opens, on the screen
    std::function<std::string()> ownName = [] { return std::string(); }; ///< whose lines in a chat are the user's

    const CodePage& Page() const { return page; }
    QString Text(std::string_view bytes) const { return QString::fromUtf8(page.ToUtf8(bytes)); }
    /// Nothing when the code page cannot hold it.
    std::optional<std::string> Bytes(const QString& text) const { return page.FromUtf8(text.toStdString()); }

    /// A tool tip that says exactly this: Qt takes for markup what looks like it.
    static QString Tip(const QString& text) { return text.isEmpty() ? QString() : Qt::convertFromPlainText(text); }

    /// Makes the painter of a control, as a child of `parent`.
    Painter& Paint(Control& control, QWidget* parent);
    Painter* PainterOf(const Control& control) const;

    void Dirty(Control& control) override;
    /// A frame is painted soon, at most sixty a second.
    void Schedule();
    /// Runs in each frame, for what is no control.
    void EachFrame(std::function<void()> look) { looks.push_back(std::move(look)); }
    /// Applies everything that has changed at once.
    void Frame();

    /// Input that a refusal answers with a short sign instead of silence.
    void Refused(const Refusal& refusal);

    bool IsApplying() const { return applying; }
    /// What Qt tells of the focus meanwhile is nothing that a person has done.
    void Quietly(const std::function<void()>& show);
    /// True once, when the focus of a container has come to this control.
    bool FocusMovedTo(const Control& control) {
        return std::exchange(focuses[&control.Parent()], &control) != &control;
    }

    template <class Handler>
    void Input(const Handler& handler) {
        if (applying) return;
        loop.Enter([&] { Refused(handler(input)); });
    }

private:
    const CodePage& page;
    QTimer frame;
    bool applying = false;
    std::vector<Control*> dirty;
    std::vector<std::function<void()>> looks;
    std::unordered_map<const Control*, std::unique_ptr<Painter>> painters;
    std::unordered_map<const Container*, const Control*> focuses; ///< as they were shown last
};

} // namespace ombrin::desktop
