// The windows of forms and boxes: they appear and disappear with their models.
#pragma once

#include "hosts/desktop/board.h"
#include "hosts/desktop/main_window.h"

#include <QDialog>
#include <map>

namespace ombrin::desktop {

/// A window over one form. The window manager's close box, and Escape, mean what the form's close box means.
class FormWindow : public QDialog {
public:
    FormWindow(Form& form, Board& board, QWidget* parent);
    Form& Model() const { return form; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

    Form& form;
    Board& board;
};

class Windows : public FormObserver {
public:
    Windows(GameLobby& client, Board& board, MainWindow& main);
    ~Windows() override;

    void FormShown(Form& form) override;
    void FormRaised(Form& form) override;
    void FormHidden(Form& form) override;
    void MenuOpened(Menu& menu) override;

    /// The window of a form that is or was shown; nullptr for none.
    QWidget* WindowOf(const Form& form) const;

private:
    FormWindow* Make(Form& form);
    void Place(Form& form, QWidget& window) const;
    static void Hide(QWidget& window);
    void Focus(Form& form);

    GameLobby& client;
    Board& board;
    MainWindow& main;
    std::map<const Form*, FormWindow*> windows; ///< of dialogs, which stay
};

} // namespace ombrin::desktop
