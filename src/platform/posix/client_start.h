// How a client begins and how the patcher knows of it: what both agree on in the system directory.
#pragma once

#include "foundation/places.h"
#include "platform/posix/file_lock.h"
#include "platform/posix/posix_files.h"

#include <string>

namespace ombrin {

/// The files of the agreement, by their native paths.
struct HandOverFiles {
    std::string clients; ///< lock: shared by the running clients, exclusive while their files are replaced
    std::string patcher; ///< lock: there is one patcher at a time
    std::string state;   ///< there while a hand-over has begun and has not come to its end
    std::string program; ///< the patcher itself
    explicit HandOverFiles(const std::string& systemDirectory);
};

/// For the programs that this one starts: they find the same root.
void ExportHome(const std::string& root);

/// To be held for a client's life: its files are not replaced meanwhile. Waits a few seconds for a patcher that is
/// replacing them now. Raises 75 where that does not end, and what the file system raises.
FileLock HoldClientFiles(const Places& places, const PosixFiles& files);

/// Where a hand-over was broken off, its patcher dead and no client running: this process becomes the patcher, which
/// finishes it and starts the client. Returns where there is nothing to finish, or no patcher.
void FinishHandOverFirst(const Places& places, const PosixFiles& files);

/// This process becomes that program; `words` are its name and its arguments, and a null. Returns where that cannot be.
void Become(const std::string& program, char* const* words);

} // namespace ombrin
