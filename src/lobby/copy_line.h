// Copying a line of a chat view.
#pragma once

#include "controls/flex_grid.h"
#include "platform/desktop.h"

namespace ombrin {

/// On Ctrl+C the text of the current line goes to the clipboard, never its sender, and the key is swallowed.
void CopyLine(FlexGrid& grid, Clipboard& clipboard, int& code, int shift);

} // namespace ombrin
