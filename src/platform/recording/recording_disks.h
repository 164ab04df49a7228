// Disks whose roots are given; what lies on them is real, or given too.
#pragma once

#include "platform/disks.h"

#include <map>

namespace ombrin::recording {

class RecordingDisks : public Disks {
public:
    /// `real` lists the directories; without it `directories` does.
    explicit RecordingDisks(Disks* real = nullptr) : real(real) {}
    std::vector<std::string> FixedDisks() override { return roots; }
    std::vector<Entry> List(const std::string& directory) override {
        if (real != nullptr) return real->List(directory);
        const auto found = directories.find(directory);
        return found == directories.end() ? std::vector<Entry>{} : found->second;
    }

    std::vector<std::string> roots;
    std::map<std::string, std::vector<Entry>> directories; ///< by path with its closing separator

private:
    Disks* real;
};

} // namespace ombrin::recording
