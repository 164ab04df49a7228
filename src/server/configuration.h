// What the operator settles in the configuration file. Texts are in the client's code page, converted and checked
// while reading: what stands here can go over the wire as it is.
#pragma once

#include "server/bucket.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::server {

struct Limits {
    std::size_t users = 5'000; ///< logged on at once
    /// Connections from one address (one /64 network in IPv6) at once: a crowd behind one router, yet no single
    /// machine takes all descriptors.
    std::size_t connectionsPerAddress = 256;
    std::size_t accounts = 100'000;    ///< bounds the database
    std::size_t roomsPerLobby = 1'000; ///< the whole list goes to whoever enters
    std::size_t buddies = 200;         ///< of one user; each is looked up whenever somebody enters his lobby
    Rate lobbyLines{8, 2};
    Rate roomLines{8, 2};
    Rate privateMessages{8, 2};
    /// Cost of one password check by Argon2id, the least that is held to be safe: some 20 ms, and this memory for
    /// each thread that checks.
    std::size_t passwordMemoryKiB = 19'456;
    unsigned long long passwordPasses = 2;
};

struct LobbySetup {
    std::string name;
    std::string password; ///< empty: open to all
};

struct BannerSetup {
    std::string address;
    int seconds;
};

struct DirectPlaySetup {
    std::string game;
    std::string application;
};

struct DirectIPSetup {
    std::string game;
    std::string executable; ///< a bare file name
};

struct FileSetup {
    std::string name;
    int directory;       ///< 1 the client's, 2 the system's, 3 that of Windows
    std::string version; ///< that the file must have; empty: whatever it has
};

/// The file of signed sums, which the server makes itself where it has a key.
inline constexpr std::string_view kSumsName = "Ombrin.sums";

struct Configuration {
    std::string greeting; ///< empty: none
    std::vector<LobbySetup> lobbies{{"Quake3", ""}, {"Half Life", ""}, {"Chess", ""}, {"Go", ""}};
    bool changeOfLobby = true; ///< false: clients hide their button for it
    std::vector<BannerSetup> banners;
    std::vector<DirectPlaySetup> directPlayGames;
    std::vector<DirectIPSetup> directIPGames;
    std::vector<FileSetup> files;
    std::string updateKey; ///< file of the key that signs the files' sums, seen from the home; empty: none
    Limits limits;
};

/// Says where in the file the mistake is, as `/lobbies/2/name: …`.
class ConfigurationError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

Configuration ParseConfiguration(std::string_view json);
Configuration ReadConfiguration(const std::string& path);

} // namespace ombrin::server
