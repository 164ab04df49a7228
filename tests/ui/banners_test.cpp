// A server's banners: what is kept of its list, what is shown when, and what the system's sound of navigation becomes.
#include "support/played_client.h"

#include "session/wire/codec.h"

namespace ombrin::test {
namespace {

using namespace std::string_literals;

constexpr const char* kSound = R"(HKEY_CURRENT_USER\AppEvents\Schemes\Apps\Explorer\Navigating\.current)";

std::string Entry(const std::string& time, const std::string& address) {
    const std::string escaped = EncodeData(address);
    return time + ";" + std::to_string(escaped.size()) + ";" + escaped + ";";
}

struct Banner : PlayedClient {
    Banner() { LogsOn(); }
    /// http://1/, http://2/ … with these times.
    void Hears(const std::vector<std::string>& times) {
        std::string list = std::to_string(times.size()) + ":";
        for (std::size_t i = 0; i < times.size(); ++i) list += Entry(times[i], "http://" + std::to_string(i + 1) + "/");
        Sends("37:" + list + "~");
    }
    std::string Setting(const std::string& key) { return client.Store().GetSetting("Banner Ads", key); }
    void Set(const std::string& key, const std::string& value) { client.Store().SaveSetting("Banner Ads", key, value); }
    void PassSeconds(int seconds) { Passes(Milliseconds(seconds * 1000)); }
    /// The pages since the last look, one after the other, and the error that a box tells, which is answered.
    std::string Shown() {
        std::string all;
        for (const std::string& address : world.Told("navigate")) all += address + " ";
        world.events.clear();
        if (const std::size_t at = BoxText().find("number: "); at != std::string::npos)
            all += "error " + std::to_string(std::stoi(BoxText().substr(at + 8)));
        if (!BoxText().empty()) Answers(BoxResult::Ok);
        return all;
    }
    std::string Sound() { return std::get<std::string>(world.registry.Read(kSound, "").value_or("none")); }
};

TEST(Banners, AListIsBelievedAsFarAsItGoes) {
    const struct {
        std::string list;
        const char *shown, *number;
    } kCases[] = {{"0:", "", ""},
                  {"1:" + Entry("60", "http://1/"), "", ""},
                  {"32768:", "error 6", ""},
                  {"", "error 13", ""},
                  {"2:x;1;a;", "error 13", "1"},
                  {"2:60;-1;http", "error 5", "1"},
                  {"2:60;99;http", "error 13", "1"},
                  {"2:60;24;http%*|@//a/%*|@^}|#`@/<;9;0;;", "http://a/:;~ ", "1"},
                  {"2:-5;12;http%*|@//1/;9;0;;", "http://1/ ", "1"}, // a single one waits for nothing
                  {"3:" + Entry("-5", "http://1/") + "9;0;;9;0;;", "http://1/ error 380", "2"}};
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.list);
        Banner player;
        player.Sends("37:" + row.list + "~");
        EXPECT_EQ(player.Shown(), row.shown);
        EXPECT_EQ(player.Setting("NumberOfBanners"), row.number);
        EXPECT_EQ(player.view.BannerAd.Visible() && player.Marks().m_bBannersEnabled, *row.number != 0);
        EXPECT_EQ(player.view.BannerTimer.On(), *row.number == '2');
    }
}

TEST(Banners, ALongListIsCutAndASecondOneChangesTheNumberAlone) {
    Banner player;
    player.Hears(std::vector<std::string>(101, "60"));
    EXPECT_EQ(player.Setting("NumberOfBanners"), "99");
    EXPECT_EQ(player.Setting("Banner100") + player.Setting("Banner101"), "http://100/");
    player.Sends("37:5:" + Entry("9", "http://other/") + "~37:1:~");
    EXPECT_EQ(player.Setting("NumberOfBanners") + player.Setting("Banner1") + player.Shown(), "4http://1/http://1/ ");
}

