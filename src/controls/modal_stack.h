// Which forms are shown, the top one last, and the waits on them.
#pragma once

#include "controls/form.h"
#include "platform/waiter.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace ombrin {

class Menu;

/// A host hears what appears and disappears. It must not call back into the client from here.
class FormObserver {
public:
    virtual ~FormObserver() = default;
    virtual void FormShown(Form& form) = 0;
    virtual void FormRaised(Form&) {} ///< one that is visible already comes to the front
    virtual void FormHidden(Form& form) = 0;
    virtual void MenuOpened(Menu& menu) = 0;
};

class ModalStack {
public:
    /// With so many forms open no socket is read and no timer fires until one closes: the server must not choose how
    /// deep the waits are nested.
    static constexpr std::size_t kOpenLimit = 64;
    /// The same for waits whose form is hidden already while others run nested in them, as after refused logons.
    static constexpr std::size_t kWaitLimit = 512;

    ModalStack(Waiter& waiter, std::function<void(bool)> holdEvents)
        : waiter(waiter), holdEvents(std::move(holdEvents)) {}

    void SetObserver(FormObserver* other) { observer = other; }
    FormObserver* Observer() const { return observer; }

    void ShowModal(Form& form);
    void ShowModeless(Form& form);
    void Hide(Form& form);

    /// nullptr when only the main view is there.
    Form* Top() const { return visible.empty() ? nullptr : visible.back(); }
    /// The form that keeps input from everything else; nullptr for none.
    Form* TopModal() const;
    const std::vector<Form*>& Visible() const { return visible; }
    /// The form that keys go to: the top one, unless the user has gone on beside a modeless one; nullptr for the view.
    Form* Active() const { return active; }
    void SetActive(Form* form) { active = form; }
    std::size_t Depth() const { return frames.size(); }

    /// Ends every wait: each ShowModal raises ProgramEnding when control comes back to it, and so does every later one.
    void RequestEnd();
    bool Ending() const { return ending; }

private:
    /// One wait, on the C++ stack.
    class Frame {
    public:
        Frame(ModalStack& stack, Form& form);
        ~Frame();
        Frame(const Frame&) = delete;
        Frame& operator=(const Frame&) = delete;
        ModalStack& stack;
        Form& form;
        bool ended = false;
    };

    void Appear(Form& form, bool modal);
    void TakeAway(Form& form);
    void UpdateHold() { holdEvents(visible.size() >= kOpenLimit || frames.size() >= kWaitLimit); }

    Waiter& waiter;
    std::function<void(bool)> holdEvents;
    FormObserver* observer = nullptr;
    std::vector<Form*> visible;
    Form* active = nullptr;
    std::vector<Frame*> frames;
    bool ending = false;
};

} // namespace ombrin
