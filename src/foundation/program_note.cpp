#include "foundation/program_note.h"

#include "foundation/byte_steps.h"

#include <algorithm>
#include <optional>

namespace ombrin {

namespace {

/// Where the two kinds of programs keep what is needed here: offsets in the file's header and in a row of its table of
/// segments, and the width of an address.
struct Layout {
    std::size_t table, rowSize, rowCount, offset, size, align, width;
};
constexpr Layout k32Bit{28, 42, 44, 4, 16, 28, 4}, k64Bit{32, 54, 56, 8, 32, 48, 8};

constexpr std::size_t kClassAt = 4, kOrderAt = 5; // in the first bytes of the header
constexpr char kClass32 = 1, kClass64 = 2, kLittleEndian = 1;
constexpr std::size_t kHeaderSize = 64, kNoteSegment = 4;
// A program has about a dozen segments, and notes of some hundred bytes.
constexpr std::size_t kMostSegments = 128, kMostRowBytes = 64;
constexpr std::uint64_t kMostNoteBytes = 16'384;

const Layout& LayoutOf(std::string_view header) {
    if (header[kOrderAt] != kLittleEndian) throw BrokenStep{};
    if (header[kClassAt] == kClass64) return k64Bit;
    if (header[kClassAt] != kClass32) throw BrokenStep{};
    return k32Bit;
}

std::optional<std::string> VersionIn(std::string_view notes, std::size_t align) {
    constexpr std::size_t kHead = 12;
    for (std::size_t at = 0; at + kHead <= notes.size();) {
        const std::size_t nameSize = SizeAt(notes, at, 4), textSize = SizeAt(notes, at + 4, 4);
        const std::size_t name = at + kHead, text = Aligned(name + nameSize, align);
        if (text > notes.size() || textSize > notes.size() - text) throw BrokenStep{};
        if (NumberAt(notes, at + 8, 4) == kVersionNoteType &&
            notes.substr(name, nameSize) == std::string_view(kVersionNoteOwner.data(), kVersionNoteOwner.size() + 1))
            return std::string(notes.substr(text, textSize));
        at = Aligned(text + textSize, align);
    }
    return std::nullopt;
}

} // namespace

std::string NoteVersion(ByteSource& file) {
    const std::string header = TakeBytes(file, 0, kHeaderSize);
    const Layout& layout = LayoutOf(header);
    const std::size_t rowSize = SizeAt(header, layout.rowSize);
    const std::size_t rows = std::min(SizeAt(header, layout.rowCount), kMostSegments);
    const std::uint64_t table = NumberAt(header, layout.table, layout.width);
    for (std::size_t i = 0; i < rows; ++i) {
        const std::string row = TakeBytes(file, table + i * rowSize, std::min(rowSize, kMostRowBytes));
        if (NumberAt(row, 0, 4) != kNoteSegment) continue;
        const std::uint64_t size = std::min(NumberAt(row, layout.size, layout.width), kMostNoteBytes);
        const std::string notes = TakeBytes(file, NumberAt(row, layout.offset, layout.width), size);
        // Segments of properties keep the alignment of addresses, all others that of words.
        const std::size_t align = NumberAt(row, layout.align, layout.width) == 8 ? 8 : 4;
        if (auto version = VersionIn(notes, align)) return *version;
    }
    throw BrokenStep{};
}

} // namespace ombrin
