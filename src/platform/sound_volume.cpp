#include "platform/sound_volume.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

int SoundVolume(Settings& settings) {
    const std::string setting = settings.GetSetting("Settings", "Volume");
    if (setting.empty()) return kFullVolume;
    try {
        return std::clamp(ToLong(setting), 0, kFullVolume);
    } catch (const RuntimeError&) {
        return kFullVolume;
    }
}

} // namespace ombrin
