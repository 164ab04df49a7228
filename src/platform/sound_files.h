// Where a sound lies.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

/// As the system takes them, without a closing separator.
struct SoundFolders {
    std::string program; ///< the client's own folder
    std::string share;   ///< of what the programs come with
};

/// Files to look for, the first one first: a bare name lies in the folder "sounds" of the program's own folder, else in
/// that of the share, with or without ".wav"; a path counts where it leads below the program's folder. Nothing for any
/// other. All as the system takes it, but for the separators of a path.
std::vector<std::string> SoundFiles(const SoundFolders& folders, std::string_view name);

} // namespace ombrin
