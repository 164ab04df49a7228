// Time for the server's logic: what is due is reckoned on a steady clock, which tests turn by hand.
#pragma once

#include "foundation/clock.h"

#include <functional>

namespace ombrin::server {

class Alarms {
public:
    virtual ~Alarms() = default;
    virtual TimePoint Now() const = 0;
    /// Runs the callback once, from the loop, never inside this call.
    virtual void After(Milliseconds delay, std::function<void()> callback) = 0;
};

} // namespace ombrin::server
