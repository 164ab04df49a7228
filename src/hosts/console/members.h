// The public members of the controls and of the class that a command can call, each in one table.
#pragma once

#include "session/game_lobby.h"
#include "session/main_lobby.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::console {

/// An argument or a result; texts are in the client's code page.
struct Value {
    enum class Kind { None, Text, Number, Truth } kind = Kind::None;
    std::string text;
    long number = 0;
    bool truth = false;
};

struct Answer {
    Value value;
    Value vValue; ///< what the member has put into its argument of that name
};

/// Nothing when there is no such member, or the arguments are not its own; `why` then says which. An object reference
/// answers the name of its class, and nothing where there is no object. Raises what the member raises.
std::optional<Answer> CallMember(MainLobby& control, std::string_view member, const std::vector<Value>& arguments,
                                 std::string& why);
std::optional<Answer> CallMember(GameLobby& control, std::string_view member, const std::vector<Value>& arguments,
                                 std::string& why);
std::optional<Answer> CallMember(clsDirectPlay& object, std::string_view member, const std::vector<Value>& arguments,
                                 std::string& why);

} // namespace ombrin::console
