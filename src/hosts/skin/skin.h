// A skin: a folder with pictures and the file skin.ini, which says which is which.
#pragma once

#include "controls/control.h"

#include <optional>
#include <string>
#include <vector>

namespace ombrin::skin {

inline constexpr std::string_view kSkinFile = "skin.ini";

/// All texts are UTF-8.
struct Skin {
    struct Slot {
        std::string key, file; ///< a slot of ui/skin_slots.h, and a bare name
    };

    std::string name;                       ///< its folder's
    std::string folder;                     ///< as the system takes it
    std::string title, author, description; ///< fit to be shown
    std::vector<Slot> pictures;             ///< those that it has, in the order of the slots
    std::optional<Colour> labelTextColor, textColor;
    std::string scheme, captions; ///< as the host takes them, or empty

    /// Every file that it needs: skin.ini, the pictures, and their companions of twice the size that are there.
    std::vector<std::string> Files() const;
};

/// Every slot that takes a picture, in the order of the client.
std::vector<std::string> PictureKeys();

/// Can it be joined to a folder and stay in it? Not empty, no separator, no control character, no "." in front.
bool IsBareName(std::string_view name);

/// A text of somebody else's: one line of moderate length, and nothing that steers a terminal.
std::string FitToShow(std::string text);

/// Reads and checks skin.ini; the pictures are not looked at. Raises std::runtime_error with a sentence that names the
/// file and what is wrong in it. A key that is not known is passed over.
Skin ReadSkin(const std::string& folder);

} // namespace ombrin::skin
