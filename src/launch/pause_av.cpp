#include "launch/pause_av.h"

#include <algorithm>
#include <array>

namespace ombrin {

namespace {

enum class Is { Yes, No, Any };

bool Fits(Is wanted, bool is) { return wanted == Is::Any || (wanted == Is::Yes) == is; }

struct Instruction {
    Is autoStartOn, isCreator, usesDirectPlay;
    LanguageText text;
};

using enum Is;

// clang-format off
constexpr std::array kInstructions{
    Instruction{Yes, Yes, Yes, {"AutoCreatorDP",
        "Game launched using DirectPlay.  For certain DirectPlay games you will be sent directly to the games's lobby, "
        "in which case you don't need to do anything at this point.  If the game does not bring you to the game's "
        "lobby then when game starts proceed to the multi-player section and set up an IP based game.  Then wait for "
        "others to join."}},
    Instruction{Yes, Yes, No, {"AutoCreatorNoDP",
        "Game launched.  When game starts proceed to the multi-player section and set up an IP based game.  Then wait "
        "for others to join."}},
    Instruction{Yes, No, Yes, {"AutoNotCreatorDP",
        "Game launched using DirectPlay.  For certain DirectPlay games you will be sent directly to the games's lobby, "
        "in which case you don't need to do anything at this point.  If the game does not bring you to the game's "
        "lobby then When game starts proceed to multi-player section and join an IP game.  When prompted for the game "
        "creator's IP address type 'CTRL-V'.  The game creator's IP address has been copied to your clip-board and "
        "will be inserted at the prompt."}},
    Instruction{Yes, No, No, {"AutoNotCreatorNoDP",
        "Game has been launched by room creator.  When game starts proceed to multi-player section and join an IP "
        "game.  When prompted for the game creator's IP address type 'CTRL-V'.  The game creator's IP address has been "
        "copied to your clip-board and will be inserted at the prompt."}},
    Instruction{No, Yes, Any, {"NoAutoCreator",
        "Game not configured to auto-start, you must launch the game.  When game starts proceed to the multi-player "
        "section and set up an IP based game.  Then wait for others to join."}},
    Instruction{No, No, Any, {"NoAutoNotCreator",
        "Game has been launched by room creator.  You do not have this game configured to auto-start, you must "
        "manually start the game.  When game starts proceed to multi-player section and join an IP game.  When "
        "prompted for the game creator's IP address type 'CTRL-V'.  The game creator's IP address has been copied to "
        "your clip-board and will be inserted at the prompt."}},
};
// clang-format on

} // namespace

PauseAV::PauseAV(ModalStack& stack, Localisation& language, Trap& trap)
    : Form(stack, "PauseAV", "Game Launched"), language(language), trap(trap) {
    Activate = [this] { ChooseTexts(); };
    CloseBox = [this] { Hide(); };
    ResumeButton.Click = [this] { Hide(); };
    Default = &ResumeButton;
}

void PauseAV::ChooseTexts() {
    trap(
        "Form_Activate",
        [&] {
            const LanguageText& chosen =
                std::find_if(kInstructions.begin(), kInstructions.end() - 1, [&](const Instruction& row) {
                    return Fits(row.autoStartOn, AutoStartOn) && Fits(row.isCreator, IsCreator) &&
                           Fits(row.usesDirectPlay, UsesDirectPlay);
                })->text;
            language.TranslateForm(*this);
            const std::string current = language.CurrentLanguage();
            Label2.SetCaption(Localisation::IsBuiltIn(current) ? std::string(chosen.english)
                                                               : language.Translation(current, chosen.key));
        },
        Name());
}

} // namespace ombrin
