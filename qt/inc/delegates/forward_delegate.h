#pragma once

#include "platform/export.h"

#include <QHash>
#include <QPair>
#include <QStyledItemDelegate>

#include <memory>

class QAbstractItemView;

namespace zel::qt {

class ForwardDelegateModelMediator;

/// The one delegate of a view, which leaves the work to another delegate chosen for each cell: that
/// of the cell, else of its row, else of its column, else the default one, else
/// QStyledItemDelegate. A null pointer counts as no entry.
///
/// The keys of rows and cells follow rows inserted into the model, below whatever parent; removed
/// rows leave the keys where they are. destroyEditor() and helpEvent() are those of
/// QStyledItemDelegate.
///
/// closeEditor, commitData and sizeHintChanged of the chosen delegates reach the view as signals of
/// this object, once for each key under which a delegate was entered. Replacing a delegate under
/// one key cuts off all of its connections, also those for its other keys.
class ZEL_QT_EXPORT ForwardDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    /// @param view becomes the parent. It has to have its model by now: the model that it has now
    ///             is followed, a later one is not. The caller installs the delegate on the view.
    explicit ForwardDelegate(QAbstractItemView& view);
    ~ForwardDelegate() override;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

    /// @name Choosing delegates
    /// The delegates stay the caller's; a null pointer takes the present one out again, which has
    /// to be done before a delegate dies.
    /// @{
    void setItemDelegate(QAbstractItemDelegate* delegate);
    void setItemDelegateForRow(int row, QAbstractItemDelegate* delegate);
    void setItemDelegateForColumn(int column, QAbstractItemDelegate* delegate);
    void setItemDelegateForCell(int row, int column, QAbstractItemDelegate* delegate);
    /// @}

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    friend class ForwardDelegateModelMediator;

    QAbstractItemDelegate* get_cell_delegate(int row, int column) const;
    void connect_delegate(QAbstractItemDelegate* delegate);
    void disconnect_delegate(QAbstractItemDelegate* delegate);
    void replace(QAbstractItemDelegate*& entry, QAbstractItemDelegate* delegate);

    QHash<QPair<int, int>, QAbstractItemDelegate*> m_cellDelegates; // by (row, column)
    QHash<int, QAbstractItemDelegate*> m_columnDelegates;
    QHash<int, QAbstractItemDelegate*> m_rowDelegates;
    QAbstractItemDelegate* m_defaultDelegate = nullptr;
    std::shared_ptr<ForwardDelegateModelMediator> m_mediator;
};

} // namespace zel::qt
