// The profile routines: values of INI files, read anew at each use.
#pragma once

#include "foundation/files.h"
#include "foundation/ini_document.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace ombrin {

/// One INI file behind Files. The parsed copy is taken again when the file has changed.
class IniFile {
public:
    IniFile(Files& files, std::string path, Files::Readers readers)
        : files(files), path(std::move(path)), readers(readers) {}

    /// A missing file reads as an empty one.
    const IniDocument& Document();
    /// False when the document cannot hold the value; a failure to write is raised.
    bool SetValue(std::string_view section, std::string_view key, std::string_view value);
    /// Any number of changes in one step, by a routine that says whether they are to be written.
    void Change(const std::function<bool(IniDocument&)>& change);

private:
    Files& files;
    std::string path;
    Files::Readers readers;
    IniDocument document;
    std::optional<Files::Stamp> stamp;
};

/// The INI files by name. A bare name means a file of the Windows directory; a name with a separator is a path. A
/// file's own name is compared without regard to case.
class IniFiles {
public:
    /// Characters that a read hands over at most: the buffers of its callers, less the closing NUL.
    static constexpr std::size_t kIniValueLength = 10'027;
    static constexpr std::size_t kShortValueLength = 127;

    IniFiles(Files& files, std::string windowsDirectory)
        : files(files), windowsDirectory(std::move(windowsDirectory)) {}

    /// Empty when file, section or key is missing. A longer value is cut.
    std::string Read(std::string_view file, std::string_view section, std::string_view key,
                     std::size_t length = kIniValueLength);
    /// A value that the file cannot hold is not written.
    void Write(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

private:
    IniFile& File(std::string_view name);
    std::string PathOf(std::string_view name) const;

    Files& files;
    std::string windowsDirectory;
    std::map<std::string, IniFile> opened; ///< by path
};

} // namespace ombrin
