// A user whose every step is known beforehand, for tests of what waits.
#pragma once

#include "controls/modal_stack.h"
#include "foundation/runtime_error.h"

#include <deque>
#include <functional>
#include <stdexcept>
#include <utility>

namespace ombrin {

/// While the client waits, the steps run one after the other; each may make it wait again, nested.
class ScriptedWaiter : public Waiter {
public:
    ScriptedWaiter& Then(std::function<void()> step) {
        steps.push_back(std::move(step));
        return *this;
    }
    bool Done() const { return steps.empty(); }

    void RunUntil(const bool& ended) override {
        while (!ended) {
            if (steps.empty()) throw std::logic_error("the client waits, and the script has no step left");
            const auto step = std::move(steps.front());
            steps.pop_front();
            try {
                step();
            } catch (const ProgramEnding&) { // as in every loop: each wait looks at its own mark
            }
        }
    }
    void Block(Milliseconds) override {}
    void Breathe() override {}

private:
    std::deque<std::function<void()>> steps;
};

/// The forms of a client with such a user.
struct Stage {
    ScriptedWaiter user;
    bool held = false; ///< no socket is read and no timer fires
    ModalStack stack{user, [this](bool hold) { held = hold; }};
};

} // namespace ombrin
