#pragma once

#include "platform/export.h"

#include <QItemDelegate>
#include <QModelIndex>

#include <boost/function.hpp>

#include <set>

namespace zel::qt {

/// A cell that looks and acts like a push button with the cell's text on it: the view's edit
/// trigger runs a function of the host, and no editor opens.
class ZEL_QT_EXPORT ButtonItemDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    /// @param editFn what the button does; it gets the model and the cell. It may change the model,
    ///               also remove the cell's row. An empty function is reported ("m_editFn"), and
    ///               the button then does nothing.
    /// @param parent owner; if it is a widget, the style draws the button for it
    ButtonItemDelegate(boost::function<void(QAbstractItemModel*, const QModelIndex&)> editFn,
                       QObject* parent);
    ~ButtonItemDelegate() override;

    /// A full button where the cell is enabled and selected, a flat one elsewhere; sunken while
    /// the cell's function runs.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Repaints `parent` with the cell pressed, runs the function and returns null. What the
    /// function throws passes through, and the cell then stays pressed.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Does nothing: there is no editor.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Does nothing: there is no editor.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    mutable std::set<QModelIndex> m_pressed; // cells whose function is running
    boost::function<void(QAbstractItemModel*, const QModelIndex&)> m_editFn;
};

} // namespace zel::qt
