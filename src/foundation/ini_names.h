// Any text as the name of an INI section or key: what such a name cannot hold stands there as "%" and two hexadecimal
// digits.
#pragma once

#include <string>
#include <string_view>

namespace ombrin {

std::string EscapedIniName(std::string_view name);
/// The reverse; a "%" without two digits behind it stays.
std::string UnescapedIniName(std::string_view name);

} // namespace ombrin
