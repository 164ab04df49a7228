#include "server/log.h"

#include "foundation/code_page.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace ombrin::server {

namespace {

/// In bytes; an event's line holds a name or two, so a longer one is somebody's mischief.
constexpr std::size_t kLongestLine = 500;

bool IsControl(char c) {
    const auto value = static_cast<unsigned char>(c);
    return value < 32 || (value >= 127 && value < 160);
}

} // namespace

std::string Log::Printable(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string line;
    for (const char c : text.substr(0, kLongestLine)) {
        const auto value = static_cast<unsigned char>(c);
        if (c == '\\')
            line += "\\\\";
        else if (IsControl(c))
            line += {'\\', 'x', kDigits[value >> 4U], kDigits[value & 15U]};
        else
            line += CodePage::Usual().ToUtf8(std::string_view(&c, 1));
    }
    if (text.size() > kLongestLine) line += "...";
    return line;
}

void StandardErrorLog::Write(std::string_view line) {
    std::array<char, 32> when{};
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    std::strftime(when.data(), when.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
    const std::string whole = Join(std::string_view(when.data()), " ", line, "\n");
    std::fwrite(whole.data(), 1, whole.size(), stderr);
}

} // namespace ombrin::server
