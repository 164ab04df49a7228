// Every message and question for the user, in his language.
#pragma once

#include "controls/boxes.h"
#include "ui/text/localisation.h"

namespace ombrin {

class Messages {
public:
    Messages(Boxes& boxes, Localisation& language) : boxes(boxes), language(language) {}

    /// The translation under the key, or the text; waits for the button.
    BoxResult DisplayMessage(std::string_view text, std::string_view key, BoxButtons buttons = BoxButtons::Ok) {
        return boxes.Show(language.TranslateWord(key, text), kUsualTitle, buttons);
    }
    BoxResult DisplayMessage(const LanguageText& message, BoxButtons buttons = BoxButtons::Ok) {
        return DisplayMessage(message.english, message.key, buttons);
    }
    /// What was typed, empty after a cancel.
    std::string DisplayInputBox(std::string_view prompt, std::string_view key) {
        return boxes.Ask(language.TranslateWord(key, prompt));
    }

    Boxes& boxes; ///< for texts that are never translated
    Localisation& language;
};

} // namespace ombrin
