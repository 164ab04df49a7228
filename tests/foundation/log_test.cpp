#include "foundation/log.h"
#include "foundation/trap.h"
#include "platform/recording/memory_files.h"

#include <gmock/gmock.h>
#include <new>
#include <stdexcept>

namespace ombrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_view_literals;

class FixedClock : public Clock {
public:
    TimePoint Now() const override { return {}; }
    std::string TimeText() const override { return "20:15:00"; }
    std::string DateText() const override { return "01/02/03"; }
};

class NotedBox : public PlainBox {
public:
    void ShowPlain(const std::string& text) override {
        shown.push_back(text);
        if (programEnds) throw ProgramEnding{};
    }
    std::vector<std::string> shown;
    bool programEnds = false;
};

class LogTest : public testing::Test {
protected:
    static constexpr const char* kPath = "/root/system/AVClLogs.txt";

    void LogOfSize(std::size_t bytes) {
        files.Update(kPath, Files::Readers::UserOnly, [&](const auto&) { return std::string(bytes, 'x'); });
    }
    std::string Written() const { return files.Content(kPath); }

    recording::MemoryFiles files;
    FixedClock clock;
    NotedBox box;
    Log log{files, clock, "/root/system", box};
    Trap trap{log};
};

TEST_F(LogTest, ATraceIsOneQuotedLineWithoutABoxWhateverItHolds) {
    log.TraceMessage("leaving room");
    log.TraceMessage("a\r\n\"[20:15:00 01/02/03] forged\"\t\0\x1B[2J\xFC"sv);
    EXPECT_EQ(Written(), "\"[20:15:00 01/02/03] leaving room\"\n"
                         "\"[20:15:00 01/02/03] a  \"[20:15:00 01/02/03] forged\"   [2J\xFC\"\n");
    EXPECT_THAT(box.shown, IsEmpty());
}

TEST_F(LogTest, AFullFileIsStartedAnewAndNoEarlier) {
    const std::string record = "\"[20:15:00 01/02/03] next\"\n";
    for (const auto& [size, after] : {std::pair(7'000'000U, 7'000'000 + record.size()), {7'000'001U, record.size()}}) {
        LogOfSize(size);
        log.TraceMessage("next");
        EXPECT_EQ(Written().size(), after);
    }
}

TEST_F(LogTest, ALogThatCannotBeWrittenCostsOneBoxARecord) {
    files.failAppends = 61;
    log.TraceMessage("lost");
    log.LogError("shown", true);
    const char* failure = "Error: occured in module LogError() in file mdlCommon.  Error number: 61";
    EXPECT_THAT(box.shown, ElementsAre(failure, "shown", failure));
}

TEST_F(LogTest, TheReportIsKeptWhenTheProgramEndsUnderItsBox) {
    box.programEnds = true;
    EXPECT_THROW(log.LogError("the last words", true), ProgramEnding);
    EXPECT_EQ(Written(), "\"[20:15:00 01/02/03] the last words\"\n");
}

TEST_F(LogTest, AFailureIsShownAndLoggedInItsFixedLine) {
    struct Case {
        const char* file;
        void (*fails)();
        const char* behind; ///< of what every such line begins with
    };
    constexpr Case kCases[] = {
        {"", [] { throw RuntimeError(ErrorNumber::TypeMismatch); },
         ".  Error number: 13,  Error Line: 0,  Description: Type mismatch"},
        {"Connection", [] { throw RuntimeError(10048, "of its own"); },
         " in file Connection.  Error number: 10048,  Error Line: 0,  Description: of its own"},
        {"", [] { throw std::bad_alloc(); }, ".  Error number: 7,  Error Line: 0,  Description: Out of memory"},
        {"", [] { throw std::out_of_range("past it"); }, ".  Error number: 5,  Error Line: 0,  Description: past it"},
    };
    for (const Case& c : kCases) {
        box.shown.clear();
        LogOfSize(0);
        EXPECT_FALSE(trap("Create_Click", c.fails, c.file));
        EXPECT_THAT(box.shown, ElementsAre(std::string("Error: occured in module Create_Click()") + c.behind));
        EXPECT_EQ(Written(), "\"[20:15:00 01/02/03] " + box.shown.at(0) + "\"\n");
    }
}

TEST_F(LogTest, NeitherSuccessNorTheEndOfTheProgramIsReported) {
    EXPECT_TRUE(trap("Create_Click", [] {}));
    EXPECT_THROW(trap("outer", [&] { trap("inner", [] { throw ProgramEnding{}; }); }), ProgramEnding);
    EXPECT_THAT(box.shown, IsEmpty());
    EXPECT_EQ(Written(), "");
}

} // namespace
} // namespace ombrin
