// Takes pictures of the windows of a stage and looks whether their texts can be read.
#pragma once

#include "desktop/stage.h"
#include "pictures/contrast.h"

#include <QPixmap>
#include <QString>

namespace ombrin::test {

class Photographer {
public:
    Photographer(Stage& stage, QString folder) : stage(stage), folder(std::move(folder)) {}

    /// The window in front; a dialog stands on the main window, as a person sees it.
    void Takes(const QString& name);
    /// The main view when it has waited for some time.
    void TakesWaiting(const QString& name);
    /// The pop-up menu of a row, opened by the right button.
    void TakesMenu(Control& list, int row, const QString& name);
    void TakesPopup(const QString& name);

    /// Every picture was saved, and every text in it can be read. What is not so was printed.
    bool IsContent() const { return complaints == 0; }
    int TextsMeasured() const { return contrast.Measured(); }

private:
    QPixmap TakesWindows();
    void Examines(const QWidget& window, const QPixmap& picture, const QString& name);
    void Saves(const QPixmap& picture, const QString& name);
    void Complains(const QString& what);

    Stage& stage;
    QString folder;
    ContrastCheck contrast;
    int complaints = 0;
};

} // namespace ombrin::test
