// What every area of the lobby world works with. A closed list, with no area in it.
#pragma once

#include "controls/main_view.h"
#include "foundation/profile.h"
#include "foundation/settings.h"
#include "foundation/trap.h"
#include "session/wire/link.h"
#include "session/wire/session.h"
#include "ui/text/messages.h"

namespace ombrin {

struct Desk {
    View& view;
    Session& session;
    Link& link;
    Messages& messages;
    Localisation& language;
    Settings& settings;
    Profile& profile;
    Trap& trap;

    void TraceMessage(std::string_view message) const { trap.log.TraceMessage(message); }
};

} // namespace ombrin
