// The client's place in its user's folder, where updates put a newer one. Nobody's update writes to where the system's
// packages have installed theirs, so the installed client has to know of the user's.
#pragma once

#include "hosts/desktop/desktop_client.h"

namespace ombrin::desktop {

/// What an installer would settle where nothing is settled: the setting `ClientDirectory`, and in it a link to the
/// installed client, so that a server's list of files finds a version to compare. Raises what the file system raises.
void SettleOwnClient(ClientHome& home);

/// Where an update has brought a newer client than this one: this process becomes that one. Returns where there is
/// none.
void GiveWayToNewer(ClientHome& home, char* const* words);

} // namespace ombrin::desktop
