// Where downloaded files go, and which of them are the running client itself.
#pragma once

#include "foundation/places.h"
#include "foundation/settings.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ombrin {

/// Each with a closing separator.
struct UpdateDirectories {
    std::string client; ///< empty where the settings name no ClientDirectory
    std::string system;
    std::string windows;

    static UpdateDirectories Of(const Places& places, Settings& settings);
};

struct DirectoryCode {
    std::int16_t code;
    std::string UpdateDirectories::*directory;
};

/// As the file list names them.
inline constexpr std::array kDirectoryCodes{
    DirectoryCode{1, &UpdateDirectories::client},
    DirectoryCode{2, &UpdateDirectories::system},
    DirectoryCode{3, &UpdateDirectories::windows},
};

/// nullptr for a code that no directory has.
const std::string* DirectoryOf(const UpdateDirectories& directories, std::int16_t code);

struct FileInUse {
    std::string_view name;
    std::string_view copy; ///< read for the version instead of the file itself
    std::string UpdateDirectories::*copyDirectory;
};

/// The client holds them open, so a download leaves them under their temporary names, for the patcher.
inline constexpr std::array kFilesInUse{
    FileInUse{"OmbrinExe.exe", "OmbrinExe7.exe", &UpdateDirectories::client},
    FileInUse{"Ombrin.ocx", "Ombrin7.ocx", &UpdateDirectories::system},
    FileInUse{"Ping.ocx", "Ping7.ocx", &UpdateDirectories::system},
};

/// By its name without regard to case; nullptr for any other file.
const FileInUse* InUse(std::string_view name);

} // namespace ombrin
