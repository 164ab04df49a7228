// A file of this machine as a source of bytes.
#pragma once

#include "foundation/byte_source.h"
#include "platform/posix/descriptor.h"

#include <string>

namespace ombrin {

/// Holds the file open for its life. Raises RuntimeError: 53 for a file that is not there, 75 for one that may not be
/// read or is no plain file, 57 when the disk fails.
class FileSource : public ByteSource {
public:
    /// The path as the system takes it.
    explicit FileSource(std::string native);

    std::uint64_t Size() const override;
    std::string ReadAt(std::uint64_t offset, std::size_t count) override;

private:
    std::string path;
    Descriptor file;
};

} // namespace ombrin
