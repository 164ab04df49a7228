#include "lobby/text_colour.h"

#include "foundation/text.h"

namespace ombrin {

Colour TextColor(Settings& settings, Colour missing) {
    return ToLong(settings.GetSetting("Settings", "TextColor", std::to_string(missing)));
}

void TextColours::SetTextColor() {
    trap(__func__, [&] {
        const Colour colour = TextColor(settings, kGreen);
        for (Control* control : controls) control->SetForeColour(colour);
    });
}

} // namespace ombrin
