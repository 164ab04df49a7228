// Cutting and escaping of the wire's texts. A message of the server is `<code>:<payload>~`, one of the client
// `Ombrin:<code>:<payload>:~`; fields of a payload are closed by ";".
#pragma once

#include <string>
#include <string_view>

namespace ombrin {

inline constexpr char kMessageEnd = '~';
inline constexpr char kCodeEnd = ':';
inline constexpr char kFieldEnd = ';';

/// Cuts the first piece off the buffer and answers it; both are views of the same text. Without the separator, or on
/// an empty buffer, the answer is empty and the buffer stays. A single character behind the separator is thrown away
/// with it: every field is closed, so none stands there.
std::string_view GetCommand(std::string_view& buffer, char separator);

/// Replaces ":", ";" and "~" by their escape sequences. There is no escape for the sequences themselves.
std::string EncodeData(std::string_view text);
std::string DecodeData(std::string_view text);

} // namespace ombrin
