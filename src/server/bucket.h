// A bucket that refills with time: so many at once, then so many a second.
#pragma once

#include "foundation/clock.h"

#include <algorithm>

namespace ombrin::server {

struct Rate {
    double burst;
    double perSecond;
};

class Bucket {
public:
    Bucket(Rate rate, TimePoint now) : rate(rate), level(rate.burst), filled(now) {}

    /// One less, if there is one.
    bool Take(TimePoint now) {
        Fill(now);
        if (level < 1) return false;
        level -= 1;
        return true;
    }

    /// Takes what may not be there yet, and answers how long it takes to make up for it.
    Milliseconds Spend(double amount, TimePoint now) {
        Fill(now);
        level -= amount;
        if (level >= 0) return Milliseconds(0);
        constexpr double kMillisecondsPerSecond = 1000;
        return Milliseconds(static_cast<std::int64_t>(-level / rate.perSecond * kMillisecondsPerSecond) + 1);
    }

    /// As one that was never used.
    bool Full(TimePoint now) const { return LevelAt(now) >= rate.burst; }

private:
    double LevelAt(TimePoint now) const {
        const std::chrono::duration<double> passed = now - filled;
        return std::min(rate.burst, level + passed.count() * rate.perSecond);
    }
    void Fill(TimePoint now) {
        level = LevelAt(now);
        filled = now;
    }

    Rate rate;
    double level;
    TimePoint filled;
};

} // namespace ombrin::server
