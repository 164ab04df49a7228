#include "platform/wine_registry.h"

#include "foundation/text.h"

#include <algorithm>
#include <charconv>

namespace ombrin {

namespace {

constexpr std::uint64_t kLargestFile = std::uint64_t{64} << 20U;

std::string SmallLetters(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

void AppendUtf8(std::string& text, unsigned unit) {
    if (unit < 0x80U) {
        text += static_cast<char>(unit);
    } else if (unit < 0x800U) {
        text += static_cast<char>(0xC0U | unit >> 6U);
        text += static_cast<char>(0x80U | (unit & 0x3FU));
    } else {
        text += static_cast<char>(0xE0U | unit >> 12U);
        text += static_cast<char>(0x80U | (unit >> 6U & 0x3FU));
        text += static_cast<char>(0x80U | (unit & 0x3FU));
    }
}

/// Takes what stands before the closing character, with its escapes resolved, and the closing character itself off
/// the line. Nothing where it does not close, or has a character that the page cannot hold.
std::optional<std::string> TakeEscaped(std::string_view& line, char closing, const CodePage& page) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == closing) {
            line.remove_prefix(i + 1);
            return page.FromUtf8(text);
        }
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        const char escaped = line[++i];
        if (escaped == 'x') {
            unsigned unit = 0;
            const char* digits = line.data() + i + 1;
            const char* end = digits + std::min<std::size_t>(4, line.size() - i - 1);
            const auto read = std::from_chars(digits, end, unit, 16);
            i += static_cast<std::size_t>(read.ptr - digits);
            AppendUtf8(text, unit);
        } else {
            text += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped == '0' ? '\0' : escaped;
        }
    }
    return std::nullopt;
}

bool TakePrefix(std::string_view& line, std::string_view prefix) {
    if (!line.starts_with(prefix)) return false;
    line.remove_prefix(prefix.size());
    return true;
}

/// A value's line behind its name; nothing for a type that nothing here reads.
std::optional<RegistryValue> ValueOf(std::string_view line, const CodePage& page) {
    if (TakePrefix(line, "dword:")) {
        std::uint32_t number = 0;
        const auto read = std::from_chars(line.data(), line.data() + line.size(), number, 16);
        if (read.ec != std::errc()) return std::nullopt;
        return static_cast<std::int32_t>(number);
    }
    TakePrefix(line, "str(2):"); // with variables in it, which stay as they are
    if (!TakePrefix(line, "\"")) return std::nullopt;
    const auto text = TakeEscaped(line, '"', page);
    return text ? std::optional<RegistryValue>(*text) : std::nullopt;
}

void TakeValue(std::string_view line, WineRegistry::Values& values, const CodePage& page) {
    std::optional<std::string> name = std::string();
    if (TakePrefix(line, "\"")) {
        name = TakeEscaped(line, '"', page);
    } else if (!TakePrefix(line, "@")) {
        return;
    }
    if (!name || !TakePrefix(line, "=")) return;
    if (auto value = ValueOf(line, page)) values.insert_or_assign(SmallLetters(std::move(*name)), std::move(*value));
}

struct Root {
    std::string_view name, file;
    bool isUsers;
};
constexpr Root kRoots[]{{"HKEY_LOCAL_MACHINE\\", "system.reg", false}, {"HKEY_CURRENT_USER\\", "user.reg", true}};

} // namespace

WineRegistry::Keys WineRegistry::Parse(std::string_view text, const CodePage& page) {
    Keys keys;
    Values* values = nullptr;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (TakePrefix(line, "[")) {
            const auto path = TakeEscaped(line, ']', page);
            values = nullptr;
            if (!path) continue;
            Key& key = keys[SmallLetters(*path)];
            key.name = path->substr(path->rfind('\\') + 1);
            values = &key.values;
        } else if (values != nullptr) {
            TakeValue(line, *values, page);
        }
    }
    return keys;
}

const WineRegistry::Keys& WineRegistry::KeysOf(Branch& branch, std::string_view file) {
    const std::string folder = prefix();
    const std::string path = folder.empty() ? std::string() : Join(folder, "/", file);
    const auto now = path.empty() ? std::nullopt : files.StampOf(path);
    if (path == branch.path && now == branch.stamp) return branch.keys;
    branch = {path, now, now && now->size <= kLargestFile ? Parse(files.Read(path), page) : Keys()};
    return branch.keys;
}

/// Where a key may be: as it is named, and in the branch of 32-bit programs.
std::vector<WineRegistry::Place> WineRegistry::PlacesOf(std::string_view key) {
    constexpr std::string_view kSoftware = "software\\";
    for (const Root& root : kRoots) {
        if (!EqualIgnoringCase(key.substr(0, root.name.size()), root.name)) continue;
        const Keys& keys = KeysOf(root.isUsers ? user : machine, root.file);
        if (keys.empty()) return {};
        const std::string path = SmallLetters(std::string(key.substr(root.name.size())));
        if (!path.starts_with(kSoftware)) return {{&keys, path}};
        return {{&keys, path}, {&keys, Join(kSoftware, "wow6432node\\", path.substr(kSoftware.size()))}};
    }
    return {};
}

std::optional<RegistryValue> WineRegistry::Read(std::string_view key, std::string_view name) {
    if (auto value = own.Read(key, name)) return value;
    const std::string wanted = SmallLetters(std::string(name));
    for (const Place& place : PlacesOf(key)) {
        const auto found = place.keys->find(place.path);
        if (found == place.keys->end()) continue;
        const auto value = found->second.values.find(wanted);
        if (value != found->second.values.end()) return value->second;
    }
    return std::nullopt;
}

bool WineRegistry::Has(std::string_view key) {
    if (own.Has(key)) return true;
    const auto places = PlacesOf(key);
    return std::any_of(places.begin(), places.end(), [](const Place& place) {
        const auto next = place.keys->lower_bound(place.path);
        return next != place.keys->end() && (next->first == place.path || next->first.starts_with(place.path + "\\"));
    });
}

std::vector<std::string> WineRegistry::Subkeys(std::string_view key) {
    std::vector<std::string> names = own.Subkeys(key);
    for (const Place& place : PlacesOf(key)) {
        const std::string below = place.path + "\\";
        for (auto next = place.keys->lower_bound(below); next != place.keys->end() && next->first.starts_with(below);
             ++next)
            if (next->first.find('\\', below.size()) == std::string::npos) names.push_back(next->second.name);
    }
    std::sort(names.begin(), names.end(), LessInSortedList);
    names.erase(std::unique(names.begin(), names.end(), EqualIgnoringCase), names.end());
    return names;
}

} // namespace ombrin
