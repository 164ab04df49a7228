// How each dialog stands on the desktop: its rows of controls, by name.
#pragma once

#include <string_view>
#include <vector>

namespace ombrin::desktop {

struct DialogRow {
    enum class Kind {
        Wide,    ///< each control over the whole width
        Pair,    ///< a label, or a box to tick, and its field
        Entry,   ///< a line to write in, and the button that sends it
        Buttons, ///< at the right end, in this order
        Grow,    ///< takes what height is left
    } kind;
    std::vector<std::string_view> controls;
};

struct DialogLayout {
    std::string_view form;
    std::string_view defaultButton; ///< pressed by Enter where no field takes it
    int width;                      ///< pixels
    std::vector<DialogRow> rows;
};

/// nullptr for a form that is no dialog of its own.
const DialogLayout* LayoutOf(std::string_view form);

} // namespace ombrin::desktop
