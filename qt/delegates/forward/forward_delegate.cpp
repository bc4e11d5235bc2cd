#include "qt/inc/delegates/forward_delegate.h"

#include "platform/widgets.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QVector>

namespace zel::qt {

/// Keeps the keys of rows and cells in step with the rows of a model.
class ForwardDelegateModelMediator
{
public:
    ForwardDelegateModelMediator(ForwardDelegate* delegate, QAbstractItemModel* model);

private:
    static void onRowsInserted(ForwardDelegate& delegate, int first, int last);
};

ForwardDelegateModelMediator::ForwardDelegateModelMediator(ForwardDelegate* delegate,
                                                           QAbstractItemModel* model)
{
    // The connection lives as long as the model, which may outlive the delegate.
    QObject::connect(
        model, &QAbstractItemModel::rowsInserted, model,
        [guarded = QPointer<ForwardDelegate>(delegate)](const QModelIndex& /*parent*/, int first,
                                                        int last) {
            if (guarded) {
                onRowsInserted(*guarded, first, last);
            }
        },
        Qt::DirectConnection);
}

void ForwardDelegateModelMediator::onRowsInserted(ForwardDelegate& delegate, int first, int last)
{
    const int count = last - first + 1;
    const auto moved = [first, count](int row) { return row >= first ? row + count : row; };

    QHash<int, QAbstractItemDelegate*> rows;
    for (auto it = delegate.m_rowDelegates.cbegin(); it != delegate.m_rowDelegates.cend(); ++it) {
        rows.insert(moved(it.key()), it.value());
    }
    delegate.m_rowDelegates.swap(rows);

    QHash<QPair<int, int>, QAbstractItemDelegate*> cells;
    for (auto it = delegate.m_cellDelegates.cbegin(); it != delegate.m_cellDelegates.cend(); ++it) {
        cells.insert({moved(it.key().first), it.key().second}, it.value());
    }
    delegate.m_cellDelegates.swap(cells);
}

ForwardDelegate::ForwardDelegate(QAbstractItemView& view)
    : QStyledItemDelegate(&view)
    , m_mediator(std::make_shared<ForwardDelegateModelMediator>(this, view.model()))
{}

ForwardDelegate::~ForwardDelegate() = default;

void ForwardDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    if (const auto* inner = get_cell_delegate(index.row(), index.column())) {
        inner->paint(painter, option, index);
    } else {
        QStyledItemDelegate::paint(painter, option, index);
    }
}

QSize ForwardDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* inner = get_cell_delegate(index.row(), index.column());
    return inner != nullptr ? inner->sizeHint(option, index)
                            : QStyledItemDelegate::sizeHint(option, index);
}

QWidget* ForwardDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const
{
    const auto* inner = get_cell_delegate(index.row(), index.column());
    return inner != nullptr ? inner->createEditor(parent, option, index)
                            : QStyledItemDelegate::createEditor(parent, option, index);
}

void ForwardDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (const auto* inner = get_cell_delegate(index.row(), index.column())) {
        inner->setEditorData(editor, index);
    } else {
        QStyledItemDelegate::setEditorData(editor, index);
    }
}

void ForwardDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                   const QModelIndex& index) const
{
    const QPointer<ForwardDelegate> self = const_cast<ForwardDelegate*>(this);
    // The height of a row may follow the value.
    QVector<QPersistentModelIndex> resized;
    {
        // No editor is closed while its value is being written, even if the model runs the event
        // loop: the view that is committing goes on with the editor.
        const ZEL_QT_SignalBlocker blocker(self);
        if (const auto* inner = get_cell_delegate(index.row(), index.column())) {
            QObject context;
            connect(inner, &QAbstractItemDelegate::sizeHintChanged, &context,
                    [&resized](const QModelIndex& changed) { resized.append(changed); });
            inner->setModelData(editor, model, index);
        } else {
            QStyledItemDelegate::setModelData(editor, model, index);
        }
    }
    for (const QModelIndex& changed : qAsConst(resized)) {
        if (self && changed.isValid()) {
            Q_EMIT self->sizeHintChanged(changed);
        }
    }
}

void ForwardDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                           const QModelIndex& index) const
{
    if (const auto* inner = get_cell_delegate(index.row(), index.column())) {
        inner->updateEditorGeometry(editor, option, index);
    } else {
        QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    }
}

void ForwardDelegate::setItemDelegate(QAbstractItemDelegate* delegate)
{
    replace(m_defaultDelegate, delegate);
}

void ForwardDelegate::setItemDelegateForRow(int row, QAbstractItemDelegate* delegate)
{
    replace(m_rowDelegates[row], delegate);
}

void ForwardDelegate::setItemDelegateForColumn(int column, QAbstractItemDelegate* delegate)
{
    replace(m_columnDelegates[column], delegate);
}

void ForwardDelegate::setItemDelegateForCell(int row, int column, QAbstractItemDelegate* delegate)
{
    replace(m_cellDelegates[{row, column}], delegate);
}

bool ForwardDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                  const QStyleOptionViewItem& option, const QModelIndex& index)
{
    auto* inner = get_cell_delegate(index.row(), index.column());
    return inner != nullptr ? inner->editorEvent(event, model, option, index)
                            : QStyledItemDelegate::editorEvent(event, model, option, index);
}

QAbstractItemDelegate* ForwardDelegate::get_cell_delegate(int row, int column) const
{
    if (auto* delegate = m_cellDelegates.value({row, column})) {
        return delegate;
    }
    if (auto* delegate = m_rowDelegates.value(row)) {
        return delegate;
    }
    if (auto* delegate = m_columnDelegates.value(column)) {
        return delegate;
    }
    return m_defaultDelegate;
}

void ForwardDelegate::connect_delegate(QAbstractItemDelegate* delegate)
{
    if (delegate == nullptr) {
        return;
    }
    connect(delegate, &QAbstractItemDelegate::closeEditor, this,
            &QAbstractItemDelegate::closeEditor);
    connect(delegate, &QAbstractItemDelegate::commitData, this, &QAbstractItemDelegate::commitData);
    connect(delegate, &QAbstractItemDelegate::sizeHintChanged, this,
            &QAbstractItemDelegate::sizeHintChanged);
}

void ForwardDelegate::disconnect_delegate(QAbstractItemDelegate* delegate)
{
    if (delegate != nullptr) {
        QObject::disconnect(delegate, nullptr, this, nullptr);
    }
}

void ForwardDelegate::replace(QAbstractItemDelegate*& entry, QAbstractItemDelegate* delegate)
{
    disconnect_delegate(entry);
    entry = delegate; // a null pointer stays in its table: the same as no entry
    connect_delegate(delegate);
}

} // namespace zel::qt
