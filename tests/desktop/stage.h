// The real windows over a played world: a script of steps, each run when the window is at rest, by whatever wait is
// innermost then.
#pragma once

#include "hosts/desktop/board.h"
#include "hosts/desktop/connection_bar.h"
#include "hosts/desktop/main_window.h"
#include "hosts/desktop/windows.h"
#include "support/recorded_world.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <deque>
#include <functional>
#include <ostream>
#include <string>

/// For failed expectations.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace ombrin::test {

class Stage : public QObject {
public:
    /// `language` is in force from the start; empty for a first start that asks.
    explicit Stage(const std::string& language);
    ~Stage() override;

    RecordedWorld world;
    desktop::DesktopLoop loop{world.loop};
    GameLobby client{world.ForClient(loop)};
    desktop::Board board{loop, client.Input(), CodePage::Usual()};
    desktop::MainWindow window{client, board};
    desktop::Windows windows{client, board, window};
    desktop::ConnectionBar bar{client, board, world.loop, window};
    View& view = client.MainView();
    Dialogs& forms = client.Forms();

    void Step(std::function<void()> step) { steps.push_back(std::move(step)); }
    /// Waits in the script until it holds; gives up, and fails the run, after so many milliseconds.
    void Until(std::function<bool()> holds, std::string what, int patience = 10'000);
    /// Shows the window and runs the steps, then ends the program. False when a wait was in vain.
    bool Run();

    // The server's side
    recording::PlayedSocket& Server() { return world.network.Named("Winsock"); }
    void Accepts();
    void Sends(const std::string& data);

    /// The oldest message that was not looked at yet, empty when there is none.
    std::string Heard();

    // The person, by what the window system hands to the window that has the focus. A key or button goes up in a step
    // of its own, as its going down may wait in a form.
    void Presses(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void Types(const QString& text);
    /// By the Tab key; gives up, and fails the run, when it comes around.
    void TabsTo(Control& control);
    void Clicks(Control& control, Qt::MouseButton button = Qt::LeftButton);
    void ClicksRow(Control& list, int row, Qt::MouseButton button = Qt::LeftButton);
    void DoubleClicksRow(Control& list, int row);
    void Click(const std::function<QWidget*()>& target, const std::function<QPoint()>& place,
               Qt::MouseButton button = Qt::LeftButton);
    /// A button of the box in front, or an entry of the open menu, by the mouse.
    void ClicksText(const QString& caption);

    /// The window in front: a dialog, a box, or the main window.
    QWidget* Front();
    QWidget* WidgetOf(const Control& control) { return board.PainterOf(control)->Widget(); }
    /// The shown widget of that control has the keys.
    bool HasKeys(const Control& control);
    QPoint PlaceOfRow(const Control& list, int row); ///< in the list's viewport

    // Ways that many tests go
    /// The languages that the client ships with, and this one of them in force; empty for none yet.
    void Speaks(const std::string& language);
    /// From the start to the lobby Go, with ann, bob and cid; the server may say all in one breath.
    void LogsOn(bool atOnce = false);

private:
    void Next();
    void Look(const std::function<bool()>& holds, const std::string& what, int patience, const QElapsedTimer& since);
    void TabOn(const Control& control, int left);
    void Fail(const std::string& what);

    std::deque<std::function<void()>> steps;
    std::size_t heard = 0;
    bool failed = false;
    bool inInput = false; ///< of several events, between which Qt dispatches; the next step waits for the last one
};

} // namespace ombrin::test
