// Time, as a service: what is due is reckoned on a steady clock, what is shown comes from the wall clock.
#pragma once

#include <chrono>
#include <string>

namespace ombrin {

using Milliseconds = std::chrono::milliseconds;
using TimePoint = std::chrono::time_point<std::chrono::steady_clock, Milliseconds>;

class Clock {
public:
    virtual ~Clock() = default;
    /// Never runs backwards; its zero means nothing.
    virtual TimePoint Now() const = 0;
    /// False for a clock that only moves when it is told to: there is no use in waiting for it.
    virtual bool RunsByItself() const { return true; }
    /// Local time and date in the user's short forms, in plain ASCII.
    virtual std::string TimeText() const = 0;
    virtual std::string DateText() const = 0;
};

} // namespace ombrin
