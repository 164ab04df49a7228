// A control's forms are among those that the machine's end closes.
#pragma once

#include "hosts/library/machine_parts.h"

#include <vector>

namespace ombrin::host {

class Membership {
public:
    Membership(Machine::Parts& machine, ModalStack& stack) : machine(machine), stack(stack) {
        machine.stacks.push_back(&stack);
        if (machine.ending) stack.RequestEnd();
    }
    ~Membership() { std::erase(machine.stacks, &stack); }
    Membership(const Membership&) = delete;
    Membership& operator=(const Membership&) = delete;

private:
    Machine::Parts& machine;
    ModalStack& stack;
};

} // namespace ombrin::host
