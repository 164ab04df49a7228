// The colours of the window: one dark set, one light.
#pragma once

#include <QColor>
#include <QString>
#include <cstdint>
#include <string>

class QPalette;

namespace ombrin::desktop {

/// Of a colour value, low byte red.
inline QColor ToColour(std::int32_t value) { return {value & 255, value >> 8 & 255, value >> 16 & 255}; }

struct Scheme {
    bool isLight = false;

    /// By the name that a skin gives; the dark one for any other.
    static Scheme Of(const std::string& name) { return {name == "light"}; }

    /// Of the table of shades; black for a name that is not in it.
    QColor Shade(const char* name) const;
    QPalette Palette() const;
    QString StyleSheet() const;
    /// Of the folder with its pictures.
    QString Name() const { return isLight ? QStringLiteral("light") : QStringLiteral("dark"); }

    /// The colour, made lighter or darker until it can be read there: 4.5 to 1.
    static QColor Readable(const QColor& colour, const QColor& background);
    /// From 1 to 21, as the rules for readable pages count it.
    static double Contrast(const QColor& one, const QColor& other);
};

} // namespace ombrin::desktop
