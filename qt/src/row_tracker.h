#pragma once

#include <QHash>
#include <QObject>
#include <QPersistentModelIndex>

namespace zel::qt::detail {

/// Remembers rows of a model while values are written to it. A model may sort or remove rows in
/// answer to a value; without this the values that follow would land in rows that they were not
/// meant for. When the model resets itself, a row without a parent is found by its number again.
class RowTracker
{
public:
    /// Remembers the rows of these cells, which all have the same parent.
    RowTracker(const QAbstractItemModel& model, const QModelIndexList& cells);
    RowTracker(const RowTracker&) = delete;
    RowTracker& operator=(const RowTracker&) = delete;

    /// Where the cell in `column` of a remembered row is by now; invalid if the row is gone.
    QModelIndex cell(int row, int column) const;

private:
    const QAbstractItemModel& m_model;
    QHash<int, QPersistentModelIndex> m_rows;
    QObject m_context; // of the connection to the model
    bool m_hasParent;
    bool m_wasReset = false;
};

} // namespace zel::qt::detail
