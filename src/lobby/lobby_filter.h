// The choice of the lobbies that are displayed.
#pragma once

#include "controls/form.h"
#include "controls/list_models.h"
#include "controls/simple_models.h"
#include "foundation/profile.h"

namespace ombrin {

/// True when the name equals one item of the filter, each of which is closed by ";".
bool GameInFilter(std::string_view name, std::string_view filter);

class LobbyFilter : public Form {
public:
    LobbyFilter(ModalStack& stack, Profile& profile, Trap& trap);

    Label Label1{*this, "Label1",
                 "Select the games you want to display.  If this is not the first time you've selected games then you "
                 "must restart the client for these changes to take effect."};
    ListBox GameList{*this, "GameList", {.several = true}};
    Button SelectAll{*this, "SelectAll", "Select All"};
    Button ClearAll{*this, "ClearAll", "Clear All"};
    Button OK{*this, "OK", "OK"};
    Button Cancel{*this, "Cancel", "Cancel"};
    StatusBar StatusBar1{*this, "StatusBar1"};

    std::string SelectedGames; ///< names, each closed by ";"

    /// As a dialog that was just made: the stored filter, and the lobbies of the last list with the displayed ones
    /// marked. While nothing is stored, as on the first run, there is no way out without a choice.
    void Create(std::string_view lobbyListData);

    static std::string DisplayedGames(Profile& profile);

private:
    void MarkAll(bool on);
    void OK_Click();
    void Cancel_Click();

    Profile& profile;
    Trap& trap;
};

} // namespace ombrin
