// Whole files of the client's places, as the update and the routes to outside programs handle them. Paths are texts of
// the core; "/" and "\" both separate.
#pragma once

#include "foundation/byte_source.h"
#include "foundation/log.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ombrin {

class LocalFiles {
public:
    enum class WriteMode : int { Create = 1, Append = 2 };
    /// What a file system has left for this user; two folders share it when `fileSystem` is the same.
    struct Space {
        std::uint64_t fileSystem = 0, bytes = 0;
    };

    virtual ~LocalFiles() = default;

    /// Opens the file anew (Create: empty, made where it is missing; Append: at its end, made where it is missing),
    /// writes, and flushes to the disk. False when the file cannot be opened; a write that fails is not told of.
    virtual bool Write(const std::string& path, std::string_view bytes, WriteMode mode) = 0;
    /// Puts a copy in place of `to` in one step: whoever opens it, and a machine that stops in the middle, sees the old
    /// file or the new one. It keeps the mode of the file that it replaces; a new one that begins as a program can be
    /// run. Raises 53, 61, 76, 57, and 75 also where the file to replace is read-only.
    virtual void Copy(const std::string& from, const std::string& to) = 0;
    /// False when there is no such file, or it stays.
    virtual bool Delete(const std::string& path) = 0;
    /// 100-nanosecond units since 1601; 0 leaves the file's time as it is. False when that is not possible.
    virtual bool SetModifiedTime(const std::string& path, std::uint64_t time) = 0;
    /// Nothing where there is no such folder.
    virtual std::optional<Space> FreeSpace(const std::string& folder) const = 0;
    /// Raises 53, 75, 57.
    virtual std::unique_ptr<ByteSource> Open(const std::string& path) const = 0;
    /// The version that the file carries (foundation/file_version.h), "" also where it cannot be read.
    virtual std::string GetFileVersion(const std::string& path) const = 0;
};

/// The routine for raw buffers: what could not be opened leaves a line in the log, and the caller goes on.
void WriteToFile(LocalFiles& files, Log& log, const std::string& path, std::string_view bytes,
                 LocalFiles::WriteMode mode);

} // namespace ombrin
