// The default look: one palette, the fonts, the colours of who speaks.
#pragma once

#include "controls/control.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPixmap>
#include <QString>

class QApplication;

namespace ombrin::desktop {

struct Look {
    static constexpr Colour kUsualText = 0x0000FF00; ///< of lists and chats that were given no colour

    /// Style and palette, before the first window.
    static void Install(QApplication& application);
    /// The style sheet, before the first control.
    static void Dress();
    static QFont ChatFont();
    /// Shown where a button's caption is wider than its place; an empty one for most.
    static QIcon ButtonIcon(const std::string& button);
    /// What the control of that name shows; a null one for an image whose picture comes from elsewhere, or not at all.
    static QPixmap Picture(const std::string& image);
    /// What the built-in picture of a button without a caption says.
    static QString BuiltInCaption(const std::string& button);
    /// The same name has the same colour all evening.
    static QColor SenderColour(const QString& name);
    static void PaintBackground(class QPainter& painter, const QRect& place);
    static void PaintPanel(class QPainter& painter, const QRect& place);
};

} // namespace ombrin::desktop
