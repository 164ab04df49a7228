// Forms and boxes: what is shown over the main view.
#pragma once

#include "controls/control.h"

namespace ombrin {

class ModalStack;

enum class FormKind { Form, MessageBox, InputBox, FileChooser, ColourChooser };

/// A dialog. Its model exists from the start and outlives every wait on it; Load runs once, before it is first shown.
class Form : public Container {
public:
    Form(ModalStack& stack, std::string name, std::string caption, FormKind kind = FormKind::Form)
        : Container(std::move(name)), stack(stack), kind(kind), caption(std::move(caption)) {}

    FormKind KindOfForm() const { return kind; }
    const std::string& Caption() const { return caption; }
    void SetCaption(std::string_view text) { caption = text; }
    bool Visible() const { return visible; }

    /// Runs Load unless it has run. Showing does it by itself; a routine that sets the form's controls does it first.
    void EnsureLoaded();
    /// Shows the form over everything else and returns when it was hidden, with sockets and timers running meanwhile.
    /// Raises 400 when it is visible already, and ProgramEnding when the program ends.
    void ShowModal();
    /// Shows the form beside the main view and returns at once. Raises 401 while a modal form is shown; a form that is
    /// visible already comes to the front, unless a modal one is in its way.
    void Show();
    /// Ends the wait on it; a hidden form stays as it is.
    void Hide();
    bool IsModal() const { return modal; } ///< as it was shown last

    std::function<void()> Load;
    std::function<void()> Activate, Deactivate; ///< it comes to the top, or another form or nothing takes its place
    std::function<void()> Paint;                ///< it comes to the top, or a box that stood over it goes
    std::function<void()> CloseBox;             ///< the window's close box; without one the box does nothing
    Control* Default = nullptr;                 ///< has the focus when the form is first shown

private:
    friend class ModalStack;
    ModalStack& stack;
    FormKind kind;
    std::string caption;
    bool visible = false, modal = true, loaded = false;
};

} // namespace ombrin
