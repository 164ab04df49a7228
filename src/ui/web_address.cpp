#include "ui/web_address.h"

#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

bool IsWebAddress(std::string_view text) {
    if (text.size() > kLongestWebAddress) return false;
    for (const std::string_view scheme : {"http://", "https://"}) {
        if (!EqualIgnoringCase(text.substr(0, scheme.size()), scheme)) continue;
        const std::string_view rest = text.substr(scheme.size());
        constexpr std::string_view kNoHost = "/?#:\\";
        return !rest.empty() && kNoHost.find(rest.front()) == std::string_view::npos &&
               std::all_of(rest.begin(), rest.end(), [](char c) { return static_cast<unsigned char>(c) > 32; });
    }
    return false;
}

} // namespace ombrin
