#include "hosts/library/guarded.h"
#include "hosts/library/machine_parts.h"

#include <thread>

namespace ombrin::host {

namespace {

constexpr Milliseconds kLong{3'600'000}; // between two looks; every event ends the sleep

} // namespace

Machine::Parts::Parts(MachineOptions given) : options(std::move(given)) { ExportHome(home.root); }

void Machine::Parts::RunUntil(const bool& ended) {
    if (options.runUntil) return options.runUntil(ended);
    while (!ended)
        if (!Step()) loop.Wait(-1, kLong);
}

void Machine::Parts::Block(Milliseconds length) {
    if (options.block) return options.block(length);
    std::this_thread::sleep_for(length);
}

void Machine::Parts::Breathe() {
    if (options.breathe) options.breathe();
}

bool Machine::Parts::Step() {
    try {
        return loop.DispatchOne();
    } catch (const ProgramEnding&) { // every wait on the way out looks at its own mark
        return true;
    }
}

Platform Machine::Parts::ForClient() {
    return {network,    loop,        clock,
            home.files, localFiles,  sound,
            clipboard,  pings,       notifier,
            browser,    pictures,    games.processes,
            components, integrity,   games.registry,
            directPlay, games.disks, opener,
            measure,    *this,       [this](bool held) { loop.Hold(held); },
            home.places};
}

Machine::Machine(MachineOptions options)
    : parts(Guarded([&] { return std::make_unique<Parts>(std::move(options)); })) {}

Machine::~Machine() = default;

int Machine::Descriptor() const { return parts->loop.Descriptor(); }

bool Machine::Step() {
    return Guarded([&] { return parts->Step(); });
}

void Machine::Run() {
    Guarded([&] { parts->RunUntil(parts->ending); });
}

void Machine::RequestEnd() {
    parts->ending = true;
    for (ModalStack* stack : parts->stacks) stack->RequestEnd();
    parts->loop.Post([] {}); // wakes a loop that sleeps
}

void Machine::EndOnSignals() {
    parts->signals.emplace(parts->loop, [this] { RequestEnd(); });
}

bool Machine::Ending() const { return parts->ending; }

} // namespace ombrin::host
