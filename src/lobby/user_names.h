// What user names may hold.
#pragma once

#include <cstddef>
#include <string_view>

namespace ombrin {

/// Characters that no name or password holds; a blank is allowed.
inline constexpr std::string_view kForbiddenCharacters = "`~!@#$%^&*()-=+\\|[{]};:',<.>/?\"";
/// Characters of a name or password at most.
inline constexpr std::size_t kNameLength = 12;

} // namespace ombrin
