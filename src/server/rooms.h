// The rooms of a lobby and who is in them.
#pragma once

#include "server/session.h"

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ombrin::server {

inline constexpr int kLeastRoomUsers = 2; ///< that a room can be opened for
inline constexpr int kMostRoomUsers = 32;

struct Member {
    Session* session;
    bool publicAddress; ///< shown in the other users' tool tips
};

struct Room {
    std::string name;
    Session* creator;                           ///< the first of the members; the room ends with his stay
    int max;                                    ///< users
    bool locked;                                ///< shows a key
    std::string password;                       ///< empty: open to all
    std::vector<Member> members{};              ///< in the order in which they came
    std::unordered_set<std::string> rejected{}; ///< names, folded
    bool gameRuns = false;                      ///< as long as a member is in it

    std::string_view Status() const;
    bool Full() const { return members.size() >= static_cast<std::size_t>(max); }
    bool Has(std::string_view user) const;
    bool AnybodyInGame() const;
    bool Rejected(std::string_view user) const;

    void Add(Session& session, bool publicAddress);
    void Remove(Session& session);
    /// To everybody in the room but one.
    void Send(std::string_view message, const Session* except = nullptr) const;
    /// The same for what changes a list: a client in a game gets its lists anew when it is back.
    void Update(std::string_view message, const Session* except = nullptr) const;
};

class Rooms {
public:
    /// Without regard to case, so that no room has a twin; null when there is none.
    Room* Find(std::string_view name);
    std::size_t Count() const { return rooms.size(); }
    /// In the order in which they were opened.
    const std::list<Room>& All() const { return rooms; }

    /// Its name must be free.
    Room& Add(Room room);
    void Remove(const Room& room);

private:
    std::list<Room> rooms;
    std::unordered_map<std::string, std::list<Room>::iterator> byName;
};

} // namespace ombrin::server
