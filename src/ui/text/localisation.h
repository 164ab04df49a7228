// Texts in the user's language, from the language file. Whatever its section does not hold stays English.
#pragma once

#include "controls/form.h"
#include "controls/list_models.h"
#include "controls/menu.h"
#include "controls/simple_models.h"
#include "foundation/profile.h"
#include "ui/text/language_keys.h"

#include <string>
#include <string_view>

namespace ombrin {

/// The file is read anew at each look-up; an empty value counts as absent.
class Localisation {
public:
    static constexpr std::string_view kFile = "AVfLang.ini";
    static constexpr std::string_view kEnglish = "English"; ///< selects the texts built into the program

    /// No language, or English: dialogs and the view then keep the texts that they are made with.
    static bool IsBuiltIn(std::string_view language) { return language.empty() || language == kEnglish; }

    explicit Localisation(Profile& profile) : profile(profile) {}

    /// Language in force by the file, empty while none has been chosen.
    std::string CurrentLanguage();
    void StoreCurrentLanguage(std::string_view language);
    /// Empty where the section has no such key, and for no language.
    std::string Translation(std::string_view language, std::string_view key);
    std::string LanguageOnOffer(int number);

    /// The translation into the current language, or the default.
    std::string TranslateWord(std::string_view key, std::string_view missing);

    /// The language of the routines below, set once at start-up.
    void SetFLLanguage(std::string_view language) { foreignLanguage = language; }
    void SetFLButton(Button& control, std::string_view key) { SetCaption(control, key); }
    void SetFLLabel(Label& control, std::string_view key) { SetCaption(control, key); }
    void SetFLCheckBox(CheckBox& control, std::string_view key) { SetCaption(control, key); }
    void SetFLMenu(MenuEntry& control, std::string_view key) { SetCaption(control, key); }
    void SetFLForm(Form& form, std::string_view key);
    /// The bar always gets a text: the translation, or the default.
    void SetFLStatusbar(StatusBar& bar, std::string_view key, std::string_view missing);
    void SetFLListViewColumnHeader(ListView& list, std::string_view key, std::size_t column);
    /// The entries of a pop-up menu.
    void SetFLOnMenu(Menu& menu);

    /// The same for the captions of a dialog, by the table of caption keys; nothing where the file says English.
    void SetFLOnDialog(Form& form);

    /// The captions of a dialog as it is loaded, in the language of the file; nothing in English.
    void TranslateForm(Form& form);
    /// What stands in the main view or a dialog, by the same table.
    void TranslateControls(Container& place, std::string_view language);

    /// A lobby's name behind the word for "Lobby", on the title of the chat. Nothing when the language lacks the word:
    /// the caption then stays as it was.
    void SetLobbyCaption(Label& label, std::string_view lobby);

private:
    void SetCaption(Captioned& control, std::string_view key);
    void Translate(Form& form, std::string_view language);

    Profile& profile;
    std::string foreignLanguage;
};

} // namespace ombrin
