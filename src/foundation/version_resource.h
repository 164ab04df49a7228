// The version of a Windows program or library: "FileVersion" of its version resource.
#pragma once

#include "foundation/byte_source.h"
#include "foundation/code_page.h"

#include <string>
#include <string_view>

namespace ombrin {

/// The version of a 32-bit or 64-bit program; raises BrokenStep where one of the steps to it cannot be followed.
std::string ResourceVersion(ByteSource& file, const CodePage& page);

/// The bytes of the first version resource of a program.
std::string VersionResource(ByteSource& file);

/// What a version resource says in "\StringFileInfo\<language and code page>\FileVersion" for the first language and
/// code page of "\VarFileInfo\Translation".
std::string VersionText(std::string_view resource, const CodePage& page);

} // namespace ombrin
