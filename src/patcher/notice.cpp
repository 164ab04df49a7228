#include "patcher/notice.h"

#include "platform/posix/posix_desktop.h"

#include <cstdlib>
#include <vector>

namespace ombrin::patcher {

namespace {

/// The programs in the order of preference; the text follows as the last argument.
struct {
    Urgency urgency;
    std::vector<std::string> command;
} const kPrograms[] = {
    {Urgency::UntilRead, {"zenity", "--error", "--title=Ombrin", "--no-markup", "--text"}},
    {Urgency::UntilRead, {"kdialog", "--title", "Ombrin", "--error"}},
    {Urgency::UntilRead, {"xmessage", "-xrm", "*international: true", "-center", "-title", "Ombrin"}}, // else no UTF-8
    {Urgency::UntilRead, {"notify-send", "--urgency=critical", "--app-name=Ombrin", "Ombrin"}},
    {Urgency::Passing, {"notify-send", "--app-name=Ombrin", "Ombrin"}},
};

bool HasDesktop() {
    for (const char* name : {"WAYLAND_DISPLAY", "DISPLAY"})
        if (const char* value = std::getenv(name); value != nullptr && *value != '\0') return true;
    return false;
}

} // namespace

void ShowNotice(const std::string& text, Urgency urgency) {
    if (!HasDesktop()) return;
    Programs programs;
    for (const auto& program : kPrograms) {
        if (program.urgency != urgency || !Programs::IsThere(program.command.front())) continue;
        std::vector<std::string> command = program.command;
        command.push_back(text);
        if (programs.Start(command, {}, {}) >= 0) return;
    }
}

} // namespace ombrin::patcher
