#include "platform/hive_registry.h"

#include "foundation/ini_names.h"
#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

namespace {

constexpr std::string_view kText = "sz:", kNumber = "dword:";
constexpr std::string_view kDefaultValue = "@"; ///< as a key; a name "@" of its own is written as "%40"

std::string ValueKey(std::string_view name) {
    if (name.empty()) return std::string(kDefaultValue);
    return name == kDefaultValue ? std::string("%40") : EscapedIniName(name);
}

bool IsAtOrBelow(std::string_view section, std::string_view key) {
    return EqualIgnoringCase(section.substr(0, key.size()), key) &&
           (section.size() == key.size() || section[key.size()] == '\\');
}

} // namespace

std::optional<RegistryValue> HiveRegistry::Read(std::string_view key, std::string_view name) {
    const auto held = file.Document().Value(EscapedIniName(key), ValueKey(name));
    if (!held) return std::nullopt;
    if (held->starts_with(kText)) return held->substr(kText.size());
    if (held->starts_with(kNumber)) return ToLong(std::string_view(*held).substr(kNumber.size()));
    return std::nullopt; // of a type that nothing here reads
}

void HiveRegistry::Write(std::string_view key, std::string_view name, const RegistryValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    const std::string held =
        text != nullptr ? Join(kText, *text) : Join(kNumber, std::to_string(std::get<std::int32_t>(value)));
    if (key.empty() || !file.SetValue(EscapedIniName(key), ValueKey(name), held))
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

bool HiveRegistry::Has(std::string_view key) {
    const std::string own = EscapedIniName(key);
    const auto sections = file.Document().Sections();
    return std::any_of(sections.begin(), sections.end(),
                       [&](const std::string& section) { return IsAtOrBelow(section, own); });
}

void HiveRegistry::Remove(std::string_view key) {
    const std::string own = EscapedIniName(key);
    file.Change([&](IniDocument& document) {
        const auto sections = document.Sections();
        for (const std::string& section : sections)
            if (IsAtOrBelow(section, own)) document.RemoveSection(section);
        return document.Sections().size() != sections.size();
    });
}

std::vector<std::string> HiveRegistry::Subkeys(std::string_view key) {
    const std::string below = EscapedIniName(key) + "\\";
    std::vector<std::string> names;
    for (const std::string& section : file.Document().Sections()) {
        if (!EqualIgnoringCase(std::string_view(section).substr(0, below.size()), below)) continue;
        const std::string_view rest = std::string_view(section).substr(below.size());
        names.push_back(UnescapedIniName(rest.substr(0, rest.find('\\'))));
    }
    std::sort(names.begin(), names.end(), LessInSortedList);
    names.erase(std::unique(names.begin(), names.end(), EqualIgnoringCase), names.end());
    return names;
}

} // namespace ombrin
