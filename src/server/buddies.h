// Who lists whom, of the users on line: whoever comes or goes is told to those alone who list him.
#pragma once

#include "server/session.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ombrin::server {

class Buddies {
public:
    /// A list as it is stored. Names are those that the list's owner typed, as his client finds its rows by them.
    void Load(Session& owner, const std::vector<std::string>& names);
    static bool Lists(const Session& owner, std::string_view name);
    /// A name that is listed already gets this spelling.
    void Add(Session& owner, std::string_view name);
    void Remove(Session& owner, std::string_view name);
    /// The owner logs off.
    void Forget(Session& owner);

    /// 41 to each who lists him.
    void TellWhere(std::string_view user, std::string_view lobby) const;

private:
    struct Listing {
        Session* owner;
        std::string name; ///< in the owner's spelling
    };
    void Watch(Session& owner, const std::string& name);
    void Unwatch(const Session& owner, std::string_view name);

    std::unordered_map<std::string, std::vector<Listing>> listings; ///< by folded name; none is empty
};

} // namespace ombrin::server
