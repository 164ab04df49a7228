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
            const auto byte = page.ByteOf(unit);
            if (!byte) return std::nullopt;
            text += page.ToUtf8({&*byte, 1});
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
    values.insert_or_assign(SmallLetters(std::move(*name)), ValueOf(line, page));
}

bool IsAtOrBelow(std::string_view path, std::string_view key) {
    return path.starts_with(key) && (path.size() == key.size() || path[key.size()] == '\\');
}

bool IsWanted(std::string_view path, const WineRegistry::Paths& wanted) {
    return wanted.empty() ||
           std::any_of(wanted.begin(), wanted.end(), [&](const std::string& key) { return IsAtOrBelow(path, key); });
}

struct Root {
    std::string_view name, file;
    bool isUsers;
};
constexpr Root kRoots[]{{"HKEY_LOCAL_MACHINE\\", "system.reg", false}, {"HKEY_CURRENT_USER\\", "user.reg", true}};

} // namespace

WineRegistry::Keys WineRegistry::Parse(std::string_view text, const CodePage& page, const Paths& wanted) {
    Keys keys;
    Values* values = nullptr;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (TakePrefix(line, "[")) {
            const auto path = TakeEscaped(line, ']', page);
            values = nullptr;
            if (!path || !IsWanted(SmallLetters(*path), wanted)) continue;
            Key& key = keys[SmallLetters(*path)];
            key.name = path->substr(path->rfind('\\') + 1);
            values = &key.values;
        } else if (values != nullptr) {
            TakeValue(line, *values, page);
        }
    }
    return keys;
}

const WineRegistry::Keys& WineRegistry::KeysOf(Branch& branch, std::string_view name, const Paths& paths) {
    const std::string folder = prefix();
    const std::string file = folder.empty() ? std::string() : Join(folder, "/", name);
    const auto now = file.empty() ? std::nullopt : files.StampOf(file);
    if (file != branch.file || now != branch.stamp) branch = {file, now};
    for (const auto& [key, keys] : branch.asked)
        if (IsAtOrBelow(paths.front(), key)) return keys;
    const bool readable = now && now->size <= kLargestFile;
    return branch.asked[paths.front()] = readable ? Parse(files.Read(file), page, paths) : Keys();
}

/// As the key is named, and in the branch of 32-bit programs.
WineRegistry::Places WineRegistry::PlacesOf(std::string_view key) {
    constexpr std::string_view kSoftware = "software\\";
    static const Keys kNone;
    for (const Root& root : kRoots) {
        if (!EqualIgnoringCase(key.substr(0, root.name.size()), root.name)) continue;
        Paths paths{SmallLetters(std::string(key.substr(root.name.size())))};
        if (paths.front().starts_with(kSoftware))
            paths.push_back(Join(kSoftware, "wow6432node\\", paths.front().substr(kSoftware.size())));
        const Keys& keys = KeysOf(root.isUsers ? user : machine, root.file, paths);
        return {std::move(paths), keys};
    }
    return {{}, kNone};
}

const WineRegistry::Value* WineRegistry::Find(std::string_view key, std::string_view name) {
    const std::string wanted = SmallLetters(std::string(name));
    const auto [paths, keys] = PlacesOf(key);
    for (const std::string& path : paths) {
        const auto found = keys.find(path);
        if (found == keys.end()) continue;
        const auto value = found->second.values.find(wanted);
        if (value != found->second.values.end()) return &value->second;
    }
    return nullptr;
}

std::optional<RegistryValue> WineRegistry::Read(std::string_view key, std::string_view name) {
    if (auto value = own.Read(key, name)) return value;
    const Value* value = Find(key, name);
    return value == nullptr ? std::nullopt : *value;
}

bool WineRegistry::HasOther(std::string_view key, std::string_view name) {
    const Value* value = Find(key, name);
    return value != nullptr && !*value;
}

bool WineRegistry::Has(std::string_view key) {
    if (own.Has(key)) return true;
    const Places places = PlacesOf(key);
    return std::any_of(places.paths.begin(), places.paths.end(), [&](const std::string& path) {
        const auto below = places.keys.lower_bound(path + "\\");
        return places.keys.contains(path) || (below != places.keys.end() && IsAtOrBelow(below->first, path));
    });
}

std::vector<std::string> WineRegistry::Subkeys(std::string_view key) {
    std::vector<std::string> names = own.Subkeys(key);
    const auto [paths, keys] = PlacesOf(key);
    for (const std::string& path : paths) {
        const std::string below = path + "\\";
        for (auto next = keys.lower_bound(below); next != keys.end() && next->first.starts_with(below); ++next)
            if (next->first.find('\\', below.size()) == std::string::npos) names.push_back(next->second.name);
    }
    std::sort(names.begin(), names.end(), LessInSortedList);
    names.erase(std::unique(names.begin(), names.end(), EqualIgnoringCase), names.end());
    return names;
}

} // namespace ombrin
