// The window of a dialog: its rows of controls, and a size that follows what they say.
#pragma once

#include "hosts/desktop/dialog_layouts.h"
#include "hosts/desktop/windows.h"

class QGridLayout;

namespace ombrin::desktop {

/// As wide as its layout says, or wider where a caption needs it, and as high as its texts are at that width.
class DialogWindow : public FormWindow {
public:
    DialogWindow(Form& form, const DialogLayout& layout, Board& board, QWidget* parent);
    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    /// The title and the height follow the model, which may choose its texts when the window is up already.
    void Follow();

    QGridLayout& Grid() { return *grid; }

private:
    QWidget* WidgetNamed(std::string_view name, QWidget* parent);
    void Add(const DialogRow& row);
    void AddFrames(const DialogRow& row);
    void AddPair(const DialogRow& row, QWidget& face, QGridLayout& rows);
    void AddEntry(const DialogRow& row);
    void AddButtons(const DialogRow& row, QWidget& face, QGridLayout& rows);
    void AddPassing(const DialogRow& row);
    void AddProgress(const DialogRow& row);
    void AddPictured(const DialogRow& row);

    QGridLayout* grid;
    int needed = 0;       ///< pixels of height, when it was looked at last
    bool settled = false; ///< has been looked at since it was shown
};

} // namespace ombrin::desktop
