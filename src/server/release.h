// What clients are required to have: the files that the configuration names, as they lay on the disk at the start.
#pragma once

#include "server/configuration.h"
#include "server/disk_file.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::server {

struct OfferedFile {
    std::string name;
    int directory;
    std::string version; ///< that the file carries
    std::string path;    ///< as the system takes it; empty for a file that the server has made
    FileMark mark;       ///< of the file on the disk
    std::string content; ///< of a file that the server has made

    std::size_t Size() const { return path.empty() ? content.size() : static_cast<std::size_t>(mark.size); }
};

struct Release {
    std::vector<OfferedFile> files; ///< in the order in which clients fetch them; the sums are the first
    std::string publicKey;          ///< of the signed sums; empty: there are none

    /// nullptr where no file of that name is offered.
    const OfferedFile* Find(std::string_view name) const;
};

/// The files lie in `home`/files. Raises ConfigurationError with the place in the configuration for a file that is not
/// there, is too large for clients or carries no version, by which they would fetch it again at each logon.
Release ReadRelease(const Configuration& configuration, const std::string& home, const std::string& configurationPath);

} // namespace ombrin::server
