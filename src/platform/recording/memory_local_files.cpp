#include "platform/recording/memory_local_files.h"

#include "foundation/file_version.h"
#include "foundation/runtime_error.h"
#include "platform/recording/held_bytes.h"

namespace ombrin::recording {

bool MemoryLocalFiles::Write(const std::string& path, std::string_view bytes, WriteMode mode) {
    if (refused.contains(path)) return false;
    files.Update(path, Files::Readers::Everybody, [&](const std::optional<std::string>& old) {
        return (mode == WriteMode::Append ? old.value_or("") : "") + std::string(bytes.substr(0, writtenAtMost));
    });
    return true;
}

void MemoryLocalFiles::Copy(const std::string& from, const std::string& to) {
    const std::string bytes = files.Read(from);
    if (refused.contains(to)) throw RuntimeError(ErrorNumber::PathAccess);
    files.Update(to, Files::Readers::Everybody, [&](const auto&) { return std::optional(bytes); });
}

std::unique_ptr<ByteSource> MemoryLocalFiles::Open(const std::string& path) const {
    return std::make_unique<HeldBytes>(files.Read(path));
}

std::string MemoryLocalFiles::GetFileVersion(const std::string& path) const {
    return files.StampOf(path) ? FileVersion(*Open(path)) : "";
}

} // namespace ombrin::recording
