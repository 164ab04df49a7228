#include "foundation/text.h"

#include "foundation/runtime_error.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ombrin {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

int CompareIgnoringCase(std::string_view a, std::string_view b) {
    const std::size_t shared = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const auto left = static_cast<unsigned char>(Lower(a[i]));
        const auto right = static_cast<unsigned char>(Lower(b[i]));
        if (left != right) return left < right ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

template <class Number>
Number ToNumber(std::string_view text) {
    text = Trim(text);
    if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
    Number number{};
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem == std::errc::invalid_argument || end != text.data() + text.size())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    if (problem == std::errc::result_out_of_range) throw RuntimeError(ErrorNumber::Overflow);
    return number;
}

} // namespace

std::string_view StrExtractLeft(std::string_view text, std::string_view delimiter) {
    const std::size_t at = delimiter.empty() ? std::string_view::npos : text.rfind(delimiter);
    return at == std::string_view::npos ? std::string_view{} : text.substr(0, at);
}

std::string_view StrExtractRight(std::string_view text, std::string_view delimiter) {
    const std::size_t at = delimiter.empty() ? std::string_view::npos : text.rfind(delimiter);
    return at == std::string_view::npos ? std::string_view{} : text.substr(at + delimiter.size());
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareIgnoringCase(a, b) == 0;
}

bool LessInSortedList(std::string_view a, std::string_view b) {
    const int order = CompareIgnoringCase(a, b);
    return order != 0 ? order < 0 : a < b;
}

std::int16_t ToInteger(std::string_view text) { return ToNumber<std::int16_t>(text); }

std::int32_t ToLong(std::string_view text) { return ToNumber<std::int32_t>(text); }

char FirstOf(std::string_view text, std::string_view characters) {
    const std::size_t at = text.find_first_of(characters);
    return at == std::string_view::npos ? '\0' : text[at];
}

} // namespace ombrin
