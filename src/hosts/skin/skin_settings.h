// What the store says of the skin. The client only reads it, at its start.
#pragma once

#include "foundation/code_page.h"
#include "foundation/settings.h"
#include "hosts/skin/skin.h"

namespace ombrin::skin {

/// The name of the folder below the client's own, as UTF-8; empty for the built-in look.
std::string NameInUse(Settings& settings, const CodePage& page);

/// Everything that the skin says, in place of what another one said. The user's own TextColor is kept for the time
/// after. Raises std::runtime_error for a name that the client's code page cannot hold.
void PutOn(SettingsDraft& draft, const Skin& skin, const CodePage& page);

/// The built-in look, and the user's own TextColor unless he has chosen another one meanwhile.
void TakeOff(SettingsDraft& draft);

} // namespace ombrin::skin
