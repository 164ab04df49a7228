#include "platform/posix/wine_prefix.h"

#include <algorithm>
#include <cstdlib>

namespace ombrin {

bool HasDriveLetter(std::string_view path) {
    return path.size() > 2 && path[1] == ':' && (path[2] == '\\' || path[2] == '/');
}

std::string WinePrefix::Folder() const {
    if (std::string folder = named(); !folder.empty()) return folder;
    if (const char* usual = std::getenv("WINEPREFIX"); usual != nullptr && *usual != '\0') return usual;
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "") + "/.wine";
}

std::string WinePrefix::Native(std::string_view path) const {
    std::string native(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    if (native[0] >= 'A' && native[0] <= 'Z') native[0] = static_cast<char>(native[0] - 'A' + 'a');
    return Folder() + "/dosdevices/" + native;
}

} // namespace ombrin
