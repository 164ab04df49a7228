#include "controls/main_view.h"

#include "foundation/text.h"

namespace ombrin {

View::View(Alarms& alarms) : Page("GameLobby"), alarms(alarms) {
    struct Row {
        Control& control;
        bool enabled, visible;
    };
    // Controls that do not start enabled and visible.
    const Row kStart[] = {
        {Enter, false, true},    {Leave, false, false},         {Destroy, false, false},  {Launch, false, false},
        {SendRoom, false, true}, {RoomText, false, true},       {Logoff, true, false},    {lbAllUsers, true, false},
        {BannerAd, true, false}, {HiddenTextBox, false, false}, {Configure, true, false},
    };
    for (const Row& row : kStart) {
        row.control.SetEnabled(row.enabled);
        row.control.SetVisible(row.visible);
    }
}

std::string_view View::LobbyKey(std::string_view text) { return Trim(text.substr(0, text.find(':'))); }

std::string_view View::RoomKey(std::string_view text) { return Trim(StrExtractLeft(text, "(")); }

} // namespace ombrin
