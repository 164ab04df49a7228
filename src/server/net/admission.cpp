#include "server/net/admission.h"

namespace ombrin::server {

namespace {

/// Between two lines of the log about refused connections.
constexpr Milliseconds kRefusalNotes{1'000};

} // namespace

bool Admission::Enter(const std::string& origin) {
    const auto found = byOrigin.find(origin);
    const std::size_t fromThere = found == byOrigin.end() ? 0 : found->second;
    if (fromThere < bounds.perOrigin && there < bounds.all) {
        byOrigin[origin] = fromThere + 1;
        ++there;
        return true;
    }
    if (alarms.Now() - refusedAt < kRefusalNotes) return false;
    refusedAt = alarms.Now();
    log.Line("too many connections: one from ", origin, " is refused, and maybe others in this second");
    return false;
}

void Admission::Leave(const std::string& origin) {
    --there;
    const auto found = byOrigin.find(origin);
    if (--found->second == 0) byOrigin.erase(found);
}

} // namespace ombrin::server
