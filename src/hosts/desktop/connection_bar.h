// The bar over the main view that tells of a connection in trouble and leads back to the lobby.
#pragma once

#include "hosts/desktop/board.h"
#include "hosts/desktop/connection_watch.h"
#include "session/game_lobby.h"

#include <QFrame>
#include <QLabel>
#include <QPointer>

namespace ombrin::desktop {

/// Shows itself and goes away by what the client's state is; takes no focus and stands over no control. Lives as long
/// as the board shows frames.
class ConnectionBar : public QObject {
public:
    ConnectionBar(GameLobby& client, Board& board, Alarms& alarms, QWidget& window);
    ~ConnectionBar() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ConnectionState See() const;
    void Look();
    void Show(Trouble trouble);
    void Make();
    void Place();
    void LogOnAgain();
    void Go();

    GameLobby& client;
    Board& board;
    Alarms& alarms;
    QWidget& window;
    ConnectionWatch watch;
    Alarms::Id due = Alarms::kNone;
    Trouble shown = Trouble::None;
    bool goes = false; ///< the next step is on its way
    QPointer<QFrame> bar;
    QLabel* text = nullptr;
};

} // namespace ombrin::desktop
