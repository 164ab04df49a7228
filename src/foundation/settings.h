// The per-user store of named values: section, key, value, all of them texts.
#pragma once

#include "foundation/ini_files.h"

#include <functional>
#include <string>
#include <string_view>

namespace ombrin {

/// The values while several are changed in one step.
class SettingsDraft {
public:
    explicit SettingsDraft(IniDocument& document) : document(document) {}

    /// Empty where it is missing.
    std::string Get(std::string_view section, std::string_view key) const;
    /// An empty value takes the key away. Raises as SaveSetting does.
    void Put(std::string_view section, std::string_view key, std::string_view value);

private:
    IniDocument& document;
};

/// Kept in one INI file that its user alone can read. A key may be any text (names of lobbies are keys): what an INI
/// key cannot hold stands there as "%" and two hexadecimal digits.
class Settings {
public:
    Settings(Files& files, std::string path) : file(files, std::move(path), Files::Readers::UserOnly) {}

    std::string GetSetting(std::string_view section, std::string_view key, std::string_view missing = "");
    /// Raises 5 for a value with a line break or NUL, or for an empty name; and what Files raises.
    void SaveSetting(std::string_view section, std::string_view key, std::string_view value);
    /// All that the routine puts, at once: others see everything of it or nothing, and nothing where it raises.
    void Change(const std::function<void(SettingsDraft&)>& change);

private:
    IniFile file;
};

} // namespace ombrin
