#include "foundation/code_page.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

TEST(CodePage, PagesDifferWhereTheirLanguagesDoAndLoseNoByte) {
    struct Case {
        const char* page;
        std::string_view bytes, utf8;
    };
    constexpr Case kCases[] = {
        {"Windows-1252", "\x80\x81\x9F\xA4\xFF", "\xE2\x82\xAC\xC2\x81\xC5\xB8\xC2\xA4\xC3\xBF"},
        {"windows-1250", "\x8A\xA5\xFF", "\xC5\xA0\xC4\x84\xCB\x99"},
        {"windows-1251", "\x88\xC0\xFF", "\xE2\x82\xAC\xD0\x90\xD1\x8F"},
        {"windows-1254", "\x80\xD0\xFD", "\xE2\x82\xAC\xC4\x9E\xC4\xB1"},
        {"ISO-8859-15", "\x80\xA4\xFF", "\xC2\x80\xE2\x82\xAC\xC3\xBF"},
        {"iso-8859-2", "\x8A\xA9\xFF", "\xC2\x8A\xC5\xA0\xCB\x99"},
    };
    for (const Case& c : kCases) {
        const CodePage* page = CodePage::Find(c.page);
        ASSERT_NE(page, nullptr) << c.page;
        EXPECT_EQ(page->ToUtf8(c.bytes), c.utf8) << c.page;
        for (int byte = 0; byte < 256; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            EXPECT_EQ(page->FromUtf8(page->ToUtf8(text)), text) << c.page << " byte " << byte;
        }
    }
    EXPECT_EQ(CodePage::Find("windows-1252"), &CodePage::Usual());
    for (const char* other : {"utf-8", ""}) EXPECT_EQ(CodePage::Find(other), nullptr) << other;
}

TEST(CodePage, WhatCannotBeHeldIsRefusedAsAWhole) {
    struct Case {
        const char* why;
        std::string_view text;
    };
    constexpr Case kRefused[] = {
        {"a continuation alone", "a\x80"},
        {"no continuation where one belongs", "\xC3("},
        {"cut behind the first byte", "\xE2"},
        {"cut behind the second byte", "\xE2\x82"},
        {"overlong letter", "\xC1\xAF"},
        {"overlong slash", "\xE0\x80\xAF"},
        {"overlong slash in four bytes", "\xF0\x80\x80\xAF"},
        {"overlong character of the page", "\xE0\x82\xA9"},
        {"half of a surrogate pair", "\xED\xA0\x80"},
        {"beyond the last character", "\xF4\x90\x80\x80"},
        {"five bytes", "\xF8\x88\x80\x80\x80"},
        {"a byte order mark", "\xEF\xBB\xBFx"},
        {"a letter of another page", "\xD0\x90"},
        {"a picture", "abc\xF0\x9F\x98\x80"},
    };
    for (const Case& c : kRefused) EXPECT_EQ(CodePage::Usual().FromUtf8(c.text), std::nullopt) << c.why;
    EXPECT_EQ(CodePage::Usual().FromUtf8(std::string_view("a\0b", 3)), std::string("a\0b", 3));
}

} // namespace
} // namespace ombrin
