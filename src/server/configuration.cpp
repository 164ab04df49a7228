#include "server/configuration.h"

#include "foundation/text.h"
#include "server/configuration_node.h"
#include "server/names.h"
#include "session/wire/codec.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

namespace ombrin::server {

namespace {

using Node = ConfigurationNode;

constexpr std::string_view kFieldSeparators = ":;~";
constexpr std::string_view kLobbySeparators = ",:;~";  ///< the list of lobbies also cuts at ","
constexpr std::string_view kFileSeparators = ":;~/\\"; ///< a bare file name

constexpr std::size_t kLongestGreeting = 1'000;      ///< characters: a text that is read, not a page
constexpr std::size_t kLongestLobbyName = 40;        ///< characters: as long as the name of a room
constexpr std::size_t kLongestLobbyPassword = 20;    ///< characters: what the client's box takes
constexpr std::size_t kLongestAddress = 2'000;       ///< characters of a web address
constexpr std::size_t kLongestFileName = 100;        ///< characters
constexpr std::size_t kLongestApplicationName = 100; ///< characters
constexpr std::size_t kLongestVersion = 100;         ///< characters
constexpr std::size_t kLongestPath = 4'000;          ///< characters
constexpr std::size_t kMostLobbies = 1'000;          ///< the whole list goes to each client
constexpr std::size_t kMostBanners = 1'000;          ///< the client keeps three settings for each
constexpr std::size_t kMostDirectPlayGames = 199;    ///< the client's table ends there
constexpr std::size_t kMostFiles = 998;              ///< of the file of sums clients read 1,000 lines
constexpr int kLongestBannerTime = 32'767;           ///< seconds: the client reads 16 bits

void ExpectAtMost(const Node& list, std::size_t size, std::size_t most) {
    if (size > most) list.Fail(Join("has more than ", std::to_string(most), " entries"));
}

/// The list under a member, each element read by `read`; empty when the member is missing.
template <class Element, class Read>
std::vector<Element> List(const Node& parent, std::string_view member, std::size_t most, Read read) {
    std::vector<Element> elements;
    const auto list = parent.Find(member);
    if (!list) return elements;
    list->ForEach([&](const Node& node) { elements.push_back(read(node)); });
    ExpectAtMost(*list, elements.size(), most);
    return elements;
}

LobbySetup ReadLobby(const Node& node) {
    if (node.IsText()) return {node.FilledText(kLongestLobbyName, kLobbySeparators), ""};
    node.ExpectMembers({"name", "password"});
    LobbySetup lobby{node.Member("name").FilledText(kLongestLobbyName, kLobbySeparators), ""};
    if (const auto password = node.Find("password"))
        lobby.password = password->FilledText(kLongestLobbyPassword, kFieldSeparators);
    return lobby;
}

std::vector<LobbySetup> ReadLobbies(const Node& root) {
    std::vector<LobbySetup> lobbies;
    const Node list = root.Member("lobbies");
    list.ForEach([&](const Node& node) {
        LobbySetup lobby = ReadLobby(node);
        const auto same = [&](const LobbySetup& other) { return other.name == lobby.name; };
        if (std::any_of(lobbies.begin(), lobbies.end(), same)) node.Fail("a lobby of this name stands before");
        lobbies.push_back(std::move(lobby));
    });
    if (lobbies.empty()) list.Fail("must have at least one lobby");
    ExpectAtMost(list, lobbies.size(), kMostLobbies);
    return lobbies;
}

BannerSetup ReadBanner(const Node& node) {
    node.ExpectMembers({"address", "seconds"});
    const Node address = node.Member("address");
    BannerSetup banner{address.FilledText(kLongestAddress, " "), 0};
    if (!banner.address.starts_with("http://") && !banner.address.starts_with("https://"))
        address.Fail("must begin with http:// or https://");
    banner.seconds = static_cast<int>(node.Member("seconds").Whole(1, kLongestBannerTime));
    return banner;
}

/// The name of a game is that of its lobby.
std::string ReadGame(const Node& node, const std::vector<LobbySetup>& lobbies) {
    const Node game = node.Member("game");
    std::string name = game.FilledText(kLongestLobbyName, kLobbySeparators);
    if (std::none_of(lobbies.begin(), lobbies.end(), [&](const LobbySetup& lobby) { return lobby.name == name; }))
        game.Fail("is no lobby of this configuration");
    return name;
}

std::string ReadFileName(const Node& node) {
    std::string name = node.FilledText(kLongestFileName, kFileSeparators);
    if (name == "." || name == "..") node.Fail("must be the name of a file");
    return name;
}

FileSetup ReadFile(const Node& node) {
    constexpr int kDirectories = 3;
    node.ExpectMembers({"name", "directory", "version"});
    const Node name = node.Member("name");
    FileSetup file{ReadFileName(name), static_cast<int>(node.Member("directory").Whole(1, kDirectories)), ""};
    if (file.name.find('.') == std::string::npos)
        name.Fail("must hold a \".\": clients make a second name of it there");
    if (const auto version = node.Find("version"))
        file.version = version->FilledText(kLongestVersion, kFieldSeparators);
    return file;
}

/// Under which a client stores the file until all have come.
std::string TemporaryName(const std::string& name) { return std::string(name).insert(name.rfind('.'), 1, '7'); }

/// Names that differ in case alone are one file on some clients' disks.
std::vector<FileSetup> ReadFiles(const Node& root, bool withSums) {
    std::set<std::string> names;
    std::set<std::string> temporaryNames;
    if (withSums) names.insert(Folded(kSumsName));
    return List<FileSetup>(root, "files", kMostFiles, [&](const Node& node) {
        FileSetup file = ReadFile(node);
        const std::string name = Folded(file.name);
        const std::string temporaryName = TemporaryName(name);
        if (names.contains(temporaryName) || temporaryNames.contains(name))
            node.Fail("one of this and another file would overwrite the other on its way to its name");
        if (!names.insert(name).second) node.Fail("a file of this name is offered already");
        temporaryNames.insert(temporaryName);
        return file;
    });
}

Rate ReadRate(const Node& node) {
    constexpr double kMost = 1'000'000;
    constexpr double kSlowest = 0.01; // a line in 100 seconds: with none at all nobody would hear why
    node.ExpectMembers({"burst", "perSecond"});
    return {node.Member("burst").Number(1, kMost), node.Member("perSecond").Number(kSlowest, kMost)};
}

Limits ReadLimits(const Node& node) {
    node.ExpectMembers({"users", "connectionsPerAddress", "accounts", "roomsPerLobby", "buddies", "lobbyLines",
                        "roomLines", "privateMessages", "passwordMemoryKiB", "passwordPasses"});
    constexpr std::int64_t kMostUsers = 30'000; // a lobby's count has to fit the client's 16 bits
    constexpr std::int64_t kMostAccounts = 100'000'000;
    constexpr std::int64_t kMostBuddies = 10'000;
    constexpr std::int64_t kMostMemory = 4'194'304; // 4 GiB
    constexpr std::int64_t kLeastMemory = 8;        // what Argon2 needs at least
    constexpr std::int64_t kMostPasses = 1'000;
    Limits limits;
    const auto whole = [&](std::string_view name, auto& limit, std::int64_t least, std::int64_t most) {
        if (const auto given = node.Find(name))
            limit = static_cast<std::remove_reference_t<decltype(limit)>>(given->Whole(least, most));
    };
    const auto rate = [&](std::string_view name, Rate& limit) {
        if (const auto given = node.Find(name)) limit = ReadRate(*given);
    };
    whole("users", limits.users, 1, kMostUsers);
    whole("connectionsPerAddress", limits.connectionsPerAddress, 1, kMostUsers);
    whole("accounts", limits.accounts, 0, kMostAccounts);
    whole("roomsPerLobby", limits.roomsPerLobby, 0, kMostUsers);
    whole("buddies", limits.buddies, 0, kMostBuddies);
    rate("lobbyLines", limits.lobbyLines);
    rate("roomLines", limits.roomLines);
    rate("privateMessages", limits.privateMessages);
    whole("passwordMemoryKiB", limits.passwordMemoryKiB, kLeastMemory, kMostMemory);
    whole("passwordPasses", limits.passwordPasses, 1, kMostPasses);
    return limits;
}

} // namespace

Configuration ParseConfiguration(std::string_view json) {
    const Node root = Node::Parse(json);
    root.ExpectMembers({"greeting", "lobbies", "changeOfLobby", "banners", "directPlayGames", "directIPGames", "files",
                        "updateKey", "limits"});
    Configuration configuration;
    if (root.Find("lobbies")) configuration.lobbies = ReadLobbies(root);
    const std::vector<LobbySetup>& lobbies = configuration.lobbies;
    if (const auto greeting = root.Find("greeting")) configuration.greeting = greeting->Text(kLongestGreeting, "");
    if (const auto change = root.Find("changeOfLobby")) configuration.changeOfLobby = change->YesOrNo();
    configuration.banners = List<BannerSetup>(root, "banners", kMostBanners, ReadBanner);
    configuration.directPlayGames =
        List<DirectPlaySetup>(root, "directPlayGames", kMostDirectPlayGames, [&](const Node& node) {
            node.ExpectMembers({"game", "application"});
            return DirectPlaySetup{ReadGame(node, lobbies),
                                   node.Member("application").FilledText(kLongestApplicationName, kFieldSeparators)};
        });
    configuration.directIPGames = List<DirectIPSetup>(root, "directIPGames", kMostLobbies, [&](const Node& node) {
        node.ExpectMembers({"game", "executable"});
        return DirectIPSetup{ReadGame(node, lobbies), ReadFileName(node.Member("executable"))};
    });
    if (const auto key = root.Find("updateKey")) configuration.updateKey = key->FilledText(kLongestPath, "");
    configuration.files = ReadFiles(root, !configuration.updateKey.empty());
    if (const auto limits = root.Find("limits")) configuration.limits = ReadLimits(*limits);
    return configuration;
}

Configuration ReadConfiguration(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf())) throw ConfigurationError("cannot be read");
    return ParseConfiguration(text.str());
}

} // namespace ombrin::server
