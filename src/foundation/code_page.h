// The client's code page: the one-byte characters of the wire, the files and all texts of the core.
// Hosts speak UTF-8 and convert at their edge. Each page is total and reversible: every byte has a character of its
// own, those that the page leaves open stand for the control characters 128 to 159.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ombrin {

class CodePage {
public:
    /// By its usual name ("windows-1252"), without regard to case; nothing when it is not known.
    static const CodePage* Find(std::string_view name);
    /// windows-1252, in force where no setting names another.
    static const CodePage& Usual();

    std::string_view Name() const { return name; }
    std::string ToUtf8(std::string_view bytes) const;
    /// Nothing when the text is no UTF-8 or has a character that the page cannot hold.
    std::optional<std::string> FromUtf8(std::string_view utf8) const;
    /// Nothing when the page cannot hold the character.
    std::optional<char> ByteOf(std::uint32_t character) const;

    std::string_view name;
    std::array<char16_t, 128> upperHalf; ///< characters of the bytes 128 to 255
};

} // namespace ombrin
