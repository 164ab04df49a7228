#include "hosts/console/members.h"

#include <array>
#include <cstdint>

namespace ombrin::console {

namespace {

using Arguments = std::vector<Value>;
using Kind = Value::Kind;

struct Member {
    std::string_view name;
    std::string_view takes; ///< a letter an argument: t text, b truth
    Value (*call)(GameLobby& client, const Arguments& arguments);
    std::string_view on = {}; ///< a class beside the control
};

Value Nothing() { return {}; }
Value TextValue(std::string text) { return {Kind::Text, std::move(text), 0, false}; }

Value TruthValue(bool truth) { return {Kind::Truth, "", 0, truth}; }

constexpr std::array kMembers{
    Member{"Refresh", "", [](GameLobby& c, const Arguments&) { return c.Refresh(), Nothing(); }},
    Member{"SetAXParams", "t", [](GameLobby& c, const Arguments& a) { return TextValue(c.SetAXParams(a[0].text)); }},
    Member{"UserName", "", [](GameLobby& c, const Arguments&) { return TextValue(c.UserName()); }},
    Member{"UserName", "t", [](GameLobby& c, const Arguments& a) { return c.SetUserName(a[0].text), Nothing(); }},
    Member{"SetGameLobby", "t", [](GameLobby& c, const Arguments& a) { return c.SetGameLobby(a[0].text), Nothing(); }},
    Member{"DisplayMainLobby", "t",
           [](GameLobby& c, const Arguments& a) { return c.DisplayMainLobby(a[0].text), Nothing(); }},
    Member{"AccountCreated", "t",
           [](GameLobby& c, const Arguments& a) { return c.AccountCreated(a[0].text), Nothing(); }},
    Member{"DisplayLogonBanner", "", [](GameLobby& c, const Arguments&) { return c.DisplayLogonBanner(), Nothing(); }},
    Member{"DisplayCreateAccount", "b",
           [](GameLobby& c, const Arguments& a) { return c.DisplayCreateAccount(a[0].truth), Nothing(); }},
    Member{"ProcessLogonBanner", "", [](GameLobby& c, const Arguments&) { return c.ProcessLogonBanner(), Nothing(); }},
    Member{"m_DPGameList", "", [](GameLobby& c, const Arguments&) { return TextValue(c.m_DPGameList()); }},
    Member{"InitDirectX", "", [](GameLobby& c, const Arguments&) { return c.InitDirectX(), Nothing(); }},
    Member{"EnumDPLocApps", "", [](GameLobby& c, const Arguments&) { return c.EnumDPLocApps(), Nothing(); }},
    Member{"LaunchDPGame", "t", [](GameLobby& c, const Arguments& a) { return c.LaunchDPGame(a[0].text), Nothing(); }},
    Member{"GetDirectPlay8Games", "",
           [](GameLobby& c, const Arguments&) { return c.DirectPlayForHost().GetDirectPlay8Games(), Nothing(); },
           "clsDirectPlay"},
    Member{"LaunchDP8Game", "",
           [](GameLobby& c, const Arguments&) { return c.DirectPlayForHost().LaunchDP8Game(), Nothing(); },
           "clsDirectPlay"},
    Member{"Configure_Click", "", [](GameLobby& c, const Arguments&) { return c.Configure_Click(), Nothing(); }},
    Member{"CheckAutoStart", "", [](GameLobby& c, const Arguments&) { return c.CheckAutoStart(), Nothing(); }},
    Member{"ProcessRoomPassword", "",
           [](GameLobby& c, const Arguments&) { return c.ProcessRoomPassword(), Nothing(); }},
    Member{"DisplayPMDialog", "", [](GameLobby& c, const Arguments&) { return c.DisplayPMDialog(), Nothing(); }},
    Member{"btnAddBuddy_Click", "", [](GameLobby& c, const Arguments&) { return c.btnAddBuddy_Click(), Nothing(); }},
    Member{"btnRemoveBuddy_Click", "",
           [](GameLobby& c, const Arguments&) { return c.btnRemoveBuddy_Click(), Nothing(); }},
    Member{"IsSocketConnected", "", [](GameLobby& c, const Arguments&) { return TruthValue(c.IsSocketConnected()); }},
    Member{"CloseSocket", "", [](GameLobby& c, const Arguments&) { return c.CloseSocket(), Nothing(); }},
    Member{"SendData", "t", [](GameLobby& c, const Arguments& a) { return c.SendData(a[0].text), Nothing(); }},
};

bool Fits(const Member& member, const Arguments& arguments) {
    if (member.takes.size() != arguments.size()) return false;
    for (std::size_t i = 0; i < arguments.size(); ++i)
        if (arguments[i].kind != (member.takes[i] == 't' ? Kind::Text : Kind::Truth)) return false;
    return true;
}

/// A stored property is read without an argument, and set with one of its own kind.
std::optional<Value> CallProperty(StoredProperties& properties, std::string_view name, const Arguments& arguments,
                                  std::string& why) {
    const StoredProperties::Value* held = properties.Get(name);
    if (held == nullptr) return std::nullopt;
    if (arguments.empty()) {
        if (const auto* number = std::get_if<std::int32_t>(held)) return Value{Kind::Number, "", *number, false};
        if (const auto* truth = std::get_if<bool>(held)) return Value{Kind::Truth, "", 0, *truth};
        return TextValue(std::get<std::string>(*held));
    }
    const Value& given = arguments.front();
    StoredProperties::Value value = given.text;
    if (given.kind == Kind::Number) value = static_cast<std::int32_t>(given.number);
    if (given.kind == Kind::Truth) value = given.truth;
    if (arguments.size() == 1 && given.number >= INT32_MIN && given.number <= INT32_MAX &&
        properties.Set(name, std::move(value)))
        return Nothing();
    why = "these are not its arguments";
    return std::nullopt;
}

} // namespace

std::optional<Value> CallMember(GameLobby& client, std::string_view on, std::string_view member,
                                const std::vector<Value>& arguments, std::string& why) {
    why = "no such member";
    for (const Member& row : kMembers) {
        if (row.name != member || row.on != on) continue;
        if (Fits(row, arguments)) return row.call(client, arguments);
        why = "these are not its arguments";
    }
    if (!on.empty()) return std::nullopt;
    return CallProperty(client.Properties, member, arguments, why);
}

} // namespace ombrin::console
