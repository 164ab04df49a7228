// Setting up and emptying the chat grids.
#pragma once

#include "controls/flex_grid.h"

namespace ombrin {

/// Empty centred header cells, the columns' widths (`wide` for the dialog of private messages), row 1 current.
void InitializeMSFlexGrid(FlexGrid& grid, bool wide);

/// Back to the header, whose texts stay, and one empty line. Column 1 is then the current one.
void ClearFlexGrid(FlexGrid& grid);

} // namespace ombrin
