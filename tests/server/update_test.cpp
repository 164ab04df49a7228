// The files of a release: how they are read and signed, handed out piece by piece, and what the update port bears.
#include "foundation/text.h"
#include "played_parts.h"
#include "server/message_cutter.h"
#include "server/net/update_connection.h"
#include "server/release.h"
#include "server/update_key.h"
#include "server_process.h"
#include "session/wire/client_message.h"

#include <asio/io_context.hpp>
#include <asio/write.hpp>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sodium.h>

namespace ombrin::server::test {

using namespace client_message;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kVersionLine = ";FileVersion=3.33\n";
constexpr std::size_t kBuffer = Transfer::kBuffer;

void Write(const std::string& path, std::string_view text) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

/// A file of this size that begins with its version; no two pieces of it are alike.
std::string Content(std::size_t size) {
    std::string text(kVersionLine);
    for (std::size_t i = 0; text.size() < size; ++i) text += std::to_string(i) + " ";
    text.resize(size);
    return text;
}

/// Two and a half buffers, and one.
Release InMemory() {
    Release release;
    release.files.push_back({"Map.dll", 1, "3.33", "", {}, Content(kBuffer * 5 / 2)});
    release.files.push_back({"Ping.ocx", 2, "3.33", "", {}, Content(kBuffer)});
    return release;
}

TEST(Transfer, SendsWhatWasAskedForAndNothingBeyondTheFile) {
    const std::string map = RequestFile("Map.dll"), ping = RequestFile("Ping.ocx");
    const std::string on = FileReceived(), stop = TransferGivenUp();
    constexpr std::size_t kMap = kBuffer * 5 / 2;
    struct Case {
        std::string said;
        std::size_t bytes; ///< sent until nothing is due
    };
    const Case cases[] = {
        {map, kBuffer},
        {map + on, 2 * kBuffer},
        {map + on + on, kMap},
        {map + on + on + on + on + on, kMap},
        {on + on, 0},
        {stop, 0},
        {map + stop + on, 0},
        {ping + on, kBuffer},
        {map + on + map, kBuffer},
        {map + on + ping + on, kBuffer},
    };
    const Release release = InMemory();
    for (const Case& trial : cases) {
        Transfer transfer(release);
        MessageCutter cutter;
        cutter.Append(trial.said);
        while (const auto piece = cutter.Next()) transfer.Take(piece->text);
        std::string sent;
        constexpr std::size_t kTaken = 100'001; // of each piece, as a socket that is filling up
        for (std::string piece; !(piece = transfer.Piece().substr(0, kTaken)).empty(); transfer.Took(piece.size()))
            sent += piece;
        EXPECT_EQ(sent.size(), trial.bytes) << trial.said;
        EXPECT_FALSE(transfer.Due()) << trial.said;
        EXPECT_EQ(sent, Content(kMap).substr(0, sent.size())) << trial.said;
    }
    for (const char* bad : {"Ombrin:24:map.dll:", "Ombrin:24:../Map.dll:", "Ombrin:24::", "Ombrin:24:Map.dll;:",
                            "Ombrin:25::", "Ombrin:28::", "24", ""})
        EXPECT_THROW(Transfer(release).Take(bad), TransferError) << bad;
}

class ReleaseTest : public testing::Test {
protected:
    Release Reads(std::string_view json) const {
        Write(home / "server.json", json);
        return ReadRelease(ParseConfiguration(json), home.path, home / "server.json");
    }
    std::string File(const std::string& name) const { return home / ("files/" + name); }

