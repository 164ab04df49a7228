#include "session/server_messages.h"

#include "foundation/text.h"
#include "session/wire/codec.h"

namespace ombrin {

void ServerMessages::DisplayGeneralErrorMessage(std::string_view payload) {
    desk.trap(__func__, [&] { desk.messages.boxes.Show(std::string(GetCommand(payload, kFieldEnd)), ""); });
}

void ServerMessages::TakeAddress(std::string_view payload) {
    Session& session = desk.session;
    const std::string_view address = GetCommand(payload, kFieldEnd);
    session.m_UserData = Join(StrExtractLeft(session.m_UserData, ";"), ";", address);
    session.m_LocalIP = address;
}

void ServerMessages::NotLoggedOn() {
    desk.messages.DisplayMessage(text::kError4);
    desk.view.SetEnabled(false);
}

void ServerMessages::TakeLogoffButton() {
    desk.view.Logoff.SetVisible(false);
    desk.view.Logoff.SetEnabled(false);
}

} // namespace ombrin
