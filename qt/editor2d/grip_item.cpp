#include "qt/inc/editor2d/grip_item.h"

#include "platform/smart_assert.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPen>

namespace zel::qt::ed2d {
namespace {

QColor withLightness(const QColor& hsl, double factor)
{
    QColor colour;
    colour.setHslF(hsl.hslHueF(), hsl.hslSaturationF(), hsl.lightnessF() * factor, hsl.alphaF());
    return colour;
}

QLinearGradient gripGradient(const QRectF& box, bool selected)
{
    // The x of the end point comes from the vertical extent on purpose: on the centred square that
    // a grip is, it is the x of the start point, and the gradient is vertical.
    QLinearGradient gradient(QPointF(box.left() + (box.right() - box.left()) * 0.5, box.top()),
                             QPointF(box.top() + (box.bottom() - box.top()) * 0.5, box.bottom()));
    const QColor base(255, 0, 0, 255);
    const QColor hsl = base.toHsl();
    const QColor upper = selected ? withLightness(hsl, 1.9) : base;
    const QColor lower = withLightness(hsl, selected ? 1.2 : 0.5);
    gradient.setColorAt(0, upper);
    gradient.setColorAt(0.5, upper);
    gradient.setColorAt(1, lower);
    return gradient;
}

} // namespace

GripItem::GripItem(QGraphicsItem* parent)
    : EditorItem(parent)
{
    setFlag(ItemIsSelectable);
    setFlag(ItemIsMovable);
    setFlag(ItemSendsGeometryChanges);
    setFlag(ItemIgnoresTransformations);
    setZValue(0.0);
}

GripItem::~GripItem() = default;

QRectF GripItem::boundingRect() const
{
    return {QPointF(-m_size / 2, -m_size / 2), QPointF(m_size / 2, m_size / 2)};
}

void GripItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    ZEL_SMART_ASSERT((flags() & ItemIgnoresTransformations) == ItemIgnoresTransformations,
                     "(flags() & ItemIgnoresTransformations) == ItemIgnoresTransformations");
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setBrush(gripGradient(boundingRect(), isSelected()));
    if (m_highlighted || hovering()) {
        painter->scale(1.3, 1.3);
    }
    painter->drawEllipse(boundingRect());
    painter->setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter->drawEllipse(boundingRect());
}

} // namespace zel::qt::ed2d
