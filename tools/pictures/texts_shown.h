// Where a window shows which text.
#pragma once

#include <QRect>
#include <QString>
#include <QWidget>
#include <vector>

namespace ombrin::test {

struct TextShown {
    QString text;
    QRect place; ///< in the window, not much larger than the text
    bool enabled = true;
};

/// Of the widgets of all kinds that the client has, without those, or those parts, that lie behind others.
std::vector<TextShown> TextsShown(const QWidget& window);

} // namespace ombrin::test
