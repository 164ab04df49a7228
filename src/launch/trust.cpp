#include "launch/trust.h"

#include <algorithm>

namespace ombrin {

namespace {

constexpr std::size_t kLongestHostName = 253;

bool IsOfAHostName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
           c == ':';
}

} // namespace

bool IsAddressOrHostName(std::string_view text) {
    return !text.empty() && text.size() <= kLongestHostName && text.front() != '-' &&
           std::all_of(text.begin(), text.end(), IsOfAHostName);
}

bool MayLaunchAt(std::string_view address, Log& log) {
    if (address.empty() || IsAddressOrHostName(address)) return true;
    log.LogError("Error: the address of a launch is none, and no game was started with it.", false);
    return false;
}

bool IsBareName(std::string_view text) {
    return !text.empty() && text != "." && text != ".." &&
           std::none_of(text.begin(), text.end(), [](char c) { return c == '/' || c == '\\' || c == '\0'; });
}

} // namespace ombrin
