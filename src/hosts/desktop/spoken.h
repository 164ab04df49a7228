// What a screen reader is told of the widgets that Qt alone would call by the wrong kind.
#pragma once

namespace ombrin::desktop {

/// A widget with this property, true, is told as a window.
inline constexpr const char* kSpokenAsFrame = "spokenAsFrame";

/// Once, before there are widgets.
void InstallSpoken();

} // namespace ombrin::desktop
