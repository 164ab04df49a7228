// Any file at all, asked for its version.
#include "foundation/file_version.h"
#include "fuzz_target.h"
#include "platform/recording/held_bytes.h"

namespace ombrin::fuzz {
namespace {

/// Counts what the reader asks for.
class CountedBytes : public recording::HeldBytes {
public:
    using HeldBytes::HeldBytes;
    std::string ReadAt(std::uint64_t offset, std::size_t count) override {
        asked += count;
        return HeldBytes::ReadAt(offset, count);
    }
    std::size_t asked = 0;
};

} // namespace

void Try(std::string_view input) {
    constexpr std::size_t kMostAsked = 4U << 20U;
    CountedBytes file{std::string(input)};
    const std::string version = FileVersion(file);
    Require(version.find('\0') == std::string::npos, "a version ends before the first NUL");
    Require(version.size() <= input.size(), "a version is part of its file");
    Require(file.asked <= kMostAsked, "what a file claims does not decide how much is read");
}

} // namespace ombrin::fuzz
