// Who is logged on.
#pragma once

#include "server/session.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ombrin::server {

class Users {
public:
    /// Without regard to case; null when nobody of that name is logged on.
    Session* Find(std::string_view name) const;
    std::size_t Count() const { return online.size(); }
    std::vector<std::string_view> Names() const;
    const std::vector<Session*>& All() const { return online; }

    void Add(Session& session);
    void Remove(Session& session);

private:
    std::vector<Session*> online; ///< in the order in which they came
    std::unordered_map<std::string, Session*> byName;
};

} // namespace ombrin::server
