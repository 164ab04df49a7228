// The registry of Windows programs on this machine, as their runner keeps it in two text files.
#pragma once

#include "foundation/code_page.h"
#include "foundation/files.h"
#include "platform/registry.h"

#include <functional>
#include <map>

namespace ombrin {

/// Reads what programs have left there, where a prefix is named, behind the client's own registry, which goes first
/// and alone is written. A 32-bit program's branch is looked into as such a program would.
class WineRegistry : public Registry {
public:
    /// `prefix` gives the folder that the settings name at that moment, "" for none.
    WineRegistry(Registry& own, Files& files, const CodePage& page, std::function<std::string()> prefix)
        : own(own), files(files), page(page), prefix(std::move(prefix)) {}

    std::optional<RegistryValue> Read(std::string_view key, std::string_view name) override;
    bool HasOther(std::string_view key, std::string_view name) override;
    void Write(std::string_view key, std::string_view name, const RegistryValue& value) override {
        own.Write(key, name, value);
    }
    bool Has(std::string_view key) override;
    std::vector<std::string> Subkeys(std::string_view key) override;

    using Value = std::optional<RegistryValue>;               ///< nothing for one of another type
    using Values = std::map<std::string, Value, std::less<>>; ///< by name in small letters
    struct Key {
        std::string name; ///< its last part, as it is written
        Values values;
    };
    using Keys = std::map<std::string, Key, std::less<>>; ///< by path in small letters, ordered

    using Paths = std::vector<std::string>; ///< of keys, in small letters

    /// What a file of that form holds of these keys and of what is below them, without any of all; lines that cannot
    /// be followed are passed over.
    static Keys Parse(std::string_view text, const CodePage& page, const Paths& wanted = {});

private:
    /// A file has tens of thousands of keys, of which a client asks for a few: only those are kept.
    struct Branch {
        std::string file;
        std::optional<Files::Stamp> stamp;
        std::map<std::string, Keys> asked{}; ///< by the key that was asked for, with all below it
    };
    /// Where a key may be, and what was read there.
    struct Places {
        Paths paths;
        const Keys& keys;
    };

    Places PlacesOf(std::string_view key);
    /// In the prefix; nullptr where it is missing. Valid until the next look.
    const Value* Find(std::string_view key, std::string_view name);
    const Keys& KeysOf(Branch& branch, std::string_view name, const Paths& paths);

    Registry& own;
    Files& files;
    const CodePage& page;
    std::function<std::string()> prefix;
    Branch machine, user;
};

} // namespace ombrin
