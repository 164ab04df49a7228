#include "foundation/settings.h"

#include "foundation/ini_names.h"
#include "foundation/runtime_error.h"

namespace ombrin {

std::string SettingsDraft::Get(std::string_view section, std::string_view key) const {
    return document.Value(EscapedIniName(section), EscapedIniName(key)).value_or("");
}

void SettingsDraft::Put(std::string_view section, std::string_view key, std::string_view value) {
    if (value.empty()) return document.Remove(EscapedIniName(section), EscapedIniName(key));
    if (!document.SetValue(EscapedIniName(section), EscapedIniName(key), value))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

std::string Settings::GetSetting(std::string_view section, std::string_view key, std::string_view missing) {
    return file.Document().Value(EscapedIniName(section), EscapedIniName(key)).value_or(std::string(missing));
}

void Settings::SaveSetting(std::string_view section, std::string_view key, std::string_view value) {
    if (!file.SetValue(EscapedIniName(section), EscapedIniName(key), value))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

void Settings::Change(const std::function<void(SettingsDraft&)>& change) {
    file.Change([&](IniDocument& document) {
        SettingsDraft draft(document);
        change(draft);
        return true;
    });
}

} // namespace ombrin
