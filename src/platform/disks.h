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
        bool isDirectory = false; ///< else a file, or a link to one
        bool isHidden = false;
    };

    virtual ~Disks() = default;
    /// The root of each fixed disk with a closing separator, in their order.
    virtual std::vector<std::string> FixedDisks() = 0;
    /// The files of a directory and the directories that can be entered from it (no link, no other file system), in the
    /// order of the file system; empty where it cannot be read. "/" and "\" both separate.
    virtual std::vector<Entry> List(const std::string& directory) = 0;
};

} // namespace ombrin
