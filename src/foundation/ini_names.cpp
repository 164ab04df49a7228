#include "foundation/ini_names.h"

namespace ombrin {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

} // namespace

std::string EscapedIniName(std::string_view name) {
    constexpr std::string_view kReserved = "%=[];";
    std::string escaped;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto byte = static_cast<unsigned char>(name[i]);
        const bool outerBlank = byte == ' ' && (i == 0 || i + 1 == name.size());
        if (byte < 32 || outerBlank || kReserved.find(name[i]) != std::string_view::npos) {
            escaped += '%';
            escaped += kDigits[byte >> 4];
            escaped += kDigits[byte & 15];
        } else {
            escaped += name[i];
        }
    }
    return escaped;
}

std::string UnescapedIniName(std::string_view name) {
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool isEscape = name[i] == '%' && i + 2 < name.size();
        const std::size_t high = isEscape ? kDigits.find(name[i + 1]) : std::string_view::npos;
        const std::size_t low = isEscape ? kDigits.find(name[i + 2]) : std::string_view::npos;
        if (high == std::string_view::npos || low == std::string_view::npos) {
            text += name[i];
            continue;
        }
        text += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return text;
}

} // namespace ombrin
