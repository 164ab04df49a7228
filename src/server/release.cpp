#include "server/release.h"

#include "foundation/code_page.h"
#include "foundation/file_version.h"
#include "foundation/text.h"
#include "server/release_sums.h"
#include "server/update_key.h"

#include <algorithm>
#include <filesystem>
#include <limits>

namespace ombrin::server {

namespace {

constexpr std::uint64_t kLargest = std::numeric_limits<std::int32_t>::max(); ///< bytes: the client counts in 32 bits
constexpr std::size_t kLongestVersion = 100;                                 ///< characters

/// What goes over the wire as a field of the list.
void CheckVersion(const std::string& version, const FileSetup& setup) {
    if (version.empty()) throw DiskError("carries no version, and clients would fetch it again at each logon");
    if (!setup.version.empty() && version != setup.version)
        throw DiskError(Join("carries the version ", version, ", not ", setup.version));
    const bool plain = std::none_of(version.begin(), version.end(), [](unsigned char c) { return c < 32 || c == 127; });
    if (!plain || version.size() > kLongestVersion || FirstOf(version, ":;~") != 0)
        throw DiskError("carries a version that the list of files cannot hold");
}

OfferedFile ReadFile(const FileSetup& setup, const std::string& path) {
    DiskFile file(path);
    OfferedFile offered{setup.name, setup.directory, FileVersion(file), path, file.Mark(), ""};
    if (offered.mark.size > kLargest) throw DiskError("is larger than clients can count, 2147483647 bytes");
    CheckVersion(offered.version, setup);
    return offered;
}

std::string Utf8(std::string_view text) { return CodePage::Usual().ToUtf8(text); }

/// Runs the step, its failure told with the place in the configuration.
template <class Step>
void At(const std::string& place, const std::string& path, Step step) {
    try {
        step();
    } catch (const DiskError& problem) {
        throw ConfigurationError(Join(place, ": ", path, " ", std::string_view(problem.what())));
    }
}

/// In front of all, so that clients have them when they check the rest.
void AddSums(Release& release, const UpdateKey& key, const std::vector<std::string>& besides) {
    At("/files", std::string(kSumsName), [&] {
        OfferedFile sums = MakeSums(release.files, key, besides);
        release.files.insert(release.files.begin(), std::move(sums));
    });
}

} // namespace

const OfferedFile* Release::Find(std::string_view name) const {
    const auto found = std::find_if(files.begin(), files.end(), [&](const auto& file) { return file.name == name; });
    return found == files.end() ? nullptr : &*found;
}

Release ReadRelease(const Configuration& configuration, const std::string& home, const std::string& configurationPath) {
    Release release;
    for (const FileSetup& setup : configuration.files) {
        const std::string path = home + "/files/" + Utf8(setup.name);
        At(Join("/files/", std::to_string(release.files.size())), path,
           [&] { release.files.push_back(ReadFile(setup, path)); });
    }
    if (configuration.updateKey.empty()) return release;
    const std::string keyPath = (std::filesystem::path(home) / Utf8(configuration.updateKey)).string();
    At("/updateKey", keyPath, [&] {
        const UpdateKey key(keyPath);
        if (release.files.empty()) return;
        release.publicKey = key.PublicHalf();
        AddSums(release, key, {keyPath, configurationPath});
    });
    return release;
}

} // namespace ombrin::server
