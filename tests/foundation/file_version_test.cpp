#include "foundation/file_version.h"

#include "platform/posix/file_source.h"
#include "platform/recording/held_bytes.h"
#include "program_files.h"
#include "raised.h"

#include <gtest/gtest.h>

namespace ombrin {
namespace {

std::string VersionOf(const std::string& bytes) {
    recording::HeldBytes file(bytes);
    return FileVersion(file);
}

TEST(FileVersion, IsReadFromWindowsProgramsAsTheirCompilersWriteThem) {
    struct Case {
        const char* what;
        WindowsFile file;
        std::string version;
    };
    const Case kCases[] = {
        {"usual", {}, "3.33"},
        {"64-bit", {.wide = true}, "3.33"},
        {"another language", {.language = 0x0007, .page = 0, .table = u"00070000"}, "3.33"},
        {"small digits and names", {.table = u"040904b0", .name = u"fileversion"}, "3.33"},
        {"lengths in bytes", {.lengthInBytes = true}, "3.33"},
        {"the other order", {.wordsTranslationFirst = true}, "3.33"},
        {"padding after each length", {.name = u"FileVersion", .version = u"3.3"}, "3.3"},
        {"a long text", {.version = std::u16string(300, u'1')}, std::string(300, '1')},
        {"characters of the page and others", {.version = u"3\u20AC\u0416\u00E9"}, "3\x80?\xE9"},
        {"cut at the first NUL", {.version = std::u16string(u"3.4\0.5", 6)}, "3.4"},
        {"empty", {.version = u""}, ""},
        {"a table of another language", {.table = u"080904B0"}, ""},
        {"no FileVersion", {.name = u"ProductVersion"}, ""},
        {"no version resource", {.type = 15}, ""},
        {"no resource directory", {.directories = 2}, ""},
    };
    for (const Case& c : kCases) EXPECT_EQ(VersionOf(c.file.Bytes()), c.version) << c.what;
}

TEST(FileVersion, IsReadFromTheNoteOfOurOwnPrograms) {
    EXPECT_EQ(VersionOf(NotedFile{}.Bytes()), "3.33");
    EXPECT_EQ(VersionOf(NotedFile{.wide = false}.Bytes()), "3.33");
    EXPECT_EQ(VersionOf(NotedFile{.version = std::string("4.1\0", 4)}.Bytes()), "4.1");
    EXPECT_EQ(VersionOf(NotedFile{.owner = "Ombrim"}.Bytes()), "");
    EXPECT_EQ(VersionOf(NotedFile{.type = 2}.Bytes()), "");
}

TEST(FileVersion, IsReadFromTheFirstLineOfAText) {
    const std::pair<std::string, std::string> kCases[] = {
        {";FileVersion=3.33\n[x]\n", "3.33"},
        {";FileVersion=3.33\r\n", "3.33"},
        {";FileVersion=\n", ""},
        {";FileVersion=3.33", ""}, // the line has no end: it may be half of a line
        {";FileVersion=" + std::string(50, '1') + "\n", std::string(50, '1')},
        {";FileVersion=" + std::string(51, '1') + "\n", ""},
        {";fileversion=3.33\n", ""},
        {"\n;FileVersion=3.33\n", ""},
        {"", ""},
        {"M", ""},
    };
    for (const auto& [text, version] : kCases) EXPECT_EQ(VersionOf(text), version) << text;
}

// What a broken download leaves: never another version, and no read outside of the file.
TEST(FileVersion, OfAFileThatEndsTooEarlyIsNeverAnother) {
    for (const std::string& whole : {WindowsFile{}.Bytes(), WindowsFile{.wide = true}.Bytes(), NotedFile{}.Bytes(),
                                     NotedFile{.wide = false}.Bytes(), std::string(";FileVersion=3.33\n")})
        for (std::size_t length = 0; length < whole.size(); ++length)
            ASSERT_EQ(VersionOf(whole.substr(0, length)), "") << length << " of " << whole.size();
}

TEST(FileVersion, SurvivesEveryDamageOfOneByte) {
    for (const std::string& whole : {WindowsFile{}.Bytes(), WindowsFile{.wide = true}.Bytes(), NotedFile{}.Bytes()})
        for (std::size_t at = 0; at < whole.size(); ++at)
            for (const char damage : {'\0', '\xFF', '\x7F'}) {
                std::string damaged = whole;
                damaged[at] = damage;
                ASSERT_LE(VersionOf(damaged).size(), whole.size()) << at;
            }
}

TEST(FileVersion, OfAFileThatCannotBeReadIsTheErrorOfItsSource) {
    const auto error = [](const char* path) { return Raised([&] { FileSource file(path); }); };
    EXPECT_EQ(error("/nothing/here"), 53);
    EXPECT_EQ(error("/dev"), 75);
    EXPECT_EQ(error("/dev/null"), 75);
    FileSource self("/proc/self/exe");
    EXPECT_EQ(self.ReadAt(1, 3), "ELF");
    EXPECT_EQ(self.ReadAt(self.Size() - 1, 100).size(), 1U);
    EXPECT_EQ(self.ReadAt(~0ULL, 100), "");
}

} // namespace
} // namespace ombrin
