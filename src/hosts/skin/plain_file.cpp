#include "hosts/skin/plain_file.h"

#include "foundation/text.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/native_files.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>

namespace ombrin::skin {

namespace {

[[noreturn]] void Refuse(const std::string& path, std::string_view why) {
    throw std::runtime_error(Join(path, " ", why));
}

/// Does not wait for the other end of a pipe.
Descriptor OpenPlain(const std::string& path) {
    Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file) return file;
    if (errno == ENOENT) Refuse(path, "is missing");
    if (errno == ELOOP) Refuse(path, "is a link");
    Refuse(path, Join("cannot be read: ", std::strerror(errno)));
}

} // namespace

std::string ReadPlainFile(const std::string& path, std::uint64_t limit) {
    const Descriptor file = OpenPlain(path);
    struct stat info {};
    if (fstat(file.Number(), &info) != 0) RaiseLastProblem(path);
    if (!S_ISREG(info.st_mode)) Refuse(path, "is no plain file");
    std::string bytes(std::min(static_cast<std::uint64_t>(info.st_size), limit) + 1, '\0'); // one more shows growth
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t taken = read(file.Number(), bytes.data() + length, bytes.size() - length);
        if (taken < 0 && errno == EINTR) continue;
        if (taken < 0) RaiseLastProblem(path);
        if (taken == 0) break;
        length += static_cast<std::size_t>(taken);
    }
    if (length > limit) Refuse(path, Join("is larger than ", std::to_string(limit / 1024), " KiB"));
    if (length == bytes.size()) Refuse(path, "is being written to");
    bytes.resize(length);
    return bytes;
}

void WriteNewFile(const std::string& path, const std::string& bytes) {
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (!file) RaiseLastProblem(path);
    WriteAll(file.Number(), bytes, path);
    if (fsync(file.Number()) != 0) RaiseLastProblem(path);
}

} // namespace ombrin::skin
