// The main view: every control that a user has before him once he is logged on, by name.
#pragma once

#include "controls/flex_grid.h"
#include "controls/list_models.h"
#include "controls/menu.h"
#include "controls/page.h"
#include "controls/simple_models.h"
#include "controls/timer.h"

namespace ombrin {

/// Captions, limits and states as the view starts with them. What a control does is set by the area that owns it; one
/// that nobody has taken on does nothing.
class View : public Page {
public:
    explicit View(Alarms& alarms);

    /// A lobby row `<name> : <count>` is found by its name.
    static std::string_view LobbyKey(std::string_view text);
    /// A room row `<name> (<users>/<max>)` is found by its name.
    static std::string_view RoomKey(std::string_view text);

private:
    Alarms& alarms;

public:
    // Lists
    ListBox lbLobbies{*this, "lbLobbies", {.keyOf = LobbyKey}};
    ListBox lbAllUsers{*this, "lbAllUsers", {.sorted = true}};
    ListView UserList{*this, "UserList", {"Users"}};
    ListView RoomList{*this, "RoomList", {"Rooms"}, RoomKey};
    ListView RoomUserList{*this, "RoomUserList", {"Users"}};
    ListView BuddyLV{*this, "BuddyLV", {"Buddies", "Status", "SortBuddies"}};

    // Chat
    FlexGrid msflxMainChatLines{*this, "msflxMainChatLines"};
    TextBox MainText{*this, "MainText", {}};
    Button SendMain{*this, "SendMain", "Send", ButtonPictures::BuiltIn()};
    FlexGrid msflexRoomLines{*this, "msflexRoomLines"};
    TextBox RoomText{*this, "RoomText", {}};
    Button SendRoom{*this, "SendRoom", "Send", ButtonPictures::BuiltIn()};
    TextBox HiddenTextBox{*this, "HiddenTextBox", {}};

    // The column of buttons
    Button Create{*this, "Create", "Create", ButtonPictures::BuiltIn()};
    Button Destroy{*this, "Destroy", "Destroy", ButtonPictures::BuiltIn()};
    Button Enter{*this, "Enter", "Enter", ButtonPictures::BuiltIn()};
    Button Leave{*this, "Leave", "Leave", ButtonPictures::BuiltIn()};
    Button Launch{*this, "Launch", "Launch", ButtonPictures::BuiltIn()};
    Button PM{*this, "PM", "Private Message", ButtonPictures::BuiltIn()};
    Button btnAddBuddy{*this, "btnAddBuddy", "Add Buddy", ButtonPictures::BuiltIn()};
    Button btnRemoveBuddy{*this, "btnRemoveBuddy", "Remove Buddy", ButtonPictures::BuiltIn()};
    Button btnConfigurable1{*this, "btnConfigurable1", "", ButtonPictures::BuiltIn()};
    Button btnConfigurable2{*this, "btnConfigurable2", "", ButtonPictures::BuiltIn()};
    Button btnConfigurable3{*this, "btnConfigurable3", "", ButtonPictures::BuiltIn()};
    Button btnConfigurable4{*this, "btnConfigurable4", "", ButtonPictures::BuiltIn()};
    Button btnConfigurable5{*this, "btnConfigurable5", "", ButtonPictures::BuiltIn()};

    // Other buttons
    Button Configure{*this, "Configure", "Configure"};
    Button Logoff{*this, "Logoff", "Change Lobby"};

    // Labels and pictures
    Label LobbiesLabel{*this, "LobbiesLabel", "Lobbies"};
    Label LobbyUsersLabel{*this, "LobbyUsersLabel", "Lobby Users"};
    Label RoomsLabel{*this, "RoomsLabel", "Rooms"};
    Label RoomUsersLabel{*this, "RoomUsersLabel", "Room Users"};
    Label BuddiesLabel{*this, "BuddiesLabel", "Buddies"};
    Label ChatFrame{*this, "ChatFrame", "Lobby"};
    Label RoomBorder{*this, "RoomBorder", "Room:"};
    Label ConfigWarning{*this, "ConfigWarning"};
    Image Logo{*this, "Logo"};
    Image PoweredBy{*this, "PoweredBy"};
    Image Image1{*this, "Image1"};
    Image OBSkin{*this, "OBSkin"};
    Image AVBrand{*this, "AVBrand"};
    WebBrowser BannerAd{*this, "BannerAd"};

    // Menus
    MenuEntry PMMenu{*this, "PMMenu", "&Send Private Messaage..."};
    MenuEntry IgnoreUser{*this, "IgnoreUser", "&Ignore"};
    MenuEntry UnignoreUser{*this, "UnignoreUser", "&Unignore"};
    MenuEntry AddBuddy{*this, "AddBuddy", "&Add Buddy"};
    Menu UserMenu{*this, "UserMenu", {&PMMenu, &IgnoreUser, &UnignoreUser, &AddBuddy}};
    MenuEntry EnterRoomMenu{*this, "EnterRoomMenu", "&Enter Room"};
    MenuEntry JoinServerAndPlay{*this, "JoinServerAndPlay", "&Join game in progress..."};
    Menu RoomMenu{*this, "RoomMenu", {&EnterRoomMenu, &JoinServerAndPlay}};
    MenuEntry RejectUserMenu{*this, "RejectUserMenu", "Reject"};
    Menu RoomUsersMenu{*this, "RoomUsersMenu", {&RejectUserMenu}};
    MenuEntry EnterLobby{*this, "EnterLobby", "&Enter lobby"};
    Menu GamesMenu{*this, "GamesMenu", {&EnterLobby}};
    MenuEntry AllUsersPMMenu{*this, "AllUsersPMMenu", "&Private message..."};
    MenuEntry AddAllUsersBuddy{*this, "AddAllUsersBuddy", "&Add buddy"};
    Menu AllUsersMenu{*this, "AllUsersMenu", {&AllUsersPMMenu, &AddAllUsersBuddy}};
    MenuEntry RemoveBuddy{*this, "RemoveBuddy", "&Remove buddy"};
    MenuEntry BuddyPMMenu{*this, "BuddyPMMenu", "&Send Private Message..."};
    Menu BuddyMenu{*this, "BuddyMenu", {&RemoveBuddy, &BuddyPMMenu}};

    // Timers
    Timer HeartBeatTimer{*this, alarms, "HeartBeatTimer", Milliseconds(60000), true};
    Timer CleanUpTimer{*this, alarms, "CleanUpTimer", Milliseconds(5000), true};
    Timer PingTimer{*this, alarms, "PingTimer", Milliseconds(30000), false};
    Timer PMTimer{*this, alarms, "PMTimer", Milliseconds(15), false};
    Timer BannerTimer{*this, alarms, "BannerTimer", Milliseconds(3000), false};
};

} // namespace ombrin
