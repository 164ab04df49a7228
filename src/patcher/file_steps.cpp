#include "patcher/file_steps.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/file_source.h"
#include "platform/posix/native_files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace ombrin::patcher {

namespace {

[[noreturn]] void Raise(std::string_view what, const std::string& path) {
    const int problem = errno;
    throw RuntimeError(problem == ENOSPC || problem == EDQUOT ? ErrorNumber::DiskFull : ErrorNumber::PathAccess,
                       Join(path, " ", what, ": ", std::strerror(problem)));
}

/// A name that was made, changed or removed is on the disk only when its folder is.
void FlushFolder(const std::string& path) {
    const Descriptor folder(open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder || fsync(folder.Number()) != 0) Raise("is not safe on the disk", path);
}

struct stat InfoOf(const std::string& path) {
    struct stat info {};
    if (lstat(path.c_str(), &info) != 0) Raise("cannot be looked at", path);
    return info;
}

/// Writes aside what `next` gives piece by piece, then brings it to its name.
template <class Next>
void WriteAside(const std::string& path, mode_t mode, Next&& next) {
    const std::string aside = path + ".part";
    Remove(aside);
    Descriptor file(open(aside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file) Raise("cannot be written", aside);
    for (std::string piece = next(); !piece.empty(); piece = next())
        for (std::size_t done = 0; done < piece.size();) {
            const ssize_t written = write(file.Number(), piece.data() + done, piece.size() - done);
            if (written < 0 && errno != EINTR) Raise("cannot be written", aside);
            if (written > 0) done += static_cast<std::size_t>(written);
        }
    if (fsync(file.Number()) != 0) Raise("cannot be written", aside);
    Rename(aside, path);
}

} // namespace

bool Exists(const std::string& path) { return faccessat(AT_FDCWD, path.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0; }

void RequirePlainFile(const std::string& path) {
    if (!S_ISREG(InfoOf(path).st_mode))
        throw RuntimeError(ErrorNumber::PathAccess, Join(path, " is in the way: it is no plain file"));
}

void Rename(const std::string& from, const std::string& to) {
    if (rename(from.c_str(), to.c_str()) != 0) Raise("cannot be put in place", to);
    FlushFolder(to);
}

void DuplicateFile(const std::string& from, const std::string& to) {
    if (link(from.c_str(), to.c_str()) == 0) return FlushFolder(to);
    constexpr std::size_t kPiece = 1U << 16U;
    FileSource source(from);
    std::uint64_t at = 0;
    WriteAside(to, ModeOf(from), [&] {
        std::string piece = source.ReadAt(at, kPiece);
        at += piece.size();
        return piece;
    });
}

void WriteWhole(const std::string& path, std::string_view text) {
    WriteAside(path, 0644, [&] { return std::string(std::exchange(text, {})); });
}

void Remove(const std::string& path) {
    if (unlink(path.c_str()) == 0) return FlushFolder(path);
    if (errno != ENOENT) Raise("cannot be removed", path);
}

mode_t ModeOf(const std::string& path) { return InfoOf(path).st_mode & 07777; }

void SetMode(const std::string& path, mode_t mode) {
    if (chmod(path.c_str(), mode) != 0) Raise("cannot be made a program", path);
}

bool IsProgram(const std::string& path) {
    FileSource file(path);
    return BeginsAsProgram(file);
}

} // namespace ombrin::patcher
