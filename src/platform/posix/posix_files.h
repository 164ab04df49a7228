// Files on a POSIX file system.
#pragma once

#include "foundation/code_page.h"
#include "foundation/files.h"

#include <functional>

namespace ombrin {

class PosixFiles : public Files {
public:
    /// Names are converted from the code page to the UTF-8 of the file system.
    explicit PosixFiles(const CodePage& page) : page(page) {}

    std::optional<Stamp> StampOf(const std::string& path) const override;
    std::string Read(const std::string& path) const override;
    void Update(const std::string& path, Readers readers, const Change& change) override;
    void AppendRecord(const std::string& path, std::string_view record, std::uint64_t limit) override;
    std::vector<std::string> NamesIn(const std::string& folder) const override;

    /// The path as the system takes it.
    std::string Native(std::string_view path) const;
    /// Where a path with a drive letter lies, both in UTF-8; without it such a path is one like any other.
    std::function<std::string(std::string_view path)> drives;
    /// Makes the folder and those above it; one that is there stays as it is.
    void MakeFolder(const std::string& path, Readers readers) const;

private:
    const CodePage& page;
};

} // namespace ombrin
