// One client's connection to the update port. It holds no bytes of a file: what its socket does not take is read again
// when there is room.
#pragma once

#include "server/alarms.h"
#include "server/bucket.h"
#include "server/log.h"
#include "server/message_cutter.h"
#include "server/net/liveness.h"
#include "server/transfer.h"

#include <array>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>
#include <functional>
#include <memory>
#include <string>

namespace ombrin::server {

class UpdateConnection final : public std::enable_shared_from_this<UpdateConnection> {
public:
    /// What a client asks for beyond this waits in its own connection. A request for one more buffer costs 1: no client
    /// writes pieces to its disk faster.
    static constexpr Rate kPace{20'000, 5'000};
    /// A client asks for its first file as soon as it is there.
    static constexpr Milliseconds kSilenceAtFirst{60'000};
    /// Later it may stand still for a while, and behind the last file it stays until its user has read of the end.
    static constexpr Milliseconds kSilence{15 * 60'000};

    struct Surroundings {
        const Release& release;
        const Alarms& alarms;
        Log& log;
        std::array<char, 65'536>& input; ///< one for all: a connection that is quiet owns no memory for reading
        std::function<void(const std::shared_ptr<UpdateConnection>&)> ended;
    };

    UpdateConnection(asio::ip::tcp::socket socket, std::string origin, Surroundings& around);

    /// `name` is for the log. Nothing is read before `wait` is over.
    void Start(std::string name, Milliseconds wait);
    const std::string& Origin() const { return origin; }
    /// Ends the connection when its peer is gone or silent for too long. To be called every kLivenessInterval.
    void Check();

private:
    void ReadAfter(Milliseconds wait);
    void AwaitInput();
    void Read();
    void Process();
    void Write();
    void AwaitRoom();
    void End(std::string_view why);

    asio::ip::tcp::socket socket;
    asio::steady_timer pause;
    const std::string origin;
    Surroundings& around;
    std::string name;
    Transfer transfer;
    MessageCutter cutter;
    Bucket pace;
    bool writing = false; ///< room in the socket is waited for
    bool spoken = false;  ///< a message has come
    bool ended = false;
    TimePoint lastHeard;
    PeerWatch watch;
};

} // namespace ombrin::server
