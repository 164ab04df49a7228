#include "lobby/ignored_users.h"

#include "lobby/text_colour.h"

namespace ombrin {

namespace {

/// As a person sees it: a row that was never painted has the list's own colour.
std::optional<Colour> ColourOf(const ListView& list, RowId row) {
    const auto painted = list.rows.RowColour(row);
    return painted ? painted : list.ForeColour();
}

} // namespace

clsIgnoredUserList::clsIgnoredUserList(Settings& settings, Trap& trap) : settings(settings), trap(trap) {
    trap.log.TraceMessage("clsIgnoredUserList class initialized");
}

clsIgnoredUserList::~clsIgnoredUserList() {
    try {
        trap.log.TraceMessage("clsIgnoredUserList class terminated");
    } catch (const ProgramEnding&) { // the box of a log that cannot be written; the program is ending anyway
    }
}

void clsIgnoredUserList::AddIgnoredUser(std::string_view name, ListView& list) {
    trap(__func__, [&] {
        if (!names.emplace(name).second) throw RuntimeError(ErrorNumber::DuplicateKey);
        list.rows.SetRowColour(list.SelectedItem(), kIgnoredColour);
    });
}

void clsIgnoredUserList::RemoveIgnoredUser(std::string_view name, ListView& list) {
    trap(__func__, [&] {
        if (const auto found = names.find(name); found != names.end()) names.erase(found);
        list.rows.SetRowColour(list.SelectedItem(), TextColor(settings, kWhite));
    });
}

bool clsIgnoredUserList::UserIgnored(std::string_view name, ListView& list) {
    bool ignored = false;
    trap(__func__, [&] {
        if (names.find(name) == names.end()) return;
        ignored = true;
        if (const RowId row = list.rows.Find(name)) list.rows.SetRowColour(row, kIgnoredColour);
    });
    return ignored;
}

IgnoredUsers::IgnoredUsers(Desk desk) : desk(desk) {
    this->desk.view.IgnoreUser.Click = [this] { IgnoreUser_Click(); };
    this->desk.view.UnignoreUser.Click = [this] { UnignoreUser_Click(); };
}

void IgnoredUsers::StartAnew() { m_IgnoredUsers = std::make_unique<clsIgnoredUserList>(desk.settings, desk.trap); }

void IgnoredUsers::IgnoreUser_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Ignore User Menu clicked");
        ListView& list = desk.view.UserList;
        const RowId row = list.SelectedItem();
        const std::string name = list.rows.Text(row);
        if (name == desk.session.m_UserName) return;
        if (ColourOf(list, row) == kIgnoredColour) return;
        m_IgnoredUsers->AddIgnoredUser(name, list);
    });
}

void IgnoredUsers::UnignoreUser_Click() {
    desk.trap(__func__, [&] {
        desk.TraceMessage("Unignore User Menu clicked");
        ListView& list = desk.view.UserList;
        const RowId row = list.SelectedItem();
        const std::string name = list.rows.Text(row);
        if (name == desk.session.m_UserName) return;
        if (ColourOf(list, row) != TextColor(desk.settings, kWhite)) m_IgnoredUsers->RemoveIgnoredUser(name, list);
    });
}

} // namespace ombrin
