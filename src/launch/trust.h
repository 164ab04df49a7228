// What of the server's words may reach a command line or the file system.
#pragma once

#include "foundation/log.h"

#include <string_view>

namespace ombrin {

/// An IPv4 or IPv6 address, or a host name: letters, digits, "-", "." and ":", no "-" in front.
bool IsAddressOrHostName(std::string_view text);
/// Whether a game may be started with the address: an empty one, or one of those; what is refused is logged.
bool MayLaunchAt(std::string_view address, Log& log);

/// A name without a separator that is neither "." nor "..".
bool IsBareName(std::string_view text);

} // namespace ombrin
