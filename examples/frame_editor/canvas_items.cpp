#include "examples/frame_editor/canvas_items.h"

#include "examples/frame_editor/canvas.h"

#include <QCursor>
#include <QPainter>

#include <cmath>

namespace frame_editor {

namespace {

constexpr double leastHalfDepth = 3.0; ///< pixels that can be hit with a mouse
constexpr double slenderDepth = 4.0;   ///< pixels below which a band is drawn as a line

QColor colourOf(MemberKind kind)
{
    switch (kind) {
    case MemberKind::Column:
        return {150, 168, 189};
    case MemberKind::Beam:
        return {133, 178, 214};
    case MemberKind::Rafter:
        return {142, 195, 176};
    case MemberKind::Brace:
        return {186, 186, 186};
    case MemberKind::Link:
        break;
    }
    return {70, 70, 70};
}

/// The unit vector at right angles to a line; null for a line without length.
QPointF normalOf(const QLineF& line)
{
    const double length = line.length();
    return length > 0 ? QPointF(-line.dy(), line.dx()) / length : QPointF();
}

} // namespace

MemberItem::MemberItem(const Canvas& canvas, int index)
    : m_canvas(canvas)
    , m_index(index)
{
    setFlag(ItemIsMovable, false);
    setZValue(0.0);
}

int MemberItem::index() const
{
    return m_index;
}

void MemberItem::show(const Member& member, const Section* section)
{
    prepareGeometryChange();
    m_kind = member.kind;
    m_visibleDepth = 0.0;
    m_flange = 0.0;
    if (section != nullptr) {
        const double cosine = std::abs(std::cos(member.rotation));
        const double sine = std::abs(std::sin(member.rotation));
        m_visibleDepth = section->depth * cosine + section->width * sine;
        // Of a section on its side the flanges are seen from their flat face.
        m_flange = cosine > sine ? section->flangeThickness : 0.0;
    }
    setToolTip(section == nullptr ? member.name
                                  : QStringLiteral("%1, %2").arg(member.name, member.section));
    update();
}

void MemberItem::setAxis(const QLineF& axis)
{
    if (axis != m_axis) {
        prepareGeometryChange();
        m_axis = axis;
    }
}

const QLineF& MemberItem::axis() const
{
    return m_axis;
}

double MemberItem::visibleDepth() const
{
    return m_visibleDepth;
}

/// It goes by the scale of the canvas. A zoom does not announce the change of the bounds: the scene
/// has no index, and the canvas draws all of itself.
double MemberItem::reach() const
{
    return qMax(m_visibleDepth / 2, leastHalfDepth * std::abs(m_canvas.pixelSize().x()));
}

QPolygonF MemberItem::band(double halfDepth) const
{
    const QPointF side = normalOf(m_axis) * halfDepth;
    return QPolygonF() << m_axis.p1() + side << m_axis.p2() + side << m_axis.p2() - side
                       << m_axis.p1() - side;
}

QRectF MemberItem::boundingRect() const
{
    const double margin = reach() + 2 * std::abs(m_canvas.pixelSize().x());
    return QRectF(m_axis.p1(), m_axis.p2()).normalized().adjusted(-margin, -margin, margin, margin);
}

QPainterPath MemberItem::shape() const
{
    QPainterPath path;
    path.addPolygon(band(reach()));
    path.closeSubpath();
    return path;
}

void MemberItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    QColor fill = colourOf(m_kind);
    QColor edge = fill.darker(180);
    if (isSelected()) {
        fill = QColor(255, 186, 82);
        edge = QColor(190, 80, 0);
    } else if (hovering()) {
        fill = fill.lighter(118);
        edge = Qt::black;
    }
    QPen pen(edge, isSelected() ? 2.0 : 1.0);
    pen.setCosmetic(true);
    const double scale =
        std::hypot(painter->worldTransform().m11(), painter->worldTransform().m12());
    if (m_visibleDepth * scale < slenderDepth) {
        pen.setWidthF(slenderDepth);
        pen.setColor(isSelected() ? edge : fill.darker(130));
        pen.setCapStyle(Qt::FlatCap);
        painter->setPen(pen);
        painter->drawLine(m_axis);
        return;
    }
    painter->setPen(pen);
    painter->setBrush(fill);
    painter->drawPolygon(band(m_visibleDepth / 2));
    if (m_flange * scale >= 1.0) {
        pen.setWidthF(1.0);
        painter->setPen(pen);
        const QPointF side = normalOf(m_axis) * (m_visibleDepth / 2 - m_flange);
        painter->drawLine(m_axis.translated(side));
        painter->drawLine(m_axis.translated(-side));
    }
}

NodeGrip::NodeGrip(const Canvas& canvas, int index)
    : m_canvas(canvas)
    , m_index(index)
{
    setZValue(1.0);
    setCursor(Qt::SizeAllCursor);
}

int NodeGrip::index() const
{
    return m_index;
}

void NodeGrip::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    if (widget == m_canvas.viewport()) {
        GripItem::paint(painter, option, widget);
    }
}

QVariant NodeGrip::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemPositionChange && !m_canvas.isShowingModel()) {
        return GripItem::itemChange(change, m_canvas.snapped(m_index, value.toPointF()));
    }
    return GripItem::itemChange(change, value);
}

} // namespace frame_editor
