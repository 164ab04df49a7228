#include "hosts/desktop/list_painter.h"

#include "hosts/desktop/list_pictures.h"
#include "hosts/desktop/rows_model.h"
#include "hosts/desktop/type_ahead.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolTip>
#include <algorithm>

namespace ombrin::desktop {

namespace {

/// After a pause of so long in typing, the row that was found is selected, and what is typed then begins anew.
constexpr int kTypingPause = 700; // ms

constexpr int kBesideText = 4; // pixels to the edge of a row and to its picture

/// A row is as wide as its list: what is longer ends in an ellipsis.
class RowOfText : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {0, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

// A view of its kind each, as Qt tells by it what a screen reader calls them: a list, a table.

QAbstractItemView* ViewOfTexts(QWidget* parent) {
    auto* view = new QListView(parent);
    view->setItemDelegate(new RowOfText(view));
    view->setUniformItemSizes(true);
    return view;
}

QAbstractItemView* ViewOfColumns(QWidget* parent) {
    auto* view = new QTableView(parent);
    view->setShowGrid(false);
    view->setWordWrap(false);
    view->setTabKeyNavigation(false);
    view->setCornerButtonEnabled(false);
    view->verticalHeader()->hide();
    QHeaderView& header = *view->horizontalHeader();
    header.setStretchLastSection(true);
    header.setHighlightSections(false);
    header.setSectionsClickable(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return view;
}

/// Works for both kinds of list; what differs is how the selected row is read.
class ListPainter : public Painter {
public:
    ListPainter(Board& board, Control& model, RowList& rows, int columns, QWidget* parent)
        : Painter(board, model, columns == 1 ? ViewOfTexts(parent) : ViewOfColumns(parent)),
          model(rows, columns, board.Page(),
                {[&model](int image) { return ListPictures::Icon(model.Name(), image); },
                 [&model] { return model.ForeColour(); },
                 [&model](int image) { return ListPictures::Meaning(model.Name(), image); }},
                [&board, &model] { board.Dirty(model); }) {
        QAbstractItemView& view = *Shown();
        view.setModel(&this->model);
        view.setEditTriggers(QAbstractItemView::NoEditTriggers);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        view.setTextElideMode(Qt::ElideRight);
        view.setContextMenuPolicy(Qt::PreventContextMenu);
        view.viewport()->installEventFilter(this);
        connect(view.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& current) { ByKeyboard(current); });
        typingPause.setSingleShot(true);
        connect(&typingPause, &QTimer::timeout, this, [this] { SelectFound(); });
    }

protected:
    QAbstractItemView* Shown() const { return static_cast<QAbstractItemView*>(Widget()); }

    virtual bool IsSelected(RowId row) const = 0;
    virtual RowId Selected() const = 0;
    virtual bool IsForSeveral() const { return false; }

    void ApplyOwn() override {
        QAbstractItemView& view = *Shown();
        const int scrolled = view.verticalScrollBar()->value();
        model.Apply();
        ShowSelection();
        view.verticalScrollBar()->setValue(scrolled);
        if (colour != Model().ForeColour()) {
            colour = Model().ForeColour();
            model.LookChanged();
        }
    }

    void ShowSelection() {
        QItemSelectionModel& selection = *Shown()->selectionModel();
        showing = true;
        if (IsForSeveral()) {
            QItemSelection marked;
            for (int row = 0; row < model.rowCount(); ++row)
                if (IsSelected(model.RowAt(row))) marked.select(model.index(row, 0), model.index(row, 0));
            selection.select(marked, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        } else if (const int row = model.PositionOf(Marked()); row < 0) {
            selection.clear();
        } else if (row < model.rowCount() && !selection.isRowSelected(row, {})) {
            selection.setCurrentIndex(model.index(row, 0),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        }
        showing = false;
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == Widget() && event->type() == QEvent::FocusOut && found)
            QMetaObject::invokeMethod(
                this, [this] { SelectFound(); }, Qt::QueuedConnection);
        if (watched == Widget()) return Painter::eventFilter(watched, event); // else its viewport
        if (event->type() == QEvent::ToolTip) return TellsElided(static_cast<QHelpEvent&>(*event));
        if (event->type() == QEvent::MouseButtonPress) return Press(static_cast<QMouseEvent&>(*event)), true;
        if (event->type() == QEvent::MouseButtonDblClick) {
            const auto& click = static_cast<QMouseEvent&>(*event);
            if (click.button() != Qt::LeftButton) return true;
            const long row = PositionAt(click.position().toPoint());
            if (row >= 0) board.Input([=, this](UserInput& input) { return input.DoubleClick(Model(), row); });
            return true;
        }
        return false;
    }

    bool TakesKey(QKeyEvent& event) override {
        const bool isMenu = event.key() == Qt::Key_Menu ||
                            (event.key() == Qt::Key_F10 && event.modifiers().testFlag(Qt::ShiftModifier));
        const long row = model.PositionOf(Marked());
        if (isMenu) {
            EndSearch();
            const QRect place = row < 0 ? QRect() : Shown()->visualRect(model.index(static_cast<int>(row), 0));
            OpenMenu(row, Shown()->viewport()->mapToGlobal(place.bottomLeft()));
            return true;
        }
        if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && row >= 0) {
            EndSearch();
            board.Input([=, this](UserInput& input) { return input.DoubleClick(Model(), row); });
            return true;
        }
        if (event.key() == Qt::Key_Space && IsForSeveral() && Shown()->currentIndex().isValid()) {
            Toggle(model.RowAt(Shown()->currentIndex().row()));
            return true;
        }
        return SearchesFor(event);
    }

    /// What a person has before him as selected: the row that his letters have found, or the model's.
    RowId Marked() const { return found && model.PositionOf(found) >= 0 ? found : Selected(); }

    /// A letter moves the mark at once. The client hears of it only after the last one, as it asks the server about
    /// each room that is selected.
    bool SearchesFor(const QKeyEvent& key) {
        const QString letters = key.text();
        if (letters.isEmpty() || !letters.front().isPrint()) return false;
        if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
        if (letters == QLatin1String(" ") && !search.IsRunning()) return false;
        if (const Refusal refusal = board.input.Reach(Model())) return board.Refused(refusal), true;
        typingPause.start(kTypingPause);
        const QModelIndex now = Shown()->currentIndex();
        const int row = search.Find(model, now.isValid() ? now.row() : -1, letters);
        if (row < 0) return true;
        if (!IsForSeveral()) found = model.RowAt(row);
        showing = true;
        Shown()->selectionModel()->setCurrentIndex(
            model.index(row, 0), IsForSeveral() ? QItemSelectionModel::NoUpdate
                                                : QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        showing = false;
        Shown()->scrollTo(model.index(row, 0));
        return true;
    }

    void EndSearch() {
        typingPause.stop();
        search.Forget();
        found = {};
    }

    void SelectFound() {
        if (board.loop.IsBlocking()) return typingPause.start(kTypingPause);
        const RowId id = found;
        EndSearch();
        const long row = model.PositionOf(id);
        board.Dirty(Model()); // a refusal, and a row that has gone, take the mark back
        if (row < 0 || id == Selected()) return;
        board.Input([=, this](UserInput& input) { return input.Select(Model(), row, true); });
    }

    void Toggle(RowId id) {
        const long row = model.PositionOf(id);
        const bool on = row >= 0 && !IsSelected(id);
        board.Input([=, this](UserInput& input) { return input.Select(Model(), row, on); });
    }

    RowsModel model;

private:
    /// The row as the client has it now; -1 below the rows, or for a row that is gone.
    long PositionAt(const QPoint& point) const {
        const QModelIndex index = Shown()->indexAt(point);
        return index.isValid() ? model.PositionOf(model.RowAt(index.row())) : -1;
    }

    /// A text that is cut short and has no tool tip of its own is told in full.
    bool TellsElided(const QHelpEvent& help) {
        const QModelIndex index = Shown()->indexAt(help.pos());
        const QString text = index.data().toString();
        if (!index.isValid() || !index.data(Qt::ToolTipRole).toString().isEmpty()) return false;
        const bool pictured = !index.data(Qt::DecorationRole).isNull();
        const int needed = Shown()->fontMetrics().horizontalAdvance(text) + 2 * kBesideText +
                           (pictured ? Shown()->iconSize().width() + kBesideText : 0);
        if (needed <= Shown()->visualRect(index).width()) return false;
        QToolTip::showText(help.globalPos(), Board::Tip(text), Shown()->viewport());
        return true;
    }

    void Press(const QMouseEvent& press) {
        EndSearch();
        Shown()->setFocus(Qt::MouseFocusReason);
        const long row = PositionAt(press.position().toPoint());
        if (press.button() == Qt::RightButton) return OpenMenu(row, press.globalPosition().toPoint());
        if (press.button() != Qt::LeftButton || row < 0) return;
        if (IsForSeveral())
            Toggle(model.RowAt(Shown()->indexAt(press.position().toPoint()).row()));
        else
            board.Input([=, this](UserInput& input) { return input.Select(Model(), row, true); });
    }

    void OpenMenu(long row, const QPoint& place) {
        board.menuPlace = place;
        board.Input([=, this](UserInput& input) { return input.RightClick(Model(), row); });
    }

    /// The arrow keys move the selection of a list for one row.
    void ByKeyboard(const QModelIndex& current) {
        if (showing || board.IsApplying() || IsForSeveral() || !current.isValid()) return;
        EndSearch();
        const long row = model.PositionOf(model.RowAt(current.row()));
        if (row < 0 || model.RowAt(current.row()) == Selected()) return;
        board.Dirty(Model()); // a refusal takes the mark back
        board.Input([=, this](UserInput& input) { return input.Select(Model(), row, true); });
    }

    std::optional<Colour> colour;
    bool showing = false;
    TypeAhead search;
    QTimer typingPause;
    RowId found; ///< by typing, until the client is told
};

class ListBoxPainter : public ListPainter {
public:
    ListBoxPainter(Board& board, ListBox& list, QWidget* parent)
        : ListPainter(board, list, list.rows, 1, parent), list(list) {
        Shown()->setSelectionMode(list.IsForSeveral() ? QAbstractItemView::MultiSelection
                                                      : QAbstractItemView::SingleSelection);
    }

private:
    bool IsSelected(RowId row) const override { return list.rows.Has(row) && list.rows.Selected(row); }
    RowId Selected() const override { return list.SelectedRow(); }
    bool IsForSeveral() const override { return list.IsForSeveral(); }
    ListBox& list;
};

class ListViewPainter : public ListPainter {
public:
    ListViewPainter(Board& board, ListView& list, QWidget* parent)
        : ListPainter(board, list, list.rows, static_cast<int>(list.Headers().size()), parent), list(list) {
        Shown()->setSelectionMode(QAbstractItemView::SingleSelection);
        Shown()->setIconSize({14, 14});
    }

private:
    bool IsSelected(RowId row) const override { return row == list.SelectedItem(); }
    RowId Selected() const override { return list.SelectedItem(); }

    void ApplyOwn() override {
        model.SetHeaders(list.Headers());
        // One column needs no heading of its own: the label above says what it is.
        if (auto* table = qobject_cast<QTableView*>(Shown())) SizeColumns(*table);
        ListPainter::ApplyOwn();
    }
    void SizeColumns(QTableView& table) const {
        for (std::size_t column = 1; column <= list.Headers().size(); ++column) {
            const int width = list.HeaderWidth(column);
            table.setColumnHidden(static_cast<int>(column) - 1, width <= 0);
            if (width > 0) table.setColumnWidth(static_cast<int>(column) - 1, width);
        }
        table.ensurePolished(); // with the font of the look
        const int height = std::max(table.fontMetrics().height() + 2, table.iconSize().height() + 2);
        table.verticalHeader()->setMinimumSectionSize(height);
        table.verticalHeader()->setDefaultSectionSize(height);
    }
    ListView& list;
};

} // namespace

std::unique_ptr<Painter> MakeListPainter(Board& board, Control& control, QWidget* parent) {
    if (control.Kind() == ControlKind::ListBox)
        return std::make_unique<ListBoxPainter>(board, static_cast<ListBox&>(control), parent);
    return std::make_unique<ListViewPainter>(board, static_cast<ListView&>(control), parent);
}

} // namespace ombrin::desktop
