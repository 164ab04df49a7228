#include "server/logon_throttle.h"

#include <algorithm>
#include <vector>

namespace ombrin::server {

namespace {

Milliseconds DelayAfter(int failures) {
    const int doublings = failures - LogonThrottle::kFreeFailures;
    Milliseconds delay = LogonThrottle::kFirstDelay;
    for (int i = 0; i < doublings && delay < LogonThrottle::kLongestDelay; ++i) delay *= 2;
    return std::min(delay, LogonThrottle::kLongestDelay);
}

} // namespace

std::optional<Milliseconds> LogonThrottle::Wait(const std::string& origin, TimePoint now) {
    const auto found = origins.find(origin);
    if (found == origins.end()) return Milliseconds(0);
    Origin& entry = found->second;
    if (now - entry.lastFailure >= kForgottenAfter) {
        origins.erase(found);
        return Milliseconds(0);
    }
    if (entry.failures < kFreeFailures) return Milliseconds(0);
    const TimePoint turn = std::max(entry.nextTurn, now) + DelayAfter(entry.failures);
    if (turn - now > kLongestWait) return std::nullopt;
    entry.nextTurn = turn;
    return turn - now;
}

void LogonThrottle::Wrong(const std::string& origin, TimePoint now) {
    if (origins.size() >= kMostOrigins && !origins.contains(origin)) Forget(now);
    Origin& entry = origins[origin];
    if (now - entry.lastFailure >= kForgottenAfter) entry.failures = 0;
    ++entry.failures;
    entry.lastFailure = now;
}

/// What is old goes; when that is nothing, the oldest half.
void LogonThrottle::Forget(TimePoint now) {
    std::erase_if(origins, [&](const auto& entry) { return now - entry.second.lastFailure >= kForgottenAfter; });
    if (origins.size() < kMostOrigins) return;
    std::vector<TimePoint> times;
    times.reserve(origins.size());
    for (const auto& [origin, entry] : origins) times.push_back(entry.lastFailure);
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    std::erase_if(origins, [&](const auto& entry) { return entry.second.lastFailure <= *middle; });
}

} // namespace ombrin::server
