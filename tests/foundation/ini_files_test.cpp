#include "foundation/ini_files.h"

#include "platform/recording/memory_files.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

class IniFilesTest : public testing::Test {
protected:
    void Lies(const std::string& path, const std::string& content) {
        files.Update(path, Files::Readers::Everybody, [&](const auto&) { return std::optional(content); });
    }

    recording::MemoryFiles files;
    IniFiles ini{files, "/root/windows"};
};

TEST_F(IniFilesTest, ABareNameMeansTheWindowsDirectoryAndOneWithASeparatorAPath) {
    Lies("/root/windows/AV.ini", "[AutoConnect]\nDefaultIP=here\n");
    Lies("AV.ini", "[AutoConnect]\nDefaultIP=not here\n");
    for (const char* name : {"AV.ini", "av.ini", "Av.Ini"})
        EXPECT_EQ(ini.Read(name, "AutoConnect", "DefaultIP"), "here") << name;
    ini.Write("av.INI", "AutoConnect", "DefaultIP", "changed");
    EXPECT_EQ(files.Content("/root/windows/AV.ini"), "[AutoConnect]\nDefaultIP=changed\n");
    EXPECT_THAT(files.NamesIn("/root/windows"), testing::ElementsAre("AV.ini"));
    Lies("/root/windows/av.ini", "[AutoConnect]\nDefaultIP=by hand\n");
    for (const char* name : {"AV.ini", "av.ini", "Av.Ini"})
        EXPECT_EQ(ini.Read(name, "AutoConnect", "DefaultIP"), "changed") << "of two, the same one for " << name;
}

TEST_F(IniFilesTest, ANameWithASeparatorIsAPath) {
    ini.Write(R"(/games\FS2000.cfg)", "MultiPlayer", "Options", "1");
    EXPECT_EQ(files.Content("/games/FS2000.cfg"), "[MultiPlayer]\nOptions=1\n");
    EXPECT_EQ(ini.Read("/games/FS2000.cfg", "MultiPlayer", "Options"), "1");
    ini.Write(R"(\games\fs2000.CFG)", "MultiPlayer", "Options", "2");
    EXPECT_EQ(files.Content("/games/FS2000.cfg"), "[MultiPlayer]\nOptions=2\n");
    EXPECT_THAT(files.NamesIn("/games"), testing::ElementsAre("FS2000.cfg"));
}

TEST_F(IniFilesTest, AWrittenValueAndAFileChangedByOthersAreReadAtOnce) {
    EXPECT_EQ(ini.Read("AV.ini", "S", "K"), "") << "no file";
    for (const char* value : {"one", "two"}) {
        ini.Write("AV.ini", "S", "K", value);
        EXPECT_EQ(ini.Read("AV.ini", "S", "K"), value);
    }
    Lies("/root/windows/AV.ini", "[S]\nK=six\n");
    EXPECT_EQ(ini.Read("AV.ini", "S", "K"), "six");
    EXPECT_EQ(ini.Read("AV.ini", "S", "Other"), "");
    ini.Write("AV.ini", "S", "K", "two\nlines");
    EXPECT_EQ(ini.Read("AV.ini", "S", "K"), "six");
}

TEST_F(IniFilesTest, ALongValueIsCutAtTheLengthOfItsReader) {
    const std::string value(20'000, 'x');
    ini.Write("AV.ini", "S", "Long", value);
    ini.Write("AV.ini", "S", "Fits", std::string(127, 'x'));
    EXPECT_EQ(ini.Read("AV.ini", "S", "Long"), std::string(10'027, 'x'));
    EXPECT_EQ(ini.Read("AV.ini", "S", "Long", IniFiles::kShortValueLength), std::string(127, 'x'));
    EXPECT_EQ(ini.Read("AV.ini", "S", "Fits", IniFiles::kShortValueLength), std::string(127, 'x'));
}

} // namespace
} // namespace ombrin
