// ardvelle-server: the lobby and update server of Ardvelle.

#include "server/configuration.h"
#include "server/log.h"
#include "server/net/server.h"
#include "server/options.h"
#include "server/update_key.h"

#include <filesystem>
#include <iostream>
#include <sodium.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using namespace ombrin::server;

/// Every client takes a descriptor; the system's usual soft limit is far below its hard one.
void RaiseDescriptorLimit(Log& log) {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        if (setrlimit(RLIMIT_NOFILE, &limit) == 0) return;
    }
    log.Line("the limit of descriptors stays as it is");
}

/// The configuration and the files that it names.
struct Loaded {
    Configuration configuration;
    Release release;
};

Loaded Load(const Options& options) {
    std::string path = options.configuration;
    if (path.empty()) path = options.home + "/server.json";
    if (options.configuration.empty() && !std::filesystem::exists(path)) return {};
    try {
        Loaded loaded{ReadConfiguration(path), {}};
        loaded.release = ReadRelease(loaded.configuration, options.home, path);
        return loaded;
    } catch (const ConfigurationError& mistake) {
        throw ConfigurationError(path + ": " + mistake.what());
    }
}

void TellOfRelease(const Release& release, Log& log) {
    if (!release.publicKey.empty()) log.Line("files are signed for the UpdateKey ", release.publicKey);
    for (const OfferedFile& file : release.files) {
        const std::size_t behindDot = file.version.find('.') + 1;
        if (behindDot > 0 && behindDot + 1 == file.version.size())
            log.Line("clients do not look at the single character behind the dot of ", file.name, " ", file.version);
    }
}

void Run(const Options& options, Log& log) {
    umask(S_IRWXG | S_IRWXO); // the database is nobody else's business
    std::filesystem::create_directories(options.home);
    Loaded loaded = Load(options);
    TellOfRelease(loaded.release, log);
    Server server(options, loaded.configuration, std::move(loaded.release), log);
    std::cout << server.ReadyLine() << std::endl; // NOLINT(performance-avoid-endl): whoever waits for it waits now
    server.Run();
}

void MakeKey(const std::string& path) {
    UpdateKey::Make(path);
    std::cout << "The setting UpdateKey of the clients: " << UpdateKey(path).PublicHalf() << "\n";
}

} // namespace

int main(int count, char** arguments) {
    const CommandLine commandLine = ParseCommandLine(count, arguments);
    if (!commandLine.options) return commandLine.exitCode;
    StandardErrorLog log;
    try {
        if (sodium_init() < 0) throw std::runtime_error("libsodium cannot be started");
        if (!commandLine.options->makeUpdateKey.empty()) {
            MakeKey(commandLine.options->makeUpdateKey);
            return 0;
        }
        RaiseDescriptorLimit(log);
        Run(*commandLine.options, log);
    } catch (const std::exception& problem) {
        std::cerr << "ardvelle-server: " << problem.what() << std::endl; // NOLINT(performance-avoid-endl)
        return 1;
    }
    return 0;
}
