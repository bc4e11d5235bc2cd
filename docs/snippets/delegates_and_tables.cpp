#include "docs/snippets/expect.h"
//! [headers]
#include "qt/inc/delegates.h"
#include "qt/inc/table_view.h"
#include "qt/inc/validators.h"

#include <QStandardItemModel>

#include <boost/make_shared.hpp>

using namespace zel::qt;
//! [headers]

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

namespace {

//! [cell]
void setCell(QAbstractItemModel& model, int row, int column, double value, IValidator& validator)
{
    const QModelIndex index = model.index(row, column);
    model.setData(index, QVariant::fromValue(boost::any(value)), EditRole);
    const QString text = validator.reformatForDisplay(value, {});
    model.setData(index, text, DisplayRole);
    model.setData(index, text, ToolTipRole);
}
//! [cell]

double valueAt(const QAbstractItemModel& model, int row, int column)
{
    const QVariant data = model.index(row, column).data(EditRole);
    return boost::any_cast<double>(data.value<boost::any>());
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);

    //! [table]
    QStandardItemModel model(2, 2);
    const IValidator::pointer coordinates =
        boost::make_shared<DoubleEditValidator>(2, -1e6, 1e6, false);
    const auto validatorOf = [&](int column) {
        return column < 2 ? coordinates : IValidator::pointer();
    };
    detail::CppDbTableViewBase table(&model, validatorOf, nullptr);

    LineEditItemDelegate editing(coordinates, &table);
    table.setItemDelegate(&editing);

    // Rows below the last one come into being when a block is pasted there.
    table.setCreateNewRowHandler(
        [&](int firstColumn, const std::deque<boost::optional<boost::any>>& values) {
            const int row = model.rowCount();
            model.insertRow(row);
            for (std::size_t i = 0; i < values.size(); ++i) {
                const int column = firstColumn + static_cast<int>(i);
                if (values[i] && !values[i]->empty() && column < model.columnCount()) {
                    setCell(model, row, column, boost::any_cast<double>(*values[i]), *coordinates);
                }
            }
        });
    //! [table]

    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            setCell(model, row, column, row + 0.5 * column, *coordinates);
        }
    }
    EXPECT(model.index(1, 1).data().toString() == QStringLiteral("1.50"));

    // A block of a spreadsheet, pasted over the lower row, makes one more row.
    QApplication::clipboard()->setText(QStringLiteral("7\t8\n9\tx\n"));
    table.setCurrentIndex(model.index(1, 0));
    QTest::keySequence(&table, QKeySequence(QKeySequence::Paste));
    EXPECT(model.rowCount() == 3);
    EXPECT(valueAt(model, 1, 0) == 7.0 && valueAt(model, 1, 1) == 8.0);
    EXPECT(valueAt(model, 2, 0) == 9.0);
    EXPECT(!model.index(2, 1).data(EditRole).isValid());

    //! [forward]
    QTableView view;
    view.setModel(&model);
    auto* chosen = new ForwardDelegate(view); // the view owns it
    auto* points = new LineEditItemDelegate(coordinates, &view);
    auto* ticks = new CheckboxItemDelegate(&view);
    chosen->setItemDelegateForColumn(0, points);
    chosen->setItemDelegateForCell(0, 1, ticks);
    view.setItemDelegate(chosen);
    //! [forward]
    view.edit(model.index(0, 0));
    EXPECT(view.findChild<QLineEdit*>() != nullptr);
    return failedExpectations();
}
