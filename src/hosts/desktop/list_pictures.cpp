#include "hosts/desktop/list_pictures.h"

#include "hosts/desktop/own_texts.h"

#include <QPainter>
#include <map>

namespace ombrin::desktop {

namespace {

void InARoom(QPainter& painter) { painter.fillRect(QRectF(2, 6, 10, 3), QColor(0x4A, 0x9E, 0xFF)); }

void InAGame(QPainter& painter) {
    painter.setBrush(QColor(0x1F, 0x5F, 0xB8));
    painter.drawRoundedRect(QRectF(2, 1, 10, 12), 2, 2);
    painter.setBrush(QColor(0xFF, 0xD7, 0x3A));
    painter.drawPolygon(QPolygonF({{8, 2}, {4, 8}, {7, 8}, {6, 12}, {10, 6}, {7, 6}}));
}

/// 7 by 11.
void Padlock(QPainter& painter) {
    const QColor grey(0xB4, 0xBE, 0xC8);
    painter.setBrush(grey);
    painter.drawRoundedRect(QRectF(3.5, 6.5, 7, 6), 1, 1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(grey, 1.4));
    painter.drawLine(QLineF(4.9, 7, 4.9, 4.4));
    painter.drawArc(QRectF(4.9, 2.2, 4.2, 4.4), 0, 180 * 16);
    painter.drawLine(QLineF(9.1, 7, 9.1, 4.4));
    painter.setPen(QPen(QColor(0x30, 0x3A, 0x44), 1.3));
    painter.drawLine(QLineF(7, 8.6, 7, 10.6));
}

/// 7 by 13.
void Key(QPainter& painter) {
    const QColor orange(0xFF, 0x9F, 0x2E);
    painter.setPen(QPen(orange, 1.8));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(4.4, 1.4, 5.2, 5.2));
    painter.drawLine(QLineF(7, 6.6, 7, 13));
    painter.drawLine(QLineF(7, 12.2, 10.5, 12.2));
    painter.drawLine(QLineF(7, 9.4, 9.6, 9.4));
}

/// So many of three bars are lit: the number tells what the colour tells.
void Bars(QPainter& painter, int lit, const QColor& colour) {
    for (int bar = 0; bar < 3; ++bar) {
        const double height = 4 + 4 * bar;
        painter.setBrush(bar < lit ? colour : QColor(0x3A, 0x48, 0x56));
        painter.drawRect(QRectF(1.5 + 4 * bar, 13 - height, 3, height));
    }
}

void Fast(QPainter& painter) { Bars(painter, 3, QColor(0x3D, 0xDC, 0x5A)); }
void Middling(QPainter& painter) { Bars(painter, 2, QColor(0xFF, 0xD7, 0x3A)); }
void Slow(QPainter& painter) { Bars(painter, 1, QColor(0xFF, 0x5A, 0x4A)); }

struct Picture {
    const char* list;
    void (*draw)(QPainter&);
    int image;
    Own meaning;
};

constexpr Picture kPictures[] = {
    {"UserList", InARoom, 2, Own::InARoom},      {"UserList", InAGame, 3, Own::InAGame},
    {"RoomList", Padlock, 2, Own::GameRuns},     {"RoomList", Key, 3, Own::NeedsPassword},
    {"RoomUserList", Fast, 1, Own::FastAnswers}, {"RoomUserList", Middling, 2, Own::MiddlingAnswers},
    {"RoomUserList", Slow, 3, Own::SlowAnswers},
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

} // namespace

QPixmap Drawn(const std::function<void(QPainter&)>& draw) {
    constexpr int kScale = 4, kSide = 14;
    QPixmap picture(kSide * kScale, kSide * kScale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(kScale, kScale);
    draw(painter);
    return picture;
}

QIcon ListPictures::Icon(const std::string& list, int image) {
    static std::map<std::pair<std::string, int>, QIcon> known;
    if (!HasPictures(list)) return {};
    const Picture* picture = Find(list, image);
    QIcon& icon = known[{list, picture == nullptr ? 0 : image}];
    if (!icon.isNull()) return icon;
    const QPixmap drawn = Drawn([picture](QPainter& painter) {
        if (picture != nullptr) picture->draw(painter);
    });
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) icon.addPixmap(drawn, mode); // never tinted
    return icon;
}

QString ListPictures::Meaning(const std::string& list, int image) {
    const Picture* picture = Find(list, image);
    return picture == nullptr ? QString() : Say(picture->meaning);
}

} // namespace ombrin::desktop
