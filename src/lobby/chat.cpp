#include "lobby/chat.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "lobby/copy_line.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

#include <cmath>

namespace ombrin {

Chat::Chat(Desk desk, IgnoredUsers& ignored, Sound& sound, Clipboard& clipboard, const TextMeasure& measure)
    : desk(desk), ignored(ignored), sound(sound), measure(measure) {
    View& view = desk.view;
    view.SendMain.Click = [this] { SendMain_Click(); };
    view.MainText.KeyPress = [this](int& key) { MainText_KeyPress(key); };
    view.SendRoom.Click = [this] { SendRoom_Click(); };
    view.RoomText.KeyPress = [this](int& key) { RoomText_KeyPress(key); };
    for (FlexGrid* grid : {&view.msflxMainChatLines, &view.msflexRoomLines})
        grid->KeyDown = [grid, &clipboard](int& code, int shift) { CopyLine(*grid, clipboard, code, shift); };
}

void Chat::AddGameLobbyChatLines(std::string_view data) {
    desk.trap(__func__, [&] { AddLines(desk.view.msflxMainChatLines, data); });
}

void Chat::AddRoomChatLines(std::string_view data) {
    desk.trap(__func__, [&] { AddLines(desk.view.msflexRoomLines, data); });
}

void Chat::AddLines(FlexGrid& grid, std::string_view data) {
    for (auto line = GetCommand(data, kFieldEnd); !line.empty(); line = GetCommand(data, kFieldEnd))
        AddLineToFlexGrid(grid, line, true);
}

void Chat::AddLineToFlexGrid(FlexGrid& grid, std::string_view line, bool fromServer) {
    desk.trap(__func__, [&] {
        const std::string sender(GetCommand(line, kCodeEnd));
        if (fromServer && sender == desk.session.m_UserName) return;
        if (ignored.UserIgnored(sender)) return;
        const std::string text = DecodeData(GetCommand(line, kCodeEnd));
        if (desk.session.ChatSoundsOn) sound.Play("AVChat.wav");
        if (!grid.Text().empty()) {
            grid.SetRows(grid.Rows() + 1);
            grid.SetRow(grid.Rows() - 1);
        }
        grid.SetCol(0);
        grid.SetText(sender);
        grid.SetCellAlignment(FlexGrid::Alignment::LeftTop);
        grid.SetCol(1);
        grid.SetText(text);
        grid.SetCellAlignment(FlexGrid::Alignment::LeftTop);
        ReSizeFlexGridCellHeight(grid, grid.Row());
        grid.SetTopRow(grid.Rows() - 1);
        if (grid.Rows() > kRowLimit) grid.RemoveItem(1);
    });
}

void Chat::ReSizeFlexGridCellHeight(FlexGrid& grid, int row) {
    desk.trap(__func__, [&] {
        const double twipsPerPixel = measure.TwipsPerPixel();
        const int width = static_cast<int>(std::lround(grid.ColWidth(1) / twipsPerPixel));
        desk.view.HiddenTextBox.SetText(grid.Text());
        const int lineHeight = measure.LineHeight();
        const int lines = measure.LineCount(desk.view.HiddenTextBox.Text(), width);
        grid.SetRowHeight(row, lineHeight);
        if (grid.RowHeight(row) / twipsPerPixel < lines * lineHeight)
            grid.SetRowHeight(row, static_cast<int>(std::lround(twipsPerPixel * lines * lineHeight)) + 8);
    });
}

void Chat::SendMain_Click() {
    desk.trap(__func__, [&] {
        const auto epoch = desk.link.Epoch();
        if (desk.session.m_CurrentLobby.empty())
            desk.trap.log.LogError("Error: GameLobby is NULL, you probably are not connected to the server.  Make aure "
                                   "you don't have any firewall software running and make sure that no other "
                                   "application is using the same port that you are using to connect to Ardvelle.",
                                   true);
        desk.TraceMessage("Send main pressed");
        if (desk.link.Epoch() != epoch) return; // a new logon under the box
        SendMainText();
        desk.view.MainText.SetFocus();
    });
}

void Chat::MainText_KeyPress(int& key) {
    desk.trap(__func__, [&] {
        if (key != UserInput::kEnter || desk.view.MainText.Text().empty()) return;
        key = 0;
        SendMainText();
    });
}

void Chat::SendRoom_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Send room pressed");
        SendRoomText();
        desk.view.RoomText.SetFocus();
    });
}

void Chat::RoomText_KeyPress(int& key) {
    desk.trap(__func__, [&] {
        if (key != UserInput::kEnter) return;
        key = 0;
        SendRoomText();
    });
}

void Chat::SendMainText() {
    TextBox& box = desk.view.MainText;
    if (box.Text().empty()) return;
    const std::string encoded = ShowOwnLine(box, desk.view.msflxMainChatLines);
    desk.link.SendData(client_message::LobbyLine(desk.session.m_UserData, encoded));
    box.SetText("");
}

void Chat::SendRoomText() {
    TextBox& box = desk.view.RoomText;
    if (box.Text().empty()) return;
    const std::string encoded = ShowOwnLine(box, desk.view.msflexRoomLines);
    desk.link.SendData(client_message::RoomLine(desk.session.m_UserData, encoded, desk.session.m_CurrentRoom));
    box.SetText("");
}

/// The line is shown when it is sent, as the server's copy of it will not be.
std::string Chat::ShowOwnLine(TextBox& box, FlexGrid& grid) {
    const std::string encoded = EncodeData(box.Text());
    box.SetText(encoded);
    AddLineToFlexGrid(grid, Join(desk.session.m_UserName, ":", encoded, ":"), false);
    return encoded;
}

} // namespace ombrin
