#include "platform/posix/posix_processes.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"

#include <algorithm>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace ombrin {

namespace {

bool IsWindowsProgram(const std::string& path) {
    if (HasDriveLetter(path)) return true;
    std::ifstream file(path, std::ios::binary);
    char start[2] = {};
    return file.read(start, sizeof start) && start[0] == 'M' && start[1] == 'Z';
}

bool IsDirectory(const std::string& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

/// A path of this machine with its own separators; one with a drive letter stays as it is.
std::string Native(std::string path) {
    if (!HasDriveLetter(path)) std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

} // namespace

std::string PosixProcesses::DirectoryOf(std::string_view path) const {
    std::string wanted = Native(page.ToUtf8(path));
    if (!HasDriveLetter(wanted)) return wanted;
    wanted = prefix.Native(wanted);
    return IsDirectory(wanted) ? wanted : std::string();
}

void PosixProcesses::ChDir(std::string_view to) {
    const std::string wanted = DirectoryOf(to);
    if (!wanted.empty() && !IsDirectory(wanted)) throw RuntimeError(ErrorNumber::PathNotFound);
    directory = wanted;
}

Processes::TaskId PosixProcesses::Shell(const CommandLine& command) {
    std::string program = Native(page.ToUtf8(command.Program()));
    if (const std::string here = directory + "/" + program;
        program.find('/') == std::string::npos && !directory.empty() && access(here.c_str(), F_OK) == 0)
        program = here;
    std::vector<std::string> arguments;
    const bool isWindows = IsWindowsProgram(program);
    if (isWindows) arguments.push_back(page.ToUtf8(runner()));
    arguments.push_back(program);
    for (const std::string& argument : command.Arguments()) arguments.push_back(page.ToUtf8(argument));
    std::vector<std::string> environment;
    for (const auto& [name, value] : command.environment) environment.push_back(Join(name, "=", page.ToUtf8(value)));
    if (isWindows && !prefix.Named().empty()) environment.push_back(Join("WINEPREFIX=", prefix.Named()));
    const std::string own = command.directory.empty() ? directory : DirectoryOf(command.directory);
    const int process = programs.Start(arguments, {}, own, environment);
    if (process < 0 && isWindows && !programs.IsThere(arguments.front()))
        throw RuntimeError(ErrorNumber::FileNotFound,
                           Join("Windows programs are started by ", arguments.front(),
                                ", which is not installed on this machine (setting Runner)"));
    return process < 0 ? kNone : process;
}

void PosixProcesses::AppActivate(TaskId) {
    throw RuntimeError(ErrorNumber::InvalidProcedureCall, "the windows of other programs cannot be reached");
}

void PosixProcesses::SendKeys(std::string_view) {
    throw RuntimeError(ErrorNumber::InvalidProcedureCall, "keys cannot be sent to other programs");
}

} // namespace ombrin
