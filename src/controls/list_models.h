// List boxes and list views.
#pragma once

#include "controls/row_list.h"

namespace ombrin {

/// Rows of text. One row at a time is selected, or any number in a list for several.
class ListBox : public Control {
public:
    struct Form {
        bool sorted = false;
        bool several = false; ///< several rows can be selected
        RowList::KeyOf keyOf = RowList::WholeText;
    };

    ListBox(Container& parent, std::string name, Form form)
        : Control(parent, ControlKind::ListBox, std::move(name)), rows(form.keyOf), form(form) {}
    ListBox(Container& parent, std::string name) : ListBox(parent, std::move(name), Form{}) {}

    RowList rows;

    bool IsForSeveral() const { return form.several; }
    RowId Add(std::string_view text) { return form.sorted ? rows.InsertSorted(text) : rows.Append(text); }
    void Clear();
    /// The selected row of a list for one; no row when none is.
    RowId SelectedRow() const { return rows.Has(selected) ? selected : RowId{}; }
    /// In a list for one the mark of another row goes.
    void Select(RowId row, bool on);
    /// Text of the selected row, empty when there is none.
    std::string SelectedText() const { return SelectedRow() ? rows.Text(selected) : std::string(); }

    std::function<void()> Click, DblClick;
    std::function<void(int button)> MouseUp;

private:
    Form form;
    RowId selected;
};

/// Rows with an image, a colour, a tag, a tool tip and further columns. A list with rows has a selected one: the first
/// that was added, until a person chooses another; when it goes, the row that takes its place.
class ListView : public Control {
public:
    ListView(Container& parent, std::string name, std::vector<std::string> headers,
             RowList::KeyOf keyOf = RowList::WholeText)
        : Control(parent, ControlKind::ListView, std::move(name)), rows(keyOf), headers(std::move(headers)),
          widths(this->headers.size()) {}

    RowList rows;

    RowId Add(std::string_view text);
    void Remove(RowId row);
    void Clear();
    RowId SelectedItem() const { return selected; }
    /// Text of the selected row, empty in an empty list.
    std::string SelectedText() const { return selected ? rows.Text(selected) : std::string(); }
    void Select(RowId row);

    const std::vector<std::string>& Headers() const { return headers; }
    /// Columns count from 1; one that is not there is left alone.
    void SetHeader(std::size_t column, std::string_view text);

    /// Pixels of a column's heading; 0 hides the column.
    int HeaderWidth(std::size_t column) const {
        return column >= 1 && column <= widths.size() ? widths[column - 1] : 0;
    }
    void SetHeaderWidth(std::size_t column, int pixels);

    std::function<void()> ItemClick, DblClick;
    std::function<void(int button)> MouseUp;

private:
    std::vector<std::string> headers;
    std::vector<int> widths;
    RowId selected;
};

} // namespace ombrin
