#include "platform/network.h"

namespace ombrin {

std::string_view ToText(ConnectFailure why) {
    switch (why) {
    case ConnectFailure::Refused:
        return "refused";
    case ConnectFailure::UnknownHost:
        return "unknown host";
    case ConnectFailure::Unreachable:
        return "unreachable";
    case ConnectFailure::TimedOut:
        return "timed out";
    case ConnectFailure::None:
        break;
    }
    return {};
}

} // namespace ombrin
