#include "hosts/skin/wardrobe.h"

#include "hosts/skin/skin_settings.h"
#include "platform/posix/file_lock.h"
#include "platform/posix/home.h"
#include "platform/posix/native_files.h"
#include "platform/posix/share.h"

#include <filesystem>
#include <stdexcept>

namespace ombrin::skin {

namespace {

/// One at a time changes the folder of skins and what the store says of it.
FileLock Alone(const std::string& folder) {
    constexpr Milliseconds kPatience{10'000};
    std::filesystem::create_directories(folder);
    if (auto lock = FileLock::Take(folder + "/.lock", FileLock::Kind::Exclusive, kPatience)) return std::move(*lock);
    throw std::runtime_error("another program is changing the skin");
}

} // namespace

Wardrobe::Wardrobe(const std::optional<std::string>& asked)
    : home(asked), settings(home.files, home.places.SettingsFile()),
      shelf(ShareFolder(), home.files.Native(home.places.AppPath())) {}

std::vector<Wardrobe::Row> Wardrobe::Rows() {
    const std::string inUse = NameInUse(settings, home.page);
    std::vector<Row> rows;
    for (const auto& [name, folder] : shelf.Folders()) {
        Row row;
        row.skin.name = name;
        row.skin.folder = folder;
        row.inUse = name == inUse;
        try {
            row.skin = ReadSkin(folder);
        } catch (const std::exception& error) {
            row.fault = error.what();
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

Skin Wardrobe::Use(const std::string& name) {
    const FileLock alone = Alone(shelf.Own());
    const Skin skin = shelf.Read(name);
    const std::string before = NameInUse(settings, home.page);
    settings.Change([&](SettingsDraft& draft) {
        PutOn(draft, skin, home.page);
        shelf.Provide(skin); // before the store says so
    });
    if (before != name) shelf.Drop(before);
    return skin;
}

std::string Wardrobe::Remove() {
    const FileLock alone = Alone(shelf.Own());
    std::string before = NameInUse(settings, home.page);
    settings.Change([](SettingsDraft& draft) { TakeOff(draft); });
    shelf.Drop(before);
    return before;
}

} // namespace ombrin::skin
