// Which files the client finds to be old, and what it does with a list that it cannot follow.
#include "updating.h"

namespace ombrin::test {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string kError = "Error: occured in module GetFilesFromServer().  Error number: ";

} // namespace

TEST(UpdateCheck, AFileIsOfferedWhereItsVersionIsOlderAsText) {
    const struct {
        const char *local, *server;
        bool offered;
    } kCases[] = {
        {"3.33", "3.33", false}, {"3.33", "3.34", true},      {"4.10", "3.99", false}, {"10.10", "9.10", true},
        {"3.5", "3.6", false},   {"3.10.20", "3.10.3", true}, {"3", "4", true},        {"3.33B", "3.33a", true},
        {"3.33", "4", false},    {"3.33a", "3.33B", false},   {"", "3.33", true},
    };
    Updating ann;
    for (const auto& row : kCases) {
        ann.Has("/o/Client/Map.dat", row.local);
        ann.Lists(std::string("Map.dat;5;1;") + row.server + ";");
        EXPECT_EQ(ann.BoxText() == kQuestion, row.offered) << row.local << ", " << row.server;
        if (row.offered) ann.Answers(BoxResult::Cancel);
    }
}

TEST(UpdateCheck, WhatIsOlderOrMissingIsFetchedIntoItsDirectory) {
    Updating ann;
    ann.Has("/o/Client/Same.dat", "3.34"), ann.Has("/o/Client/Newer.dat", "3.35");
    ann.Has("/home/windows/Older.txt", "3.33"), ann.Has("/home/system/Older.dat", "3.33");
    ann.Begins("Same.dat;1;1;3.34;Older.txt;1;3;3.34;Older.dat;1;2;3.34;Newer.dat;1;1;3.34;New.dat;1;1;3.34;");
    EXPECT_EQ(ann.FileServer().RemoteHost + std::to_string(ann.FileServer().RemotePort), "up.example4000");
    EXPECT_FALSE(ann.view.Enabled());
    ann.Gives({"a", "b", "c"});
    EXPECT_THAT(ann.Asked(), ElementsAre("Ombrin:24:Older.txt:~", "Ombrin:24:Older.dat:~", "Ombrin:24:New.dat:~"));
    EXPECT_THAT(ann.FilesIn("/home/windows"), Contains("Older.txt: a"));
    EXPECT_THAT(ann.FilesIn("/home/system"), ElementsAre("Older.dat: b"));
    EXPECT_THAT(ann.FilesIn("/o/Client"), ElementsAre("New.dat: c", StartsWith("Newer.dat: ;"), StartsWith("Same")));
}

TEST(UpdateCheck, TheClientsOwnFilesAreReadByACopyInAPlaceOfItsOwn) {
    const struct {
        std::string listed, local, copy;
    } kCases[] = {
        {"OMBRINEXE.EXE;5;2;3.34;", "/home/system/OMBRINEXE.EXE", "/o/Client/OmbrinExe7.exe"},
        {"Ombrin.ocx;5;1;3.34;", "/o/Client/Ombrin.ocx", "/home/system/Ombrin7.ocx"},
        {"ping.OCX;5;3;3.34;", "/home/windows/ping.OCX", "/home/system/Ping7.ocx"},
    };
    Updating ann;
    for (const auto& row : kCases) {
        const std::string list = "Missing.dat;1;1;3.34;" + row.listed;
        ann.Lists(list);
        EXPECT_THAT(ann.Boxes(), ElementsAre(StartsWith(kError + "53")));
        ann.Has(row.local, "3.33");
        ann.world.localFiles.refused = {row.copy};
        ann.Lists(list);
        EXPECT_THAT(ann.Boxes(), ElementsAre(StartsWith(kError + "75")));
        ann.world.localFiles.refused.clear();
        ann.Lists(list);
        EXPECT_EQ(ann.BoxText(), kQuestion);
        EXPECT_FALSE(ann.world.files.StampOf(row.copy));
        ann.Answers(BoxResult::Cancel);
    }
    EXPECT_TRUE(ann.closeClientRaised && ann.FileServer().connects == 0);
}

TEST(UpdateCheck, NothingHappensWithoutAFileToFetch) {
    Updating ann;
    ann.Has("/o/Client/Map.dat", "3.34");
    for (const char* message : {"50:~", "50:up.example;none;~", "50:up.example;4000;;~",
                                "50:up.example;4000;Map.dat;5;1;3.34;~", "44:~", "44:up;1;Other.dat;1;1;9.9;~"})
        ann.Sends(message);
    EXPECT_TRUE(ann.Top().empty() && ann.view.Enabled());
}

