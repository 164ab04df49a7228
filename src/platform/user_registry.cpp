#include "platform/user_registry.h"

#include "foundation/text.h"

namespace ombrin {

namespace {

std::string OfUser(std::string_view key) { return Join("HKEY_CURRENT_USER\\", key); }

} // namespace

std::string QueryValue(Registry& registry, std::string_view key, std::string_view name) {
    const auto value = registry.Read(OfUser(key), name);
    if (!value) return {};
    const auto* text = std::get_if<std::string>(&*value);
    return text != nullptr ? *text : std::to_string(std::get<std::int32_t>(*value));
}

void SetKeyValue(Registry& registry, std::string_view key, std::string_view name, const RegistryValue& value) {
    if (registry.Has(OfUser(key))) registry.Write(OfUser(key), name, value);
}

} // namespace ombrin
