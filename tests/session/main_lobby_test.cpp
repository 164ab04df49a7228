// The entry control: what it asks, what becomes of the answer, and what a host can make it hold.
#include "session/main_lobby.h"

#include "platform/posix/clock.h"
#include "platform/recording/memory_files.h"
#include "platform/recording/recording_network.h"
#include "support/played_client.h"

#include <gmock/gmock.h>

namespace ombrin::test {

namespace {

using testing::ElementsAre;
using Rows = std::vector<std::string>;

struct Entry : PlayedClient, testing::Test {
    recording::PlayedNetwork own; ///< apart from the main control's
    MainLobby entry{own, client.Stack(), client.Trace()};
    recording::PlayedSocket& host = own.Named("Winsock");
    ListBox& list = entry.MainView().GameList;

    void IsShown(const std::string& address) {
        entry.UserControl_ReadProperties({{"IPAddress", address}, {"BackColor", 7}});
        entry.UserControl_Show();
    }
    Rows AfterArrivals(const Rows& arrivals) {
        list.Clear();
        IsShown("10.0.0.1");
        host.Accept();
        for (const std::string& arrival : arrivals) host.Sends(arrival);
        return Texts(list.rows);
    }
};

} // namespace

TEST_F(Entry, AsksTheHostForItsGamesAndTellsTheContainerOfTheOneThatIsClicked) {
    EXPECT_TRUE(entry.Input().Select(list, 0, true)) << "it takes no input before it is shown";
    IsShown("10.0.0.1");
    EXPECT_EQ(host.RemoteHost, "10.0.0.1");
    EXPECT_EQ(host.RemotePort, 80);
    host.Accept();
    EXPECT_THAT(host.sent, ElementsAre("Ombrin:0:"));
    host.Sends("Chess;Go;");
    EXPECT_EQ(entry.m_GameLobby, "") << "nobody has clicked";
    EXPECT_FALSE(entry.Input().Select(list, 1, true));
    EXPECT_EQ(entry.m_GameLobby, "GameListBox=Go");
    EXPECT_TRUE(entry.Input().Select(list, 2, true)) << "there is no such row";
    host.CloseByPeer();
    EXPECT_EQ(host.State(), SocketState::Closed);
}

TEST_F(Entry, TheAnswerIsCutAtItsSemicolons) {
    const std::string longest(MainLobby::kLongestName, 'x');
    const struct {
        Rows arrivals, rows;
    } kCases[] = {
        {{"Chess"}, {}},
        {{""}, {}},
        {{"Chess;H", "alf", " Life;Go;"}, {"Chess", "Half Life", "Go"}},
        {{";Go;;"}, {"", "Go", ""}},
        {{longest + ";Go;"}, {longest, "Go"}},
        {{longest + "x;Go;"}, {"Go"}},
        {{longest, "x", "x;Go;"}, {"Go"}},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(AfterArrivals(row.arrivals), row.rows) << row.arrivals.front();
        EXPECT_EQ(list.SelectedText(), row.rows.empty() ? "" : row.rows.front());
    }
}

TEST_F(Entry, AHostCannotFillTheMemory) {
    std::string many;
    for (std::size_t i = 0; i <= MainLobby::kMostGames; ++i) many += "g;";
    EXPECT_EQ(AfterArrivals({many, many}).size(), MainLobby::kMostGames);
    EXPECT_NE(world.LogText().find("more than 10000 games"), std::string::npos);
}

TEST_F(Entry, AHostThatCannotBeReachedLeavesAnEmptyListAndNoMessage) {
    host.connectErrors = {10065};
    IsShown("10.0.0.1");
    IsShown("10.0.0.1");
    host.Fail(ConnectFailure::Refused);
    EXPECT_EQ(Top(), "");
}

TEST_F(Entry, ItsStoredPropertiesAreKeptWithoutTheAddress) {
    IsShown("10.0.0.1");
    StoredProperties::Bag bag;
    entry.UserControl_WriteProperties(bag);
    EXPECT_EQ(bag.size(), 7u);
    EXPECT_FALSE(bag.contains("IPAddress"));
    EXPECT_EQ(std::get<std::int32_t>(bag.at("BackColor")), 7);
}

} // namespace ombrin::test
