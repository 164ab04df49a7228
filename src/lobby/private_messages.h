// Private messages: what comes, and the ways in which a user opens the dialog.
#pragma once

#include "lobby/chat.h"
#include "lobby/notices.h"
#include "lobby/pm_dialog.h"

#include <string>

namespace ombrin {

class PrivateMessages {
public:
    /// `appPath` is the program's directory, to which the setting for the sound is appended as it stands.
    PrivateMessages(Desk desk, PMDialog& dialog, IgnoredUsers& ignored, Chat& chat, Notices& notices, Sound& sound,
                    std::string appPath);

    /// `<sender>;`, then chat lines `<sender>:<text>:;`.
    void ReceivePrivateMessage(std::string_view data);
    /// Prepares the dialog for its recipient and shows it: beside the view in stand-alone mode, else over it.
    void DisplayPMDialog();
    /// Addresses the dialog to the selected row's user, to nobody when that is the user himself, and shows it.
    void DisplayPMDialog(const std::string& selectedName);

private:
    void PM_Click();
    void AllUsersPM_Click();
    void PMTimer_Timer();
    void PrepareDialog();
    void PlayArrival();
    void ShowDialog();

    Desk desk;
    PMDialog& dialog;
    IgnoredUsers& ignored;
    Chat& chat;
    Notices& notices;
    Sound& sound;
    std::string appPath;
    bool g_PMShowPending = false; ///< a message could not show the dialog yet
};

} // namespace ombrin
