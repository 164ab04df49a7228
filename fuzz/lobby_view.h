// What a client's lists come to by the messages of the server alone, to be compared with the server's own state.
#pragma once

#include "fuzz_target.h"
#include "session/wire/codes.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::fuzz {

class LobbyView {
public:
    struct RoomRow {
        std::string status;
        int users;
        int max;
        bool operator==(const RoomRow&) const = default;
    };

    std::map<std::string, std::string> users; ///< of the lobby, with their status
    std::map<std::string, RoomRow> rooms;
    std::set<std::string> everybody;
    std::map<std::string, int> lobbies; ///< users
    std::set<std::string> roomUsers;
    bool inRoom = false;

    /// A whole message to the user `name`. `preview` is the room whose users the client looks at.
    void Take(std::string_view message, const std::string& name, const std::string& preview) {
        Require(message.ends_with('~') && message.find('~') == message.size() - 1, "a message ends once");
        const std::size_t colon = message.find(':');
        Require(colon != std::string_view::npos, "a message has a code");
        const std::string_view code = message.substr(0, colon);
        Require(std::any_of(kServerCodeNames.begin(), kServerCodeNames.end(),
                            [&](const CodeName& row) { return row.code == code; }),
                "a code is known");
        const std::vector<std::string> fields = Split(message.substr(colon + 1, message.size() - colon - 2), ';');
        // With himself among the users it is the whole list, after an entering or a game, where he has emptied his.
        if (code == "0" && Lists(fields, name)) users.clear(), rooms.clear();
        TakeLobby(code, fields);
        TakeRoom(code, fields);
        if (code == "13") TakeStatuses(fields, preview);
    }

private:
    static std::vector<std::string> Split(std::string_view text, char end) {
        std::vector<std::string> fields;
        for (std::size_t at = text.find(end); at != std::string_view::npos; at = text.find(end)) {
            fields.emplace_back(text.substr(0, at));
            text.remove_prefix(at + 1);
        }
        Require(text.empty(), "each field is closed");
        return fields;
    }
    static bool Lists(const std::vector<std::string>& pairs, const std::string& name) {
        for (std::size_t i = 0; i < pairs.size(); i += 2)
            if (pairs[i] == name) return true;
        return false;
    }
    static int Number(std::string_view text) {
        int number = -1;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }

    void TakeLobby(std::string_view code, const std::vector<std::string>& fields) {
        if (code == "21") users.clear(), rooms.clear();
        if (code == "22" || code == "46") {
            users.clear(), rooms.clear(), roomUsers.clear(), lobbies.clear();
            for (const std::string& field : fields)
                lobbies[field.substr(0, field.find(','))] = Number(field.substr(field.find(',') + 1));
        }
        if (code == "0")
            for (std::size_t i = 0; i < fields.size(); i += 2)
                Require(users.emplace(fields[i], fields[i + 1]).second, "a user comes once");
        if (code == "15") Require(users.erase(fields[0]) == 1, "who leaves the lobby was there");
        if (code == "47") everybody = {fields.begin(), fields.end()};
        if (code == "48") everybody.insert(fields[0]), ++lobbies[fields[1]];
        if (code == "49") {
            if (fields[2] == "1") everybody.erase(fields[0]);
            if (!fields[1].empty()) --lobbies[fields[1]];
        }
    }

    void TakeRoom(std::string_view code, const std::vector<std::string>& fields) {
        constexpr std::size_t kRoomFields = 5;
        constexpr std::size_t kUserFields = 3;
        if (code == "2")
            for (std::size_t i = 0; i < fields.size(); i += kRoomFields)
                Require(rooms.emplace(fields[i], RoomRow{fields[i + 1], Number(fields[i + 3]), Number(fields[i + 4])})
                            .second,
                        "a room is opened once");
        if (code == "14") {
            const auto room = rooms.find(fields[0]);
            Require(room != rooms.end() && room->second.users == Number(fields[3]), "a state is of a room as it is");
            room->second.status = fields[1];
        }
        if (code == "11") Require(rooms.erase(fields[0]) == 1, "a room that ends was open");
        if (code == "5") roomUsers.clear();
        if (code == "5" || code == "7") inRoom = true;
        if (code == "3" && !inRoom) Require(roomUsers.empty(), "an answer finds no old names on the list");
        if (code == "3" || code == "5")
            for (std::size_t i = 0; i < fields.size(); i += kUserFields) roomUsers.insert(fields[i]);
        if (code == "8") roomUsers.erase(fields[0]);
        if (code == "9" || code == "10" || code == "42") roomUsers.clear(), inRoom = false;
    }

    void TakeStatuses(const std::vector<std::string>& fields, const std::string& preview) {
        constexpr std::size_t kFields = 3;
        for (std::size_t i = 0; i < fields.size(); i += kFields) {
            const std::string status = fields[i].substr(0, fields[i].find(':'));
            const std::string user = fields[i].substr(fields[i].find(':') + 1);
            const auto room = rooms.find(fields[i + 1]);
            Require(users.contains(user), "a status is of a user of the lobby");
            users[user] = status == "5" ? "2" : status;
            if (fields[i + 1].empty() && (status == "1" || status == "3")) continue; // in or out of another's game
            Require(room != rooms.end(), "a status is in a room of the lobby");
            if (status == "1") --room->second.users;
            if (status == "2") ++room->second.users;
            // A name that goes is kept: a client that waits for an answer does not take it off its list.
            if (status == "2" && !inRoom && preview == fields[i + 1]) roomUsers.insert(user);
        }
    }
};

} // namespace ombrin::fuzz
