// Where Windows programs of this machine live: a folder with drives, as their runner keeps it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace ombrin {

/// A letter, ":" and a separator in front.
bool HasDriveLetter(std::string_view path);

/// All texts are UTF-8.
class WinePrefix {
public:
    /// `named` gives the folder that the settings name at that moment, "" where they name none.
    explicit WinePrefix(std::function<std::string()> named) : named(std::move(named)) {}

    std::string Named() const { return named(); }
    /// The one that is named, else the runner's usual one: WINEPREFIX, or ".wine" in the user's own folder.
    std::string Folder() const;
    /// A path with a drive letter as this system takes it, by the prefix's drives; letters of names count.
    std::string Native(std::string_view path) const;

private:
    std::function<std::string()> named;
};

} // namespace ombrin
