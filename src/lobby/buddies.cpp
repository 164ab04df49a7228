#include "lobby/buddies.h"

#include "session/wire/client_message.h"

namespace ombrin {

void Buddies::Buddies_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("buddy list displayed");
        desk.view.BuddyLV.Clear();
        desk.link.SendData(client_message::BuddyList(desk.session.m_UserName), text::kError25);
    });
}

} // namespace ombrin
