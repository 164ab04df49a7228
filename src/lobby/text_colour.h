// The setting TextColor: the colour of all text in lists and chats.
#pragma once

#include "controls/control.h"
#include "foundation/settings.h"
#include "foundation/trap.h"

#include <vector>

namespace ombrin {

inline constexpr Colour kGreen = 0x0000FF00, kWhite = 0x00FFFFFF;

/// The stored colour, or the default that the caller names. Raises 13 where the setting is no number.
Colour TextColor(Settings& settings, Colour missing);

/// Puts the colour on the given controls.
class TextColours {
public:
    TextColours(Settings& settings, Trap& trap, std::vector<Control*> controls)
        : settings(settings), trap(trap), controls(std::move(controls)) {}
    void SetTextColor();

private:
    Settings& settings;
    Trap& trap;
    std::vector<Control*> controls;
};

} // namespace ombrin
