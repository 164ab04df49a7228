// The title of the room panel.
#pragma once

#include "controls/simple_models.h"
#include "foundation/text.h"

#include <string>

namespace ombrin {

class RoomFrame {
public:
    /// `roomWord` is "Room" in the user's language.
    RoomFrame(Label& border, const std::string& roomWord) : border(border), roomWord(roomWord) {}

    /// Of the room that is shown; an empty name for none.
    void Show(std::string_view name) {
        border.SetCaption(name.empty() ? Join(roomWord, ":") : Join(roomWord, ": ", name));
    }

private:
    Label& border;
    const std::string& roomWord;
};

} // namespace ombrin
