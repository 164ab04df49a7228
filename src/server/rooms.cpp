#include "server/rooms.h"

#include "server/names.h"

#include <algorithm>

namespace ombrin::server {

std::string_view Room::Status() const {
    if (gameRuns) return "2";
    return locked ? "4" : "1";
}

bool Room::Has(std::string_view user) const {
    return std::any_of(members.begin(), members.end(),
                       [&](const Member& member) { return member.session->name == user; });
}

bool Room::AnybodyInGame() const {
    return std::any_of(members.begin(), members.end(), [](const Member& member) { return member.session->inGame; });
}

bool Room::Rejected(std::string_view user) const { return rejected.contains(Folded(user)); }

void Room::Add(Session& session, bool publicAddress) {
    members.push_back({&session, publicAddress});
    session.room = this;
}

void Room::Remove(Session& session) {
    std::erase_if(members, [&](const Member& member) { return member.session == &session; });
    session.room = nullptr;
}

void Room::Send(std::string_view message, const Session* except) const {
    for (const Member& member : members)
        if (member.session != except) member.session->peer.Send(message);
}

void Room::Update(std::string_view message, const Session* except) const {
    for (const Member& member : members)
        if (member.session != except && !member.session->inGame) member.session->peer.Send(message);
}

Room* Rooms::Find(std::string_view name) {
    const auto found = byName.find(Folded(name));
    return found == byName.end() ? nullptr : &*found->second;
}

Room& Rooms::Add(Room room) {
    rooms.push_back(std::move(room));
    byName.emplace(Folded(rooms.back().name), std::prev(rooms.end()));
    return rooms.back();
}

void Rooms::Remove(const Room& room) {
    const auto found = byName.find(Folded(room.name));
    rooms.erase(found->second);
    byName.erase(found);
}

} // namespace ombrin::server
