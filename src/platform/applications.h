// Starting an application with a description of the session that it is to host or to join.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace ombrin {

struct ApplicationStart {
    using Value = std::variant<std::string, std::int64_t>;
    std::string operation;                              ///< of the service that asks for it
    std::vector<std::pair<std::string, Value>> session; ///< the description, field by field in the order of telling

    // The program, as it has registered itself; empty where it has not.
    std::string program{}, commandLine{}, directory{};
};

class Applications {
public:
    virtual ~Applications() = default;
    /// Starts it and does not wait for it; a handle above 0. Raises 53 when there is no such program.
    virtual long Run(const ApplicationStart& start) = 0;
};

} // namespace ombrin
