#include "session/wire/connection_dialog.h"

namespace ombrin {

Connection::Connection(ModalStack& stack, Localisation& language, Trap& trap)
    : Form(stack, "Connection", "Connecting"), language(language), trap(trap) {
    Load = [this] {
        this->trap(
            "Form_Load",
            [&] {
                this->trap.log.TraceMessage("cancel connection dialog displayed");
                this->language.TranslateForm(*this);
            },
            Name());
    };
    Activate = [this] { this->trap.log.TraceMessage("cancel connection dialog displayed"); };
    Deactivate = [this] { this->trap.log.TraceMessage("cancel connection dialog closed"); };
    CancelButton.Click = [this] { CancelButton_Click(); };
    CloseBox = [this] { CancelButton_Click(); };
    Default = &CancelButton;
}

void Connection::CancelButton_Click() {
    trap(
        __func__,
        [&] {
            Canceled = true;
            Hide();
        },
        Name());
}

} // namespace ombrin
