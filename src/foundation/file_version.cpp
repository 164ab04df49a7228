#include "foundation/file_version.h"

#include "foundation/byte_steps.h"
#include "foundation/program_note.h"
#include "foundation/version_resource.h"

#include <algorithm>

namespace ombrin {

namespace {

constexpr std::string_view kVersionLine = ";FileVersion=";

std::string VersionLine(std::string_view head) {
    head.remove_prefix(kVersionLine.size());
    const std::size_t end = head.find_first_of("\r\n");
    if (end == std::string_view::npos) throw BrokenStep{}; // no version is that long
    return std::string(head.substr(0, end));
}

/// How a file begins, and how the version of such a file is found.
struct Kind {
    std::string_view beginning;
    std::string (*version)(ByteSource& file, std::string_view head, const CodePage& page);
};

constexpr Kind kKinds[] = {
    {"MZ", [](ByteSource& file, std::string_view, const CodePage& page) { return ResourceVersion(file, page); }},
    {"\x7F"
     "ELF",
     [](ByteSource& file, std::string_view, const CodePage&) { return NoteVersion(file); }},
    {kVersionLine, [](ByteSource&, std::string_view head, const CodePage&) { return VersionLine(head); }},
};

constexpr std::size_t kHeadSize = 64;

} // namespace

std::string FileVersion(ByteSource& file, const CodePage& page) {
    try {
        const std::string head = file.ReadAt(0, kHeadSize);
        const auto* const kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                              [&](const Kind& k) { return head.starts_with(k.beginning); });
        if (kind == std::end(kKinds)) return "";
        const std::string version = kind->version(file, head, page);
        return version.substr(0, version.find('\0'));
    } catch (const BrokenStep&) {
        return "";
    }
}

} // namespace ombrin
