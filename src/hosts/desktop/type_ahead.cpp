#include "hosts/desktop/type_ahead.h"

namespace ombrin::desktop {

namespace {

int Search(const QAbstractItemModel& rows, int start, const QString& beginning) {
    const int count = rows.rowCount();
    for (int step = 0; step < count; ++step) {
        const int row = (start + step) % count;
        if (rows.index(row, 0).data().toString().startsWith(beginning, Qt::CaseInsensitive)) return row;
    }
    return -1;
}

} // namespace

int TypeAhead::Find(const QAbstractItemModel& rows, int from, const QString& letters) {
    // A first letter leads on from where the mark is, those after it may as well stay there.
    const bool goesOn = IsRunning();
    typed += letters;
    const int whole = Search(rows, std::max(0, goesOn ? from : from + 1), typed);
    if (whole >= 0 || typed.count(typed.front(), Qt::CaseInsensitive) != typed.size()) return whole;
    return Search(rows, from + 1, typed.left(1));
}

} // namespace ombrin::desktop
