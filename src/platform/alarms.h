// What falls due later, as a service: real time and virtual time keep the same order.
#pragma once

#include "foundation/clock.h"

#include <cstdint>
#include <functional>

namespace ombrin {

class Alarms {
public:
    using Id = std::uint64_t;
    static constexpr Id kNone = 0;

    virtual ~Alarms() = default;
    virtual TimePoint Now() const = 0;
    /// Runs the callback once, from the event loop, when the time has come; alarms of one time in the order of their
    /// setting.
    virtual Id At(TimePoint when, std::function<void()> callback) = 0;
    /// Of an alarm that has run, or kNone: nothing.
    virtual void Cancel(Id id) = 0;
};

} // namespace ombrin
