// The patcher's whole work: waits for the client to be gone, hands its new files over, and starts it again.
#pragma once

#include "foundation/clock.h"
#include "patcher/hand_over.h"
#include "platform/components.h"
#include "platform/posix/client_start.h"
#include "ui/text/language_keys.h"

#include <string>

namespace ombrin::patcher {

/// How a user, and who looks into the log, hears of it.
class Reporter {
public:
    virtual ~Reporter() = default;
    virtual void Step(const std::string& what) = 0;     ///< before each step
    virtual void Waiting(const LanguageText& what) = 0; ///< it goes on, but takes its time
    /// `why` is a line each for who can help, in English; empty where there is nothing to add.
    virtual void Failed(const LanguageText& what, const std::string& why = "") = 0;
};

struct Patch {
    /// Native, without a closing separator. There is no `clientFolder` where the settings name none.
    std::string systemFolder, clientFolder, windowsFolder;
    std::string installedClient{};  ///< is started where that folder has none; empty where nothing is installed
    Milliseconds patience{120'000}; ///< for running clients to end
    Milliseconds untilSaid{5'000};  ///< of waiting without a word
    Milliseconds trial{5'000};      ///< a client that fails within it has not started
    std::function<void(const std::string& component)> registerComponent;
    Reporter& reporter;

    /// The exit status: 0 when the client runs as it should, or another patcher is at work.
    int Run();

private:
    std::string Client() const;
    std::optional<FileLock> WaitForClients(const std::string& lock);
    std::string TryNew(HandOver& handOver, std::optional<FileLock>& clientsGone);
    int StartOld(HandOver& handOver, const std::string& lock, std::optional<FileLock> clientsGone,
                 const std::string& problem);
};

} // namespace ombrin::patcher
