// What the real local files do with modes and links; components that are loaded for real; sums and signatures.
#include "../foundation/raised.h"
#include "../support/scratch.h"
#include "platform/posix/posix_components.h"
#include "platform/posix/posix_local_files.h"
#include "platform/recording/held_bytes.h"
#include "platform/sodium/sodium_integrity.h"

#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace ombrin {
namespace {

using enum LocalFiles::WriteMode;
using testing::UnorderedElementsAre;

class PosixLocalFilesTest : public testing::Test {
protected:
    struct stat Info(const std::string& name) {
        struct stat info {};
        EXPECT_EQ(stat((root + name).c_str(), &info), 0);
        return info;
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(root)) names.push_back(entry.path().filename());
        return names;
    }

    Scratch scratch;
    PosixLocalFiles files{CodePage::Usual()};
    const std::string& root = scratch.path;
};

TEST_F(PosixLocalFilesTest, ACopyKeepsTheModeOfWhatItReplacesAndANewProgramCanBeRun) {
    const struct {
        const char *content, *target;
        mode_t old, mode;
    } kRows[] = {{"text", "/a", 0640, 0640},
                 {"text", "/b", 0, 0644},
                 {"\177ELF...", "/c", 0, 0755},
                 {"#!/bin/sh\n", "/d", 0, 0755},
                 {"MZ", "/e", 0, 0755}};
    for (const auto& row : kRows) {
        files.Write(root + "/source", row.content, Create);
        if (row.old != 0) {
            files.Write(root + row.target, "old", Create);
            chmod((root + row.target).c_str(), row.old);
        }
        files.Copy(root + "/source", root + row.target);
        EXPECT_EQ(Info(row.target).st_mode & 07777, row.mode) << row.target;
    }
    EXPECT_THAT(Names(), UnorderedElementsAre("source", "a", "b", "c", "d", "e")); // and nothing aside
}

TEST_F(PosixLocalFilesTest, WhatCannotBeReplacedStaysAsItIs) {
    files.Write(root + "/source", "new", Create);
    files.Write(root + "/protected", "old", Create);
    chmod((root + "/protected").c_str(), 0444);
    std::filesystem::create_directory(root + "/folder");
    for (const char* target : {"/protected", "/folder"})
        EXPECT_EQ(Raised([&] { files.Copy(root + "/source", root + target); }), 75) << target;
    EXPECT_EQ(Raised([&] { files.Copy(root + "/source", root + "/none/file"); }), 76);
    EXPECT_EQ(files.Open(root + "/protected")->ReadAt(0, 1000), "old");
    EXPECT_THAT(Names(), UnorderedElementsAre("source", "protected", "folder"));
}

TEST_F(PosixLocalFilesTest, WhatIsNoPlainFileIsNotWritten) {
    std::filesystem::create_directory(root + "/folder");
    ASSERT_EQ(mkfifo((root + "/pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink(root + "/elsewhere", root + "/link");
    for (const char* path : {"/folder", "/pipe", "/link", "/none/file"})
        EXPECT_FALSE(files.Write(root + path, "x", Create)) << path;
    EXPECT_FALSE(std::filesystem::exists(root + "/elsewhere"));
}

TEST_F(PosixLocalFilesTest, ATimeIsSetToItsUnitsAndTheRoomOfAFolderIsKnown) {
    files.Write(root + "/a", "x", Create);
    EXPECT_TRUE(files.SetModifiedTime(root + "/a", 125'911'584'001'234'567)); // 2000-01-01 and a bit
    EXPECT_EQ(Info("/a").st_mtim.tv_sec, 946'684'800);
    EXPECT_EQ(Info("/a").st_mtim.tv_nsec, 123'456'700);
    EXPECT_GT(files.FreeSpace(root).value().bytes, 0U);
    EXPECT_EQ(files.FreeSpace(root).value().fileSystem, files.FreeSpace(root + "/").value().fileSystem);
    EXPECT_FALSE(files.FreeSpace(root + "/none").has_value());
}

TEST_F(PosixLocalFilesTest, AComponentRegistersItselfByItsEntryPoint) {
    PosixComponents components(CodePage::Usual());
    EXPECT_TRUE(components.Register(OMBRIN_TEST_COMPONENT, true));
    EXPECT_FALSE(components.Register(OMBRIN_TEST_COMPONENT, false)); // this one does not want to go
    files.Write(root + "/text.dll", "no library", Create);
    EXPECT_EQ(Raised([&] { components.Register(root + "/text.dll", true); }), 53);
    EXPECT_EQ(Raised([&] { components.Register(root + "/none.dll", true); }), 53);
}

TEST(SodiumIntegrity, SumsAndSignaturesAreThoseOfTheStandards) {
    SodiumIntegrity integrity;
    recording::HeldBytes abc("abc"), large(std::string(std::size_t{600} * 1024, 'a'));
    EXPECT_EQ(integrity.Sha256(abc), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(integrity.Sha256(large), "79b1f2657e3325ff16db5d3c65a47b780dd5a145b530e0915401400cff351dd3");
    const std::string key = "3d4017c3e843895a92b70aa74d1b7ebc9c982ccf2ec4968cc0cd55f12af4660c"; // RFC 8032, test 2
    const std::string signature = "92a009a9f0d4cab8720e820b5f642540a2b27b5416503f8fb3762223ebdb69da"
                                  "085ac1e43e15996e458f3613d0f11d8c387b2eaeb4302aeeb00d291612bb0c00";
    EXPECT_TRUE(integrity.Verify(key, "\x72", signature));
    EXPECT_FALSE(integrity.Verify(key, "\x73", signature));
    EXPECT_FALSE(integrity.Verify(key.substr(2), "\x72", signature));
    EXPECT_FALSE(integrity.Verify(key, "\x72", signature.substr(0, 126) + "0g"));
    EXPECT_FALSE(integrity.Verify(key, "\x72", signature + "00"));
}

} // namespace
} // namespace ombrin
