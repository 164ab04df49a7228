#include "foundation/ini_files.h"

#include "foundation/text.h"

namespace ombrin {

const IniDocument& IniFile::Document() {
    const auto now = files.StampOf(path);
    if (now == stamp && now) return document;
    document = now ? IniDocument(files.Read(path)) : IniDocument();
    stamp = now;
    return document;
}

bool IniFile::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    bool held = false;
    Change([&](IniDocument& changed) { return held = changed.SetValue(section, key, value); });
    return held;
}

void IniFile::Change(const std::function<bool(IniDocument&)>& change) {
    files.Update(path, readers, [&](const std::optional<std::string>& old) -> std::optional<std::string> {
        IniDocument changed(old.value_or(""));
        return change(changed) ? std::optional(changed.Text()) : std::nullopt;
    });
}

std::string IniFiles::PathOf(std::string_view name) const {
    const std::size_t cut = name.find_last_of("/\\");
    const bool isBare = cut == std::string_view::npos;
    const std::string folder = isBare ? Join(windowsDirectory, "/") : std::string(name.substr(0, cut + 1));
    const std::string_view own = isBare ? name : name.substr(cut + 1);
    // Where the folder holds several spellings of one name, one of them is the file, whatever spelling asks for it.
    std::string spelling;
    for (const std::string& other : files.NamesIn(folder))
        if (EqualIgnoringCase(other, own) && (spelling.empty() || other < spelling)) spelling = other;
    return Join(folder, spelling.empty() ? own : spelling);
}

IniFile& IniFiles::File(std::string_view name) {
    const std::string path = PathOf(name);
    return opened.try_emplace(path, files, path, Files::Readers::Everybody).first->second;
}

std::string IniFiles::Read(std::string_view file, std::string_view section, std::string_view key, std::size_t length) {
    std::string value = File(file).Document().Value(section, key).value_or("");
    if (value.size() > length) value.resize(length);
    return value;
}

void IniFiles::Write(std::string_view file, std::string_view section, std::string_view key, std::string_view value) {
    File(file).SetValue(section, key, value);
}

} // namespace ombrin
