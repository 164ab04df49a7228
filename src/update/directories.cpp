#include "update/directories.h"

#include "foundation/text.h"

namespace ombrin {

UpdateDirectories UpdateDirectories::Of(const Places& places, Settings& settings) {
    std::string client = settings.GetSetting("Settings", "ClientDirectory");
    if (!client.empty()) client += client.find('\\') == std::string::npos ? "/Client/" : "\\Client\\";
    return {std::move(client), places.SystemDirectory() + "/", places.WindowsDirectory() + "/"};
}

const std::string* DirectoryOf(const UpdateDirectories& directories, std::int16_t code) {
    for (const DirectoryCode& row : kDirectoryCodes)
        if (row.code == code) return &(directories.*row.directory);
    return nullptr;
}

const FileInUse* InUse(std::string_view name) {
    for (const FileInUse& row : kFilesInUse)
        if (EqualIgnoringCase(row.name, name)) return &row;
    return nullptr;
}

} // namespace ombrin
