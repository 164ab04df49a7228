#include "server/buddies.h"

#include "server/names.h"
#include "session/wire/server_message.h"

#include <algorithm>

namespace ombrin::server {

namespace {

auto FindIn(std::vector<std::string>& names, std::string_view name) {
    return std::find_if(names.begin(), names.end(),
                        [folded = Folded(name)](const std::string& listed) { return Folded(listed) == folded; });
}

} // namespace

void Buddies::Load(Session& owner, const std::vector<std::string>& names) {
    for (const std::string& name : names) Add(owner, name); // two spellings of one name count once
}

bool Buddies::Lists(const Session& owner, std::string_view name) {
    return std::any_of(owner.buddies.begin(), owner.buddies.end(),
                       [folded = Folded(name)](const std::string& listed) { return Folded(listed) == folded; });
}

void Buddies::Add(Session& owner, std::string_view name) {
    Remove(owner, name);
    owner.buddies.emplace_back(name);
    Watch(owner, owner.buddies.back());
}

void Buddies::Remove(Session& owner, std::string_view name) {
    const auto found = FindIn(owner.buddies, name);
    if (found == owner.buddies.end()) return;
    owner.buddies.erase(found);
    Unwatch(owner, name);
}

void Buddies::Forget(Session& owner) {
    for (const std::string& name : owner.buddies) Unwatch(owner, name);
    owner.buddies.clear();
}

void Buddies::TellWhere(std::string_view user, std::string_view lobby) const {
    const auto found = listings.find(Folded(user));
    if (found == listings.end()) return;
    for (const Listing& listing : found->second) {
        const server_message::Buddy buddy{listing.name, lobby};
        listing.owner->peer.Send(server_message::Buddies({&buddy, 1}));
    }
}

void Buddies::Watch(Session& owner, const std::string& name) { listings[Folded(name)].push_back({&owner, name}); }

void Buddies::Unwatch(const Session& owner, std::string_view name) {
    const auto found = listings.find(Folded(name));
    if (found == listings.end()) return;
    std::erase_if(found->second, [&](const Listing& listing) { return listing.owner == &owner; });
    if (found->second.empty()) listings.erase(found);
}

} // namespace ombrin::server
