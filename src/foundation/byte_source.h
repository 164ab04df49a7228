// Bytes of a file, read where they are asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace ombrin {

class ByteSource {
public:
    virtual ~ByteSource() = default;
    virtual std::uint64_t Size() const = 0;
    /// Reads at `offset` as many bytes as there are, `count` at most; none behind the end. The caller bounds `count`.
    virtual std::string ReadAt(std::uint64_t offset, std::size_t count) = 0;
};

} // namespace ombrin
