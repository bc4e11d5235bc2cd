#include "qt/src/row_tracker.h"

#include <QAbstractItemModel>

namespace zel::qt::detail {

RowTracker::RowTracker(const QAbstractItemModel& model, const QModelIndexList& cells)
    : m_model(model)
    , m_onReset(QObject::connect(&m_model, &QAbstractItemModel::modelReset,
                                 [this] { m_wasReset = true; }))
    , m_hasParent(!cells.isEmpty() && cells.first().parent().isValid())
{
    for (const QModelIndex& cell : cells) {
        if (!m_rows.contains(cell.row())) {
            m_rows.insert(cell.row(), cell);
        }
    }
}

RowTracker::~RowTracker()
{
    QObject::disconnect(m_onReset);
}

QModelIndex RowTracker::cell(int row, int column) const
{
    if (m_wasReset) {
        return m_hasParent ? QModelIndex() : m_model.index(row, column);
    }
    const QPersistentModelIndex tracked = m_rows.value(row);
    return tracked.isValid() ? m_model.index(tracked.row(), column, tracked.parent())
                             : QModelIndex();
}

} // namespace zel::qt::detail
