#include "hosts/skin/window/sample_world.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "hosts/skin/skin_settings.h"

#include <filesystem>
#include <stdexcept>

namespace ombrin::skin {

namespace {

/// The root as a text of the core, with a link below it, as every picture lies below the client's folder.
std::string Furnished(const QTemporaryDir& root, const Skin& skin, const CodePage& page) {
    const std::string native = root.path().toStdString();
    const auto held = page.FromUtf8(native);
    if (!root.isValid() || !held) throw std::runtime_error("no folder for the preview: " + native);
    std::filesystem::create_directories(native + "/app/skins");
    std::filesystem::create_directory_symlink(skin.folder, Join(native, "/app/skins/", skin.name));
    return *held;
}

} // namespace

std::shared_ptr<const LoadedPicture> WatchedPictures::LoadPicture(const std::string& path) {
    try {
        return real.LoadPicture(path);
    } catch (const RuntimeError& error) {
        if (fault.empty()) fault = Join(page.ToUtf8(StrExtractRight(path, "\\")), ": ", error.what());
        throw;
    }
}

SampleWorld::SampleWorld(const Skin& skin, const std::string& languages, const CodePage& page)
    : places{Furnished(root, skin, page)}, pictures(page) {
    Settings(files, places.SettingsFile()).Change([&](SettingsDraft& draft) { PutOn(draft, skin, page); });
    files.Update(places.WindowsDirectory() + "/AVfLang.ini", Files::Readers::Everybody,
                 [&](const auto&) { return languages; });
    IniFiles inis(files, places.WindowsDirectory());
    inis.Write("AV.ini", "GameFilter", "DisplayedGames", "Chess;Go;");
    if (inis.Read(Localisation::kFile, "CurrentLanguage", "Language").empty()) // or the client asks
        inis.Write(Localisation::kFile, "CurrentLanguage", "Language", "English");
}

Platform SampleWorld::ForClient(const TextMeasure& measure, Waiter& waiter) {
    return {network,  events,     clock,   files,    localFiles, sound,      clipboard,
            pings,    notifier,   browser, pictures, processes,  components, integrity,
            registry, directPlay, disks,   opener,   measure,    waiter,     [this](bool held) { events.Hold(held); },
            places};
}

desktop::Look::Wishes SampleWorld::Wishes() {
    Settings settings(files, places.SettingsFile());
    return desktop::Look::Wishes::Of(settings);
}

} // namespace ombrin::skin
