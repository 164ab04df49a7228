#include "controls/grid_routines.h"

namespace ombrin {

void InitializeMSFlexGrid(FlexGrid& grid, bool wide) {
    grid.SetRow(0);
    for (int column = 0; column < FlexGrid::kColumns; ++column) {
        grid.SetCol(column);
        grid.SetText("");
        grid.SetCellAlignment(FlexGrid::Alignment::CentreTop);
    }
    grid.SetColWidth(0, wide ? 1700 : 1100);
    grid.SetColWidth(1, wide ? 5000 : 3600);
    grid.SetRow(1);
}

void ClearFlexGrid(FlexGrid& grid) {
    const std::string name = grid.TextAt(0, 0), says = grid.TextAt(0, 1);
    grid.Clear();
    grid.SetRow(0);
    grid.SetCol(0);
    grid.SetText(name);
    grid.SetCol(1);
    grid.SetText(says);
    grid.SetRows(2);
    grid.SetRow(1);
}

} // namespace ombrin
