#include "controls/grid_routines.h"

#include "../foundation/raised.h"

#include <functional>
#include <gtest/gtest.h>

namespace ombrin {
namespace {

class FlexGridTest : public testing::Test {
protected:
    void Say(int row, const std::string& name, const std::string& text) {
        grid.SetRow(row);
        grid.SetCol(0);
        grid.SetText(name);
        grid.SetCol(1);
        grid.SetText(text);
    }
    Container form{"Form"};
    FlexGrid grid{form, "Lines"};
};

TEST_F(FlexGridTest, AGridIsSetUpAndClearedForItsPlace) {
    for (const bool wide : {false, true}) {
        grid.SetRows(5);
        Say(0, "stale", "stale");
        InitializeMSFlexGrid(grid, wide);
        EXPECT_EQ(grid.TextAt(0, 0) + grid.TextAt(0, 1), "");
        EXPECT_EQ(grid.ColWidth(0) + grid.ColWidth(1), wide ? 1700 + 5000 : 1100 + 3600);
        EXPECT_EQ(grid.AlignmentAt(0, 1), FlexGrid::Alignment::CentreTop);
        EXPECT_EQ(grid.AlignmentAt(1, 1), FlexGrid::Alignment::LeftTop);
        Say(0, "User", "Says");
        Say(1, "ann", "hi");
        grid.SetTopRow(4);
        ClearFlexGrid(grid);
        EXPECT_EQ(grid.TextAt(0, 0) + grid.TextAt(0, 1), "UserSays") << "the header stays";
        EXPECT_EQ(grid.TextAt(1, 0) + grid.TextAt(1, 1), "");
        EXPECT_EQ(grid.Rows(), 2);
        EXPECT_EQ(grid.TopRow(), 1);
    }
}

TEST_F(FlexGridTest, WhenALineGoesTheOthersMoveUpAndTheMarksStayInside) {
    grid.SetRows(4);
    for (const int row : {1, 2, 3}) Say(row, std::to_string(row), "text");
    grid.SetRowHeight(2, 488);
    grid.SetTopRow(3);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.TextAt(1, 0), "2");
    EXPECT_EQ(grid.RowHeight(1), 488) << "the height goes with its line";
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.TopRow(), 2);
    const std::function<void()> kOutside[] = {
        [&] { grid.SetRow(-1); },    [&] { grid.SetRow(3); },          [&] { grid.SetTopRow(3); },
        [&] { grid.SetCol(2); },     [&] { grid.SetRowHeight(3, 1); }, [&] { grid.TextAt(0, 2); },
        [&] { grid.RemoveItem(3); }, [&] { grid.SetColWidth(2, 1); },  [&] { grid.SetRows(0); },
        [&] { grid.RemoveItem(0); }, // the header is fixed
    };
    for (std::size_t i = 0; i < std::size(kOutside); ++i) EXPECT_EQ(Raised(kOutside[i]), 5) << "step " << i;
    EXPECT_EQ(grid.Rows(), 3);
}

} // namespace
} // namespace ombrin
