#include "server/options.h"

#include <CLI/CLI.hpp>
#include <arpa/inet.h>

namespace ombrin::server {

namespace {

/// The client reads the port of the files as a signed number of 16 bits.
constexpr int kHighestFilesPort = 32'767;
constexpr int kHighestPort = 65'535;

std::string UsualHome() {
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): no other thread runs yet
        return std::string(value == nullptr ? "" : value);
    };
    const std::string data = variable("XDG_DATA_HOME");
    if (!data.empty()) return data + "/ardvelle-server";
    return variable("HOME") + "/.local/share/ardvelle-server";
}

/// Empty for an address, else what is wrong.
std::string CheckAddress(const std::string& text) {
    in6_addr address{};
    if (inet_pton(AF_INET, text.c_str(), &address) == 1 || inet_pton(AF_INET6, text.c_str(), &address) == 1) return {};
    return "must be an IPv4 or IPv6 address";
}

} // namespace

CommandLine ParseCommandLine(int count, const char* const* arguments) {
    Options options;
    CLI::App app{"The lobby and update server of Ardvelle.", "ardvelle-server"};
    app.set_version_flag("--version", "ardvelle-server " OMBRIN_VERSION, "Print the version and exit");
    app.add_option("--listen", options.listen, "Address to listen on")
        ->type_name("ADDRESS")
        ->capture_default_str()
        ->check(CLI::Validator(CheckAddress, ""));
    app.add_option("--port", options.port, "Port of the lobby server; 0 takes a free one")
        ->type_name("N")
        ->capture_default_str()
        ->check(CLI::Range(0, kHighestPort).description(""));
    app.add_option("--files-port", options.filesPort, "Port of the update server; 0 takes a free one below 32768")
        ->type_name("N")
        ->capture_default_str()
        ->check(CLI::Range(0, kHighestFilesPort).description(""));
    app.add_option("--home", options.home, "Folder of the database, the files to hand out and server.json")
        ->type_name("DIR");
    app.add_option("--config", options.configuration, "Configuration; default server.json in the home, if there is one")
        ->type_name("FILE");
    app.add_flag("--open-accounts", options.openAccounts, "An unknown name that logs on gets an account at once");
    app.add_flag("--trust-embedded", options.trustEmbedded,
                 "A connection may begin by entering a lobby: the page around the client vouches for its user");
    app.add_option("--make-update-key", options.makeUpdateKey,
                   "Write a new key for signing updates, print its public half for the clients, and end")
        ->type_name("FILE");
    try {
        app.parse(count, arguments);
    } catch (const CLI::ParseError& ending) {
        return {std::nullopt, app.exit(ending) == 0 ? 0 : 2};
    }
    if (options.home.empty()) options.home = UsualHome();
    return {options, 0};
}

} // namespace ombrin::server
