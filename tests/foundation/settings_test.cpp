#include "foundation/settings.h"

#include "platform/recording/memory_files.h"
#include "raised.h"

#include <array>
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
    constexpr const char* kNames[] = {"Age of Empires II",
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
                                      "\xEF\xBB\xBF"};
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
        settings.SaveSetting("Games", kNames[i], "as a key " + std::to_string(i));
        settings.SaveSetting(kNames[i], "key", "as a section " + std::to_string(i));
    }
    Settings readAnew(files, "/root/settings.ini");
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
        EXPECT_EQ(readAnew.GetSetting("Games", kNames[i]), "as a key " + std::to_string(i)) << kNames[i];
        EXPECT_EQ(readAnew.GetSetting(kNames[i], "key"), "as a section " + std::to_string(i)) << kNames[i];
    }
}

TEST_F(SettingsTest, WhatCannotBeKeptRaises5AndKeepsTheOldValue) {
    settings.SaveSetting("Settings", "UserName", "old");
    const std::string before = files.Content("/root/settings.ini");
    const std::array<std::string, 3> kRefused[] = {
        {"Settings", "UserName", "two\nlines"}, {"Settings", "", "value"}, {"", "UserName", "value"}};
    for (const auto& row : kRefused)
        EXPECT_EQ(Raised([&] { settings.SaveSetting(row[0], row[1], row[2]); }), 5) << row[0] << row[1];
    const auto half = [](SettingsDraft& draft) {
        draft.Put("Settings", "IP", "new");
        draft.Put("Settings", "UserName", "two\nlines");
    };
    EXPECT_EQ(Raised([&] { settings.Change(half); }), 5);
    EXPECT_EQ(files.Content("/root/settings.ini"), before);
}

} // namespace
} // namespace ombrin
