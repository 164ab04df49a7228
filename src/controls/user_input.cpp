#include "controls/user_input.h"

#include "foundation/text.h"

namespace ombrin {

namespace {

Refusal Refused(std::string_view why) { return std::string(why); }

const Refusal kTaken = std::nullopt;

template <class Handler>
Refusal Run(const Handler& handler) {
    if (handler) handler();
    return kTaken;
}

bool IsWrittenIn(const TextBox& box) {
    return box.Kind() != ControlKind::ComboBox || static_cast<const ComboBox&>(box).TakesFreeText();
}

RowId RowAt(const RowList& rows, long row) { return row < 0 ? RowId{} : rows.At(static_cast<std::size_t>(row)); }

} // namespace

Refusal UserInput::Reach(const Control& control) const {
    const Container& parent = control.Parent();
    const Form* top = stack.TopModal();
    if (&parent == &view) {
        if (!viewShown) return Refused("the view is not shown");
        if (top != nullptr) return Refused(Join("behind ", top->Name()));
        if (!view.Enabled()) return Refused("the view is disabled");
    } else if (&parent != top) {
        if (top != nullptr) return Refused(Join("behind ", top->Name()));
        if (!static_cast<const Form&>(parent).Visible()) return Refused("its form is not shown");
    }
    if (!control.Visible()) return Refused("hidden");
    if (!control.Enabled()) return Refused("disabled");
    return kTaken;
}

Refusal UserInput::Focus(Control& control) {
    if (const Refusal refusal = Reach(control)) return refusal;
    control.SetFocus();
    return kTaken;
}

void UserInput::Take(Control& control) {
    view.CloseMenu();
    stack.SetActive(&control.Parent() == &view ? nullptr : static_cast<Form*>(&control.Parent()));
    control.SetFocus();
}

Refusal UserInput::Click(Control& control) {
    if (const Refusal refusal = Reach(control)) return refusal;
    switch (control.Kind()) {
    case ControlKind::Button: {
        auto& button = static_cast<Button&>(control);
        if (!button.Click) return Refused("does nothing yet");
        Take(button);
        return Run(button.Click);
    }
    case ControlKind::OptionButton: {
        auto& option = static_cast<OptionButton&>(control);
        Take(option);
        option.SetOn(true);
        return Run(option.Click);
    }
    case ControlKind::ListBox: {
        auto& list = static_cast<ListBox&>(control);
        if (!list.SelectedRow()) return Refused("no row is selected");
        Take(list);
        Run(list.Click);
        MouseUp(list, kLeft);
        return kTaken;
    }
    case ControlKind::ListView: {
        auto& list = static_cast<ListView&>(control);
        if (!list.SelectedItem()) return Refused("no row is selected");
        Take(list);
        Run(list.ItemClick);
        MouseUp(list, kLeft);
        return kTaken;
    }
    default:
        return Refused("takes no click");
    }
}

Refusal UserInput::ClickCell(FlexGrid& grid, int row, int column) {
    if (const Refusal refusal = Reach(grid)) return refusal;
    if (row < 0 || row >= grid.Rows() || column < 0 || column >= FlexGrid::kColumns) return Refused("no such cell");
    Take(grid);
    if (row > 0) { // the header is fixed
        grid.SetRow(row);
        grid.SetCol(column);
    }
    return Run(grid.Click);
}

Refusal UserInput::SelectRow(Control& control, long row, bool on) {
    if (const Refusal refusal = Reach(control)) return refusal;
    if (control.Kind() == ControlKind::ListBox) {
        auto& list = static_cast<ListBox&>(control);
        const RowId id = RowAt(list.rows, row);
        if (!id) return Refused("no such row");
        if (!on && !list.IsForSeveral()) return Refused("a row of this list stays selected");
        Take(list);
        list.Select(id, on);
        return Run(list.Click);
    }
    if (control.Kind() == ControlKind::ListView) {
        auto& list = static_cast<ListView&>(control);
        const RowId id = RowAt(list.rows, row);
        if (!id) return Refused("no such row");
        if (!on) return Refused("a row of this list stays selected");
        Take(list);
        list.Select(id);
        return Run(list.ItemClick);
    }
    if (control.Kind() == ControlKind::ComboBox) {
        auto& combo = static_cast<ComboBox&>(control);
        if (row < 0 || static_cast<std::size_t>(row) >= combo.List().size()) return Refused("no such entry");
        if (!on) return Refused("an entry stays chosen");
        Take(combo);
        combo.Choose(static_cast<std::size_t>(row));
        return kTaken;
    }
    return Refused("has no rows");
}

void UserInput::MouseUp(Control& control, int button) {
    if (control.Kind() == ControlKind::ComboBox) return;
    if (Reach(control)) return; // the click has changed the world under the button
    const auto& handler = control.Kind() == ControlKind::ListBox ? static_cast<ListBox&>(control).MouseUp
                                                                 : static_cast<ListView&>(control).MouseUp;
    if (handler) handler(button);
    if (view.OpenMenu() != nullptr && stack.Observer() != nullptr) stack.Observer()->MenuOpened(*view.OpenMenu());
}

Refusal UserInput::Select(Control& list, long row, bool on) {
    if (const Refusal refusal = SelectRow(list, row, on)) return refusal;
    MouseUp(list, kLeft);
    return kTaken;
}

Refusal UserInput::DoubleClick(Control& control, long row) {
    if (control.Kind() == ControlKind::ComboBox) return Refused("takes no double click");
    if (const Refusal refusal = Select(control, row, true)) return refusal;
    if (Reach(control)) return kTaken;
    if (control.Kind() == ControlKind::ListBox) return Run(static_cast<ListBox&>(control).DblClick);
    return Run(static_cast<ListView&>(control).DblClick);
}

Refusal UserInput::RightClick(Control& control, long row) {
    if (const Refusal refusal = Reach(control)) return refusal;
    if (control.Kind() != ControlKind::ListBox && control.Kind() != ControlKind::ListView)
        return Refused("has no menu");
    if (row == -1)
        view.CloseMenu();
    else if (const Refusal refusal = SelectRow(control, row, true))
        return refusal;
    MouseUp(control, kRight);
    return kTaken;
}

Refusal UserInput::Choose(MenuEntry& entry) {
    const Menu* menu = view.OpenMenu();
    if (menu == nullptr) return Refused("no menu is open");
    if (const Refusal refusal = Reach(entry)) return refusal;
    bool found = false;
    for (const MenuEntry* other : menu->Entries()) found = found || other == &entry;
    if (!found) return Refused("the open menu has no such entry");
    if (!entry.Click) return Refused("does nothing yet");
    view.CloseMenu();
    return Run(entry.Click);
}

Refusal UserInput::Type(TextBox& box, std::string_view text) {
    if (const Refusal refusal = Reach(box)) return refusal;
    if (!IsWrittenIn(box)) return Refused("an entry of its list can be chosen, nothing typed");
    if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) return Refused("one line only");
    Take(box);
    box.Type(text);
    return kTaken;
}

