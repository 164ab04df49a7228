// Where a client lives on this machine.
#pragma once

#include "foundation/places.h"
#include "platform/posix/posix_files.h"

#include <optional>
#include <string>

namespace ombrin {

/// The root as UTF-8: what was asked for, else OMBRIN_HOME, else the user's data directory for applications. Raises 76
/// when none of them is set.
std::string HomeRoot(const std::optional<std::string>& asked);

/// The places below the root, made where they are missing. Raises 76 when the code page cannot hold the path, and what
/// the file system raises.
Places PreparePlaces(const std::string& root, const CodePage& page, const PosixFiles& files);

/// The code page that the store names, else the usual one. Raises 5 for a name that is not known.
const CodePage& CodePageOfStore(const std::string& root);

} // namespace ombrin
