// Taking the path of a game apart. A path keeps the separator that it came with: one without "\" is cut at "/".
#pragma once

#include <string>
#include <string_view>

namespace ombrin {

/// "\", or "/" where the path holds none.
std::string_view SeparatorOf(std::string_view path);

/// Behind the last separator; empty where there is none.
std::string_view FileOf(std::string_view path);
/// Before the last separator; empty where there is none.
std::string_view DirectoryOf(std::string_view path);
/// The name of the section for a game's options: its file without directory and extension; empty where the path lacks a
/// separator or the name a ".".
std::string_view ExeBase(std::string_view path);

} // namespace ombrin
