#include "server/configuration.h"
#include "server/options.h"

#include <gmock/gmock.h>

namespace ombrin::server::test {

TEST(ConfigurationFile, EverythingInItIsTakenOver) {
    const Configuration read = ParseConfiguration(R"({
        "greeting": "Grüße: hallo",
        "lobbies": ["Go", {"name": "Chess", "password": "rook"}, {"name": "Half Life"}],
        "changeOfLobby": false,
        "banners": [{"address": "https://a.example/", "seconds": 30}],
        "directPlayGames": [{"game": "Go", "application": "Go 3000"}],
        "directIPGames": [{"game": "Half Life", "executable": "hl.exe"}],
        "files": [{"name": "Ping.ocx", "directory": 2, "version": "3.33"}, {"name": "a.txt", "directory": 3}],
        "updateKey": "keys/update.key",
        "limits": {"users": 10, "connectionsPerAddress": 11, "accounts": 12, "roomsPerLobby": 13, "buddies": 14,
                   "lobbyLines": {"burst": 1, "perSecond": 0.5},
                   "roomLines": {"burst": 2, "perSecond": 3}, "privateMessages": {"burst": 4, "perSecond": 5},
                   "passwordMemoryKiB": 64, "passwordPasses": 7}})");
    EXPECT_EQ(read.greeting, "Gr\xFC\xDF"
                             "e: hallo");
    std::string lobbies;
    for (const LobbySetup& lobby : read.lobbies) lobbies += lobby.name + "/" + lobby.password + " ";
    EXPECT_EQ(lobbies, "Go/ Chess/rook Half Life/ ");
    EXPECT_FALSE(read.changeOfLobby);
    EXPECT_EQ(read.banners.at(0).address, "https://a.example/");
    EXPECT_EQ(read.banners.at(0).seconds, 30);
    EXPECT_EQ(read.directPlayGames.at(0).application, "Go 3000");
    EXPECT_EQ(read.directIPGames.at(0).executable, "hl.exe");
    std::string files;
    for (const FileSetup& file : read.files) files += file.name + std::to_string(file.directory) + file.version + " ";
    EXPECT_EQ(files, "Ping.ocx23.33 a.txt3 ");
    EXPECT_EQ(read.updateKey, "keys/update.key");
    const Limits& limits = read.limits;
    EXPECT_THAT((std::vector<unsigned long long>{limits.users, limits.connectionsPerAddress, limits.accounts,
                                                 limits.roomsPerLobby, limits.buddies, limits.passwordMemoryKiB,
                                                 limits.passwordPasses}),
                testing::ElementsAre(10, 11, 12, 13, 14, 64, 7));
    EXPECT_THAT(
        (std::vector{limits.lobbyLines.burst, limits.lobbyLines.perSecond, limits.roomLines.burst,
                     limits.roomLines.perSecond, limits.privateMessages.burst, limits.privateMessages.perSecond}),
        testing::ElementsAre(1, 0.5, 2, 3, 4, 5));
}

TEST(ConfigurationFile, AnEmptyOneOffersTheUsualLobbies) {
    std::vector<std::string> names;
    for (const LobbySetup& lobby : ParseConfiguration("{}").lobbies) names.push_back(lobby.name);
    EXPECT_THAT(names, testing::ElementsAre("Quake3", "Half Life", "Chess", "Go"));
}

