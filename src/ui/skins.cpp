#include "ui/skins.h"

#include "foundation/text.h"
#include "ui/skin_slots.h"

namespace ombrin {

namespace {

constexpr std::string_view kTurnsFlat = "EnterUp"; ///< the one slot that takes the raised edge away

} // namespace

void Skins::LoadSkins() {
    trap.log.TraceMessage("loading skins");
    trap.Quietly(__func__, [&] {
        if (const std::string value = ValueOf(skin::kBackgroundImage); !value.empty())
            view.OBSkin.SetPicture(Load(value));
        for (const skin::ButtonSlot& slot : skin::kButtonSlots) DressButton(slot.prefix, view.*slot.button);
        if (const std::string value = ValueOf(skin::kLabelTextColor); !value.empty()) ColourLabels(ToLong(value));
    });
}

void Skins::DressButton(std::string_view prefix, Button& button) {
    for (const skin::StateSlot& slot : skin::kStateSlots) {
        const std::string key = Join(prefix, slot.suffix);
        const std::string value = ValueOf(key);
        if (value.empty()) continue;
        if (key == kTurnsFlat) button.SetFlat(true);
        button.SetPicture(slot.state, Load(value));
    }
}

std::string_view Skins::PrefixOf(const Button& button) {
    const auto* view = dynamic_cast<const View*>(&button.Parent());
    if (view == nullptr) return {};
    for (const skin::ButtonSlot& slot : skin::kButtonSlots)
        if (&(view->*slot.button) == &button) return slot.prefix;
    return {};
}

/// The store hides the file, key by key.
std::string Skins::ValueOf(std::string_view key) {
    std::string value = sources.settings.GetSetting(skin::kStoreSection, key);
    return value.empty() ? sources.iniFiles.Read("av.ini", skin::kFileSection, key, IniFiles::kShortValueLength)
                         : value;
}

Picture Skins::Load(const std::string& value) { return Picture(sources.pictures.LoadPicture(sources.appPath + value)); }

void Skins::ColourLabels(Colour colour) {
    for (Label* label : {&view.ChatFrame, &view.RoomBorder, &view.ConfigWarning}) label->SetForeColour(colour);
}

} // namespace ombrin
