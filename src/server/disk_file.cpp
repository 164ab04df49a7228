#include "server/disk_file.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace ombrin::server {

namespace {

[[noreturn]] void Raise(const char* what) {
    throw DiskError(std::string(what) + ": " + std::generic_category().message(errno));
}

struct stat Info(int descriptor) {
    struct stat info {};
    if (fstat(descriptor, &info) != 0) Raise("cannot be looked at");
    return info;
}

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

} // namespace

// Without blocking, or a pipe of that name would hold the server until somebody writes.
DiskFile::DiskFile(const std::string& path) : descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor < 0) Raise("cannot be opened");
    struct stat info {};
    if (fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode)) return;
    close(descriptor);
    throw DiskError("is no plain file");
}

DiskFile::~DiskFile() { close(descriptor); }

std::string DiskFile::ReadAt(std::uint64_t offset, std::size_t count) {
    const std::uint64_t size = Size();
    if (offset >= size) return "";
    std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(count, size - offset)), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t taken =
            pread(descriptor, bytes.data() + length, bytes.size() - length, static_cast<off_t>(offset + length));
        if (taken < 0 && errno == EINTR) continue;
        if (taken < 0) Raise("cannot be read");
        if (taken == 0) break; // it became shorter meanwhile
        length += static_cast<std::size_t>(taken);
    }
    bytes.resize(length);
    return bytes;
}

FileMark DiskFile::Mark() const {
    const struct stat info = Info(descriptor);
    return {info.st_dev, info.st_ino, static_cast<std::uint64_t>(std::max<off_t>(info.st_size, 0)),
            info.st_mtim.tv_sec * kNanosecondsPerSecond + info.st_mtim.tv_nsec};
}

std::int64_t DiskFile::Changed() const {
    const struct stat info = Info(descriptor);
    return std::max(info.st_mtim.tv_sec, info.st_ctim.tv_sec);
}

bool DiskFile::OpenToOthers() const { return (Info(descriptor).st_mode & (S_IRWXG | S_IRWXO)) != 0; }

} // namespace ombrin::server
