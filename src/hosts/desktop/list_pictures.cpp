#include "hosts/desktop/list_pictures.h"

#include "hosts/desktop/look.h"
#include "hosts/desktop/own_texts.h"

#include <QPixmap>
#include <map>

namespace ombrin::desktop {

namespace {

struct Picture {
    const char* list;
    const char* drawing;
    int image;
    Own meaning;
};

constexpr Picture kPictures[] = {
    {"UserList", "user-2", 2, Own::InARoom},         {"UserList", "user-3", 3, Own::InAGame},
    {"RoomList", "room-2", 2, Own::GameRuns},        {"RoomList", "room-3", 3, Own::NeedsPassword},
    {"RoomUserList", "ping-1", 1, Own::FastAnswers}, {"RoomUserList", "ping-2", 2, Own::MiddlingAnswers},
    {"RoomUserList", "ping-3", 3, Own::SlowAnswers},
};

const Picture* Find(const std::string& list, int image) {
    for (const Picture& picture : kPictures)
        if (picture.list == list && picture.image == image) return &picture;
    return nullptr;
}

bool HasPictures(const std::string& list) {
    for (const Picture& picture : kPictures)
        if (picture.list == list) return true;
    return false;
}

/// Of the size of the others, so that the texts stand in one line.
QPixmap Clear() {
    constexpr int kSide = 14;
    QPixmap clear(kSide, kSide);
    clear.fill(Qt::transparent);
    return clear;
}

} // namespace

QIcon ListPictures::Icon(const std::string& list, int image) {
    static std::map<std::pair<std::string, int>, QIcon> known;
    if (!HasPictures(list)) return {};
    const Picture* picture = Find(list, image);
    QIcon& icon = known[{list, picture == nullptr ? 0 : image}];
    if (!icon.isNull()) return icon;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) { // never tinted
        if (picture != nullptr)
            icon.addFile(Look::FileOf(QString::fromLatin1(picture->drawing)), {}, mode);
        else
            icon.addPixmap(Clear(), mode);
    }
    return icon;
}

QString ListPictures::Meaning(const std::string& list, int image) {
    const Picture* picture = Find(list, image);
    return picture == nullptr ? QString() : Say(picture->meaning);
}

} // namespace ombrin::desktop
