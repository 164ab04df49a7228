#include "lobby/copy_line.h"

#include "controls/user_input.h"
#include "foundation/runtime_error.h"

namespace ombrin {

void CopyLine(FlexGrid& grid, Clipboard& clipboard, int& code, int shift) {
    constexpr int kC = 67;
    if (code != kC || shift != UserInput::kControl) return;
    try {
        grid.SetCol(1);
        clipboard.SetText(grid.Text());
    } catch (const RuntimeError&) { // a clipboard that cannot be had is no failure here
    }
    code = 0;
}

} // namespace ombrin
