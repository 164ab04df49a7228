// The controls of a view, by name: what stands in them, and the one door for input. A control of the view goes by its
// own name ("UserList"), one of a dialog with its form before it ("NewRoom.MaxUsers").
#pragma once

#include <ombrin/export.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ombrin::host {

/// A control as it is now; what its kind does not have stays as it is here.
struct ControlState {
    bool visible = false, enabled = false;      ///< its own switches, whatever the view's are
    bool on = false;                            ///< of a box to tick or an option
    std::string text;                           ///< a caption, or what was typed
    std::vector<std::vector<std::string>> rows; ///< of a list or grid: the columns of each row; a grid's header first
    long selected = -1;                         ///< row of a list for one; -1 for none
};

/// Why an input was refused; nothing when it was taken. A refused input changes nothing.
using Refusal = std::optional<std::string>;

class OMBRIN_API Controls {
public:
    static constexpr int kOk = 1, kCancel = 2, kYes = 6, kNo = 7; ///< buttons of boxes

    struct OMBRIN_INSIDE Parts;
    OMBRIN_INSIDE explicit Controls(std::unique_ptr<Parts> parts); ///< for the library itself
    ~Controls();
    Controls(const Controls&) = delete;
    Controls& operator=(const Controls&) = delete;

    /// Nothing when there is no such control.
    std::optional<ControlState> Read(std::string_view control) const;
    std::vector<std::string> Names() const; ///< of the view and of the dialogs

    // What a person could not give is refused: to a control that is hidden, disabled, behind a form or on a disabled
    // view, or to a row that is not there. What an input sets off runs inside these calls, and may wait in a dialog.
    // Texts that the client's code page cannot hold raise 5, and nothing is typed. Rows count from 0,
    // as in ControlState::rows.
    Refusal Click(std::string_view control);
    Refusal Select(std::string_view list, long row, bool on = true);
    Refusal DoubleClick(std::string_view list, long row);
    Refusal Type(std::string_view box, std::string_view text);
    /// A box takes the character's code in the client's code page, or 8 for Backspace; a grid the code of the key, as
    /// 67 for C. Shift is a sum: 1 the Shift key, 2 Ctrl, 4 Alt.
    Refusal Key(std::string_view control, int key, int shift = 0);
    Refusal Check(std::string_view box, bool on);
    Refusal Resize(int width, int height); ///< pixels; of the main control alone

    std::vector<std::string> Forms() const; ///< dialogs and boxes that are shown, the top one last
    std::string BoxText() const;            ///< of the box on top; empty where none is
    Refusal Answer(int button);             ///< of that box
    Refusal AnswerText(std::string_view text);
    Refusal Close(std::string_view form);

    // Called from the loop, never from inside a call; a handler may call back.
    std::function<void(const std::string& control)> Changed; ///< once for all changes since the last time
    std::function<void(const std::string& name)> FormShown;  ///< of a dialog or box
    std::function<void(const std::string& name)> FormHidden;

private:
    std::unique_ptr<Parts> parts;
};

} // namespace ombrin::host
