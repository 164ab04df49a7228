// What one connection of the update port asks for and what it gets, without its socket.
#pragma once

#include "server/release.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ombrin::server {

/// The connection is to end, for the reason told.
class TransferError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

class Transfer {
public:
    /// In bytes: what a client is sent at once. It takes no more in one piece, and writes each piece through to its
    /// disk before it asks for the next, so that a smaller buffer is a slower transfer: 64 MiB over loopback took 1.2
    /// s, in buffers of 64 KiB 3.7 s.
    static constexpr std::size_t kBuffer = 262'144;

    explicit Transfer(const Release& release) : release(release) {}

    /// One message, without its "~". Answers what it costs, in units of a request for one more buffer. Raises
    /// TransferError for what is no message of a transfer, and for a file that is not offered.
    double Take(std::string_view message);
    bool Due() const { return due > 0; }
    /// What is due next, a buffer at most. It is read anew each time: whoever does not take it costs no memory. Raises
    /// TransferError when the file is not what was offered any more.
    std::string Piece();
    /// So many bytes of it have gone out.
    void Took(std::size_t size);

    /// 24: from the first byte of this file.
    void Begin(std::string_view name);
    /// 25. A client asks once for each part of a buffer that reaches it alone, so more often than there are buffers:
    /// what is beyond the file's end counts for nothing.
    void GoOn(std::string_view);
    /// 27
    void GiveUp(std::string_view);

private:
    const Release& release;
    const OfferedFile* offered = nullptr;
    std::unique_ptr<DiskFile> file; ///< open from the first piece to the last
    std::size_t sent = 0;           ///< bytes of the file
    std::size_t due = 0;            ///< bytes that were asked for and have not gone out
};

} // namespace ombrin::server
