#pragma once

#include "platform/export.h"
#include "qt/inc/validators/i_validator.h"

#include <QItemDelegate>
#include <QLineEdit>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

namespace zel::qt {

namespace detail {

/// An edit whose end of editing can also be called out by others.
class ZEL_QT_EXPORT MyLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit MyLineEdit(QWidget* parent = nullptr);
    ~MyLineEdit() override;

public Q_SLOTS:
    /// Emits editingFinished() and does nothing else.
    void emitEditingFinished();
};

} // namespace detail

/// Edits the typed value of a cell (EditRole, see roles.h) as validated text. A cell without a
/// typed value is not editable and is painted as a plain white area.
///
/// The end of editing, on Return, Enter, Tab or the loss of focus, writes the value and closes the
/// editor; Escape closes it without writing. A text that the validator refuses, or that stands for
/// no value, leaves the cell as it was.
class ZEL_QT_EXPORT LineEditItemDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    /// Without a validator: for painting only, since setEditorData() and setModelData() need one.
    explicit LineEditItemDelegate(QObject* parent);
    /// @param validator shared with the caller; not null where cells are to be edited
    LineEditItemDelegate(boost::shared_ptr<IValidator> validator, QObject* parent);
    /// @param buttonFn function of a button inside the editor: from the present text to a new one;
    ///                 an empty function gives no button. It may ask the user: the editor stays
    ///                 open while it runs.
    LineEditItemDelegate(boost::shared_ptr<IValidator> validator,
                         boost::function<QString(const QString&)> buttonFn, QObject* parent);
    ~LineEditItemDelegate() override;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Null for a cell without a typed value, else a detail::LineEditImpl that `parent` owns.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Shows the value in the edit and selects all of the text. Another editor than a QLineEdit is
    /// reported ("edit").
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Writes the value, and its text for display as text and tool tip, in one setItemData(). To a
    /// model with a QSortFilterProxyModel in it, which has no such single operation, they go one by
    /// one, all to the same row even if the first of them moves or hides it. Another editor than a
    /// QLineEdit is reported ("edit").
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    /// Draws the text in its own direction, as the editor shows it: in a right-to-left layout too,
    /// a number begins with its sign and ends with its unit.
    void drawDisplay(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect,
                     const QString& text) const override;

private Q_SLOTS:
    void commitAndCloseEditor();
    /// Writes the value of the sender and leaves the editor open. For a host that reaches it by
    /// its name.
    void commitOnly();

private:
    boost::shared_ptr<IValidator> m_validator;
    boost::function<QString(const QString&)> m_buttonFn;
};

} // namespace zel::qt
