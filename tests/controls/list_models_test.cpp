#include "controls/main_view.h"

#include "../foundation/raised.h"
#include "platform/posix/clock.h"
#include "platform/posix/event_loop.h"

#include <gmock/gmock.h>
#include <random>

namespace ombrin {
namespace {

class ListModels : public testing::Test {
protected:
    /// Texts of the rows that carry the mark.
    static std::vector<std::string> Marked(const RowList& rows) {
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < rows.Count(); ++i)
            if (rows.Selected(rows.At(i))) texts.push_back(rows.Text(rows.At(i)));
        return texts;
    }
    Container form{"Form"};
};

using testing::ElementsAre;

TEST_F(ListModels, AListViewKeepsOneRowSelectedWhateverComesAndGoes) {
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
        ASSERT_EQ(Marked(list.rows),
                  rows.empty() ? std::vector<std::string>() : std::vector<std::string>{list.rows.Text(expected)});
    }
    const RowId gone = list.Add("gone");
    list.Clear();
    EXPECT_EQ(list.SelectedItem(), RowId{});
    EXPECT_EQ(Raised([&] { list.Select(gone); }), 5);
    EXPECT_EQ(list.SelectedItem(), RowId{});
    const RowId first = list.Add("first again");
    EXPECT_EQ(list.SelectedItem(), first);
}

TEST_F(ListModels, AListBoxForOneMovesItsMarkAndLosesItWithItsRow) {
    ListBox list(form, "List");
    const RowId ann = list.Add("ann"), bob = list.Add("bob");
    EXPECT_EQ(list.SelectedText(), "") << "nothing is selected before somebody chooses";
    list.Select(ann, true);
    list.Select(bob, true);
    EXPECT_THAT(Marked(list.rows), ElementsAre("bob"));
    list.Select(ann, false);
    EXPECT_EQ(list.SelectedText(), "bob") << "a row without a mark has none to lose";
    list.rows.Remove(bob);
    EXPECT_FALSE(list.SelectedRow());
    const RowId heir = list.Add("carl");
    ASSERT_EQ(heir.slot, bob.slot);
    EXPECT_FALSE(list.SelectedRow()) << "the new row is not the one that was chosen";
    EXPECT_EQ(Raised([&] { list.Select(bob, true); }), 5);
    list.Select(ann, true);
    list.Select(ann, false);
    EXPECT_FALSE(list.SelectedRow());
}

TEST_F(ListModels, AListBoxForSeveralKeepsEachMark) {
    ListBox list(form, "List", {.several = true});
    const RowId quake = list.Add("Quake");
    list.Add("Hexen");
    const RowId doom = list.Add("Doom");
    list.Select(quake, true);
    list.Select(doom, true);
    EXPECT_THAT(Marked(list.rows), ElementsAre("Quake", "Doom"));
    EXPECT_FALSE(list.SelectedRow()) << "no row is the one";
}

TEST_F(ListModels, AHeadingChangesOnlyWhereThereIsAColumn) {
    ListView list(form, "List", {"Buddies", "Status"});
    list.SetHeader(0, "x");
    list.SetHeader(3, "x");
    list.SetHeader(2, "");
    EXPECT_THAT(list.Headers(), ElementsAre("Buddies", ""));
}

TEST(ViewKeys, LobbiesAndRoomsAreFoundByTheirNamesWithoutTheCounts) {
    const struct {
        std::string_view (*key)(std::string_view);
        std::string_view row, name;
    } kRows[] = {
        {View::LobbyKey, "Quake : 12", "Quake"},
        {View::LobbyKey, "Half Life : -1", "Half Life"},
        {View::LobbyKey, "Quake", "Quake"},
        {View::LobbyKey, " : 3", ""},
        {View::RoomKey, "Arena (3/8)", "Arena"},
        {View::RoomKey, "Arena(3/8)", "Arena"},
        {View::RoomKey, "Arena (ffa) (3/8)", "Arena (ffa)"},
        {View::RoomKey, "Arena", ""},
    };
    for (const auto& row : kRows) EXPECT_EQ(row.key(row.row), row.name) << row.row;
}

TEST(ViewKeys, NamesAreFoundWholeAndAsTheyAreSpelt) {
    VirtualClock clock;
    EventLoop loop(clock);
    View view(loop);
    const RowId ann = view.UserList.Add("Ann");
    for (const char* other : {"ann", "An", "Ann ", ""}) EXPECT_FALSE(view.UserList.rows.Find(other)) << other;
    EXPECT_EQ(view.UserList.rows.Find("Ann"), ann);
    const RowId arena = view.RoomList.Add("Arena (1/8)");
    EXPECT_EQ(view.RoomList.rows.Find("Arena"), arena);
}

} // namespace
} // namespace ombrin
