// Steps through bytes from outside: each is checked against what is really there, and the first that leads nowhere
// ends the walk.
#pragma once

#include "foundation/byte_source.h"

#include <string>
#include <string_view>

namespace ombrin {

/// Raised by a step that cannot be followed; caught where the walk began.
struct BrokenStep {};

/// Exactly `count` bytes at `offset`.
inline std::string TakeBytes(ByteSource& file, std::uint64_t offset, std::size_t count) {
    std::string bytes = file.ReadAt(offset, count);
    if (bytes.size() != count) throw BrokenStep{};
    return bytes;
}

/// A little-endian number of `width` bytes, eight at most.
inline std::uint64_t NumberAt(std::string_view bytes, std::size_t at, std::size_t width) {
    if (at > bytes.size() || bytes.size() - at < width) throw BrokenStep{};
    std::uint64_t number = 0;
    for (std::size_t i = width; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

inline std::size_t SizeAt(std::string_view bytes, std::size_t at, std::size_t width = 2) {
    return static_cast<std::size_t>(NumberAt(bytes, at, width));
}

/// The next multiple of `step`, a power of two.
constexpr std::size_t Aligned(std::size_t at, std::size_t step) { return (at + step - 1) & ~(step - 1); }

} // namespace ombrin
