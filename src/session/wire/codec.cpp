#include "session/wire/codec.h"

#include <array>

namespace ombrin {

namespace {

struct Escape {
    char character;
    std::string_view sequence;
};

constexpr std::array kEscapes{Escape{':', "%*|@"}, Escape{';', "^}|#"}, Escape{'~', "`@/<"}};

} // namespace

std::string_view GetCommand(std::string_view& buffer, char separator) {
    const std::size_t at = buffer.find(separator);
    if (at == std::string_view::npos) return {};
    const std::string_view piece = buffer.substr(0, at);
    buffer = at + 2 >= buffer.size() ? std::string_view{} : buffer.substr(at + 1);
    return piece;
}

// No sequence holds a reserved character or ends as another begins, so that one walk does what replacing one sequence
// after the other would do.

std::string EncodeData(std::string_view text) {
    std::string encoded;
    encoded.reserve(text.size());
    for (const char c : text) {
        std::string_view written(&c, 1);
        for (const Escape& escape : kEscapes)
            if (c == escape.character) written = escape.sequence;
        encoded += written;
    }
    return encoded;
}

std::string DecodeData(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    while (!text.empty()) {
        char c = text.front();
        std::size_t length = 1;
        for (const Escape& escape : kEscapes) {
            if (!text.starts_with(escape.sequence)) continue;
            c = escape.character;
            length = escape.sequence.size();
        }
        decoded += c;
        text.remove_prefix(length);
    }
    return decoded;
}

} // namespace ombrin
