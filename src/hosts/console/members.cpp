#include "hosts/console/members.h"

#include "session/public_surface.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace ombrin::console {

namespace {

using Values = std::vector<Value>;
using Kind = Value::Kind;

Answer Nothing() { return {}; }
Answer TextValue(std::string text) { return {{Kind::Text, std::move(text), 0, false}, {}}; }
Answer NumberValue(long number) { return {{Kind::Number, "", number, false}, {}}; }
Answer TruthValue(bool truth) { return {{Kind::Truth, "", 0, truth}, {}}; }

std::string AsText(const Value& value) {
    if (value.kind == Kind::Number) return std::to_string(value.number);
    return value.kind == Kind::Truth ? (value.truth ? "True" : "False") : value.text;
}

RegistryValue AsRegistryValue(const Value& value) {
    if (value.kind == Kind::Number && value.number >= INT32_MIN && value.number <= INT32_MAX)
        return static_cast<std::int32_t>(value.number);
    return AsText(value);
}

/// A text is read without an argument, and set with one.
Answer Field(std::string& field, const Values& a) {
    if (a.empty()) return TextValue(field);
    field = a[0].text;
    return Nothing();
}

Answer Object(const void* object, const char* className) {
    return object == nullptr ? Nothing() : TextValue(className);
}

Answer QueryValueEx(GameLobby& control, const Values& a) {
    RegistryValue held;
    Answer answer = NumberValue(control.QueryValueEx(a[0].text, a[1].text, held));
    if (const auto* text = std::get_if<std::string>(&held)) answer.vValue = {Kind::Text, *text, 0, false};
    if (const auto* number = std::get_if<std::int32_t>(&held)) answer.vValue = {Kind::Number, "", *number, false};
    return answer;
}

template <class Target>
struct Row {
    std::string_view name;
    Answer (*call)(Target& target, const Values& values) = nullptr; ///< none for a stored property
};

using Entry = Row<MainLobby>;
constexpr std::array kEntryRows{
    Entry{"m_GameLobby", [](MainLobby& m, const Values& a) { return Field(m.m_GameLobby, a); }},
    Entry{"BackColor"},
    Entry{"ForeColor"},
    Entry{"Enabled"},
    Entry{"Font"},
    Entry{"BackStyle"},
    Entry{"BorderStyle"},
    Entry{"Refresh", [](MainLobby& m, const Values&) { return m.Refresh(), Nothing(); }},
    Entry{"BytesReceived"},
    Entry{"Connect", [](MainLobby& m, const Values&) { return m.Connect(), Nothing(); }},
    Entry{"SendData", [](MainLobby& m, const Values& a) { return m.SendData(AsText(a[0])), Nothing(); }},
};

using Main = Row<GameLobby>;
constexpr std::array kMainRows{
    Main{"Test", [](GameLobby& c, const Values& a) { return Field(c.Test, a); }},
    Main{"m_DPGameList", [](GameLobby& c, const Values& a) { return Field(c.m_DPGameList(), a); }},
    Main{"objDX", [](GameLobby& c, const Values&) { return Object(c.objDX(), "DirectX7"); }},
    Main{"objDP4", [](GameLobby& c, const Values&) { return Object(c.objDP4(), "DirectPlay4"); }},
    Main{"objDPLobby", [](GameLobby& c, const Values&) { return Object(c.objDPLobby(), "DirectPlayLobby3"); }},
    Main{"objDPEnumServProv",
         [](GameLobby& c, const Values&) { return Object(c.objDPEnumServProv(), "DirectPlayEnumConnections"); }},
    Main{"objDPEnumLocApps",
         [](GameLobby& c, const Values&) { return Object(c.objDPEnumLocApps(), "DirectPlayEnumLocalApps"); }},
    Main{"objDPLobbyConnection",
         [](GameLobby& c, const Values&) { return Object(c.objDPLobbyConnection(), "DirectPlayLobbyConnection"); }},
    Main{"objDPSessionData",
         [](GameLobby& c, const Values&) { return Object(c.objDPSessionData(), "DirectPlaySessionData"); }},
    Main{"Configure_Click", [](GameLobby& c, const Values&) { return c.Configure_Click(), Nothing(); }},
    Main{"DisplayPMDialog", [](GameLobby& c, const Values&) { return c.DisplayPMDialog(), Nothing(); }},
    Main{"BackColor"},
    Main{"ForeColor"},
    Main{"Enabled"},
    Main{"Font"},
    Main{"BackStyle"},
    Main{"BorderStyle"},
    Main{"Refresh", [](GameLobby& c, const Values&) { return c.Refresh(), Nothing(); }},
    Main{"SetAXParams", [](GameLobby& c, const Values& a) { return TextValue(c.SetAXParams(a[0].text)); }},
    Main{"UserName",
         [](GameLobby& c, const Values& a) {
             return a.empty() ? TextValue(c.UserName()) : (c.SetUserName(a[0].text), Nothing());
         }},
    Main{"Buddies_Click", [](GameLobby& c, const Values&) { return c.Buddies_Click(), Nothing(); }},
    Main{"IsSocketConnected", [](GameLobby& c, const Values&) { return TruthValue(c.IsSocketConnected()); }},
    Main{"SetGameLobby", [](GameLobby& c, const Values& a) { return c.SetGameLobby(AsText(a[0])), Nothing(); }},
    Main{"DisplayMainLobby", [](GameLobby& c, const Values& a) { return c.DisplayMainLobby(AsText(a[0])), Nothing(); }},
    Main{"AccountCreated", [](GameLobby& c, const Values& a) { return c.AccountCreated(AsText(a[0])), Nothing(); }},
    Main{"DisplayLogonBanner", [](GameLobby& c, const Values&) { return c.DisplayLogonBanner(), Nothing(); }},
    Main{"DisplayCreateAccount",
         [](GameLobby& c, const Values& a) { return c.DisplayCreateAccount(a[0].truth), Nothing(); }},
    Main{"ProcessLogonBanner", [](GameLobby& c, const Values&) { return c.ProcessLogonBanner(), Nothing(); }},
    Main{"ConfiguredGame", [](GameLobby& c, const Values& a) { return Field(c.ConfiguredGame(), a); }},
    Main{"DPGameList", [](GameLobby& c, const Values& a) { return Field(c.DPGameList(), a); }},
    Main{"InitDirectX", [](GameLobby& c, const Values&) { return c.InitDirectX(), Nothing(); }},
    Main{"EnumDPLocApps", [](GameLobby& c, const Values&) { return c.EnumDPLocApps(), Nothing(); }},
    Main{"LaunchDPGame", [](GameLobby& c, const Values& a) { return c.LaunchDPGame(AsText(a[0])), Nothing(); }},
    Main{"CheckAutoStart", [](GameLobby& c, const Values&) { return c.CheckAutoStart(), Nothing(); }},
    Main{"SendData", [](GameLobby& c, const Values& a) { return TruthValue(c.SendData(a[0].text)); }},
    Main{"ProcessRoomPassword", [](GameLobby& c, const Values&) { return c.ProcessRoomPassword(), Nothing(); }},
    Main{"SetValueEx",
         [](GameLobby& c, const Values& a) {
             return NumberValue(
                 c.SetValueEx(a[0].text, a[1].text, static_cast<std::int32_t>(a[2].number), AsRegistryValue(a[3])));
         }},
    Main{"QueryValueEx", QueryValueEx},
    Main{"CloseSocket", [](GameLobby& c, const Values&) { return c.CloseSocket(), Nothing(); }},
    Main{"btnAddBuddy_Click", [](GameLobby& c, const Values&) { return c.btnAddBuddy_Click(), Nothing(); }},
    Main{"btnRemoveBuddy_Click", [](GameLobby& c, const Values&) { return c.btnRemoveBuddy_Click(), Nothing(); }},
};

using Play = Row<clsDirectPlay>;
constexpr std::array kPlayRows{
    Play{"dx8", [](clsDirectPlay& d, const Values&) { return Object(d.dx8.get(), "DirectX8"); }},
    Play{"DP8LobbyClient",
         [](clsDirectPlay& d, const Values&) { return Object(d.DP8LobbyClient.get(), "DirectPlay8LobbyClient"); }},
    Play{"GetDirectPlay8Games", [](clsDirectPlay& d, const Values&) { return d.GetDirectPlay8Games(), Nothing(); }},
    Play{"LaunchDP8Game", [](clsDirectPlay& d, const Values&) { return d.LaunchDP8Game(), Nothing(); }},
};

/// Every member of the interface has its row here, in the same order.
template <class Rows, class Members>
constexpr bool SameMembers(const Rows& rows, const Members& members) {
    return std::equal(rows.begin(), rows.end(), members.begin(), members.end(), [](const auto& row, const auto& other) {
        return row.name == other.name && (row.call == nullptr) == (other.kind == MemberKind::Stored);
    });
}
static_assert(SameMembers(kEntryRows, kMainLobbyMembers));
static_assert(SameMembers(kMainRows, kGameLobbyMembers));
static_assert(SameMembers(kPlayRows, kClsDirectPlayMembers));

bool Fits(char letter, const Value& value) {
    switch (letter) {
    case 't':
        return value.kind == Kind::Text;
    case 'b':
        return value.kind == Kind::Truth;
    case 'n':
        return value.kind == Kind::Number && value.number >= INT32_MIN && value.number <= INT32_MAX;
    default:
        return value.kind != Kind::None;
    }
}

bool Fits(const PublicMember& member, const Values& values) {
    const bool isText = member.kind == MemberKind::Text;
    const std::string_view takes = isText ? "t" : member.takes;
    const std::size_t leavable = isText ? 1 : member.leavable;
    return values.size() <= takes.size() && values.size() + leavable >= takes.size() &&
           std::equal(values.begin(), values.end(), takes.begin(),
                      [](const Value& value, char letter) { return Fits(letter, value); });
}

/// A stored property is read without an argument, and set with one of its own kind.
std::optional<Answer> CallProperty(StoredProperties& properties, std::string_view name, const Values& values) {
    const StoredProperties::Value* held = properties.Get(name);
    if (held == nullptr) return std::nullopt;
    if (values.empty()) {
        if (const auto* number = std::get_if<std::int32_t>(held)) return NumberValue(*number);
        if (const auto* truth = std::get_if<bool>(held)) return TruthValue(*truth);
        return TextValue(std::get<std::string>(*held));
    }
    const Value& given = values.front();
    StoredProperties::Value value = given.text;
    if (given.kind == Kind::Number) value = static_cast<std::int32_t>(given.number);
    if (given.kind == Kind::Truth) value = given.truth;
    const bool fits = values.size() == 1 && given.number >= INT32_MIN && given.number <= INT32_MAX;
    if (!fits || !properties.Set(name, std::move(value))) return std::nullopt;
    return Nothing();
}

template <class Target, class Rows, class Members>
std::optional<Answer> Call(Target& target, const Rows& rows, const Members& members, std::string_view name,
                           const Values& values, std::string& why) {
    const auto member = std::find_if(members.begin(), members.end(), [&](const auto& m) { return m.name == name; });
    why = member == members.end() ? "no such member" : "these are not its arguments";
    if (member == members.end()) return std::nullopt;
    if constexpr (requires { target.Properties; })
        if (member->kind == MemberKind::Stored) return CallProperty(target.Properties, name, values);
    if (!Fits(*member, values)) return std::nullopt;
    return rows[static_cast<std::size_t>(member - members.begin())].call(target, values);
}

} // namespace

std::optional<Answer> CallMember(MainLobby& control, std::string_view member, const Values& values, std::string& why) {
    return Call(control, kEntryRows, kMainLobbyMembers, member, values, why);
}

std::optional<Answer> CallMember(GameLobby& control, std::string_view member, const Values& values, std::string& why) {
    return Call(control, kMainRows, kGameLobbyMembers, member, values, why);
}

std::optional<Answer> CallMember(clsDirectPlay& object, std::string_view member, const Values& values,
                                 std::string& why) {
    return Call(object, kPlayRows, kClsDirectPlayMembers, member, values, why);
}

} // namespace ombrin::console
