#include "platform/picture_files.h"

#include "foundation/runtime_error.h"

#include <algorithm>
#include <array>

namespace ombrin {

namespace {

using namespace std::string_view_literals;

/// How the files begin that a skin is made of.
constexpr std::array kBeginnings{
    "BM"sv,         "GIF8"sv,     "\xFF\xD8\xFF"sv,     "\x89PNG\r\n\x1A\n"sv,
    "\0\0\1\0"sv,   "\0\0\2\0"sv, "\xD7\xCD\xC6\x9A"sv, // icon, cursor, placeable metafile
    "\1\0\x09\0"sv, "\1\0\0\0"sv,                       // metafile, enhanced metafile
};
constexpr std::size_t kLongestBeginning = 8;

} // namespace

bool PictureFiles::IsPicture(std::string_view start) {
    return std::any_of(kBeginnings.begin(), kBeginnings.end(), [&](auto known) { return start.starts_with(known); });
}

std::shared_ptr<const LoadedPicture> PictureFiles::LoadPicture(const std::string& path) {
    if (!IsPicture(files.Open(path)->ReadAt(0, kLongestBeginning))) throw RuntimeError(ErrorNumber::InvalidPicture);
    return std::make_shared<LoadedPicture>(path);
}

} // namespace ombrin
