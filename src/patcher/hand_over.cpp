#include "patcher/hand_over.h"

#include "foundation/text.h"
#include "patcher/file_steps.h"
#include "platform/posix/file_source.h"
#include "platform/posix/native_files.h"
#include "update/directories.h"
#include "update/file_names.h"

#include <algorithm>
#include <filesystem>

namespace ombrin::patcher {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPlacing = "placing\n", kGoingBack = "going back\n";

std::string WithDigit(std::string_view name, std::string_view digit) {
    return Join(StrExtractLeft(name, "."), digit, ".", StrExtractRight(name, "."));
}

/// A list of files is free in its capitals: the name as it stands in the folder, else as it is known.
std::string PathIn(const std::string& folder, const std::string& name) {
    const std::string usual = Join(folder, "/", name);
    if (Exists(usual)) return usual;
    std::error_code noFolder;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, noFolder))
        if (EqualIgnoringCase(entry.path().filename().string(), name)) return entry.path().string();
    return usual;
}

} // namespace

std::string Spot::Final() const { return PathIn(folder, std::string(name)); }
std::string Spot::Arrived() const { return PathIn(folder, WithDigit(name, "7")); }
std::string Spot::Kept() const { return PathIn(folder, WithDigit(name, "8")); }

HandOver::HandOver(const std::vector<std::string>& folders, std::string state, Trace trace)
    : state(std::move(state)), trace(std::move(trace)) {
    // The client, which is the table's first, comes last: the old one starts as long as anything is missing.
    for (auto file = kFilesInUse.rbegin(); file != kFilesInUse.rend(); ++file)
        for (auto folder = folders.begin(); folder != folders.end(); ++folder)
            if (std::find(folders.begin(), folder, *folder) == folder)
                spots.push_back({*folder, file->name, RegistersItself(file->name)});
}

HandOver::State HandOver::Current() const {
    if (!Exists(state)) return State::None;
    return FileSource(state).ReadAt(0, kGoingBack.size()) == kGoingBack ? State::GoingBack : State::Placing;
}

void HandOver::Mark(State next) {
    if (next == Current()) return;
    if (next == State::None) {
        trace("the hand-over ends");
        Remove(state);
    } else {
        trace(next == State::Placing ? "a hand-over begins" : "the old files come back");
        WriteWhole(state, next == State::Placing ? kPlacing : kGoingBack);
    }
}

void HandOver::Settle() {
    switch (Current()) {
    case State::GoingBack:
        return GoBack();
    case State::None:
        return RemoveAll(&Spot::Kept); // a patcher was killed after the end of its hand-over
    case State::Placing:
        return; // what is kept is the last set that has proved itself
    }
}

std::vector<std::string> HandOver::Place() {
    std::vector<std::string> components;
    for (const Spot& spot : spots) {
        if (!Exists(spot.Arrived())) continue;
        RequirePlainFile(spot.Arrived());
        Mark(State::Placing);
        Keep(spot);
        TakeMode(spot);
        trace(Join("putting ", spot.Final(), " in place"));
        Rename(spot.Arrived(), spot.Final());
    }
    // All that the hand-over has brought, also by a patcher that was killed before it came to this.
    if (Current() == State::Placing)
        for (const Spot& spot : spots)
            if (spot.isComponent && Exists(spot.Final())) components.push_back(spot.Final());
    return components;
}

void HandOver::Keep(const Spot& spot) {
    if (!Exists(spot.Final()) || Exists(spot.Kept())) return;
    RequirePlainFile(Resolved(spot.Final()));
    trace(Join("keeping the old ", spot.Final()));
    DuplicateFile(spot.Final(), spot.Kept());
}

void HandOver::TakeMode(const Spot& spot) {
    constexpr mode_t kReaders = 0444;
    if (Exists(spot.Final())) return SetMode(spot.Arrived(), ModeOf(Resolved(spot.Final())));
    if (!IsProgram(spot.Arrived())) return;
    const mode_t mode = ModeOf(spot.Arrived());
    SetMode(spot.Arrived(), mode | (mode & kReaders) >> 2U); // who may read it may run it
}

void HandOver::Finish() {
    Mark(State::None); // from here on there is no way back
    RemoveAll(&Spot::Kept);
}

void HandOver::GoBack() {
    Mark(State::GoingBack);
    for (const Spot& spot : spots) {
        if (!Exists(spot.Kept())) continue;
        trace(Join("bringing the old ", spot.Final(), " back"));
        Rename(spot.Kept(), spot.Final());
    }
    RemoveAll(&Spot::Arrived);
    Mark(State::None);
    RemoveAll(&Spot::Kept); // a second name of a file that was never replaced
}

bool HandOver::HasKept() const {
    return Current() != State::None &&
           std::any_of(spots.begin(), spots.end(), [](const Spot& spot) { return Exists(spot.Kept()); });
}

void HandOver::RemoveAll(std::string (Spot::*path)() const) {
    for (const Spot& spot : spots) {
        if (!Exists((spot.*path)())) continue;
        trace(Join("removing ", (spot.*path)()));
        Remove((spot.*path)());
    }
}

} // namespace ombrin::patcher
