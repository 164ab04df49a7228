#include "lobby/pinger.h"

#include "foundation/text.h"
#include "session/wire/codec.h"

#include <array>
#include <limits>

namespace ombrin {

namespace {

/// Pictures of PingImages by round trip.
struct PingImage {
    std::int32_t below; ///< milliseconds
    int image;
};

constexpr std::array kPingImages{
    PingImage{101, 1}, // good
    PingImage{201, 2}, // middling
    PingImage{std::numeric_limits<std::int32_t>::max(), 3},
};

int ImageOf(std::int32_t milliseconds) {
    for (const PingImage& row : kPingImages)
        if (milliseconds < row.below) return row.image;
    return kPingImages.back().image;
}

} // namespace

Pinger::Pinger(Desk desk, Pings& pings) : desk(desk), pings(pings) {
    desk.view.PingTimer.Tick = [this] { PingTimer_Timer(); };
}

void Pinger::PingTimer_Timer() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("PingTimer_Timer() called");
        struct Target {
            RowId row;
            bool isPublic;
        };
        RowList& rows = desk.view.RoomUserList.rows;
        std::vector<Target> targets;
        std::vector<std::string> addresses;
        rows.ForEach([&](RowId row) {
            std::string_view tag = rows.Tag(row);
            std::string address(GetCommand(tag, kFieldEnd));
            if (address.empty() || targets.size() == kMostPings) return;
            targets.push_back({row, GetCommand(tag, kFieldEnd) != "N"});
            addresses.push_back(std::move(address));
        });
        if (targets.empty()) return;
        // Nothing but painting runs meanwhile, so the rows stay.
        const std::vector<Pings::Answer> answers = pings.Ping(addresses);
        for (std::size_t i = 0; i < targets.size(); ++i) {
            const auto& [row, isPublic] = targets[i];
            const Pings::Answer& answer = answers.at(i);
            if (!answer) throw RuntimeError(ErrorNumber::InvalidProcedureCall, Join("no ping of ", addresses[i]));
            const bool shown = isPublic || rows.Text(row) == desk.session.m_UserName;
            rows.SetTip(row, Join("Ping: ", std::to_string(*answer),
                                  " ms,    IP: ", shown ? std::string_view(addresses[i]) : "Private"));
            rows.SetImage(row, ImageOf(*answer));
        }
    });
}

} // namespace ombrin
