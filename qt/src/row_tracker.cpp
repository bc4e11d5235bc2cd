#include "qt/src/row_tracker.h"

#include <QAbstractItemModel>

namespace zel::qt::detail {

RowTracker::RowTracker(const QAbstractItemModel& model, const QModelIndexList& cells)
    : m_model(model)
    , m_hasParent(!cells.isEmpty() && cells.first().parent().isValid())
{
    QObject::connect(&model, &QAbstractItemModel::modelReset, &m_context,
                     [this] { m_wasReset = true; });
    int last = -1;
    for (const QModelIndex& cell : cells) {
        if (cell.row() != last && !m_rows.contains(cell.row())) {
            m_rows.insert(cell.row(), cell);
        }
        last = cell.row();
    }
}

QModelIndex RowTracker::cell(int row, int column) const
{
    if (m_wasReset) {
        return m_hasParent ? QModelIndex() : m_model.index(row, column);
    }
    const auto tracked = m_rows.constFind(row);
    if (tracked == m_rows.constEnd() || !tracked->isValid()) {
        return {};
    }
    return m_model.index(tracked->row(), column, m_hasParent ? tracked->parent() : QModelIndex());
}

} // namespace zel::qt::detail
