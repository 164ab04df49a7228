// What a control shows of itself: its controls, one switch for all of them, and the pop-up menu that is open.
#pragma once

#include "controls/control.h"

namespace ombrin {

class Menu;

class Page : public Container {
public:
    using Container::Container;

    /// The one switch of the whole page: while it is off the page takes no input, and messages go on arriving.
    bool Enabled() const { return enabled; }
    void SetEnabled(bool on) { enabled = on && !disabledForGood; }
    /// From here on nothing enables it again.
    void DisableForGood() {
        disabledForGood = true;
        enabled = false;
    }
    bool IsDisabledForGood() const { return disabledForGood; }

    /// Opens a pop-up menu; it closes with the next input.
    void PopUp(Menu& menu) { openMenu = &menu; }
    Menu* OpenMenu() const { return openMenu; }
    void CloseMenu() { openMenu = nullptr; }

private:
    bool enabled = true, disabledForGood = false;
    Menu* openMenu = nullptr;
};

} // namespace ombrin
