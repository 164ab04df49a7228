#include "foundation/log.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

void Log::LogError(std::string_view message, bool showBox) {
    if (showBox) {
        try {
            box.ShowPlain(std::string(message));
        } catch (const ProgramEnding&) {
            Write(message); // the program ends under the box, yet the report is kept
            throw;
        }
    }
    Write(message);
}

void Log::Write(std::string_view message) {
    std::string record = Join("\"[", clock.TimeText(), " ", clock.DateText(), "] ", message, "\"");
    // What came over the wire must not end the line and begin a record of its own.
    std::replace_if(
        record.begin(), record.end(), [](char c) { return static_cast<unsigned char>(c) < 32; }, ' ');
    record += '\n';
    int failure = 0;
    try {
        files.AppendRecord(path, record, kLimit);
    } catch (const RuntimeError& error) {
        failure = error.Number();
    }
    if (failure != 0)
        box.ShowPlain(
            Join("Error: occured in module LogError() in file mdlCommon.  Error number: ", std::to_string(failure)));
}

} // namespace ombrin
