// One file that is downloaded.
#pragma once

#include <cstdint>
#include <string>

namespace ombrin {

struct clsFileInfo {
    std::string FileName;          ///< as the server knows it, without directory
    std::int32_t FileSize = 0;     ///< bytes, as the list declared it
    std::string LocalPathFIlename; ///< of the temporary file
    std::uint32_t dwLowServerDateTime = 0;
    std::uint32_t dwHighServerDateTime = 0;

    /// Hundreds of nanoseconds since 1601, 0 for none.
    std::uint64_t ServerTime() const { return std::uint64_t{dwHighServerDateTime} << 32U | dwLowServerDateTime; }
};

} // namespace ombrin
