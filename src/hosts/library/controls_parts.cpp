#include "hosts/library/controls_parts.h"

#include "foundation/text.h"

namespace ombrin::host {

namespace {

/// A list tells of its rows by itself; nullptr for another control.
RowList* RowsOf(ombrin::Control& control) {
    if (control.Kind() == ControlKind::ListBox) return &static_cast<ListBox&>(control).rows;
    return control.Kind() == ControlKind::ListView ? &static_cast<ListView&>(control).rows : nullptr;
}

} // namespace

Controls::Parts::Parts(World given) : world(std::move(given)) {
    ForAll([this](ombrin::Control& control) {
        control.Watch(this);
        if (RowList* rows = RowsOf(control)) rows->Journal([this, &control] { Note(control); });
    });
    world.stack.SetObserver(this);
}

Controls::Parts::~Parts() {
    world.stack.SetObserver(nullptr);
    ForAll([](ombrin::Control& control) {
        control.Watch(nullptr);
        if (RowList* rows = RowsOf(control)) rows->Journal(nullptr);
    });
}

template <class Each>
void Controls::Parts::ForAll(const Each& each) const {
    for (ombrin::Control* control : world.view.Controls()) each(*control);
    for (const Form* form : world.forms)
        for (ombrin::Control* control : form->Controls()) each(*control);
}

ombrin::Control* Controls::Parts::Find(std::string_view name) const {
    const std::size_t point = name.find('.');
    if (point == std::string_view::npos) return world.view.Find(name);
    const Form* form = FormNamed(name.substr(0, point));
    return form == nullptr ? nullptr : form->Find(name.substr(point + 1));
}

/// Of two boxes the one on top.
Form* Controls::Parts::FormNamed(std::string_view name) const {
    const auto& visible = world.stack.Visible();
    for (auto form = visible.rbegin(); form != visible.rend(); ++form)
        if ((*form)->Name() == name) return *form;
    for (Form* form : world.forms)
        if (form->Name() == name) return form;
    return nullptr;
}

std::string Controls::Parts::NameOf(const ombrin::Control& control) const {
    if (&control.Parent() == &world.view) return control.Name();
    return Join(control.Parent().Name(), ".", control.Name());
}

/// A model must not be called back from where it tells; the loop calls the host.
void Controls::Parts::Tell(std::function<void(Controls&)> what) {
    world.loop.Post([alive = std::weak_ptr(self), what = std::move(what)] {
        if (const auto parts = alive.lock(); parts && (*parts)->owner != nullptr) what(*(*parts)->owner);
    });
}

void Controls::Parts::Note(ombrin::Control& control) {
    if (!noted.insert(&control).second) return;
    Tell([this, &control](Controls& controls) {
        noted.erase(&control);
        control.Looked();
        if (RowList* rows = RowsOf(control)) rows->TakeJournal(); // the host reads the list anew
        if (controls.Changed) controls.Changed(NameOf(control));
    });
}

void Controls::Parts::FormShown(Form& form) {
    Tell([name = form.Name()](Controls& controls) {
        if (controls.FormShown) controls.FormShown(name);
    });
}

void Controls::Parts::FormHidden(Form& form) {
    Tell([name = form.Name()](Controls& controls) {
        if (controls.FormHidden) controls.FormHidden(name);
    });
}

} // namespace ombrin::host
