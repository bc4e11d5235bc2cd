#include "qt/inc/editor2d/editor_item.h"

#include <QBrush>
#include <QPainter>

namespace zel::qt::ed2d {

EditorItem::EditorItem(QGraphicsItem* parent)
    : QGraphicsItem(parent)
{
    setFlag(ItemIsMovable);
    setFlag(ItemIsSelectable);
    setFlag(ItemSendsGeometryChanges);
    setAcceptHoverEvents(true);
}

EditorItem::~EditorItem() = default;

bool EditorItem::hovering() const
{
    return m_hovering;
}

QRectF EditorItem::boundingRect() const
{
    return {0, 0, 10, 10};
}

void EditorItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const Qt::GlobalColor colour = isSelected() ? Qt::red : m_hovering ? Qt::yellow : Qt::blue;
    painter->setBrush(QBrush(colour, Qt::SolidPattern));
    painter->drawRect(0, 0, 10, 10);
}

void EditorItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    if ((flags() & ItemIsSelectable) != 0 && !m_hovering) {
        m_hovering = true;
        update(QRectF());
    }
    QGraphicsItem::hoverEnterEvent(event);
}

void EditorItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    // An item that lost ItemIsSelectable while hovered still has to let go of the hover.
    if (m_hovering) {
        m_hovering = false;
        update(QRectF());
    }
    // Deliberately the enter handler: to the base both mean that the look of a hovered item may
    // have changed, and entering and leaving take the same road.
    QGraphicsItem::hoverEnterEvent(event);
}

QVariant EditorItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemPositionHasChanged) {
        positionChanged();
    }
    return QGraphicsItem::itemChange(change, value);
}

} // namespace zel::qt::ed2d
