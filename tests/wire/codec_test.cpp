#include "session/wire/codec.h"
#include "session/wire/codes.h"

#include "foundation/text.h"

#include <gmock/gmock.h>
#include <random>

namespace ombrin {
namespace {

TEST(Codec, GetCommandCutsOnePieceAndLosesASingleCharacterBehindIt) {
    struct Case {
        std::string_view buffer;
        char separator;
        std::string_view piece, rest;
    };
    constexpr Case kCases[] = {
        {"", ';', "", ""},        {"abc", ';', "", "abc"},    {"a;b;", ';', "a", "b;"},
        {"b;", ';', "b", ""},     {"a;b", ';', "a", ""},      {"a;;", ';', "a", ""},
        {"a;bc", ';', "a", "bc"}, {"ab;cd", ';', "ab", "cd"}, {";", ';', "", ""},
        {";;", ';', "", ""},      {";;;", ';', "", ";;"},     {";ab", ';', "", "ab"},
        {"9:x", ':', "9", ""},    {"38:", ':', "38", ""},     {"0:a;~1:b;~", '~', "0:a;", "1:b;~"},
    };
    for (const Case& c : kCases) {
        std::string_view buffer = c.buffer;
        EXPECT_EQ(GetCommand(buffer, c.separator), c.piece) << c.buffer;
        EXPECT_EQ(buffer, c.rest) << c.buffer;
    }
}

TEST(Codec, ALongArrivalIsCutWhole) {
    std::string arrival;
    for (int i = 0; i < 20'000; ++i) arrival += "13:user" + std::to_string(i) + ";2;~";
    std::string_view rest = arrival;
    int count = 0;
    while (!rest.empty()) {
        std::string_view message = GetCommand(rest, kMessageEnd);
        ASSERT_EQ(GetCommand(message, kCodeEnd), "13");
        ASSERT_EQ(GetCommand(message, kFieldEnd), "user" + std::to_string(count));
        ++count;
    }
    EXPECT_EQ(count, 20'000);
}

TEST(Codec, ReservedCharactersTravelAsTheirSequences) {
    struct Case {
        std::string_view text, encoded, decoded;
    };
    constexpr Case kCases[] = {
        {"", "", ""},
        {"hello", "hello", "hello"},
        {"a:b;c~", "a%*|@b^}|#c`@/<", "a:b;c~"},
        {":::", "%*|@%*|@%*|@", ":::"},
        {"%*|:", "%*|%*|@", "%*|:"},
        {"%*|@", "%*|@", ":"}, // a sequence as such has no escape
        {"^}|%*|@#", "^}|%*|@#", "^}|:#"},
        {"``@/<", "``@/<", "`~"},
        {"%*|", "%*|", "%*|"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(EncodeData(c.text), c.encoded) << c.text;
        EXPECT_EQ(DecodeData(EncodeData(c.text)), c.decoded) << c.text;
    }
}

/// The rule as it is told: one character or sequence after the other over the whole text.
std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

TEST(Codec, OneWalkDoesWhatReplacingInTurnDoes) {
    constexpr std::string_view kAlphabet = ":;~%*|@^}#`/<a ";
    std::mt19937 random(20030201);
    for (int i = 0; i < 20'000; ++i) {
        std::string text(random() % 24, ' ');
        for (char& c : text) c = kAlphabet[random() % kAlphabet.size()];
        const std::string encoded = Replaced(Replaced(Replaced(text, ":", "%*|@"), ";", "^}|#"), "~", "`@/<");
        const std::string decoded = Replaced(Replaced(Replaced(text, "%*|@", ":"), "^}|#", ";"), "`@/<", "~");
        ASSERT_EQ(EncodeData(text), encoded) << text;
        ASSERT_EQ(DecodeData(text), decoded) << text;
        ASSERT_EQ(FirstOf(EncodeData(text), ":;~"), '\0') << text;
        if (decoded == text) { // no sequence stood in it
            ASSERT_EQ(DecodeData(encoded), text);
        }
    }
}

template <std::size_t N>
void ExpectAscending(const std::array<CodeName, N>& names) {
    int before = -1;
    for (const CodeName& row : names) {
        EXPECT_EQ(std::to_string(ToLong(row.code)), row.code); // "01" would never be matched
        EXPECT_GT(ToLong(row.code), before) << "the second row of a code is never found: " << row.code;
        EXPECT_FALSE(row.name.empty()) << row.code;
        before = ToLong(row.code);
    }
}

TEST(Codec, NoCodeStandsTwiceInItsTable) {
    ExpectAscending(kServerCodeNames);
    ExpectAscending(kClientCodeNames);
}

} // namespace
} // namespace ombrin
