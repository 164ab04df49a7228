#include "platform/user_registry.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

namespace ombrin {

namespace {

std::string OfUser(std::string_view key) { return Join("HKEY_CURRENT_USER\\", key); }

std::string AsText(const RegistryValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? *text : std::to_string(std::get<std::int32_t>(value));
}

std::int32_t AsNumber(const RegistryValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? ToLong(*text) : std::get<std::int32_t>(value);
}

} // namespace

std::int32_t SetValueEx(Registry& registry, std::string_view key, std::string_view name, std::int32_t type,
                        const RegistryValue& value) {
    if (type != kTextType && type != kNumberType) return kSuccess;
    const RegistryValue held = type == kTextType ? RegistryValue(AsText(value)) : RegistryValue(AsNumber(value));
    try {
        registry.Write(key, name, held);
    } catch (const RuntimeError& error) {
        if (!error.Is(ErrorNumber::InvalidProcedureCall)) throw;
        return kInvalidParameter;
    }
    return kSuccess;
}

std::int32_t QueryValueEx(Registry& registry, std::string_view key, std::string_view name, RegistryValue& value) {
    const auto held = registry.Read(key, name);
    if (!held && registry.HasOther(key, name)) return kOtherType;
    if (!held) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    value = *held;
    return kSuccess;
}

std::string QueryValue(Registry& registry, std::string_view key, std::string_view name) {
    const auto value = registry.Read(OfUser(key), name);
    return value ? AsText(*value) : std::string();
}

void SetKeyValue(Registry& registry, std::string_view key, std::string_view name, const RegistryValue& value) {
    if (registry.Has(OfUser(key))) registry.Write(OfUser(key), name, value);
}

} // namespace ombrin
