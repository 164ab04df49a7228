// The box that stands while the client waits for the server.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "session/wire/session.h"
#include "ui/text/localisation.h"

namespace ombrin {

class Connection : public Form {
public:
    Connection(ModalStack& stack, Settings& settings, Session& session, Localisation& language, Trap& trap);

    Label Label1{*this, "Label1", "Connecting to server...."};
    Button CancelButton{*this, "CancelButton", "Cancel"};

    bool Canceled = false; ///< set by the button, which also hides the box

    /// Shows the box until it is hidden. True when the user has cancelled this wait: an older one that wakes up after
    /// it was not cancelled by the same press.
    bool WaitAndAskCanceled();

private:
    void CancelButton_Click();

    Localisation& language;
    Trap& trap;
    unsigned shows = 0;
};

} // namespace ombrin
