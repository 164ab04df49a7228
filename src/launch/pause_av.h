// What stands while the user plays: how to meet the others, and the button that leads back.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "ui/text/localisation.h"

namespace ombrin {

class PauseAV : public Form {
public:
    PauseAV(ModalStack& stack, Localisation& language, Trap& trap);

    Label Label1{*this, "Label1",
                 "Ardvelle has been paused while you're playing.  Press resume when you're done playing to return to "
                 "Ardvelle."};
    Label Label2{*this, "Label2"};
    Button ResumeButton{*this, "ResumeButton", "Resume"};

    bool IsCreator = false;      ///< of the room, at the launch
    bool AutoStartOn = false;    ///< the game is configured
    bool UsesDirectPlay = false; ///< and starts by that route

private:
    void ChooseTexts();

    Localisation& language;
    Trap& trap;
};

} // namespace ombrin
