// What of the addresses that come over the wire may be opened in a browser.
#pragma once

#include <cstddef>
#include <string_view>

namespace ombrin {

inline constexpr std::size_t kLongestWebAddress = 2048; ///< characters

/// "http://" or "https://" and a host, without blanks and control characters.
bool IsWebAddress(std::string_view text);

} // namespace ombrin
