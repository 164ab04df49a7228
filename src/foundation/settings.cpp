#include "foundation/settings.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

namespace {

/// Any text as an INI key or section: reserved characters, and blanks at the ends, are written as %XX.
std::string Escaped(std::string_view name) {
    constexpr std::string_view kReserved = "%=[];";
    constexpr char kDigits[] = "0123456789ABCDEF";
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

} // namespace

std::string Settings::GetSetting(std::string_view section, std::string_view key, std::string_view missing) {
    return file.Document().Value(Escaped(section), Escaped(key)).value_or(std::string(missing));
}

void Settings::SaveSetting(std::string_view section, std::string_view key, std::string_view value) {
    if (!file.SetValue(Escaped(section), Escaped(key), value)) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

} // namespace ombrin