    Scratch home;
};

TEST_F(ReleaseTest, AFileThatClientsCouldNotGetOrKeepStopsTheStartWithItsPlace) {
    Write(File("good.ocx"), kVersionLine);
    Write(File("none.txt"), "no version");
    Write(File("fields.txt"), ";FileVersion=3;33\n");
    Write(File("folder.d/x"), "");
    Write(File("large.bin"), kVersionLine);
    std::filesystem::resize_file(File("large.bin"), std::uint64_t{1} << 31U);
    const std::string digits(64, 'a');
    Write(home / "open.key", digits);
    Write(home / "short.key", digits.substr(1));
    std::filesystem::permissions(home / "open.key", std::filesystem::perms(0640));
    std::filesystem::permissions(home / "short.key", std::filesystem::perms(0600));
    const std::pair<const char*, const char*> mistakes[] = {
        {R"({"files": [{"name": "gone.dll", "directory": 1}]})", "gone.dll cannot be opened: No such file"},
        {R"({"files": [{"name": "none.txt", "directory": 1}]})", "none.txt carries no version"},
        {R"({"files": [{"name": "fields.txt", "directory": 1}]})", "fields.txt carries a version that the list"},
        {R"({"files": [{"name": "folder.d", "directory": 1}]})", "folder.d is no plain file"},
        {R"({"files": [{"name": "large.bin", "directory": 1}]})", "large.bin is larger than"},
        {R"({"files": [{"name": "good.ocx", "directory": 1, "version": "3.34"}]})", "the version 3.33, not 3.34"},
        {R"({"updateKey": "gone.key"})", "gone.key cannot be opened"},
        {R"({"updateKey": "open.key"})", "open.key holds a secret and is open to others"},
        {R"({"updateKey": "short.key"})", "short.key holds no key"},
    };
    for (const auto& [json, said] : mistakes) {
        try {
            Reads(json);
            ADD_FAILURE() << "accepted: " << json;
        } catch (const ConfigurationError& mistake) {
            EXPECT_THAT(mistake.what(), StartsWith(json[2] == 'f' ? "/files/0: " : "/updateKey: "));
            EXPECT_THAT(mistake.what(), HasSubstr(said));
        }
    }
}

TEST_F(ReleaseTest, TheSumsComeFirstAndAreSignedForThePublicHalf) {
    Write(File("a.txt"), ";FileVersion=1.00\nabc");
    Write(File("Map 2.dll"), kVersionLine);
    const std::string keyPath = home / "update.key";
    UpdateKey::Make(keyPath);
    EXPECT_EQ(std::filesystem::status(keyPath).permissions(), std::filesystem::perms(0600));
    constexpr std::string_view kBoth = R"({"updateKey": "update.key", "files": [
        {"name": "a.txt", "directory": 3}, {"name": "Map 2.dll", "directory": 2}]})";
    const Release release = Reads(kBoth);
    ASSERT_EQ(release.files.size(), 3U);
    const OfferedFile& sums = release.files[0];
    EXPECT_EQ(sums.name, "Ombrin.sums");
    EXPECT_EQ(sums.directory, 1);
    const std::size_t end = sums.content.find("signature ");
    EXPECT_EQ(sums.content.substr(0, end),
              ";FileVersion=" + sums.version +
                  "\n9c0f23febc37adb3b11bdb123b08201a6410997e326e601553cb41155bc406be 21 3 a.txt\n"
                  "38dbe1c95f1fde7501a191545ec1280ac313081d240eb345d6760ed63ff51474 18 2 Map 2.dll\n");
    EXPECT_THAT(sums.content, testing::EndsWith("\n"));

    const auto bytes = [](std::string_view digits) {
        std::vector<unsigned char> binary(digits.size() / 2);
        sodium_hex2bin(binary.data(), binary.size(), digits.data(), digits.size(), nullptr, nullptr, nullptr);
        return binary;
    };
    const auto signature = bytes(std::string_view(sums.content).substr(end + 10, 128));
    ASSERT_EQ(release.publicKey.size(), 64U);
    EXPECT_EQ(crypto_sign_verify_detached(signature.data(), reinterpret_cast<const unsigned char*>(sums.content.data()),
                                          end, bytes(release.publicKey).data()),
              0);

    // Whatever changes, clients find newer sums.
    int seconds = 0;
    for (const std::string& path : {File("a.txt"), keyPath, home / "server.json"}) {
        const std::chrono::sys_seconds later{std::chrono::seconds(2'000'000'000 + seconds)};
        std::filesystem::last_write_time(path, std::chrono::file_clock::from_sys(later));
        const Release changed = ReadRelease(ParseConfiguration(kBoth), home.path, home / "server.json");
        EXPECT_EQ(changed.files[0].version, "2033.051803332" + std::to_string(seconds++));
    }
}

TEST_F(ReleaseTest, TheServerMakesAKeyOnceAndTellsItsPublicHalf) {
    const std::string path = home / "update.key";
    ServerProcess made(home.path, {"--make-update-key", path});
    EXPECT_EQ(made.Wait(), 0);
    const std::string digits = UpdateKey(path).PublicHalf();
    EXPECT_THAT(made.readyLine, testing::EndsWith(": " + digits));
    ServerProcess again(home.path, {"--make-update-key", path});
    EXPECT_NE(again.Wait(), 0);
    EXPECT_THAT(again.Log(), HasSubstr("File exists"));
    EXPECT_EQ(UpdateKey(path).PublicHalf(), digits);
}

TEST(UpdateConnectionTest, WhoSaysNothingIsKeptForAWhileOnly) {
    const Release release = InMemory();
    for (const bool speaks : {false, true}) {
        asio::io_context loop;
        HandClock clock;
        KeptLog log;
        std::array<char, 65'536> input{};
        bool ended = false;
        UpdateConnection::Surroundings around{release, clock, log, input, [&](const auto&) { ended = true; }};
        asio::ip::tcp::acceptor acceptor(loop, {asio::ip::address_v4::loopback(), 0});
        asio::ip::tcp::socket client(loop);
        client.connect(acceptor.local_endpoint());
        const auto connection = std::make_shared<UpdateConnection>(acceptor.accept(), "here", around);
        connection->Start("#1", Milliseconds(0));
        if (speaks) {
            asio::write(client, asio::buffer(RequestFile("Ping.ocx")));
            while (client.available() == 0) loop.run_one();
        }
        clock.Turn((speaks ? UpdateConnection::kSilence : UpdateConnection::kSilenceAtFirst) - Milliseconds(1));
        connection->Check();
        EXPECT_FALSE(ended) << speaks;
        clock.Turn(Milliseconds(1));
        connection->Check();
        EXPECT_TRUE(ended) << speaks;
        EXPECT_THAT(log.text, HasSubstr("silent"));
        loop.poll();
    }
}

/// A server that offers two files.
class UpdatePortTest : public testing::Test {
protected:
    UpdatePortTest() {
        for (const auto& [name, content] : files) Write(home / ("files/" + name), content);
    }
    /// As a client does: the first buffer, then one more for each part that comes.
    static std::string Fetches(WireClient& client, const std::string& name, std::size_t size) {
        std::string got;
        client.Sends(RequestFile(name));
        while (true) {
            const std::string part = client.ReadsSome();
            if (part.empty()) return got;
            got += part;
            if (got.size() >= size) return got;
            client.Sends(FileReceived());
        }
    }

    const std::map<std::string, std::string> files{{"Map.dll", Content(kBuffer * 5)}, {"Ping.ocx", Content(100)}};
    Scratch home;
    static constexpr std::string_view kConfiguration = R"({
        "lobbies": ["Go"], "files": [{"name": "Ping.ocx", "directory": 2}, {"name": "Map.dll", "directory": 1}],
        "limits": {"passwordMemoryKiB": 8, "passwordPasses": 1, "connectionsPerAddress": 3}})";
};

