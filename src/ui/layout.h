// Where the controls of the main view stand at each of its sizes. The view was drawn for 992 by 754 pixels.
#pragma once

#include "controls/main_view.h"
#include "foundation/log.h"
#include "platform/desktop.h"

namespace ombrin {

class Layout {
public:
    static constexpr int kDrawnWidth = 992, kDrawnHeight = 754;
    /// A smaller view keeps the last layout.
    static constexpr int kLeastWidth = 517, kLeastHeight = 396;

    /// Gives each control the place of its definition, at the drawn size.
    Layout(View& view, const TextMeasure& measure, Log& log);

    int Width() const { return width; }
    int Height() const { return height; }
    /// The view's size in pixels; a negative one is passed over.
    void Resize(int newWidth, int newHeight);
    void UserControl_Resize();

private:
    int X(double fraction) const;
    int Y(double fraction) const;
    void PlaceByFractions();
    void SizeColumns();
    void PlaceColumn(int gap);
    void PlaceLabels();
    void PlaceBannerAndBrand(bool high);

    View& view;
    const TextMeasure& measure;
    Log& log;
    int width = kDrawnWidth, height = kDrawnHeight;
};

} // namespace ombrin
