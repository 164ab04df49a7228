#include "hosts/skin/screen.h"

#include <stdexcept>

namespace ombrin::skin {

bool HasScreen() { return false; }

void ShowPreview(Wardrobe&, const std::string&, const PreviewOptions&) {
    throw std::runtime_error("this build has no window: it was made without Qt");
}

void ShowChooser(Wardrobe&) {}

} // namespace ombrin::skin
