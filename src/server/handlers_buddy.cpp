#include "server/handlers.h"

#include "server/dispatch.h"
#include "server/names.h"
#include "session/wire/server_message.h"

namespace ombrin::server {

namespace {

constexpr std::size_t kBuddy = 1; ///< the field behind the user's own name

std::string_view WhereIs(const Service& service, std::string_view name) {
    const Session* user = service.users.Find(name);
    return user == nullptr || user->seenIn == nullptr ? std::string_view() : user->seenIn->name;
}

void SendBuddies(const Service& service, Session& session, std::span<const std::string> names) {
    std::vector<server_message::Buddy> buddies;
    buddies.reserve(names.size());
    for (const std::string& name : names) buddies.push_back({name, WhereIs(service, name)});
    session.peer.Send(server_message::Buddies(buddies));
}

/// The database first: what it refuses is not shown either.
template <class Change>
bool Stored(Service& service, Session& session, Change change) {
    try {
        change(service.outside.accounts);
        return true;
    } catch (const StoreError& problem) {
        service.Note(session, "could not change the list of buddies: ", std::string_view(problem.what()));
        service.Refuse(session, "Your list of buddies cannot be changed at the moment.");
        return false;
    }
}

} // namespace

void TellBuddies(Service& service, Session& session, const Request&) { SendBuddies(service, session, session.buddies); }

void AddBuddy(Service& service, Session& session, const Request& request) {
    const std::string name(request.fields[kBuddy]);
    if (!AcceptableName(name)) return service.Refuse(session, "There is no user of that name.");
    if (Folded(name) == Folded(session.name)) return service.Refuse(session, "You cannot be your own buddy.");
    if (!Buddies::Lists(session, name) && session.buddies.size() >= service.configuration.limits.buddies)
        return service.Refuse(session, "Your list of buddies is full.");
    if (!Stored(service, session, [&](AccountStore& store) { store.AddBuddy(session.name, name); })) return;
    service.buddies.Add(session, name);
    SendBuddies(service, session, {&name, 1});
}

void RemoveBuddy(Service& service, Session& session, const Request& request) {
    const std::string_view name = request.fields[kBuddy];
    if (!Buddies::Lists(session, name)) return;
    if (Stored(service, session, [&](AccountStore& store) { store.RemoveBuddy(session.name, name); }))
        service.buddies.Remove(session, name);
}

} // namespace ombrin::server
