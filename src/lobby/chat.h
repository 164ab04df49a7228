// Chat in the lobby and in a room. The routine that adds a line serves every chat view.
#pragma once

#include "lobby/ignored_users.h"
#include "platform/desktop.h"

namespace ombrin {

class Chat {
public:
    /// Rows that a view has at most, its header included.
    static constexpr int kRowLimit = 100;

    Chat(Desk desk, IgnoredUsers& ignored, Sound& sound, Clipboard& clipboard, const TextMeasure& measure);

    /// `<sender>:<text>:;` any number of times.
    void AddGameLobbyChatLines(std::string_view data);
    void AddRoomChatLines(std::string_view data);
    /// One line `<sender>:<encoded text>:`. From the server the user's own lines are dropped, as they were shown when
    /// they were sent.
    void AddLineToFlexGrid(FlexGrid& grid, std::string_view line, bool fromServer);

private:
    void SendMain_Click();
    void MainText_KeyPress(int& key);
    void SendRoom_Click();
    void RoomText_KeyPress(int& key);
    void SendMainText();
    void SendRoomText();
    std::string ShowOwnLine(TextBox& box, FlexGrid& grid);
    void AddLines(FlexGrid& grid, std::string_view data);
    void ReSizeFlexGridCellHeight(FlexGrid& grid, int row);

    Desk desk;
    IgnoredUsers& ignored;
    Sound& sound;
    const TextMeasure& measure;
};

} // namespace ombrin
