#include "server/hashing_pool.h"
#include "server/log.h"
#include "server/logon_throttle.h"
#include "server/message_cutter.h"
#include "server/names.h"
#include "server/net/listener.h"
#include "server/net/liveness.h"

#include <gmock/gmock.h>

namespace ombrin::server::test {

/// The messages in these bytes, which arrive in steps of this size.
std::vector<std::string> Cut(std::string_view bytes, std::size_t step) {
    MessageCutter cutter;
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at < bytes.size(); at += step) {
        cutter.Append(bytes.substr(at, step));
        while (const auto piece = cutter.Next())
            pieces.push_back(piece->tooLong ? "(too long)" : std::string(piece->text));
    }
    return pieces;
}

TEST(MessageCutter, MessagesOfUpToTheLongestLengthComeWholeHoweverTheirBytesArrive) {
    const std::string bytes = "Ombrin:28::~Ombrin:0:Ombrin:3:a;b;c;Ombrin:0:;:~x~~rest";
    const auto expected = testing::ElementsAre("Ombrin:28::", "Ombrin:0:", "Ombrin:3:a;b;c;Ombrin:0:;:", "x", "");
    for (std::size_t step = 1; step <= bytes.size(); ++step) EXPECT_THAT(Cut(bytes, step), expected) << step;
    for (const std::size_t step : {1U, 100U, 32'768U, 70'000U})
        for (const int over : {-1, 0, 1, 40'000}) {
            const std::string text(MessageCutter::kLongestMessage - 1 + static_cast<std::size_t>(over), 'x');
            EXPECT_THAT(Cut(text + "~next~", step), testing::ElementsAre(over > 0 ? "(too long)" : text, "next"))
                << over << " by " << step;
        }
}

TEST(MessageCutter, OnlyBeyondOneMebibyteIsAMessageARunaway) {
    MessageCutter cutter;
    cutter.Append(std::string(MessageCutter::kRunaway, 'x'));
    EXPECT_FALSE(cutter.Next());
    EXPECT_FALSE(cutter.Runaway());
    cutter.Append("x");
    EXPECT_FALSE(cutter.Next());
    EXPECT_TRUE(cutter.Runaway());
}

TEST(LogonThrottle, DelaysGrowToABoundAndAQuietWhileForgives) {
    LogonThrottle throttle;
    TimePoint now{Milliseconds(0)};
    for (int i = 0; i < LogonThrottle::kFreeFailures; ++i) {
        EXPECT_EQ(throttle.Wait("x", now), Milliseconds(0));
        throttle.Wrong("x", now);
    }
    for (const int seconds : {1, 2, 4, 8, 8, 8}) {
        EXPECT_EQ(throttle.Wait("x", now), std::chrono::seconds(seconds));
        now += std::chrono::seconds(seconds);
        throttle.Wrong("x", now);
    }
    for (const int seconds : {8, 16, 24}) EXPECT_EQ(throttle.Wait("x", now), std::chrono::seconds(seconds));
    EXPECT_FALSE(throttle.Wait("x", now)) << "nobody waits for more than half a minute";
    EXPECT_EQ(throttle.Wait("y", now), Milliseconds(0));
    EXPECT_EQ(throttle.Wait("x", now + LogonThrottle::kForgottenAfter), Milliseconds(0));
}

TEST(LogonThrottle, ManyAddressesDoNotPushOutTheOneThatStillGuesses) {
    LogonThrottle throttle;
    TimePoint now{Milliseconds(0)};
    for (std::size_t i = 0; i < 3 * LogonThrottle::kMostOrigins; ++i) {
        now += Milliseconds(1);
        throttle.Wrong("other " + std::to_string(i), now);
        if (i % 1'000 == 0) throttle.Wrong("x", now);
    }
    EXPECT_GT(*throttle.Wait("x", now), Milliseconds(0));
}

TEST(FairQueue, ACrowdFromOneAddressDelaysTheOthersByOneTurn) {
    FairQueue queue;
    std::string order;
    for (int i = 0; i < 4; ++i) queue.Push("crowd", [&] { order += 'c'; });
    queue.Push("ann", [&] { order += 'a'; });
    queue.Push("bob", [&] { order += 'b'; });
    queue.Push("ann", [&] { order += 'a'; });
    while (!queue.Empty()) queue.Pop()();
    EXPECT_EQ(order, "cabcacc");
}

TEST(PeerWatch, APeerIsGoneWhenNothingIsAcknowledgedForThreeSights) {
    const PeerWatch::Sight silent{true, PeerWatch::kSilence};
    const PeerWatch::Sight others[] = {
        {false, std::chrono::hours(1)},              // nothing under way, or its window is shut
        {true, kLivenessInterval - Milliseconds(1)}, // it has answered since the last sight
    };
    for (const PeerWatch::Sight& other : others) {
        PeerWatch watch;
        for (int i = 0; i < 2; ++i) {
            EXPECT_FALSE(watch.Gone(silent)) << "it may have been sent just now";
            EXPECT_FALSE(watch.Gone(silent));
            EXPECT_FALSE(watch.Gone(other));
        }
        EXPECT_FALSE(watch.Gone(silent));
        EXPECT_FALSE(watch.Gone(silent));
        EXPECT_TRUE(watch.Gone(silent));
    }
    PeerWatch patient;
    for (Milliseconds silence = kLivenessInterval; silence < PeerWatch::kSilence; silence += kLivenessInterval)
        EXPECT_FALSE(patient.Gone({true, silence})) << silence.count();
    EXPECT_TRUE(patient.Gone(silent));
}

TEST(LogTest, NothingFromOutsideForgesALine) {
    EXPECT_EQ(Log::Printable("a\nb\x1B[2J\\\x9F\xE9"), "a\\x0ab\\x1b[2J\\\\\\x9f\xC3\xA9");
    EXPECT_LT(Log::Printable(std::string(100'000, 'x')).size(), 1'000U);
}

TEST(Addresses, ANetworkIsOnePlaceInIPv6AndAnAddressInIPv4) {
    const std::pair<const char*, const char*> cases[] = {
        {"192.0.2.4", "192.0.2.4"},
        {"::ffff:192.0.2.4", "192.0.2.4"},
        {"2001:db8:1:2:3:4:5:6", "2001:db8:1:2::/64"},
        {"::1", "::/64"},
    };
    for (const auto& [address, origin] : cases)
        EXPECT_EQ(OriginOf(PlainAddress(asio::ip::make_address(address))), origin);
    EXPECT_EQ(EndpointText({asio::ip::make_address("::1"), 7777}), "[::1]:7777");
}

} // namespace ombrin::server::test
