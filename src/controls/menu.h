// Pop-up menus of the main view.
#pragma once

#include "controls/simple_models.h"

namespace ombrin {

class MenuEntry : public Captioned {
public:
    MenuEntry(Container& parent, std::string name, std::string caption)
        : Captioned(parent, ControlKind::MenuEntry, std::move(name), std::move(caption)) {}
    std::function<void()> Click;
};

class Menu : public Control {
public:
    Menu(Container& parent, std::string name, std::vector<MenuEntry*> entries)
        : Control(parent, ControlKind::Menu, std::move(name)), entries(std::move(entries)) {}
    const std::vector<MenuEntry*>& Entries() const { return entries; }

private:
    std::vector<MenuEntry*> entries;
};

} // namespace ombrin
