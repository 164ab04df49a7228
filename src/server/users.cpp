#include "server/users.h"

#include "server/names.h"

namespace ombrin::server {

Session* Users::Find(std::string_view name) const {
    const auto found = byName.find(Folded(name));
    return found == byName.end() ? nullptr : found->second;
}

std::vector<std::string_view> Users::Names() const {
    std::vector<std::string_view> names;
    names.reserve(online.size());
    for (const Session* user : online) names.emplace_back(user->name);
    return names;
}

void Users::Add(Session& session) {
    online.push_back(&session);
    byName.emplace(Folded(session.name), &session);
}

void Users::Remove(Session& session) {
    std::erase(online, &session);
    byName.erase(Folded(session.name));
}

} // namespace ombrin::server
