// From the user's yes to the end of the client.
#include "updating.h"

namespace ombrin::test {

using testing::ElementsAre;
using testing::StartsWith;

TEST(Transfer, TwoFilesComeABufferAtATime) {
    const std::string first = "Downloading file 1 of 2, ", second = "Downloading file 2 von 2, ", more = "Ombrin:25:~";
    const std::string most(190, '4');
    const std::pair<std::string, std::string> kBuffers[] = {
        {"a", first + "12 %, 0"},   {"bc", first + "38 %, 0"},           {"defgh", second + "100 %, 1"},
        {"1", second + "0 %, 1"},   {"22", second + "2 %, 1"},           {"33", second + "2 %, 1"},
        {most, second + "98 %, 1"}, {"55555", kComplete + ", 100 %, 2"},
    };
    Updating ann;
    ann.client.Inis().Write("AVfLang.ini", "CurrentLanguage", "Language", "Deutsch");
    ann.client.Inis().Write("AVfLang.ini", "Deutsch", "Of", "von"); // no word of the first caption
    ann.Begins("A.dat;8;1;3.34;B.dat;200;2;3.34;");
    EXPECT_EQ(ann.Progress(), first + "0 %, 0");
    for (const auto& [buffer, progress] : kBuffers) {
        ann.Gives({buffer});
        EXPECT_EQ(ann.Progress(), progress);
    }
    EXPECT_THAT(ann.Asked(), ElementsAre("Ombrin:24:A.dat:~", more, more, "Ombrin:24:B.dat:~", more, more, more, more));
    EXPECT_THAT(ann.FilesIn("/o/Client"), ElementsAre("A.dat: abcdefgh"));
    EXPECT_THAT(ann.FilesIn("/home/system"), ElementsAre("B.dat: 12233" + most + "55555"));
    EXPECT_TRUE(ann.OffersOK());
    ann.Presses(ann.dialog.OK);
    EXPECT_THAT(ann.world.Told("shell"), ElementsAre(kPatcher));
    EXPECT_TRUE(ann.closeClientRaised && ann.FileServer().IsConnected());
}

TEST(Transfer, EveryArrivalIsOneBufferWhateverTheServerSent) {
    Updating ann;
    ann.Begins("A.dat;3;1;3.34;B.dat;2;1;3.34;");
    ann.Gives({"abcde", "x", "y", "nobody asked for these"});
    EXPECT_TRUE(ann.OffersOK());
    EXPECT_THAT(ann.FilesIn("/o/Client"), ElementsAre("A.dat: abcde", "B.dat: xy"));
    EXPECT_THAT(ann.Asked(), ElementsAre("Ombrin:24:A.dat:~", "Ombrin:24:B.dat:~", "Ombrin:25:~"));
}

TEST(Transfer, FilesWithoutAByteStopItNowhere) {
    for (const std::string sizes : {"0", "30", "3003"}) {
        Updating ann;
        std::string list;
        Rows files;
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            const std::string name = "F" + std::to_string(i) + ".dat";
            list += name + ";" + sizes[i] + ";1;3.34;";
            files.push_back(name + (sizes[i] == '3' ? ": abc" : ": "));
        }
        ann.Begins(list);
        ann.Gives(Rows(std::count(sizes.begin(), sizes.end(), '3'), "abc"));
        EXPECT_TRUE(ann.OffersOK()) << sizes;
        EXPECT_EQ(ann.FilesIn("/o/Client"), files);
    }
}

TEST(Transfer, WhoeverEndsItInTheSecondFileLeavesNothingBehind) {
    const std::string lost = "ERROR:  No longer connected to the server, data cannot be sent.";
    const struct {
        void (*end)(Updating& ann);
        std::string lastAsked;
        Rows boxes;
    } kWays[] = {
        {[](Updating& ann) { ann.Presses(ann.dialog.Cancel); }, "Ombrin:27:~", {kCanceled}},
        {[](Updating& ann) { ann.Closes(ann.dialog); }, "Ombrin:27:~", {kCanceled}},
        {[](Updating& ann) { ann.LosesFileServer(); }, "Ombrin:25:~", {lost, kCanceled}},
        {[](Updating& ann) { ann.EndsProgram(); }, "Ombrin:25:~", {}},
    };
    for (const auto& way : kWays) {
        Updating ann;
        ann.Lies("/o/Client/B.dat", "old");
        ann.Begins("A.dat;1;1;3.34;B.dat;2;1;3.34;C.dat;1;1;3.34;");
        ann.Gives({"a", "b"});
        way.end(ann);
        ann.Gives({"late"});
        EXPECT_EQ(ann.Boxes(), way.boxes);
        EXPECT_EQ(ann.closeClientRaised, !way.boxes.empty());
        EXPECT_EQ(ann.Asked().back(), way.lastAsked);
        EXPECT_THAT(ann.FilesIn("/o/Client"), ElementsAre("B.dat: old"));
        EXPECT_FALSE(ann.view.Enabled());
    }
}

