// Wrong passwords slow the address down that they come from, and nobody else. After ten in a row its logons are
// answered one after the other, ever more slowly; a right one, or a quiet while, makes up for all.
#pragma once

#include "foundation/clock.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace ombrin::server {

class LogonThrottle {
public:
    static constexpr int kFreeFailures = 10;
    static constexpr Milliseconds kFirstDelay{1'000};
    static constexpr Milliseconds kLongestDelay{8'000};
    /// Logons of a slowed address wait for each other; who would wait longer is sent away.
    static constexpr Milliseconds kLongestWait{30'000};
    static constexpr Milliseconds kForgottenAfter{15 * 60'000};
    /// Bounds the memory; beyond it the addresses that failed longest ago are forgotten.
    static constexpr std::size_t kMostOrigins = 20'000;

    /// How long a logon from there has to wait, and takes its place; nothing when too many wait already.
    std::optional<Milliseconds> Wait(const std::string& origin, TimePoint now);
    void Wrong(const std::string& origin, TimePoint now);
    void Right(const std::string& origin) { origins.erase(origin); }

private:
    struct Origin {
        int failures = 0;
        TimePoint lastFailure;
        TimePoint nextTurn;
    };
    void Forget(TimePoint now);

    std::unordered_map<std::string, Origin> origins;
};

} // namespace ombrin::server
