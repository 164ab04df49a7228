// What names may hold, for both ends of the wire.
#pragma once

#include <cstddef>
#include <string_view>

namespace ombrin {

/// Characters that no user's name or password holds; a blank is allowed.
inline constexpr std::string_view kForbiddenCharacters = "`~!@#$%^&*()-=+\\|[{]};:',<.>/?\"";
/// Characters of a user's name or password at most.
inline constexpr std::size_t kNameLength = 12;

/// What no room's name or password holds: the wire's separators, and those of a room's row.
inline constexpr std::string_view kNotInRooms = ":;~(/)";
inline constexpr std::size_t kLongestRoomName = 40;

} // namespace ombrin
