#include "pictures/contrast.h"

#include "hosts/desktop/scheme.h"
#include "pictures/texts_shown.h"

#include <QColor>
#include <algorithm>
#include <map>

namespace ombrin::test {

namespace {

constexpr double kEnough = 4.5, kEnoughForDisabled = 3;

struct Colours {
    QColor background, text;
    double contrast = 1;
};

/// The background is what most of the place is filled with; the text is the colour farthest from it, which its thin
/// strokes reach at some pixel.
Colours Measure(const QImage& picture, const QRect& place) {
    constexpr QRgb kNearly = 0xFFF8F8F8; ///< the steps of a gradient are one colour
    std::map<QRgb, int> counts;
    std::map<QRgb, QRgb> like;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            ++counts[pixel & kNearly];
            like.try_emplace(pixel & kNearly, pixel);
        }
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    Colours colours{like[most->first], like[most->first]};
    for (const auto& [key, pixel] : like)
        if (const double contrast = desktop::Scheme::Contrast(colours.background, pixel); contrast > colours.contrast) {
            colours.contrast = contrast;
            colours.text = pixel;
        }
    return colours;
}

} // namespace

QStringList ContrastCheck::Complaints(const QWidget& window, const QImage& picture) {
    QStringList complaints;
    const double scale = picture.width() / static_cast<double>(window.width());
    for (const TextShown& shown : TextsShown(window)) {
        const QRect place = QRectF(shown.place.topLeft() * scale, shown.place.size() * scale).toRect();
        if (!picture.rect().contains(place) || place.isEmpty()) continue; // cut by the window's edge
        ++measured;
        const Colours colours = Measure(picture, place);
        const double least = shown.enabled ? kEnough : kEnoughForDisabled;
        if (colours.contrast >= least) continue;
        const QString what =
            QStringLiteral("\"%1\", %2 on %3").arg(shown.text.left(60), colours.text.name(), colours.background.name());
        if (!told.insert(what).second) continue;
        complaints += QStringLiteral("%1 of %2: %3").arg(colours.contrast, 0, 'f', 2).arg(least).arg(what);
    }
    return complaints;
}

} // namespace ombrin::test
