#include "launch/battle_lan.h"

#include "foundation/text.h"
#include "session/wire/codec.h"

namespace ombrin {

void BattleLan::LaunchUsingBattleLAN(const RowList& roomUsers) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("LaunchUsingBattleLAN() called");
        constexpr std::string_view kProgram = "BattleLANv0.5.exe";
        const std::string path = Join(systemDirectory, "/BattleLAN.ini");
        for (std::size_t position = 0; position < roomUsers.Count(); ++position) {
            std::string_view tag = roomUsers.Tag(roomUsers.At(position));
            const std::string_view address = GetCommand(tag, kFieldEnd);
            if (address.empty()) continue;
            // Only the first row starts the file anew: without an address there, what an earlier launch left stays.
            WriteToFile(files, desk.trap.log, path, Join(address, "\r\n"),
                        position == 0 ? LocalFiles::WriteMode::Create : LocalFiles::WriteMode::Append);
        }
        const Processes::TaskId task = processes.Shell({std::string(kProgram), kProgram.size()});
        if (task == Processes::kNone)
            throw RuntimeError(ErrorNumber::FileNotFound, Join(kProgram, " cannot be started"));
        processes.AppActivate(task);
        processes.SendKeys("{ENTER}");
        processes.Sleep(kWait);
    });
}

} // namespace ombrin
