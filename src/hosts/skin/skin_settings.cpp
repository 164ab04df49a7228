#include "hosts/skin/skin_settings.h"

#include "foundation/text.h"
#include "ui/skin_slots.h"

#include <stdexcept>

namespace ombrin::skin {

namespace {

/// Beside the slots: the colour that the skin has put into `Settings`, and the one that was there before.
constexpr std::string_view kTextColor = "TextColor", kTextColorBefore = "TextColorBefore";

std::string Bytes(const CodePage& page, const std::string& name) {
    if (auto bytes = page.FromUtf8(name)) return *bytes;
    throw std::runtime_error(Join("the code page ", page.Name(), " cannot hold the name ", name));
}

std::string Number(const std::optional<Colour>& colour) { return colour ? std::to_string(*colour) : std::string(); }

} // namespace

std::string NameInUse(Settings& settings, const CodePage& page) {
    return page.ToUtf8(settings.GetSetting(kStoreSection, kName));
}

void PutOn(SettingsDraft& draft, const Skin& skin, const CodePage& page) {
    TakeOff(draft);
    for (const Skin::Slot& slot : skin.pictures)
        draft.Put(kStoreSection, slot.key, Join("\\skins\\", Bytes(page, skin.name), "\\", Bytes(page, slot.file)));
    draft.Put(kStoreSection, kLabelTextColor, Number(skin.labelTextColor));
    draft.Put(kStoreSection, kName, Bytes(page, skin.name));
    draft.Put(kStoreSection, kScheme, skin.scheme);
    draft.Put(kStoreSection, kCaptions, skin.captions);
    if (!skin.textColor) return;
    draft.Put(kStoreSection, kTextColorBefore, draft.Get("Settings", kTextColor));
    draft.Put(kStoreSection, kTextColor, Number(skin.textColor));
    draft.Put("Settings", kTextColor, Number(skin.textColor));
}

void TakeOff(SettingsDraft& draft) {
    const std::string ours = draft.Get(kStoreSection, kTextColor);
    if (!ours.empty() && draft.Get("Settings", kTextColor) == ours)
        draft.Put("Settings", kTextColor, draft.Get(kStoreSection, kTextColorBefore));
    for (const std::string& key : PictureKeys()) draft.Put(kStoreSection, key, "");
    for (const std::string_view key : {kLabelTextColor, kName, kScheme, kCaptions, kTextColor, kTextColorBefore})
        draft.Put(kStoreSection, key, "");
}

} // namespace ombrin::skin
