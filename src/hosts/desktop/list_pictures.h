// The small pictures of the lists, and what they say to who cannot see them.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <functional>
#include <string>

class QPainter;

namespace ombrin::desktop {

/// A picture of 14 by 14, drawn finely enough for every scale of the screen.
QPixmap Drawn(const std::function<void(QPainter&)>& draw);

struct ListPictures {
    /// Picture number `image` of the list of that name: without a mark for a number that has none, empty for a list
    /// without pictures.
    static QIcon Icon(const std::string& list, int image);
    /// In the language in force; empty where the picture has no mark.
    static QString Meaning(const std::string& list, int image);
};

} // namespace ombrin::desktop
