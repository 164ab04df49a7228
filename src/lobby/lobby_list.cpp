#include "lobby/lobby_list.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "session/wire/codec.h"

namespace ombrin {

bool CutLobbyEntry(std::string_view& data, LobbyEntry& entry) {
    entry.name = GetCommand(data, ',');
    if (entry.name.empty()) return false;
    entry.count = GetCommand(data, kFieldEnd);
    return true;
}

std::string LobbyRow(std::string_view name, std::string_view count) { return Join(name, " : ", count); }

std::string LobbyNameOfRow(std::string_view row) {
    const std::size_t colon = row.rfind(':');
    if (colon == std::string_view::npos || colon == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return std::string(row.substr(0, colon - 1));
}

} // namespace ombrin
