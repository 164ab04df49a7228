// The text of an INI file: sections of `key=value` lines, kept with its comments, blank lines and order.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin {

/// Section and key names are compared without regard to case, the first match counts. A value is read without the
/// blanks around it, and without one pair of quotes ("" or '') around that; writing adds such a pair where the value
/// would not come back otherwise.
class IniDocument {
public:
    IniDocument() = default;
    explicit IniDocument(std::string_view text);

    /// Nothing when section or key is missing.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;

    /// Replaces the value of the first such key, else adds the key at the end of the section, else adds the section.
    /// False, and nothing changed, when the names or the value cannot stand in the file (see CanHold).
    bool SetValue(std::string_view section, std::string_view key, std::string_view value);

    /// Takes every such key of the section away.
    void Remove(std::string_view section, std::string_view key);

    /// Takes every such section away, with what stands in it.
    void RemoveSection(std::string_view section);

    std::vector<std::string> Keys(std::string_view section) const;
    std::vector<std::string> Sections() const;

    std::string Text() const;

    /// No line breaks or NUL anywhere, no "]" in a section, no "=" or outer blanks in a key, no comment sign or "[" at
    /// its start, and neither name empty.
    static bool CanHold(std::string_view section, std::string_view key, std::string_view value);

private:
    struct Line {
        std::string text; ///< as it stands in the file, without its end
        std::string_view Key() const;
        std::string_view Value() const;
        bool IsSection() const;
        std::string_view SectionName() const;
    };

    std::size_t SectionStart(std::string_view section) const; ///< index behind the header, or npos
    std::size_t SectionEnd(std::size_t start) const;
    std::size_t KeyLine(std::string_view section, std::string_view key) const;

    std::vector<Line> lines;
    std::string lineEnd = "\n";
    bool byteOrderMark = false;
};

} // namespace ombrin
