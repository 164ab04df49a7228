// Where the things lie that the programs come with: skins, sounds, the language file.
#pragma once

#include <string>

namespace ombrin {

/// As the system takes it, without a closing separator: `../share/ombrin` beside the folder of the running program, so
/// that a tree can be moved as a whole, else the place that the build was told of. Need not be there.
std::string ShareFolder();

} // namespace ombrin
