// Buttons that open what the settings file names for them.
#pragma once

#include "controls/boxes.h"
#include "controls/main_view.h"
#include "foundation/profile.h"
#include "platform/desktop.h"

namespace ombrin {

class ConfigurableButtons {
public:
    ConfigurableButtons(Profile& profile, TargetOpener& opener, Boxes& boxes, Trap& trap, std::string appPath)
        : profile(profile), opener(opener), boxes(boxes), trap(trap), appPath(std::move(appPath)) {}

    /// The five buttons of the view.
    void Attach(View& view);
    bool HasTarget(std::string_view section, std::string_view key) { return !Target(section, key).empty(); }
    /// Hands the target under section and key of AV.ini to the desktop; tells the user when that fails.
    void ConfigurableMenuOrButtonClicked(std::string_view section, std::string_view key);

private:
    std::string Target(std::string_view section, std::string_view key) {
        return profile.ReadIniValue("AV.ini", section, key);
    }

    Profile& profile;
    TargetOpener& opener;
    Boxes& boxes;
    Trap& trap;
    std::string appPath;
};

} // namespace ombrin
