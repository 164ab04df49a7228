// Events that a control declares for its container and never raises; a container may hang handlers on them.
#pragma once

#include <cstdint>
#include <functional>

namespace ombrin {

struct ControlEvents {
    using Key = std::function<void(std::int16_t& KeyCode, std::int16_t Shift)>;
    using Mouse = std::function<void(std::int16_t Button, std::int16_t Shift, float x, float y)>;

    std::function<void()> Click, DblClick;
    Key KeyDown;
    std::function<void(std::int16_t& KeyAscii)> KeyPress;
    Key KeyUp;
    Mouse MouseDown, MouseMove, MouseUp;
};

} // namespace ombrin
