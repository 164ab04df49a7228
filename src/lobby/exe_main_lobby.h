// The choice of a lobby whose password the server has refused: the only place where a lobby password can be typed.
#pragma once

#include "controls/form.h"
#include "controls/list_models.h"
#include "controls/simple_models.h"
#include "foundation/settings.h"
#include "foundation/trap.h"
#include "session/wire/session.h"
#include "ui/text/localisation.h"

namespace ombrin {

class ExeMainLobby : public Form {
public:
    ExeMainLobby(ModalStack& stack, Settings& settings, Session& session, Localisation& language, Trap& trap);

    ListBox ExeGameList{*this, "ExeGameList"};
    Label Label1{*this, "Label1", "Password:"};
    TextBox Password{*this, "Password", {.maxLength = 20, .password = true}};
    CheckBox RememberPasswords{*this, "RememberPasswords", "Remember lobby passwords"};
    Button ExeGameSelect{*this, "ExeGameSelect", "Select"};
    ombrin::StatusBar StatusBar{*this, "StatusBar"};

    std::string LobbyList;           ///< the server's list, for the rows
    std::string StatusText{"Ready"}; ///< anything else shows that the password was refused
    bool LobbySelected = false;

    /// Fills the rows from LobbyList; an empty one leaves them as they were.
    void AddGamesToListBox();

private:
    void Form_Load();
    void Form_Activate();
    void Fill(std::string_view data);
    void GetLobbyPassword();
    void ExeGameSelect_Click();
    std::string SelectedLobby() const;

    Settings& settings;
    Session& session;
    Localisation& language;
    Trap& trap;
};

} // namespace ombrin
