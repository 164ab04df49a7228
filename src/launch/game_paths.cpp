#include "launch/game_paths.h"

#include "foundation/text.h"

namespace ombrin {

std::string_view SeparatorOf(std::string_view path) { return path.find('\\') == std::string_view::npos ? "/" : "\\"; }

std::string_view FileOf(std::string_view path) { return StrExtractRight(path, SeparatorOf(path)); }
std::string_view DirectoryOf(std::string_view path) { return StrExtractLeft(path, SeparatorOf(path)); }
std::string_view ExeBase(std::string_view path) { return StrExtractLeft(FileOf(path), "."); }

} // namespace ombrin
