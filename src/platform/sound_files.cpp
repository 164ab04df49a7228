#include "platform/sound_files.h"

#include <algorithm>

namespace ombrin {

std::vector<std::string> SoundFiles(const SoundFolders& folders, std::string_view name) {
    if (name.empty()) return {};
    std::string path(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.find('/') == std::string::npos) {
        const std::string own = folders.program + "/sounds/" + path, shared = folders.share + "/sounds/" + path;
        return {own, own + ".wav", shared, shared + ".wav"};
    }
    const bool climbs = (path + '/').find("/../") != std::string::npos;
    if (!path.starts_with(folders.program + '/') || climbs) return {};
    return {path};
}

} // namespace ombrin
