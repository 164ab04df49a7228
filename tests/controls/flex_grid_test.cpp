#include "controls/grid_routines.h"

#include "../foundation/raised.h"

#include <gmock/gmock.h>

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

using Alignment = FlexGrid::Alignment;

TEST_F(FlexGridTest, AGridIsSetUpWithAnEmptyCentredHeaderAndWidthsForItsPlace) {
    const struct {
        bool wide;
        int name, text;
    } kPlaces[] = {{false, 1100, 3600}, {true, 1700, 5000}};
    for (const auto& place : kPlaces) {
        Say(0, "User", "Says");
        InitializeMSFlexGrid(grid, place.wide);
        EXPECT_EQ(grid.ColWidth(0), place.name);
        EXPECT_EQ(grid.ColWidth(1), place.text);
        for (const int column : {0, 1}) {
            EXPECT_EQ(grid.TextAt(0, column), "");
            EXPECT_EQ(grid.AlignmentAt(0, column), Alignment::CentreTop);
            EXPECT_EQ(grid.AlignmentAt(1, column), Alignment::LeftTop);
        }
        EXPECT_EQ(grid.Row(), 1);
    }
}

TEST_F(FlexGridTest, AClearedGridKeepsItsHeaderAndOneEmptyLine) {
    Say(0, "User", "Says");
    grid.SetRows(5);
    Say(1, "ann", "hi");
    Say(4, "bob", "bye");
    grid.SetTopRow(4);
    ClearFlexGrid(grid);
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.TextAt(0, 0), "User");
    EXPECT_EQ(grid.TextAt(0, 1), "Says");
    EXPECT_EQ(grid.TextAt(1, 0) + grid.TextAt(1, 1), "");
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(FlexGridTest, WhenALineGoesTheOthersMoveUpAndTheMarksStayInside) {
    grid.SetRows(4);
    for (const int row : {1, 2, 3}) Say(row, std::to_string(row), "text");
    grid.SetRowHeight(2, 488);
    grid.SetTopRow(3);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.TextAt(1, 0), "2");
    EXPECT_EQ(grid.RowHeight(1), 488) << "the height goes with its line";
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(grid.RowHeight(2), FlexGrid::kUsualHeight);
    grid.SetRows(1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.TopRow(), 0);
    EXPECT_EQ(grid.Text(), "");
}

TEST_F(FlexGridTest, WhatIsOutsideTheGridRaisesTheUsualErrorAndChangesNothing) {
    grid.SetRows(3);
    Say(2, "ann", "hi");
    for (const int row : {-1, 3}) {
        EXPECT_EQ(Raised([&] { grid.SetRow(row); }), 5);
        EXPECT_EQ(Raised([&] { grid.SetTopRow(row); }), 5);
        EXPECT_EQ(Raised([&] { grid.SetRowHeight(row, 1); }), 5);
        EXPECT_EQ(Raised([&] { grid.RowHeight(row); }), 5);
        EXPECT_EQ(Raised([&] { grid.TextAt(row, 0); }), 5);
        EXPECT_EQ(Raised([&] { grid.RemoveItem(row); }), 5);
    }
    for (const int column : {-1, 2}) {
        EXPECT_EQ(Raised([&] { grid.SetCol(column); }), 5);
        EXPECT_EQ(Raised([&] { grid.SetColWidth(column, 1); }), 5);
        EXPECT_EQ(Raised([&] { grid.ColWidth(column); }), 5);
        EXPECT_EQ(Raised([&] { grid.TextAt(0, column); }), 5);
    }
    EXPECT_EQ(Raised([&] { grid.SetRows(0); }), 5);
    EXPECT_EQ(Raised([&] { grid.RemoveItem(0); }), 5) << "the header is fixed";
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Text(), "hi");
}

} // namespace
} // namespace ombrin
