// What the program says of itself.
#pragma once

#include <string_view>

namespace ombrin::App {

inline constexpr std::string_view kTitle = "Ombrin";
inline constexpr int kMajor = OMBRIN_VERSION_MAJOR, kMinor = OMBRIN_VERSION_MINOR, kRevision = OMBRIN_VERSION_PATCH;

} // namespace ombrin::App
