// The progress of a search for a game. It has no button: a search goes on to its end.
#pragma once

#include "controls/form.h"
#include "controls/simple_models.h"

namespace ombrin {

class FindingGame : public Form {
public:
    explicit FindingGame(ModalStack& stack) : Form(stack, "FindingGame", "Finding game.") {}

    Label Label1{*this, "Label1", "Searching:"};
    Label txtFindDir{*this, "txtFindDir"};
};

} // namespace ombrin
