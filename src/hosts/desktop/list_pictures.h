// The small pictures of the lists, and what they say to who cannot see them.
#pragma once

#include <QIcon>
#include <QString>
#include <string>

namespace ombrin::desktop {

struct ListPictures {
    /// Picture number `image` of the list of that name: without a mark for a number that has none, empty for a list
    /// without pictures.
    static QIcon Icon(const std::string& list, int image);
    /// In the language in force; empty where the picture has no mark.
    static QString Meaning(const std::string& list, int image);
};

} // namespace ombrin::desktop
