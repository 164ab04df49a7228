// Whole files in memory, the same ones as those of MemoryFiles.
#pragma once

#include "platform/local_files.h"
#include "platform/recording/memory_files.h"

#include <set>

namespace ombrin::recording {

class MemoryLocalFiles : public LocalFiles {
public:
    explicit MemoryLocalFiles(MemoryFiles& files) : files(files) {}

    bool Write(const std::string& path, std::string_view bytes, WriteMode mode) override;
    void Copy(const std::string& from, const std::string& to) override;
    bool Delete(const std::string& path) override { return files.Delete(path); }
    bool SetModifiedTime(const std::string& path, std::uint64_t) override { return files.StampOf(path).has_value(); }
    std::optional<Space> FreeSpace(const std::string&) const override { return Space{1, room}; }
    std::unique_ptr<ByteSource> Open(const std::string& path) const override;
    std::string GetFileVersion(const std::string& path) const override;

    std::set<std::string> refused;        ///< paths that can be neither written nor replaced
    std::uint64_t room = UINT64_MAX;      ///< bytes that FreeSpace tells
    std::size_t writtenAtMost = SIZE_MAX; ///< bytes of each write that reach the file, as on a disk that is full

private:
    MemoryFiles& files;
};

} // namespace ombrin::recording