TEST_F(UpdatePortTest, AClientHearsOfTheFilesAndFetchesThemWhereItReachedTheServer) {
    ServerProcess server(home.path, {"--open-accounts", "--trust-embedded", "--listen", "0.0.0.0"}, kConfiguration);
    const std::string list = "50:127.0.0.1;" + std::to_string(server.filesPort) + ";Ping.ocx;100;2;3.33;Map.dll;" +
                             std::to_string(kBuffer * 5) + ";1;3.33;~";
    WireClient ann(server.port);
    EXPECT_EQ(ann.LogsOn("ann"), "45:127.0.0.1;~22:Go,0;~");
    EXPECT_EQ(ann.ReadsUntil(list), list);
    WireClient embedded(server.port);
    embedded.Sends(EnterLobby("bob;Go;127.0.0.1"));
    embedded.ReadsUntil("48:bob;Go;~" + list);

    WireClient client(server.filesPort);
    for (const auto& [name, content] : files)
        EXPECT_TRUE(Fetches(client, name, content.size()) == content) << name << " is another file";
    client.Sends(FileReceived() + TransferGivenUp() + RequestFile("../accounts.sqlite"));
    EXPECT_EQ(client.ReadsToEnd(), "");
    EXPECT_THAT(server.Log(), HasSubstr("../accounts.sqlite, which is not offered"));
}

