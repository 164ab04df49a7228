// Files in memory.
#pragma once

#include "foundation/files.h"

#include <map>

namespace ombrin::recording {

class MemoryFiles : public Files {
public:
    std::optional<Stamp> StampOf(const std::string& path) const override;
    std::string Read(const std::string& path) const override;
    void Update(const std::string& path, Readers readers, const Change& change) override;
    void AppendRecord(const std::string& path, std::string_view record, std::uint64_t limit) override;
    std::vector<std::string> NamesIn(const std::string& folder) const override;

    /// Empty where there is no such file.
    std::string Content(const std::string& path) const;
    /// Whether there was one.
    bool Delete(const std::string& path) { return files.erase(Normal(path)) > 0; }

    int failAppends = 0; ///< an error number that appending raises, 0 for none
    std::string broken;  ///< a path that is there and can be neither read nor changed (75)

private:
    struct File {
        std::string content;
        std::uint64_t version = 0;
    };
    static std::string Normal(const std::string& path);
    void Try(const std::string& path) const;

    std::map<std::string, File> files;
    std::uint64_t versions = 0;
};

} // namespace ombrin::recording
