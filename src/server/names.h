// What an account may be called, and when two names are one.
#pragma once

#include <string>
#include <string_view>

namespace ombrin::server {

/// Signs the greeting and whatever else the server itself says; no account can take it.
inline constexpr std::string_view kServerName = "Ardvelle";

/// The form in which names are compared: letters of the code page without regard to case.
std::string Folded(std::string_view name);

/// Stricter than the client in one thing: characters that cannot be seen are refused, as they make twins of names.
bool AcceptableName(std::string_view name);
bool AcceptablePassword(std::string_view password);

inline constexpr std::size_t kLongestRoomPassword = 20; ///< characters, as in the client's dialog

/// As for users: nothing that cannot be seen.
bool AcceptableRoomName(std::string_view name);
/// May be empty.
bool AcceptableRoomPassword(std::string_view password);

} // namespace ombrin::server
