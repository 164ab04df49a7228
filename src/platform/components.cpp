#include "platform/components.h"

#include "foundation/text.h"

namespace ombrin {

void RegisterServer(Components& components, Trap& trap, const std::string& path, bool on) {
    trap(__func__, [&] {
        trap.log.TraceMessage(Join("Attempting to register ", path));
        const bool done = components.Register(path, on);
        trap.log.TraceMessage(Join(path, done ? " registered successfully" : " failed to register"));
    });
}

} // namespace ombrin
