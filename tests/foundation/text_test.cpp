#include "foundation/text.h"

#include "foundation/runtime_error.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <optional>

namespace ombrin {
namespace {

TEST(Text, ExtractingCutsAtTheLastDelimiter) {
    struct Case {
        std::string_view text, delimiter, left, right;
    };
    constexpr Case kCases[] = {
        {"a b c", " ", "a b", "c"}, {R"(a\b\c.exe)", R"(\)", R"(a\b)", "c.exe"},
        {"c.exe", ".", "c", "exe"}, {"abc", ";", "", ""},
        {"", ";", "", ""},          {"abc;", ";", "abc", ""},
        {";abc", ";", "", "abc"},   {"Room (1) (3)", " (", "Room (1)", "3)"},
        {"abc", "", "", ""},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(StrExtractLeft(c.text, c.delimiter), c.left) << c.text;
        EXPECT_EQ(StrExtractRight(c.text, c.delimiter), c.right) << c.text;
    }
}

TEST(Text, CaseIsIgnoredInAsciiLettersOnly) {
    EXPECT_TRUE(EqualIgnoringCase("AV.ini", "av.INI"));
    EXPECT_FALSE(EqualIgnoringCase("AV.ini", "AV.in"));
    EXPECT_FALSE(EqualIgnoringCase("\xC4", "\xE4")); // a capital of the page's upper half is another letter
    EXPECT_FALSE(EqualIgnoringCase("[", "{"));       // the bit that tells cases apart tells these apart, too
}

TEST(Text, ASortedListIgnoresCaseFirst) {
    std::vector<std::string> names{"b", "\xC4", "a", "B", "ab", "A", "_", "Ab"};
    std::sort(names.begin(), names.end(), LessInSortedList);
    EXPECT_THAT(names, testing::ElementsAre("_", "A", "a", "Ab", "ab", "B", "b", "\xC4"));
    EXPECT_FALSE(LessInSortedList("a", "a"));
}

/// The number, or that of the error.
template <class Number>
std::string Outcome(Number (*convert)(std::string_view), std::string_view text) {
    try {
        return std::to_string(convert(text));
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.Number());
    }
}

TEST(Text, NumbersAreReadWholeOrRefusedWithTheirError) {
    struct Case {
        std::string_view text, integer, whole; ///< `integer` where it holds 16 bits, `whole` where it holds 32
    };
    constexpr Case kCases[] = {
        {" 42 ", "42", "42"},
        {"+7", "7", "7"},
        {"007", "7", "7"},
        {"32767", "32767", "32767"},
        {"32768", "error 6", "32768"},
        {"-32768", "-32768", "-32768"},
        {"-32769", "error 6", "-32769"},
        {"2147483647", "error 6", "2147483647"},
        {"2147483648", "error 6", "error 6"},
        {"99999999999999999999999", "error 6", "error 6"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(Outcome(ToInteger, c.text), c.integer) << c.text;
        EXPECT_EQ(Outcome(ToLong, c.text), c.whole) << c.text;
    }
    for (const char* other : {"", "  ", "-", "+-1", "+ 1", "1.5", "\t1", "99999999999999999999999x"})
        EXPECT_EQ(Outcome(ToLong, other), "error 13") << other;
}

} // namespace
} // namespace ombrin
