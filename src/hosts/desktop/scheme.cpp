#include "hosts/desktop/scheme.h"

#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>

namespace ombrin::desktop {

namespace {

struct ShadeRow {
    const char* name;
    QRgb dark, light;
};

constexpr std::array kShades{
    ShadeRow{"night", 0xFF101720, 0xFFD9E4EE}, // the window's background, from its foot
    ShadeRow{"deep", 0xFF182433, 0xFFE8EFF6},
    ShadeRow{"sky", 0xFF1B2B3D, 0xFFF4F8FB}, // to its head
    ShadeRow{"line", 0xFF2A3F55, 0xFFB9CBDC},
    ShadeRow{"dialog", 0xFF111922, 0xFFEEF3F8},
    ShadeRow{"card", 0xFF1B2836, 0xFFFFFFFF},
    ShadeRow{"panel", 0xFF0A0F15, 0xFFFFFFFF}, // lists, chats, entry fields
    ShadeRow{"panelEdge", 0xFF34485E, 0xFFB3C4D4},
    ShadeRow{"head", 0xFF141F2B, 0xFFE8EEF5},
    ShadeRow{"text", 0xFFE6EDF3, 0xFF17324D},
    ShadeRow{"dim", 0xFF9AABBC, 0xFF3F5468},
    ShadeRow{"off", 0xFF8496A8, 0xFF5D7186},
    ShadeRow{"heading", 0xFF8FC7F5, 0xFF1B4F86},
    ShadeRow{"entry", 0xFF7DFF7D, 0xFF14532D},
    ShadeRow{"status", 0xFFFFD479, 0xFF7A4B00},
    ShadeRow{"trouble", 0xFFFFB4A8, 0xFFA3190F},
    ShadeRow{"refused", 0xFFFF6B5E, 0xFFC4281C},
    ShadeRow{"alarm", 0xFF6B2B26, 0xFFFCE4E1}, // behind what is written in the next one
    ShadeRow{"alarmText", 0xFFFFFFFF, 0xFF7A140C},
    ShadeRow{"veil", 0xFF0A0F15, 0xFFD9E4EE}, // over a view that is of no more use
    ShadeRow{"accent", 0xFF2873B3, 0xFF1F6FB8},
    ShadeRow{"focus", 0xFF8FC7F5, 0xFF1F6FB8},
    ShadeRow{"mark", 0xFF8FA8C0, 0xFF5D7186},
    ShadeRow{"offMark", 0xFF4A5D70, 0xFFB3C4D4},
    ShadeRow{"edge", 0xFF3F5A76, 0xFF9FB4C9},
    ShadeRow{"offEdge", 0xFF2A3C4E, 0xFFC5D3E0},
    ShadeRow{"button", 0xFF24384D, 0xFFFFFFFF},
    ShadeRow{"hover", 0xFF2D4763, 0xFFE3EEFA},
    ShadeRow{"pressed", 0xFF1A2B3C, 0xFFCFE2F5},
    ShadeRow{"offButton", 0xFF1C2A38, 0xFFEEF2F6},
    ShadeRow{"offPanel", 0xFF141C25, 0xFFEEF2F6},
    ShadeRow{"chosen", 0xFF24507A, 0xFFCFE2F5},
    ShadeRow{"chosenText", 0xFFFFFFFF, 0xFF10243A},
    ShadeRow{"groove", 0xFF0F1720, 0xFFE8EEF5},
};

/// "@name" stands for a shade.
constexpr const char* kStyle = R"(
QWidget { font-family: Tahoma, "DejaVu Sans", "Liberation Sans", sans-serif; font-size: 9pt; }
QDialog, QWidget#logon { background: @dialog; }
QLabel { color: @text; background: transparent; }
QLabel[heading="true"] { color: @heading; font-weight: 600; }
QLabel[status="true"] { color: @status; }
QLabel[trouble="true"] { color: @trouble; }
QLabel[swatch="true"] { border: 1px solid @mark; }
QGroupBox { border: 1px solid @edge; border-radius: 4px; margin-top: 8px; padding-top: 8px; }
QGroupBox::title { color: @heading; subcontrol-origin: margin; left: 10px; padding: 0 4px; }
QPushButton { color: @text; background: @button; border: 1px solid @edge; border-radius: 4px; padding: 2px 6px; }
QPushButton:hover { background: @hover; }
QPushButton:focus { border: 2px solid @focus; }
QPushButton:pressed { background: @pressed; }
QPushButton:disabled { color: @off; background: @offButton; border-color: @offEdge; }
QLineEdit { color: @entry; background: @panel; border: 1px solid @edge; border-radius: 3px; padding: 1px 4px;
            selection-background-color: @accent; selection-color: #ffffff; }
QLineEdit:focus { border: 2px solid @focus; }
QLineEdit:disabled, QComboBox:disabled { color: @off; background: @offPanel; border-color: @offEdge; }
QLineEdit[refused="true"] { border: 2px solid @refused; }
QDialog QLineEdit, QWidget#logon QLineEdit { color: @text; }
QListView, QTableView, QTreeView, QTextBrowser {
    background: @panel; border: 1px solid @panelEdge; border-radius: 3px; outline: 0;
    selection-background-color: @chosen; selection-color: @chosenText; }
QTextBrowser { font-family: "Courier New", "Liberation Mono", "DejaVu Sans Mono", monospace; }
QListView:focus, QTableView:focus, QTextBrowser:focus { border: 1px solid @focus; }
QListView::item, QTableView::item { padding: 1px 2px; border: 0; }
QListView::item:selected, QTableView::item:selected, QTreeView::item:selected {
    background: @chosen; color: @chosenText; }
QDialog QListView { color: @text; }
QHeaderView::section { color: @dim; background: @head; border: 0; padding: 2px 4px; }
QComboBox { color: @text; background: @panel; border: 1px solid @edge; border-radius: 3px;
            padding: 2px 20px 2px 4px; combobox-popup: 0; }
QComboBox:focus { border: 2px solid @focus; padding: 1px 19px 1px 3px; }
QComboBox::drop-down { border: 0; width: 18px; }
QComboBox::down-arrow { image: none; }
QComboBox QLineEdit { border: 0; padding: 0; background: transparent; }
QComboBox QAbstractItemView { color: @text; background: @panel; border: 1px solid @edge; outline: 0;
                             selection-background-color: @chosen; selection-color: @chosenText; }
QCheckBox, QRadioButton { color: @text; spacing: 6px; }
QCheckBox::indicator, QRadioButton::indicator { width: 13px; height: 13px; border: 1px solid @mark; background: @panel; }
QCheckBox::indicator { border-radius: 2px; }
QRadioButton::indicator { border-radius: 7px; }
QCheckBox::indicator:checked { background: @focus; }
QRadioButton::indicator:checked {
    background: qradialgradient(cx:0.5, cy:0.5, radius:0.5, fx:0.5, fy:0.5, stop:0 @focus, stop:0.62 @focus,
                                stop:0.7 @panel, stop:1 @panel); }
QCheckBox::indicator:focus, QRadioButton::indicator:focus { border: 2px solid @focus; }
QRadioButton::indicator:focus { border-radius: 8px; }
QCheckBox:disabled, QRadioButton:disabled { color: @off; }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: @offMark; }
QProgressBar { background: @panel; border: 1px solid @edge; border-radius: 3px; min-height: 14px; max-height: 14px; }
QProgressBar::chunk { background: @accent; border-radius: 2px; }
QToolTip { color: #10171f; background: #f4f7fa; border: 1px solid @panelEdge; }
QMenu { color: @text; background: @card; border: 1px solid @edge; }
QMenu::item { padding: 4px 18px; }
QMenu::item:selected { background: @accent; color: #ffffff; }
QMenu::item:disabled { color: @off; background: transparent; }
QScrollBar:vertical { background: @groove; width: 10px; }
QScrollBar::handle:vertical { background: @edge; border-radius: 4px; min-height: 24px; }
QScrollBar:horizontal { background: @groove; height: 10px; }
QScrollBar::handle:horizontal { background: @edge; border-radius: 4px; min-width: 24px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
)";

/// Of light that a colour gives, 0 to 1.
double Luminance(const QColor& colour) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

} // namespace

QColor Scheme::Shade(const char* name) const {
    for (const ShadeRow& row : kShades)
        if (qstrcmp(row.name, name) == 0) return QColor::fromRgb(isLight ? row.light : row.dark);
    return Qt::black;
}

QPalette Scheme::Palette() const {
    const struct {
        QPalette::ColorRole role;
        const char* shade;
    } kRoles[] = {
        {QPalette::Window, "deep"},         {QPalette::WindowText, "text"},  {QPalette::Base, "panel"},
        {QPalette::AlternateBase, "night"}, {QPalette::Text, "text"},        {QPalette::Button, "deep"},
        {QPalette::ButtonText, "text"},     {QPalette::Highlight, "accent"}, {QPalette::Link, "heading"},
        {QPalette::PlaceholderText, "dim"}, {QPalette::Mid, "panelEdge"},
    };
    QPalette palette;
    for (const auto& row : kRoles) palette.setColor(row.role, Shade(row.shade));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QString Scheme::StyleSheet() const {
    QString sheet;
    const QString style = QString::fromLatin1(kStyle);
    for (qsizetype at = 0; at < style.size();) {
        const qsizetype sign = style.indexOf(QLatin1Char('@'), at);
        if (sign < 0) return sheet + style.mid(at);
        qsizetype end = sign + 1;
        while (end < style.size() && style[end].isLetter()) ++end;
        sheet += style.mid(at, sign - at) + Shade(style.mid(sign + 1, end - sign - 1).toLatin1().constData()).name();
        at = end;
    }
    return sheet;
}

double Scheme::Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one), b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor Scheme::Readable(const QColor& colour, const QColor& background) {
    constexpr double kEnough = 4.5, kStep = 0.02;
    const double direction = Luminance(background) < 0.18 ? kStep : -kStep;
    float hue = 0, saturation = 0, lightness = 0;
    colour.getHslF(&hue, &saturation, &lightness);
    QColor shown = colour;
    while (Contrast(shown, background) < kEnough && lightness > 0 && lightness < 1) {
        lightness = static_cast<float>(std::clamp(lightness + direction, 0.0, 1.0));
        shown = QColor::fromHslF(hue, saturation, lightness);
    }
    return shown;
}

} // namespace ombrin::desktop
