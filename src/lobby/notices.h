// What is told to a user whose window is in the background.
#pragma once

#include "lobby/desk.h"
#include "platform/notifier.h"

namespace ombrin {

class Notices {
public:
    Notices(Desk desk, Notifier& notifier) : desk(desk), notifier(notifier) {}

    /// Unless the setting Notifications is "0".
    void Tell(Notice what, std::string_view who, std::string_view text) {
        if (desk.settings.GetSetting("Settings", "Notifications") != "0") notifier.Notify(what, who, text);
    }

private:
    Desk desk;
    Notifier& notifier;
};

} // namespace ombrin
