// The slots of a skin. Each is a key: of the store and of the settings file, where the client looks it up, and of a
// skin's own file.
#pragma once

#include "controls/main_view.h"

#include <array>
#include <string_view>

namespace ombrin::skin {

inline constexpr std::string_view kStoreSection = "Skins", kFileSection = "Skin";

inline constexpr std::string_view kBackgroundImage = "BackgroundImage"; ///< a picture
inline constexpr std::string_view kLabelTextColor = "LabelTextColor";   ///< a decimal number, red in the low byte

/// Beside the slots in the store, for hosts: the skin in use, and what it wants of everything that has no picture.
inline constexpr std::string_view kName = "Name", ///< of the skin's folder
    kScheme = "Scheme",                           ///< "dark" or "light"
    kCaptions = "Captions";                       ///< "1": captions are written over the pictures of buttons, "0": not

struct ButtonSlot {
    std::string_view prefix;
    Button View::*button;
};

/// The three keys of a button are its prefix and each suffix of kStateSlots.
inline constexpr std::array kButtonSlots{
    ButtonSlot{"Enter", &View::Enter},
    ButtonSlot{"Create", &View::Create},
    ButtonSlot{"SendLobby", &View::SendMain},
    ButtonSlot{"PM", &View::PM},
    ButtonSlot{"Logoff", &View::Logoff},
    ButtonSlot{"SendRoom", &View::SendRoom},
    ButtonSlot{"Launch", &View::Launch},
    ButtonSlot{"Destroy", &View::Destroy},
    ButtonSlot{"Configure", &View::Configure},
    ButtonSlot{"Leave", &View::Leave},
    ButtonSlot{"News", &View::btnConfigurable1},
    ButtonSlot{"Files", &View::btnConfigurable2},
    ButtonSlot{"Ladders", &View::btnConfigurable3},
    ButtonSlot{"Depot", &View::btnConfigurable4},
    ButtonSlot{"Players", &View::btnConfigurable5},
    ButtonSlot{"AddBuddy", &View::btnAddBuddy},
    ButtonSlot{"RemoveBuddy", &View::btnRemoveBuddy},
};

struct StateSlot {
    std::string_view suffix;
    Picture ButtonPictures::*state;
};

inline constexpr std::array kStateSlots{
    StateSlot{"Up", &ButtonPictures::up},
    StateSlot{"Down", &ButtonPictures::down},
    StateSlot{"Disabled", &ButtonPictures::disabled},
};

} // namespace ombrin::skin
