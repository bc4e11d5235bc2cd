#pragma once

#include "platform/export.h"
#include "qt/inc/validators/i_validator.h"

#include <QTableView>

#include <boost/any.hpp>
#include <boost/function.hpp>
#include <boost/optional.hpp>
#include <boost/shared_ptr.hpp>

#include <deque>

namespace zel::qt::detail {

/// A QTableView over a table of typed values with the spreadsheet keys of a data table: Delete and
/// Backspace clear the selected cells, Cut, Copy and Paste work on them through the clipboard. Keys
/// typed into the open editor of a cell are never these, even if the editor has no use for them.
///
/// A cell's value stands in the model under EditRole (see roles.h), and only that role is written:
/// the text under DisplayRole is for the model to renew. The clipboard holds text, translated by
/// the validator of the cell's column; a column without a validator copies as empty texts and is
/// skipped by a paste. Copying formats in the application's locale, pasting reads the C locale.
///
/// Text on the clipboard: rows end with a line feed, also the last one, and the cells of a row are
/// separated by tabs; all rows of a copied block are as wide as the block, and cells in it that
/// are not selected are empty. A single selected cell is copied without the line feed. In a text
/// to be pasted a line feed with a carriage return before it ends a row as well, a line feed at the
/// very end makes no further row, and nothing but a tab separates cells, so that «2.5 kN» is one.
/// Text with neither tab nor line feed is a single value and goes into every selected cell; all
/// other text is a block and goes where the upper left corner of the selection is.
///
/// A text that its validator refuses leaves the cell as it is. Should the model sort, hide or
/// remove rows in answer to a value, the values that follow still go to the rows that they were
/// meant for; to a row that a proxy model's filter has hidden they go through the model behind the
/// filter.
class ZEL_QT_EXPORT CppDbTableViewBase : public QTableView
{
    Q_OBJECT
public:
    /// @param model              shown by the view, not owned. For a sorted table give the sorting
    ///                           model here, do not set it later. Null is reported ("m_model").
    /// @param getColumnValidator gives the validator of a column, null for none. It is also asked
    ///                           for columns behind the last one, where a block to be pasted is
    ///                           wider than the table. An empty function is reported
    ///                           ("m_getColumnValidator"), and no column then has a validator.
    CppDbTableViewBase(QAbstractItemModel* model,
                       boost::function<boost::shared_ptr<IValidator>(int)> getColumnValidator,
                       QWidget* parent);
    ~CppDbTableViewBase() override;

    /// Replaces the handler that appends a row to the model when a block is pasted beyond the last
    /// one. It is called once for each row, in order, with the column of the first value and the
    /// values; boost::none stands for a text that was refused. If the row is not there afterwards,
    /// the paste ends there. With an empty handler such a paste throws
    /// boost::bad_function_call.
    void setCreateNewRowHandler(
        boost::function<void(int, const std::deque<boost::optional<boost::any>>&)> handler);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void clearSelectedCells();
    void copySelectedCells() const;
    void pasteOverSelectedCells();
    void pasteValue(const QString& text, const QModelIndexList& selected);
    void pasteBlock(const QString& text, int top, int left);

    QAbstractItemModel* m_model;
    boost::function<boost::shared_ptr<IValidator>(int)> m_getColumnValidator;
    boost::function<void(int, const std::deque<boost::optional<boost::any>>&)> m_createNewRow;
};

} // namespace zel::qt::detail
