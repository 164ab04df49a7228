// Starting the client, and seeing whether it stays.
#pragma once

#include "foundation/clock.h"

#include <functional>
#include <string>

namespace ombrin::patcher {

/// Starts the program, in a session of its own so that it outlives this one, and watches it. Empty when it runs after
/// that time, or has ended by itself without a failure; else what went wrong, as the end of a sentence.
std::string StartOnTrial(const std::string& program, Milliseconds trial);

/// Runs the body in another process: what it does to that process, this one survives. False when it did not come to
/// its end within the time.
bool RunApart(const std::function<void()>& body, Milliseconds patience);

} // namespace ombrin::patcher