TEST(UpdateCheck, ListsThatMayNotBeFollowedAreRefusedWhole) {
    std::string most;
    for (int i = 0; i < 1000; ++i) most += "File" + std::to_string(i) + "x.dat;1;1;3.34;";
    const std::string longName(197, 'n'), noName = ": this is no plain file name.";
    const std::pair<std::string, std::string> kCases[] = {
        {"../Map.dat;5;1;3.34;", "../Map.dat" + noName},
        {"a\\Map.dat;5;1;3.34;", "a\\Map.dat" + noName},
        {"C:Map.dat;5;1;3.34;", "C:Map.dat" + noName},
        {"M\tp.dat;5;1;3.34;", "M?p.dat" + noName},
        {longName + ".dat;5;1;3.34;", longName.substr(0, 60) + "..." + noName},
        {"Map.dat;5;4;3.34;", "Map.dat: its directory does not exist."},
        {"Map.dat;-1;1;3.34;", "Map.dat: its size is below zero."},
        {"Map7.dat;5;1;3.34;Map.dat;5;1;3.34;", "Map.dat: its temporary name is the name of another file of the list."},
        {most, "File999x.dat: the list is too long."},
        {"Map.dat;many;1;3.34;", kError + "13"},
        {"Map.dat;2147483648;1;3.34;", kError + "6"},
    };
    Updating ann;
    for (const auto& [list, why] : kCases) {
        ann.Lists("Good.dat;1;1;3.34;" + list);
        EXPECT_THAT(ann.Boxes(), ElementsAre(HasSubstr(why)));
    }
    for (const auto& [port, number] : {std::pair{"32768", "6"}, {"0", "5"}, {"http", "13"}}) {
        ann.Sends(std::string("50:up.example;") + port + ";Map.dat;5;1;3.34;~");
        EXPECT_THAT(ann.Boxes(), ElementsAre(StartsWith(kError + number)));
    }
    ann.Agrees(most);

    const std::string noDirectory = ": the settings name no ClientDirectory.";
    Updating homeless("", std::string(Integrity::kKeyDigits, 'a'));
    for (const auto& [list, file] : {std::pair{"Map.dat;5;1;3.34;", "Map.dat"},
                                     {"OmbrinExe.exe;5;2;3.34;", "OmbrinExe.exe"}, // whose copy goes there
                                     {"Map.dat;5;2;3.34;", "Ombrin.sums"}}) {
        homeless.Lists(list);
        EXPECT_THAT(homeless.Boxes(), ElementsAre(HasSubstr(file + noDirectory)));
    }
}

TEST(UpdateCheck, WhatCannotBeQueuedIsLeftOut) {
    Updating ann;
    ann.Lists("Map.dat;1;1;3.34;Map.dat;2;1;3.34;Nopoint;1;1;3.34;Last.dat;1;1;3.34;");
    const std::string error = "Error: occured in module AddFile().  Error number: ";
    EXPECT_THAT(ann.Boxes(), ElementsAre(StartsWith(error + "457"), StartsWith(error + "5"), kQuestion));
    ann.Do([&] { ann.FileServer().Accept(); });
    ann.Gives({"a", "b"});
    EXPECT_THAT(ann.Asked(), ElementsAre("Ombrin:24:Map.dat:~", "Ombrin:24:Last.dat:~"));
}

TEST(UpdateCheck, TheDiskNeedsRoomForAllFilesAndTheLargestCopy) {
    Updating ann;
    ann.Has("/o/Client/Ombrin.ocx", "3.33"); // which the patcher does not copy
    ann.world.localFiles.room = 149;
    ann.Lists("Ombrin.ocx;100;1;3.34;Map.dat;20;1;3.34;More.dat;10;1;3.34;");
    EXPECT_THAT(ann.Boxes(), ElementsAre(HasSubstr("More.dat: there is not enough room on the disk.")));
    ann.world.localFiles.room = 150;
    ann.Agrees("Ombrin.ocx;100;1;3.34;Map.dat;20;1;3.34;More.dat;10;1;3.34;");
}

TEST(UpdateCheck, OfTwoQuestionsTheNewerListIsTheOneThatCounts) {
    void (*const kAnswers[])(Updating&) = {
        [](Updating& ann) { ann.Answers(BoxResult::Ok); },
        [](Updating& ann) { ann.Answers(BoxResult::Cancel); },
        [](Updating& ann) { ann.EndsProgram(); },
    };
    for (const auto& answers : kAnswers) {
        Updating ann;
        ann.Lists("Old.dat;1;1;3.34;");
        ann.Sends("50:new.example;4001;New.dat;1;1;3.35;~");
        answers(ann);
        EXPECT_EQ(ann.closeClientRaised, &answers == &kAnswers[1]);
        EXPECT_EQ(ann.Boxes(), Rows(&answers == &kAnswers[2] ? 0 : 1, kQuestion)) << "the older one";
        EXPECT_EQ(ann.FileServer().connects, &answers == &kAnswers[0] ? 1 : 0);
        if (ann.FileServer().connects == 0) continue;
        ann.Do([&] { ann.FileServer().Accept(); });
        ann.Lists("Third.dat;1;1;3.36;");
        EXPECT_THAT(ann.Asked(), ElementsAre("Ombrin:24:New.dat:~"));
        EXPECT_EQ(ann.Top(), "DownloadProgress") << "a list that comes during the download asks nothing";
    }
}

TEST(UpdateCheck, AListThatComesUnderABoxOfAnotherGoesOnAlone) {
    Updating ann;
    ann.Has("/home/system/Ping.ocx", "3.33");
    ann.Lists("Nopoint;1;1;3.34;Ping.ocx;3;2;3.34;");
    ann.Begins("Ping.ocx;3;2;3.35;");
    ann.Gives({"new"});
    ann.Presses(ann.dialog.OK);
    EXPECT_THAT(ann.Boxes(), ElementsAre(StartsWith("Error: occured in module AddFile().")));
    EXPECT_EQ(ann.FileServer().connects, 1);
}

} // namespace ombrin::test
