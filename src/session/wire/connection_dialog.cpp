#include "session/wire/connection_dialog.h"

namespace ombrin {

Connection::Connection(ModalStack& stack, Settings& settings, Session& session, Localisation& language, Trap& trap)
    : Form(stack, "Connection", "Connecting"), language(language), trap(trap) {
    Load = [this, &settings, &session] {
        this->trap(
            "Form_Load",
            [&] {
                LoadTracingOn(session, settings);
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

bool Connection::WaitAndAskCanceled() {
    const unsigned own = ++shows;
    Canceled = false;
    ShowModal();
    return Canceled && shows == own;
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
