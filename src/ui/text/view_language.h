// Settles the language at start-up and puts the texts of the main view in place.
#pragma once

#include "controls/main_view.h"
#include "ui/text/choose_language.h"
#include "ui/text/localisation.h"

namespace ombrin {

class ViewLanguage {
public:
    ViewLanguage(View& view, Localisation& language, ChooseLanguage& dialog, Trap& trap)
        : view(view), language(language), dialog(dialog), trap(trap) {}

    /// Asks the user while the file names no language.
    void SetForeignLanguage();
    void DisplayCurrentLanguage(std::string_view name);

    std::string m_sRoomWord = "Room"; ///< stands for "Room" in the title of the room panel

private:
    View& view;
    Localisation& language;
    ChooseLanguage& dialog;
    Trap& trap;
};

} // namespace ombrin
