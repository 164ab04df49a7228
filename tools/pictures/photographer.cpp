#include "pictures/photographer.h"

#include "hosts/desktop/look.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <cstdio>

namespace ombrin::test {

namespace {

constexpr int kTitleHeight = 24;

/// A dialog with the title that a window manager gives it.
void PaintDialog(QPainter& painter, const QWidget& dialog, const QPixmap& picture, const QPoint& place) {
    const desktop::Scheme& colours = desktop::Look::Colours();
    const QRect title(place - QPoint(0, kTitleHeight), QSize(dialog.width(), kTitleHeight));
    painter.fillRect(title, colours.Shade("head"));
    painter.setPen(colours.Shade("text"));
    painter.setFont(dialog.font());
    painter.drawText(title, Qt::AlignCenter, dialog.windowTitle());
    painter.drawPixmap(place, picture);
    painter.setPen(colours.Shade("mark"));
    painter.drawRect((title | QRect(place, dialog.size())).adjusted(-1, -1, 0, 0));
}

} // namespace

void Photographer::Takes(const QString& name) {
    stage.Step([this] { stage.board.Frame(); });
    stage.Step([this, name] {
        stage.board.Frame();
        const QWidget& front = *stage.Front();
        Examines(front, const_cast<QWidget&>(front).grab(), name);
        Saves(TakesWindows(), name);
    });
}

void Photographer::TakesWaiting(const QString& name) {
    stage.Until([this] { return stage.window.findChild<QLabel*>(QStringLiteral("waiting"))->isVisible(); },
                "the sign of waiting");
    Takes(name);
}

void Photographer::TakesMenu(Control& list, int row, const QString& name) {
    stage.ClicksRow(list, row, Qt::RightButton);
    TakesPopup(name);
}

void Photographer::TakesPopup(const QString& name) {
    stage.Step([this, name] {
        QWidget* popup = QApplication::activePopupWidget();
        if (popup == nullptr) return Complains(name + QStringLiteral(": nothing has popped up"));
        QPixmap picture = TakesWindows();
        const QPixmap shown = popup->grab();
        Examines(*popup, shown, name);
        QPainter(&picture).drawPixmap(stage.window.mapFromGlobal(popup->pos()), shown);
        Saves(picture, name);
        popup->close();
    });
}

QPixmap Photographer::TakesWindows() {
    QPixmap picture = stage.window.grab();
    QWidget* front = stage.Front();
    if (front == &stage.window) return picture;
    QPainter painter(&picture);
    PaintDialog(painter, *front, front->grab(), stage.window.mapFromGlobal(front->pos()));
    return picture;
}

void Photographer::Examines(const QWidget& window, const QPixmap& picture, const QString& name) {
    for (const QString& complaint : contrast.Complaints(window, picture.toImage()))
        Complains(name + QStringLiteral(": contrast ") + complaint);
}

void Photographer::Saves(const QPixmap& picture, const QString& name) {
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    if (!picture.save(path)) Complains(QStringLiteral("cannot write ") + path);
}

void Photographer::Complains(const QString& what) {
    ++complaints;
    std::fprintf(stderr, "%s\n", qPrintable(what));
}

} // namespace ombrin::test
