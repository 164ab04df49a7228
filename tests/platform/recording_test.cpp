// The services that write down: the console tells what they tell, and tests trust them.
#include "../foundation/raised.h"
#include "platform/recording/recording_desktop.h"
#include "platform/recording/recording_network.h"
#include "platform/sound_files.h"

#include <gmock/gmock.h>

namespace ombrin::recording {
namespace {

using testing::ElementsAre;

class TellingNetworkTest : public testing::Test {
protected:
    static std::string Shown(const Event& event) {
        std::string line = event.name;
        for (const auto& [name, value] : event.fields) {
            line += " " + name + "=";
            if (const auto* text = std::get_if<std::string>(&value)) line += *text;
            if (const auto* number = std::get_if<std::int64_t>(&value)) line += std::to_string(*number);
        }
        return line;
    }
    void Make(bool tellData) {
        network.emplace(
            played, [this](const Event& event) { told.push_back(Shown(event)); }, tellData);
        socket = network->MakeSocket("Winsock", {[this] { events += "c"; }, [this](std::size_t) { events += "d"; },
                                                 [this] { events += "x"; }, [this](ConnectFailure) { events += "f"; }});
        socket->RemoteHost = "lobby";
        socket->RemotePort = 80;
    }
    int ConnectNumber() {
        return Raised([&] { socket->Connect(); });
    }

    PlayedNetwork played;
    std::optional<TellingNetwork> network;
    std::unique_ptr<Socket> socket;
    std::vector<std::string> told;
    std::string events;
};

TEST_F(TellingNetworkTest, TellsAWholeConnectionInItsOrder) {
    Make(true);
    socket->Connect();
    EXPECT_EQ(played.Named("Winsock").RemoteHost, "lobby");
    EXPECT_EQ(played.Named("Winsock").RemotePort, 80);
    played.Named("Winsock").Accept();
    EXPECT_TRUE(socket->IsConnected());
    socket->SendData("Ombrin:28::~");
    played.Named("Winsock").Sends("38:~");
    EXPECT_EQ(socket->GetData(), "38:~");
    played.Named("Winsock").CloseByPeer();
    played.Named("Winsock").Fail(ConnectFailure::TimedOut);
    EXPECT_THAT(told, ElementsAre("connect host=lobby port=80 socket=Winsock", "connected socket=Winsock",
                                  "sent socket=Winsock data=Ombrin:28::~", "received socket=Winsock data=38:~",
                                  "closed socket=Winsock", "failed socket=Winsock why=timed out"));
    EXPECT_THAT(played.Named("Winsock").sent, ElementsAre("Ombrin:28::~"));
    EXPECT_EQ(events, "cdxf");
}

TEST_F(TellingNetworkTest, KeepsDataToItselfWhenItIsNotWantedAndShowsThePortWithTheConnection) {
    Make(false);
    socket->Connect();
    EXPECT_EQ(socket->LocalPort, 0); // the name is being looked up
    played.Named("Winsock").LocalPort = 40'000;
    played.Named("Winsock").Accept();
    EXPECT_EQ(socket->LocalPort, 40'000);
    socket->SendData("secret");
    played.Named("Winsock").Sends("secret");
    EXPECT_EQ(socket->GetData(), "secret");
    EXPECT_THAT(told, ElementsAre("connect host=lobby port=80 socket=Winsock", "connected socket=Winsock"));
    socket->Close();
    EXPECT_EQ(socket->LocalPort, 0);
}

TEST_F(TellingNetworkTest, RaisesTheOrderedErrorsOneATryAndTheLastForEver) {
    Make(false);
    network->connectErrors = {10048, 10065, 0};
    EXPECT_EQ(ConnectNumber(), 10048);
    EXPECT_EQ(ConnectNumber(), 10065);
    EXPECT_EQ(played.Named("Winsock").connects, 0);
    EXPECT_EQ(ConnectNumber(), 0);
    EXPECT_EQ(ConnectNumber(), 0);
    EXPECT_EQ(played.Named("Winsock").connects, 2);
    EXPECT_EQ(told.size(), 4U) << "each try is told, also one that fails";
    network->connectErrors = {11001};
    EXPECT_EQ(ConnectNumber(), 11001);
    EXPECT_EQ(ConnectNumber(), 11001);
}

TEST(SoundFiles, ANameLiesInOneOfTheSoundsAndAPathBelowTheProgramAlone) {
    using Files = std::vector<std::string>;
    const struct {
        const char* name;
        Files files;
    } kCases[] = {
        {"EnterLobby2",
         {"/h/app/sounds/EnterLobby2", "/h/app/sounds/EnterLobby2.wav", "/s/sounds/EnterLobby2",
          "/s/sounds/EnterLobby2.wav"}},
        {"/h/app\\sounds\\ding.wav", {"/h/app/sounds/ding.wav"}},
        {"/h/app/ding.wav", {"/h/app/ding.wav"}},
        {"/h/appding.wav", {}},
        {"/h/app/../secret.wav", {}},
        {"/s/sounds/ding.wav", {}},
        {"/etc/passwd", {}},
        {"../ding.wav", {}},
        {"", {}},
    };
    for (const auto& row : kCases) EXPECT_EQ(SoundFiles({"/h/app", "/s"}, row.name), row.files) << row.name;
}

TEST(FixedMeasure, TextsWrapAtBlanksAndInsideLongWords) {
    struct Case {
        const char* text;
        int width, lines;
    };
    constexpr Case kCases[] = {
        {"", 80, 1},
        {"0123456789", 80, 1},
        {"0123456789a", 80, 2},
        {"01234 6789 b", 80, 2},
        {"0123456789 b", 80, 2},
        {"aaaa bbbb cccc", 40, 3},
        {"0123456789", 0, 10},
        {" 0123456789", 80, 2},
    };
    for (const Case& c : kCases) EXPECT_EQ(FixedMeasure().LineCount(c.text, c.width), c.lines) << c.text;
}

} // namespace
} // namespace ombrin::recording
