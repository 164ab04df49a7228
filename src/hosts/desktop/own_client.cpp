#include "hosts/desktop/own_client.h"

#include "platform/posix/client_start.h"
#include "platform/posix/posix_local_files.h"
#include "platform/posix/share.h"
#include "update/directories.h"
#include "update/file_list.h"

#include <filesystem>
#include <fstream>

namespace ombrin::desktop {

namespace {

namespace fs = std::filesystem;

constexpr const char* kThisProgram = "/proc/self/exe";

/// Empty where the settings name no ClientDirectory.
std::string OwnClient(const ClientHome& home, Settings& settings) {
    const std::string folder = UpdateDirectories::Of(home.places, settings).client;
    return folder.empty() ? "" : folder + "OmbrinExe.exe";
}

/// No link to what is installed, and no Windows client, which is no other version of this one.
bool HasBeenBrought(const fs::path& program) {
    std::error_code notThere;
    if (!fs::is_regular_file(fs::symlink_status(program, notThere))) return false;
    char start[4] = {};
    std::ifstream file(program, std::ios::binary);
    return file.read(start, sizeof start) && std::string_view(start, sizeof start) == "\177ELF";
}

} // namespace

void SettleOwnClient(ClientHome& home) {
    Settings settings(home.files, home.places.SettingsFile());
    if (settings.GetSetting("Settings", "ClientDirectory").empty())
        settings.SaveSetting("Settings", "ClientDirectory", home.places.root);
    const fs::path own = home.files.Native(OwnClient(home, settings)), installed = InstalledProgram("OmbrinExe");
    if (installed.empty() || fs::exists(own)) return;
    if (fs::is_symlink(fs::symlink_status(own))) fs::remove(own); // what it led to is gone
    fs::create_directories(own.parent_path());
    fs::create_symlink(installed, own);
}

void GiveWayToNewer(ClientHome& home, char* const* words) {
    Settings settings(home.files, home.places.SettingsFile());
    const std::string own = OwnClient(home, settings), native = home.files.Native(own);
    std::error_code notThere;
    if (!HasBeenBrought(native) || fs::equivalent(native, kThisProgram, notThere)) return;
    const PosixLocalFiles files(home.page); // the versions are those that the update compares
    if (CompareFileVersions(files.GetFileVersion(kThisProgram), files.GetFileVersion(own))) Become(native, words);
}

} // namespace ombrin::desktop
