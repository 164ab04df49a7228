// The buddy pane: who of the user's friends is on line, and where. The server keeps the list.
#pragma once

#include "lobby/private_messages.h"
#include "lobby/row_limit.h"

namespace ombrin {

class Buddies {
public:
    Buddies(Desk desk, PrivateMessages& pm, Notices& notices, Sound& sound);

    /// Empties the pane and asks the server for the list.
    void Buddies_Click();
    /// `<buddy>;<lobby>;` any number of times, the lobby empty for one who is not on line.
    void DisplayBuddyList(std::string_view data);

    // For hosts, and behind the two buttons under the pane
    void btnAddBuddy_Click() { AddBuddy_Click(); }
    void btnRemoveBuddy_Click() { RemoveBuddy_Click(); }

private:
    void AddBuddy_Click();
    void AddBuddyToBuddyList(const std::string& name);
    void AddFrom(const std::string& name);
    void RemoveBuddy_Click();
    void BuddyPMMenu_Click();
    void BuddyLV_MouseUp(int button);
    bool IsAcceptable(const std::string& name);
    void SetOnLine(RowId row, std::string_view lobby);
    void SetOffLine(RowId row);

    Desk desk;
    PrivateMessages& pm;
    Notices& notices;
    Sound& sound;
    RowLimit limit;
};

} // namespace ombrin
