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
