// Small routines on texts. A text is a string of bytes in the client's code page (code_page.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ombrin {

/// The part before the last occurrence of the delimiter, empty when it does not occur.
std::string_view StrExtractLeft(std::string_view text, std::string_view delimiter);
/// The part behind the last occurrence of the delimiter, empty when it does not occur.
std::string_view StrExtractRight(std::string_view text, std::string_view delimiter);

/// Without the blanks (character 32 alone) at both ends.
std::string_view Trim(std::string_view text);

/// Equal when ASCII letters are compared without regard to case.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

/// The order of a sorted list: ASCII letters without regard to case first, then bytes.
bool LessInSortedList(std::string_view a, std::string_view b);

/// A decimal number with an optional sign and outer blanks. Anything else raises 13, too large a number 6.
std::int16_t ToInteger(std::string_view text);
std::int32_t ToLong(std::string_view text);

/// The first character of the text that is one of `characters`, or 0.
char FirstOf(std::string_view text, std::string_view characters);

template <class... Parts>
std::string Join(const Parts&... parts) {
    std::string joined;
    joined.reserve((std::string_view(parts).size() + ... + 0));
    (joined.append(std::string_view(parts)), ...);
    return joined;
}

} // namespace ombrin
