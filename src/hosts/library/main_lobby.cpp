#include <ombrin/main_lobby.h>

#include "hosts/library/control_parts.h"
#include "hosts/library/controls_parts.h"
#include "hosts/library/guarded.h"
#include "hosts/library/membership.h"
#include "session/main_lobby.h"

namespace ombrin::host {

struct MainLobby::Parts {
    explicit Parts(Machine::Parts& machine) : machine(machine) {}

    Machine::Parts& machine;
    ModalStack stack{machine, [](bool) {}}; // it has no dialogs of its own
    Boxes boxes{stack};
    Log log{machine.home.files, machine.clock, machine.home.places.SystemDirectory(), boxes};
    Membership membership{machine, stack};
    ombrin::MainLobby control{machine.network, stack, log};
    Stored stored{control, machine.page};
    Controls view{std::make_unique<Controls::Parts>(
        Controls::Parts::World{machine.loop, machine.page, control.MainView(), {}, control.Input(), stack, nullptr})};
};

MainLobby::MainLobby(Machine& machine) : parts(std::make_unique<Parts>(machine.Inside())) {}

MainLobby::~MainLobby() = default;

void MainLobby::Show() {
    Guarded([&] { parts->control.UserControl_Show(); });
}

void MainLobby::Show(const std::string& ipAddress) {
    ReadProperties({{"IPAddress", ipAddress}});
    Show();
}

std::string MainLobby::m_GameLobby() const { return parts->machine.page.ToUtf8(parts->control.m_GameLobby); }

void MainLobby::Set_m_GameLobby(const std::string& text) {
    Guarded([&] { parts->control.m_GameLobby = Held(parts->machine.page, text); });
}

std::int32_t MainLobby::BytesReceived() const {
    return std::get<std::int32_t>(*parts->control.Properties.Get("BytesReceived"));
}

void MainLobby::SetBytesReceived(std::int32_t count) { Set("BytesReceived", count); }

Controls& MainLobby::View() { return parts->view; }

void MainLobby::ReadProperties(const Bag& bag) {
    Guarded([&] { parts->control.UserControl_ReadProperties(parts->stored.Taken(bag)); });
}

Control::Stored& MainLobby::Properties() const { return parts->stored; }

} // namespace ombrin::host
