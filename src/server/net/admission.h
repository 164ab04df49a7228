// How many connections a port has, from one address and in all.
#pragma once

#include "server/alarms.h"
#include "server/log.h"

#include <cstddef>
#include <map>
#include <string>

namespace ombrin::server {

class Admission {
public:
    struct Bounds {
        std::size_t perOrigin;
        std::size_t all;
    };
    Admission(Bounds bounds, const Alarms& alarms, Log& log) : bounds(bounds), alarms(alarms), log(log) {}

    /// False for one too many, which the log tells of now and then.
    bool Enter(const std::string& origin);
    void Leave(const std::string& origin);

private:
    const Bounds bounds;
    const Alarms& alarms;
    Log& log;
    std::size_t there = 0;
    std::map<std::string, std::size_t> byOrigin; ///< connections; none is 0
    TimePoint refusedAt;                         ///< when one was last refused with a line in the log
};

} // namespace ombrin::server
