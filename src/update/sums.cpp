#include "update/sums.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "update/file_names.h"

#include <algorithm>

namespace ombrin {

namespace {

constexpr std::string_view kVersion = ";FileVersion=", kSignature = "signature ";

bool IsHex(std::string_view text, std::size_t digits) {
    return text.size() == digits && text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

/// Cuts a piece off the text; nothing where the separator does not come.
std::optional<std::string_view> Cut(std::string_view& text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string_view::npos) return std::nullopt;
    const std::string_view piece = text.substr(0, at);
    text.remove_prefix(at + 1);
    return piece;
}

std::optional<Sums::Row> RowOf(std::string_view line) {
    const auto sum = Cut(line, ' '), size = Cut(line, ' '), code = Cut(line, ' ');
    if (!code || !IsHex(*sum, Integrity::kSumDigits) || !IsPlainFileName(line)) return std::nullopt;
    try {
        return Sums::Row{std::string(*sum), ToLong(*size), ToInteger(*code), std::string(line)};
    } catch (const RuntimeError&) { // no numbers
        return std::nullopt;
    }
}

} // namespace

std::optional<Sums> Sums::Read(std::string_view text) {
    if (text.size() > kLongest) return std::nullopt;
    Sums sums;
    std::string_view rest = text;
    const auto first = Cut(rest, '\n');
    if (!first || !first->starts_with(kVersion)) return std::nullopt;
    sums.version = first->substr(kVersion.size());
    while (!rest.starts_with(kSignature)) {
        const auto line = Cut(rest, '\n');
        const auto row = line ? RowOf(*line) : std::nullopt;
        if (!row || sums.rows.size() == kMostLines) return std::nullopt;
        sums.rows.push_back(*row);
    }
    sums.signedText = text.substr(0, text.size() - rest.size());
    rest.remove_prefix(kSignature.size());
    const auto signature = Cut(rest, '\n');
    if (!signature || !IsHex(*signature, Integrity::kSignatureDigits) || !rest.empty()) return std::nullopt;
    sums.signature = *signature;
    return sums;
}

const Sums::Row* Sums::Find(const UpdateDirectories& directories, const std::string& finalPath) const {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
        const std::string* directory = DirectoryOf(directories, row.directoryCode);
        return directory != nullptr && *directory + row.fileName == finalPath;
    });
    return found == rows.end() ? nullptr : &*found;
}

bool SumsCheck::HasKey() const { return IsHex(key, Integrity::kKeyDigits); }

bool SumsCheck::IsSums(const clsFileInfo& file) const { return FinalPath(file.LocalPathFIlename) == LocalPath(); }

bool SumsCheck::AnyIsSums(const std::deque<clsFileInfo>& list) const {
    return std::any_of(list.begin(), list.end(), [this](const clsFileInfo& file) { return IsSums(file); });
}

bool SumsCheck::HasSums(const std::deque<clsFileInfo>& pending) const {
    return AnyIsSums(pending) || !files.GetFileVersion(LocalPath()).empty();
}

std::optional<RefusedFile> SumsCheck::FirstRefused(const std::deque<clsFileInfo>& requested) {
    const bool areNew = AnyIsSums(requested);
    Sums sums;
    if (const auto why = ReadSums(areNew ? TemporaryPath(LocalPath()) : LocalPath(), sums))
        return RefusedFile{std::string(Sums::kFileName), *why};
    if (areNew && expected && sums.version != *expected)
        return RefusedFile{std::string(Sums::kFileName), text::kUpdateOtherVersion};
    for (const clsFileInfo& file : requested) {
        if (IsSums(file)) continue;
        if (const auto why = WhyRefused(file, sums)) return RefusedFile{file.FileName, *why};
    }
    return std::nullopt;
}

std::optional<LanguageText> SumsCheck::ReadSums(const std::string& path, Sums& sums) {
    std::string text;
    try {
        text = files.Open(path)->ReadAt(0, Sums::kLongest + 1);
    } catch (const RuntimeError&) {
        return text::kUpdateNotThere;
    }
    const auto read = Sums::Read(text);
    if (!read) return text::kUpdateBadSums;
    if (!integrity.Verify(key, read->signedText, read->signature)) return text::kUpdateBadSignature;
    sums = *read;
    return std::nullopt;
}

std::optional<LanguageText> SumsCheck::WhyRefused(const clsFileInfo& file, const Sums& sums) {
    const Sums::Row* row = sums.Find(directories, FinalPath(file.LocalPathFIlename));
    if (row == nullptr) return text::kUpdateNotNamed;
    try {
        const auto bytes = files.Open(file.LocalPathFIlename);
        if (bytes->Size() < static_cast<std::uint64_t>(row->size)) return text::kUpdateTooShort;
        if (bytes->Size() > static_cast<std::uint64_t>(row->size)) return text::kUpdateTooLong;
        if (!EqualIgnoringCase(integrity.Sha256(*bytes), row->sum)) return text::kUpdateOtherContent;
        return std::nullopt;
    } catch (const RuntimeError&) {
        return text::kUpdateNotThere;
    }
}

} // namespace ombrin
