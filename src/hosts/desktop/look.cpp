#include "hosts/desktop/look.h"

#include "hosts/desktop/list_pictures.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <array>
#include <map>

namespace ombrin::desktop {

namespace {

const QColor kNight(0x10, 0x17, 0x20), kDeep(0x18, 0x24, 0x33), kPanel(0x0A, 0x0F, 0x15), kEdge(0x34, 0x48, 0x5E),
    kText(0xE6, 0xED, 0xF3), kDim(0x9A, 0xAB, 0xBC), kAccent(0x2F, 0x81, 0xC7), kBright(0x8F, 0xC7, 0xF5);

constexpr const char* kStyle = R"(
QWidget { font-family: Tahoma, "DejaVu Sans", "Liberation Sans", sans-serif; font-size: 9pt; }
QDialog, QWidget#logon { background: #111922; }
QLabel { color: #e6edf3; background: transparent; }
QLabel[heading="true"] { color: #8fc7f5; font-weight: 600; }
QLabel[status="true"] { color: #ffd479; }
QLabel[trouble="true"] { color: #ffb4a8; }
QLabel[swatch="true"] { border: 1px solid #8fa8c0; }
QGroupBox { border: 1px solid #3f5a76; border-radius: 4px; margin-top: 8px; padding-top: 8px; }
QGroupBox::title { color: #8fc7f5; subcontrol-origin: margin; left: 10px; padding: 0 4px; }
QPushButton { color: #e6edf3; background: #24384d; border: 1px solid #3f5a76; border-radius: 4px; padding: 2px 6px; }
QPushButton#SendMain, QPushButton#SendRoom { padding: 0; font-size: 8pt; }
QPushButton:hover { background: #2d4763; }
QPushButton:focus { border: 2px solid #8fc7f5; }
QPushButton:pressed { background: #1a2b3c; }
QPushButton:disabled { color: #8496a8; background: #1c2a38; border-color: #2a3c4e; }
QLineEdit { color: #7dff7d; background: #0a0f15; border: 1px solid #3f5a76; border-radius: 3px; padding: 1px 4px;
            selection-background-color: #2f81c7; selection-color: #ffffff; }
QLineEdit:focus { border: 2px solid #8fc7f5; }
QLineEdit:disabled, QComboBox:disabled { color: #8496a8; background: #141c25; border-color: #2a3c4e; }
QLineEdit[refused="true"] { border: 2px solid #ff6b5e; }
QDialog QLineEdit, QWidget#logon QLineEdit { color: #e6edf3; }
QTreeView, QTextBrowser { background: #0a0f15; border: 1px solid #34485e; border-radius: 3px; outline: 0;
                          selection-background-color: #24507a; selection-color: #ffffff; }
QTextBrowser { font-family: "Courier New", "Liberation Mono", "DejaVu Sans Mono", monospace; }
QTreeView:focus, QTextBrowser:focus { border: 1px solid #8fc7f5; }
QTreeView::item { padding: 1px 2px; border: 0; }
QTreeView::item:selected { background: #24507a; }
QDialog QTreeView { color: #e6edf3; }
QHeaderView::section { color: #9aabbc; background: #141f2b; border: 0; padding: 2px 4px; }
QComboBox { color: #e6edf3; background: #0a0f15; border: 1px solid #3f5a76; border-radius: 3px;
            padding: 2px 20px 2px 4px; combobox-popup: 0; }
QComboBox:focus { border: 2px solid #8fc7f5; padding: 1px 19px 1px 3px; }
QComboBox::drop-down { border: 0; width: 18px; }
QComboBox::down-arrow { image: none; }
QComboBox QLineEdit { border: 0; padding: 0; background: transparent; }
QComboBox QAbstractItemView { color: #e6edf3; background: #0a0f15; border: 1px solid #3f5a76; outline: 0;
                             selection-background-color: #24507a; }
QCheckBox, QRadioButton { color: #e6edf3; spacing: 6px; }
QCheckBox::indicator, QRadioButton::indicator { width: 13px; height: 13px; border: 1px solid #8fa8c0; background: #0a0f15; }
QCheckBox::indicator { border-radius: 2px; }
QRadioButton::indicator { border-radius: 7px; }
QCheckBox::indicator:checked { background: #8fc7f5; }
QRadioButton::indicator:checked {
    background: qradialgradient(cx:0.5, cy:0.5, radius:0.5, fx:0.5, fy:0.5, stop:0 #8fc7f5, stop:0.62 #8fc7f5,
                                stop:0.7 #0a0f15, stop:1 #0a0f15); }
QCheckBox::indicator:focus, QRadioButton::indicator:focus { border: 2px solid #8fc7f5; }
QRadioButton::indicator:focus { border-radius: 8px; }
QCheckBox:disabled, QRadioButton:disabled { color: #8496a8; }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: #4a5d70; }
QToolTip { color: #10171f; background: #f4f7fa; border: 1px solid #34485e; }
QMenu { color: #e6edf3; background: #1b2836; border: 1px solid #3f5a76; }
QMenu::item { padding: 4px 18px; }
QMenu::item:selected { background: #2f81c7; }
QMenu::item:disabled { color: #8496a8; background: transparent; }
QScrollBar:vertical { background: #0f1720; width: 10px; }
QScrollBar::handle:vertical { background: #3f5a76; border-radius: 4px; min-height: 24px; }
QScrollBar:horizontal { background: #0f1720; height: 10px; }
QScrollBar::handle:horizontal { background: #3f5a76; border-radius: 4px; min-width: 24px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
)";

} // namespace

void Look::Install(QApplication&) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette;
    palette.setColor(QPalette::Window, kDeep);
    palette.setColor(QPalette::WindowText, kText);
    palette.setColor(QPalette::Base, kPanel);
    palette.setColor(QPalette::AlternateBase, kNight);
    palette.setColor(QPalette::Text, kText);
    palette.setColor(QPalette::Button, kDeep);
    palette.setColor(QPalette::ButtonText, kText);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, kBright);
    palette.setColor(QPalette::PlaceholderText, kDim);
    palette.setColor(QPalette::Mid, kEdge);
    QApplication::setPalette(palette);
}

void Look::Dress() { qApp->setStyleSheet(QString::fromLatin1(kStyle)); }

QIcon Look::ButtonIcon(const std::string& button) {
    if (button != "SendMain" && button != "SendRoom") return {};
    return QIcon(Drawn([](QPainter& painter) {
        painter.setBrush(kText);
        painter.drawPolygon(QPolygonF({{2, 2}, {13, 7}, {2, 12}, {4, 7}}));
    }));
}

/// A ring of players around their game.
QPixmap Look::Picture(const std::string& image) {
    if (image != "picIcon") return {};
    return Drawn([](QPainter& painter) {
        painter.setBrush(kAccent);
        painter.drawRoundedRect(QRectF(0, 0, 14, 14), 3, 3);
        painter.setBrush(kText);
        painter.drawEllipse(QPointF(7, 7), 2, 2);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(kText, 1.4));
        painter.drawEllipse(QPointF(7, 7), 4.4, 4.4);
    });
}

QString Look::BuiltInCaption(const std::string& button) {
    static const std::map<std::string, QString> kCaptions{
        {"btnConfigurable1", QObject::tr("News")},    {"btnConfigurable2", QObject::tr("Files")},
        {"btnConfigurable3", QObject::tr("Ladders")}, {"btnConfigurable4", QObject::tr("Depot")},
        {"btnConfigurable5", QObject::tr("Players")},
    };
    const auto found = kCaptions.find(button);
    return found == kCaptions.end() ? QString() : found->second;
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
    // Hues that keep a contrast of at least 4.5 to 1 on the panel, in an order that sets neighbours apart.
    static const std::array kColours{
        QColor(0x7F, 0xC8, 0xFF), QColor(0xFF, 0xB8, 0x6B), QColor(0x9B, 0xE5, 0x64), QColor(0xF4, 0x9A, 0xC2),
        QColor(0xFF, 0xE0, 0x66), QColor(0x6E, 0xE7, 0xD8), QColor(0xC9, 0xA7, 0xFF), QColor(0xFF, 0x93, 0x85),
    };
    std::size_t sum = 5381;
    for (const QChar c : name) sum = sum * 33 + c.unicode();
    return kColours[sum % kColours.size()];
}

void Look::PaintPanel(QPainter& painter, const QRect& place) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kEdge, 1));
    painter.setBrush(QColor(0x1B, 0x28, 0x36));
    painter.drawRoundedRect(place, 10, 10);
}

void Look::PaintBackground(QPainter& painter, const QRect& place) {
    QLinearGradient sky(place.topLeft(), place.bottomLeft());
    sky.setColorAt(0, QColor(0x1B, 0x2B, 0x3D));
    sky.setColorAt(0.2, kDeep);
    sky.setColorAt(1, kNight);
    painter.fillRect(place, sky);
    painter.setPen(QPen(QColor(0x2A, 0x3F, 0x55), 1));
    painter.drawLine(place.left(), place.top() + place.height() * 100 / 754, place.right(),
                     place.top() + place.height() * 100 / 754);
}

} // namespace ombrin::desktop
