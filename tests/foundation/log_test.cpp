#include "foundation/log.h"
#include "foundation/trap.h"
#include "platform/recording/memory_files.h"

#include <gmock/gmock.h>
#include <new>

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

TEST_F(LogTest, ATraceIsOneQuotedLineWithoutABox) {
    log.TraceMessage("leaving room");
    log.TraceMessage("Winsock closed");
    EXPECT_EQ(Written(), "\"[20:15:00 01/02/03] leaving room\"\n\"[20:15:00 01/02/03] Winsock closed\"\n");
    EXPECT_THAT(box.shown, IsEmpty());
}

TEST_F(LogTest, ALineBreakFromOutsideDoesNotBeginARecord) {
    log.TraceMessage("a\r\n\"[20:15:00 01/02/03] forged\"\t\0\x1B[2J\xFC"sv);
    EXPECT_EQ(Written(), "\"[20:15:00 01/02/03] a  \"[20:15:00 01/02/03] forged\"   [2J\xFC\"\n");
}

TEST_F(LogTest, AFullFileIsStartedAnewAndNoEarlier) {
    const std::string record = "\"[20:15:00 01/02/03] next\"\n";
    LogOfSize(7'000'000);
    log.TraceMessage("next");
    EXPECT_EQ(Written().size(), 7'000'000 + record.size());
    LogOfSize(7'000'001);
    log.TraceMessage("next");
    EXPECT_EQ(Written(), record);
}

TEST_F(LogTest, ALogThatCannotBeWrittenCostsOneBoxARecord) {
    files.failAppends = 61;
    log.TraceMessage("lost");
    EXPECT_THAT(box.shown, ElementsAre("Error: occured in module LogError() in file mdlCommon.  Error number: 61"));
    log.LogError("shown", true);
    EXPECT_EQ(box.shown.size(), 3U); // the message's own box comes first
    EXPECT_EQ(box.shown[1], "shown");
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
        const char* line;
    };
    constexpr Case kCases[] = {
        {"", [] { throw RuntimeError(ErrorNumber::TypeMismatch); },
         "Error: occured in module Create_Click().  Error number: 13,  Error Line: 0,  Description: Type mismatch"},
        {"Connection", [] { throw RuntimeError(10048, "of its own"); },
         "Error: occured in module Create_Click() in file Connection.  Error number: 10048,  Error Line: 0,  "
         "Description: of its own"},
        {"", [] { throw std::bad_alloc(); },
         "Error: occured in module Create_Click().  Error number: 7,  Error Line: 0,  Description: Out of memory"},
        {"", [] { static_cast<void>(std::string().at(1)); }, nullptr},
    };
    for (const Case& c : kCases) {
        box.shown.clear();
        LogOfSize(0);
        EXPECT_FALSE(trap("Create_Click", c.fails, c.file));
        ASSERT_EQ(box.shown.size(), 1U);
        if (c.line != nullptr)
            EXPECT_EQ(box.shown[0], c.line);
        else
            EXPECT_THAT(box.shown[0], testing::HasSubstr("Error number: 5,  Error Line: 0,"));
        EXPECT_EQ(Written(), "\"[20:15:00 01/02/03] " + box.shown[0] + "\"\n");
    }
}

TEST_F(LogTest, ARoutineThatSucceedsSaysNothing) {
    EXPECT_TRUE(trap("Create_Click", [] {}));
    EXPECT_THAT(box.shown, IsEmpty());
    EXPECT_EQ(Written(), "");
}

TEST_F(LogTest, TheEndOfTheProgramPassesEveryTrapUnreported) {
    EXPECT_THROW(trap("outer", [&] { trap("inner", [] { throw ProgramEnding{}; }); }), ProgramEnding);
    EXPECT_THAT(box.shown, IsEmpty());
    EXPECT_EQ(Written(), "");
}

} // namespace
} // namespace ombrin
