#include "controls/control.h"

#include <algorithm>

namespace ombrin {

Control::Control(Container& parent, ControlKind kind, std::string name)
    : parent(parent), kind(kind), name(std::move(name)) {
    parent.controls.push_back(this);
}

bool Control::SetFocus() {
    if (!visible || !enabled) return false;
    if (parent.focus == this) return true;
    parent.focus = this;
    Changed();
    if (GotFocus) GotFocus();
    return true;
}

bool Control::HasFocus() const { return parent.focus == this; }

Control* Container::Find(std::string_view controlName) const {
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](const Control* control) { return control->Name() == controlName; });
    return found == controls.end() ? nullptr : *found;
}

} // namespace ombrin
