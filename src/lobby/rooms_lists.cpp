#include "controls/grid_routines.h"
#include "controls/user_input.h"
#include "foundation/text.h"
#include "lobby/rooms.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

#include <array>

namespace ombrin {

namespace {

struct RoomRecord {
    std::string_view name, status, address, users, max;
};

/// False at the end of the records.
bool Cut(std::string_view& data, RoomRecord& room) {
    for (std::string_view* field : {&room.name, &room.status, &room.address, &room.users, &room.max})
        *field = GetCommand(data, kFieldEnd);
    return !room.name.empty();
}

/// The name in the text of a room's row, as it came.
std::string_view NameOf(std::string_view text) { return StrExtractLeft(text, " "); }

/// Pictures of RoomImages by status; any other status leaves the picture as it was.
struct StatusImage {
    std::string_view status;
    int image;
};

constexpr std::array kRoomImages{
    StatusImage{"1", 1},                      // without a mark
    StatusImage{"2", 2},                      // a padlock: its game runs
    StatusImage{"3", 2}, StatusImage{"4", 3}, // a key: it has a password
};

} // namespace

// The list of rooms

void Rooms::AddGameLobbyRooms(std::string_view data) {
    desk.trap(__func__, [&] {
        std::string_view rest = data;
        ListView& list = desk.view.RoomList;
        for (RoomRecord room; Cut(rest, room);) {
            if (roomLimit.IsFull(list.rows)) break;
            const RowId row = list.Add(Join(room.name, " (", room.users, "/", room.max, ")"));
            list.rows.SetTip(row, room.name);
            list.rows.SetTag(row, room.address);
            if (list.rows.Count() == 1 && desk.session.m_CurrentRoom.empty()) position.Take(RoomEvent::FirstRoomListed);
        }
        SetRoomStatus(data);
    });
}

void Rooms::SetRoomStatus(std::string_view data) {
    desk.trap(__func__, [&] {
        RowList& rows = desk.view.RoomList.rows;
        for (RoomRecord room; Cut(data, room);) {
            const RowId row = rows.Find(room.name);
            if (!row) continue;
            for (const StatusImage& known : kRoomImages)
                if (known.status == room.status) rows.SetImage(row, known.image);
        }
    });
}

void Rooms::RemoveGameLobbyRoom(std::string_view data) {
    desk.trap(__func__, [&] {
        const std::string_view name = GetCommand(data, kFieldEnd);
        if (name.empty()) return;
        ListView& list = desk.view.RoomList;
        const RowId row = list.rows.Find(Trim(name)); // the key is trimmed, the name may have blanks around it
        if (!row || NameOf(list.rows.Text(row)) != name) return;
        list.Remove(row);
        if (list.rows.Count() == 0) position.Take(RoomEvent::LastRoomGone);
    });
}

void Rooms::UpdateRoomUserCount(std::string_view room, std::int16_t delta) {
    desk.trap(__func__, [&] {
        RowList& rows = desk.view.RoomList.rows;
        if (room.empty() || rows.Count() == 0) return;
        const RowId row = rows.Find(room);
        if (!row) return;
        const std::string_view numbers = StrExtractRight(rows.Text(row), "(");
        if (numbers.empty()) return;
        const std::int64_t users = std::int64_t{ToLong(StrExtractLeft(numbers, "/"))} + delta;
        rows.SetText(row, Join(room, " (", std::to_string(users), "/", StrExtractRight(numbers, "/")));
    });
}

std::string Rooms::SelectedRoomName() const {
    const ListView& list = desk.view.RoomList;
    return std::string(NameOf(list.rows.Text(list.SelectedItem())));
}

void Rooms::RoomList_MouseUp(int button) {
    desk.TraceMessage("Room list mouse up");
    View& view = desk.view;
    if (button == UserInput::kRight && view.RoomList.rows.Count() > 0 && desk.session.m_CurrentRoom.empty())
        view.PopUp(view.RoomMenu);
}

// The users of a room, and the preview

void Rooms::AddRoomUserNames(std::string_view data) {
    desk.trap(__func__, [&] {
        ListView& list = desk.view.RoomUserList;
        for (auto name = GetCommand(data, kFieldEnd); !name.empty(); name = GetCommand(data, kFieldEnd)) {
            const std::string_view address = GetCommand(data, kFieldEnd), isPublic = GetCommand(data, kFieldEnd);
            if (list.rows.Find(name) || userLimit.IsFull(list.rows)) continue;
            list.rows.SetTag(list.Add(name), Join(address, ";", isPublic, ";"));
        }
        pinger.PingTimer_Timer();
        if (!desk.session.m_CurrentRoom.empty()) sound.Play("EnterRoom.wav");
    });
}

void Rooms::RemoveRoomUser(std::string_view data) {
    desk.trap(__func__, [&] {
        const std::string_view name = GetCommand(data, kFieldEnd);
        if (name.empty()) return;
        if (const RowId row = desk.view.RoomUserList.rows.Find(name)) desk.view.RoomUserList.Remove(row);
    });
}

void Rooms::UpdateSelectedRoomUsers(std::string_view user, std::string_view room, std::string_view address,
                                    bool joined) {
    desk.trap(__func__, [&] {
        if (room.empty() || desk.view.RoomList.rows.Count() == 0 || !desk.session.m_CurrentRoom.empty()) return;
        if (room != desk.session.m_SelectedRoom) return;
        if (joined)
            AddRoomUserNames(Join(user, ";", address, ";N;"));
        else
            RemoveRoomUser(Join(user, ";"));
        position.Take(RoomEvent::PreviewShown);
    });
}

void Rooms::RoomList_ItemClick() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Room list item clicked");
        Session& session = desk.session;
        if (desk.view.RoomList.rows.Count() == 0 || !session.m_CurrentRoom.empty()) return;
        ClearRoomViews();
        const std::string name = SelectedRoomName();
        if (!name.empty()) {
            frame.Show(name);
            desk.link.SendData(client_message::PreviewRoom(session.m_UserData, name));
            desk.view.PingTimer.SetOn(true);
            session.m_SelectedRoom = name;
        }
        position.Take(RoomEvent::PreviewShown);
    });
}

/// A preview of a room that has gone vanishes.
void Rooms::CleanUpTimer_Timer() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        if (!session.m_CurrentRoom.empty()) return;
        if (desk.view.RoomList.rows.Count() > 0 && SelectedRoomName() == session.m_SelectedRoom) return;
        ClearRoomViews();
        session.m_SelectedRoom.clear();
        frame.Show("");
    });
}

void Rooms::ClearRoomViews() {
    ClearFlexGrid(desk.view.msflexRoomLines);
    desk.view.RoomUserList.Clear();
}

} // namespace ombrin
