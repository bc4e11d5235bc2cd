#pragma once

#include "qt/inc/delegates/roles.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

namespace zel::test {

/// A table of typed values for delegates and table views: text, tool tip and value for each cell.
/// It writes down what is written to it.
class TypedTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    struct Cell
    {
        QVariant text;
        QVariant toolTip;
        QVariant value; ///< what EditRole gives; a boost::any unless a test wants otherwise
        QVariant check;
    };
    struct Write
    {
        int row;
        int column;
        int role;
        QVariant value;
    };

    TypedTableModel(int rows, int columns, QObject* parent = nullptr);
    ~TypedTableModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    bool setItemData(const QModelIndex& index, const QMap<int, QVariant>& roles) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool insertRows(int row, int count, const QModelIndex& parent = {}) override;
    bool removeRows(int row, int count, const QModelIndex& parent = {}) override;
    void reset(int rows);

    /// Fills a cell without writing it down.
    void put(int row, int column, const boost::any& value, const QString& text = {});
    Cell& cell(int row, int column);
    /// The boost::any of a cell; empty also where there is none.
    boost::any value(int row, int column) const;

    std::vector<Write> writes;       ///< of setData() and setItemData(), refused ones included
    int itemWrites = 0;              ///< calls of setItemData()
    std::function<bool(int)> refuse; ///< roles that are refused; empty for none
    std::function<void(const QModelIndex&, int role)> written; ///< runs after each setData()
    Qt::ItemFlags extraFlags;                                  ///< for all cells

private:
    bool store(const QModelIndex& index, const QVariant& value, int role);

    int m_columns;
    std::vector<std::vector<Cell>> m_rows;
};

} // namespace zel::test
