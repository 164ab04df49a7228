#include "hosts/skin/shelf.h"

#include "foundation/text.h"
#include "hosts/skin/copied_folder.h"
#include "hosts/skin/plain_file.h"
#include "platform/picture_files.h"
#include "platform/posix/native_files.h"
#include "platform/posix/posix_local_files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace ombrin::skin {

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t kLargestSkin = 64ULL * 1024 * 1024; // bytes of all its files

void AddFolders(std::map<std::string, std::string>& found, const std::string& place) {
    std::error_code problem; // what cannot be read has no skins
    for (fs::directory_iterator at(place, problem), end; !problem && at != end; at.increment(problem)) {
        const std::string folder = at->path().string(), name = NameOf(folder);
        if (IsBareName(name) && fs::exists(fs::symlink_status(Join(folder, "/", kSkinFile), problem)))
            found[name] = folder;
        problem.clear();
    }
}

void Rename(const std::string& from, const std::string& to) {
    if (std::rename(from.c_str(), to.c_str()) != 0) RaiseLastProblem(to);
}

} // namespace

std::map<std::string, std::string> Shelf::Folders() const {
    std::map<std::string, std::string> came, owned;
    AddFolders(came, shared);
    AddFolders(owned, own);
    for (const auto& [name, folder] : owned)
        if (!came.contains(name) || !IsUnchangedCopy(folder)) came[name] = folder;
    return came;
}

Skin Shelf::Read(const std::string& name) const {
    const auto folders = Folders();
    const auto found = folders.find(name);
    if (found == folders.end()) throw std::runtime_error(Join("there is no skin of that name: ", FitToShow(name)));
    return ReadSkin(found->second);
}

void Shelf::Check(const Skin& skin) {
    std::uint64_t bytes = 0;
    for (const std::string& file : skin.Files()) {
        const std::string path = skin.folder + "/" + file;
        const std::string content = ReadPlainFile(path, file == kSkinFile ? kLargestText : kLargestPicture);
        if (file != kSkinFile && !PictureFiles::IsPicture(content)) throw std::runtime_error(path + " is no picture");
        if ((bytes += content.size()) > kLargestSkin)
            throw std::runtime_error(
                Join(skin.folder, " has more than ", std::to_string(kLargestSkin / 1024 / 1024), " MiB of pictures"));
    }
}

void Shelf::Provide(const Skin& skin) const {
    Check(skin);
    if (skin.folder != OwnFolder(skin.name)) Copy(skin);
}

/// Made aside under a name that is no skin's, and then in place. What lies there was left by a copying that was killed.
void Shelf::Copy(const Skin& skin) const {
    const std::string place = OwnFolder(skin.name), aside = Join(own, "/.", skin.name, ".new"),
                      old = Join(own, "/.", skin.name, ".old");
    fs::remove_all(aside);
    fs::remove_all(old);
    fs::create_directories(aside);
    try {
        for (const std::string& file : skin.Files())
            WriteNewFile(Join(aside, "/", file), ReadPlainFile(Join(skin.folder, "/", file), kLargestPicture));
        MarkAsCopy(aside);
        if (fs::exists(fs::symlink_status(place))) {
            if (!IsUnchangedCopy(place)) throw std::runtime_error(place + " is in the way: it is no skin");
            Rename(place, old);
        }
        Rename(aside, place);
    } catch (...) {
        fs::remove_all(aside);
        throw;
    }
    FlushFolder(own);
    fs::remove_all(old);
}

void Shelf::Drop(const std::string& name) const {
    if (IsBareName(name) && IsUnchangedCopy(OwnFolder(name))) fs::remove_all(OwnFolder(name));
}

} // namespace ombrin::skin
