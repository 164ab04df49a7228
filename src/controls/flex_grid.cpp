#include "controls/flex_grid.h"

#include "foundation/runtime_error.h"

#include <algorithm>
#include <utility>

namespace ombrin {

namespace {

void Check(int value, int limit) {
    if (value < 0 || value >= limit) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

} // namespace

const FlexGrid::Line& FlexGrid::At(int atRow) const {
    Check(atRow, Rows());
    return lines[static_cast<std::size_t>(atRow)];
}

FlexGrid::Line& FlexGrid::At(int atRow) { return const_cast<Line&>(std::as_const(*this).At(atRow)); }

void FlexGrid::KeepInside() {
    row = std::min(row, Rows() - 1);
    topRow = std::min(topRow, Rows() - 1);
    Changed();
}

void FlexGrid::SetRows(int count) {
    if (count < 1) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    lines.resize(static_cast<std::size_t>(count));
    KeepInside();
}

void FlexGrid::SetRow(int value) {
    Check(value, Rows());
    Set(row, value);
}

void FlexGrid::SetCol(int value) {
    Check(value, kColumns);
    Set(column, value);
}

void FlexGrid::SetTopRow(int value) {
    Check(value, Rows());
    Set(topRow, value);
}

void FlexGrid::SetText(std::string_view text) {
    At(row).cells[static_cast<std::size_t>(column)] = text;
    Changed();
}

void FlexGrid::SetCellAlignment(Alignment value) {
    At(row).alignments[static_cast<std::size_t>(column)] = value;
    Changed();
}

const std::string& FlexGrid::TextAt(int atRow, int atColumn) const {
    Check(atColumn, kColumns);
    return At(atRow).cells[static_cast<std::size_t>(atColumn)];
}

FlexGrid::Alignment FlexGrid::AlignmentAt(int atRow, int atColumn) const {
    Check(atColumn, kColumns);
    return At(atRow).alignments[static_cast<std::size_t>(atColumn)];
}

void FlexGrid::SetRowHeight(int atRow, int twips) {
    At(atRow).height = twips;
    Changed();
}

int FlexGrid::ColWidth(int atColumn) const {
    Check(atColumn, kColumns);
    return widths[static_cast<std::size_t>(atColumn)];
}

void FlexGrid::SetColWidth(int atColumn, int twips) {
    Check(atColumn, kColumns);
    widths[static_cast<std::size_t>(atColumn)] = twips;
    Changed();
}

void FlexGrid::RemoveItem(int atRow) {
    Check(atRow, Rows());
    if (atRow == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    lines.erase(lines.begin() + atRow);
    KeepInside();
}

void FlexGrid::Clear() {
    for (Line& line : lines) line.cells = {};
    Changed();
}

} // namespace ombrin
