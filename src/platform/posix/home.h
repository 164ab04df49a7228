// Where a client lives on this machine.
#pragma once

#include "foundation/places.h"
#include "platform/posix/posix_files.h"

#include <optional>
#include <string>

namespace ombrin {

/// What every program of a client begins with: its root, its code page, its files and its folders.
struct ClientHome {
    /// The root is what was asked for, in UTF-8, else OMBRIN_HOME, else the user's data directory for applications; its
    /// folders are made where they are missing. Raises 76 when there is no root or the code page cannot hold its path,
    /// 5 when the store names a code page that is not known, and what the file system raises.
    explicit ClientHome(const std::optional<std::string>& asked);

    const std::string root; ///< UTF-8, absolute
    const CodePage& page;   ///< the one that the store names, else the usual one
    PosixFiles files;
    Places places;
};

} // namespace ombrin
