#include "platform/recording/recording_desktop.h"

#include <algorithm>

namespace ombrin::recording {

/// Wraps at the last blank that fits, and inside a word only when the word alone is wider than the column.
int FixedMeasure::LineCount(std::string_view text, int width) const {
    constexpr int kCharacterWidth = 8;
    const auto perLine = static_cast<std::size_t>(std::max(1, width / kCharacterWidth));
    int lines = 1;
    while (text.size() > perLine) {
        const std::size_t blank = text.rfind(' ', perLine);
        if (blank == std::string_view::npos || blank == 0)
            text.remove_prefix(perLine);
        else
            text.remove_prefix(blank + 1);
        ++lines;
    }
    return lines;
}

} // namespace ombrin::recording
