// Every key of a language section: the messages with their English texts, and the captions by the place that uses them.
#pragma once

#include <array>
#include <string_view>

namespace ombrin {

struct LanguageText {
    std::string_view key, english;
};

namespace text {

inline constexpr LanguageText kError1{"Error1", "Error: Room already exists."};
inline constexpr LanguageText kError2{"Error2", "Error: Room is not available."};
inline constexpr LanguageText kError3{"Error3", "Error: Room does not exist."};
inline constexpr LanguageText kError4{"Error4", "Error: Connection to Ardvelle failed.  User not logged on."};
inline constexpr LanguageText kError5{"Error5", "Error: Invalid password!"};
inline constexpr LanguageText kError6{"Error6", "Logon Error: Max users exceeded.  Try again later."};
inline constexpr LanguageText kError7{"Error7", "Logon Error: Invalid logon attempt."};
inline constexpr LanguageText kError8{"Error8", "Logon Error: User already logged on."};
inline constexpr LanguageText kError9{
    "Error9", "ERROR:  names or passwords cannot exceed 12 characters, and cannot contain any of the following "
              "characters: `~!@#$%^&*()-=+\\|[{]};:',<.>/?\""};
inline constexpr LanguageText kError10{"Error10", kError9.english};
inline constexpr LanguageText kError11{"Error11", "Error: passwords don't match."};
inline constexpr LanguageText kError12{"Error12", "Error: user already exists."};
inline constexpr LanguageText kError13{"Error13", "Error: create account failed."};
inline constexpr LanguageText kError14{"Error14",
                                       "Error: could not launch game.  Check path and file name in Configure dialog."};
inline constexpr LanguageText kError15{"Error15", "Socket Connection lost."};
inline constexpr LanguageText kError17{"Error17", "Host machine and HTTP port must be entered."};
inline constexpr LanguageText kError18{"Error18", "ERROR:  No longer connected to the server, data cannot be sent."};
inline constexpr LanguageText kError19{"Error19", "Error:  Password must be entered."};
inline constexpr LanguageText kError20{"Error20", "Error:  Room names cannot exceed 20 characters."};
inline constexpr LanguageText kError21{"Error21", "Error:  Room name must be entered"};
inline constexpr LanguageText kError22{"Error22", "Error: password cannot exceed 20 characters"};
inline constexpr LanguageText kError23{"Error23", "Error: Password must be entered."};
inline constexpr LanguageText kError24{"Error24", "Error:  you can't send a private message to yourself."};
inline constexpr LanguageText kError25{"Error25", kError18.english};
inline constexpr LanguageText kAccountCreated{"AccountCreated", "Account created successfully."};
inline constexpr LanguageText kRoomRejection{"RoomRejection", "You were rejected from the room."};
inline constexpr LanguageText kRoomBanned{"RoomBanned", "You are banned from this room."};
inline constexpr LanguageText kDestroyRoom{"DestroyRoom", "Are you sure you want to destroy this room?"};
inline constexpr LanguageText kRemoveBuddy{"RemoveBuddy", "Are you sure you want to remove this buddy?"};
inline constexpr LanguageText kEnterBuddyName{"EnterBuddyName", "Enter new buddy name:"};
inline constexpr LanguageText kBuddyNamesContain{"BuddyNamesContain",
                                                 "ERROR:  Buddy names cannot contain any of the following characters: "
                                                 "`~!@#$%^&*()-=+\\|[{]};:',<.>/?\""};
inline constexpr LanguageText kDownloadRequired{
    "DownloadRequired", "In order to continue a required download is available.  Download now?"};
inline constexpr LanguageText kDownloadCanceled{
    "DownloadCanceled", "Download canceled.  This is a required download, if you wish to use this server in the "
                        "future you must reconnect and download this update."};
inline constexpr LanguageText kDownloadComplete{"DownloadComplete",
                                                "Download complete.  This program will restart and patch itself."};
inline constexpr LanguageText kDownloadingFile1{"DownloadingFile1", "Downloading file 1 of"};
inline constexpr LanguageText kDownloadingFile{"DownloadingFile", "Downloading file"};
inline constexpr LanguageText kOf{"Of", "of"};
// What the check and the transfer of files say of their own: first what follows, then why.
inline constexpr LanguageText kUpdateNotUsable{
    "UpdateNotUsable", "The list of files from the server cannot be used, and nothing is downloaded."};
inline constexpr LanguageText kUpdateNotAsSigned{
    "UpdateNotAsSigned", "What was downloaded is not what was signed, and nothing of it was put in place."};
inline constexpr LanguageText kUpdateNotAllInPlace{
    "UpdateNotAllInPlace", "Not all files could be put in place.  This one and those after it are missing."};
inline constexpr LanguageText kUpdateNoConnection{"UpdateNoConnection", "The update server cannot be reached."};
inline constexpr LanguageText kUpdateBadName{"UpdateBadName", "this is no plain file name."};
inline constexpr LanguageText kUpdateBadDirectory{"UpdateBadDirectory", "its directory does not exist."};
inline constexpr LanguageText kUpdateNoClientDirectory{"UpdateNoClientDirectory",
                                                       "the settings name no ClientDirectory."};
inline constexpr LanguageText kUpdateBadSize{"UpdateBadSize", "its size is below zero."};
inline constexpr LanguageText kUpdateTooManyFiles{"UpdateTooManyFiles", "the list is too long."};
inline constexpr LanguageText kUpdateNamesMeet{"UpdateNamesMeet",
                                               "its temporary name is the name of another file of the list."};
inline constexpr LanguageText kUpdateNoSpace{"UpdateNoSpace", "there is not enough room on the disk."};
inline constexpr LanguageText kUpdateBadKey{"UpdateBadKey", "the setting UpdateKey holds no key."};
inline constexpr LanguageText kUpdateNoSums{"UpdateNoSums", "the server offers no signed sums."};
inline constexpr LanguageText kUpdateBadSums{"UpdateBadSums", "the signed sums cannot be read."};
inline constexpr LanguageText kUpdateBadSignature{"UpdateBadSignature", "the signature does not fit the key."};
inline constexpr LanguageText kUpdateOtherVersion{"UpdateOtherVersion", "the list promised another version."};
inline constexpr LanguageText kUpdateNotNamed{"UpdateNotNamed", "the signed sums do not name it."};
inline constexpr LanguageText kUpdateNotThere{"UpdateNotThere", "it is missing or cannot be read."};
inline constexpr LanguageText kUpdateTooShort{"UpdateTooShort", "it is too short."};
inline constexpr LanguageText kUpdateTooLong{"UpdateTooLong", "it is too long."};
inline constexpr LanguageText kUpdateOtherContent{"UpdateOtherContent", "its content is another one."};
inline constexpr LanguageText kUpdateNoCopy{"UpdateNoCopy", "it could not be written."};
// What the patcher says when the client is gone.
inline constexpr LanguageText kPatchWaits{"PatchWaits", "The update waits for Ombrin to end."};
inline constexpr LanguageText kPatchStillRunning{
    "PatchStillRunning", "The update was not put in place, as Ombrin is still running. End it; the update is offered "
                         "again when you next log on."};
inline constexpr LanguageText kPatchNoStart{"PatchNoStart", "Ombrin could not be started."};
inline constexpr LanguageText kPatchOldRuns{
    "PatchOldRuns", "The update failed. The old files are back in place and Ombrin was started again."};
inline constexpr LanguageText kPatchOldFails{
    "PatchOldFails", "The update failed. The old files are back in place, but Ombrin does not start."};
inline constexpr LanguageText kPatchNotBack{
    "PatchNotBack", "The update failed, and the old files could not be put back. Start OBPatch again."};
inline constexpr LanguageText kPatchUntidy{"PatchUntidy", "The update is in place, but not everything is tidied up."};
inline constexpr LanguageText kReady{"Ready", "Ready"};
inline constexpr LanguageText kInvalidLobbyPassword{"InvalidLobbyPassword", "Invalid lobby password"};
inline constexpr LanguageText kAutoStart{"AutoStart", "Auto-start not configured. Press 'Configure' to set."};

} // namespace text

inline constexpr std::array kMessageTexts{
    text::kError1,
    text::kError2,
    text::kError3,
    text::kError4,
    text::kError5,
    text::kError6,
    text::kError7,
    text::kError8,
    text::kError9,
    text::kError10,
    text::kError11,
    text::kError12,
    text::kError13,
    text::kError14,
    text::kError15,
    text::kError17,
    text::kError18,
    text::kError19,
    text::kError20,
    text::kError21,
    text::kError22,
    text::kError23,
    text::kError24,
    text::kError25,
    text::kAccountCreated,
    text::kRoomRejection,
    text::kRoomBanned,
    text::kDestroyRoom,
    text::kRemoveBuddy,
    text::kEnterBuddyName,
    text::kBuddyNamesContain,
    text::kDownloadRequired,
    text::kDownloadCanceled,
    text::kDownloadComplete,
    text::kDownloadingFile1,
    text::kDownloadingFile,
    text::kOf,
    text::kUpdateNotUsable,
    text::kUpdateNotAsSigned,
    text::kUpdateNotAllInPlace,
    text::kUpdateNoConnection,
    text::kUpdateBadName,
    text::kUpdateBadDirectory,
    text::kUpdateNoClientDirectory,
    text::kUpdateBadSize,
    text::kUpdateTooManyFiles,
    text::kUpdateNamesMeet,
    text::kUpdateNoSpace,
    text::kUpdateBadKey,
    text::kUpdateNoSums,
    text::kUpdateBadSums,
    text::kUpdateBadSignature,
    text::kUpdateOtherVersion,
    text::kUpdateNotNamed,
    text::kUpdateNotThere,
    text::kUpdateTooShort,
    text::kUpdateTooLong,
    text::kUpdateOtherContent,
    text::kUpdateNoCopy,
    text::kPatchWaits,
    text::kPatchStillRunning,
    text::kPatchNoStart,
    text::kPatchOldRuns,
    text::kPatchOldFails,
    text::kPatchNotBack,
    text::kPatchUntidy,
    text::kReady,
    text::kInvalidLobbyPassword,
    text::kAutoStart,
};

struct CaptionKey {
    std::string_view place;   ///< the form, or the main view
    std::string_view control; ///< empty for the form's title; a word where it belongs to no control
    std::string_view key;
};

/// "Rooms", "User", "Says" and "Users" of the main view blank a heading instead of translating it.
inline constexpr std::array kCaptionKeys{
    CaptionKey{"GameLobby", "Enter", "Enter"},
    CaptionKey{"GameLobby", "Create", "Create"},
    CaptionKey{"GameLobby", "SendMain", "SendLobby"},
    CaptionKey{"GameLobby", "PM", "PrivateMessage"},
    CaptionKey{"GameLobby", "Logoff", "Leave"},
    CaptionKey{"GameLobby", "SendRoom", "SendRoom"},
    CaptionKey{"GameLobby", "Launch", "Launch"},
    CaptionKey{"GameLobby", "Destroy", "Destroy"},
    CaptionKey{"GameLobby", "Configure", "Configure"},
    CaptionKey{"GameLobby", "Leave", "LeaveRoom"},
    CaptionKey{"UserMenu", "PMMenu", "PrivateMessage"},
    CaptionKey{"UserMenu", "IgnoreUser", "Ignore"},
    CaptionKey{"UserMenu", "UnignoreUser", "UnIgnore"},
    CaptionKey{"UserMenu", "AddBuddy", "AddBuddy"},
    CaptionKey{"RoomMenu", "EnterRoomMenu", "Enter"},
    CaptionKey{"RoomMenu", "JoinServerAndPlay", "JoinServerAndPlay"},
    CaptionKey{"RoomUsersMenu", "RejectUserMenu", "Reject"},
    CaptionKey{"Connection", "", "Connecting"},
    CaptionKey{"Connection", "Label1", "ConnectingToServer"},
    CaptionKey{"Connection", "CancelButton", "Cancel"},
    CaptionKey{"CreateAccount", "", "CreateAccount"},
    CaptionKey{"CreateAccount", "Create", "Create"},
    CaptionKey{"CreateAccount", "Cancel", "Cancel"},
    CaptionKey{"CreateAccount", "Label1", "LogonName"},
    CaptionKey{"CreateAccount", "Label2", "Password"},
    CaptionKey{"CreateAccount", "Label3", "ConfirmPassword"},
    CaptionKey{"PauseAV", "", "GameLaunched"},
    CaptionKey{"PauseAV", "ResumeButton", "Resume"},
    CaptionKey{"PauseAV", "Label1", "ArdvellePaused"},
    CaptionKey{"PauseAV", "Label2", "AutoCreatorDP"},
    CaptionKey{"PauseAV", "Label2", "AutoCreatorNoDP"},
    CaptionKey{"PauseAV", "Label2", "AutoNotCreatorDP"},
    CaptionKey{"PauseAV", "Label2", "AutoNotCreatorNoDP"},
    CaptionKey{"PauseAV", "Label2", "NoAutoCreator"},
    CaptionKey{"PauseAV", "Label2", "NoAutoNotCreator"},
    CaptionKey{"UsrNmPwIP", "", "ArdvelleConnect"},
    CaptionKey{"UsrNmPwIP", "Label1", "LogonName"},
    CaptionKey{"UsrNmPwIP", "Label2", "Password"},
    CaptionKey{"UsrNmPwIP", "Label3", "HostMachine"},
    CaptionKey{"UsrNmPwIP", "Label4", "HTTPPort"},
    CaptionKey{"UsrNmPwIP", "Connect", "Connect"},
    CaptionKey{"UsrNmPwIP", "NewAccount", "CreateAccount"},
    CaptionKey{"UsrNmPwIP", "CloseButton", "Close"},
    CaptionKey{"RoomPassword", "", "RoomPassword"},
    CaptionKey{"RoomPassword", "Label1", "Password"},
    CaptionKey{"RoomPassword", "OKButton", "OK"},
    CaptionKey{"RoomPassword", "CancelButton", "Cancel"},
    CaptionKey{"PMDialog", "", "PrivateMessage"},
    CaptionKey{"PMDialog", "MessageOwner", "MessageTo"},
    CaptionKey{"PMDialog", "PMSend", "Send"},
    CaptionKey{"PMDialog", "OKButton", "Close"},
    CaptionKey{"NewRoom", "", "NewRoom"},
    CaptionKey{"NewRoom", "Label1", "RoomName"},
    CaptionKey{"NewRoom", "Label2", "MaxUsers"},
    CaptionKey{"NewRoom", "PasswordRoom", "Password"},
    CaptionKey{"NewRoom", "OKButton", "OK"},
    CaptionKey{"NewRoom", "CancelButton", "Cancel"},
    CaptionKey{"ExeMainLobby", "", "ArdvelleGameSelection"},
    CaptionKey{"ExeMainLobby", "ExeGameSelect", "Select"},
    CaptionKey{"ExeMainLobby", "Label1", "Password"},
    CaptionKey{"ExeMainLobby", "RememberPasswords", "RememberPasswords"},
    CaptionKey{"ConfigureGame", "", "Configure"},
    CaptionKey{"ConfigureGame", "Frame1", "HowToLaunchGames"},
    CaptionKey{"ConfigureGame", "Frame4", "Language"},
    CaptionKey{"ConfigureGame", "OKButton", "OK"},
    CaptionKey{"ConfigureGame", "CancelButton", "Cancel"},
    CaptionKey{"ConfigureGame", "About", "About"},
    CaptionKey{"ConfigureGame", "BrowseGames", "Browse"},
    CaptionKey{"ConfigureGame", "ChangeLanguage", "Change"},
    CaptionKey{"ConfigureGame", "NoDirectPlay", "DoNotUseDirectPlay"},
    CaptionKey{"ConfigureGame", "DirectPlay", "UseDirectPlay"},
    CaptionKey{"ConfigureGame", "Label1", "GameFile"},
    CaptionKey{"ConfigureGame", "Label2", "DirectPlayGame"},
    CaptionKey{"ConfigureGame", "Label3", "CurrentLanguage"},
    CaptionKey{"ConfigureGame", "Label4", "ServerOptions"},
    CaptionKey{"ConfigureGame", "Label6", "ClientOptions"},
    CaptionKey{"ConfigureGame", "Frame5", "IPAddress"},
    CaptionKey{"ConfigureGame", "DisplayIP", "DisplayIP"},
    CaptionKey{"ConfigureGame", "Tracing", "Tracing"},
    CaptionKey{"ChooseLanguage", "", "ChooseLanguage"},
    CaptionKey{"ChooseLanguage", "OKButton", "OK"},
    CaptionKey{"ChooseLanguage", "CancelButton", "Cancel"},
    CaptionKey{"DownloadProgress", "", "DownloadProgress"},
};

/// Keys of a section that stand for no caption of one control.
inline constexpr std::array<std::string_view, 6> kWordKeys{"Rooms", "User", "Says", "Users", "Room", "Lobby"};

} // namespace ombrin
