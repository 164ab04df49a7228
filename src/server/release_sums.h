// The signed sums of a release, by which a client knows that what it has received is what the operator has offered.
#pragma once

#include "server/release.h"
#include "server/update_key.h"

#include <string>
#include <vector>

namespace ombrin::server {

/// A text file:
///
///     ;FileVersion=<version>
///     <64 digits of the SHA-256> <size> <directory> <name>      one a file, the name to the end of the line
///     signature <128 digits>                                    by Ed25519, over all bytes before this line
///
/// Its version is the time at which the newest of the files, or of the files besides, was last changed, as
/// YYYY.MMDDhhmmss in UTC: clients fetch it again when one of these is another. Raises DiskError.
OfferedFile MakeSums(const std::vector<OfferedFile>& files, const UpdateKey& key,
                     const std::vector<std::string>& besides);

} // namespace ombrin::server
