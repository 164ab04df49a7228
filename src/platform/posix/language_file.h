// The language file of a fresh client.
#pragma once

#include "foundation/places.h"
#include "platform/posix/posix_files.h"

#include <string>

namespace ombrin {

/// Puts the copy of the share's language file in the Windows directory, whole or not at all, as an installer would.
/// Nothing where the client has one, which holds its user's choice, or where the share has none. Raises what the file
/// system raises.
void PlaceLanguageFile(const std::string& shareFolder, const Places& places, PosixFiles& files);

} // namespace ombrin
