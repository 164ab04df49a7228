// One message of a client, taken apart: `Ombrin:<code>:<body>:`, the body a run of closed fields or one bare text.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace ombrin::server {

/// How the body of a message stands between its code and its end.
enum class Form {
    Fields,     ///< `<field>;<field>;…:`, none at all included
    Text,       ///< `<text>:`, with no ";"
    Empty,      ///< nothing, not even the ":" in front of the end
    Unreadable, ///< none of these; the code is known, as its sender may wait for an answer
};

struct Request {
    static constexpr std::size_t kMostFields = 8; ///< the record of three, and five more for a new room

    std::string_view code;
    Form form = Form::Empty;
    std::string_view text; ///< of Form::Text
    std::array<std::string_view, kMostFields> fields{};
    std::size_t count = 0; ///< of the fields
};

/// Nothing when the message, given without its "~", has no code.
std::optional<Request> ParseRequest(std::string_view message);

} // namespace ombrin::server
