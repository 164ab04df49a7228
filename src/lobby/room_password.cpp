#include "lobby/room_password.h"

#include "controls/user_input.h"

namespace ombrin {

RoomPassword::RoomPassword(ModalStack& stack, Messages& messages, Localisation& language, Trap& trap)
    : Form(stack, "RoomPassword", "Room Password"), messages(messages), trap(trap) {
    Load = [this, &language] {
        this->trap(
            "Form_Load", [&] { language.TranslateForm(*this); }, Name());
    };
    Paint = [this] {
        Password.SetFocus();
        Password.SetText("");
    };
    CloseBox = [this] { CancelButton_Click(); };
    OKButton.Click = [this] { OKButton_Click(); };
    CancelButton.Click = [this] { CancelButton_Click(); };
    Password.KeyPress = [this](int& key) {
        if (key != UserInput::kEnter) return;
        key = 0;
        OKButton_Click();
    };
}

void RoomPassword::OKButton_Click() {
    trap(
        __func__,
        [&] {
            if (Password.Text().empty()) {
                messages.DisplayMessage(text::kError19);
                return;
            }
            Cancelled = false;
            Hide();
        },
        Name());
}

void RoomPassword::CancelButton_Click() {
    trap(
        __func__,
        [&] {
            Cancelled = true;
            Hide();
        },
        Name());
}

} // namespace ombrin
