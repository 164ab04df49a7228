// Texts that are the window's own, in the languages that the client ships with.
#pragma once

#include <QString>
#include <functional>
#include <string>

namespace ombrin::desktop {

enum class Own {
    Waiting,
    Creating, ///< what is waited for, by the user's position
    Entering,
    Leaving,
    Destroying,
    Launching,
    UpdateServer,
    UpdateLeft,
    InARoom, ///< what the pictures of the lists say
    InAGame,
    GameRuns,
    NeedsPassword,
    FastAnswers,
    MiddlingAnswers,
    SlowAnswers,
    YourMessage,
    CannotBeSent,
    OpenLink,
    OpenThisAddress,
    ChooseFile, ///< titles
    ChooseColour,
    Ok,
    Cancel,
    Open,
    Yes,
    No,
    Refused,     ///< %1 the host, %2 the port
    UnknownHost, ///< %1 the host
    Unreachable, ///< %1 the host
    TimedOut,    ///< %1 the host
    ConnectionLost,
    NoAnswer,
    LogOnAgain,
    HideBar,
    MessageFrom, ///< %1 the sender
    BuddyHere,   ///< %1 his name
    InLobby,     ///< %1 the lobby
    ShowWindow,
    News, ///< what the built-in pictures of buttons say
    Files,
    Ladders,
    Depot,
    Players,
    AddBuddy,
    RemoveBuddy,
    SkinsOfOmbrin, ///< the window of ombrin-skin, and what it says
    UseSkin,
    BuiltInLook,
    Close,
    SkinInUse, ///< %1 its name
    AtNextStart,
    NoSkins,
};

/// How the language in force is read, as UTF-8; set once by the program.
void SetOwnLanguage(std::function<std::string()> current);

/// English where the language is no other that is known here.
QString Say(Own text);

} // namespace ombrin::desktop
