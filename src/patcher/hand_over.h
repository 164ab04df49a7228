// The files of an update that the client could not put in place itself, as they are its own: brought to their final
// names, or the old ones brought back. Whoever looks at a final name at any moment sees a whole file, old or new, and a
// patcher that was killed at any step finds on the disk what is left to do.
#pragma once

#include "foundation/runtime_error.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::patcher {

/// What the hand-over does, told before each step.
using Trace = std::function<void(const std::string& step)>;

/// One of the three files in one of the folders that a list of files can name. Paths are native.
struct Spot {
    std::string folder;
    std::string_view name;
    bool isComponent;

    std::string Final() const;   ///< "OmbrinExe.exe"
    std::string Arrived() const; ///< "OmbrinExe7.exe": what the client has fetched
    std::string Kept() const;    ///< "OmbrinExe8.exe": the old file, until the new client has started
};

/// All of it raises RuntimeErrors that name the file and the reason.
class HandOver {
public:
    /// `state` is a file of the patcher's own: it is there while kept files belong to a hand-over that is under way.
    HandOver(const std::vector<std::string>& folders, std::string state, Trace trace);

    /// Clears up what an earlier patcher left: goes on with bringing back the old files, or removes kept ones that
    /// nobody needs any more.
    void Settle();
    /// Brings what has arrived to its final names and keeps the old files. The components' final names.
    std::vector<std::string> Place();
    /// The new files have proved themselves.
    void Finish();
    /// Brings the kept files back. What has not been placed goes as well: half of an update is of no use. A file that
    /// had nothing to replace stays, as no old client misses or minds it.
    void GoBack();
    /// Whether there is a way back.
    bool HasKept() const;

private:
    enum class State { None, Placing, GoingBack };

    State Current() const;
    void Mark(State next);
    void Keep(const Spot& spot);
    void TakeMode(const Spot& spot);
    void RemoveAll(std::string (Spot::*path)() const);

    std::vector<Spot> spots;
    std::string state;
    Trace trace;
};

} // namespace ombrin::patcher
