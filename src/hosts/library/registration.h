// The library in a client's registry, as a component of it.
#pragma once

#include "platform/hive_registry.h"

#include <string>

namespace ombrin::host {

/// Enters the classes and the type library; `file` is the library's own, in the client's code page. Raises what the
/// registry raises.
void EnterClasses(HiveRegistry& registry, const std::string& file);
/// Also where they are not there.
void TakeClassesOut(HiveRegistry& registry);

} // namespace ombrin::host
