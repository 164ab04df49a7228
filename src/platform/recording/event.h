// What the recording services tell: an event with a name and fields, in the order of the contract of the console host.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace ombrin::recording {

/// Texts are in the client's code page.
struct Event {
    using Value = std::variant<std::string, std::int64_t, bool>;
    std::string name;
    std::vector<std::pair<std::string, Value>> fields;
};

using Journal = std::function<void(const Event&)>;

} // namespace ombrin::recording
