#include "controls/main_view.h"

#include "../foundation/raised.h"

#include <gmock/gmock.h>
#include <random>

namespace ombrin {
namespace {

using testing::ElementsAre;

/// Texts of the rows that carry the mark.
std::vector<std::string> Marked(const RowList& rows) {
    std::vector<std::string> texts;
    rows.ForEach([&](RowId row) {
        if (rows.Selected(row)) texts.push_back(rows.Text(row));
    });
    return texts;
}

TEST(ListModels, AListViewKeepsOneRowSelectedWhateverComesAndGoes) {
    Container form("Form");
    ListView list(form, "List", {"Users"});
    std::mt19937 random(7);
    std::vector<RowId> rows;
    RowId expected;
    for (int step = 0; step < 3000; ++step) {
        const std::size_t position = rows.empty() ? 0 : random() % rows.size();
        const auto at = rows.begin() + static_cast<std::ptrdiff_t>(position);
        const auto what = random() % 5;
        if (rows.empty() || what < 2) {
            rows.push_back(list.Add(std::to_string(step)));
            if (rows.size() == 1) expected = rows[0];
        } else if (what == 2) {
            list.Select(expected = *at);
        } else {
            const RowId gone = *at;
            list.Remove(gone);
            rows.erase(at);
            if (gone == expected) expected = rows.empty() ? RowId{} : rows[std::min(position, rows.size() - 1)];
        }
        ASSERT_EQ(list.SelectedItem(), expected) << "step " << step;
        ASSERT_EQ(Marked(list.rows).size(), rows.empty() ? 0U : 1U);
        ASSERT_TRUE(rows.empty() || list.rows.Selected(expected));
    }
    const RowId gone = list.Add("gone");
    list.Clear();
    EXPECT_EQ(Raised([&] { list.Select(gone); }), 5);
    EXPECT_EQ(list.SelectedItem(), RowId{});
}

TEST(ListModels, AListBoxForOneMovesItsMarkAndOneForSeveralKeepsEach) {
    Container form("Form");
    ListBox list(form, "List"), several(form, "Several", {.several = true});
    const RowId ann = list.Add("ann"), bob = list.Add("bob");
    EXPECT_EQ(list.SelectedText(), "") << "nothing is selected before somebody chooses";
    list.Select(ann, true);
    list.Select(bob, true);
    list.Select(ann, false); // it has no mark to lose
    EXPECT_THAT(Marked(list.rows), ElementsAre("bob"));
    EXPECT_EQ(list.SelectedText(), "bob");
    list.rows.Remove(bob);
    ASSERT_EQ(list.Add("carl").slot, bob.slot);
    EXPECT_FALSE(list.SelectedRow()) << "the new row is not the one that was chosen";
    list.Select(ann, true);
    list.Select(ann, false);
    EXPECT_FALSE(list.SelectedRow());
    for (const char* game : {"Quake", "Doom"}) several.Select(several.Add(game), true);
    EXPECT_THAT(Marked(several.rows), ElementsAre("Quake", "Doom"));
    EXPECT_FALSE(several.SelectedRow()) << "no row is the one";
}

TEST(FlexGrid, WhenALineGoesTheOthersMoveUpAndTheMarksStayInside) {
    Container form("Form");
    FlexGrid grid(form, "Lines");
    grid.SetRows(4);
    for (const int row : {1, 2, 3}) {
        grid.SetRow(row);
        grid.SetText(std::to_string(row));
    }
    grid.SetRowHeight(2, 488);
    grid.SetTopRow(3);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.TextAt(1, 0), "2");
    EXPECT_EQ(grid.RowHeight(1), 488) << "the height goes with its line";
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.TopRow(), 2);
    const std::function<void()> kOutside[] = {
        [&] { grid.SetRow(-1); },         [&] { grid.SetRow(3); },     [&] { grid.SetTopRow(3); },
        [&] { grid.SetCol(2); },          [&] { grid.RemoveItem(3); }, [&] { grid.TextAt(0, 2); },
        [&] { grid.SetRowHeight(3, 1); }, [&] { grid.ColWidth(2); },   [&] { grid.SetRows(0); },
        [&] { grid.RemoveItem(0); }, // the header is fixed
    };
    for (std::size_t i = 0; i < std::size(kOutside); ++i) EXPECT_EQ(Raised(kOutside[i]), 5) << "step " << i;
}

TEST(ViewKeys, LobbiesAndRoomsAreFoundByTheirNamesWithoutTheCounts) {
    const struct {
        std::string_view (*key)(std::string_view);
        std::string_view row, name;
    } kRows[] = {
        {View::LobbyKey, "Half Life : -1", "Half Life"},
        {View::LobbyKey, "Quake", "Quake"},
        {View::LobbyKey, " : 3", ""},
        {View::RoomKey, "Arena(3/8)", "Arena"},
        {View::RoomKey, "Arena (ffa) (3/8)", "Arena (ffa)"},
        {View::RoomKey, "Arena", ""},
    };
    for (const auto& row : kRows) EXPECT_EQ(row.key(row.row), row.name) << row.row;
}

} // namespace
} // namespace ombrin
