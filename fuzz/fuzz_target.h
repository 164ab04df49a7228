// What every fuzz target shares.
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace ombrin::fuzz {

/// Given by each target, called by libFuzzer or by the replay program.
void Try(std::string_view input);

/// Cuts off what stands before this character, and the character; the last piece may lack it.
inline std::string_view TakeUntil(char mark, std::string_view& text) {
    const std::size_t end = text.find(mark);
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return piece;
}
inline std::string_view TakeLine(std::string_view& text) { return TakeUntil('\n', text); }
inline std::string_view TakePiece(std::string_view& text) { return TakeUntil('\xFF', text); }

/// Stops with a report when a promise is broken.
inline void Require(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

} // namespace ombrin::fuzz
