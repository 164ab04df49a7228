// Users whose lines are not shown, in this client and for this logon alone.
#pragma once

#include "lobby/desk.h"

#include <memory>
#include <set>
#include <string>

namespace ombrin {

/// The row of an ignored user is painted in this colour (blue and green full).
inline constexpr Colour kIgnoredColour = 0x00FFFF00;

/// The list of one logon. Names are compared exactly.
class clsIgnoredUserList {
public:
    clsIgnoredUserList(Settings& settings, Trap& trap);
    ~clsIgnoredUserList();
    clsIgnoredUserList(const clsIgnoredUserList&) = delete;
    clsIgnoredUserList& operator=(const clsIgnoredUserList&) = delete;

    /// Paints the selected row. A name that is on the list already goes to the trap, and nothing is painted.
    void AddIgnoredUser(std::string_view name, ListView& list);
    void RemoveIgnoredUser(std::string_view name, ListView& list);
    /// Paints the user's row, if there is one, when he is on the list.
    bool UserIgnored(std::string_view name, ListView& list);

private:
    Settings& settings;
    Trap& trap;
    std::set<std::string, std::less<>> names;
};

class IgnoredUsers {
public:
    explicit IgnoredUsers(Desk desk);

    /// Nobody is ignored any more.
    void StartAnew();
    bool UserIgnored(std::string_view name) { return m_IgnoredUsers->UserIgnored(name, desk.view.UserList); }
    void Release() { m_IgnoredUsers.reset(); }

private:
    void IgnoreUser_Click();
    void UnignoreUser_Click();

    Desk desk;
    std::unique_ptr<clsIgnoredUserList> m_IgnoredUsers;
};

} // namespace ombrin
