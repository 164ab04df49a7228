#include "server/names.h"

#include "foundation/text.h"
#include "session/wire/names.h"

#include <algorithm>

namespace ombrin::server {

namespace {

char Fold(char c) {
    const auto value = static_cast<unsigned char>(c);
    constexpr unsigned kCaseDistance = 0x20;
    const bool latin = (value >= 0xC0 && value <= 0xDE) && value != 0xD7;
    if ((value >= 'A' && value <= 'Z') || latin) return static_cast<char>(value + kCaseDistance);
    switch (value) {
    case 0x8A:
        return '\x9A'; // S with caron
    case 0x8C:
        return '\x9C'; // OE
    case 0x8E:
        return '\x9E'; // Z with caron
    case 0x9F:
        return '\xFF'; // Y with diaeresis
    default:
        return c;
    }
}

/// Control characters, bytes without a character, the blank that does not break and the hyphen that is not shown.
bool Unseen(char c) {
    const auto value = static_cast<unsigned char>(c);
    if (value < 32 || value == 127) return true;
    constexpr std::string_view kOthers = "\x81\x8D\x8F\x90\x9D\xA0\xAD";
    return kOthers.find(c) != std::string_view::npos;
}

bool Acceptable(std::string_view text, std::size_t longest, std::string_view forbidden) {
    return !text.empty() && text.size() <= longest && Trim(text) == text && FirstOf(text, forbidden) == 0 &&
           std::none_of(text.begin(), text.end(), Unseen);
}

} // namespace

std::string Folded(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), Fold);
    return folded;
}

bool AcceptableName(std::string_view name) {
    return Acceptable(name, kNameLength, kForbiddenCharacters) && Folded(name) != Folded(kServerName);
}

bool AcceptablePassword(std::string_view password) { return Acceptable(password, kNameLength, kForbiddenCharacters); }

bool AcceptableRoomName(std::string_view name) { return Acceptable(name, kLongestRoomName, kNotInRooms); }

bool AcceptableRoomPassword(std::string_view password) {
    return password.size() <= kLongestRoomPassword && FirstOf(password, kNotInRooms) == 0;
}

} // namespace ombrin::server
