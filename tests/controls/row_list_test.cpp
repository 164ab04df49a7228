#include "controls/row_list.h"

#include "../foundation/raised.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <random>

namespace ombrin {
namespace {

std::string_view BeforeColon(std::string_view text) { return text.substr(0, text.find(':')); }

/// A list beside a plain vector of its rows, and a painter's copy that knows the journal alone.
class RowListAgainstAVector : public testing::TestWithParam<bool> {
protected:
    using Plain = std::vector<std::pair<RowId, std::string>>;

    std::size_t Below(std::size_t limit) { return random() % limit; }
    std::string Key() { return (Below(2) == 0 ? "n" : "N") + std::to_string(Below(400)); }
    std::string Text() { return sorted ? Key() : Key() + ":" + std::to_string(Below(3)); }
    Plain::iterator Any() { return plain.begin() + static_cast<std::ptrdiff_t>(Below(plain.size())); }

    void Add() {
        const std::string text = Text();
        const auto isBefore = [&](const auto& row) {
            const auto folded = [](std::string name) { return name[0] = 'n', name; };
            return std::pair(folded(row.second), row.second) <= std::pair(folded(text), text);
        };
        const auto at = sorted ? std::partition_point(plain.begin(), plain.end(), isBefore) : plain.end();
        plain.insert(at, {sorted ? list.InsertSorted(text) : list.Append(text), text});
    }
    void Remove() {
        const auto at = Any();
        list.Remove(gone = at->first);
        plain.erase(at);
    }
    void Rename() {
        const auto at = Any();
        list.SetText(at->first, at->second = Text());
    }
    void CompareOne() {
        const std::string key = Key();
        const auto first = std::find_if(plain.begin(), plain.end(), [&](const auto& row) {
            return (sorted ? std::string_view(row.second) : BeforeColon(row.second)) == key;
        });
        ASSERT_EQ(list.Find(key), first == plain.end() ? RowId{} : first->first) << "the first row named " << key;
        ASSERT_FALSE(list.Has(gone));
        if (plain.empty()) return;
        const auto at = Any();
        const auto position = static_cast<std::size_t>(at - plain.begin());
        ASSERT_EQ(list.At(position), at->first);
        ASSERT_EQ(list.PositionOf(at->first), position);
    }
    void ReplayJournal() {
        const RowJournal journal = list.TakeJournal();
        if (journal.everything) {
            ++rereads;
            copy.clear();
            list.ForEach([&](RowId row) { copy.push_back(row); });
        }
        for (const RowChange& change : journal.changes) {
            const bool added = change.what == RowChange::What::Added;
            ASSERT_LT(change.position, copy.size() + (added ? 1 : 0));
            const auto at = copy.begin() + static_cast<std::ptrdiff_t>(change.position);
            if (added) {
                copy.insert(at, change.row);
                continue;
            }
            ASSERT_EQ(*at, change.row);
            if (change.what == RowChange::What::Removed) copy.erase(at);
        }
        Plain seen;
        for (const RowId row : copy) seen.emplace_back(row, list.Text(row));
        ASSERT_TRUE(seen == plain);
    }

    bool sorted = GetParam();
    std::mt19937 random{1};
    RowList list{sorted ? RowList::WholeText : BeforeColon};
    Plain plain;
    std::vector<RowId> copy;
    RowId gone;
    int rereads = 0;
};

TEST_P(RowListAgainstAVector, RowsFirstMatchesAndTheReplayedJournalStayTheSame) {
    list.Journal([] {});
    std::size_t untilLook = 0;
    for (const std::size_t size : {3000, 20, 1200, 0}) {
        while (list.Count() != size) {
            const bool towards = Below(4) != 0;
            plain.empty() || (plain.size() < size) == towards ? Add() : Remove();
            if (!sorted && !plain.empty() && Below(3) == 0) Rename();
            ASSERT_NO_FATAL_FAILURE(CompareOne());
            if (untilLook-- > 0) continue;
            untilLook = Below(2) == 0 ? Below(100) : Below(10'000);
            ASSERT_NO_FATAL_FAILURE(ReplayJournal());
        }
    }
    ASSERT_NO_FATAL_FAILURE(ReplayJournal());
    EXPECT_GT(rereads, 1) << "the first look, and at least one journal over its bound";
}

INSTANTIATE_TEST_SUITE_P(Kinds, RowListAgainstAVector, testing::Bool(),
                         [](const auto& info) { return info.param ? "Sorted" : "Appended"; });

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

TEST(RowList, AWatcherHearsOfWhatAUserCanSeeAndOfNothingElse) {
    RowList list;
    const RowId row = list.Append("ann");
    int told = 0;
    list.Journal([&] { ++told; });
    const struct {
        const char* what;
        std::function<void()> step;
        int once, again; ///< how often it is told of the step, and of the same one anew
    } kSteps[] = {
        {"text", [&] { list.SetText(row, "bob"); }, 1, 0},
        {"image", [&] { list.SetImage(row, 2); }, 1, 0},
        {"black, where there was no colour", [&] { list.SetRowColour(row, 0); }, 1, 0},
        {"mark", [&] { list.SetSelected(row, true); }, 1, 0},
        {"tip", [&] { list.SetTip(row, "busy"); }, 1, 1},
        {"column", [&] { list.SetSubItem(row, 2, "away"); }, 1, 1},
        {"tag", [&] { list.SetTag(row, "10.0.0.9"); }, 0, 0},
        {"all rows", [&] { list.Clear(); }, 1, 0},
    };
    for (const auto& step : kSteps)
        for (const int changes : {step.once, step.again}) {
            step.step();
            EXPECT_EQ(std::exchange(told, 0), changes) << step.what;
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
        EXPECT_EQ(Raised([&] { list.Text(gone); }), 5);
        EXPECT_EQ(Raised([&] { list.SetTip(gone, "x"); }), 5);
        EXPECT_FALSE(list.Find("ann"));
        EXPECT_EQ(list.Find("bob"), heir);
        EXPECT_EQ(list.Tip(heir), "") << "nothing is left of the old row";
        list.Remove(heir);
    }
}

} // namespace
} // namespace ombrin
