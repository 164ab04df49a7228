#include "launch/about_box.h"

#include "foundation/app.h"
#include "foundation/text.h"

namespace ombrin {

frmAbout::frmAbout(ModalStack& stack) : Form(stack, "frmAbout", Join("About ", App::kTitle)) {
    lblTitle.SetCaption(App::kTitle);
    lblVersion.SetCaption(Join("Version ", std::to_string(App::kMajor), ".", std::to_string(App::kMinor), ".",
                               std::to_string(App::kRevision)));
    cmdOK.Click = [this] { Hide(); };
    CloseBox = [this] { Hide(); };
    Default = &cmdOK;
}

} // namespace ombrin