TEST(Banners, ThePagesOfTheWebAreShownAndNothingElse) {
    const std::string longest = "http://" + std::string(2041, 'a'); // 2048 characters
    for (const std::string& address : {"HTTPS://a.example:8080/x?y;z~"s, longest, longest + "a", "http://a/\x01"s,
                                       "http://a/b c"s, "http://"s, "file:///etc/passwd"s, ""s}) {
        Banner player;
        player.Sends("37:3:" + Entry("5", address) + Entry("5", "http://next/") + Entry("5", "") + "~");
        const bool isWeb = address == longest || address.starts_with("HTTPS");
        const bool isKept = address.size() <= longest.size() && address != "http://a/\x01";
        EXPECT_EQ(player.Setting("Banner1"), isKept ? address : "");
        player.PassSeconds(10);
        EXPECT_EQ(player.Shown(), (isWeb ? address + " " + address + " " : "") + "http://next/ ") << address;
    }
}

TEST(Banners, TheyTakeTurnsAfterTheirTimes) {
    Banner player;
    player.Hears({"60", "61", "150", "9"});
    const struct {
        int pass; ///< seconds
        const char *shown, *current;
        int interval; ///< seconds
    } kSteps[] = {
        {0, "http://1/ ", "1", 60},  {59, "", "1", 60}, {1, "http://1/ ", "2", 60}, // once more
        {60, "http://2/ ", "3", 60}, {60, "", "3", 1},  {1, "http://3/ ", "1", 60},
        {60, "", "1", 60},           {60, "", "1", 30}, {30, "http://1/ ", "2", 60}}; // the fourth is never shown
    for (const auto& step : kSteps) {
        player.PassSeconds(step.pass);
        EXPECT_EQ(player.Shown(), step.shown);
        EXPECT_EQ(player.Setting("CurrentBanner"), step.current);
        EXPECT_EQ(player.view.BannerTimer.Interval(), Milliseconds(step.interval * 1000));
    }
    for (const char* key : {"NumberOfBanners", "CurrentBanner"}) player.Set(key, "4"); // no longer as they were left
    player.Set("Banner4Time", "");
    player.PassSeconds(60);
    EXPECT_EQ(player.Shown() + player.Setting("CurrentBanner"), "http://4/ error 131");
    player.Set("Banner1Time", "0");
    player.PassSeconds(3600);
    EXPECT_EQ(player.Shown(), "http://1/ ") << "goes on after an error, and a time of 0 is the end";
    EXPECT_EQ(player.Sound(), "none") << "a key that is not there is not made";
}

TEST(Banners, AGameSuspendsThem) {
    Banner player;
    player.world.registry.Write(kSound, "", "start.wav"s);
    player.Hears({"150", "61", "5"});
    player.PassSeconds(60);
    player.Sends("12:10.0.0.9;~");
    player.PassSeconds(600);
    EXPECT_EQ(player.Shown(), "http://1/ about:blank ");
    player.Presses(player.forms.PauseAV.ResumeButton);
    EXPECT_EQ(player.Shown(), "http://1/ ") << "without delay";
    player.PassSeconds(150);
    EXPECT_EQ(player.Shown() + player.Sound(), "http://2/ ");
    player.Do([&] { player.client.Stack().RequestEnd(); });
    EXPECT_EQ(player.Sound(), "start.wav");
}

TEST(Banners, TheLogoffStopsThemAndBringsTheSoundOfNavigationBack) {
    Banner player;
    player.world.registry.Write(kSound, "", "start.wav"s);
    player.Hears({"60", "60", "60"});
    player.DoubleClicks(player.view.lbLobbies, 1);
    EXPECT_EQ(player.Sound(), "start.wav");
    EXPECT_FALSE(player.view.BannerTimer.On());
    player.world.registry.Write(kSound, "", "chosen.wav"s);
    player.Do([&] { player.client.Stack().RequestEnd(); });
    EXPECT_EQ(player.Sound(), "chosen.wav") << "once is enough";
}

} // namespace
} // namespace ombrin::test
