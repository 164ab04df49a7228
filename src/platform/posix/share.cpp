#include "platform/posix/share.h"

#include <filesystem>

namespace ombrin {

std::string ShareFolder() {
    std::error_code problem;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", problem);
    const auto beside = (program.parent_path().parent_path() / "share/ombrin").string();
    return !problem && std::filesystem::is_directory(beside, problem) ? beside : OMBRIN_INSTALLED_SHARE;
}

} // namespace ombrin
