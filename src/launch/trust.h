// What of the server's words may reach a command line or the file system.
#pragma once

#include <string_view>

namespace ombrin {

/// An IPv4 or IPv6 address, or a host name: letters, digits, "-", "." and ":", no "-" in front.
bool IsAddressOrHostName(std::string_view text);

/// A name without a separator that is neither "." nor "..".
bool IsBareName(std::string_view text);

} // namespace ombrin
