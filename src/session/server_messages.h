// Answers of the server that belong to no area: general messages, the client's address, switches of the view.
#pragma once

#include "lobby/desk.h"

namespace ombrin {

class ServerMessages {
public:
    explicit ServerMessages(Desk desk) : desk(desk) {}

    /// `<text>;`, shown as the server sent it.
    void DisplayGeneralErrorMessage(std::string_view payload);
    /// `<address>;`: how the server sees this client.
    void TakeAddress(std::string_view payload);
    void NotLoggedOn();
    void TakeLogoffButton();

private:
    Desk desk;
};

} // namespace ombrin
