#include "session/account_dialog.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "session/names.h"

namespace ombrin {

CreateAccount::CreateAccount(ModalStack& stack, Localisation& language, Trap& trap)
    : Form(stack, "CreateAccount", "Create Account"), trap(trap) {
    Load = [this, &language] {
        this->trap(
            "Form_Load", [&] { language.TranslateForm(*this); }, Name());
    };
    CloseBox = [this] { Cancel_Click(); };
    Create.Click = [this] { Create_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
    for (TextBox* box : {&LogonName, &Password, &ConfirmPassword})
        box->KeyPress = [this](int& key) {
            if (key != UserInput::kEnter) return;
            key = 0;
            Create_Click();
        };
    Default = &LogonName;
}

void CreateAccount::Create_Click() {
    trap(
        __func__,
        [&] {
            for (TextBox* box : {&LogonName, &Password, &ConfirmPassword}) {
                box->SetText(std::string(Trim(box->Text())));
                bool valid = false;
                CheckForValidUserName(box->Text(), valid, sbStatusBar);
                if (!valid) return;
            }
            if (Password.Text() != ConfirmPassword.Text()) {
                sbStatusBar.SetText("Passwords do not match.");
                return;
            }
            Canceled = false;
            sbStatusBar.SetText("");
            Hide();
        },
        Name());
}

void CreateAccount::Cancel_Click() {
    Canceled = true;
    sbStatusBar.SetText("");
    Hide();
}

} // namespace ombrin
