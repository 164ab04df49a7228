// The log file AVClLogs.txt: error reports and the running trace of what the client does.
#pragma once

#include "foundation/clock.h"
#include "foundation/files.h"

#include <string>
#include <string_view>

namespace ombrin {

/// A plain message box with one OK button that is not translated; returns when it was pressed.
class PlainBox {
public:
    virtual ~PlainBox() = default;
    virtual void ShowPlain(const std::string& text) = 0;
};

/// Every record is one line, "[time date] message" in double quotes, in a file that is opened for it alone.
class Log {
public:
    static constexpr std::string_view kFileName = "AVClLogs.txt";
    /// A longer file is deleted and started anew when the next record comes.
    static constexpr std::uint64_t kLimit = 7'000'000;

    Log(Files& files, const Clock& clock, std::string systemDirectory, PlainBox& box)
        : files(files), clock(clock), path(std::move(systemDirectory) + "//" + std::string(kFileName)), box(box) {}

    /// One record; with showBox the message is shown in a plain box first. A record that cannot be written costs a
    /// box with the error's number, and the caller goes on.
    void LogError(std::string_view message, bool showBox);
    void TraceMessage(std::string_view message) { LogError(message, false); }

private:
    void Write(std::string_view message);

    Files& files;
    const Clock& clock;
    std::string path;
    PlainBox& box;
};

} // namespace ombrin