TEST_F(UpdatePortTest, WhatCannotBeHandedOutEndsItsConnectionWithALine) {
    ServerProcess server(home.path, {}, kConfiguration);
    WireClient before(server.filesPort);
    before.Sends(RequestFile("Map.dll"));
    before.ReadsUntil("1 2 3");
    Write(home / "files/Map.dll", ";FileVersion=3.34\n");
    std::filesystem::remove(home / "files/Ping.ocx");
    before.Sends(FileReceived() + FileReceived());
    before.ReadsToEnd();
    constexpr std::string_view kChanged = "the file Map.dll has changed since the start";
    EXPECT_THAT(server.Log(), HasSubstr(Join("files #1 127.0.0.1 ends: ", kChanged)));

    struct Case {
        std::string said;
        std::string_view line;
    };
    const Case cases[] = {
        {RequestFile("Map.dll"), kChanged},
        {RequestFile("Ping.ocx"), "the file Ping.ocx cannot be opened: No such file or directory"},
        {RequestFile("Other.dll"), "it asked for Other.dll, which is not offered"},
        {RequestFile("map.dll"), "it asked for map.dll, which is not offered"},
        {LobbyNames(), "it sent what is no message of a transfer"},
        {"GET / HTTP/1.1~", "it sent what is no message of a transfer"},
    };
    int number = 1;
    for (const auto& [said, line] : cases) {
        WireClient client(server.filesPort);
        client.Sends(said);
        EXPECT_EQ(client.ReadsToEnd(), "") << said;
        const std::string name = Join("files #", std::to_string(++number), " 127.0.0.1 ends: ");
        EXPECT_THAT(server.Log(), HasSubstr(Join(name, line))) << said;
    }
}

TEST_F(UpdatePortTest, WhoeverMisbehavesThereLeavesTheOthersTheirFilesAndTheLobby) {
    ServerProcess server(home.path, {"--open-accounts"}, kConfiguration);
    constexpr int kSmallBuffer = 4'096;
    WireClient deaf(server.filesPort, "127.0.0.2", kSmallBuffer), half(server.filesPort, "127.0.0.2"),
        babbler(server.filesPort, "127.0.0.2");
    std::string flood;
    for (int i = 0; i < 5'000; ++i) flood += RequestFile("Map.dll") + FileReceived();
    deaf.Sends(flood.substr(0, 50'000));
    half.Sends("Ombrin:24:Map");
    WireClient fourth(server.filesPort, "127.0.0.2");
    EXPECT_EQ(fourth.ReadsToEnd(), "") << "three from one address";

    WireClient ann(server.port);
    ann.LogsOn("ann");
    WireClient client(server.filesPort);
    EXPECT_TRUE(Fetches(client, "Map.dll", kBuffer * 5) == files.at("Map.dll"));
    ann.Enters("ann", "Go");
    babbler.TriesToSend(std::string((1U << 20U) + 1, 'x'));
    babbler.ReadsToEnd();
    half.Sends(".dll:~");
    half.ReadsUntil("1 2 3");
    EXPECT_THAT(server.Log(), HasSubstr("a message without an end"));
}

} // namespace ombrin::server::test
