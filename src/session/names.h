// The rules for names and passwords.
#pragma once

#include "controls/simple_models.h"
#include "session/wire/names.h"

#include <string_view>

namespace ombrin {

/// What is wrong is shown on the status bar.
void CheckForValidUserName(std::string_view text, bool& valid, StatusBar& statusBar);

} // namespace ombrin
