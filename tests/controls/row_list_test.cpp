#include "controls/row_list.h"

#include "../foundation/raised.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <iterator>
#include <random>

namespace ombrin {
namespace {

std::string_view BeforeColon(std::string_view text) { return text.substr(0, text.find(':')); }

struct Way {
    const char* name;
    bool sorted;
    unsigned seed;
};

/// A list beside a plain vector of its rows, and a painter's copy that knows the journal alone.
class RowListAgainstAVector : public testing::TestWithParam<Way> {
protected:
    struct PlainRow {
        RowId id;
        std::string text;
    };
    using Plain = std::vector<PlainRow>;

    std::size_t Below(std::size_t limit) { return random() % limit; }
    std::string Key() { return (Below(2) == 0 ? "n" : "N") + std::to_string(Below(400)); }
    std::string Text() { return sorted ? Key() : Key() + ":" + std::to_string(Below(3)); }

    void Add() {
        const std::string text = Text();
        const auto behind = [&](const PlainRow& row) {
            const auto lower = [](std::string name) { return name[0] = 'n', name; };
            return std::pair(lower(row.text), row.text) > std::pair(lower(text), text);
        };
        const auto at = sorted ? std::find_if(plain.begin(), plain.end(), behind) : plain.end();
        plain.insert(at, {sorted ? list.InsertSorted(text) : list.Append(text), text});
    }
    void RemoveAny() {
        const std::size_t position = Below(plain.size());
        dead.push_back(plain[position].id);
        list.Remove(plain[position].id);
        plain.erase(plain.begin() + static_cast<std::ptrdiff_t>(position));
    }
    void RenameAny() {
        PlainRow& row = plain[Below(plain.size())];
        row.text = Text();
        list.SetText(row.id, row.text);
    }
    void CompareOne() {
        ASSERT_EQ(list.Count(), plain.size());
        const std::string key = Key();
        const auto first = std::find_if(plain.begin(), plain.end(), [&](const PlainRow& row) {
            return (sorted ? std::string_view(row.text) : BeforeColon(row.text)) == key;
        });
        ASSERT_EQ(list.Find(key), first == plain.end() ? RowId{} : first->id) << "the first row named " << key;
        if (!dead.empty()) {
            ASSERT_FALSE(list.Has(dead[Below(dead.size())]));
        }
        if (plain.empty()) return;
        const std::size_t position = Below(plain.size());
        ASSERT_EQ(list.At(position), plain[position].id);
        ASSERT_EQ(list.PositionOf(plain[position].id), position);
    }
    void ReplayJournal() {
        const RowJournal journal = list.TakeJournal();
        (journal.everything ? rereads : replays) += 1;
        if (journal.everything) {
            copy.clear();
            for (std::size_t i = 0; i < list.Count(); ++i) copy.push_back(list.At(i));
        }
        for (const RowChange& change : journal.changes) {
            const auto at = copy.begin() + static_cast<std::ptrdiff_t>(change.position);
            if (change.what == RowChange::What::Added) {
                ASSERT_LE(change.position, copy.size());
                copy.insert(at, change.row);
                continue;
            }
            ASSERT_LT(change.position, copy.size());
            ASSERT_EQ(*at, change.row);
            if (change.what == RowChange::What::Removed) copy.erase(at);
        }
        std::vector<RowId> ids;
        std::vector<std::string> texts, expected;
        for (const PlainRow& row : plain) {
            ids.push_back(row.id);
            texts.push_back(list.Text(row.id));
            expected.push_back(row.text);
        }
        ASSERT_EQ(copy, ids);
        ASSERT_EQ(texts, expected);
    }

