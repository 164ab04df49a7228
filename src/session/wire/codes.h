// Every code of the lobby protocol, both directions. The two number spaces have nothing to do with each other. Codes
// are compared as texts: "01" is no code.
#pragma once

#include <array>
#include <string_view>

namespace ombrin {

struct CodeName {
    std::string_view code;
    std::string_view name; ///< for logs and tests
};

/// From the server. 6, 16 and 26 do not exist.
inline constexpr std::array kServerCodeNames{
    CodeName{"0", "users of the lobby"},
    CodeName{"1", "lobby chat lines"},
    CodeName{"2", "rooms of the lobby"},
    CodeName{"3", "users of a room"},
    CodeName{"4", "room chat lines"},
    CodeName{"5", "room created"},
    CodeName{"7", "room entered"},
    CodeName{"8", "user left the room"},
    CodeName{"9", "room left"},
    CodeName{"10", "room destroyed"},
    CodeName{"11", "room gone from the lobby"},
    CodeName{"12", "launch the game"},
    CodeName{"13", "status of users"},
    CodeName{"14", "status of rooms"},
    CodeName{"15", "user left the lobby"},
    CodeName{"17", "room exists already"},
    CodeName{"18", "room not available"},
    CodeName{"19", "room does not exist"},
    CodeName{"20", "not logged on"},
    CodeName{"21", "lobby set"},
    CodeName{"22", "lobby list"},
    CodeName{"23", "server full"},
    CodeName{"24", "invalid logon"},
    CodeName{"25", "already logged on"},
    CodeName{"27", "account created"},
    CodeName{"28", "bad account name"},
    CodeName{"29", "bad account password"},
    CodeName{"30", "passwords differ"},
    CodeName{"31", "account exists"},
    CodeName{"32", "account not stored"},
    CodeName{"33", "wrong room password"},
    CodeName{"34", "room password needed"},
    CodeName{"35", "private message"},
    CodeName{"36", "general message"},
    CodeName{"37", "banners"},
    CodeName{"38", "no change of lobby"},
    CodeName{"39", "DirectPlay games"},
    CodeName{"40", "Direct IP game"},
    CodeName{"41", "buddies"},
    CodeName{"42", "rejected from the room"},
    CodeName{"43", "banned from the room"},
    CodeName{"44", "ignored"},
    CodeName{"45", "address of the client"},
    CodeName{"46", "lobby password refused"},
    CodeName{"47", "users of the service"},
    CodeName{"48", "user came to a lobby"},
    CodeName{"49", "user went from a lobby"},
    CodeName{"50", "required files"},
};

/// From the client; 24, 25 and 27 on the file-transfer connection.
inline constexpr std::array kClientCodeNames{
    CodeName{"0", "lobby names"},
    CodeName{"2", "enter a lobby"},
    CodeName{"3", "lobby chat line"},
    CodeName{"4", "create a room"},
    CodeName{"5", "room chat line"},
    CodeName{"7", "enter a room"},
    CodeName{"8", "leave the room"},
    CodeName{"9", "destroy the room"},
    CodeName{"10", "launch the game"},
    CodeName{"11", "preview a room"},
    CodeName{"12", "leave the lobby"},
    CodeName{"14", "back from the game"},
    CodeName{"15", "log on"},
    CodeName{"17", "create an account"},
    CodeName{"18", "private message"},
    CodeName{"19", "buddy list"},
    CodeName{"20", "buddy dialog closed"},
    CodeName{"21", "add a buddy"},
    CodeName{"22", "remove a buddy"},
    CodeName{"23", "reject a user"},
    CodeName{"24", "file"},
    CodeName{"25", "file received so far"},
    CodeName{"27", "transfer given up"},
    CodeName{"28", "heartbeat"},
    CodeName{"29", "join a running game"},
};

} // namespace ombrin
