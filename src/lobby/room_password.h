// The question for a room's password. It opens empty each time.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "ui/text/messages.h"

namespace ombrin {

class RoomPassword : public Form {
public:
    RoomPassword(ModalStack& stack, Messages& messages, Localisation& language, Trap& trap);

    Label Label1{*this, "Label1", "Password:"};
    TextBox Password{*this, "Password", {.maxLength = 20, .password = true}};
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "Cancel"};

    bool Cancelled = false;

private:
    void OKButton_Click();
    void CancelButton_Click();

    Messages& messages;
    Trap& trap;
};

} // namespace ombrin
