// How a host waits. The core calls it; the host runs its loop meanwhile.
#pragma once

#include "foundation/clock.h"

namespace ombrin {

class Waiter {
public:
    virtual ~Waiter() = default;
    /// Dispatches events and input, nested in the caller, and looks at `ended` after each.
    virtual void RunUntil(const bool& ended) = 0;
    /// A blocking wait: paints, but reads no socket, runs no timer and drops input. Virtual time: returns at once.
    virtual void Block(Milliseconds length) = 0;
    /// In long work that must not be interrupted: paints, 30 times a second at most, and reads nothing.
    virtual void Breathe() = 0;
};

} // namespace ombrin
