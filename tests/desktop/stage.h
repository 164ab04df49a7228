// The real windows over a played world: a script of steps, each run when the window is at rest, by whatever wait is
// innermost then.
#pragma once

#include "hosts/desktop/board.h"
#include "hosts/desktop/main_window.h"
#include "hosts/desktop/windows.h"
#include "support/recorded_world.h"

#include <QObject>
#include <deque>
#include <functional>
#include <string>

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
    View& view = client.MainView();
    Dialogs& forms = client.Forms();

    void Step(std::function<void()> step) { steps.push_back(std::move(step)); }
    /// Waits in the script until it holds; gives up, and fails the run, after ten seconds.
    void Until(std::function<bool()> holds, std::string what);
    /// Shows the window and runs the steps, then ends the program. False when a wait was in vain.
    bool Run();

    // The server's side
    recording::PlayedSocket& Server() { return *world.network.last; }
    void Accepts();
    void Sends(const std::string& data);

    /// The window in front: a dialog, a box, or the main window.
    QWidget* Front();
    QWidget* WidgetOf(Control& control) { return board.PainterOf(control)->Widget(); }

private:
    void Next();

    std::deque<std::function<void()>> steps;
    bool failed = false;
};

} // namespace ombrin::test
