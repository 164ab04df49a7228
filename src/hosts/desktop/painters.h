// One painter for each kind of control model.
#pragma once

#include "hosts/desktop/board.h"

namespace ombrin::desktop {

std::unique_ptr<Painter> MakePainter(Board& board, Control& control, QWidget* parent);

} // namespace ombrin::desktop
