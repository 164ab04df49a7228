#include "process.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace ombrin::bench {

Process::Process(std::vector<std::string> command) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& part : command) arguments.push_back(part.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int result = posix_spawn(&id, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (result != 0) throw std::runtime_error("cannot start " + command[0]);
    std::string line;
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) line += c;
    close(ends[0]);
    const std::size_t end = line.find(',');
    if (end == std::string::npos) throw std::runtime_error(command[0] + " does not get ready");
    port = static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':', end) + 1)));
    const std::size_t filesColon = line.find(':', end);
    if (filesColon != std::string::npos) filesPort = static_cast<std::uint16_t>(std::stoi(line.substr(filesColon + 1)));
}

Process::~Process() {
    kill(id, SIGTERM);
    waitpid(id, nullptr, 0);
}

double Process::ProcessorTime() const {
    double nanoseconds = 0;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/" + std::to_string(id) + "/task")) {
        double running = 0;
        std::ifstream(thread.path() / "schedstat") >> running;
        nanoseconds += running;
    }
    return nanoseconds / 1e9;
}

double Process::MemoryKiB() const {
    std::istringstream fields(Text("statm"));
    double total = 0;
    double resident = 0;
    fields >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

std::string Process::Text(const char* file) const {
    std::ostringstream text;
    text << std::ifstream("/proc/" + std::to_string(id) + "/" + file).rdbuf();
    return text.str();
}

ScratchHome::ScratchHome(std::string_view configuration) {
    path = (std::filesystem::temp_directory_path() / "ardvelle-bench-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no scratch folder");
    std::ofstream(path + "/server.json") << configuration;
}

ScratchHome::~ScratchHome() { std::filesystem::remove_all(path); }

void RaiseDescriptorLimit() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace ombrin::bench
