#include "foundation/version_resource.h"

#include "foundation/byte_steps.h"

#include <algorithm>
#include <vector>

namespace ombrin {

namespace {

/// A stretch of the program as it lies in memory, and where the file has it.
struct Section {
    std::uint64_t address, size, offset;
};

/// What the walk through a program's resources needs of its headers.
struct Program {
    std::vector<Section> sections;
    std::uint64_t resources = 0; ///< address of the root directory
};

constexpr std::size_t kDosHeaderSize = 64, kNewHeaderAt = 60, kHeaderSize = 24;
constexpr std::size_t k32BitMagic = 0x10B, k64BitMagic = 0x20B, k32BitDirectories = 92, k64BitDirectories = 108;
constexpr std::size_t kResourceDirectory = 2, kDirectorySize = 8;
constexpr std::size_t kSectionSize = 40, kMostSections = 96; // as many as Windows loads

constexpr std::uint64_t kVersionType = 16, kLeadsOn = 0x8000'0000;
constexpr std::size_t kNodeSize = 16, kEntrySize = 8, kMostEntries = 4096;
// The length of a version resource is a 16-bit number within it.
constexpr std::uint64_t kMostResourceBytes = 65'535;

/// The address of the root directory of the resources, from the optional header.
std::uint64_t RootAddress(std::string_view optional) {
    const std::size_t magic = SizeAt(optional, 0);
    if (magic != k32BitMagic && magic != k64BitMagic) throw BrokenStep{};
    const std::size_t directories = magic == k64BitMagic ? k64BitDirectories : k32BitDirectories;
    if (NumberAt(optional, directories, 4) <= kResourceDirectory) throw BrokenStep{};
    const std::uint64_t address = NumberAt(optional, directories + 4 + kResourceDirectory * kDirectorySize, 4);
    if (address == 0) throw BrokenStep{};
    return address;
}

Program Headers(ByteSource& file) {
    const std::uint64_t newHeader = NumberAt(TakeBytes(file, 0, kDosHeaderSize), kNewHeaderAt, 4);
    const std::string header = TakeBytes(file, newHeader, kHeaderSize);
    if (!header.starts_with(std::string_view("PE\0\0", 4))) throw BrokenStep{};
    const std::size_t sections = SizeAt(header, 6), optionalSize = SizeAt(header, 20);
    if (sections > kMostSections) throw BrokenStep{};

    Program program;
    program.resources = RootAddress(TakeBytes(file, newHeader + kHeaderSize, optionalSize));
    const std::string table = TakeBytes(file, newHeader + kHeaderSize + optionalSize, sections * kSectionSize);
    for (std::size_t at = 0; at < table.size(); at += kSectionSize)
        program.sections.push_back(
            {NumberAt(table, at + 12, 4), NumberAt(table, at + 16, 4), NumberAt(table, at + 20, 4)});
    return program;
}

/// `count` bytes at an address of the program, all of them in one section.
std::string TakeLoaded(ByteSource& file, const Program& program, std::uint64_t address, std::size_t count) {
    for (const Section& section : program.sections) {
        if (address < section.address || address - section.address >= section.size) continue;
        const std::uint64_t within = address - section.address;
        if (count > section.size - within) throw BrokenStep{};
        return TakeBytes(file, section.offset + within, count);
    }
    throw BrokenStep{};
}

/// The place, counted from the root, to which the directory at `place` leads from its first entry of this type, or
/// from its very first one.
std::uint64_t Follow(ByteSource& file, const Program& program, std::uint64_t place, bool ofTheType) {
    const std::string node = TakeLoaded(file, program, program.resources + place, kNodeSize);
    const std::size_t count = SizeAt(node, 12) + SizeAt(node, 14);
    const std::string entries =
        TakeLoaded(file, program, program.resources + place + kNodeSize,
                   (ofTheType ? std::min(count, kMostEntries) : std::min<std::size_t>(count, 1)) * kEntrySize);
    for (std::size_t at = 0; at < entries.size(); at += kEntrySize)
        if (!ofTheType || NumberAt(entries, at, 4) == kVersionType) return NumberAt(entries, at + 4, 4);
    throw BrokenStep{};
}

std::uint64_t Onwards(std::uint64_t target) {
    if ((target & kLeadsOn) == 0) throw BrokenStep{};
    return target & ~kLeadsOn;
}

} // namespace

std::string VersionResource(ByteSource& file) {
    const Program program = Headers(file);
    const std::uint64_t names = Onwards(Follow(file, program, 0, true));
    const std::uint64_t languages = Onwards(Follow(file, program, names, false));
    const std::uint64_t leaf = Follow(file, program, languages, false);
    if ((leaf & kLeadsOn) != 0) throw BrokenStep{};
    const std::string found = TakeLoaded(file, program, program.resources + leaf, kNodeSize);
    const std::uint64_t size = std::min(NumberAt(found, 4, 4), kMostResourceBytes);
    return TakeLoaded(file, program, NumberAt(found, 0, 4), static_cast<std::size_t>(size));
}

std::string ResourceVersion(ByteSource& file, const CodePage& page) { return VersionText(VersionResource(file), page); }

} // namespace ombrin
