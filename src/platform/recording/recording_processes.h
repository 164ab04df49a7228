// Starts of programs that are only written down. Any directory will do, and a wait takes no time.
#pragma once

#include "foundation/runtime_error.h"
#include "platform/processes.h"
#include "platform/recording/event.h"

#include <deque>

namespace ombrin::recording {

class RecordingProcesses : public Processes {
public:
    explicit RecordingProcesses(Journal journal) : journal(std::move(journal)) {}

    void ChDir(std::string_view to) override {
        directory = to;
        journal({"chdir", {{"directory", directory}}});
    }
    TaskId Shell(const CommandLine& command) override {
        const bool ok = starts.empty() || starts.front();
        if (starts.size() > 1) starts.pop_front(); // the last answer stays
        journal({"shell", {{"command", command.text}, {"directory", directory}, {"ok", ok}}});
        return ok ? ++lastTask : kNone;
    }
    void AppActivate(TaskId task) override {
        if (task == kNone) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        journal({"activate", {}});
    }
    void SendKeys(std::string_view keys) override { journal({"keys", {{"keys", std::string(keys)}}}); }
    void Sleep(long milliseconds) override { journal({"sleep", {{"ms", static_cast<std::int64_t>(milliseconds)}}}); }

    std::deque<bool> starts; ///< whether a start works, one a start; without any it does

private:
    Journal journal;
    std::string directory;
    TaskId lastTask = kNone;
};

} // namespace ombrin::recording
