// The main control behind the library's face.
#pragma once

#include "hosts/library/control_parts.h"
#include "hosts/library/controls_parts.h"
#include "hosts/library/membership.h"

#include <ombrin/game_lobby.h>

namespace ombrin::host {

struct GameLobby::Parts {
    explicit Parts(Machine::Parts& machine) : machine(machine) {}

    Machine::Parts& machine;
    ombrin::GameLobby control{machine.ForClient()};
    Membership membership{machine, control.Stack()};
    Stored stored{control, machine.page};
    Controls view{std::make_unique<Controls::Parts>(
        Controls::Parts::World{machine.loop, machine.page, control.MainView(), control.Forms().All(), control.Input(),
                               control.Stack(), [this](int width, int height) { control.Resize(width, height); }})};

    std::string Text(std::string_view bytes) const { return machine.page.ToUtf8(bytes); }
    std::string Bytes(std::string_view utf8) const;
};

} // namespace ombrin::host
