// How long other machines take to answer.
#pragma once

#include "foundation/clock.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ombrin {

class Pings {
public:
    /// What is waited for an answer; one that has not come by then counts as having taken so long.
    static constexpr Milliseconds kTimeLimit{1000};

    /// Round trip in milliseconds; nothing where the ping could not be tried at all.
    using Answer = std::optional<std::int32_t>;

    virtual ~Pings() = default;
    /// Pings all addresses (IPv4 or IPv6 as text) at once and answers in their order. A blocking wait of kTimeLimit at
    /// most: the window is painted, no socket is read and no timer runs.
    virtual std::vector<Answer> Ping(const std::vector<std::string>& addresses) = 0;
};

} // namespace ombrin
