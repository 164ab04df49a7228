// Where the things lie that the programs come with: skins, sounds, the language file, and each other.
#pragma once

#include <string>
#include <string_view>

namespace ombrin {

/// As the system takes it, without a closing separator: `../share/ombrin` beside the folder of the running program, so
/// that a tree can be moved as a whole, else the place that the build was told of. Need not be there.
std::string ShareFolder();

/// A program of the same installation: beside the running one, else where the build was told. Empty where it is in
/// neither place.
std::string InstalledProgram(std::string_view name);

} // namespace ombrin
