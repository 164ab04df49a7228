#include "lobby/private_messages.h"

#include "foundation/text.h"
#include "session/wire/codec.h"

namespace ombrin {

PrivateMessages::PrivateMessages(Desk desk, PMDialog& dialog, IgnoredUsers& ignored, Chat& chat, Notices& notices,
                                 Sound& sound, std::string appPath)
    : desk(desk), dialog(dialog), ignored(ignored), chat(chat), notices(notices), sound(sound),
      appPath(std::move(appPath)) {
    View& view = desk.view;
    view.PM.Click = [this] { PM_Click(); };
    view.PMMenu.Click = [this] {
        this->desk.TraceMessage("PMMenu clicked");
        PM_Click();
    };
    view.UserList.DblClick = [this] {
        this->desk.TraceMessage("user list double clicked");
        PM_Click();
    };
    view.AllUsersPMMenu.Click = [this] { AllUsersPM_Click(); };
    view.lbAllUsers.DblClick = [this] { AllUsersPM_Click(); };
    view.PMTimer.Tick = [this] { PMTimer_Timer(); };
}

void PrivateMessages::PM_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Private Message pressed");
        DisplayPMDialog(desk.view.UserList.SelectedText());
    });
}

void PrivateMessages::AllUsersPM_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Private Message pressed from all user list");
        DisplayPMDialog(desk.view.lbAllUsers.SelectedText());
    });
}

void PrivateMessages::DisplayPMDialog(const std::string& selectedName) {
    dialog.Recipient = selectedName == desk.session.m_UserName ? std::string() : selectedName;
    DisplayPMDialog();
}

void PrivateMessages::DisplayPMDialog() {
    desk.trap(__func__, [&] {
        PrepareDialog();
        dialog.User.SetList({desk.settings.GetSetting("PMUsers", "PMUser")});
        dialog.User.SetText(dialog.Recipient);
        ShowDialog();
    });
}

void PrivateMessages::PrepareDialog() {
    dialog.Socket = &desk.link;
    dialog.UserData = desk.session.m_UserData;
    dialog.OwnName = desk.session.m_UserName;
    dialog.EnsureLoaded();
}

void PrivateMessages::ShowDialog() {
    if (desk.session.m_StandAlone)
        dialog.Show();
    else if (!dialog.Visible())
        dialog.ShowModal();
}

void PrivateMessages::ReceivePrivateMessage(std::string_view data) {
    desk.trap(__func__, [&] {
        desk.TraceMessage("private message received");
        const std::string sender(GetCommand(data, kFieldEnd));
        std::string_view line = GetCommand(data, kFieldEnd);
        if (ignored.UserIgnored(sender)) return;
        PrepareDialog();
        if (sender != desk.session.m_UserName) {
            dialog.SetRecipient(sender);
            std::string_view first = line;
            GetCommand(first, kCodeEnd); // the sender once more
            notices.Tell(Notice::PrivateMessage, sender, DecodeData(GetCommand(first, kCodeEnd)));
        }
        if (!dialog.Visible()) PlayArrival();
        for (; !line.empty(); line = GetCommand(data, kFieldEnd))
            chat.AddLineToFlexGrid(dialog.msflxPMLines, line, false);
        try {
            ShowDialog();
        } catch (const RuntimeError& error) {
            if (!error.Is(ErrorNumber::ModelessUnderModal)) throw;
            desk.view.PMTimer.SetOn(true);
            g_PMShowPending = true;
        }
    });
}

void PrivateMessages::PlayArrival() {
    const std::string own = desk.profile.ReadIniValue("av.ini", "Sounds", "PMSound");
    sound.Play(own.empty() ? std::string("PMRecved.wav") : Join(appPath, own));
}

/// Tries until the modal form is gone.
void PrivateMessages::PMTimer_Timer() {
    desk.trap(__func__, [&] {
        if (!g_PMShowPending) return;
        try {
            dialog.Show();
        } catch (const RuntimeError& error) {
            if (error.Is(ErrorNumber::ModelessUnderModal)) return;
            throw;
        }
        g_PMShowPending = false;
        desk.view.PMTimer.SetOn(false);
    });
}

} // namespace ombrin
