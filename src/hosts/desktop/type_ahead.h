// Letters typed in a list: which row they lead to.
#pragma once

#include <QAbstractItemModel>
#include <QString>

namespace ombrin::desktop {

class TypeAhead {
public:
    /// The row whose first column begins with what was typed in quick succession, without regard to case: the search
    /// goes on from row `from` (-1 for none) and wraps. The same letter again and again goes from row to row. -1 for
    /// none.
    int Find(const QAbstractItemModel& rows, int from, const QString& letters);

    bool IsRunning() const { return !typed.isEmpty(); }
    /// What is typed next begins anew.
    void Forget() { typed.clear(); }

private:
    QString typed;
};

} // namespace ombrin::desktop
