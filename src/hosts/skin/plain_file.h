// Files of a skin, which anybody may have made. Paths are as the system takes them.
#pragma once

#include <cstdint>
#include <string>

namespace ombrin::skin {

/// A text file, and a picture: a full screen in true colours has 8 MB.
inline constexpr std::uint64_t kLargestText = 64ULL * 1024, kLargestPicture = 16ULL * 1024 * 1024;

/// Raises std::runtime_error, with a sentence that names the file, for what is missing, a link, no plain file, cannot
/// be read, or has more bytes than the limit.
std::string ReadPlainFile(const std::string& path, std::uint64_t limit);

/// Makes a new file and puts it on the disk. Raises what fails.
void WriteNewFile(const std::string& path, const std::string& bytes);

} // namespace ombrin::skin
