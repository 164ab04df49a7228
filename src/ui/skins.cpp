#include "ui/skins.h"

#include "foundation/text.h"

#include <array>

namespace ombrin {

namespace {

struct ButtonSlot {
    std::string_view prefix;
    Button View::*button;
};

constexpr std::array kButtonSlots{
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

constexpr std::array kStateSlots{
    StateSlot{"Up", &ButtonPictures::up},
    StateSlot{"Down", &ButtonPictures::down},
    StateSlot{"Disabled", &ButtonPictures::disabled},
};

constexpr std::string_view kTurnsFlat = "EnterUp"; ///< the one slot that takes the raised edge away

} // namespace

void Skins::LoadSkins() {
    trap.log.TraceMessage("loading skins");
    trap.Quietly(__func__, [&] {
        if (const std::string value = ValueOf("BackgroundImage"); !value.empty()) view.OBSkin.SetPicture(Load(value));
        for (const ButtonSlot& slot : kButtonSlots) DressButton(slot.prefix, view.*slot.button);
        if (const std::string value = ValueOf("LabelTextColor"); !value.empty()) ColourLabels(ToLong(value));
    });
}

void Skins::DressButton(std::string_view prefix, Button& button) {
    for (const StateSlot& slot : kStateSlots) {
        const std::string key = Join(prefix, slot.suffix);
        const std::string value = ValueOf(key);
        if (value.empty()) continue;
        if (key == kTurnsFlat) button.SetFlat(true);
        button.SetPicture(slot.state, Load(value));
    }
}

/// The store hides the file, key by key.
std::string Skins::ValueOf(const std::string& key) {
    std::string value = sources.settings.GetSetting("Skins", key);
    return value.empty() ? sources.iniFiles.Read("av.ini", "Skin", key, IniFiles::kShortValueLength) : value;
}

Picture Skins::Load(const std::string& value) { return Picture(sources.pictures.LoadPicture(sources.appPath + value)); }

void Skins::ColourLabels(Colour colour) {
    for (Label* label : {&view.ChatFrame, &view.RoomBorder, &view.ConfigWarning}) label->SetForeColour(colour);
}

} // namespace ombrin
