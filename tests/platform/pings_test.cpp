// Pings: what the recorded and the real ones promise alike, and what only real ones can get wrong.
#include "platform/posix/posix_pings.h"

#include "../support/scratch.h"
#include "platform/posix/descriptor.h"
#include "platform/recording/recording_pings.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <gmock/gmock.h>
#include <net/if.h>
#include <netinet/ip_icmp.h>
#include <poll.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <thread>

namespace ombrin {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Optional;
using namespace std::chrono_literals;

constexpr std::int32_t kLimit = Pings::kTimeLimit.count();
const auto kInTime = Optional(testing::AllOf(testing::Ge(0), testing::Lt(kLimit)));
const auto kNoAnswer = Optional(kLimit);
const auto kNothing = testing::Eq(std::nullopt);

struct CountingWaiter : Waiter {
    void RunUntil(const bool&) override { ADD_FAILURE() << "nothing runs in a ping"; }
    void Block(Milliseconds) override { ADD_FAILURE() << "a ping waits itself"; }
    void Breathe() override {
        if (++breaths == 2) std::this_thread::sleep_for(paint);
    }
    int breaths = 0;
    Milliseconds paint{0}; ///< what the first breath between the sending and the answers takes
};

/// An address of the loopback with a port of its own, chosen by the system; nobody listens there yet.
struct Port {
    explicit Port(in_addr_t at) {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(at);
        socklen_t length = sizeof address;
        EXPECT_EQ(bind(descriptor.Number(), Own(), length), 0);
        EXPECT_EQ(getsockname(descriptor.Number(), Own(), &length), 0);
    }
    sockaddr* Own() { return reinterpret_cast<sockaddr*>(&address); }
    std::uint16_t Number() const { return ntohs(address.sin_port); }
    Descriptor descriptor{socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    sockaddr_in address{};
};

std::vector<std::string> Neighbours(int count) {
    std::vector<std::string> addresses;
    for (int i = 0; i < count; ++i)
        addresses.push_back("127.0." + std::to_string(i / 200 + 1) + "." + std::to_string(i % 200 + 1));
    return addresses;
}

/// Pings, and holds the round to its time limit.
std::vector<Pings::Answer> InTime(Pings& pings, const std::vector<std::string>& addresses) {
    const auto start = std::chrono::steady_clock::now();
    const auto answers = pings.Ping(addresses);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2 * Pings::kTimeLimit);
    return answers;
}

const std::string kLongest(100'000, '1');
const std::string_view kNoAddresses[] = {
    "",           "localhost", "127.1",  "0x7f.0.0.1",          "127.0.0.1:80", "127.0.0.256",
    " 127.0.0.1", "[::1]",     "::1%lo", {"127.0.0.1\0.5", 12}, kLongest};

/// The contract of all pings.
void AnswersInTheOrderOfTheAddresses(Pings& pings) {
    EXPECT_THAT(pings.Ping({}), ElementsAre());
    for (const std::string_view text : kNoAddresses)
        EXPECT_THAT(pings.Ping({std::string(text)}), ElementsAre(kNothing)) << text;
    EXPECT_THAT(InTime(pings, {"127.0.0.1", "", "127.0.0.2", "127.0.0.1", "localhost", "127.0.0.1", "127.0.0.3"}),
                ElementsAre(kInTime, kNothing, kInTime, kInTime, kNothing, kInTime, kInTime));
    EXPECT_THAT(InTime(pings, Neighbours(500)), Each(kInTime));
    const Descriptor six(socket(AF_INET6, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_in6 loopback{};
    loopback.sin6_family = AF_INET6;
    loopback.sin6_addr = in6addr_loopback;
    if (bind(six.Number(), reinterpret_cast<const sockaddr*>(&loopback), sizeof loopback) != 0) return;
    EXPECT_THAT(InTime(pings, {"::1", "127.0.0.1", "0:0::1"}), Each(kInTime));
}

TEST(PingsContract, Recorded) {
    std::vector<std::string> asked;
    recording::RecordingPings pings(
        [&](const recording::Event& event) { asked.push_back(std::get<std::string>(event.fields.at(0).second)); });
    for (const std::string_view text : kNoAddresses) pings.answers[std::string(text)] = std::nullopt;
    AnswersInTheOrderOfTheAddresses(pings);
    for (const char* told : {"127.0.0.1", "127.0.1.2", "localhost"})
        EXPECT_EQ(std::count(asked.begin(), asked.end(), told) > 0, true) << told;
}

TEST(PingsContract, OfTheMachineAsItIs) {
    CountingWaiter waiter;
    PosixPings pings(waiter);
    AnswersInTheOrderOfTheAddresses(pings);
}

TEST(PingsContract, ByTcp) {
    CountingWaiter waiter;
    const Port refused(INADDR_ANY);
    PosixPings pings(waiter, refused.Number());
    AnswersInTheOrderOfTheAddresses(pings);
}

/// A listener that is full drops what else knocks: the machine that does not answer.
TEST(PosixPingsByTcp, SilenceCountsAsTheLimitAndAllAreWaitedForTogether) {
    CountingWaiter waiter;
    Port full(INADDR_LOOPBACK);
    PosixPings pings(waiter, full.Number());
    ASSERT_EQ(listen(full.descriptor.Number(), 0), 0);
    EXPECT_THAT(pings.Ping({"127.0.0.1"}), ElementsAre(kInTime)) << "one who listens answers too";
    std::vector<Descriptor> crowd;
    for (pollfd last{-1, POLLOUT, 0}; crowd.size() < 8; crowd.emplace_back(last.fd)) {
        last.fd = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        connect(last.fd, full.Own(), sizeof full.address);
    }
    waiter.breaths = 0;
    EXPECT_THAT(InTime(pings, {"127.0.0.1", "127.0.0.2", "127.0.0.1", "x", "127.0.0.1"}),
                ElementsAre(kNoAnswer, kInTime, kNoAnswer, kNothing, kNoAnswer));
    EXPECT_GT(waiter.breaths, 10);
    waiter.breaths = 0;
    EXPECT_THAT(InTime(pings, {"127.0.0.1", "127.0.0.2"}), ElementsAre(kNoAnswer, kInTime));
    EXPECT_LT(waiter.breaths, 10) << "who was silent just now holds nobody up";

    std::vector<std::string> many(PosixPings::kConnections, "127.0.0.1");
    many.insert(many.end(), {"127.0.0.2", "127.0.0.1"});
    PosixPings others(waiter, full.Number());
    const auto answers = InTime(others, many);
    EXPECT_THAT(std::vector(answers.begin(), answers.end() - 2), Each(kNoAnswer));
    EXPECT_THAT(std::vector(answers.end() - 2, answers.end()), Each(kNothing)) << "their turn has not come";
}

/// A network of this process alone in which its group may send echoes; false where the system does not give one.
bool EnterOwnNetwork() {
    const auto write = [](const std::string& path, const std::string& text) {
        return static_cast<bool>(std::ofstream(path) << text << std::flush);
    };
    const std::string user = std::to_string(getuid()), group = std::to_string(getgid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
    if (!write("/proc/self/setgroups", "deny") || !write("/proc/self/uid_map", "0 " + user + " 1") ||
        !write("/proc/self/gid_map", "0 " + group + " 1") || !write("/proc/sys/net/ipv4/ping_group_range", "0 0"))
        return false;
    const Descriptor any(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    ifreq loopback{};
    loopback.ifr_name[0] = 'l', loopback.ifr_name[1] = 'o';
    loopback.ifr_flags = IFF_UP;
    return ioctl(any.Number(), SIOCSIFFLAGS, &loopback) == 0;
}

/// Stands in for the kernel: takes three echo requests and answers them, the last one first.
int AnswerOddly(const Descriptor& raw) {
    constexpr std::size_t kEcho = 20, kNonce = 36, kLength = 44; // bytes of an IPv4 datagram
    unsigned char asked[3][kLength + 1];
    alarm(20); // a fault must not hang the tests
    for (std::size_t taken = 0; taken < 3;) {
        if (recv(raw.Number(), asked[taken], sizeof asked[taken], 0) != kLength) return 1;
        if (asked[taken][kEcho] == ICMP_ECHO) ++taken;
    }
    const auto answer = [&](unsigned char(&one)[kLength + 1]) {
        sockaddr_in to{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
        sendto(raw.Number(), one + kEcho, kLength - kEcho, 0, reinterpret_cast<const sockaddr*>(&to), sizeof to);
    };
    for (auto& one : asked) {
        one[kEcho] = ICMP_ECHOREPLY;
        const unsigned sum = (one[kEcho + 2] << 8U) + one[kEcho + 3] + 0x800U;
        one[kEcho + 2] = static_cast<unsigned char>((sum + (sum >> 16U)) >> 8U);
        one[kEcho + 3] = static_cast<unsigned char>(sum + (sum >> 16U));
    }
    for (int i = 0; i < 3; ++i) answer(asked[2]);      // counts once
    std::swap(asked[1][kNonce], asked[1][kNonce + 2]); // to a question that was not asked, with the same checksum
    std::swap(asked[1][kNonce + 1], asked[1][kNonce + 3]);
    answer(asked[1]);
    usleep(50'000); // a slow line
    answer(asked[0]);
    return 0;
}

int SeeEchoes() {
    constexpr int kNoNetwork = 2;
    if (!EnterOwnNetwork()) return kNoNetwork;
    CountingWaiter waiter;
    PosixPings pings(waiter);
    AnswersInTheOrderOfTheAddresses(pings);

    std::ofstream("/proc/sys/net/ipv4/icmp_echo_ignore_all") << 1 << std::flush;
    EXPECT_THAT(InTime(pings, {"127.0.0.1", "::1", "x", "192.0.2.1", "127.0.0.2"}),
                ElementsAre(kNoAnswer, kInTime, kNothing, kNoAnswer, kNoAnswer));
    EXPECT_THAT(PosixPings(waiter, 1).Ping({"192.0.2.1"}), ElementsAre(kNoAnswer)) << "by TCP: no way there";

    const Descriptor raw(socket(AF_INET, SOCK_RAW | SOCK_CLOEXEC, IPPROTO_ICMP));
    for (const Milliseconds paint : {0ms, 700ms}) {
        const pid_t other = Fork([&] { return AnswerOddly(raw); });
        waiter.paint = paint;
        waiter.breaths = 0;
        PosixPings fresh(waiter);
        const auto answers = InTime(fresh, {"127.0.0.1", "127.0.0.2", "127.0.0.3"});
        EXPECT_EQ(ExitCode(other), 0);
        EXPECT_THAT(answers, ElementsAre(Optional(testing::AllOf(testing::Ge(50), testing::Lt(700))), kNoAnswer,
                                         Optional(testing::Lt(*answers[0]))))
            << "painting for " << paint.count() << " ms is no part of an answer's time";
    }
    return testing::Test::HasFailure() ? 1 : 0;
}

TEST(PosixPingsByIcmp, EachEchoIsMatchedToItsRequestAndSilenceCountsAsTheLimit) {
    const int code = ExitCode(Fork(SeeEchoes));
    if (code == 2) GTEST_SKIP() << "the system lends no network of one's own";
    EXPECT_EQ(code, 0);
}

} // namespace
} // namespace ombrin
