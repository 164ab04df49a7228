#include "hosts/desktop/look.h"

#include "hosts/desktop/own_texts.h"
#include "hosts/desktop/qt_pictures.h"
#include "ui/skin_slots.h"

#include <QApplication>
#include <QFile>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <array>
#include <map>

namespace ombrin::desktop {

namespace {

const QString kProgramIcon = QStringLiteral("icon"); ///< the one drawing that is made for each size

Look::Wishes chosen;

struct DrawnImage {
    QString drawing, spoken;
};

DrawnImage DrawnImageOf(const Image& image) {
    static const std::map<std::string, DrawnImage> kImages{
        {"Logo", {QStringLiteral("logo"), QStringLiteral("Ombrin")}},
        {"SplashImage", {QStringLiteral("logo"), QStringLiteral("Ombrin")}},
        {"AVBrand", {QStringLiteral("brand"), QStringLiteral("Ardvelle")}},
        {"PoweredBy", {QStringLiteral("powered-by"), QStringLiteral("Ardvelle")}},
        {"picIcon", {kProgramIcon, QStringLiteral("Ombrin")}},
    };
    const auto found = kImages.find(image.Name());
    return found == kImages.end() ? DrawnImage() : found->second;
}

} // namespace

Look::Wishes Look::Wishes::Of(Settings& settings) {
    return {Scheme::Of(settings.GetSetting(skin::kStoreSection, skin::kScheme)),
            settings.GetSetting(skin::kStoreSection, skin::kCaptions) == "1"};
}

void Look::Install(QApplication&, const Wishes& wishes) {
    chosen = wishes;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(chosen.scheme.Palette());
}

void Look::ShowProgramIcon() { QApplication::setWindowIcon(BuiltIn(kProgramIcon)); }

void Look::Dress() { qApp->setStyleSheet(chosen.scheme.StyleSheet()); }

const Scheme& Look::Colours() { return chosen.scheme; }

bool Look::WritesCaptions() { return chosen.captions; }

QString Look::FileOf(const QString& drawing) {
    // The program's own sign is the same everywhere.
    const QString scheme = drawing.startsWith(kProgramIcon) ? Scheme().Name() : chosen.scheme.Name();
    return QStringLiteral(":/look/%1/%2.png").arg(scheme, drawing);
}

QIcon Look::BuiltIn(const QString& drawing) {
    if (drawing != kProgramIcon) return QIcon(FileOf(drawing));
    QIcon icon;
    for (const int side : {16, 32, 48, 64, 128, 256})
        icon.addFile(FileOf(QStringLiteral("%1-%2").arg(drawing).arg(side)));
    return icon;
}

bool Look::CanShow(const Picture& picture, const QString& builtIn) {
    if (dynamic_cast<const QtPicture*>(picture.File()) != nullptr) return true;
    return picture.IsBuiltIn() && !builtIn.isEmpty() && QFile::exists(FileOf(builtIn));
}

QPixmap Look::Shown(const Picture& picture, const QString& builtIn, const QSize& size) {
    if (const auto* file = dynamic_cast<const QtPicture*>(picture.File())) return file->Pixmap();
    return picture.IsBuiltIn() && !builtIn.isEmpty() ? BuiltIn(builtIn).pixmap(size, qApp->devicePixelRatio())
                                                     : QPixmap();
}

QString Look::DrawingOf(const Image& image) { return DrawnImageOf(image).drawing; }

QString Look::NameOf(const Image& image) { return DrawnImageOf(image).spoken; }

QString Look::CaptionOf(const std::string& button, const QString& caption) {
    struct Row {
        const char* button;
        const char* caption; ///< of the client
        Own text;
    };
    constexpr Row kCaptions[] = {
        {"btnConfigurable1", "", Own::News},
        {"btnConfigurable2", "", Own::Files},
        {"btnConfigurable3", "", Own::Ladders},
        {"btnConfigurable4", "", Own::Depot},
        {"btnConfigurable5", "", Own::Players},
        {"btnAddBuddy", "Add Buddy", Own::AddBuddy},
        {"btnRemoveBuddy", "Remove Buddy", Own::RemoveBuddy},
    };
    for (const Row& row : kCaptions)
        if (row.button == button && caption == QLatin1String(row.caption)) return Say(row.text);
    return caption;
}

QFont Look::ChatFont() {
    QFont font;
    font.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"),
                      QStringLiteral("DejaVu Sans Mono"), QStringLiteral("monospace")});
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSize(9);
    return font;
}

QColor Look::SenderColour(const QString& name) {
    // In an order that sets neighbours apart.
    static const std::array kColours{
        QColor(0x7F, 0xC8, 0xFF), QColor(0xFF, 0xB8, 0x6B), QColor(0x9B, 0xE5, 0x64), QColor(0xF4, 0x9A, 0xC2),
        QColor(0xFF, 0xE0, 0x66), QColor(0x6E, 0xE7, 0xD8), QColor(0xC9, 0xA7, 0xFF), QColor(0xFF, 0x93, 0x85),
    };
    std::size_t sum = 5381;
    for (const QChar c : name) sum = sum * 33 + c.unicode();
    return Scheme::Readable(kColours[sum % kColours.size()], Colours().Shade("panel"));
}

QColor Look::OnPanel(Colour colour) { return Scheme::Readable(ToColour(colour), Colours().Shade("panel")); }

void Look::PaintPanel(QPainter& painter, const QRect& place) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Colours().Shade("panelEdge"), 1));
    painter.setBrush(Colours().Shade("card"));
    painter.drawRoundedRect(place, 10, 10);
}

void Look::PaintBackground(QPainter& painter, const QRect& place) {
    QLinearGradient sky(place.topLeft(), place.bottomLeft());
    sky.setColorAt(0, Colours().Shade("sky"));
    sky.setColorAt(0.2, Colours().Shade("deep"));
    sky.setColorAt(1, Colours().Shade("night"));
    painter.fillRect(place, sky);
    painter.setPen(QPen(Colours().Shade("line"), 1));
    painter.drawLine(place.left(), place.top() + place.height() * 100 / 754, place.right(),
                     place.top() + place.height() * 100 / 754);
}

} // namespace ombrin::desktop
