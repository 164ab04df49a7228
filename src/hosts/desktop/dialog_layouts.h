// How each dialog stands on the desktop: its rows of controls, by name.
#pragma once

#include <string_view>
#include <vector>

namespace ombrin::desktop {

struct DialogRow {
    enum class Kind {
        Wide,     ///< each control over the whole width
        Pair,     ///< a label, or a box to tick, and its field, and perhaps a button that fills it
        Entry,    ///< a line to write in, and the button that sends it
        Buttons,  ///< at the right end, in this order
        Grow,     ///< takes what height is left
        Frames,   ///< side by side, for the rows below that name them
        Passing,  ///< a label that changes all the time: one line, without a say in the size of the window
        Progress, ///< a label of up to two lines, whose place is kept for it, and the bar that it names
        Pictured, ///< a picture, and beside it a heading and further labels
    } kind;
    std::vector<std::string_view> controls;
    std::string_view frame = {}; ///< that it stands in; a row of Kind Wide, Pair, Buttons, Grow
};

struct DialogLayout {
    std::string_view form;
    std::string_view defaultButton; ///< pressed by Enter where no field takes it; empty for none
    int width;                      ///< pixels
    std::vector<DialogRow> rows;
};

/// nullptr for a form that is no dialog of its own.
const DialogLayout* LayoutOf(std::string_view form);

} // namespace ombrin::desktop
