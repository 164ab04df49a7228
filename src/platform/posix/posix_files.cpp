#include "platform/posix/posix_files.h"

#include "foundation/runtime_error.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/native_files.h"
#include "platform/posix/wine_prefix.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>

namespace ombrin {

namespace {

constexpr mode_t kForEverybody = 0644, kForUserOnly = 0600;

std::string ReadAll(int descriptor, const std::string& path) {
    struct stat info {};
    if (fstat(descriptor, &info) != 0) RaiseLastProblem(path);
    std::string bytes;
    bytes.resize(static_cast<std::size_t>(std::max<off_t>(info.st_size, 0)) + 1);
    std::size_t length = 0;
    while (true) {
        const ssize_t taken = read(descriptor, bytes.data() + length, bytes.size() - length);
        if (taken < 0 && errno == EINTR) continue;
        if (taken < 0) RaiseLastProblem(path);
        if (taken == 0) break;
        length += static_cast<std::size_t>(taken);
        if (length == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.resize(length);
    return bytes;
}

std::string LockPath(const std::string& native) { return FolderOf(native) + "/." + NameOf(native) + ".lock"; }

Descriptor Locked(const std::string& native, mode_t mode) {
    const std::string path = LockPath(native);
    Descriptor lock(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, mode));
    if (!lock) RaiseLastProblem(path);
    while (flock(lock.Number(), LOCK_EX) != 0)
        if (errno != EINTR) RaiseLastProblem(path);
    return lock;
}

/// The new content under another name in the same folder, on the disk, and then in place in one step. The lock makes
/// the other name ours: what lies there was left by a client that was killed.
void Swap(const std::string& native, std::string_view bytes, mode_t mode) {
    const std::string aside = FolderOf(native) + "/." + NameOf(native) + ".new";
    unlink(aside.c_str());
    Descriptor file(open(aside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kForUserOnly));
    if (!file) RaiseLastProblem(native);
    try {
        if (fchmod(file.Number(), mode) != 0) RaiseLastProblem(native);
        WriteAll(file.Number(), bytes, native);
        if (fsync(file.Number()) != 0) RaiseLastProblem(native);
        if (rename(aside.c_str(), native.c_str()) != 0) RaiseLastProblem(native);
    } catch (...) {
        unlink(aside.c_str());
        throw;
    }
    FlushFolder(FolderOf(native));
}

} // namespace

std::string PosixFiles::Native(std::string_view path) const {
    std::string native = page.ToUtf8(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    if (native.find('\0') != std::string::npos) throw RuntimeError(ErrorNumber::PathNotFound);
    return drives && HasDriveLetter(native) ? drives(native) : native;
}

std::optional<Files::Stamp> PosixFiles::StampOf(const std::string& path) const {
    struct stat info {};
    if (stat(Native(path).c_str(), &info) != 0) return std::nullopt;
    const auto changed = static_cast<std::uint64_t>(info.st_mtim.tv_sec) * 1'000'000'000U +
                         static_cast<std::uint64_t>(info.st_mtim.tv_nsec);
    return Stamp{info.st_ino, static_cast<std::uint64_t>(info.st_size), changed};
}

std::string PosixFiles::Read(const std::string& path) const {
    const std::string native = Native(path);
    const Descriptor file(open(native.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) RaiseLastProblem(native);
    return ReadAll(file.Number(), native);
}

void PosixFiles::Update(const std::string& path, Readers readers, const Change& change) {
    const std::string native = Resolved(Native(path));
    const Descriptor lock = Locked(native, readers == Readers::UserOnly ? kForUserOnly : kForEverybody);
    std::optional<std::string> old;
    mode_t mode = readers == Readers::UserOnly ? kForUserOnly : kForEverybody;
    if (const Descriptor file(open(native.c_str(), O_RDONLY | O_CLOEXEC)); file) {
        old = ReadAll(file.Number(), native);
        struct stat info {};
        if (readers == Readers::Everybody && fstat(file.Number(), &info) == 0) mode = info.st_mode & 07777;
    } else if (errno != ENOENT) {
        RaiseLastProblem(native);
    }
    const auto changed = change(old);
    if (changed && changed != old) Swap(native, *changed, mode);
}

void PosixFiles::AppendRecord(const std::string& path, std::string_view record, std::uint64_t limit) {
    const std::string native = Native(path);
    const auto openForAppending = [&] {
        Descriptor file(open(native.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, kForUserOnly));
        if (!file) RaiseLastProblem(native);
        return file;
    };
    Descriptor file = openForAppending();
    struct stat info {};
    if (fstat(file.Number(), &info) == 0 && static_cast<std::uint64_t>(info.st_size) > limit) {
        file.Reset();
        if (unlink(native.c_str()) != 0) RaiseLastProblem(native);
        file = openForAppending();
    }
    WriteAll(file.Number(), record, native);
}

std::vector<std::string> PosixFiles::NamesIn(const std::string& folder) const {
    std::vector<std::string> names;
    const auto closeIt = [](DIR* opened) { closedir(opened); };
    const std::unique_ptr<DIR, decltype(closeIt)> directory(opendir(Native(folder).c_str()), closeIt);
    if (!directory) return names;
    while (const dirent* entry = readdir(directory.get())) {
        const auto name = page.FromUtf8(static_cast<const char*>(entry->d_name));
        if (name && *name != "." && *name != "..") names.push_back(*name);
    }
    return names;
}

void PosixFiles::MakeFolder(const std::string& path, Readers readers) const {
    const std::string native = Native(path);
    for (std::size_t at = native.find('/', 1);; at = native.find('/', at + 1)) {
        const std::string part = native.substr(0, at);
        const bool last = at == std::string::npos;
        const mode_t mode = last && readers == Readers::UserOnly ? 0700 : 0755;
        if (mkdir(part.c_str(), mode) != 0 && errno != EEXIST && (last || errno != EROFS)) RaiseLastProblem(part);
        if (last) break;
    }
    struct stat info {};
    if (stat(native.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        errno = ENOTDIR;
        RaiseLastProblem(native);
    }
}

} // namespace ombrin
