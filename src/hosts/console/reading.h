// Controls and forms as JSON objects.
#pragma once

#include "controls/form.h"
#include "foundation/code_page.h"
#include "platform/recording/event.h"
#include "session/game_lobby.h"

#include <string>

namespace ombrin::console {

/// The fields of a control: `"visible"`, `"enabled"`, `"focus"` and those of its kind.
/// `inFront` tells whether its form, or the main view without a form over it, is what a person types into now.
std::string Describe(const Control& control, bool inFront, const CodePage& page);
std::string Describe(const Form& form, const CodePage& page);
std::string DescribeMarks(GameLobby& client, const CodePage& page);
std::string DescribeEvent(const recording::Event& event, const CodePage& page);
std::string DescribeShown(const Form& form, const CodePage& page);
std::string DescribeHidden(const Form& form);
std::string DescribeMenu(const Menu& menu, const CodePage& page);

} // namespace ombrin::console
