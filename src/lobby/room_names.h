// What the names and the passwords of rooms may not hold.
#pragma once

#include <cstddef>
#include <string_view>

namespace ombrin {

/// The wire's separators, and those of a room's row.
inline constexpr std::string_view kNotInRooms = ":;~(/)";

/// The texts for the user speak of 20; the boxes and these checks have limits of their own.
inline constexpr std::size_t kLongestRoomName = 40, kLongestRoomPassword = 40;

} // namespace ombrin
