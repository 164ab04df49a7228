// The window that a person starts: the main view, and the logon dialog over it.
#pragma once

#include "hosts/desktop/room_face.h"

#include <QLabel>
#include <QWidget>

namespace ombrin::desktop {

/// Remembers its size and place for each screen; closing it means what the close box of the top form means, and without
/// a form the end.
class MainWindow : public QWidget {
public:
    MainWindow(GameLobby& client, Board& board);
    ~MainWindow() override;

    /// Shows the empty window at once, makes its controls when it has been painted, and goes on with `then`.
    void Opens(std::function<void()> then);
    /// Makes the controls now. Nothing of the client may be shown before.
    void Populate();

    /// The logon dialog covers the view.
    void ShowLogon(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeView();
    void MakeLogon();
    bool IsCovered() const;
    void PaintSkin();
    void SpeakAnew();
    void PlaceControls();
    void LookAtView();
    void LookWhoHasKeys();
    bool Waits() const;
    QString WhatIsWaitedFor() const;
    void SayWhatIsWaitedFor();
    void RememberPlace() const;
    void RestorePlace();

    QPixmap background; ///< the skin at the window's size
    Picture shownSkin;
    QString spoken; ///< a caption of the window's own, as it was shown
    GameLobby& client;
    Board& board;
    std::function<void()> opened;
    QWidget* logon = nullptr;
    QWidget* cover = nullptr;
    bool hasStarted = false;
    QWidget* veil = nullptr;   ///< once the view is disabled for good
    QLabel* waiting = nullptr; ///< shows what the view waits for
    std::optional<RoomFace> room;
    QTimer waits;
    bool isWaiting = false;
    bool isOpenToKeys = false; ///< nothing stands before the view, and it takes input
};

} // namespace ombrin::desktop
