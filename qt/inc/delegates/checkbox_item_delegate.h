#pragma once

#include "platform/export.h"

#include <QItemDelegate>

namespace zel::qt {

/// The check indicator of a cell (Qt::CheckStateRole), without the focus rectangle around it.
/// Geometry and toggling by mouse and keyboard are those of QItemDelegate.
class ZEL_QT_EXPORT CheckboxItemDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    explicit CheckboxItemDelegate(QObject* parent);
    ~CheckboxItemDelegate() override;

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

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    /// Draws nothing, which is what this class is for.
    void drawFocus(QPainter* painter, const QStyleOptionViewItem& option,
                   const QRect& rect) const override;

private Q_SLOTS:
    void onClicked();
};

} // namespace zel::qt
