// A grid of two columns whose rows have heights of their own: the chat views.
#pragma once

#include "controls/control.h"

#include <array>

namespace ombrin {

/// Row 0 is the fixed header. Rows and columns count from 0, widths and heights are in twips. A row or column that is
/// not there raises 5.
class FlexGrid : public Control {
public:
    static constexpr int kColumns = 2;
    static constexpr int kUsualHeight = 240;
    enum class Alignment : std::uint8_t { CentreTop, LeftTop };

    FlexGrid(Container& parent, std::string name) : Control(parent, ControlKind::FlexGrid, std::move(name)), lines(2) {}

    int Rows() const { return static_cast<int>(lines.size()); }
    /// Rows are added or cut at the end; the current row and the top row stay inside.
    void SetRows(int count);
    int Row() const { return row; }
    void SetRow(int value);
    int Col() const { return column; }
    void SetCol(int value);
    int TopRow() const { return topRow; }
    void SetTopRow(int value);

    /// Of the current cell.
    const std::string& Text() const {
        return lines[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)];
    }
    void SetText(std::string_view text);
    void SetCellAlignment(Alignment value);

    const std::string& TextAt(int atRow, int atColumn) const;
    Alignment AlignmentAt(int atRow, int atColumn) const;
    int RowHeight(int atRow) const { return At(atRow).height; }
    void SetRowHeight(int atRow, int twips);
    int ColWidth(int atColumn) const;
    void SetColWidth(int atColumn, int twips);

    /// The header cannot be removed (5).
    void RemoveItem(int atRow);
    /// Empties the cells, also those of the header; rows and heights stay.
    void Clear();

    std::function<void()> Click;
    /// Setting the code to 0 swallows the key.
    std::function<void(int& code, int shift)> KeyDown;

private:
    struct Line {
        std::array<std::string, kColumns> cells;
        std::array<Alignment, kColumns> alignments{Alignment::LeftTop, Alignment::LeftTop};
        int height = kUsualHeight;
    };
    Line& At(int atRow);
    const Line& At(int atRow) const;
    void KeepInside();

    std::vector<Line> lines;
    std::array<int, kColumns> widths{};
    int row = 1, column = 0, topRow = 1;
};

} // namespace ombrin
