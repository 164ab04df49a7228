#include "platform/processes.h"

namespace ombrin {

std::vector<std::string> CommandLine::Arguments() const {
    std::vector<std::string> arguments;
    std::string current;
    bool quoted = false, begun = false;
    for (const char character : std::string_view(text).substr(programLength)) {
        if (character == '"') {
            quoted = !quoted;
            begun = true; // "" is an argument, too
        } else if (character == ' ' && !quoted) {
            if (begun) arguments.push_back(std::move(current));
            current.clear();
            begun = false;
        } else {
            current += character;
            begun = true;
        }
    }
    if (begun) arguments.push_back(std::move(current));
    return arguments;
}

} // namespace ombrin
