// What this program is.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"

namespace ombrin {

class frmAbout : public Form {
public:
    explicit frmAbout(ModalStack& stack);

    Image picIcon{*this, "picIcon"};
    Label lblTitle{*this, "lblTitle"};
    Label lblVersion{*this, "lblVersion"};
    Label Label1{*this, "Label1", "The desktop client of the game-matchmaking service Ardvelle."};
    Button cmdOK{*this, "cmdOK", "OK"};
};

} // namespace ombrin
