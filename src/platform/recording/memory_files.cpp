#include "platform/recording/memory_files.h"

#include "foundation/runtime_error.h"

namespace ombrin::recording {

/// One "/" between the names of a path.
std::string MemoryFiles::Normal(const std::string& path) {
    std::string normal;
    for (const char c : path) {
        const char separator = c == '\\' ? '/' : c;
        if (separator == '/' && normal.ends_with('/')) continue;
        normal += separator;
    }
    return normal;
}

void MemoryFiles::Try(const std::string& path) const {
    if (!broken.empty() && Normal(path) == broken) throw RuntimeError(ErrorNumber::PathAccess);
}

std::optional<Files::Stamp> MemoryFiles::StampOf(const std::string& path) const {
    const auto found = files.find(Normal(path));
    if (found == files.end()) return std::nullopt;
    return Stamp{found->second.version, found->second.content.size(), 0};
}

std::string MemoryFiles::Read(const std::string& path) const {
    Try(path);
    const auto found = files.find(Normal(path));
    if (found == files.end()) throw RuntimeError(ErrorNumber::FileNotFound);
    return found->second.content;
}

void MemoryFiles::Update(const std::string& path, Readers, const Change& change) {
    Try(path);
    const auto found = files.find(Normal(path));
    const auto changed =
        change(found == files.end() ? std::nullopt : std::optional<std::string>(found->second.content));
    if (changed) files[Normal(path)] = {*changed, ++versions};
}

void MemoryFiles::AppendRecord(const std::string& path, std::string_view record, std::uint64_t limit) {
    if (failAppends != 0) throw RuntimeError(failAppends, "");
    File& file = files[Normal(path)];
    if (file.content.size() > limit) file.content.clear();
    file.content.append(record);
    file.version = ++versions;
}

std::vector<std::string> MemoryFiles::NamesIn(const std::string& folder) const {
    const std::string prefix = Normal(folder + "/");
    std::vector<std::string> names;
    for (const auto& [path, file] : files)
        if (path.starts_with(prefix) && path.find('/', prefix.size()) == std::string::npos)
            names.push_back(path.substr(prefix.size()));
    return names;
}

std::string MemoryFiles::Content(const std::string& path) const {
    const auto found = files.find(Normal(path));
    return found == files.end() ? std::string() : found->second.content;
}

} // namespace ombrin::recording
