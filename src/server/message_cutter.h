// Cuts a connection's bytes into messages of the client, however they arrive, and bounds what it keeps of them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ombrin::server {

class MessageCutter {
public:
    /// In bytes, the closing "~" included: what the client's own cutting can hold.
    static constexpr std::size_t kLongestMessage = 32'767;
    /// In bytes: a peer that sends this much without an end speaks another language.
    static constexpr std::size_t kRunaway = 1U << 20U;

    struct Piece {
        bool tooLong;          ///< thrown away up to its end; the text is empty
        std::string_view text; ///< without the "~"; valid until the next call
    };

    void Append(std::string_view bytes);
    std::optional<Piece> Next();
    /// A message has gone beyond kRunaway.
    bool Runaway() const { return thrownAway > kRunaway; }

private:
    void GiveMemoryBack();

    std::string buffer;
    std::size_t start = 0;      ///< of the message that comes next
    std::size_t searched = 0;   ///< up to here there is no "~"
    std::size_t thrownAway = 0; ///< bytes of a message that is too long; 0 when there is none
};

} // namespace ombrin::server
