// Lists of lobbies on the wire, `<name>,<count>;` any number of times, and as rows `<name> : <count>`.
#pragma once

#include "controls/list_models.h"

#include <string>
#include <string_view>

namespace ombrin {

struct LobbyEntry {
    std::string_view name, count;
};

/// Cuts the next entry off; false at the end, which is the first text without a ",".
bool CutLobbyEntry(std::string_view& data, LobbyEntry& entry);

std::string LobbyRow(std::string_view name, std::string_view count);

/// The name in a row: without the last ":", the one character before it, and all that follows. Raises 5 where there is
/// none, as in the row of an empty selection.
std::string LobbyNameOfRow(std::string_view row);

} // namespace ombrin
