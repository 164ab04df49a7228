#include "lobby/buddies.h"

#include "controls/user_input.h"
#include "foundation/text.h"
#include "lobby/text_colour.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"
#include "session/wire/names.h"

namespace ombrin {

namespace {

constexpr Colour kOnLineColour = 0x00FFFF00; ///< blue and green full
constexpr std::size_t kMostBuddies = 5'000;  ///< the pane is sorted anew at each change
constexpr std::string_view kOffline = "Offline";
constexpr std::size_t kStatus = 1, kSortKey = 2; ///< sub-items; those on line sort first

} // namespace

Buddies::Buddies(Desk desk, PrivateMessages& pm, Notices& notices, Sound& sound)
    : desk(desk), pm(pm), notices(notices), sound(sound), limit(desk.trap.log, "buddies", kMostBuddies) {
    View& view = desk.view;
    view.btnAddBuddy.Click = [this] { btnAddBuddy_Click(); };
    view.btnRemoveBuddy.Click = [this] { btnRemoveBuddy_Click(); };
    view.RemoveBuddy.Click = [this] { RemoveBuddy_Click(); };
    view.BuddyPMMenu.Click = [this] { BuddyPMMenu_Click(); };
    view.BuddyLV.MouseUp = [this](int button) { BuddyLV_MouseUp(button); };
    view.AddBuddy.Click = [this] { AddFrom(this->desk.view.UserList.SelectedText()); };
    view.AddAllUsersBuddy.Click = [this] { AddFrom(this->desk.view.lbAllUsers.SelectedText()); };
}

void Buddies::Buddies_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("buddy list displayed");
        desk.view.BuddyLV.Clear();
        desk.link.SendData(client_message::BuddyList(desk.session.m_UserName), text::kError25);
    });
}

void Buddies::DisplayBuddyList(std::string_view data) {
    desk.trap(__func__, [&] {
        const Colour offLine = TextColor(desk.settings, kWhite);
        ListView& list = desk.view.BuddyLV;
        for (auto name = GetCommand(data, kFieldEnd); !name.empty(); name = GetCommand(data, kFieldEnd)) {
            const std::string_view lobby = GetCommand(data, kFieldEnd);
            RowId row = list.rows.Find(name);
            if (!row && limit.IsFull(list.rows)) continue;
            if (!row)
                row = list.Add(name);
            else if (lobby.empty())
                list.rows.SetRowColour(row, offLine);
            else if (list.rows.SubItem(row, kStatus) == kOffline) {
                notices.Tell(Notice::BuddyOnLine, name, lobby);
                sound.Play("BudNotif.wav");
                row = list.rows.Find(name); // a sound may wait
            }
            lobby.empty() ? SetOffLine(row) : SetOnLine(row, lobby);
        }
        list.rows.SortBySubItem(kSortKey);
    });
}

void Buddies::SetOnLine(RowId row, std::string_view lobby) {
    RowList& rows = desk.view.BuddyLV.rows;
    rows.SetSubItem(row, kStatus, lobby);
    rows.SetRowColour(row, kOnLineColour);
    rows.SetSubItem(row, kSortKey, Join("A", rows.Text(row)));
}

void Buddies::SetOffLine(RowId row) {
    RowList& rows = desk.view.BuddyLV.rows;
    rows.SetSubItem(row, kStatus, kOffline);
    rows.SetSubItem(row, kSortKey, Join("B", rows.Text(row)));
}

void Buddies::AddBuddy_Click() {
    desk.trap(__func__, [&] {
        while (true) {
            const auto epoch = desk.link.Epoch();
            const std::string name(
                Trim(desk.messages.DisplayInputBox(text::kEnterBuddyName.english, text::kEnterBuddyName.key)));
            if (name.empty() || desk.link.Epoch() != epoch) return;
            if (!IsAcceptable(name)) continue;
            AddBuddyToBuddyList(name);
            return;
        }
    });
}

/// Says what is wrong with a typed name.
bool Buddies::IsAcceptable(const std::string& name) {
    if (name.size() > kNameLength) {
        desk.messages.boxes.ShowPlain(
            Join("ERROR:  Buddy names cannot exceed ", std::to_string(kNameLength), " characters."));
        return false;
    }
    if (FirstOf(name, kForbiddenCharacters) == '\0') return true;
    desk.messages.DisplayMessage(text::kBuddyNamesContain);
    return false;
}

void Buddies::AddFrom(const std::string& name) {
    desk.trap("AddBuddy_Click", [&] {
        desk.TraceMessage("Add Buddy Menu clicked");
        if (!name.empty()) AddBuddyToBuddyList(name);
    });
}

void Buddies::AddBuddyToBuddyList(const std::string& name) {
    desk.trap(__func__, [&] {
        ListView& list = desk.view.BuddyLV;
        if (name == desk.session.m_UserName) {
            desk.messages.boxes.ShowPlain("ERROR:  You can't add yourself as a buddy.");
            return;
        }
        if (list.rows.Find(name)) {
            desk.messages.boxes.ShowPlain("ERROR:  this buddy is already in your list.");
            return;
        }
        desk.link.SendData(client_message::AddBuddy(desk.session.m_UserName, name), text::kError25);
        SetOffLine(list.Add(name));
    });
}

void Buddies::RemoveBuddy_Click() {
    desk.trap("RemoveBuddy", [&] {
        const auto epoch = desk.link.Epoch();
        const std::string name = desk.view.BuddyLV.SelectedText();
        if (name.empty()) return;
        if (desk.messages.DisplayMessage(text::kRemoveBuddy, BoxButtons::YesNo) != BoxResult::Yes) return;
        if (desk.link.Epoch() != epoch) return;
        desk.link.SendData(client_message::RemoveBuddy(desk.session.m_UserName, name), text::kError25);
        // The server may have sent the list anew under the question.
        if (const RowId row = desk.view.BuddyLV.rows.Find(name)) desk.view.BuddyLV.Remove(row);
    });
}

void Buddies::BuddyPMMenu_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Private Message pressed.");
        pm.DisplayPMDialog(desk.view.BuddyLV.SelectedText());
    });
}

void Buddies::BuddyLV_MouseUp(int button) {
    if (button == UserInput::kRight && desk.view.BuddyLV.rows.Count() > 0 &&
        desk.view.BuddyLV.SelectedText() != desk.session.m_UserName)
        desk.view.PopUp(desk.view.BuddyMenu);
}

} // namespace ombrin
