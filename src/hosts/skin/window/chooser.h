// The window in which a person chooses a skin.
#pragma once

#include "hosts/skin/wardrobe.h"

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

namespace ombrin::skin {

class Chooser : public QDialog {
public:
    explicit Chooser(Wardrobe& wardrobe);
    ~Chooser() override;

private:
    void Fill();
    void LookAt(int row);
    void StopPainting();
    void ShowPicture();
    void Change(const std::function<void()>& change);

    Wardrobe& wardrobe;
    std::vector<Wardrobe::Row> rows;
    QTemporaryDir pictures;
    QProcess painter; ///< this program: a skin's pictures are somebody else's, and must not bring the window down
    QListWidget list;
    QLabel picture, said;
    QPushButton use, builtIn, close;
};

} // namespace ombrin::skin
