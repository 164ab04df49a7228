// The buddy pane.
#pragma once

#include "lobby/desk.h"

namespace ombrin {

class Buddies {
public:
    explicit Buddies(Desk desk) : desk(desk) {}
    /// Empties the pane and asks the server for the list.
    void Buddies_Click();

private:
    Desk desk;
};

} // namespace ombrin
