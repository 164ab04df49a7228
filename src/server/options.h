// The command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ombrin::server {

struct Options {
    std::string listen = "127.0.0.1"; ///< an IPv4 or IPv6 address
    std::uint16_t port = 7777;        ///< 0: a free one
    std::uint16_t filesPort = 0;      ///< 0: a free one below 32,768
    std::string home;
    std::string configuration; ///< empty: none
    bool openAccounts = false;
    bool trustEmbedded = false;
    std::string makeUpdateKey; ///< file to write a new key to, and do nothing else; empty: none
};

/// What the command line comes to: options, or a program that has said its text and ends.
struct CommandLine {
    std::optional<Options> options;
    int exitCode = 0;
};

/// Help and version go to standard output, mistakes to standard error.
CommandLine ParseCommandLine(int count, const char* const* arguments);

} // namespace ombrin::server