TEST(ConfigurationFile, EachMistakeIsRefusedWithItsPlace) {
    const std::pair<const char*, const char*> mistakes[] = {
        {"{\n  \"lobbies\": [\"Go\",]\n}", "line 2, column 20"},
        {R"({"lobies": []})", "/: unknown member \"lobies\""},
        {R"({"greeting": "a", "greeting": "b"})", "member \"greeting\" stands there twice"},
        {R"({"greeting": 7})", "/greeting: must be a text"},
        {R"({"greeting": "漢"})", "/greeting: has a character"},
        {"{\"greeting\": \"a\\nb\"}", "/greeting: has a control character"},
        {R"({"lobbies": []})", "/lobbies: must have at least one"},
        {R"({"lobbies": "Go"})", "/lobbies: must be a list"},
        {R"({"lobbies": ["Go", ""]})", "/lobbies/1: must not be empty"},
        {R"({"lobbies": ["Go", "a,b"]})", "/lobbies/1: must not hold \",\""},
        {R"({"lobbies": ["a:b"]})", "/lobbies/0: must not hold \":\""},
        {R"({"lobbies": [" Go"]})", "/lobbies/0: has blanks"},
        {R"({"lobbies": ["Go", "Go"]})", "/lobbies/1: a lobby of this name"},
        {R"({"lobbies": [{"password": "x"}]})", "/lobbies/0: member \"name\" is missing"},
        {R"({"lobbies": [{"name": "Go", "password": "a:b"}]})", "/lobbies/0/password: must not hold"},
        {R"({"lobbies": [{"name": "Go", "pasword": "x"}]})", "/lobbies/0: unknown member"},
        {R"({"banners": [{"address": "ftp://x", "seconds": 1}]})", "/banners/0/address: must begin with"},
        {R"({"banners": [{"address": "http://x", "seconds": 32768}]})", "/banners/0/seconds: must be a whole number"},
        {R"({"banners": [{"address": "http://x", "seconds": 1.5}]})", "/banners/0/seconds: must be a whole number"},
        {R"({"directIPGames": [{"game": "Go", "executable": "..\\x.exe"}]})", "/directIPGames/0/executable: must not"},
        {R"({"directIPGames": [{"game": "Doom", "executable": "x.exe"}]})", "/directIPGames/0/game: is no lobby"},
        {R"({"files": [{"name": "..", "directory": 1, "version": "1"}]})", "/files/0/name: must be the name of a file"},
        {R"({"files": [{"name": "a.b", "directory": 4}]})", "/files/0/directory: must be a whole number"},
        {R"({"files": [{"name": "a", "directory": 1}]})", "/files/0/name: must hold a \".\""},
        {R"({"files": [{"name": "a;b.c", "directory": 1}]})", "/files/0/name: must not hold \";\""},
        {R"({"files": [{"name": "a.b", "directory": 1}, {"name": "A.B", "directory": 2}]})",
         "/files/1: a file of this"},
        {R"({"files": [{"name": "a.b", "directory": 1}, {"name": "a7.b", "directory": 1}]})", "/files/1: one of this"},
        {R"({"files": [{"name": "A7.b", "directory": 1}, {"name": "a.b", "directory": 1}]})", "/files/1: one of this"},
        {R"({"updateKey": "k", "files": [{"name": "ombrin.sums", "directory": 1}]})", "/files/0: a file of this name"},
        {R"({"limits": {"users": 18446744073709551615}})", "/limits/users: must be a whole number from 1"},
        {R"({"limits": {"lobbyLines": {"burst": 0, "perSecond": 1}}})", "/limits/lobbyLines/burst: must be a number"},
        {R"({"limits": {"lobbyLines": {"burst": 1}}})", "/limits/lobbyLines: member \"perSecond\" is missing"},
    };
    for (const auto& [text, place] : mistakes) {
        try {
            ParseConfiguration(text);
            ADD_FAILURE() << "accepted: " << text;
        } catch (const ConfigurationError& mistake) {
            EXPECT_THAT(mistake.what(), testing::HasSubstr(place)) << text;
        }
    }
}

TEST(OptionsTest, TheCommandLineIsCheckedBeforeAnythingStarts) {
    const auto parse = [](std::vector<const char*> arguments) {
        arguments.insert(arguments.begin(), "ardvelle-server");
        testing::internal::CaptureStderr();
        CommandLine line = ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
        testing::internal::GetCapturedStderr();
        return line;
    };
    const CommandLine good = parse({"--listen", "::1", "--port", "0", "--files-port", "32767", "--home", "/h",
                                    "--config", "/c", "--open-accounts", "--trust-embedded"});
    ASSERT_TRUE(good.options);
    EXPECT_EQ(good.options->listen, "::1");
    EXPECT_EQ(good.options->port, 0);
    EXPECT_EQ(good.options->filesPort, 32767);
    EXPECT_EQ(good.options->home, "/h");
    EXPECT_EQ(good.options->configuration, "/c");
    EXPECT_TRUE(good.options->openAccounts);
    EXPECT_TRUE(good.options->trustEmbedded);
    const CommandLine usual = parse({});
    ASSERT_TRUE(usual.options);
    EXPECT_EQ(usual.options->listen, "127.0.0.1");
    EXPECT_EQ(usual.options->port, 7777);
    EXPECT_FALSE(usual.options->openAccounts);
    for (const std::vector<const char*>& bad : {std::vector<const char*>{"--files-port", "32768"},
                                                {"--port", "65536"},
                                                {"--listen", "localhost"},
                                                {"--prot"},
                                                {"extra"}}) {
        const CommandLine line = parse(bad);
        EXPECT_FALSE(line.options) << bad[0];
        EXPECT_NE(line.exitCode, 0) << bad[0];
    }
}

} // namespace ombrin::server::test
