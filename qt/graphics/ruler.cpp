#include "qt/graphics/ruler.h"

#include <QFontMetrics>
#include <QGraphicsView>
#include <QPainter>

namespace zel::qt::graphics {
namespace {

/// Far outside of any screen, and far inside of the range of int.
constexpr double farthestPixel = 1 << 24;

QPoint inward(Qt::Orientation orientation, int length)
{
    return orientation == Qt::Horizontal ? QPoint(0, length) : QPoint(length, 0);
}

QRect labelRect(const QRect& box, const QPoint& mark, Qt::Orientation orientation)
{
    if (orientation == Qt::Horizontal) {
        return box.translated(mark.x() - box.width() / 2, mark.y() + box.height() / 2 + 12);
    }
    return box.translated(mark.x() + 9, mark.y() + box.height() / 3);
}

} // namespace

RulerMarks mapRulerTicks(const QGraphicsView& view, const RulerTicks& ticks,
                         Qt::Orientation orientation, double edge)
{
    const QTransform transform = view.viewportTransform();
    const auto scenePoint = [orientation, edge](double t) {
        return orientation == Qt::Horizontal ? QPointF(t, edge) : QPointF(edge, t);
    };
    const auto isNear = [&transform](const QPointF& point) {
        const QPointF pixel = transform.map(point);
        return qAbs(pixel.x()) <= farthestPixel && qAbs(pixel.y()) <= farthestPixel;
    };
    RulerMarks marks;
    for (const double t : ticks.major) {
        if (const QPointF point = scenePoint(t); isNear(point)) {
            marks.major.emplace_back(view.mapFromScene(point), t);
        }
    }
    for (const double t : ticks.minor) {
        if (const QPointF point = scenePoint(t); isNear(point)) {
            marks.minor.push_back(view.mapFromScene(point));
        }
    }
    return marks;
}

void drawRulerMarks(QPainter* painter, const RulerMarks& marks, Qt::Orientation orientation)
{
    // A number reads from left to right in a right-to-left layout too, its sign first.
    const Qt::LayoutDirection direction = painter->layoutDirection();
    painter->setLayoutDirection(Qt::LeftToRight);
    for (const auto& [point, value] : marks.major) {
        const QString label = QStringLiteral("%1").arg(value, 0, 'g', -1, QLatin1Char(' '));
        const QRect box = painter->fontMetrics().boundingRect(label).adjusted(0, 0, 2, 0);
        painter->drawLine(point, point + inward(orientation, 8));
        painter->drawText(labelRect(box, point, orientation), Qt::AlignCenter, label);
    }
    for (const QPoint& point : marks.minor) {
        painter->drawLine(point, point + inward(orientation, 3));
    }
    painter->setLayoutDirection(direction);
}

void drawRuler(QPainter* painter, const QGraphicsView& view, Qt::Orientation orientation)
{
    // Both rulers go by the width of a pixel, also where the two scales of the view differ.
    const double pixel = view.mapToScene(QPoint(1, 0)).x() - view.mapToScene(QPoint(0, 0)).x();
    const QRectF visible(view.mapToScene(view.rect().topLeft()),
                         view.mapToScene(view.rect().bottomRight()));
    const bool horizontal = orientation == Qt::Horizontal;
    const RulerTicks ticks =
        horizontal ? rulerTicks(visible.left(), visible.right(), pixel, view.width())
                   : rulerTicks(visible.top(), visible.bottom(), pixel, view.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setWorldMatrixEnabled(false);
    painter->setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    drawRulerMarks(
        painter,
        mapRulerTicks(view, ticks, orientation, horizontal ? visible.top() : visible.left()),
        orientation);
    painter->restore();
}

} // namespace zel::qt::graphics
