#include "tests/helpers/typed_table_model.h"

namespace zel::test {

TypedTableModel::TypedTableModel(int rows, int columns, QObject* parent)
    : QAbstractTableModel(parent)
    , m_columns(columns)
    , m_rows(static_cast<std::size_t>(rows), std::vector<Cell>(static_cast<std::size_t>(columns)))
{}

TypedTableModel::~TypedTableModel() = default;

int TypedTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TypedTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant TypedTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const Cell& cell = const_cast<TypedTableModel*>(this)->cell(index.row(), index.column());
    switch (role) {
    case qt::DisplayRole:
        return cell.text;
    case qt::ToolTipRole:
        return cell.toolTip;
    case qt::EditRole:
        return cell.value;
    case Qt::CheckStateRole:
        return cell.check;
    default:
        return {};
    }
}

bool TypedTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!store(index, value, role)) {
        return false;
    }
    Q_EMIT dataChanged(index, index, {role});
    if (written) {
        written(index, role);
    }
    return true;
}

bool TypedTableModel::setItemData(const QModelIndex& index, const QMap<int, QVariant>& roles)
{
    ++itemWrites;
    bool ok = true;
    for (auto it = roles.cbegin(); it != roles.cend(); ++it) {
        ok = store(index, it.value(), it.key()) && ok;
    }
    Q_EMIT dataChanged(index, index, roles.keys().toVector());
    if (written) {
        written(index, qt::EditRole);
    }
    return ok;
}

Qt::ItemFlags TypedTableModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? QAbstractTableModel::flags(index) | Qt::ItemIsEditable | extraFlags
                           : Qt::NoItemFlags;
}

bool TypedTableModel::insertRows(int row, int count, const QModelIndex& parent)
{
    beginInsertRows(parent, row, row + count - 1);
    m_rows.insert(m_rows.begin() + row, static_cast<std::size_t>(count),
                  std::vector<Cell>(static_cast<std::size_t>(m_columns)));
    endInsertRows();
    return true;
}

bool TypedTableModel::removeRows(int row, int count, const QModelIndex& parent)
{
    beginRemoveRows(parent, row, row + count - 1);
    m_rows.erase(m_rows.begin() + row, m_rows.begin() + row + count);
    endRemoveRows();
    return true;
}

void TypedTableModel::reset(int rows)
{
    beginResetModel();
    m_rows.resize(static_cast<std::size_t>(rows),
                  std::vector<Cell>(static_cast<std::size_t>(m_columns)));
    endResetModel();
}

void TypedTableModel::put(int row, int column, const boost::any& value, const QString& text)
{
    cell(row, column).value = QVariant::fromValue<boost::any>(value);
    cell(row, column).text = text;
    cell(row, column).toolTip = text;
}

TypedTableModel::Cell& TypedTableModel::cell(int row, int column)
{
    return m_rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
}

boost::any TypedTableModel::value(int row, int column) const
{
    return const_cast<TypedTableModel*>(this)->cell(row, column).value.value<boost::any>();
}

bool TypedTableModel::store(const QModelIndex& index, const QVariant& value, int role)
{
    writes.push_back({index.row(), index.column(), role, value});
    if (refuse && refuse(role)) {
        return false;
    }
    Cell& target = cell(index.row(), index.column());
    switch (role) {
    case qt::DisplayRole:
        target.text = value;
        return true;
    case qt::ToolTipRole:
        target.toolTip = value;
        return true;
    case qt::EditRole:
        target.value = value;
        return true;
    case Qt::CheckStateRole:
        target.check = value;
        return true;
    default:
        return false;
    }
}

} // namespace zel::test
