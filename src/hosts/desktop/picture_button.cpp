#include "hosts/desktop/picture_button.h"

#include "hosts/desktop/look.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace ombrin::desktop {

namespace {

constexpr int kSignWidth = 26; ///< left of the caption, on a picture of the drawn size
constexpr int kBeside = 4, kAbove = 1;
constexpr int kLeastForCaption = 60;
constexpr int kAsOnTheDrawing = Qt::AlignCenter | Qt::TextWordWrap;

} // namespace

void PictureButton::SetPictures(const ButtonPictures& other, const QString& begin) {
    if (pictures == other && drawing == begin) return;
    pictures = other;
    drawing = begin;
    for (const State state : {Up, Down, Disabled}) has[state] = Look::CanShow(PictureOf(state), DrawingOf(state));
    shown = {};
    update();
}

const Picture& PictureButton::PictureOf(State state) const {
    return state == Up ? pictures.up : state == Down ? pictures.down : pictures.disabled;
}

QString PictureButton::DrawingOf(State state) const {
    constexpr const char* kStates[] = {"-up", "-down", "-disabled"};
    return drawing.isEmpty() ? QString() : drawing + QLatin1String(kStates[state]);
}

PictureButton::State PictureButton::Now() const {
    const State state = !isEnabled() ? Disabled : isDown() ? Down : Up;
    return Has(state) ? state : Up;
}

const QPixmap& PictureButton::Shown(State state) {
    auto& picture = shown[state];
    if (!picture) picture = Look::Shown(PictureOf(state), DrawingOf(state), size());
    return *picture;
}

bool PictureButton::WritesCaption() const {
    if (!Has(Now())) return true;
    const bool wanted = PictureOf(Now()).IsBuiltIn() || Look::WritesCaptions();
    return wanted && width() >= kLeastForCaption;
}

void PictureButton::paintEvent(QPaintEvent* event) {
    if (!Has(Now())) return PaintPlain(event);
    const QPixmap& picture = Shown(Now());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), picture);
    if (underMouse() && isEnabled() && !isDown()) Shine(painter, picture);
    if (WritesCaption()) WriteCaption(painter);
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Look::Colours().Shade("focus"), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 3, -1, -3), 5, 5);
    }
}

/// As any other button, unless its caption is wider than its place in the view.
void PictureButton::PaintPlain(QPaintEvent* event) {
    if (fontMetrics().horizontalAdvance(text()) <= CaptionPlace().width()) return QPushButton::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    WriteCaption(painter);
}

/// Under the mouse: the picture in a colour, lightly over itself, so that what is clear in it stays clear.
void PictureButton::Shine(QPainter& painter, QPixmap picture) const {
    constexpr int kLightly = 26; ///< of 255
    QColor shine = Look::Colours().Shade("focus");
    shine.setAlpha(kLightly);
    QPainter over(&picture);
    over.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    over.fillRect(picture.rect(), shine);
    over.end();
    painter.drawPixmap(rect(), picture);
}

QRect PictureButton::CaptionPlace() const {
    return rect().adjusted(Has(Now()) ? kSignWidth : kBeside, kAbove, -kBeside, -kAbove);
}

bool PictureButton::CaptionFits() const { return WritesCaption() && Fits(FittingFont(CaptionPlace()), CaptionPlace()); }

QRect PictureButton::CaptionShownAt() const {
    if (!WritesCaption()) return {};
    const QRect place = CaptionPlace();
    return QFontMetrics(FittingFont(place)).boundingRect(place, kAsOnTheDrawing, text()) & place;
}

bool PictureButton::Fits(const QFont& font, const QRect& place) const {
    const QRect needed = QFontMetrics(font).boundingRect(place, kAsOnTheDrawing, text());
    return needed.width() <= place.width() && needed.height() <= place.height();
}

void PictureButton::WriteCaption(QPainter& painter) const {
    const QRect place = CaptionPlace();
    painter.setFont(FittingFont(place));
    painter.setPen(Look::Colours().Shade(isEnabled() ? "text" : "off"));
    painter.drawText(isDown() ? place.translated(1, 1) : place, kAsOnTheDrawing | Qt::TextHideMnemonic, text());
}

/// The usual one; a narrower or a smaller one for words that are wider than the place.
QFont PictureButton::FittingFont(const QRect& place) const {
    constexpr int kLeast = 13; ///< half points
    QFont fitting = font();
    for (int halves = qRound(2 * fitting.pointSizeF()); halves >= kLeast; --halves)
        for (const int stretch : {100, 90, 82}) {
            fitting.setPointSizeF(halves / 2.0);
            fitting.setStretch(stretch);
            if (Fits(fitting, place)) return fitting;
        }
    return fitting;
}

} // namespace ombrin::desktop
