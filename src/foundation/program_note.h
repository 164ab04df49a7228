// The version of this system's own programs on this platform: a note among what the loader reads (ELF, PT_NOTE).
#pragma once

#include "foundation/byte_source.h"

#include <string>
#include <string_view>

namespace ombrin {

inline constexpr std::string_view kVersionNoteOwner = "Ombrin";
inline constexpr std::uint32_t kVersionNoteType = 1;

/// The text of the note in a 32-bit or 64-bit little-endian program; raises BrokenStep without one.
std::string NoteVersion(ByteSource& file);

} // namespace ombrin
