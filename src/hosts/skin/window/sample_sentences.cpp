#include "hosts/skin/window/sample_sentences.h"

#include "session/wire/codec.h"
#include "session/wire/server_message.h"

#include <utility>

namespace ombrin::skin {

using namespace server_message;

namespace {

/// The client says Ann's lines itself.
constexpr const char* kEverybody[] = {"Ann",   "Bob", "Cid",  "Dörte", "Eve",  "François", "Gus",   "Hélène",
                                      "Ivo",   "Kim", "Mia",  "Noël",  "Otto", "Paula",    "Quinn", "Rosa",
                                      "Søren", "Tom", "Vito", "Wanda", "Yves", "Zoë"};

constexpr std::pair<const char*, const char*> kLobbyLines[] = {
    {"Ardvelle", "Good evening, and have fun!"},
    {"Bob", "Anybody for a game of Go?"},
    {"Hélène", "J'arrive dès que j'ai fini mon café."},
    {"Dörte", "Grüße aus Köln! Die Regeln: https://ardvelle.example/rules"},
    {"Eve", "In ten minutes, gladly."},
    {"Zoë", "See you in the room :)"},
};
constexpr std::pair<const char*, const char*> kRoomLines[] = {{"Bob", "There you are."},
                                                              {"Eve", "Hello, both of you!"}};

constexpr std::string_view kStates[] = {"1", "2", "1", "3"};

} // namespace

std::string SampleSentences::Held(const char* utf8) const { return page.FromUtf8(utf8).value_or(""); }

std::vector<std::string> SampleSentences::Names() const {
    std::vector<std::string> names;
    for (const char* name : kEverybody)
        if (auto held = page.FromUtf8(name)) names.push_back(std::move(*held));
    return names;
}

std::string SampleSentences::Lobby() const {
    const std::vector<std::string> names = Names();
    std::vector<UserStatus> users;
    for (std::size_t i = 0; i < names.size(); ++i) users.push_back({names[i], kStates[i % std::size(kStates)]});
    const LobbyCount lobbies[] = {{"Go", names.size()}, {"Chess", 31}};
    const RoomRecord rooms[] = {{"Arena", "1", "", 3, 8}, {"Members", "4", "", 2, 4}, {"Match", "2", "", 8, 8}};
    const Buddy buddies[] = {{"Bob", "Go"}, {"Kim", ""}, {"Mia", "Chess"}};
    std::string said =
        AddressSeen("192.0.2.10") + LobbyList(lobbies) + UsersOfLobby(users) + RoomsOfLobby(rooms) + Buddies(buddies);
    for (const auto& [user, line] : kLobbyLines)
        if (page.FromUtf8(user) && page.FromUtf8(line)) said += LobbyLine(Held(user), EncodeData(Held(line)));
    return said;
}

std::string SampleSentences::Room() const {
    const RoomUser users[] = {{"Bob", "", false}, {"Eve", "", false}, {"Ann", "", false}};
    std::string said = UsersOfRoom(users);
    for (const auto& [user, line] : kRoomLines) said += RoomLine(Held(user), EncodeData(Held(line)));
    return said;
}

} // namespace ombrin::skin
