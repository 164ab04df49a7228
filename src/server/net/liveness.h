// Finds a peer that is gone without a word, within a minute.
//
// TCP keep-alive does that while nothing is under way. With unacknowledged data the system probes no more and tries
// for a quarter of an hour; its option against that would also end a client that lives but reads nothing for a while.
// So the state of the socket is looked at now and then.
#pragma once

#include "foundation/clock.h"

namespace ombrin::server {

inline constexpr Milliseconds kLivenessInterval{5'000};

class PeerWatch {
public:
    /// Without any reply: a living peer answers the probes of a quiet connection more often. Together with the sights
    /// that it takes it leaves a minute even where data came just before the last probe.
    static constexpr Milliseconds kSilence{45'000};

    struct Sight {
        bool unacknowledged;         ///< sent, not acknowledged; never while the peer's window is shut
        Milliseconds sinceLastReply; ///< since any acknowledgement came
    };
    /// Told what is seen every kLivenessInterval; true when the peer is gone.
    bool Gone(const Sight& sight);

private:
    int silentSights = 0; ///< in a row
};

/// What can be seen of a connected socket; nothing to worry about when the system does not tell.
PeerWatch::Sight LookAt(int descriptor);

/// Lets the system probe a quiet connection so that a dead peer is found within a minute.
void EnableKeepAlive(int descriptor);

} // namespace ombrin::server
