#include "controls/modal_stack.h"

#include "foundation/runtime_error.h"

#include <algorithm>

namespace ombrin {

namespace {

/// A box is no form of the client's own: what lies below it stays the active form.
bool TakesTheActivation(const Form& form) { return form.KindOfForm() == FormKind::Form; }

void Run(const std::function<void()>& handler) {
    if (handler) handler();
}

} // namespace

void Form::EnsureLoaded() {
    if (loaded) return;
    loaded = true;
    Run(Load);
}

void Form::ShowModal() { stack.ShowModal(*this); }

void Form::Show() { stack.ShowModeless(*this); }

void Form::Hide() { stack.Hide(*this); }

ModalStack::Frame::Frame(ModalStack& stack, Form& form) : stack(stack), form(form) { stack.frames.push_back(this); }

ModalStack::Frame::~Frame() {
    stack.frames.pop_back();
    // Only an exception and the program's end leave the wait with the form still up.
    if (form.visible && (!ended || stack.ending)) stack.TakeAway(form);
    stack.UpdateHold();
}

void ModalStack::ShowModal(Form& form) {
    if (ending) throw ProgramEnding{};
    if (form.visible) throw RuntimeError(ErrorNumber::FormAlreadyShown);
    form.EnsureLoaded();
    if (ending) throw ProgramEnding{}; // loading may have waited
    if (form.visible) throw RuntimeError(ErrorNumber::FormAlreadyShown);

    const Frame frame(*this, form);
    Appear(form, true);
    waiter.RunUntil(frame.ended);
    if (ending) throw ProgramEnding{};
}

void ModalStack::ShowModeless(Form& form) {
    if (ending) throw ProgramEnding{};
    if (form.visible) {
        if (TopModal() != nullptr) return;
        active = &form;
        if (observer != nullptr) observer->FormRaised(form);
        return;
    }
    if (TopModal() != nullptr) throw RuntimeError(ErrorNumber::ModelessUnderModal);
    form.EnsureLoaded();
    if (!form.visible) Appear(form, false);
}

Form* ModalStack::TopModal() const {
    const auto found = std::find_if(visible.rbegin(), visible.rend(), [](const Form* form) { return form->modal; });
    return found == visible.rend() ? nullptr : *found;
}

void ModalStack::Appear(Form& form, bool modal) {
    Form* const below = Top();
    if (TakesTheActivation(form) && below != nullptr) Run(below->Deactivate);
    if (form.visible) throw RuntimeError(ErrorNumber::FormAlreadyShown); // by what ran nested in there
    form.visible = true;
    form.modal = modal;
    visible.push_back(&form);
    active = &form;
    UpdateHold();
    if (observer != nullptr) observer->FormShown(form);
    if (form.Focus() == nullptr && form.Default != nullptr) form.Default->SetFocus();
    Run(form.Activate);
    Run(form.Paint);
}

void ModalStack::TakeAway(Form& form) {
    form.visible = false;
    visible.erase(std::find(visible.begin(), visible.end(), &form));
    if (active == &form) active = Top();
    UpdateHold();
    if (observer != nullptr) observer->FormHidden(form);
}

void ModalStack::Hide(Form& form) {
    if (!form.visible) return;
    const bool wasOnTop = Top() == &form;
    TakeAway(form);
    for (Frame* frame : frames)
        if (&frame->form == &form) frame->ended = true;
    if (ending) return;
    if (TakesTheActivation(form)) {
        if (wasOnTop) Run(form.Deactivate);
        if (wasOnTop && Top() != nullptr && TakesTheActivation(*Top())) Run(Top()->Activate);
    }
    if (wasOnTop && Top() != nullptr) Run(Top()->Paint);
}

void ModalStack::RequestEnd() {
    ending = true;
    for (Frame* frame : frames) frame->ended = true;
    const std::vector<Form*> shown = visible;
    for (Form* form : shown)
        if (!form->modal) TakeAway(*form); // no wait of its own will do it
}

} // namespace ombrin
