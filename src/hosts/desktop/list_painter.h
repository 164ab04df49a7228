// List boxes and list views.
#pragma once

#include "hosts/desktop/board.h"

namespace ombrin::desktop {

std::unique_ptr<Painter> MakeListPainter(Board& board, Control& control, QWidget* parent);

} // namespace ombrin::desktop
