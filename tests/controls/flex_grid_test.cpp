#include "controls/grid_routines.h"

#include "../foundation/raised.h"

#include <functional>
#include <gtest/gtest.h>
#include <tuple>

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
    using Alignment = FlexGrid::Alignment;
    for (const auto& [wide, name, text] : {std::tuple(false, 1100, 3600), {true, 1700, 5000}}) {
        grid.SetRows(5);
        Say(0, "stale", "stale");
        InitializeMSFlexGrid(grid, wide);
        EXPECT_EQ(grid.Row(), 1);
        EXPECT_EQ(grid.ColWidth(0), name);
        EXPECT_EQ(grid.ColWidth(1), text);
        EXPECT_EQ(grid.TextAt(0, 0) + grid.TextAt(0, 1), "");
        for (const int column : {0, 1}) {
            EXPECT_EQ(grid.AlignmentAt(0, column), Alignment::CentreTop);
            EXPECT_EQ(grid.AlignmentAt(1, column), Alignment::LeftTop);
        }
        Say(0, "User", "Says");
        Say(1, "ann", "hi");
        grid.SetTopRow(4);
        ClearFlexGrid(grid);
        EXPECT_EQ(grid.TextAt(0, 0) + grid.TextAt(0, 1), "UserSays") << "the header stays";
        EXPECT_EQ(grid.TextAt(1, 0) + grid.TextAt(1, 1), "");
        EXPECT_EQ(grid.Rows(), 2);
        EXPECT_EQ(grid.Row(), 1);
        EXPECT_EQ(grid.Col(), 1);
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
    EXPECT_EQ(grid.RowHeight(2), FlexGrid::kUsualHeight);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.TopRow(), 2);
    grid.SetRows(1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.TopRow(), 0);
    EXPECT_EQ(grid.Text(), "");
}

TEST_F(FlexGridTest, WhatIsOutsideTheGridRaisesTheUsualErrorAndChangesNothing) {
    grid.SetRows(3);
    Say(2, "ann", "hi");
    const std::function<void()> kSteps[] = {
        [&] { grid.SetRow(-1); },         [&] { grid.SetRow(3); },     [&] { grid.SetTopRow(3); },
        [&] { grid.SetRowHeight(3, 1); }, [&] { grid.RowHeight(3); },  [&] { grid.TextAt(3, 0); },
        [&] { grid.RemoveItem(3); },      [&] { grid.SetCol(-1); },    [&] { grid.SetCol(2); },
        [&] { grid.SetColWidth(2, 1); },  [&] { grid.ColWidth(-1); },  [&] { grid.TextAt(0, 2); },
        [&] { grid.SetRows(0); },         [&] { grid.RemoveItem(0); }, // the header is fixed
    };
    for (std::size_t i = 0; i < std::size(kSteps); ++i) EXPECT_EQ(Raised(kSteps[i]), 5) << "step " << i;
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Text(), "hi");
}

} // namespace
} // namespace ombrin
