// The controls of a view by their names, for a host that knows no models.
#pragma once

#include "controls/user_input.h"
#include "foundation/code_page.h"
#include "platform/posix/event_loop.h"

#include <memory>
#include <ombrin/controls.h>
#include <set>

namespace ombrin::host {

struct Controls::Parts final : ModelWatcher, FormObserver {
    struct World {
        EventLoop& loop;
        const CodePage& page;
        Page& view;
        std::vector<Form*> forms; ///< which outlive it
        UserInput& input;
        ModalStack& stack;
        std::function<void(int width, int height)> resize; ///< none for a view of one size
    };
    explicit Parts(World given);
    ~Parts() override;

    ombrin::Control* Find(std::string_view name) const;
    Form* FormNamed(std::string_view name) const;
    std::string NameOf(const ombrin::Control& control) const;

    void Dirty(ombrin::Control& control) override { Note(control); }
    void FormShown(Form& form) override;
    void FormHidden(Form& form) override;
    void MenuOpened(Menu&) override {}

    World world;
    Controls* owner = nullptr; ///< whose handlers are called

private:
    void Note(ombrin::Control& control);
    void Tell(std::function<void(Controls&)> what);
    template <class Each>
    void ForAll(const Each& each) const;

    std::set<const ombrin::Control*> noted;                        ///< has changed, and the host was not told yet
    std::shared_ptr<Parts*> self = std::make_shared<Parts*>(this); ///< what waits in the loop may outlive it
};

} // namespace ombrin::host
