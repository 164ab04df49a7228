#include "platform/posix/posix_disks.h"

#include <algorithm>
#include <array>
#include <dirent.h>
#include <fcntl.h>
#include <mntent.h>
#include <set>
#include <sys/stat.h>

namespace ombrin {

namespace {

constexpr std::array<std::string_view, 12> kLocalFileSystems{"ext2", "ext3", "ext4", "xfs",   "btrfs", "f2fs",
                                                             "zfs",  "jfs",  "ntfs", "ntfs3", "vfat",  "exfat"};

bool IsLocal(std::string_view type) {
    return std::find(kLocalFileSystems.begin(), kLocalFileSystems.end(), type) != kLocalFileSystems.end();
}

/// No link to one.
bool IsDirectory(int folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(info.st_mode);
}

/// Also by a link.
bool IsFile(int folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return entry.d_type == DT_REG;
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

/// What is mounted there is a disk of its own, or none.
bool IsOnDevice(dev_t device, int folder, const dirent& entry) {
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) != 0 || info.st_dev == device;
}

} // namespace

/// A disk that is mounted in several places counts once, where it was mounted first. The device number tells, as the
/// subvolumes of one device are disks of their own.
std::vector<std::string> PosixDisks::FixedDisks() {
    std::vector<std::string> roots;
    if (const std::string named = prefix.Named(); !named.empty())
        if (const auto drive = page.FromUtf8(named + "/drive_c/")) roots.push_back(*drive);
    std::FILE* table = setmntent("/proc/self/mounts", "r");
    if (table == nullptr) return roots;
    std::set<dev_t> devices;
    while (const mntent* mount = getmntent(table)) {
        struct stat info {};
        if (!IsLocal(mount->mnt_type) || stat(mount->mnt_dir, &info) != 0 || !S_ISDIR(info.st_mode) ||
            !devices.insert(info.st_dev).second)
            continue;
        auto root = page.FromUtf8(mount->mnt_dir);
        if (!root) continue;
        if (!root->ends_with('/')) *root += '/';
        roots.push_back(std::move(*root));
    }
    endmntent(table);
    return roots;
}

std::vector<Disks::Entry> PosixDisks::List(const std::string& directory) {
    std::vector<Entry> entries;
    std::string path = page.ToUtf8(directory);
    std::replace(path.begin(), path.end(), '\\', '/');
    DIR* open = opendir(path.c_str());
    if (open == nullptr) return entries;
    const int folder = dirfd(open);
    struct stat own {};
    fstat(folder, &own);
    while (const dirent* entry = readdir(open)) {
        const std::string_view raw = entry->d_name;
        if (raw == "." || raw == "..") continue;
        auto name = page.FromUtf8(raw);
        if (!name) continue;
        const bool enterable = IsDirectory(folder, *entry) && IsOnDevice(own.st_dev, folder, *entry);
        if (enterable || IsFile(folder, *entry)) entries.push_back({std::move(*name), enterable, raw.front() == '.'});
    }
    closedir(open);
    return entries;
}

} // namespace ombrin
