// The dialog for a new account.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "ui/text/localisation.h"

namespace ombrin {

class CreateAccount : public Form {
public:
    CreateAccount(ModalStack& stack, Localisation& language, Trap& trap);

    Label Label1{*this, "Label1", "Logon Name:"};
    TextBox LogonName{*this, "LogonName", {.maxLength = 12}};
    Label Label2{*this, "Label2", "Password:"};
    TextBox Password{*this, "Password", {.maxLength = 12, .password = true}};
    Label Label3{*this, "Label3", "Confirm Password:"};
    TextBox ConfirmPassword{*this, "ConfirmPassword", {.maxLength = 12, .password = true}};
    Button Create{*this, "Create", "Create"};
    Button Cancel{*this, "Cancel", "Cancel"};
    StatusBar sbStatusBar{*this, "sbStatusBar"};

    bool Canceled = false; ///< the dialog ended by Cancel

private:
    void Create_Click();
    void Cancel_Click();

    Trap& trap;
};

} // namespace ombrin
