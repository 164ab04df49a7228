#include "update/file_list.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "session/wire/codec.h"
#include "update/file_names.h"

#include <algorithm>
#include <set>

namespace ombrin {

namespace {

std::optional<LanguageText> WhyRefused(const ListedFile& file, const UpdateDirectories& directories) {
    if (!IsPlainFileName(file.FileName)) return text::kUpdateBadName;
    const auto hasCode = [&](const DirectoryCode& row) { return row.code == file.directoryCode; };
    if (std::none_of(kDirectoryCodes.begin(), kDirectoryCodes.end(), hasCode)) return text::kUpdateBadDirectory;
    const FileInUse* inUse = InUse(file.FileName); // its copy would land in whatever directory is the current one
    if (file.LocalPath.empty() || (inUse != nullptr && (directories.*inUse->copyDirectory).empty()))
        return text::kUpdateNoClientDirectory;
    if (file.FileSize < 0) return text::kUpdateBadSize;
    return std::nullopt;
}

bool HasTemporaryName(const ListedFile& file) { return file.FileName.find('.') != std::string::npos; }

} // namespace

FileList CutFileList(std::string_view buffer, const UpdateDirectories& directories) {
    FileList list;
    list.ServerIP = GetCommand(buffer, kFieldEnd);
    list.ServerPort = GetCommand(buffer, kFieldEnd);
    std::string_view name = GetCommand(buffer, kFieldEnd);
    if (buffer.empty()) return list;
    for (; !name.empty(); name = GetCommand(buffer, kFieldEnd)) {
        ListedFile file;
        file.FileName = name;
        file.FileSize = ToLong(GetCommand(buffer, kFieldEnd));
        file.directoryCode = ToInteger(GetCommand(buffer, kFieldEnd));
        file.ServerVersion = GetCommand(buffer, kFieldEnd);
        if (const std::string* directory = DirectoryOf(directories, file.directoryCode);
            directory != nullptr && !directory->empty())
            file.LocalPath = *directory + file.FileName;
        list.files.push_back(std::move(file));
    }
    if (!list.files.empty() && ToInteger(list.ServerPort) < 1)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "there is no such port");
    return list;
}

std::optional<RefusedFile> FirstRefused(const FileList& list, const UpdateDirectories& directories) {
    if (list.files.size() > FileList::kMostFiles)
        return RefusedFile{list.files[FileList::kMostFiles].FileName, text::kUpdateTooManyFiles};
    std::set<std::string_view> paths;
    for (const ListedFile& file : list.files) {
        if (const auto why = WhyRefused(file, directories)) return RefusedFile{file.FileName, *why};
        paths.insert(file.LocalPath);
    }
    for (const ListedFile& file : list.files)
        if (HasTemporaryName(file) && paths.contains(TemporaryPath(file.LocalPath)))
            return RefusedFile{file.FileName, text::kUpdateNamesMeet};
    return std::nullopt;
}

bool CompareFileVersions(std::string_view LocalVersion, std::string_view ServerVersion) {
    const std::string_view local = GetCommand(LocalVersion, '.'), server = GetCommand(ServerVersion, '.');
    return local == server ? LocalVersion < ServerVersion : local < server;
}

} // namespace ombrin
