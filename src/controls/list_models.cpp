#include "controls/list_models.h"

namespace ombrin {

void ListBox::Clear() {
    rows.Clear();
    selected = {};
    Changed();
}

void ListBox::Select(RowId row, bool on) {
    const RowId before = SelectedRow();
    rows.SetSelected(row, on);
    if (form.several) return;
    if (on && before && !(before == row)) rows.SetSelected(before, false);
    if (on || before == row) selected = on ? row : RowId{};
}

RowId ListView::Add(std::string_view text) {
    const RowId row = rows.Append(text);
    if (rows.Count() == 1) Select(row);
    return row;
}

void ListView::Remove(RowId row) {
    if (!(row == selected)) return rows.Remove(row);
    const std::size_t position = rows.PositionOf(row);
    rows.Remove(row);
    selected = {};
    if (rows.Count() > 0) Select(rows.At(std::min(position, rows.Count() - 1)));
}

void ListView::Clear() {
    rows.Clear();
    selected = {};
    Changed();
}

void ListView::Select(RowId row) {
    rows.SetSelected(row, true);
    if (rows.Has(selected) && !(selected == row)) rows.SetSelected(selected, false);
    selected = row;
}

void ListView::SetHeader(std::size_t column, std::string_view text) {
    if (column < 1 || column > headers.size()) return;
    headers[column - 1] = text;
    Changed();
}

void ListView::SetHeaderWidth(std::size_t column, int pixels) {
    if (column < 1 || column > widths.size()) return;
    Set(widths[column - 1], pixels);
}

} // namespace ombrin
