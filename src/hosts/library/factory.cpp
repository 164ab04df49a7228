#include <ombrin/factory.h>

#include "foundation/text.h"
#include "hosts/library/guarded.h"
#include "hosts/library/machine_parts.h"
#include "session/public_surface.h"

#include <algorithm>
#include <charconv>
#include <ombrin/cls_direct_play.h>
#include <ombrin/main_lobby.h>

namespace ombrin::host {

namespace {

using Made = std::unique_ptr<Object>;

Made MakeDirectPlay(Machine& machine) {
    const auto& lobbies = machine.Inside().lobbies;
    if (lobbies.empty()) throw Error(static_cast<int>(ErrorNumber::CannotCreateObject), "there is no GameLobby");
    return std::make_unique<clsDirectPlay>(*lobbies.back());
}

struct Maker {
    std::string_view name;
    Made (*make)(Machine&);
};

constexpr std::array kMakers{
    Maker{"MainLobby", [](Machine& machine) -> Made { return std::make_unique<MainLobby>(machine); }},
    Maker{"GameLobby", [](Machine& machine) -> Made { return std::make_unique<GameLobby>(machine); }},
    Maker{"clsDirectPlay", MakeDirectPlay},
};
static_assert(std::equal(kMakers.begin(), kMakers.end(), kPublicClasses.begin(), kPublicClasses.end(),
                         [](const Maker& maker, const PublicClass& other) { return maker.name == other.name; }),
              "every public class can be made");

/// Digits of an identifier in hexadecimal; false when there are others.
template <class Number>
bool ReadHex(std::string_view text, std::size_t at, std::size_t digits, Number& number) {
    const char* const end = text.data() + at + digits;
    const auto result = std::from_chars(text.data() + at, end, number, 16);
    return result.ec == std::errc() && result.ptr == end;
}

} // namespace

bool ToGuid(std::string_view text, Guid& guid) {
    if (text.size() == 38 && text.front() == '{' && text.back() == '}') text = text.substr(1, 36);
    if (text.size() != 36 || text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-') return false;
    Guid read;
    bool good = ReadHex(text, 0, 8, read.a) && ReadHex(text, 9, 4, read.b) && ReadHex(text, 14, 4, read.c);
    constexpr std::array<std::size_t, 8> kPlaces{19, 21, 24, 26, 28, 30, 32, 34};
    for (std::size_t i = 0; i < kPlaces.size(); ++i) good = good && ReadHex(text, kPlaces[i], 2, read.d[i]);
    if (good) guid = read;
    return good;
}

std::vector<ClassDescription> Classes() {
    std::vector<ClassDescription> classes;
    classes.reserve(kPublicClasses.size());
    for (const PublicClass& c : kPublicClasses)
        classes.push_back({std::string(c.name), std::string(c.identifier), std::string(c.interfaceName),
                           std::string(c.interfaceIdentifier), std::string(c.eventsName),
                           std::string(c.eventsIdentifier)});
    return classes;
}

std::string LibraryIdentifier() { return std::string(kLibraryIdentifier); }

std::unique_ptr<Object> Create(Machine& machine, std::string_view classIdentifier) {
    Guid wanted;
    const bool isGuid = ToGuid(classIdentifier, wanted);
    for (std::size_t i = 0; i < kPublicClasses.size(); ++i) {
        Guid own;
        const bool found = isGuid ? ToGuid(kPublicClasses[i].identifier, own) && own == wanted
                                  : EqualIgnoringCase(kPublicClasses[i].name, classIdentifier);
        if (found) return kMakers[i].make(machine);
    }
    throw Error(static_cast<int>(ErrorNumber::CannotCreateObject), Join("no such class: ", classIdentifier));
}

} // namespace ombrin::host
