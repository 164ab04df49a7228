#include "lobby/lobby_filter.h"

#include "foundation/text.h"
#include "lobby/lobby_list.h"
#include "session/wire/codec.h"

namespace ombrin {

namespace {

constexpr std::string_view kFile = "AV.ini", kSection = "GameFilter", kKey = "DisplayedGames";

} // namespace

bool GameInFilter(std::string_view name, std::string_view filter) {
    // Each item is looked at with its ";" in place, so that an item of one character is not lost to the cutting rule.
    while (true) {
        const std::size_t end = filter.find(kFieldEnd);
        if (end == std::string_view::npos) return false;
        if (filter.substr(0, end) == name) return true;
        filter.remove_prefix(end + 1);
    }
}

LobbyFilter::LobbyFilter(ModalStack& stack, Profile& profile, Trap& trap)
    : Form(stack, "LobbyFilter", "Games"), profile(profile), trap(trap) {
    SelectAll.Click = [this] { MarkAll(true); };
    ClearAll.Click = [this] { MarkAll(false); };
    OK.Click = [this] { OK_Click(); };
    Cancel.Click = [this] { Cancel_Click(); };
    CloseBox = [this] { Cancel_Click(); };
    Default = &GameList;
}

std::string LobbyFilter::DisplayedGames(Profile& profile) { return profile.ReadIniValue(kFile, kSection, kKey); }

void LobbyFilter::Create(std::string_view lobbyListData) {
    SelectedGames = DisplayedGames(profile);
    StatusBar1.SetText("");
    GameList.Clear();
    for (LobbyEntry entry; CutLobbyEntry(lobbyListData, entry);) {
        const RowId row = GameList.Add(entry.name);
        GameList.Select(row, GameInFilter(entry.name, SelectedGames));
    }
}

void LobbyFilter::MarkAll(bool on) {
    for (std::size_t i = 0; i < GameList.rows.Count(); ++i) GameList.Select(GameList.rows.At(i), on);
}

void LobbyFilter::OK_Click() {
    trap(
        __func__,
        [&] {
            std::string chosen;
            for (std::size_t i = 0; i < GameList.rows.Count(); ++i) {
                const RowId row = GameList.rows.At(i);
                if (GameList.rows.Selected(row)) chosen += Join(GameList.rows.Text(row), ";");
            }
            if (chosen.empty()) {
                StatusBar1.SetText("At leat one game must be selected.");
                return;
            }
            SelectedGames = chosen;
            profile.SetIniValue(kFile, kSection, kKey, chosen);
            Hide();
        },
        Name());
}

void LobbyFilter::Cancel_Click() {
    if (SelectedGames.empty())
        StatusBar1.SetText("At least one game must be selected and you must press OK.");
    else
        Hide();
}

} // namespace ombrin
