// The public members of the client's control that a command can call, in one table.
#pragma once

#include "session/game_lobby.h"

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

/// Of the control, or of the class that `on` names. Nothing when there is no such member, or the arguments are not its
/// own; `why` then says which.
std::optional<Value> CallMember(GameLobby& client, std::string_view on, std::string_view member,
                                const std::vector<Value>& arguments, std::string& why);

} // namespace ombrin::console
