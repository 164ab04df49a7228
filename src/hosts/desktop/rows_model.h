// The rows of a list for Qt's views: its own list of row names, brought up to date once a frame by the rows' journal.
#pragma once

#include "controls/row_list.h"
#include "foundation/code_page.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QIcon>
#include <functional>
#include <vector>

namespace ombrin::desktop {

class RowsModel : public QAbstractTableModel {
public:
    /// Pictures by the rows' image numbers; the colour of rows that were never painted.
    struct Look {
        std::function<QIcon(int image)> icon;
        std::function<std::optional<Colour>()> colour;
        std::function<QString(int image)> meaning = nullptr; ///< what a screen reader says for the picture
    };

    RowsModel(RowList& rows, int columns, const CodePage& page, Look look, std::function<void()> changed);
    ~RowsModel() override;

    /// Takes the journal.
    void Apply();
    void SetHeaders(const std::vector<std::string>& texts);
    void LookChanged();

    RowId RowAt(int row) const { return row >= 0 && row < rowCount() ? shown[static_cast<std::size_t>(row)] : RowId{}; }
    int PositionOf(RowId row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Text(std::string_view bytes) const { return QString::fromUtf8(page.ToUtf8(bytes)); }
    void ReadEverything();

    RowList& rows;
    int columns;
    const CodePage& page;
    Look look;
    std::vector<RowId> shown;
    std::vector<std::string> headers;
};

/// A colour value with its low byte red.
} // namespace ombrin::desktop
