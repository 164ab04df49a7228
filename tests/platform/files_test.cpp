// What every kind of Files and of LocalFiles promises.
#include "foundation/files.h"

#include "../foundation/raised.h"
#include "../support/scratch.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_local_files.h"
#include "platform/recording/memory_local_files.h"

#include <gmock/gmock.h>

namespace ombrin {
namespace {

using testing::Optional;
using testing::UnorderedElementsAre;

struct InMemory {
    recording::MemoryFiles files;
    recording::MemoryLocalFiles local{files};
    std::string root = "/root";
};

struct OnDisk {
    Scratch scratch;
    PosixFiles files{CodePage::Usual()};
    PosixLocalFiles local{CodePage::Usual()};
    std::string root = scratch.path;
};

template <class Kind>
class FilesTest : public testing::Test {
protected:
    void Write(const std::string& path, const std::string& content) {
        files.Update(path, Files::Readers::Everybody, [&](const auto&) { return std::optional(content); });
    }

    Kind kind;
    Files& files = kind.files;
    LocalFiles& local = kind.local;
    const std::string root = kind.root;
};

using Kinds = testing::Types<InMemory, OnDisk>;
TYPED_TEST_SUITE(FilesTest, Kinds);

TYPED_TEST(FilesTest, AnUpdateIsGivenTheOldContentAndLeavesTheNew) {
    const std::string path = this->root + "/file";
    const std::string content("\0\r\n\xFF"
                              "end",
                              7);
    std::vector<std::optional<std::string>> given;
    const auto update = [&](const std::optional<std::string>& next) {
        this->files.Update(path, Files::Readers::Everybody, [&](const std::optional<std::string>& old) {
            given.push_back(old);
            return next;
        });
    };
    update(std::nullopt);
    EXPECT_EQ(this->files.StampOf(path), std::nullopt) << "nothing to write makes no file";
    EXPECT_EQ(Raised([&] { this->files.Read(path); }), 53);
    update("");
    EXPECT_EQ(this->files.Read(path), "");
    update(content);
    const auto stamp = this->files.StampOf(path);
    update(std::nullopt);
    EXPECT_EQ(this->files.StampOf(path), stamp);
    EXPECT_EQ(this->files.Read(path), content);
    EXPECT_THAT(given, testing::ElementsAre(std::nullopt, std::nullopt, Optional(std::string()), Optional(content)));
}

TYPED_TEST(FilesTest, WhatTheChangeRaisesLeavesTheFileAlone) {
    this->Write(this->root + "/file", "old");
    const auto fails = [](const auto&) -> std::optional<std::string> { throw RuntimeError(ErrorNumber::Overflow); };
    EXPECT_THROW(this->files.Update(this->root + "/file", Files::Readers::Everybody, fails), RuntimeError);
    EXPECT_EQ(this->files.Read(this->root + "/file"), "old");
    this->Write(this->root + "/file", "new"); // and nothing stays locked
    EXPECT_EQ(this->files.Read(this->root + "/file"), "new");
}

TYPED_TEST(FilesTest, EveryChangeShowsInTheStampHoweverQuickAndSmall) {
    std::vector<Files::Stamp> seen;
    for (int i = 0; i < 100; ++i) {
        this->Write(this->root + "/file", i % 2 == 0 ? "a" : "b");
        seen.push_back(*this->files.StampOf(this->root + "/file"));
        EXPECT_EQ(std::count(seen.begin(), seen.end(), seen.back()), 1) << "change " << i << " looks like an older one";
    }
}

TYPED_TEST(FilesTest, RecordsAreAppendedUntilTheFileIsLongerThanTheLimit) {
    const std::string path = this->root + "/log";
    this->files.AppendRecord(path, "12345\n", 12);
    this->files.AppendRecord(path, "12345\n", 12);
    EXPECT_EQ(this->files.Read(path), "12345\n12345\n");
    this->files.AppendRecord(path, "\n", 12);
    EXPECT_EQ(this->files.Read(path), "12345\n12345\n\n");
    this->files.AppendRecord(path, "new\n", 12);
    EXPECT_EQ(this->files.Read(path), "new\n");
}

TYPED_TEST(FilesTest, NamesAreThoseOfOneFolderAndBothSeparatorsNameTheSameFile) {
    for (const char* name : {"/AV.ini", R"(\\AVfLang.ini)", "//\xC4.txt"})
        this->files.AppendRecord(this->root + name, "content", 10);
    for (const char* end : {"", "\\"})
        EXPECT_THAT(this->files.NamesIn(this->root + end), UnorderedElementsAre("AV.ini", "AVfLang.ini", "\xC4.txt"));
    EXPECT_THAT(this->files.NamesIn(this->root + "/AV"), UnorderedElementsAre());
    EXPECT_EQ(this->files.Read(this->root + "/AVfLang.ini"), "content");
    EXPECT_EQ(this->files.StampOf(this->root + R"(\AV.ini)"), this->files.StampOf(this->root + "//AV.ini"));
}

TYPED_TEST(FilesTest, ALocalFileIsWrittenCopiedAndDeleted) {
    using enum LocalFiles::WriteMode;
    const std::string a = this->root + "/a", b = this->root + "/b";
    EXPECT_EQ(Raised([&] { this->local.Copy(a, b); }), 53);
    EXPECT_TRUE(this->local.Write(a, ";FileVersion", Append)); // made where it is missing
    EXPECT_TRUE(this->local.Write(this->root + "\\a", "=1.5\n", Append));
    EXPECT_EQ(this->files.Read(a), ";FileVersion=1.5\n");
    EXPECT_TRUE(this->local.Write(b, "old", Append));
    EXPECT_TRUE(this->local.Write(b, std::string("n\0w", 3), Create));
    EXPECT_EQ(this->local.Open(b)->ReadAt(0, 1000), std::string("n\0w", 3));
    this->local.Copy(a, b);
    EXPECT_EQ(this->files.Read(b), this->files.Read(a));
    EXPECT_EQ(this->local.GetFileVersion(b), "1.5");
    for (const bool isThere : {true, false}) {
        EXPECT_EQ(this->local.SetModifiedTime(a, 0), isThere);
        EXPECT_EQ(this->local.Delete(a), isThere);
        EXPECT_EQ(this->local.GetFileVersion(a), "");
    }
}

} // namespace
} // namespace ombrin
