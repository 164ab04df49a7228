// The fixed disks of the machine, and a look into their directories.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

class Disks {
public:
    struct Entry {
        std::string name;
        bool isDirectory = false; ///< one that can be entered: no link, no other file system
        bool isHidden = false;
    };

    virtual ~Disks() = default;
    /// The root of each fixed disk with a closing separator, in their order.
    virtual std::vector<std::string> FixedDisks() = 0;
    /// What a directory holds but "." and "..", in the order of the file system; empty where it cannot be read.
    virtual std::vector<Entry> List(const std::string& directory) = 0;
};

} // namespace ombrin
