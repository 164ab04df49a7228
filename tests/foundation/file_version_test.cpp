#include "foundation/file_version.h"

#include "platform/posix/file_source.h"
#include "platform/recording/held_bytes.h"
#include "raised.h"

#include <gtest/gtest.h>

namespace ombrin {
namespace {

using namespace std::string_literals;

std::string VersionOf(const std::string& bytes) {
    recording::HeldBytes file(bytes);
    return FileVersion(file);
}

/// One of the smallest programs that carry a version.
std::string Sample(const std::string& name) {
    FileSource file(OMBRIN_VERSION_SAMPLES + name);
    return file.ReadAt(0, file.Size());
}

std::string Wide(std::string_view ascii) {
    std::string utf16;
    for (const char c : ascii) utf16 += {c, '\0'};
    return utf16;
}

TEST(FileVersion, IsReadFromEveryKindOfProgramAsItsCompilerWroteIt) {
    const std::string table = Wide("040904B0"), name = Wide("FileVersion"), text = Wide("3.33");
    const struct {
        const char *what, *sample;
        std::vector<std::pair<std::string, std::string>> changes; ///< of the sample's bytes, in place
        std::string version;
    } kCases[] = {
        {"usual", "windows32", {}, "3.33"},
        {"64-bit", "windows64", {}, "3.33"},
        {"the other order, with lengths in bytes", "windows-other-order", {}, "3.33"},
        {"another language", "windows32", {{"\x09\x04\xB0\x04"s, "\x07\0\0\0"s}, {table, Wide("00070000")}}, "3.33"},
        {"small digits and names", "windows32", {{table, Wide("040904b0")}, {name, Wide("fileversion")}}, "3.33"},
        {"characters of the page and others", "windows32", {{text, "3\0\xAC\x20\x16\x04\xE9\0"s}}, "3\x80?\xE9"},
        {"cut at the first NUL", "windows32", {{text, Wide("3.4\0"s)}}, "3.4"},
        {"empty", "windows32", {{text, Wide("\0\0\0\0"s)}}, ""},
        {"a table of another language", "windows32", {{table, Wide("080904B0")}}, ""},
        {"no FileVersion", "windows32", {{name, Wide("FileEdition")}}, ""},
        {"no version resource", "windows32", {{"\x10\0\0\0\x28\0\0\x80"s, "\x0F\0\0\0\x28\0\0\x80"s}}, ""},
        {"no resource directory", "windows32", {{"\0\0\0\0\x10\0"s, "\0\0\0\0\2\0"s}}, ""},
        {"of this platform", "noted64", {}, "3.33"},
        {"of this platform, 32-bit", "noted32", {}, "3.33"},
        {"a note cut at its NUL", "noted64", {{"3.33", "4.1\0"s}}, "4.1"},
        {"a note of others", "noted64", {{"Ombrin", "Ombrim"}}, ""},
        {"a note of another kind", "noted64", {{"\1\0\0\0Ombrin"s, "\2\0\0\0Ombrin"s}}, ""},
    };
    for (const auto& c : kCases) {
        std::string program = Sample(c.sample);
        for (const auto& [from, to] : c.changes) {
            ASSERT_EQ(from.size(), to.size()) << c.what;
            ASSERT_NE(program.find(from), std::string::npos) << c.what;
            program.replace(program.find(from), from.size(), to);
        }
        EXPECT_EQ(VersionOf(program), c.version) << c.what;
    }
}

TEST(FileVersion, IsReadFromTheFirstLineOfAText) {
    const std::pair<std::string, std::string> kCases[] = {
        {";FileVersion=3.33\n[x]\n", "3.33"},
        {";FileVersion=3.33\r\n", "3.33"},
        {";FileVersion=" + std::string(50, '1') + "\n", std::string(50, '1')},
        {";FileVersion=" + std::string(51, '1') + "\n", ""},
        {";fileversion=3.33\n", ""},
        {"\n;FileVersion=3.33\n", ""},
        {"M", ""},
    };
    for (const auto& [text, version] : kCases) EXPECT_EQ(VersionOf(text), version) << text;
}

// What a broken download leaves: never another version, and no read outside of the file.
TEST(FileVersion, OfAFileThatEndsTooEarlyIsNeverAnother) {
    for (const char* name : {"windows32", "windows64", "noted32", "noted64", "line"}) {
        const std::string whole = Sample(name), cut = name == "line"s ? "\r\n" : "";
        for (std::size_t length = 0; length < whole.size() - cut.size(); ++length)
            ASSERT_EQ(VersionOf(whole.substr(0, length)), "") << length << " of " << name;
    }
}

TEST(FileVersion, OfAFileThatCannotBeReadIsTheErrorOfItsSource) {
    const std::pair<const char*, int> kCases[] = {{"/nothing/here", 53}, {"/dev", 75}, {"/dev/null", 75}};
    for (const auto& [path, error] : kCases) EXPECT_EQ(Raised([path = path] { FileSource file(path); }), error) << path;
    FileSource self("/proc/self/exe");
    EXPECT_EQ(self.ReadAt(1, 3), "ELF");
    EXPECT_EQ(self.ReadAt(self.Size() - 1, 100).size(), 1U);
    EXPECT_EQ(self.ReadAt(~0ULL, 100), "");
}

} // namespace
} // namespace ombrin
