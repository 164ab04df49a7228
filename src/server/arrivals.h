// How fast connections come from one address: who comes faster is not refused, but waits a moment to be read.
#pragma once

#include "server/bucket.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace ombrin::server {

class Arrivals {
public:
    /// So many at once as an address may have, and then so many a second: coming and going again is work for everybody.
    static constexpr double kPerSecond = 20;
    static constexpr Milliseconds kLongest{5'000};

    explicit Arrivals(std::size_t atOnce) : rate{static_cast<double>(atOnce), kPerSecond} {}

    /// Another one has come; how long it has to wait.
    Milliseconds Wait(const std::string& origin, TimePoint now) {
        return std::min(buckets.try_emplace(origin, rate, now).first->second.Spend(1, now), kLongest);
    }
    /// Forgets the addresses that nobody came from for a while. To be called now and then.
    void Forget(TimePoint now) {
        std::erase_if(buckets, [&](auto& bucket) { return bucket.second.Full(now); });
    }

private:
    const Rate rate;
    std::unordered_map<std::string, Bucket> buckets; ///< by origin
};

} // namespace ombrin::server