    bool sorted = GetParam().sorted;
    std::mt19937 random{GetParam().seed};
    RowList list{sorted ? RowList::WholeText : BeforeColon};
    Plain plain;
    std::vector<RowId> copy, dead;
    int replays = 0, rereads = 0;
};

TEST_P(RowListAgainstAVector, RowsFirstMatchesAndTheReplayedJournalStayTheSame) {
    list.Journal([] {});
    std::size_t untilLook = 0;
    for (const std::size_t size : {3000, 20, 1200, 0}) {
        while (list.Count() != size) {
            const bool towards = Below(4) != 0;
            const bool grows = plain.empty() || (plain.size() < size) == towards;
            grows ? Add() : RemoveAny();
            if (!sorted && !plain.empty() && Below(3) == 0) RenameAny();
            ASSERT_NO_FATAL_FAILURE(CompareOne());
            if (untilLook-- > 0) continue;
            constexpr std::size_t kPatience[] = {0, 10, 100, 1000, 5000};
            untilLook = kPatience[Below(std::size(kPatience))];
            ASSERT_NO_FATAL_FAILURE(ReplayJournal());
        }
    }
    ASSERT_NO_FATAL_FAILURE(ReplayJournal());
    EXPECT_GT(replays, 3);
    EXPECT_GT(rereads, 1) << "the first look, and at least one journal over its bound";
}

INSTANTIATE_TEST_SUITE_P(Random, RowListAgainstAVector,
                         testing::Values(Way{"Appended", false, 1}, Way{"AppendedAgain", false, 2},
                                         Way{"Sorted", true, 3}, Way{"SortedAgain", true, 4}),
                         [](const auto& info) { return info.param.name; });

TEST(RowList, SortedByAFurtherColumnItsRowsAreFoundInTheNewOrder) {
    RowList list(BeforeColon);
    list.Journal([] {});
    constexpr int kRows = 1500; // several pieces
    for (int i = 0; i < kRows; ++i)
        list.SetSubItem(list.Append("twin:" + std::to_string(i)), 2, std::to_string(kRows + kRows - i));
    const RowId last = list.At(kRows - 1);
    for (const bool changes : {true, false}) {
        list.TakeJournal();
        list.SortBySubItem(2);
        EXPECT_EQ(list.TakeJournal().everything, changes);
    }
    EXPECT_EQ(list.Find("twin"), last) << "the first of the twins now";
    for (std::size_t i = 0; i < kRows; ++i) ASSERT_EQ(list.SubItem(list.At(i), 2), std::to_string(kRows + 1 + i));
    list.Append("twin:new");
    list.Remove(last);
    EXPECT_EQ(list.PositionOf(list.Find("twin")), 0u) << "one that is added stands behind";
}

TEST(RowList, AJournalHoldsItsBoundAndThenGivesUp) {
    RowList list;
    list.Journal([] {});
    EXPECT_TRUE(list.TakeJournal().everything) << "a new watcher has seen nothing";
    for (std::size_t i = 0; i < RowJournal::kBound; ++i) list.Append("row");
    EXPECT_EQ(list.TakeJournal().changes.size(), RowJournal::kBound);
    for (std::size_t i = 0; i < RowJournal::kBound + 1; ++i) list.SetImage(list.At(i % 7), static_cast<int>(i) + 1);
    const RowJournal over = list.TakeJournal();
    EXPECT_TRUE(over.everything);
    EXPECT_TRUE(over.changes.empty());
}

TEST(RowList, AWatcherHearsOfWhatAUserCanSeeAndOfNothingElse) {
    RowList list;
    const RowId row = list.Append("ann");
    int told = 0;
    list.Journal([&] { ++told; });
    const struct {
        const char* what;
        std::function<void()> step;
        int changes;
    } kSteps[] = {
        {"text", [&] { list.SetText(row, "bob"); }, 1},
        {"the same text", [&] { list.SetText(row, "bob"); }, 0},
        {"image", [&] { list.SetImage(row, 2); }, 1},
        {"the same image", [&] { list.SetImage(row, 2); }, 0},
        {"black, where there was no colour", [&] { list.SetRowColour(row, 0); }, 1},
        {"the same colour", [&] { list.SetRowColour(row, 0); }, 0},
        {"mark", [&] { list.SetSelected(row, true); }, 1},
        {"the same mark", [&] { list.SetSelected(row, true); }, 0},
        {"tip", [&] { list.SetTip(row, "busy"); }, 1},
        {"column", [&] { list.SetSubItem(row, 2, "away"); }, 1},
        {"tag", [&] { list.SetTag(row, "10.0.0.9"); }, 0},
        {"all rows", [&] { list.Clear(); }, 1},
        {"no row", [&] { list.Clear(); }, 0},
    };
    for (const auto& step : kSteps) {
        told = 0;
        step.step();
        EXPECT_EQ(told, step.changes) << step.what;
    }
}

TEST(RowList, ARowThatIsGoneCanNeitherBeReadNorChanged) {
    RowList list;
    for (const bool cleared : {false, true}) {
        const RowId gone = list.Append("ann");
        list.SetTip(gone, "busy");
        cleared ? list.Clear() : list.Remove(gone);
        const RowId heir = list.Append("bob");
        ASSERT_EQ(heir.slot, gone.slot) << "the new row stands where the old one stood";
        for (const RowId row : {gone, RowId{}}) {
            const std::function<void()> kSteps[] = {
                [&] { list.Text(row); },        [&] { list.SetText(row, "x"); },
                [&] { list.SetTip(row, "x"); }, [&] { list.SetSelected(row, true); },
                [&] { list.PositionOf(row); },  [&] { list.Remove(row); }};
            for (const auto& step : kSteps) EXPECT_EQ(Raised(step), 5);
        }
        EXPECT_FALSE(list.Find("ann"));
        EXPECT_EQ(list.Find("bob"), heir);
        EXPECT_EQ(list.Tip(heir), "") << "nothing is left of the old row";
        EXPECT_FALSE(list.At(1));
        list.Remove(heir);
    }
}

} // namespace
} // namespace ombrin
