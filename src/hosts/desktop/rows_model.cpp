#include "hosts/desktop/rows_model.h"

#include "hosts/desktop/board.h"
#include "hosts/desktop/look.h"

namespace ombrin::desktop {

RowsModel::RowsModel(RowList& rows, int columns, const CodePage& page, Look look, std::function<void()> changed)
    : rows(rows), columns(columns), page(page), look(std::move(look)) {
    rows.Journal(std::move(changed));
    rows.TakeJournal();
    ReadEverything();
}

RowsModel::~RowsModel() { rows.Journal(nullptr); }

void RowsModel::ReadEverything() {
    shown.clear();
    shown.reserve(rows.Count());
    rows.ForEach([this](RowId row) { shown.push_back(row); });
}

void RowsModel::Apply() {
    const RowJournal journal = rows.TakeJournal();
    // Telling a view of a thousand single changes costs more than letting it look again.
    constexpr std::size_t kManyChanges = 500;
    if (journal.everything || journal.changes.size() > kManyChanges) {
        beginResetModel();
        ReadEverything();
        endResetModel();
        return;
    }
    for (const RowChange& change : journal.changes) {
        const int at = static_cast<int>(change.position);
        const auto place = shown.begin() + at;
        switch (change.what) {
        case RowChange::What::Added:
            beginInsertRows({}, at, at);
            shown.insert(place, change.row);
            endInsertRows();
            break;
        case RowChange::What::Removed:
            beginRemoveRows({}, at, at);
            shown.erase(place);
            endRemoveRows();
            break;
        case RowChange::What::Altered:
            Q_EMIT dataChanged(index(at, 0), index(at, columns - 1));
            break;
        }
    }
}

void RowsModel::SetHeaders(const std::vector<std::string>& texts) {
    if (headers == texts) return;
    headers = texts;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns - 1);
}

void RowsModel::LookChanged() {
    if (!shown.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columns - 1), {Qt::ForegroundRole});
}

int RowsModel::PositionOf(RowId row) const { return rows.Has(row) ? static_cast<int>(rows.PositionOf(row)) : -1; }

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

int RowsModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns; }

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    const RowId row = RowAt(index.row());
    if (!index.isValid() || !rows.Has(row)) return {}; // gone since the last frame
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == 0 ? Text(rows.Text(row))
                                   : Text(rows.SubItem(row, static_cast<std::size_t>(index.column())));
    case Qt::DecorationRole:
        return index.column() == 0 && look.icon ? QVariant(look.icon(rows.Image(row))) : QVariant();
    case Qt::ToolTipRole:
        return rows.Tip(row).empty() ? QVariant() : QVariant(Board::Tip(Text(rows.Tip(row))));
    case Qt::AccessibleDescriptionRole: {
        QStringList said{look.meaning ? look.meaning(rows.Image(row)) : QString(), Text(rows.Tip(row))};
        said.removeAll(QString());
        return said.join(QStringLiteral(", "));
    }
    case Qt::ForegroundRole: {
        const auto colour = rows.RowColour(row) ? rows.RowColour(row) : look.colour();
        return colour ? QVariant(desktop::Look::OnPanel(*colour)) : QVariant();
    }
    default:
        return {};
    }
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    const auto at = static_cast<std::size_t>(section);
    return at < headers.size() ? QVariant(Text(headers[at])) : QVariant();
}

} // namespace ombrin::desktop
