// A file that is offered to clients, read where it lies.
#pragma once

#include "foundation/byte_source.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <sys/types.h>

namespace ombrin::server {

class DiskError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// By which a file is known again: another file under its name, or another content, has another mark.
struct FileMark {
    dev_t device = 0;
    ino_t node = 0;
    std::uint64_t size = 0;    ///< bytes
    std::int64_t modified = 0; ///< nanoseconds since 1970
    bool operator==(const FileMark&) const = default;
};

/// Holds the file open for its life. Raises DiskError where it cannot be opened or read, or is no plain file.
class DiskFile final : public ByteSource {
public:
    /// The path as the system takes it.
    explicit DiskFile(const std::string& path);
    ~DiskFile() override;
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;

    std::uint64_t Size() const override { return Mark().size; }
    std::string ReadAt(std::uint64_t offset, std::size_t count) override;
    FileMark Mark() const;
    /// Seconds since 1970: when its content, its name or its rights last changed.
    std::int64_t Changed() const;
    /// Anybody but its owner may read or write it.
    bool OpenToOthers() const;

private:
    int descriptor;
};

} // namespace ombrin::server
