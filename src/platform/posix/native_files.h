// Steps on files of this machine that the file services share. Paths are as the system takes them.
#pragma once

#include "foundation/byte_source.h"

#include <string>
#include <string_view>
#include <sys/types.h>

namespace ombrin {

std::string FolderOf(const std::string& native);
std::string NameOf(const std::string& native);

/// Raises what errno says, as the client's numbers.
[[noreturn]] void RaiseLastProblem(const std::string& path);

/// Writes everything; raises what fails.
void WriteAll(int descriptor, std::string_view bytes, const std::string& path);

/// Where a link leads, so that a swap replaces the file and not the link; its target need not be there yet.
std::string Resolved(const std::string& native);

/// Like something that can be run: a program of this system, a script, a Windows program.
bool BeginsAsProgram(ByteSource& file);

/// Puts the names in a folder on the disk, as far as the file system does that.
void FlushFolder(const std::string& folder);

} // namespace ombrin
