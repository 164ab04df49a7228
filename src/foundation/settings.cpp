#include "foundation/settings.h"

#include "foundation/ini_names.h"
#include "foundation/runtime_error.h"

namespace ombrin {

std::string Settings::GetSetting(std::string_view section, std::string_view key, std::string_view missing) {
    return file.Document().Value(EscapedIniName(section), EscapedIniName(key)).value_or(std::string(missing));
}

void Settings::SaveSetting(std::string_view section, std::string_view key, std::string_view value) {
    if (!file.SetValue(EscapedIniName(section), EscapedIniName(key), value))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

} // namespace ombrin
