#include "foundation/ini_document.h"

#include "foundation/text.h"

#include <algorithm>

namespace ombrin {

namespace {

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineBreaks("\r\n\0", 3);

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
}

std::string Written(std::string_view value) {
    if (WithoutBlanks(value) != value || IsQuoted(value)) return Join("\"", value, "\"");
    return std::string(value);
}

} // namespace

std::string_view IniDocument::Line::Key() const {
    const std::string_view stripped = WithoutBlanks(text);
    if (stripped.empty() || stripped.front() == ';' || stripped.front() == '[') return {};
    const std::size_t equals = stripped.find('=');
    return equals == std::string_view::npos ? std::string_view{} : WithoutBlanks(stripped.substr(0, equals));
}

std::string_view IniDocument::Line::Value() const {
    const std::string_view whole = text;
    const std::string_view value = WithoutBlanks(whole.substr(whole.find('=') + 1));
    return IsQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

bool IniDocument::Line::IsSection() const { return WithoutBlanks(text).starts_with('['); }

std::string_view IniDocument::Line::SectionName() const {
    const std::string_view behind = WithoutBlanks(text).substr(1);
    return WithoutBlanks(behind.substr(0, behind.find(']')));
}

IniDocument::IniDocument(std::string_view text) {
    if (text.starts_with(kUtf8Mark)) {
        byteOrderMark = true;
        text.remove_prefix(kUtf8Mark.size());
    }
    const std::size_t firstEnd = text.find('\n');
    if (firstEnd != std::string_view::npos && firstEnd > 0 && text[firstEnd - 1] == '\r') lineEnd = "\r\n";
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        line = line.substr(0, line.find_last_not_of('\r') + 1); // one at a time would lose one at each writing
        lines.push_back({std::string(line)});
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

std::size_t IniDocument::SectionStart(std::string_view section) const {
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].IsSection() && EqualIgnoringCase(lines[i].SectionName(), section)) return i + 1;
    return kNowhere;
}

std::size_t IniDocument::SectionEnd(std::size_t start) const {
    std::size_t end = start;
    while (end < lines.size() && !lines[end].IsSection()) ++end;
    return end;
}

std::size_t IniDocument::KeyLine(std::string_view section, std::string_view key) const {
    const std::size_t start = SectionStart(section);
    if (start == kNowhere || key.empty()) return kNowhere;
    const std::size_t end = SectionEnd(start);
    for (std::size_t i = start; i < end; ++i)
        if (EqualIgnoringCase(lines[i].Key(), key)) return i;
    return kNowhere;
}

std::optional<std::string> IniDocument::Value(std::string_view section, std::string_view key) const {
    const std::size_t at = KeyLine(WithoutBlanks(section), WithoutBlanks(key));
    if (at == kNowhere) return std::nullopt;
    return std::string(lines[at].Value());
}

bool IniDocument::CanHold(std::string_view section, std::string_view key, std::string_view value) {
    const auto unbroken = [](std::string_view text) {
        return text.find_first_of(kLineBreaks) == std::string_view::npos;
    };
    return unbroken(section) && unbroken(key) && unbroken(value) && !section.empty() && !key.empty() &&
           section.find(']') == std::string_view::npos && WithoutBlanks(section) == section &&
           key.find('=') == std::string_view::npos && WithoutBlanks(key) == key && key.front() != ';' &&
           key.front() != '[';
}

bool IniDocument::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    if (!CanHold(section, key, value)) return false;
    const std::size_t at = KeyLine(section, key);
    if (at != kNowhere) {
        std::string& text = lines[at].text;
        text.resize(text.find('=') + 1);
        text += Written(value);
        return true;
    }
    const Line added{Join(key, "=", Written(value))};
    const std::size_t start = SectionStart(section);
    if (start == kNowhere) {
        if (!lines.empty() && !WithoutBlanks(lines.back().text).empty()) lines.push_back({});
        lines.push_back({Join("[", section, "]")});
        lines.push_back(added);
        return true;
    }
    std::size_t behindLast = SectionEnd(start);
    while (behindLast > start && WithoutBlanks(lines[behindLast - 1].text).empty()) --behindLast;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(behindLast), added);
    return true;
}

void IniDocument::Remove(std::string_view section, std::string_view key) {
    for (std::size_t at = KeyLine(section, key); at != kNowhere; at = KeyLine(section, key))
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
}

void IniDocument::RemoveSection(std::string_view section) {
    for (std::size_t start = SectionStart(section); start != kNowhere; start = SectionStart(section))
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(start) - 1,
                    lines.begin() + static_cast<std::ptrdiff_t>(SectionEnd(start)));
}

std::vector<std::string> IniDocument::Keys(std::string_view section) const {
    std::vector<std::string> keys;
    const std::size_t start = SectionStart(section);
    if (start == kNowhere) return keys;
    for (std::size_t i = start; i < SectionEnd(start); ++i)
        if (!lines[i].Key().empty()) keys.emplace_back(lines[i].Key());
    return keys;
}

std::vector<std::string> IniDocument::Sections() const {
    std::vector<std::string> sections;
    for (const Line& line : lines)
        if (line.IsSection()) sections.emplace_back(line.SectionName());
    return sections;
}

std::string IniDocument::Text() const {
    std::string text;
    if (byteOrderMark) text = kUtf8Mark;
    for (const Line& line : lines) {
        text += line.text;
        text += lineEnd;
    }
    return text;
}

} // namespace ombrin
