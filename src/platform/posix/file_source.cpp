#include "platform/posix/file_source.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace ombrin {

namespace {

[[noreturn]] void Raise(ErrorNumber number, const std::string& path) {
    throw RuntimeError(number, Join(RuntimeError(number).what(), ": ", path));
}

ErrorNumber NumberOf(int problem) {
    if (problem == ENOENT || problem == ENOTDIR) return ErrorNumber::FileNotFound;
    if (problem == EACCES || problem == EPERM) return ErrorNumber::PathAccess;
    return ErrorNumber::DeviceIo;
}

struct stat Info(const Descriptor& file, const std::string& path) {
    struct stat info {};
    if (fstat(file.Number(), &info) != 0) Raise(NumberOf(errno), path);
    return info;
}

} // namespace

// Without blocking, or a pipe of that name would hold the client until somebody writes.
FileSource::FileSource(std::string native)
    : path(std::move(native)), file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (!file) Raise(NumberOf(errno), path);
    if (!S_ISREG(Info(file, path).st_mode)) Raise(ErrorNumber::PathAccess, path);
}

std::uint64_t FileSource::Size() const {
    return static_cast<std::uint64_t>(std::max<off_t>(Info(file, path).st_size, 0));
}

std::string FileSource::ReadAt(std::uint64_t offset, std::size_t count) {
    const std::uint64_t size = Size();
    if (offset >= size) return "";
    std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(count, size - offset)), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t taken =
            pread(file.Number(), bytes.data() + length, bytes.size() - length, static_cast<off_t>(offset + length));
        if (taken < 0 && errno == EINTR) continue;
        if (taken < 0) Raise(NumberOf(errno), path);
        if (taken == 0) break; // the file became shorter meanwhile
        length += static_cast<std::size_t>(taken);
    }
    bytes.resize(length);
    return bytes;
}

} // namespace ombrin
