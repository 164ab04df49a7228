#include "platform/posix/share.h"

#include <filesystem>
#include <unistd.h>

namespace ombrin {

namespace {

/// Empty where the system does not tell.
std::filesystem::path ProgramFolder() {
    std::error_code problem;
    return std::filesystem::read_symlink("/proc/self/exe", problem).parent_path();
}

} // namespace

std::string ShareFolder() {
    std::error_code problem;
    const std::filesystem::path programs = ProgramFolder();
    const auto beside = (programs.parent_path() / "share/ombrin").string();
    return !programs.empty() && std::filesystem::is_directory(beside, problem) ? beside : OMBRIN_INSTALLED_SHARE;
}

std::string InstalledProgram(std::string_view name) {
    for (const std::filesystem::path& folder : {ProgramFolder(), std::filesystem::path(OMBRIN_INSTALLED_PROGRAMS)})
        if (const std::string program = (folder / name).string(); !folder.empty() && access(program.c_str(), X_OK) == 0)
            return program;
    return "";
}

} // namespace ombrin
