// The chat grids: sender and wrapped text, the newest line in view, to be selected, copied and followed.
#pragma once

#include "hosts/desktop/board.h"

namespace ombrin::desktop {

std::unique_ptr<Painter> MakeChatPainter(Board& board, FlexGrid& grid, QWidget* parent);

} // namespace ombrin::desktop
