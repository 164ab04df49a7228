// Builds the smallest programs that carry a version.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

inline std::string Little(std::uint64_t number, int width) {
    std::string bytes;
    for (int i = 0; i < width; ++i, number >>= 8) bytes += static_cast<char>(number & 0xFF);
    return bytes;
}

inline std::string Utf16(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) bytes += Little(unit, 2);
    return bytes;
}

/// A Windows program whose only section is that of its resources.
struct WindowsFile {
    bool wide = false; ///< 64-bit
    std::uint16_t language = 0x0409, page = 0x04B0;
    std::u16string table = u"040904B0", name = u"FileVersion", version = u"3.33";
    bool lengthInBytes = false;         ///< as some compilers write the length of a text
    bool wordsTranslationFirst = false; ///< "VarFileInfo" before "StringFileInfo"
    std::uint32_t type = 16, directories = 16;

    std::string Bytes() const {
        const std::string leaf = Resource();
        const std::string tree = Directory({0x80000004, 3, type}, 24 + 16) + Directory({1}, 64) +
                                 Directory({language}, 88, false) + Little(kAddress + 104, 4) + Little(leaf.size(), 4) +
                                 Little(0, 8) + leaf;
        std::string optional = Little(wide ? 0x20B : 0x10B, 2);
        optional.resize(wide ? 108 : 92);
        optional += Little(directories, 4) + Little(0, 16) + Little(kAddress, 4) + Little(tree.size(), 4);
        std::string section = ".rsrc";
        section.resize(8);
        section += Little(tree.size(), 4) + Little(kAddress, 4) + Little(tree.size(), 4) + Little(kOffset, 4);
        section.resize(40);
        std::string file = "MZ";
        file.resize(60);
        file += Little(64, 4) + std::string("PE\0\0", 4) + Little(0x14C, 2) + Little(1, 2) + Little(0, 12) +
                Little(optional.size(), 2) + Little(0, 2) + optional + section;
        file.resize(kOffset);
        return file + tree;
    }

private:
    static constexpr std::uint32_t kAddress = 0x3000, kOffset = 0x200;

    /// Its last entry leads to `target`, those before it nowhere.
    static std::string Directory(const std::vector<std::uint32_t>& ids, std::uint32_t target, bool inner = true) {
        std::string directory = Little(0, 12) + Little(ids.size() - 1, 2) + Little(1, 2);
        for (const std::uint32_t id : ids)
            directory += Little(id, 4) + Little(id == ids.back() ? target | (inner ? 0x80000000 : 0) : 0x7FFFFFFF, 4);
        return directory;
    }

    static std::string Padded(std::string bytes) {
        bytes.resize((bytes.size() + 3) / 4 * 4);
        return bytes;
    }
    static std::string Block(std::u16string_view key, std::string value, std::size_t valueLength, bool isText,
                             const std::vector<std::string>& children = {}) {
        std::string bytes = Padded(Little(0, 6) + Utf16(key) + Little(0, 2)) + value;
        for (const std::string& child : children) bytes = Padded(bytes) + child;
        return Little(bytes.size(), 2) + Little(valueLength, 2) + Little(isText ? 1 : 0, 2) + bytes.substr(6);
    }
    std::string Text(std::u16string_view key, std::u16string_view text) const {
        const std::string value = Utf16(text) + Little(0, 2);
        return Block(key, value, lengthInBytes ? value.size() : value.size() / 2, true);
    }
    std::string Resource() const {
        const std::string strings =
            Block(u"StringFileInfo", "", 0, true,
                  {Block(table, "", 0, true, {Text(u"CompanyName", u"Us"), Text(name, version), Text(u"Z", u"")})});
        const std::string translation =
            Block(u"VarFileInfo", "", 0, true,
                  {Block(u"Translation", Little(language, 2) + Little(page, 2) + Little(0x0407, 2) + Little(0, 2), 8,
                         false)});
        return Block(u"VS_VERSION_INFO", std::string(52, '\x01'), 52, false,
                     wordsTranslationFirst ? std::vector{translation, strings} : std::vector{strings, translation});
    }
};

/// A program of this platform with a foreign note and one with the version.
struct NotedFile {
    bool wide = true;
    std::string owner = "Ombrin", version = "3.33";
    std::uint32_t type = 1;

    std::string Bytes() const {
        const int width = wide ? 8 : 4;
        const std::size_t table = 64, rowSize = wide ? 56 : 32, notesAt = table + 2 * rowSize;
        const std::string notes = Note("GNU", 3, "1234567") + Note(owner, type, version);
        std::string header = std::string("\x7F") + "ELF" + (wide ? '\2' : '\1') + '\1';
        header.resize(wide ? 32 : 28);
        header += Little(table, width);
        header.resize(wide ? 54 : 42);
        header += Little(rowSize, 2) + Little(2, 2);
        header.resize(table);
        std::string row = Little(4, 4);
        row.resize(wide ? 8 : 4);
        row += Little(notesAt, width);
        row.resize(wide ? 32 : 16);
        row += Little(notes.size(), width);
        row.resize(wide ? 48 : 28);
        row += Little(4, width);
        row.resize(rowSize);
        return header + std::string(rowSize, '\1') + row + notes;
    }

private:
    static std::string Note(const std::string& owner, std::uint32_t type, const std::string& text) {
        std::string name = owner + '\0', padded = text;
        name.resize((name.size() + 3) / 4 * 4);
        padded.resize((text.size() + 3) / 4 * 4);
        return Little(owner.size() + 1, 4) + Little(text.size(), 4) + Little(type, 4) + name + padded;
    }
};

} // namespace ombrin
