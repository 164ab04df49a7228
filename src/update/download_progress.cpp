#include "update/download_progress.h"

namespace ombrin {

DownloadProgress::DownloadProgress(ModalStack& stack, Localisation& language, Trap& trap)
    : Form(stack, "DownloadProgress", "Download Progress") {
    Activate = [this, &language, &trap] {
        trap(
            "Form_Activate", [&] { language.SetFLOnDialog(*this); }, Name());
    };
    // Before everything has come the close box is a cancel; afterwards there is nothing left to cancel.
    CloseBox = [this] { Close(Cancel.Visible()); };
    Cancel.Click = [this] { Close(true); };
    OK.Click = [this] { Close(false); };
    Default = &Cancel;
    Prepare();
}

void DownloadProgress::Prepare() {
    Canceled = false;
    DPLabel.SetCaption("");
    DownloadProgressBar.SetValue(0);
    for (Button* button : {&Cancel, &OK}) {
        button->SetVisible(button == &Cancel);
        button->SetEnabled(button == &Cancel);
    }
}

void DownloadProgress::OfferOK() {
    Cancel.SetEnabled(false);
    Cancel.SetVisible(false);
    OK.SetEnabled(true);
    OK.SetVisible(true);
    OK.SetFocus();
}

void DownloadProgress::Close(bool canceled) {
    Canceled = canceled;
    Hide();
}

} // namespace ombrin
