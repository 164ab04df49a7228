// What a command of the console is given.
#pragma once

#include "foundation/clock.h"
#include "foundation/code_page.h"

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace ombrin::console {

using Json = nlohmann::ordered_json;

/// Why a command cannot be done.
struct Refused {
    std::string why;
};

/// Reads the command's fields. Raises Refused for what is missing or of another kind.
struct Arguments {
    const Json& json;
    const CodePage& page;

    bool Has(const char* field) const;
    const Json& Field(const char* field) const;
    /// In the client's code page.
    std::string Held(const Json& value, const char* field) const;
    std::string Text(const char* field) const;
    /// 32 bits, but for a time in milliseconds.
    long Number(const char* field) const;
    long Number(const char* field, long missing) const { return Has(field) ? Number(field) : missing; }
    bool Truth(const char* field) const;
    /// A year at most.
    Milliseconds Length(const char* field) const;
};

} // namespace ombrin::console
