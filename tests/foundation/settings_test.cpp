#include "foundation/settings.h"

#include "platform/recording/memory_files.h"
#include "raised.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

class SettingsTest : public testing::Test {
protected:
    recording::MemoryFiles files;
    Settings settings{files, "/root/settings.ini"};
};

TEST_F(SettingsTest, AMissingValueIsTheDefaultThatTheCallerNames) {
    EXPECT_EQ(settings.GetSetting("Settings", "PublicIP", "N"), "N");
    settings.SaveSetting("Settings", "PublicIP", "");
    EXPECT_EQ(settings.GetSetting("settings", "publicip", "N"), "");
}

TEST_F(SettingsTest, NamesOfAnyKindKeepTheirValuesApart) {
    const std::vector<std::string> names{"Age of Empires II",
                                         "a=b",
                                         "[clan]",
                                         "x;y",
                                         ";first",
                                         "100%",
                                         "%3D",
                                         "=",
                                         " ",
                                         "  both  ",
                                         "both",
                                         "a b",
                                         "a%20b",
                                         "\t",
                                         "line\nbreak",
                                         "\"q\"",
                                         "'q'",
                                         "q",
                                         "\xDC-1",
                                         "\xEF\xBB\xBF",
                                         std::string(1, '\0')};
    for (std::size_t i = 0; i < names.size(); ++i) {
        settings.SaveSetting("Games", names[i], "as a key " + std::to_string(i));
        settings.SaveSetting(names[i], "key", "as a section " + std::to_string(i));
    }
    Settings readAnew(files, "/root/settings.ini");
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(readAnew.GetSetting("Games", names[i]), "as a key " + std::to_string(i)) << names[i];
        EXPECT_EQ(readAnew.GetSetting(names[i], "key"), "as a section " + std::to_string(i)) << names[i];
    }
}

TEST_F(SettingsTest, APasswordKeepsItsBlanksAndQuotes) {
    for (const std::string password : {" a ", "\"", "\"a\"", "'a'", "a=;[b]", "\t"}) {
        settings.SaveSetting("Settings", "UserPassword", password);
        EXPECT_EQ(settings.GetSetting("Settings", "UserPassword"), password);
    }
}

TEST_F(SettingsTest, WhatCannotBeKeptRaises5AndKeepsTheOldValue) {
    settings.SaveSetting("Settings", "UserName", "old");
    const std::string before = files.Content("/root/settings.ini");
    struct Case {
        std::string section, key, value;
    };
    const Case kRefused[] = {
        {"Settings", "UserName", "two\nlines"},
        {"Settings", "UserName", "two\rlines"},
        {"Settings", "UserName", std::string("NUL\0", 4)},
        {"Settings", "", "value"},
        {"", "UserName", "value"},
    };
    for (const Case& c : kRefused) {
        EXPECT_EQ(Raised([&] { settings.SaveSetting(c.section, c.key, c.value); }), 5) << c.section << c.key;
    }
    const auto half = [](SettingsDraft& draft) {
        draft.Put("Settings", "IP", "new");
        draft.Put("Settings", "UserName", "two\nlines");
    };
    EXPECT_EQ(Raised([&] { settings.Change(half); }), 5);
    EXPECT_EQ(files.Content("/root/settings.ini"), before);
}

} // namespace
} // namespace ombrin
