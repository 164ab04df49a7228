// Whether the texts of a window can be read, by the pixels of its picture.
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <set>

namespace ombrin::test {

class ContrastCheck {
public:
    /// Looks at all texts of the window that nothing covers. `picture` shows it whole, at any scale. A line for each
    /// text whose contrast is too low, unless it was told before of the same text in the same colours.
    QStringList Complaints(const QWidget& window, const QImage& picture);
    int Measured() const { return measured; }

private:
    int measured = 0;
    std::set<QString> told;
};

} // namespace ombrin::test
