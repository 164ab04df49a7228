#include "foundation/byte_steps.h"
#include "foundation/text.h"
#include "foundation/version_resource.h"

namespace ombrin {

namespace {

/// One block of a version resource: a head, a key in UTF-16, a value, and blocks within it. Key, value and inner
/// blocks begin at multiples of four from the start of the resource.
struct Block {
    std::string key;
    std::string_view value;
    std::size_t children = 0, end = 0; ///< places in the resource
};

constexpr std::size_t kAlignment = 4, kBlockHead = 6; // length, length of the value, kind of the value

/// UTF-16 up to the first NUL or the end; what the page cannot hold is "?".
std::string TextOf(std::string_view utf16, const CodePage& page) {
    std::string text;
    for (std::size_t at = 0; at + 2 <= utf16.size(); at += 2) {
        const auto unit = static_cast<char16_t>(NumberAt(utf16, at, 2));
        if (unit == 0) break;
        text += page.ByteOf(unit).value_or('?');
    }
    return text;
}

/// The block at `at`, all of it before `limit`.
Block BlockAt(std::string_view resource, std::size_t at, std::size_t limit, const CodePage& page) {
    const std::size_t length = SizeAt(resource, at), valueLength = SizeAt(resource, at + 2);
    const bool isText = SizeAt(resource, at + 4) == 1;
    if (length < kBlockHead || length > limit - at) throw BrokenStep{};

    Block block;
    block.end = at + length;
    block.key = TextOf(resource.substr(at + kBlockHead, length - kBlockHead), page);
    const std::size_t keyEnd = at + kBlockHead + (block.key.size() + 1) * 2;
    const std::size_t value = std::min(Aligned(keyEnd, kAlignment), block.end);
    // The length of a text counts characters; some compilers count bytes, which the block's end puts right.
    block.value = resource.substr(value, std::min(isText ? valueLength * 2 : valueLength, block.end - value));
    block.children = Aligned(value + block.value.size(), kAlignment);
    return block;
}

/// The first block of this name within `parent`; names are compared without regard to case.
Block Child(std::string_view resource, const Block& parent, std::string_view key, const CodePage& page) {
    for (std::size_t at = parent.children; at < parent.end;) {
        Block child = BlockAt(resource, at, parent.end, page);
        if (EqualIgnoringCase(child.key, key)) return child;
        at = Aligned(child.end, kAlignment);
    }
    throw BrokenStep{};
}

/// The first language and code page, as eight hexadecimal digits.
std::string Digits(std::string_view translation) {
    std::string digits;
    for (const std::size_t at : {std::size_t{0}, std::size_t{2}}) {
        const std::uint64_t number = NumberAt(translation, at, 2);
        for (int shift = 12; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[number >> shift & 0xF];
    }
    return digits;
}

} // namespace

std::string VersionText(std::string_view resource, const CodePage& page) {
    const Block root = BlockAt(resource, 0, resource.size(), page);
    const auto within = [&](const Block& parent, std::string_view key) { return Child(resource, parent, key, page); };
    const Block translation = within(within(root, "VarFileInfo"), "Translation");
    const Block strings = within(within(root, "StringFileInfo"), Digits(translation.value));
    return TextOf(within(strings, "FileVersion").value, page);
}

} // namespace ombrin
