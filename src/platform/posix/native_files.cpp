#include "platform/posix/native_files.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "platform/posix/descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>

namespace ombrin {

std::string FolderOf(const std::string& native) {
    const std::size_t slash = native.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : native.substr(0, slash);
}

std::string NameOf(const std::string& native) { return native.substr(native.rfind('/') + 1); }

void RaiseLastProblem(const std::string& path) {
    const int problem = errno;
    ErrorNumber number = ErrorNumber::DeviceIo;
    if (problem == ENOENT) number = ErrorNumber::FileNotFound;
    if (problem == ENOTDIR || (problem == ENOENT && access(FolderOf(path).c_str(), F_OK) != 0))
        number = ErrorNumber::PathNotFound;
    if (problem == EACCES || problem == EPERM || problem == EROFS || problem == EISDIR)
        number = ErrorNumber::PathAccess;
    if (problem == ENOSPC || problem == EDQUOT) number = ErrorNumber::DiskFull;
    throw RuntimeError(number, Join(RuntimeError(number).what(), ": ", path));
}

void WriteAll(int descriptor, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) RaiseLastProblem(path);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string Resolved(const std::string& native) {
    constexpr int kLinks = 40; // as many as the system follows
    std::filesystem::path path = native;
    std::error_code none;
    for (int i = 0; i < kLinks && std::filesystem::is_symlink(path, none); ++i)
        path = path.parent_path() / std::filesystem::read_symlink(path, none);
    return path.string();
}

bool BeginsAsProgram(ByteSource& file) {
    const std::string start = file.ReadAt(0, 4);
    return start == "\177ELF" || start.starts_with("#!") || start.starts_with("MZ");
}

void FlushFolder(const std::string& folder) {
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) fsync(opened.Number());
}

} // namespace ombrin
