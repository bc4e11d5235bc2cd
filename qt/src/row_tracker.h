#pragma once

#include <QModelIndex>
#include <QObject>
#include <QPersistentModelIndex>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

namespace zel::qt::detail {

/// Remembers rows of a model while values are written to it. A model may sort, hide or remove rows
/// in answer to a value; without this the values that follow would be lost or land in rows that
/// they were not meant for. When the model resets itself, a row without a parent is found by its
/// number again.
class RowTracker
{
public:
    /// Remembers the rows of these cells, which all have the same parent.
    RowTracker(QAbstractItemModel& model, const QModelIndexList& cells);
    /// Remembers `count` rows without a parent. The column is one that the model has.
    RowTracker(QAbstractItemModel& model, int first, int count, int column);
    RowTracker(const RowTracker&) = delete;
    RowTracker& operator=(const RowTracker&) = delete;

    /// Where the cell in `column` of a remembered row is by now; invalid if the row is gone.
    QModelIndex cell(int row, int column) const;

    /// Writes to the cell in `column` of a remembered row. If a filter has hidden the row, the
    /// value goes to the model behind the filter.
    /// @return false if the model refuses the value or the row is gone
    bool setData(int row, int column, const QVariant& value, int role) const;

private:
    void watch();
    void remember();
    void rememberSource(const QModelIndexList& cells);
    const QPersistentModelIndex* remembered(int row) const;

    QAbstractItemModel& m_model;
    QModelIndex m_parent;                     // until the rows change
    std::function<QModelIndexList()> m_cells; // until the rows change, then empty
    bool m_hasParent;
    bool m_wasReset = false;
    QObject m_context; // of the connections to the model

    // Not before the rows change. Persistent indexes cost more than writing a value.
    int m_first = 0;
    std::vector<QPersistentModelIndex> m_rows; // from row m_first on; invalid where not remembered

    // Only for a proxy model.
    std::unique_ptr<RowTracker> m_source;
    std::vector<int> m_sourceRows; // as m_rows
    QVector<int> m_sourceColumns;
};

} // namespace zel::qt::detail
