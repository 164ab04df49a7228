// Locks between processes that end with the process that holds them.
#pragma once

#include "foundation/clock.h"
#include "platform/posix/descriptor.h"

#include <optional>
#include <string>

namespace ombrin {

/// Holds the lock file, made where it is missing, until this object or its process ends. Children do not inherit it.
class FileLock {
public:
    enum class Kind { Shared, Exclusive };

    /// Nothing where another process holds it. Raises 75 or 57 where the file cannot be locked at all.
    static std::optional<FileLock> Try(const std::string& native, Kind kind);
    /// The same, waiting as long for the others.
    static std::optional<FileLock> Take(const std::string& native, Kind kind, Milliseconds patience);

private:
    explicit FileLock(Descriptor file) : file(std::move(file)) {}
    Descriptor file;
};

} // namespace ombrin
