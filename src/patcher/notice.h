// A word to the user without a window of one's own.
#pragma once

#include <string>

namespace ombrin::patcher {

/// A failure stays on the screen until it is read, where the desktop has a program for boxes; anything else passes.
enum class Urgency { Passing, UntilRead };

/// By the first small program of the desktop that is there; the text is UTF-8. Nothing without a desktop.
void ShowNotice(const std::string& text, Urgency urgency);

} // namespace ombrin::patcher
