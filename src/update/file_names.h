// Final and temporary names. "/" and "\" both separate.
#pragma once

#include <string>
#include <string_view>

namespace ombrin {

/// Characters of a listed name at most: the name and what a copy of it is called stay below what file systems hold.
inline constexpr std::size_t kLongestFileName = 200;

/// A name that stays in its directory and in its field of the wire: without separator, ":" or control characters,
/// neither "." nor "..".
bool IsPlainFileName(std::string_view name);

/// Before and behind the last separator; the directory keeps it.
std::string_view DirectoryOfPath(std::string_view path);
std::string_view NameOfPath(std::string_view path);

/// With a "7" in front of the last "." of its name. Raises 5 for a name without one.
std::string TemporaryPath(std::string_view finalPath);
/// Without the character in front of the last ".".
std::string FinalPath(std::string_view temporaryPath);

/// A component, by its ending.
bool RegistersItself(std::string_view path);

} // namespace ombrin
