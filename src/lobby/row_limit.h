// What a server can make this client hold.
#pragma once

#include "controls/row_list.h"
#include "foundation/log.h"
#include "foundation/text.h"

#include <string>
#include <string_view>
#include <utility>

namespace ombrin {

/// Rows of each list at most, far more than a service has users or rooms.
inline constexpr std::size_t kMostRows = 200'000;

class RowLimit {
public:
    /// `what` stands in the log, once.
    RowLimit(Log& log, std::string_view what, std::size_t most = kMostRows) : log(log), what(what), most(most) {}

    bool IsFull(const RowList& rows) {
        if (rows.Count() < most) return false;
        if (!std::exchange(said, true))
            log.TraceMessage(
                Join("the server names more than ", std::to_string(most), " ", what, "; the others are left out"));
        return true;
    }

private:
    Log& log;
    std::string what;
    std::size_t most;
    bool said = false;
};

} // namespace ombrin
