// The machine's clock, and one that only moves when it is told to.
#pragma once

#include "foundation/clock.h"

namespace ombrin {

class SystemClock : public Clock {
public:
    TimePoint Now() const override;
    std::string TimeText() const override;
    std::string DateText() const override;
};

/// Starts at the machine's time. What is shown as time and date is the machine's.
class VirtualClock : public SystemClock {
public:
    VirtualClock() : now(SystemClock::Now()) {}
    TimePoint Now() const override { return now; }
    bool RunsByItself() const override { return false; }
    /// Never backwards.
    void MoveTo(TimePoint when) {
        if (when > now) now = when;
    }

private:
    TimePoint now;
};

} // namespace ombrin
