// The server's log: one line an event. Nothing from outside can forge a line: what is no printable character is
// written as an escape.
#pragma once

#include "foundation/text.h"

#include <string>
#include <string_view>

namespace ombrin::server {

class Log {
public:
    virtual ~Log() = default;

    template <class... Parts>
    void Line(const Parts&... parts) {
        Write(Printable(Join(parts...)));
    }

    /// In UTF-8, control characters and backslashes as escapes, cut at a bound.
    static std::string Printable(std::string_view text);

protected:
    virtual void Write(std::string_view line) = 0;
};

/// To standard error, each line with the time in UTC.
class StandardErrorLog : public Log {
protected:
    void Write(std::string_view line) override;
};

} // namespace ombrin::server
