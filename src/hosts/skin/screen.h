// What this program shows in windows and pictures. It is built in two ways: with Qt, and without, where nothing of it
// is there.
#pragma once

#include "hosts/skin/wardrobe.h"

namespace ombrin::skin {

inline constexpr double kLeastScale = 0.5, kLargestScale = 3;

struct PreviewOptions {
    int width = 992, height = 754;  ///< of the view, in its own pixels
    double scale = 1;               ///< pixels of the screen for one of those
    std::optional<std::string> out; ///< a file for the picture instead of a window
};

/// Can windows be opened here?
bool HasScreen();

/// The client's main view in that skin, with sample texts. Returns when it is closed, or the picture written; raises
/// std::runtime_error where that cannot be done.
void ShowPreview(Wardrobe& wardrobe, const std::string& name, const PreviewOptions& options);

/// The list of skins with a preview of each. Returns when it is closed.
void ShowChooser(Wardrobe& wardrobe);

} // namespace ombrin::skin
