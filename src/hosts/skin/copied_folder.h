// A folder that this program made as a copy, told from one that a person has made or changed. Paths are as the system
// takes them.
#pragma once

#include <string>

namespace ombrin::skin {

/// Leaves a mark in the folder with a sum over all that is in it. Raises what ReadPlainFile and WriteNewFile raise.
void MarkAsCopy(const std::string& folder);

/// Has the folder such a mark, and does it still hold exactly what was copied? No link to a folder is one.
bool IsUnchangedCopy(const std::string& folder);

} // namespace ombrin::skin
