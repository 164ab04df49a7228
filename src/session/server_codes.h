// The one table from a server's code to the routine that handles it.
#pragma once

#include "session/areas.h"

#include <string_view>

namespace ombrin {

/// Runs the routine of the code with the payload; false when the code is in no row.
bool RunServerCode(Areas& areas, std::string_view code, std::string_view payload);

} // namespace ombrin