Refusal UserInput::Key(Control& control, int& key, int shift) {
    if (const Refusal refusal = Reach(control)) return refusal;
    if (control.Kind() == ControlKind::FlexGrid) {
        auto& grid = static_cast<FlexGrid&>(control);
        Take(grid);
        if (grid.KeyDown) grid.KeyDown(key, shift);
        return kTaken;
    }
    if (control.Kind() != ControlKind::TextBox && control.Kind() != ControlKind::ComboBox)
        return Refused("takes no keys");
    auto& box = static_cast<TextBox&>(control);
    if (!IsWrittenIn(box)) return Refused("an entry of its list can be chosen, nothing typed");
    Take(box);
    if ((shift & kControl) != 0) return kTaken; // a shortcut, and no text
    if (box.KeyPress) box.KeyPress(key);
    constexpr int kBackspace = 8;
    if (key == kBackspace || (key >= 32 && key < 256)) box.TypeCharacter(static_cast<char>(key));
    return kTaken;
}

Refusal UserInput::Check(CheckBox& box, bool on) {
    if (const Refusal refusal = Reach(box)) return refusal;
    Take(box);
    box.SetOn(on);
    return kTaken;
}

Refusal UserInput::PressButton(BoxResult button) {
    Form* top = stack.TopModal();
    if (auto* box = dynamic_cast<MessageBoxForm*>(top)) {
        if (!box->Press(button)) return Refused("the box has no such button");
        view.CloseMenu();
        return kTaken;
    }
    if (auto* box = dynamic_cast<InputBoxForm*>(top)) {
        if (button != BoxResult::Cancel && button != BoxResult::Ok) return Refused("the box has no such button");
        view.CloseMenu();
        button == BoxResult::Ok ? box->Accept() : box->Cancel();
        return kTaken;
    }
    const bool isChooser =
        top != nullptr && (top->KindOfForm() == FormKind::FileChooser || top->KindOfForm() == FormKind::ColourChooser);
    if (!isChooser) return Refused("no box is on top");
    if (button != BoxResult::Cancel) return Refused("the box has no such button");
    view.CloseMenu();
    top->CloseBox();
    return kTaken;
}

Refusal UserInput::AnswerFile(std::string_view path) {
    auto* chooser = dynamic_cast<FileChooserForm*>(stack.TopModal());
    if (chooser == nullptr) return Refused("no choice of a file is on top");
    if (path.empty()) return Refused("no file");
    view.CloseMenu();
    chooser->Accept(path);
    return kTaken;
}

Refusal UserInput::AnswerColour(Colour colour) {
    auto* chooser = dynamic_cast<ColourChooserForm*>(stack.TopModal());
    if (chooser == nullptr) return Refused("no choice of a colour is on top");
    if (colour < 0 || colour > 0xFFFFFF) return Refused("no such colour");
    view.CloseMenu();
    chooser->Accept(colour);
    return kTaken;
}

Refusal UserInput::AnswerText(std::string_view text) {
    auto* box = dynamic_cast<InputBoxForm*>(stack.TopModal());
    if (box == nullptr) return Refused("no input box is on top");
    if (const Refusal refusal = Type(box->Answer, text)) return refusal;
    box->Accept();
    return kTaken;
}

Refusal UserInput::Close(Form& form) {
    if (!form.Visible()) return Refused("not shown");
    if (stack.TopModal() != nullptr && &form != stack.TopModal()) return Refused("behind another form");
    if (!form.CloseBox) return Refused("has no close box");
    view.CloseMenu();
    return Run(form.CloseBox);
}

} // namespace ombrin