TEST(Transfer, AtTheEndOnlyTheHandOverIsLeft) {
    const std::pair<void (*)(Updating&), Rows> kWays[] = {
        {[](Updating& ann) { ann.Closes(ann.dialog); }, {kPatcher}},
        {[](Updating& ann) { ann.LosesFileServer(), ann.Presses(ann.dialog.OK); }, {kPatcher}},
        {[](Updating& ann) { ann.EndsProgram(); }, {}},
    };
    for (const auto& [end, started] : kWays) {
        Updating ann;
        ann.Lies("/home/system/ombrin.ocx", "old");
        ann.Begins("ombrin.ocx;3;2;3.34;");
        ann.Gives({"new"});
        end(ann);
        EXPECT_EQ(ann.world.Told("shell"), started);
        EXPECT_EQ(ann.closeClientRaised, !started.empty());
        EXPECT_THAT(ann.FilesIn("/home/system"), ElementsAre("ombrin.ocx: old", "ombrin7.ocx: new"));
    }
}

TEST(Transfer, AConnectionThatDoesNotComeEndsLikeACancel) {
    void (*const kWays[])(Updating&) = {
        [](Updating& ann) { // known at once
            EXPECT_THAT(ann.BoxText(), StartsWith("Error: occured in module TransferFiles()."));
            ann.Answers(BoxResult::Ok);
        },
        [](Updating& ann) { ann.Do([&] { ann.FileServer().Fail(ConnectFailure::Refused); }); },
        [](Updating& ann) {
            ann.Passes(Milliseconds(29'999));
            EXPECT_EQ(ann.Top(), "");
            ann.Passes(Milliseconds(1));
            EXPECT_EQ(ann.FileServer().State(), SocketState::Closed);
        },
    };
    for (const auto& way : kWays) {
        Updating ann;
        ann.FileServer().connectErrors = {&way == kWays ? 10065 : 0};
        ann.Agrees("A.dat;1;1;3.34;");
        way(ann);
        EXPECT_THAT(ann.Boxes(), ElementsAre("The update server cannot be reached.", kCanceled));
        ann.Passes(Milliseconds(60'000));
        EXPECT_TRUE(ann.closeClientRaised && ann.Top().empty());
    }
    Updating inTime;
    inTime.Begins("A.dat;1;1;3.34;");
    inTime.Passes(Milliseconds(60'000));
    EXPECT_EQ(inTime.Top(), "DownloadProgress");
}

TEST(Transfer, WhatCannotBeWrittenStopsTheRestWithoutAWordToTheUser) {
    const struct {
        std::string refused, number, logged;
        Rows left;
    } kCases[] = {
        {"B.dat", "75", "", {"A.dat: a", "B7.dat: b", "C7.dat: oldc"}},
        {"B7.dat", "53", "WriteToFile(), CreateFile() failed", {"A.dat: a", "C7.dat: oldc"}},
    };
    for (const auto& row : kCases) {
        Updating ann;
        ann.Lies("/o/Client/C7.dat", "old"); // of an earlier try; the first alone is overwritten
        ann.world.localFiles.refused = {"/o/Client/" + row.refused};
        ann.Begins("A.dat;1;1;3.34;B.dat;1;1;3.34;C.dat;1;1;3.34;");
        ann.Gives({"a", "b", "c"});
        EXPECT_TRUE(ann.OffersOK());
        EXPECT_TRUE(ann.IsLogged("Error: occured in module " + row.logged));
        EXPECT_TRUE(ann.IsLogged("Error: occured in module CopyTemporaryFiles().  Error number: " + row.number));
        EXPECT_EQ(ann.FilesIn("/o/Client"), row.left);
    }
}

TEST(Transfer, ComponentsRegisterThemselvesOncePlaced) {
    for (const bool works : {true, false}) {
        Updating ann;
        ann.world.components.works = works;
        ann.Lies("/home/system/Ping.ocx", "old");
        ann.Begins("MAP.DLL;1;2;3.34;a.b.ocX;1;1;3.34;Read.txt;1;1;3.34;Ping.ocx;1;2;3.34;ocx.dat;1;1;3.34;");
        ann.Gives({"a", "b", "c", "d", "e"});
        EXPECT_THAT(ann.world.Told("register"), ElementsAre("/home/system/MAP.DLL", "/o/Client/a.b.ocX"));
        EXPECT_THAT(ann.FilesIn("/o/Client"), ElementsAre("Read.txt: c", "a.b.ocX: b", "ocx.dat: e"));
    }
}

TEST(Transfer, WithoutThePatcherTheClientStaysWithItsViewDisabled) {
    Updating ann;
    ann.world.processes.starts = {false};
    ann.Begins("A.dat;1;1;3.34;");
    ann.Gives({"a"});
    ann.Presses(ann.dialog.OK);
    EXPECT_THAT(ann.Boxes(), ElementsAre(StartsWith("Error: occured in module clsFT_DownloadComplete().")));
    EXPECT_FALSE(ann.closeClientRaised || ann.view.Enabled());
}

} // namespace ombrin::test
