#include "patcher/patch.h"

#include "foundation/text.h"
#include "patcher/file_steps.h"
#include "patcher/trial.h"
#include "platform/posix/native_files.h"

namespace ombrin::patcher {

namespace {

/// What a step raised, as a text; empty when it raised nothing.
template <class Steps>
std::string ProblemOf(Steps&& steps) {
    try {
        steps();
        return "";
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace

int Patch::Run() {
    const HandOverFiles agreed(systemFolder);
    constexpr Milliseconds kLook{1'000}; // a client that starts looks at this lock, too, for a moment
    const auto alone = FileLock::Take(agreed.patcher, FileLock::Kind::Exclusive, kLook);
    if (!alone) {
        reporter.Step("another OBPatch is at work");
        return 0;
    }
    reporter.Step("waiting for the client to end");
    auto clientsGone = WaitForClients(agreed.clients);
    if (!clientsGone) {
        reporter.Failed(text::kPatchStillRunning);
        return 1;
    }
    // Each of the three stays in the folder that the list of files named for it, which may be any of these.
    std::vector<std::string> folders{systemFolder, clientFolder, windowsFolder};
    std::erase(folders, "");
    HandOver handOver(folders, agreed.state, [&](const std::string& step) { reporter.Step(step); });
    const std::string problem = TryNew(handOver, clientsGone);
    if (!problem.empty()) return StartOld(handOver, agreed.clients, std::move(clientsGone), problem);
    const std::string left = ProblemOf([&] { handOver.Finish(); });
    if (!left.empty()) reporter.Failed(text::kPatchUntidy, left);
    return left.empty() ? 0 : 1;
}

std::string Patch::Client() const {
    const std::string own = clientFolder.empty() ? "" : clientFolder + "/OmbrinExe.exe";
    return (own.empty() || !Exists(Resolved(own))) && !installedClient.empty() ? installedClient : own;
}

std::optional<FileLock> Patch::WaitForClients(const std::string& lock) {
    if (auto taken = FileLock::Take(lock, FileLock::Kind::Exclusive, std::min(untilSaid, patience))) return taken;
    if (patience <= untilSaid) return std::nullopt;
    reporter.Waiting(text::kPatchWaits);
    return FileLock::Take(lock, FileLock::Kind::Exclusive, patience - untilSaid);
}

/// Places what is there and starts the client; what went wrong, if something did.
std::string Patch::TryNew(HandOver& handOver, std::optional<FileLock>& clientsGone) {
    std::vector<std::string> components;
    const std::string problem = ProblemOf([&] {
        handOver.Settle();
        components = handOver.Place();
    });
    if (!problem.empty()) return problem;
    for (const std::string& component : components) registerComponent(component);
    reporter.Step(Join("starting ", Client()));
    clientsGone.reset(); // the client takes its share of the lock
    const std::string failure = StartOnTrial(Client(), trial);
    return failure.empty() ? "" : Join(Client(), " ", failure);
}

int Patch::StartOld(HandOver& handOver, const std::string& lock, std::optional<FileLock> clientsGone,
                    const std::string& problem) {
    reporter.Step(problem);
    if (!handOver.HasKept()) {
        reporter.Failed(text::kPatchNoStart, problem);
        return 1;
    }
    if (!clientsGone) clientsGone = WaitForClients(lock); // one that was started by hand meanwhile
    const std::string back =
        clientsGone ? ProblemOf([&] { handOver.GoBack(); }) : std::string("Ombrin is still running");
    if (!back.empty()) {
        reporter.Failed(text::kPatchNotBack, Join(problem, "\n", back));
        return 1;
    }
    clientsGone.reset();
    reporter.Step(Join("starting the old ", Client()));
    const std::string failure = StartOnTrial(Client(), trial);
    if (failure.empty())
        reporter.Failed(text::kPatchOldRuns, problem);
    else
        reporter.Failed(text::kPatchOldFails, Join(problem, "\n", Client(), " ", failure));
    return 1;
}

} // namespace ombrin::patcher
