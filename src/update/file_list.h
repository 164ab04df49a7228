// The server's list of the files that make up its release.
#pragma once

#include "update/directories.h"
#include "update/refused_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

struct ListedFile {
    std::string FileName;
    std::int32_t FileSize = 0;
    std::int16_t directoryCode = 0;
    std::string ServerVersion;
    std::string LocalPath; ///< empty where the code names no directory
};

struct FileList {
    /// Entries at most: no release has more, and each of them is looked for on the disk.
    static constexpr std::size_t kMostFiles = 1000;

    std::string ServerIP, ServerPort;
    std::vector<ListedFile> files;
};

/// Takes the message apart; without entries the port is not looked at. Raises 13 and 6 for numbers that are none or do
/// not fit, 5 for a port below 1.
FileList CutFileList(std::string_view buffer, const UpdateDirectories& directories);

/// The first entry that may not be followed: it would leave its place, cannot be, or gets in another's way.
std::optional<RefusedFile> FirstRefused(const FileList& list, const UpdateDirectories& directories);

/// Whether the local file is the older one. The parts before the first "." are compared, and where they are equal what
/// is behind it in one piece; as texts, so that 9 is newer than 10.
bool CompareFileVersions(std::string_view LocalVersion, std::string_view ServerVersion);

} // namespace ombrin
