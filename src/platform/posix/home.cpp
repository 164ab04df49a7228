#include "platform/posix/home.h"

#include "foundation/runtime_error.h"
#include "foundation/settings.h"
#include "foundation/text.h"
#include "platform/posix/share.h"

#include <cstdlib>
#include <filesystem>

namespace ombrin {

namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string HomeRoot(const std::optional<std::string>& asked) {
    std::string root = asked.value_or(Environment("OMBRIN_HOME"));
    if (root.empty() && !Environment("XDG_DATA_HOME").empty()) root = Environment("XDG_DATA_HOME") + "/ombrin";
    if (root.empty() && !Environment("HOME").empty()) root = Environment("HOME") + "/.local/share/ombrin";
    if (root.empty()) throw RuntimeError(ErrorNumber::PathNotFound, "no home: give --home or set OMBRIN_HOME");
    const auto path = std::filesystem::absolute(root).lexically_normal();
    return (path.has_filename() ? path : path.parent_path()).string(); // "/home/ann/" is "/home/ann"
}

Places PreparePlaces(const std::string& root, const CodePage& page, const PosixFiles& files) {
    const auto held = page.FromUtf8(root);
    if (!held)
        throw RuntimeError(ErrorNumber::PathNotFound,
                           Join("the code page ", page.Name(), " cannot hold the path ", root));
    Places places{*held};
    files.MakeFolder(places.root, Files::Readers::UserOnly);
    for (const std::string& folder : {places.WindowsDirectory(), places.SystemDirectory(), places.AppPath()})
        files.MakeFolder(folder, Files::Readers::Everybody);
    places.patcher = page.FromUtf8(InstalledProgram("OBPatch")).value_or("");
    return places;
}

const CodePage& CodePageOfStore(const std::string& root) {
    // The key is plain ASCII, so the usual page reads it whatever page the store is in.
    const CodePage& usual = CodePage::Usual();
    const auto held = usual.FromUtf8(root);
    if (!held) return usual;
    PosixFiles files(usual);
    Settings settings(files, Places{*held}.SettingsFile());
    const std::string name = settings.GetSetting("Settings", "CodePage");
    if (name.empty()) return usual;
    const CodePage* page = CodePage::Find(name);
    if (page == nullptr)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, Join("the setting CodePage names no known page: ", name));
    return *page;
}

} // namespace

ClientHome::ClientHome(const std::optional<std::string>& asked)
    : root(HomeRoot(asked)), page(CodePageOfStore(root)), files(page), places(PreparePlaces(root, page, files)) {}

} // namespace ombrin
