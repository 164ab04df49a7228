#include "controls/boxes.h"
#include "foundation/runtime_error.h"
#include "hosts/library/controls_parts.h"
#include "hosts/library/guarded.h"

namespace ombrin::host {

namespace {

const Refusal kUnknown = "no such control";

/// What stands in a control, by its kind.
class Reader {
public:
    Reader(const CodePage& page, ControlState& state) : page(page), state(state) {}

    void Read(const ombrin::Control& control) {
        state.visible = control.Visible();
        state.enabled = control.Enabled();
        if (const auto* captioned = dynamic_cast<const Captioned*>(&control)) state.text = Text(captioned->Caption());
        if (const auto* box = dynamic_cast<const TextBox*>(&control)) state.text = Text(box->Text());
        if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) Entries(*combo);
        if (const auto* bar = dynamic_cast<const StatusBar*>(&control)) state.text = Text(bar->Text());
        if (const auto* bar = dynamic_cast<const ProgressBar*>(&control)) state.text = std::to_string(bar->Value());
        if (const auto* box = dynamic_cast<const CheckBox*>(&control)) state.on = box->On();
        if (const auto* option = dynamic_cast<const OptionButton*>(&control)) state.on = option->On();
        if (const auto* list = dynamic_cast<const ListBox*>(&control)) Rows(list->rows, list->SelectedRow());
        if (const auto* list = dynamic_cast<const ListView*>(&control)) Rows(list->rows, list->SelectedItem());
        if (const auto* grid = dynamic_cast<const FlexGrid*>(&control)) Grid(*grid);
    }

private:
    std::string Text(std::string_view bytes) const { return page.ToUtf8(bytes); }

    void Entries(const ComboBox& combo) {
        for (const std::string& entry : combo.List()) state.rows.push_back({Text(entry)});
    }

    void Rows(const RowList& rows, RowId selected) {
        rows.ForEach([&](RowId row) {
            std::vector<std::string> columns{Text(rows.Text(row))};
            for (std::size_t i = 1; i <= rows.SubItemCount(row); ++i) columns.push_back(Text(rows.SubItem(row, i)));
            state.rows.push_back(std::move(columns));
        });
        if (selected) state.selected = static_cast<long>(rows.PositionOf(selected));
    }

    void Grid(const FlexGrid& grid) {
        for (int row = 0; row < grid.Rows(); ++row)
            state.rows.push_back({Text(grid.TextAt(row, 0)), Text(grid.TextAt(row, 1))});
        state.selected = grid.Row();
    }

    const CodePage& page;
    ControlState& state;
};

} // namespace

Controls::Controls(std::unique_ptr<Parts> given) : parts(std::move(given)) { parts->owner = this; }

Controls::~Controls() = default;

std::optional<ControlState> Controls::Read(std::string_view control) const {
    const ombrin::Control* found = parts->Find(control);
    if (found == nullptr) return std::nullopt;
    ControlState state;
    Reader(parts->world.page, state).Read(*found);
    return state;
}

std::vector<std::string> Controls::Names() const {
    std::vector<std::string> names;
    for (const ombrin::Control* control : parts->world.view.Controls()) names.push_back(parts->NameOf(*control));
    for (const Form* form : parts->world.forms)
        for (const ombrin::Control* control : form->Controls()) names.push_back(parts->NameOf(*control));
    return names;
}

Refusal Controls::Click(std::string_view control) {
    ombrin::Control* found = parts->Find(control);
    if (found == nullptr) return kUnknown;
    return Guarded([&] { return parts->world.input.Click(*found); });
}

Refusal Controls::Select(std::string_view list, long row, bool on) {
    ombrin::Control* found = parts->Find(list);
    if (found == nullptr) return kUnknown;
    return Guarded([&] { return parts->world.input.Select(*found, row, on); });
}

Refusal Controls::DoubleClick(std::string_view list, long row) {
    ombrin::Control* found = parts->Find(list);
    if (found == nullptr) return kUnknown;
    return Guarded([&] { return parts->world.input.DoubleClick(*found, row); });
}

Refusal Controls::Type(std::string_view box, std::string_view text) {
    auto* found = dynamic_cast<TextBox*>(parts->Find(box));
    if (found == nullptr) return kUnknown;
    return Guarded([&] { return parts->world.input.Type(*found, Held(parts->world.page, text)); });
}

Refusal Controls::Key(std::string_view control, int key, int shift) {
    ombrin::Control* found = parts->Find(control);
    if (found == nullptr) return kUnknown;
    return Guarded([&] { return parts->world.input.Key(*found, key, shift); });
}

Refusal Controls::Check(std::string_view box, bool on) {
    auto* found = dynamic_cast<CheckBox*>(parts->Find(box));
    if (found == nullptr) return kUnknown;
    return Guarded([&] { return parts->world.input.Check(*found, on); });
}

Refusal Controls::Resize(int width, int height) {
    if (!parts->world.resize || width < 0 || height < 0) return "no such size";
    Guarded([&] { parts->world.resize(width, height); });
    return std::nullopt;
}

std::vector<std::string> Controls::Forms() const {
    std::vector<std::string> names;
    for (const Form* form : parts->world.stack.Visible()) names.push_back(form->Name());
    return names;
}

std::string Controls::BoxText() const {
    const Form* top = parts->world.stack.Top();
    if (const auto* box = dynamic_cast<const MessageBoxForm*>(top)) return parts->world.page.ToUtf8(box->Text());
    if (const auto* box = dynamic_cast<const InputBoxForm*>(top)) return parts->world.page.ToUtf8(box->Prompt());
    return {};
}

Refusal Controls::Answer(int button) {
    return Guarded([&] { return parts->world.input.PressButton(static_cast<BoxResult>(button)); });
}

Refusal Controls::AnswerText(std::string_view text) {
    return Guarded([&] { return parts->world.input.AnswerText(Held(parts->world.page, text)); });
}

Refusal Controls::Close(std::string_view form) {
    Form* found = parts->FormNamed(form);
    if (found == nullptr) return "no such form";
    return Guarded([&] { return parts->world.input.Close(*found); });
}

} // namespace ombrin::host
