// Single steps on native paths, each done or raised (RuntimeError with the path and the system's reason).
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

namespace ombrin::patcher {

bool Exists(const std::string& path);
/// Raises for anything but a plain file.
void RequirePlainFile(const std::string& path);

/// In one step, replacing what is there, and on the disk when it returns.
void Rename(const std::string& from, const std::string& to);
/// The same content under a second name, on the disk when it returns; a link where the file system has them. Never half
/// of it.
void DuplicateFile(const std::string& from, const std::string& to);
/// A small file in one step.
void WriteWhole(const std::string& path, std::string_view text);
/// One that is not there is fine.
void Remove(const std::string& path);

mode_t ModeOf(const std::string& path);
void SetMode(const std::string& path, mode_t mode);
/// Whether it begins like something that can be run (platform/posix/native_files.h).
bool IsProgram(const std::string& path);

} // namespace ombrin::patcher
