#include "platform/posix/clock.h"

#include <array>
#include <ctime>

namespace ombrin {

namespace {

/// By the locale that the host has set for LC_TIME.
std::string Formatted(const char* form) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 128> text{};
    std::string formatted(text.data(), std::strftime(text.data(), text.size(), form, &local));
    for (char& c : formatted)
        if (static_cast<unsigned char>(c) > 126) c = ' ';
    return formatted;
}

} // namespace

TimePoint SystemClock::Now() const {
    return std::chrono::time_point_cast<Milliseconds>(std::chrono::steady_clock::now());
}

std::string SystemClock::TimeText() const { return Formatted("%X"); }

std::string SystemClock::DateText() const { return Formatted("%x"); }

} // namespace ombrin
