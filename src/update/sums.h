// The signed sums of a release: a file of the list that says what each of the others holds.
#pragma once

#include "platform/integrity.h"
#include "platform/local_files.h"
#include "update/directories.h"
#include "update/file_info.h"
#include "update/refused_file.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

/// What the file says. Its lines:
///
///     ;FileVersion=<version>
///     <64 hexadecimal digits> <size> <directory code> <name>      one a file, the name to the end of the line
///     signature <128 hexadecimal digits>                          over all bytes before this line
struct Sums {
    static constexpr std::string_view kFileName = "Ombrin.sums"; ///< in the client directory
    static constexpr std::size_t kLongest = std::size_t{1} << 20U, kMostLines = 1000;

    struct Row {
        std::string sum;
        std::int32_t size = 0;
        std::int16_t directoryCode = 0;
        std::string fileName;
    };
    std::string version, signedText, signature;
    std::vector<Row> rows;

    /// Nothing where a line is not as it should be or a limit is passed.
    static std::optional<Sums> Read(std::string_view text);
    /// nullptr where it does not name the file.
    const Row* Find(const UpdateDirectories& directories, const std::string& finalPath) const;
};

/// Holds what was downloaded against the sums.
class SumsCheck {
public:
    SumsCheck(const LocalFiles& files, Integrity& integrity, const UpdateDirectories& directories, std::string key)
        : files(files), integrity(integrity), directories(directories), key(std::move(key)) {}

    bool HasKey() const;
    std::string LocalPath() const { return directories.client + std::string(Sums::kFileName); }
    /// What the list says of new sums: older ones, signed as they may be, are refused then.
    void Expect(std::string version) { expected = std::move(version); }

    /// Whether there are any: among the files to come, or in place.
    bool HasSums(const std::deque<clsFileInfo>& pending) const;
    /// The first of the files that is not what was signed. The sums are the downloaded ones, else those in place.
    std::optional<RefusedFile> FirstRefused(const std::deque<clsFileInfo>& requested);

private:
    bool IsSums(const clsFileInfo& file) const;
    bool AnyIsSums(const std::deque<clsFileInfo>& list) const;
    std::optional<LanguageText> ReadSums(const std::string& path, Sums& sums);
    std::optional<LanguageText> WhyRefused(const clsFileInfo& file, const Sums& sums);

    const LocalFiles& files;
    Integrity& integrity;
    const UpdateDirectories& directories;
    std::string key;
    std::optional<std::string> expected;
};

} // namespace ombrin
