// Components that enter themselves into the system's register: libraries with an entry point for it.
#pragma once

#include "foundation/trap.h"

#include <string>

namespace ombrin {

class Components {
public:
    virtual ~Components() = default;
    /// Loads the library at the path and runs its DllRegisterServer, or DllUnregisterServer where `on` is false;
    /// whether that answered 0. Raises 53 when the library cannot be loaded, 5 when it has no such entry point.
    virtual bool Register(const std::string& path, bool on) = 0;
};

/// The same with what the log says of it, behind a trap of its own. Its success is only traced.
void RegisterServer(Components& components, Trap& trap, const std::string& path, bool on);

} // namespace ombrin
