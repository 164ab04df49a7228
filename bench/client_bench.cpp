// How fast the core handles arrivals, beside what the bare work costs in the same run.
//
// One line a case: name, ours, lower bound, ratio, the ratio that is asked. Each figure is the median of several runs.
// Ends with 1 when a ratio is above what is asked.
#include "foundation/text.h"
#include "support/recorded_world.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <malloc.h>

namespace ombrin::bench {

namespace {

class NoWaiter : public Waiter {
public:
    void RunUntil(const bool&) override { std::abort(); } // no case opens a form
    void Block(Milliseconds) override {}
    void Breathe() override {}
};

/// A client that is in a lobby.
struct InLobby {
    NoWaiter waiter;
    test::RecordedWorld world;
    GameLobby client{world.ForClient(waiter)};

    explicit InLobby(std::size_t users) {
        client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "English");
        client.Inis().Write("AV.ini", "GameFilter", "DisplayedGames", "Go;");
        client.UserControl_Show("ann;Go;127.0.0.1;7777");
        world.network.Named("Winsock").Accept();
        if (users > 0) Sends(UserList(users));
    }

    void Sends(const std::string& data) { world.network.Named("Winsock").Sends(data); }

    static std::string Name(std::size_t i) {
        std::string digits = std::to_string(i);
        return "player" + std::string(6 - std::min<std::size_t>(6, digits.size()), '0') + digits;
    }

    static std::string UserList(std::size_t users) {
        std::string message = "0:";
        for (std::size_t i = 0; i < users; ++i) message += Name(i) + ";1;";
        return message + "~";
    }
};

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

constexpr int kRuns = 15;

bool Line(const char* name, double ours, double bound, const char* unit, double asked) {
    const double ratio = ours / bound;
    std::printf("%s  %.3f %s  %.3f %s  %.2f  %.2f\n", name, ours, unit, bound, unit, ratio, asked);
    return ratio <= asked;
}

/// An arrival of 1 MiB with the users of a lobby, beside splitting the same bytes at ";" into texts.
bool LargeArrival() {
    std::string arrival = "0:";
    for (std::size_t i = 0; arrival.size() < std::size_t{1024} * 1024; ++i) arrival += InLobby::Name(i) + ";1;";
    arrival += "~";
    std::vector<double> ours, bound;
    for (int run = 0; run < kRuns; ++run) {
        InLobby lobby(0);
        ours.push_back(Seconds([&] { lobby.Sends(arrival); }));
        std::vector<std::string> texts;
        bound.push_back(Seconds([&] {
            std::string_view rest = arrival;
            for (std::size_t end = rest.find(';'); end != std::string_view::npos; end = rest.find(';')) {
                texts.emplace_back(rest.substr(0, end));
                rest.remove_prefix(end + 1);
            }
        }));
        if (lobby.client.MainView().UserList.rows.Count() != texts.size() / 2) std::abort();
    }
    return Line("1 MiB of users in one arrival", Median(ours) * 1e3, Median(bound) * 1e3, "ms", 5);
}

/// A change of status in a large lobby, beside one in a small lobby.
bool StatusChange() {
    constexpr int kChanges = 2000;
    const auto measure = [](std::size_t users) {
        InLobby lobby(users);
        std::vector<std::string> changes;
        changes.reserve(kChanges);
        for (std::size_t i = 0; i < kChanges; ++i)
            changes.push_back(Join("13:", std::to_string(1 + i % 3), ":", InLobby::Name(i * 7919 % users), ";;;~"));
        std::vector<double> times;
        for (int run = 0; run < kRuns; ++run)
            times.push_back(Seconds([&] {
                for (const std::string& change : changes) lobby.Sends(change);
            }));
        return Median(times) / kChanges * 1e6;
    };
    const double small = measure(100), large = measure(10'000);
    return Line("a status change among 10,000 users, among 100", large, small, "us", 1.5);
}

/// What a row of the user list takes, beside 300 bytes.
bool MemoryOfARow() {
    constexpr std::size_t kUsers = 10'000;
    InLobby lobby(0);
    const std::string arrival = InLobby::UserList(kUsers);
    const std::size_t before = mallinfo2().uordblks;
    lobby.Sends(arrival);
    const std::size_t logged = lobby.world.LogText().size();
    const std::size_t after = mallinfo2().uordblks;
    const double perRow = static_cast<double>(after - before - std::min(after - before, logged)) / kUsers;
    return Line("memory of a user row, the limit", perRow, 300, "B", 1);
}

} // namespace

} // namespace ombrin::bench

int main() {
    using namespace ombrin::bench;
    bool good = LargeArrival();
    good = StatusChange() && good;
    good = MemoryOfARow() && good;
    return good ? 0 : 1;
}
