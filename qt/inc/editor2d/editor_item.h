#pragma once

#include "platform/export.h"

#include <boost/signals2/signal.hpp>

#include <QGraphicsItem>

namespace zel::qt::ed2d {

/// The base of the things that a user can touch in a 2D editor: a movable and selectable item that
/// knows whether the mouse hovers over it and tells when it has moved. It is not a QObject; its
/// notification is a public signal that lives as long as the item.
///
/// As it stands it draws a placeholder of ten by ten units; a shape derives from it and overrides
/// boundingRect() and paint(). Owned by its parent item or its scene, as any QGraphicsItem.
class ZEL_QT_EXPORT EditorItem : public QGraphicsItem
{
public:
    explicit EditorItem(QGraphicsItem* parent = nullptr);
    ~EditorItem() override;

    /// Whether the mouse is over the item. Never true of an item that cannot be selected when the
    /// mouse comes.
    [[nodiscard]] bool hovering() const;

    /// The placeholder's square, from (0, 0) to (10, 10).
    QRectF boundingRect() const override;
    /// The placeholder: red when selected, else yellow when hovered, else blue.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    /// The item has moved in its parent; once for each change of position, whether by the user or
    /// by setPos(). The flag ItemSendsGeometryChanges, set from the start, is needed for it.
    boost::signals2::signal<void()> positionChanged;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    bool m_hovering = false;
};

} // namespace zel::qt::ed2d
