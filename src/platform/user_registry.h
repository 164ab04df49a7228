// Values of the current user's branch of the registry, for routines that do not mind whether they are there.
#pragma once

#include "platform/registry.h"

namespace ombrin {

/// The value as text; empty where key or value is missing.
std::string QueryValue(Registry& registry, std::string_view key, std::string_view name);
/// A key that does not exist is not made, and nothing is written.
void SetKeyValue(Registry& registry, std::string_view key, std::string_view name, const RegistryValue& value);

} // namespace ombrin
