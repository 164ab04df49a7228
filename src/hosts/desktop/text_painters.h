// Painters of the boxes that a person writes in, or chooses a text in.
#pragma once

#include "hosts/desktop/board.h"

namespace ombrin::desktop {

std::unique_ptr<Painter> MakeTextPainter(Board& board, TextBox& box, QWidget* parent);
std::unique_ptr<Painter> MakeComboPainter(Board& board, ComboBox& combo, QWidget* parent);

} // namespace ombrin::desktop
