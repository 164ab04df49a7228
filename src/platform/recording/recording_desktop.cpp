#include "platform/recording/recording_desktop.h"

#include <algorithm>

namespace ombrin::recording {

/// Wraps at the last blank that fits, and inside a word only when the word alone is wider than the column.
int FixedMeasure::LineCount(std::string_view text, int width) const {
    constexpr int kCharacterWidth = 8;
    const auto perLine = static_cast<std::size_t>(std::max(1, width / kCharacterWidth));
    int lines = 1;
    while (text.size() > perLine && text.find_first_not_of(' ', perLine) != std::string_view::npos) {
        const std::size_t blank = text.rfind(' ', perLine);
        const std::size_t word = blank == std::string_view::npos ? 0 : blank + 1;
        const std::size_t wordLength = std::min(text.find(' ', word), text.size()) - word;
        const bool insideAWord = blank == std::string_view::npos || (blank == 0 && wordLength > perLine);
        text.remove_prefix(insideAWord ? perLine : word);
        ++lines;
    }
    return lines;
}

} // namespace ombrin::recording
