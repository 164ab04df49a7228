// Where a sound lies.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

/// Files to look for, the first one first: a bare name lies in the folder "sounds" of the program's own folder, with or
/// without ".wav"; a path counts where it leads below the program's folder. Nothing for any other. All as the system
/// takes it, but for the separators of a path.
std::vector<std::string> SoundFiles(std::string_view appFolder, std::string_view name);

} // namespace ombrin
