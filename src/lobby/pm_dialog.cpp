#include "lobby/pm_dialog.h"

#include "controls/grid_routines.h"
#include "controls/user_input.h"
#include "foundation/text.h"
#include "lobby/copy_line.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

namespace ombrin {

PMDialog::PMDialog(ModalStack& stack, Settings& settings, Messages& messages, Localisation& language,
                   Clipboard& clipboard, Trap& trap)
    : Form(stack, "PMDialog", "Private Message"), settings(settings), messages(messages), language(language),
      trap(trap) {
    Load = [this] { Form_Load(); };
    CloseBox = [this] { OKButton_Click(); };
    PMSend.Click = [this] { PMSend_Click(); };
    OKButton.Click = [this] { OKButton_Click(); };
    PrivateMessage.KeyPress = [this](int& key) { PrivateMessage_KeyPress(key); };
    msflxPMLines.Click = [this] { msflxPMLines_Click(); };
    msflxPMLines.KeyDown = [this, &clipboard](int& code, int shift) { CopyLine(msflxPMLines, clipboard, code, shift); };
    Default = &PrivateMessage;
}

void PMDialog::SetRecipient(std::string_view name) {
    Recipient = name;
    User.SetText(name);
}

void PMDialog::Form_Load() {
    trap(
        __func__,
        [&] {
            InitializeMSFlexGrid(msflxPMLines, true);
            language.TranslateForm(*this);
            const std::string current = language.CurrentLanguage();
            if (Localisation::IsBuiltIn(current) || !language.Translation(current, "PrivateMessage").empty())
                SetCaption(Join(Caption(), " - ", OwnName));
            User.SetText(Recipient);
        },
        Name());
}

void PMDialog::PMSend_Click() {
    trap(
        __func__,
        [&] {
            if (PrivateMessage.Text().empty()) return;
            if (User.Text() == OwnName) {
                messages.DisplayMessage(text::kError24);
                return;
            }
            SetRecipient(std::string(User.Text()));
            User.SetList({Recipient});
            settings.SaveSetting("PMUsers", "PMUser", Recipient);
            SendData(client_message::PrivateMessage(UserData, Recipient, EncodeData(PrivateMessage.Text())));
            PrivateMessage.SetText("");
            PrivateMessage.SetFocus();
        },
        Name());
}

void PMDialog::SendData(std::string_view data) { Socket->SendData(data, text::kError25); }

void PMDialog::PrivateMessage_KeyPress(int& key) {
    if (key != UserInput::kEnter) return;
    key = 0;
    PMSend_Click();
}

void PMDialog::OKButton_Click() { Hide(); }

/// A click on a name turns the dialog to that person.
void PMDialog::msflxPMLines_Click() {
    trap(
        __func__,
        [&] {
            const std::string& cell = msflxPMLines.Text();
            if (!cell.empty() && cell != OwnName) SetRecipient(cell);
        },
        Name());
}

} // namespace ombrin
