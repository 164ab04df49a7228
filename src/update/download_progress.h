// What stands while files are downloaded.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"
#include "ui/text/localisation.h"

namespace ombrin {

class DownloadProgress : public Form {
public:
    DownloadProgress(ModalStack& stack, Localisation& language, Trap& trap);

    /// As the dialog of a new transfer: empty, with Cancel alone.
    void Prepare();
    /// Everything has come: OK takes the place of Cancel.
    void OfferOK();

    Label DPLabel{*this, "DPLabel"};
    ProgressBar DownloadProgressBar{*this, "DownloadProgressBar"};
    Button Cancel{*this, "Cancel", "Cancel"};
    Button OK{*this, "OK", "OK"};

    bool Canceled = false; ///< how it was closed
private:
    void Close(bool canceled);
};

} // namespace ombrin
