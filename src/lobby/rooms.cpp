#include "lobby/rooms.h"

#include "controls/grid_routines.h"
#include "controls/user_input.h"
#include "foundation/text.h"
#include "session/wire/client_message.h"
#include "session/wire/codec.h"

namespace ombrin {

Rooms::Rooms(Desk desk, RoomDialogs dialogs, RoomPosition& position, RoomFrame frame, Pinger& pinger, Sound& sound)
    : desk(desk), dialogs(dialogs), position(position), frame(frame), pinger(pinger), sound(sound),
      roomLimit(desk.trap.log, "rooms"), userLimit(desk.trap.log, "users of a room") {
    View& view = desk.view;
    view.Create.Click = [this] { Create_Click(); };
    view.Enter.Click = [this] { Enter_Click(); };
    view.EnterRoomMenu.Click = [this] {
        this->desk.TraceMessage("Enter room menu clicked");
        Enter_Click();
    };
    view.RoomList.DblClick = [this] {
        this->desk.TraceMessage("Room list double clicked");
        Enter_Click();
    };
    view.Leave.Click = [this] { Leave_Click(); };
    view.Destroy.Click = [this] { Destroy_Click(); };
    view.RoomList.ItemClick = [this] { RoomList_ItemClick(); };
    view.RoomList.MouseUp = [this](int button) { RoomList_MouseUp(button); };
    view.RoomUserList.MouseUp = [this](int button) { RoomUserList_MouseUp(button); };
    view.RejectUserMenu.Click = [this] { RejectUserMenu_Click(); };
    view.CleanUpTimer.Tick = [this] { CleanUpTimer_Timer(); };
}

// Into a room

void Rooms::Create_Click() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        const auto epoch = desk.link.Epoch();
        position.Take(RoomEvent::CreatePressed);
        NewRoom& dialog = dialogs.newRoom;
        dialog.ShowModal();
        if (desk.link.Epoch() != epoch) return;
        const std::string name = dialog.NewRoomName.Text();
        if (name.empty()) {
            position.Take(RoomEvent::NamingCancelled);
            return;
        }
        session.m_CurrentRoom = name;
        desk.TraceMessage(Join("Create room pressed creating room: ", name));
        position.Take(RoomEvent::NamingConfirmed);
        desk.link.SendData(client_message::CreateRoom(session.m_UserData, name, Trim(dialog.MaxUsers.Text()),
                                                      dialog.PasswordRoom.On() ? "1" : "0", dialog.Password.Text(),
                                                      PublicIP()));
    });
}

void Rooms::RoomCreated() {
    desk.trap(__func__, [&] {
        desk.TraceMessage(Join("room ", desk.session.m_CurrentRoom, " created"));
        position.Take(RoomEvent::RoomCreated);
        frame.Show(desk.session.m_CurrentRoom);
        desk.view.PingTimer.SetOn(true);
        ClearRoomViews();
        desk.session.m_IsRoomCreator = true;
    });
}

void Rooms::CreateRefused() {
    desk.session.m_CurrentRoom.clear();
    position.Take(RoomEvent::CreateRefused);
    desk.messages.DisplayMessage(text::kError1);
}

void Rooms::Enter_Click() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        desk.TraceMessage("Enter room pressed");
        if (!session.m_CurrentRoom.empty()) {
            desk.TraceMessage("Error, tried to enter a room but your current room is not NULL");
            return;
        }
        if (desk.view.RoomList.rows.Count() == 0) return;
        const std::string name = SelectedRoomName();
        if (name.empty()) return;
        session.m_CurrentRoom = name;
        position.Take(RoomEvent::EnterPressed);
        desk.link.SendData(client_message::EnterRoom(session.m_UserData, name, PublicIP()));
    });
}

void Rooms::RoomEntered(std::string_view data) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("room entered");
        const std::string_view creator = GetCommand(data, kFieldEnd);
        position.Take(RoomEvent::RoomEntered);
        frame.Show(desk.session.m_CurrentRoom);
        const RowList& rows = desk.view.RoomUserList.rows;
        if (const RowId row = rows.Find(creator)) {
            std::string_view tag = rows.Tag(row);
            desk.session.m_RoomHostAddress = GetCommand(tag, kFieldEnd);
        }
        desk.view.PingTimer.SetOn(true);
        desk.view.msflexRoomLines.SetRows(2);
        desk.view.msflexRoomLines.SetRow(1);
        pinger.PingTimer_Timer();
    });
}

