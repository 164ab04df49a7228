#include "ui/text/localisation.h"

#include "foundation/text.h"

namespace ombrin {

namespace {

constexpr std::string_view kCurrentSection = "CurrentLanguage", kCurrentKey = "Language";

} // namespace

std::string Localisation::CurrentLanguage() { return profile.ReadIniValue(kFile, kCurrentSection, kCurrentKey); }

void Localisation::StoreCurrentLanguage(std::string_view language) {
    profile.SetIniValue(kFile, kCurrentSection, kCurrentKey, language);
}

std::string Localisation::Translation(std::string_view language, std::string_view key) {
    return language.empty() ? std::string() : profile.ReadIniValue(kFile, language, key);
}

std::string Localisation::LanguageOnOffer(int number) {
    return Translation("Languages", Join("Language", std::to_string(number)));
}

std::string Localisation::TranslateWord(std::string_view key, std::string_view missing) {
    const std::string translation = Translation(CurrentLanguage(), key);
    return translation.empty() ? std::string(missing) : translation;
}

void Localisation::SetCaption(Captioned& control, std::string_view key) {
    const std::string translation = Translation(foreignLanguage, key);
    if (!translation.empty()) control.SetCaption(translation);
}

void Localisation::SetFLForm(Form& form, std::string_view key) {
    const std::string translation = Translation(foreignLanguage, key);
    if (!translation.empty()) form.SetCaption(translation);
}

void Localisation::SetFLStatusbar(StatusBar& bar, std::string_view key, std::string_view missing) {
    const std::string translation = Translation(foreignLanguage, key);
    bar.SetText(translation.empty() ? missing : std::string_view(translation));
}

void Localisation::SetFLListViewColumnHeader(ListView& list, std::string_view key, std::size_t column) {
    const std::string translation = Translation(foreignLanguage, key);
    if (!translation.empty()) list.SetHeader(column, translation);
}

void Localisation::SetFLOnMenu(Menu& menu) {
    for (const CaptionKey& row : kCaptionKeys)
        if (row.place == menu.Name())
            for (MenuEntry* entry : menu.Entries())
                if (entry->Name() == row.control) SetFLMenu(*entry, row.key);
}

void Localisation::SetFLOnDialog(Form& form) {
    if (!IsBuiltIn(CurrentLanguage())) Translate(form, foreignLanguage);
}

void Localisation::TranslateForm(Form& form) {
    const std::string language = CurrentLanguage();
    if (!IsBuiltIn(language)) Translate(form, language);
}

void Localisation::Translate(Form& form, std::string_view language) {
    TranslateControls(form, language);
    for (const CaptionKey& row : kCaptionKeys) {
        if (row.place != form.Name() || !row.control.empty()) continue;
        const std::string translation = Translation(language, row.key);
        if (!translation.empty()) form.SetCaption(translation);
    }
}

void Localisation::TranslateControls(Container& place, std::string_view language) {
    for (const CaptionKey& row : kCaptionKeys) {
        if (row.place != place.Name() || row.control.empty()) continue;
        const std::string translation = Translation(language, row.key);
        if (translation.empty()) continue;
        if (auto* control = dynamic_cast<Captioned*>(place.Find(row.control))) control->SetCaption(translation);
    }
}

void Localisation::SetLobbyCaption(Label& label, std::string_view lobby) {
    const std::string language = CurrentLanguage();
    const std::string word = IsBuiltIn(language) ? "Lobby" : Translation(language, "Lobby");
    if (!word.empty()) label.SetCaption(Join(word, " - ", lobby));
}

} // namespace ombrin
