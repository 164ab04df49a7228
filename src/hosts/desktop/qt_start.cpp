#include "hosts/desktop/qt_start.h"

#include <QString>
#include <cstdio>
#include <string_view>
#include <unistd.h>

namespace ombrin::desktop {

namespace {

/// With one dash or two; the value follows as the next word or behind "=".
constexpr struct {
    std::string_view name;
    bool hasValue;
} kQtOptions[] = {
    {"display", true},       {"geometry", true},     {"platform", true},      {"platformpluginpath", true},
    {"platformtheme", true}, {"plugin", true},       {"qmljsdebugger", true}, {"qwindowgeometry", true},
    {"qwindowicon", true},   {"qwindowtitle", true}, {"reverse", false},      {"session", true},
    {"style", true},         {"stylesheet", true},   {"widgetcount", false},
};

/// How many words the option takes that begins here: none where it is not one of Qt's.
int WordsOf(std::string_view word) {
    if (!word.starts_with('-')) return 0;
    word.remove_prefix(word.starts_with("--") ? 2 : 1);
    for (const auto& option : kQtOptions) {
        if (word == option.name) return option.hasValue ? 2 : 1;
        if (option.hasValue && word.starts_with(option.name) && word.substr(option.name.size()).starts_with('='))
            return 1;
    }
    return 0;
}

const char* program = "";
QtMessageHandler otherwise = nullptr;

void Hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtFatalMsg) return otherwise(type, context, text);
    std::fprintf(stderr, "%s: no window can be opened: Qt finds no display that works (DISPLAY, WAYLAND_DISPLAY)\n",
                 program);
    _exit(1); // nothing has begun yet
}

} // namespace

std::vector<std::string> WithoutQtOptions(int count, char* const* words) {
    std::vector<std::string> own;
    for (int i = 0; i < count;) {
        const int qts = i == 0 ? 0 : WordsOf(words[i]);
        if (qts == 0) own.emplace_back(words[i]);
        i += std::max(qts, 1);
    }
    return own;
}

NeedsDisplay::NeedsDisplay(const char* name) : usual(qInstallMessageHandler(Hear)) {
    program = name;
    otherwise = usual;
}

NeedsDisplay::~NeedsDisplay() { qInstallMessageHandler(usual); }

} // namespace ombrin::desktop
