// The box that stands while the client waits for the server.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "ui/text/localisation.h"

namespace ombrin {

class Connection : public Form {
public:
    Connection(ModalStack& stack, Localisation& language, Trap& trap);

    Label Label1{*this, "Label1", "Connecting to server...."};
    Button CancelButton{*this, "CancelButton", "Cancel"};

    bool Canceled = false; ///< set by the button, which also hides the box

private:
    void CancelButton_Click();

    Localisation& language;
    Trap& trap;
};

} // namespace ombrin
