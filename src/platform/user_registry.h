// Values of the registry as a host reads and writes them, and those of the current user's branch for routines that do
// not mind whether they are there.
#pragma once

#include "platform/registry.h"

namespace ombrin {

inline constexpr std::int32_t kTextType = 1, kNumberType = 4; ///< of a value, as the system numbers them
inline constexpr std::int32_t kSuccess = 0, kInvalidParameter = 87, kOtherType = -1;

/// Writes a value of type 1 or 4 and makes the key where it is missing; another type writes nothing and succeeds. A
/// number that is given as text is converted, and raises 13 or 6 when it is none. kInvalidParameter for what the
/// registry cannot hold.
std::int32_t SetValueEx(Registry& registry, std::string_view key, std::string_view name, std::int32_t type,
                        const RegistryValue& value);
/// kOtherType for a value that is no text or number. Raises 5 where key or value is missing.
std::int32_t QueryValueEx(Registry& registry, std::string_view key, std::string_view name, RegistryValue& value);

/// The value as text; empty where key or value is missing.
std::string QueryValue(Registry& registry, std::string_view key, std::string_view name);
/// A key that does not exist is not made, and nothing is written.
void SetKeyValue(Registry& registry, std::string_view key, std::string_view name, const RegistryValue& value);

} // namespace ombrin
