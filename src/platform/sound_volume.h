// How loud the client's sounds are.
#pragma once

#include "foundation/settings.h"

namespace ombrin {

inline constexpr int kFullVolume = 100;

/// The setting `Volume`, as the ear counts: 0 is silence, kFullVolume the sound as it was made. It is full where there
/// is none or no number; what is outside counts as the nearer end.
int SoundVolume(Settings& settings);

} // namespace ombrin
