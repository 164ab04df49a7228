// The version that a file carries: how the update check tells an old file from a new one.
#pragma once

#include "foundation/byte_source.h"
#include "foundation/code_page.h"

#include <string>

namespace ombrin {

/// The version that the file carries, in the code page (a character that it cannot hold is "?"); "" where the file
/// carries none, or where what it says of itself cannot be followed. It lies
///   - in a Windows program or library, in "FileVersion" of its version resource, for the first language there;
///   - in a program of this system, in a note: owner kVersionNoteOwner, type kVersionNoteType, the version as text;
///   - in a text file, in its first line, ";FileVersion=" and the version, within the first 64 bytes.
/// What the source raises goes through.
std::string FileVersion(ByteSource& file, const CodePage& page = CodePage::Usual());

} // namespace ombrin
