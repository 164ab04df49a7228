#include "hosts/skin/skin.h"

#include "foundation/ini_document.h"
#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "hosts/skin/plain_file.h"
#include "platform/posix/native_files.h"
#include "ui/skin_slots.h"

#include <algorithm>
#include <stdexcept>
#include <unistd.h>

namespace ombrin::skin {

namespace {

/// A control character in either of its UTF-8 forms?
bool SteersAt(std::string_view text, std::size_t i) {
    const auto c = static_cast<unsigned char>(text[i]);
    const bool upper = c == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    return c < 32 || c == 127 || upper;
}

class SkinReader {
public:
    explicit SkinReader(const std::string& path) : path(path), document(ReadPlainFile(path, kLargestText)) {}

    std::string Value(std::string_view section, std::string_view key) const {
        return document.Value(section, key).value_or("");
    }
    std::string FileName(std::string_view key) const {
        std::string name = Value(kFileSection, key);
        if (!name.empty() && (!IsBareName(name) || name == kSkinFile))
            Refuse(key, name, "is no name of a picture beside it");
        return name;
    }
    std::optional<Colour> ReadColour(std::string_view section, std::string_view key) const {
        constexpr Colour kWhitest = 0xFFFFFF;
        const std::string text = Value(section, key);
        if (text.empty()) return std::nullopt;
        Colour colour = -1;
        try {
            colour = ToLong(text);
        } catch (const RuntimeError&) { // no number is no colour either
        }
        if (colour < 0 || colour > kWhitest) Refuse(key, text, "is no colour from 0 to 16777215");
        return colour;
    }
    std::string OneOf(std::string_view key, std::string_view one, std::string_view other) const {
        std::string text = Value("Desktop", key);
        if (!text.empty() && text != one && text != other)
            Refuse(key, text, Join("is neither \"", one, "\" nor \"", other, "\""));
        return text;
    }

private:
    [[noreturn]] void Refuse(std::string_view key, const std::string& value, std::string_view why) const {
        throw std::runtime_error(Join(path, ": the value \"", FitToShow(value), "\" of ", key, " ", why));
    }

    std::string path;
    IniDocument document;
};

/// button.png, and for screens with small pixels button@2x.png
std::string CompanionOf(const std::string& file) {
    const std::size_t dot = file.rfind('.');
    return dot == std::string::npos ? file + "@2x" : Join(file.substr(0, dot), "@2x", file.substr(dot));
}

} // namespace

std::string FitToShow(std::string text) {
    constexpr std::size_t kLongest = 80;
    if (text.size() > kLongest) {
        std::size_t end = kLongest;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end; // no half characters
        text.resize(end);
    }
    for (std::size_t i = 0; i < text.size(); ++i)
        if (SteersAt(text, i)) text[i] = '?'; // what stands behind the lead of two is then no character
    return text;
}

bool IsBareName(std::string_view name) {
    for (std::size_t i = 0; i < name.size(); ++i)
        if (SteersAt(name, i)) return false;
    return !name.empty() && name.front() != '.' && name.find_first_of("/\\") == std::string_view::npos;
}

std::vector<std::string> PictureKeys() {
    std::vector<std::string> keys{std::string(kBackgroundImage)};
    for (const ButtonSlot& button : kButtonSlots)
        for (const StateSlot& state : kStateSlots) keys.push_back(Join(button.prefix, state.suffix));
    return keys;
}

Skin ReadSkin(const std::string& folder) {
    const SkinReader file(Join(folder, "/", kSkinFile));
    Skin skin;
    skin.name = NameOf(folder);
    skin.folder = folder;
    skin.title = FitToShow(file.Value("About", "Name"));
    skin.author = FitToShow(file.Value("About", "Author"));
    skin.description = FitToShow(file.Value("About", "Description"));
    for (const std::string& key : PictureKeys())
        if (std::string name = file.FileName(key); !name.empty()) skin.pictures.push_back({key, std::move(name)});
    skin.labelTextColor = file.ReadColour(kFileSection, kLabelTextColor);
    skin.textColor = file.ReadColour("Desktop", "TextColor");
    skin.scheme = file.OneOf(kScheme, "dark", "light");
    skin.captions = file.OneOf(kCaptions, "0", "1");
    return skin;
}

std::vector<std::string> Skin::Files() const {
    std::vector<std::string> files{std::string(kSkinFile)};
    for (const Slot& slot : pictures) {
        files.push_back(slot.file);
        const std::string companion = CompanionOf(slot.file);
        if (access(Join(folder, "/", companion).c_str(), F_OK) == 0) files.push_back(companion);
    }
    std::sort(files.begin(), files.end());
    files.erase(std::unique(files.begin(), files.end()), files.end());
    return files;
}

} // namespace ombrin::skin
