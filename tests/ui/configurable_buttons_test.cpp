// The buttons that open what the settings file names for them.
#include "support/played_client.h"

namespace ombrin::test {
namespace {

TEST(ConfigurableButtons, EachOpensItsOwnTargetAndSaysWhatDidNotOpen) {
    PlayedClient player;
    player.LogsOn();
    const struct {
        std::string target;
        int result;
        const char* box;
    } kCases[] = {{"http://news.example/", 33, ""},
                  {"docs\\rules.txt", 32, "Error jumping to:docs\\rules.txt"},
                  {"", 33, "Error jumping to:"}, // a missing key
                  {"C:\\Depot.exe", 0, "Error jumping to:C:\\Depot.exe"},
                  {"players.html", 42, ""}};
    for (std::size_t i = 0; i < std::size(kCases); ++i) {
        const auto& [target, result, text] = kCases[i];
        const std::string number = std::to_string(i + 1);
        if (!target.empty()) player.client.Inis().Write("AV.ini", "ConfigurableButtons", "Button" + number, target);
        player.world.opener.result = result;
        player.world.events.clear();
        player.Presses(*player.view.Find("btnConfigurable" + number));
        EXPECT_EQ(player.world.Told("open"), std::vector{target});
        EXPECT_EQ(player.world.opener.workingDirectory, "/home/app");
        EXPECT_EQ(player.BoxText(), text);
        const auto* box = dynamic_cast<const MessageBoxForm*>(player.client.Stack().Top());
        if (box == nullptr) continue;
        EXPECT_TRUE(box->Icon() == BoxIcon::Exclamation && box->Caption() == "Warning");
        player.Answers(BoxResult::Ok);
    }
}

} // namespace
} // namespace ombrin::test
