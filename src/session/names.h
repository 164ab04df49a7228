// The rules for names and passwords.
#pragma once

#include "controls/simple_models.h"

#include <string_view>

namespace ombrin {

/// Characters that no name or password holds; a blank is allowed.
inline constexpr std::string_view kForbiddenCharacters = "`~!@#$%^&*()-=+\\|[{]};:',<.>/?\"";
/// Characters of a name or password at most.
inline constexpr std::size_t kNameLength = 12;

/// What is wrong is shown on the status bar.
void CheckForValidUserName(std::string_view text, bool& valid, StatusBar& statusBar);

} // namespace ombrin
