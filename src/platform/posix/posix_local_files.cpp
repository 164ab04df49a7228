#include "platform/posix/posix_local_files.h"

#include "foundation/file_version.h"
#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "platform/posix/file_source.h"
#include "platform/posix/native_files.h"
#include "platform/posix/posix_files.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace ombrin {

namespace {

constexpr mode_t kFile = 0644, kProgram = 0755, kAnyWriter = 0222;
constexpr std::size_t kCopiedAtOnce = std::size_t{256} * 1024; ///< bytes

/// The mode that a file put in place here has. A file without a writer is one that somebody protects.
mode_t ModeFor(const std::string& target, ByteSource& source) {
    struct stat info {};
    if (stat(target.c_str(), &info) != 0) return BeginsAsProgram(source) ? kProgram : kFile;
    if (!S_ISREG(info.st_mode) || (info.st_mode & kAnyWriter) == 0 || access(target.c_str(), W_OK) != 0)
        throw RuntimeError(ErrorNumber::PathAccess, Join(RuntimeError(ErrorNumber::PathAccess).what(), ": ", target));
    return info.st_mode & 07777;
}

void CopyInto(const Descriptor& file, ByteSource& source, const std::string& path) {
    for (std::uint64_t offset = 0;; offset += kCopiedAtOnce) {
        const std::string piece = source.ReadAt(offset, kCopiedAtOnce);
        WriteAll(file.Number(), piece, path);
        if (piece.size() < kCopiedAtOnce) return;
    }
}

} // namespace

std::string PosixLocalFiles::Native(const std::string& path) const { return PosixFiles(page).Native(path); }

bool PosixLocalFiles::Write(const std::string& path, std::string_view bytes, WriteMode mode) {
    const std::string native = Native(path);
    const int place = mode == WriteMode::Create ? O_TRUNC : O_APPEND;
    // A pipe of that name must not hold the client.
    const Descriptor file(
        open(native.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | place, kFile));
    if (!file) return false;
    try {
        WriteAll(file.Number(), bytes, native);
    } catch (const RuntimeError&) { // the file is short then, and whoever counts its bytes sees that
    }
    fsync(file.Number());
    return true;
}

void PosixLocalFiles::Copy(const std::string& from, const std::string& to) {
    FileSource source(Native(from));
    const std::string native = Resolved(Native(to));
    const mode_t mode = ModeFor(native, source);
    // A name of this process: another client may be copying to the same place.
    const std::string aside = Join(FolderOf(native), "/.", NameOf(native), ".", std::to_string(getpid()));
    unlink(aside.c_str());
    const Descriptor file(open(aside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kFile));
    if (!file) RaiseLastProblem(native);
    try {
        CopyInto(file, source, native);
        if (fchmod(file.Number(), mode) != 0 || fsync(file.Number()) != 0) RaiseLastProblem(native);
        if (rename(aside.c_str(), native.c_str()) != 0) RaiseLastProblem(native);
    } catch (...) {
        unlink(aside.c_str());
        throw;
    }
    FlushFolder(FolderOf(native));
}

bool PosixLocalFiles::Delete(const std::string& path) { return unlink(Native(path).c_str()) == 0; }

bool PosixLocalFiles::SetModifiedTime(const std::string& path, std::uint64_t time) {
    constexpr std::uint64_t kUnitsPerSecond = 10'000'000, kNanosecondsPerUnit = 100;
    constexpr std::int64_t kSecondsBefore1970 = 11'644'473'600;
    const std::string native = Native(path);
    if (time == 0) return access(native.c_str(), F_OK) == 0;
    const timespec times[] = {{0, UTIME_OMIT},
                              {static_cast<time_t>(time / kUnitsPerSecond) - kSecondsBefore1970,
                               static_cast<long>(time % kUnitsPerSecond * kNanosecondsPerUnit)}};
    return utimensat(AT_FDCWD, native.c_str(), times, 0) == 0;
}

std::optional<LocalFiles::Space> PosixLocalFiles::FreeSpace(const std::string& folder) const {
    const std::string native = Native(folder);
    struct stat info {};
    struct statvfs space {};
    if (stat(native.c_str(), &info) != 0 || statvfs(native.c_str(), &space) != 0) return std::nullopt;
    return Space{info.st_dev, std::uint64_t{space.f_bavail} * space.f_frsize};
}

std::unique_ptr<ByteSource> PosixLocalFiles::Open(const std::string& path) const {
    return std::make_unique<FileSource>(Native(path));
}

std::string PosixLocalFiles::GetFileVersion(const std::string& path) const {
    try {
        return FileVersion(*Open(path), page);
    } catch (const RuntimeError&) { // whatever fails, the file tells no version
        return "";
    }
}

} // namespace ombrin
