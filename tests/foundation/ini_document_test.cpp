#include "foundation/ini_document.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

using testing::ElementsAre;
using testing::Optional;

/// What another program reads after the value was written.
std::optional<std::string> ReadBack(std::string_view section, std::string_view key, std::string_view value,
                                    std::string_view before = "") {
    IniDocument document(before);
    if (!document.SetValue(section, key, value)) return std::nullopt;
    return IniDocument(document.Text()).Value(section, key);
}

TEST(IniDocument, ValuesAreFoundAsPeopleWriteThem) {
    const IniDocument document("stray=none\n"
                               "; [Hidden]\n"
                               "[ AutoConnect ] behind\n"
                               "DefaultIP = lobby.example ; not a comment\n"
                               "\tdefaultip=second\n"
                               ";Commented=1\n"
                               "no equals sign\n"
                               "=no key\n"
                               "Empty=\n"
                               "Quoted= \"  two blanks  \" \n"
                               "Single='it''s'\n"
                               "Lone=\"\n"
                               "Equals=a=b\n"
                               "[Sound\n"
                               "PMSound=ding.wav\n"
                               "[autoconnect]\n"
                               "OnlyHere=1");
    struct Case {
        const char *section, *key;
        std::optional<std::string> value;
    };
    const Case kCases[] = {
        {"AUTOCONNECT", "DEFAULTIP", "lobby.example ; not a comment"},
        {" autoconnect ", " defaultip ", "lobby.example ; not a comment"},
        {"AutoConnect", "Empty", ""},
        {"AutoConnect", "Quoted", "  two blanks  "},
        {"AutoConnect", "Single", "it''s"},
        {"AutoConnect", "Lone", "\""},
        {"AutoConnect", "Equals", "a=b"},
        {"Sound", "PMSound", "ding.wav"},
        {"AutoConnect", "Commented", std::nullopt},
        {"AutoConnect", "OnlyHere", std::nullopt}, // the first section of a name counts
        {"AutoConnect", "stray", std::nullopt},
        {"AutoConnect", "no equals sign", std::nullopt},
        {"AutoConnect", "", std::nullopt},
        {"Hidden", "DefaultIP", std::nullopt},
    };
    for (const Case& c : kCases) EXPECT_EQ(document.Value(c.section, c.key), c.value) << c.section << " / " << c.key;
    EXPECT_THAT(document.Sections(), ElementsAre("AutoConnect", "Sound", "autoconnect"));
    EXPECT_THAT(document.Keys("SOUND"), ElementsAre("PMSound"));
    EXPECT_THAT(document.Keys("None"), ElementsAre());
}

TEST(IniDocument, AnyValueOfOneLineComesBackAsItWasWrittenUnderAnyName) {
    constexpr const char* kValues[] = {
        "",          "plain",   " ",        "  leading",    "trailing ",       "\ttab\t",
        "\"",        "'",       "\"\"",     "\"'",          "\"quoted\"",      "'quoted'",
        "\"\"\"\"",  " \"x\" ", "\"x",      "x\"",          "\"a\" and \"b\"", "; no comment",
        "[Section]", "a=b",     "\x80\xFF", "\xEF\xBB\xBF", "\x01\x7F"};
    for (const std::string value : kValues) {
        SCOPED_TRACE(testing::PrintToString(value));
        EXPECT_THAT(ReadBack("S", "K", value), Optional(value));
        EXPECT_THAT(ReadBack("S", "K", value, "[S]\n K = old\n"), Optional(value));
    }
    for (const auto& [section, key] : {std::pair{"a=b;c", "x]y"}, std::pair{"[in", "key with 'quotes\""},
                                       std::pair{";not a comment", "a;b[c"}, std::pair{"\"s\"", "\xC4\xF6"}})
        EXPECT_THAT(ReadBack(section, key, "v", "[other]\nkey=1\n"), Optional(std::string("v"))) << section << key;
}

TEST(IniDocument, WhatCannotStandInTheFileIsRefusedAndChangesNothing) {
    struct Case {
        std::string section, key, value;
    };
    const Case kRefused[] = {
        {"", "k", "v"},
        {"s]", "k", "v"},
        {" s", "k", "v"},
        {"s\n", "k", "v"},
        {"s", "", "v"},
        {"s", "a=b", "v"},
        {"s", " k", "v"},
        {"s", ";k", "v"},
        {"s", "[k", "v"},
        {"s", "k\rk", "v"},
        {"s", "k", "two\nlines"},
        {"s", "k", std::string("NUL\0", 4)},
        {std::string("\0s", 2), "k", "v"},
    };
    for (const Case& c : kRefused) {
        IniDocument document("[s]\nk=old\n");
        EXPECT_FALSE(IniDocument::CanHold(c.section, c.key, c.value)) << testing::PrintToString(c.section + c.key);
        EXPECT_FALSE(document.SetValue(c.section, c.key, c.value));
        EXPECT_EQ(document.Text(), "[s]\nk=old\n");
    }
}

TEST(IniDocument, WritingTouchesOneLineAndKeepsTheRest) {
    struct Case {
        const char *what, *section, *key, *before, *after;
    };
    constexpr Case kCases[] = {
        {"into an empty file", "S", "K", "", "[S]\nK=v\n"},
        {"comments, blank lines and order stay", "b", "two",
         "; by hand\n\n[A]\nOne=1\n\n[B]\n; note\nTwo=2\nThree=3\n\n; the end",
         "; by hand\n\n[A]\nOne=1\n\n[B]\n; note\nTwo=v\nThree=3\n\n; the end\n"},
        {"the first of two equal keys", "s", "k", "[S]\nK=1\nK=2\n[S]\nK=3\n", "[S]\nK=v\nK=2\n[S]\nK=3\n"},
        {"a new key behind the last line of its section", "A", "New", "[A]\nOne=1\n\n\n[B]\nTwo=2\n",
         "[A]\nOne=1\nNew=v\n\n\n[B]\nTwo=2\n"},
        {"a new key in an empty section", "A", "New", "[A]\n[B]\n", "[A]\nNew=v\n[B]\n"},
        {"a new section behind a blank line", "B", "K", "[A]\nOne=1", "[A]\nOne=1\n\n[B]\nK=v\n"},
        {"line ends of a file from Windows", "A", "New", "[A]\r\nOne=1\r\n", "[A]\r\nOne=1\r\nNew=v\r\n"},
        {"a byte order mark", "a", "one", "\xEF\xBB\xBF[A]\r\nOne=1\r\n", "\xEF\xBB\xBF[A]\r\nOne=v\r\n"},
        {"a key spelt otherwise keeps its spelling", "SKIN", "backgroundimage", "[Skin]\n BackgroundImage = a.bmp\n",
         "[Skin]\n BackgroundImage =v\n"},
    };
    for (const Case& c : kCases) {
        IniDocument document(c.before);
        EXPECT_TRUE(document.SetValue(c.section, c.key, "v")) << c.what;
        EXPECT_EQ(document.Text(), c.after) << c.what;
    }
}

} // namespace
} // namespace ombrin
