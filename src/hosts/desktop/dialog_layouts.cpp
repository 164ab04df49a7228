#include "hosts/desktop/dialog_layouts.h"

namespace ombrin::desktop {

namespace {

using Kind = DialogRow::Kind;

const std::vector<DialogLayout>& Layouts() {
    static const std::vector<DialogLayout> kLayouts{
        {"ChooseLanguage",
         "OKButton",
         300,
         {{Kind::Wide,
           {"Radio1", "Radio2", "Radio3", "Radio4", "Radio5", "Radio6", "Radio7", "Radio8", "Radio9", "Radio10",
            "Radio11", "Radio12", "Radio13", "Radio14"}},
          {Kind::Buttons, {"OKButton", "CancelButton"}}}},
        {"Connection", "CancelButton", 380, {{Kind::Wide, {"Label1"}}, {Kind::Buttons, {"CancelButton"}}}},
        {"CreateAccount",
         "Create",
         400,
         {{Kind::Pair, {"Label1", "LogonName"}},
          {Kind::Pair, {"Label2", "Password"}},
          {Kind::Pair, {"Label3", "ConfirmPassword"}},
          {Kind::Wide, {"sbStatusBar"}},
          {Kind::Buttons, {"Create", "Cancel"}}}},
        {"ExeMainLobby",
         "ExeGameSelect",
         400,
         {{Kind::Grow, {"ExeGameList"}},
          {Kind::Pair, {"Label1", "Password"}},
          {Kind::Wide, {"RememberPasswords", "StatusBar"}},
          {Kind::Buttons, {"ExeGameSelect"}}}},
        {"LobbyFilter",
         "OK",
         440,
         {{Kind::Wide, {"Label1"}},
          {Kind::Grow, {"GameList"}},
          {Kind::Wide, {"StatusBar1"}},
          {Kind::Buttons, {"SelectAll", "ClearAll", "OK", "Cancel"}}}},
        {"NewRoom",
         "OKButton",
         340,
         {{Kind::Pair, {"Label1", "NewRoomName"}},
          {Kind::Pair, {"Label2", "MaxUsers"}},
          {Kind::Pair, {"PasswordRoom", "Password"}},
          {Kind::Buttons, {"OKButton", "CancelButton"}}}},
        {"RoomPassword",
         "OKButton",
         320,
         {{Kind::Pair, {"Label1", "Password"}}, {Kind::Buttons, {"OKButton", "CancelButton"}}}},
        // Wide enough for the columns of its lines.
        {"PMDialog",
         "PMSend",
         510,
         {{Kind::Pair, {"MessageOwner", "User"}},
          {Kind::Grow, {"msflxPMLines"}},
          {Kind::Entry, {"PrivateMessage", "PMSend"}},
          {Kind::Buttons, {"OKButton"}}}},
        {"ConfigureGame",
         "OKButton",
         580,
         {{Kind::Frames, {"Frame1"}},
          {Kind::Wide, {"DirectPlay"}, "Frame1"},
          {Kind::Pair, {"Label2", "DPGame"}, "Frame1"},
          {Kind::Wide, {"NoDirectPlay"}, "Frame1"},
          {Kind::Pair, {"Label1", "GameFile", "BrowseGames"}, "Frame1"},
          {Kind::Pair, {"Label4", "ServerOptions"}, "Frame1"},
          {Kind::Pair, {"Label6", "ClientOptions"}, "Frame1"},
          {Kind::Frames, {"Frame4", "Colors"}},
          {Kind::Buttons, {"ChangeLanguage"}, "Frame4"},
          {Kind::Pair, {"Label5", "TextColorBox", "btnTextColor"}, "Colors"},
          {Kind::Frames, {"Frame5", "Frame6"}},
          {Kind::Wide, {"DisplayIP"}, "Frame5"},
          {Kind::Wide, {"EnableChatLineSounds"}, "Frame6"},
          {Kind::Wide, {"Tracing"}},
          {Kind::Pair, {"Label3", "CurLanguage"}}, // in no group, least of all that of the filter
          {Kind::Buttons, {"About", "OKButton", "CancelButton"}}}},
        {"frmAbout",
         "cmdOK",
         400,
         {{Kind::Pictured, {"picIcon", "lblTitle", "lblVersion", "Label1"}}, {Kind::Buttons, {"cmdOK"}}}},
        {"FindingGame", "", 480, {{Kind::Wide, {"Label1"}}, {Kind::Passing, {"txtFindDir"}}}},
        {"DownloadProgress",
         "OK",
         440,
         {{Kind::Progress, {"DPLabel", "DownloadProgressBar"}}, {Kind::Buttons, {"Cancel", "OK"}}}},
        {"PauseAV", "ResumeButton", 440, {{Kind::Wide, {"Label1", "Label2"}}, {Kind::Buttons, {"ResumeButton"}}}},
    };
    return kLayouts;
}

} // namespace

const DialogLayout* LayoutOf(std::string_view form) {
    for (const DialogLayout& layout : Layouts())
        if (layout.form == form) return &layout;
    return nullptr;
}

} // namespace ombrin::desktop
