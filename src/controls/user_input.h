// The one door for input: it refuses what a person could not give, so that all hosts obey the same rule.
#pragma once

#include "controls/boxes.h"
#include "controls/flex_grid.h"
#include "controls/list_models.h"
#include "controls/menu.h"
#include "controls/modal_stack.h"
#include "controls/page.h"
#include "controls/simple_models.h"

#include <optional>
#include <string>

namespace ombrin {

/// Why an input was refused; nothing when it was taken. A refused input changes nothing.
using Refusal = std::optional<std::string>;

/// Input to a control that is hidden, disabled, behind a modal form, or on a page that is disabled or not shown yet is
/// refused, as is a row that is not there. Handlers run inside these calls, and may wait.
class UserInput {
public:
    UserInput(Page& view, ModalStack& stack) : view(view), stack(stack) {}

    static constexpr int kLeft = 1, kRight = 2;      ///< mouse buttons
    static constexpr int kNoShift = 0, kControl = 2; ///< shift states
    static constexpr int kEnter = 13;                ///< keys

    /// The main view takes no input before it is shown.
    void ShowView(bool shown) { viewShown = shown; }

    /// Nothing when a person could reach the control now.
    Refusal Reach(const Control& control) const;

    /// A button, an option button, or a list at its selected row.
    Refusal Click(Control& control);
    Refusal ClickCell(FlexGrid& grid, int row, int column);
    /// A left click on a row, or the choice of an entry in a combo box; in a list for several rows, `on` sets or takes
    /// the row's mark.
    Refusal Select(Control& list, long row, bool on);
    Refusal DoubleClick(Control& list, long row);
    /// The right button; row -1 is the empty area below the rows.
    Refusal RightClick(Control& list, long row);
    Refusal Choose(MenuEntry& entry);
    Refusal Type(TextBox& box, std::string_view text);
    /// One key press. The handler may set the key to 0, which keeps it from the control.
    Refusal Key(Control& control, int& key, int shift);
    Refusal Check(CheckBox& box, bool on);
    Refusal Focus(Control& control);
    /// The box on top.
    Refusal PressButton(BoxResult button);
    Refusal AnswerText(std::string_view text);
    Refusal AnswerFile(std::string_view path);
    Refusal AnswerColour(Colour colour);
    /// The window's close box.
    Refusal Close(Form& form);

private:
    /// What every input that is taken does first.
    void Take(Control& control);
    Refusal SelectRow(Control& list, long row, bool on);
    void MouseUp(Control& list, int button);

    Page& view; ///< what the control shows behind the forms
    ModalStack& stack;
    bool viewShown = false;
};

} // namespace ombrin
