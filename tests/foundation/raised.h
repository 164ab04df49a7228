#pragma once

#include "foundation/runtime_error.h"

namespace ombrin {

/// The number of the error that a step raises, or 0.
template <class Step>
int Raised(Step&& step) {
    try {
        step();
        return 0;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

} // namespace ombrin
