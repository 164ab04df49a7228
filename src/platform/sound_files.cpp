#include "platform/sound_files.h"

#include <algorithm>

namespace ombrin {

std::vector<std::string> SoundFiles(std::string_view appFolder, std::string_view name) {
    if (name.empty()) return {};
    std::string path(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    std::string below(appFolder);
    below += '/';
    if (path.find('/') == std::string::npos) {
        path = below + "sounds/" + path;
        return {path, path + ".wav"};
    }
    const bool climbs = (path + '/').find("/../") != std::string::npos;
    if (!path.starts_with(below) || climbs) return {};
    return {path};
}

} // namespace ombrin