void Rooms::PasswordRefused() {
    const auto epoch = desk.link.Epoch();
    desk.messages.DisplayMessage(text::kError5);
    if (desk.link.Epoch() == epoch) ProcessRoomPassword();
}

void Rooms::ProcessRoomPassword() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        const auto epoch = desk.link.Epoch();
        desk.TraceMessage("processing room password");
        position.Take(RoomEvent::PasswordAsked);
        dialogs.password.ShowModal();
        if (desk.link.Epoch() != epoch) return;
        if (dialogs.password.Cancelled) {
            session.m_CurrentRoom.clear();
            position.Take(RoomEvent::PasswordCancelled);
            return;
        }
        position.Take(RoomEvent::PasswordGiven);
        desk.link.SendData(client_message::EnterPasswordRoom(session.m_UserData, session.m_CurrentRoom,
                                                             dialogs.password.Password.Text()));
    });
}

void Rooms::EnterRefused(const LanguageText& why) {
    const auto epoch = desk.link.Epoch();
    desk.messages.DisplayMessage(why);
    if (desk.link.Epoch() != epoch) return;
    position.Take(RoomEvent::EnterRefused);
    desk.session.m_CurrentRoom.clear();
}

void Rooms::Banned() {
    desk.session.m_CurrentRoom.clear();
    position.Take(RoomEvent::EnterRefused);
    sound.Play("");
    desk.messages.DisplayMessage(text::kRoomBanned);
}

// Out of it

void Rooms::Leave_Click() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        const auto epoch = desk.link.Epoch();
        desk.TraceMessage("leaving room");
        desk.link.SendData(client_message::LeaveRoom(session.m_UserData, session.m_CurrentRoom));
        if (desk.link.Epoch() != epoch) return;
        position.Take(RoomEvent::LeavePressed);
        session.m_CurrentRoom.clear(); // lines that still arrive make no sound
    });
}

void Rooms::LeaveRoom() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("room left");
        Disappear(RoomEvent::LeaveRoom);
    });
}

void Rooms::Destroy_Click() {
    desk.trap(__func__, [&] {
        Session& session = desk.session;
        const auto epoch = desk.link.Epoch();
        desk.TraceMessage("Destroy room pressed");
        if (desk.messages.DisplayMessage(text::kDestroyRoom, BoxButtons::YesNo) != BoxResult::Yes) return;
        if (desk.link.Epoch() != epoch) return;
        desk.link.SendData(client_message::DestroyRoom(session.m_UserData, session.m_CurrentRoom));
        if (desk.link.Epoch() != epoch) return;
        session.m_CurrentRoom.clear();
        position.Take(RoomEvent::DestroyPressed);
    });
}

void Rooms::DestroyRoom() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("room destroyed");
        Disappear(RoomEvent::DestroyRoom);
        desk.session.m_IsRoomCreator = false;
    });
    desk.session.m_CurrentRoom.clear();
}

void Rooms::Rejected() {
    desk.session.m_CurrentRoom.clear();
    LeaveRoom();
    sound.Play("");
    desk.messages.DisplayMessage(text::kRoomRejection);
}

void Rooms::Disappear(RoomEvent how) {
    position.Take(how);
    frame.Show("");
    ClearRoomViews();
    desk.view.RoomText.SetText("");
    desk.view.PingTimer.SetOn(false);
}

void Rooms::RoomUserList_MouseUp(int button) {
    desk.TraceMessage("Room user list mouse up");
    View& view = desk.view;
    const ListView& list = view.RoomUserList;
    const Session& session = desk.session;
    if (button == UserInput::kRight && list.rows.Count() > 0 && !session.m_CurrentRoom.empty() &&
        session.m_IsRoomCreator && list.rows.Text(list.SelectedItem()) != session.m_UserName)
        view.PopUp(view.RoomUsersMenu);
}

void Rooms::RejectUserMenu_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Reject User Menu clicked");
        const ListView& list = desk.view.RoomUserList;
        desk.link.SendData(client_message::RejectUser(desk.session.m_UserData, desk.session.m_CurrentRoom,
                                                      list.rows.Text(list.SelectedItem())));
    });
}

} // namespace ombrin
