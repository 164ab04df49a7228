// What Windows programs have left in a prefix, behind the client's own registry.
#include "platform/wine_registry.h"

#include "foundation/runtime_error.h"
#include "platform/hive_registry.h"
#include "platform/recording/memory_files.h"
#include "platform/user_registry.h"

#include <gtest/gtest.h>

namespace ombrin {
namespace {

constexpr const char* kSystem = R"(WINE REGISTRY Version 2
;; All keys relative to \\Machine

"lost"="before any key"
[Software\\Maker\\Game One] 1700000000
#time=1da0000000000
@="standard"
"installed to"="C:\\Games\\One \"1\""
"number"=dword:000003ff
"binary"=hex:01,02
"variable"=str(2):"%ProgramFiles%\\x"
"Gr\x00f6\x00dfe"="\x00e4"
"no such character"="\x0416"
"open="
[Software\\Maker\\Game One\\Deep!] 1
[Software\\Maker\\Game One\\Deep\\Deeper] 1
"x"="y"
[Software\\Wow6432Node\\Old Maker\\Game Two] 1
"installed to"="C:\\Two"
[not closed
"stray"="1"
)";

struct Prefix : testing::Test {
    recording::MemoryFiles files;
    HiveRegistry hive{files, "/home/registry.ini"};
    std::string named = "/prefix";
    WineRegistry registry{hive, files, CodePage::Usual(), [this] { return named; }};

    Prefix() { Write("/prefix/system.reg", kSystem); }
    void Write(const std::string& path, const std::string& text) {
        files.Update(path, Files::Readers::Everybody, [&](const auto&) { return std::optional(text); });
    }
    std::string Text(const std::string& key, const std::string& name) {
        RegistryValue value;
        try {
            if (QueryValueEx(registry, "HKEY_LOCAL_MACHINE\\" + key, name, value) == kOtherType) return "other";
        } catch (const RuntimeError& error) {
            return error.Is(ErrorNumber::InvalidProcedureCall) ? "none" : error.what();
        }
        const auto* number = std::get_if<std::int32_t>(&value);
        return number != nullptr ? std::to_string(*number) : std::get<std::string>(value);
    }
};

TEST_F(Prefix, ValuesAreReadAsTheyWereLeft) {
    const struct {
        const char *key, *name, *value;
    } kCases[] = {
        {"SOFTWARE\\maker\\game one", "Installed To", "C:\\Games\\One \"1\""},
        {"Software\\Maker\\Game One", "", "standard"},
        {"Software\\Maker\\Game One", "number", "1023"},
        {"Software\\Maker\\Game One", "binary", "other"},
        {"Software\\Maker\\Game One", "variable", "%ProgramFiles%\\x"},
        {"Software\\Maker\\Game One",
         "Gr\xF6\xDF"
         "e",
         "\xE4"},
        {"Software\\Maker\\Game One", "no such character", "other"},
        {"Software\\Maker\\Game One", "lost", "none"},
        {"Software\\Maker\\Game One", "stray", "none"},
        {"SOFTWARE\\Old Maker\\Game Two", "installed to", "C:\\Two"}, // as a 32-bit program would see it
        {"SOFTWARE\\Nobody", "x", "none"},
    };
    for (const auto& row : kCases) EXPECT_EQ(Text(row.key, row.name), row.value) << row.key << " " << row.name;
}

TEST_F(Prefix, TheClientsOwnGoesFirstAndAloneIsWritten) {
    const std::string key = "HKEY_LOCAL_MACHINE\\Software\\Maker";
    registry.Write(key + "\\Game One", "installed to", std::string("/mine"));
    registry.Write(key + "\\Another", "x", 1);
    EXPECT_EQ(Text("Software\\Maker\\Game One", "installed to"), "/mine");
    EXPECT_EQ(registry.Subkeys(key), (std::vector<std::string>{"Another", "Game One"}));
    EXPECT_EQ(files.Content("/prefix/system.reg"), kSystem);
    EXPECT_TRUE(registry.Has(key + "\\Game One\\Deep"));
    EXPECT_FALSE(registry.Has(key + "\\Game"));
    Write("/prefix/user.reg", "[Software\\\\Mine] 1\n\"a\"=\"b\"\n");
    EXPECT_TRUE(registry.Has("HKEY_CURRENT_USER\\Software\\Mine"));
    named.clear();
    EXPECT_FALSE(registry.Has("HKEY_CURRENT_USER\\Software\\Mine")) << "no prefix is named any more";
}

TEST_F(Prefix, NoLineLeadsAstray) {
    const std::string whole = kSystem;
    for (std::size_t length = 0; length <= whole.size(); ++length)
        EXPECT_LE(WineRegistry::Parse(whole.substr(0, length), CodePage::Usual()).size(), 4u) << length;
    for (const char* odd : {"[", "[]\n=\n@\n@=\n\"\"=\"\\x\"\n", "[\\x]\n\"\\", "[a]\n\"b\"=dword:\n\"b\"=dword:zz"})
        EXPECT_LE(WineRegistry::Parse(odd, CodePage::Usual()).size(), 1u) << odd;
}

} // namespace
} // namespace ombrin
