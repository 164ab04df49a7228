// What the client needs of the file system for its own small files. Paths are texts of the core; "/" and "\" both
// separate. Failures are RuntimeErrors (53 not found, 61 disk full, 75 no access, 76 no such folder, 57 anything else).
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

class Files {
public:
    /// Differs whenever a file was changed or replaced.
    struct Stamp {
        std::uint64_t file = 0, size = 0, changed = 0;
        bool operator==(const Stamp&) const = default;
    };
    enum class Readers { Everybody, UserOnly };

    /// Old content (nothing where the file is missing) to new content; nothing to leave the file as it is.
    using Change = std::function<std::optional<std::string>(const std::optional<std::string>& old)>;

    virtual ~Files() = default;

    /// Nothing when the file is missing.
    virtual std::optional<Stamp> StampOf(const std::string& path) const = 0;
    virtual std::string Read(const std::string& path) const = 0;
    /// Reads, changes and swaps the whole file in one step under a lock shared by all processes: a reader, and a
    /// machine that stops in the middle, see the old or the new file.
    virtual void Update(const std::string& path, Readers readers, const Change& change) = 0;
    /// Appends one record; a file that is longer than `limit` bytes at that moment is deleted first.
    virtual void AppendRecord(const std::string& path, std::string_view record, std::uint64_t limit) = 0;
    /// Names in a folder; empty when there is no such folder.
    virtual std::vector<std::string> NamesIn(const std::string& folder) const = 0;
};

} // namespace ombrin
