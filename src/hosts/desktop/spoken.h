// What a screen reader is told of the widgets that Qt alone would call by the wrong kind.
#pragma once

namespace ombrin::desktop {

/// Once, before there are widgets.
void InstallSpoken();

} // namespace ombrin::desktop
