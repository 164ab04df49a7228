#include "server/message_cutter.h"

#include "session/wire/codec.h"

namespace ombrin::server {

namespace {

/// The one message that comes without a "~".
constexpr std::string_view kLobbyNames = "Ombrin:0:";

/// In bytes: a buffer that a burst has made larger is given back when it is empty.
constexpr std::size_t kKeptCapacity = 4U << 10U;

} // namespace

void MessageCutter::Append(std::string_view bytes) {
    buffer.erase(0, start);
    searched -= start;
    start = 0;
    buffer += bytes;
}

std::optional<MessageCutter::Piece> MessageCutter::Next() {
    if (thrownAway == 0 && std::string_view(buffer).substr(start).starts_with(kLobbyNames)) {
        const auto text = std::string_view(buffer).substr(start, kLobbyNames.size());
        start += kLobbyNames.size();
        searched = start;
        return Piece{false, text};
    }

    const std::size_t end = buffer.find(kMessageEnd, searched);
    if (end == std::string::npos) {
        searched = buffer.size();
        const std::size_t waiting = buffer.size() - start;
        if (thrownAway > 0 || waiting >= kLongestMessage) {
            thrownAway += waiting;
            start = buffer.size();
        }
        if (start == buffer.size()) GiveMemoryBack();
        return std::nullopt;
    }

    const std::size_t length = end - start;
    const bool tooLong = thrownAway > 0 || length + 1 > kLongestMessage;
    const auto text = tooLong ? std::string_view() : std::string_view(buffer).substr(start, length);
    if (tooLong && thrownAway + length > kRunaway) {
        thrownAway += length;
        return std::nullopt;
    }
    thrownAway = 0;
    start = searched = end + 1;
    return Piece{tooLong, text};
}

void MessageCutter::GiveMemoryBack() {
    buffer.clear();
    start = searched = 0;
    if (buffer.capacity() > kKeptCapacity) buffer.shrink_to_fit();
}

} // namespace ombrin::server
