#include "qt/src/row_tracker.h"

#include <QAbstractProxyModel>

#include <algorithm>
#include <utility>

namespace zel::qt::detail {

RowTracker::RowTracker(QAbstractItemModel& model, const QModelIndexList& cells)
    : m_model(model)
    , m_parent(cells.isEmpty() ? QModelIndex() : cells.first().parent())
    , m_cells([cells] { return cells; })
    , m_hasParent(m_parent.isValid())
{
    watch();
}

RowTracker::RowTracker(QAbstractItemModel& model, int first, int count, int column)
    : m_model(model)
    , m_cells([&model, first, count, column] {
        QModelIndexList cells;
        for (int row = first; row < first + count; ++row) {
            cells.append(model.index(row, column, QModelIndex()));
        }
        return cells;
    })
    , m_hasParent(false)
{
    watch();
}

QModelIndex RowTracker::cell(int row, int column) const
{
    if (m_wasReset) {
        return m_hasParent ? QModelIndex() : m_model.index(row, column);
    }
    if (m_cells) {
        return m_model.index(row, column, m_parent);
    }
    const QPersistentModelIndex* tracked = remembered(row);
    return tracked != nullptr && tracked->isValid()
               ? m_model.index(tracked->row(), column, tracked->parent())
               : QModelIndex();
}

bool RowTracker::setData(int row, int column, const QVariant& value, int role) const
{
    const QModelIndex index = cell(row, column);
    if (index.isValid()) {
        return m_model.setData(index, value, role);
    }
    const int sourceColumn = m_sourceColumns.value(column, -1);
    if (m_wasReset || m_source == nullptr || remembered(row) == nullptr || sourceColumn < 0) {
        return false;
    }
    const int sourceRow = m_sourceRows[static_cast<std::size_t>(row - m_first)];
    return m_source->setData(sourceRow, sourceColumn, value, role);
}

void RowTracker::watch()
{
    const auto onChange = [this] { remember(); };
    using Model = QAbstractItemModel;
    QObject::connect(&m_model, &Model::rowsAboutToBeInserted, &m_context, onChange);
    QObject::connect(&m_model, &Model::rowsAboutToBeRemoved, &m_context, onChange);
    QObject::connect(&m_model, &Model::rowsAboutToBeMoved, &m_context, onChange);
    QObject::connect(&m_model, &Model::layoutAboutToBeChanged, &m_context, onChange);
    QObject::connect(&m_model, &Model::modelReset, &m_context, [this] { m_wasReset = true; });
    QObject::connect(&m_model, &QObject::destroyed, &m_context, [this] {
        m_cells = nullptr; // no row is left
        m_rows.clear();
        m_wasReset = false;
    });
}

/// Until here the numbers of the rows were good; from here on the model moves the indexes.
void RowTracker::remember()
{
    if (!m_cells || m_wasReset) {
        return;
    }
    const QModelIndexList cells = std::exchange(m_cells, nullptr)();
    m_parent = QModelIndex();
    if (cells.isEmpty()) {
        return;
    }
    const auto byRow = [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); };
    const auto range = std::minmax_element(cells.cbegin(), cells.cend(), byRow);
    m_first = range.first->row();
    const int count = range.second->row() - m_first + 1;
    m_rows.resize(static_cast<std::size_t>(count));
    for (const QModelIndex& cell : cells) {
        QPersistentModelIndex& row = m_rows[static_cast<std::size_t>(cell.row() - m_first)];
        if (!row.isValid()) {
            row = cell;
        }
    }
    rememberSource(cells);
}

/// Remembers the rows of the model behind a proxy model as well, where each row of the one is a row
/// of the other, as it is with sorting and filtering.
void RowTracker::rememberSource(const QModelIndexList& cells)
{
    const auto* proxy = qobject_cast<const QAbstractProxyModel*>(&m_model);
    if (proxy == nullptr || proxy->sourceModel() == nullptr) {
        return;
    }
    QModelIndexList sources;
    std::vector<int> rows(m_rows.size(), -1);
    const QModelIndex sourceParent = proxy->mapToSource(cells.first()).parent();
    for (const QModelIndex& cell : cells) {
        const QModelIndex source = proxy->mapToSource(cell);
        int& row = rows[static_cast<std::size_t>(cell.row() - m_first)];
        if (!source.isValid() || source.parent() != sourceParent ||
            (row >= 0 && row != source.row())) {
            return;
        }
        row = source.row();
        sources.append(source);
    }
    const QModelIndex& first = cells.first();
    for (int column = 0; column < m_model.columnCount(first.parent()); ++column) {
        const QModelIndex source = proxy->mapToSource(first.sibling(first.row(), column));
        const bool sameRow =
            source.parent() == sourceParent && source.row() == sources.first().row();
        m_sourceColumns.append(source.isValid() && sameRow ? source.column() : -1);
    }
    m_sourceRows = std::move(rows);
    m_source = std::make_unique<RowTracker>(*proxy->sourceModel(), sources);
    m_source->remember(); // the change may be one of the source, which has told of it already
}

const QPersistentModelIndex* RowTracker::remembered(int row) const
{
    const auto i = static_cast<std::size_t>(row - m_first);
    return row >= m_first && i < m_rows.size() ? &m_rows[i] : nullptr;
}

} // namespace zel::qt::detail
