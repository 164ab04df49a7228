#include "update/tell_refused.h"

#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

namespace {

/// Of a name that may be anything.
std::string Shown(std::string_view name) {
    constexpr std::size_t kLongest = 60;
    std::string shown(name.substr(0, kLongest));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }, '?');
    return name.size() > kLongest ? shown + "..." : shown;
}

} // namespace

void TellRefused(Messages& messages, Log& log, const LanguageText& what, const RefusedFile& file) {
    const std::string name = Shown(file.fileName);
    log.LogError(Join("Error: ", name, ": ", file.why.english, "  ", what.english), false);
    const auto said = [&](const LanguageText& text) { return messages.language.TranslateWord(text.key, text.english); };
    messages.boxes.Show(Join(said(what), "\n\n", name, ": ", said(file.why)), kUsualTitle);
}

} // namespace ombrin
