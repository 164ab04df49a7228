// What translates texts, over a language file that the test writes.
#pragma once

#include "../controls/scripted_waiter.h"
#include "controls/boxes.h"
#include "platform/posix/clock.h"
#include "platform/posix/event_loop.h"
#include "platform/recording/memory_files.h"
#include "ui/text/localisation.h"

#include <string>

namespace ombrin {

struct LanguageStage : Stage {
    static constexpr const char* kPath = "/windows/AVfLang.ini";

    void Lies(const std::string& content) {
        files.Update(kPath, Files::Readers::Everybody, [&](const auto&) { return std::optional(content); });
    }

    recording::MemoryFiles files;
    VirtualClock clock;
    EventLoop loop{clock};
    Boxes boxes{stack};
    Log log{files, clock, "/system", boxes};
    Trap trap{log};
    IniFiles inis{files, "/windows"};
    Profile profile{inis, trap};
    Localisation language{profile};
};

} // namespace ombrin
