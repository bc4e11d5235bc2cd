#include "examples/frame_editor/canvas_symbols.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace frame_editor {

namespace {

constexpr double arrowDistance = 20.0;
constexpr double arrowHead = 5.0;
constexpr double gap = 2.0; ///< between a sign and the member
constexpr double supportWidth = 20.0;
constexpr double hatchLength = 6.0;

const QColor& supportColour()
{
    static const QColor colour(40, 70, 40);
    return colour;
}

/// A line of ground: short strokes below it, from left to right.
void drawGround(QPainter& painter, const QPointF& left, const QPointF& right)
{
    painter.drawLine(left, right);
    for (double x = left.x() + hatchLength; x <= right.x() + 0.5; x += hatchLength) {
        painter.drawLine(QPointF(x, left.y()), QPointF(x - hatchLength, left.y() + hatchLength));
    }
}

QPointF unitVector(const QLineF& line)
{
    const double length = line.length();
    return length > 0 ? QPointF(line.dx(), line.dy()) / length : QPointF(1, 0);
}

/// A stretch of a line, as parts of its length.
struct Stretch
{
    double from = 0.0;
    double to = 1.0;
};

/// The stretch of `line` that lies beside `area` or within it, seen along the normal of
/// `direction`; empty (from > to) if none does.
Stretch stretchBeside(const QLineF& line, const QPointF& direction, const QRectF& area)
{
    const auto place = [&direction](const QPointF& point) {
        return QPointF::dotProduct(point, direction);
    };
    const auto corners = {place(area.topLeft()), place(area.topRight()), place(area.bottomLeft()),
                          place(area.bottomRight())};
    const double start = place(line.p1());
    const double length = place(line.p2()) - start;
    if (length == 0) {
        return {};
    }
    const double a = (std::min(corners) - start) / length;
    const double b = (std::max(corners) - start) / length;
    return {qBound(0.0, qMin(a, b), 1.0 + 1e-9), qBound(-1e-9, qMax(a, b), 1.0)};
}

/// Calls `draw` with each whole number of `stretch`, of those from 0 to `count`.
template <class Draw>
void forEachWithin(const Stretch& stretch, double count, const Draw& draw)
{
    const double first = std::ceil(stretch.from * count);
    const double last = std::floor(stretch.to * count);
    // Counted by an integer: a double this large may have no next whole number.
    constexpr double most = 100000;
    for (int i = 0; i <= qMin(last - first, most); ++i) {
        draw(first + i);
    }
}

void drawArrow(QPainter& painter, const QPointF& tail, const QPointF& tip)
{
    const QLineF line(tail, tip);
    if (line.length() < 1.0) {
        return;
    }
    const QPointF along = unitVector(line);
    const QPointF aside(-along.y(), along.x());
    const double head = qMin(arrowHead, line.length());
    painter.drawLine(tail, tip - along * (head / 2));
    painter.drawPolygon(QPolygonF() << tip << tip - along * head + aside * (head * 0.4)
                                    << tip - along * head - aside * (head * 0.4));
}

bool isAxial(const LineLoadSign& load)
{
    return std::abs(QPointF::dotProduct(loadVector(load), unitVector(load.axis))) > 0.98;
}

/// From the axis of a member to the middle of what is drawn on its right hand.
QPointF aside(const LineLoadSign& load)
{
    const QPointF along = unitVector(load.axis);
    return QPointF(-along.y(), along.x()) * (load.halfDepth + gap + arrowHead);
}

/// The two ends of the line from which the arrows start.
QLineF tailLine(const LineLoadSign& load, const QPointF& direction)
{
    const double distance = load.halfDepth + gap + load.height;
    QLineF tails = load.axis.translated(-direction * distance);
    if (load.direction == LoadDirection::Projected) {
        // Level with the end that is farther back.
        const double back =
            direction.y() > 0 ? qMin(tails.y1(), tails.y2()) : qMax(tails.y1(), tails.y2());
        tails = QLineF(tails.x1(), back, tails.x2(), back);
    }
    return tails;
}

/// A load along its member: a row of arrows one behind the other.
void drawAxialLoad(QPainter& painter, const LineLoadSign& load, const QPointF& direction,
                   const QRectF& area)
{
    const QPointF offset = aside(load);
    const double count = qMax(1.0, std::floor(load.axis.length() / (2 * arrowDistance)));
    const double margin = 3 * arrowDistance;
    const Stretch seen = stretchBeside(load.axis.translated(offset), unitVector(load.axis),
                                       area.adjusted(-margin, -margin, margin, margin));
    forEachWithin(seen, count, [&](double i) {
        if (i < count) {
            const QPointF middle = load.axis.pointAt((i + 0.5) / count) + offset;
            drawArrow(painter, middle - direction * (arrowDistance / 2),
                      middle + direction * (arrowDistance / 2));
        }
    });
}

/// By how many quarters of a circle a clamp is turned so that its hatching points away from the
/// member; 0 for a column that stands on it.
int clampTurns(const QLineF& axis)
{
    if (std::abs(axis.dx()) > std::abs(axis.dy())) {
        return axis.dx() > 0 ? 1 : -1;
    }
    return axis.dy() > 0 ? 2 : 0;
}

} // namespace

void drawSupport(QPainter& painter, Support support, const QLineF& axis)
{
    if (support == Support::None) {
        return;
    }
    painter.save();
    painter.translate(axis.p1());
    painter.setPen(QPen(supportColour(), 1.3));
    const QPointF half(supportWidth / 2, 0);
    if (support == Support::Fixed) {
        painter.rotate(90 * clampTurns(axis));
        painter.setPen(QPen(supportColour(), 2.0));
        painter.drawLine(-half * 1.3, half * 1.3);
        painter.setPen(QPen(supportColour(), 1.3));
        drawGround(painter, -half * 1.3, half * 1.3);
    } else {
        const QPointF foot(0, 15);
        painter.setBrush(QColor(214, 232, 206));
        painter.drawPolygon(QPolygonF() << QPointF() << foot - half * 0.9 << foot + half * 0.9);
        const QPointF ground = support == Support::Roller ? foot + QPointF(0, 4) : foot;
        drawGround(painter, ground - half * 1.3, ground + half * 1.3);
    }
    painter.restore();
}

void drawHinge(QPainter& painter, const QPointF& end, const QPointF& other)
{
    constexpr double radius = 3.5;
    constexpr double distance = 11.0; // clear of the grip of the node
    const QLineF axis(end, other);
    if (axis.length() < 3 * distance) {
        return;
    }
    painter.save();
    painter.setPen(QPen(Qt::black, 1.2));
    painter.setBrush(Qt::white);
    painter.drawEllipse(end + unitVector(axis) * distance, radius, radius);
    painter.restore();
}

void drawBedding(QPainter& painter, const QLineF& axis, double halfDepth, const QRectF& area)
{
    painter.save();
    painter.setPen(QPen(QColor(120, 85, 40), 1.2));
    QPointF along = unitVector(axis);
    if (along.x() < 0) {
        along = -along;
    }
    const QPointF below(-along.y(), along.x());
    const QPointF start = (axis.dx() < 0 ? axis.p2() : axis.p1()) + below * (halfDepth + gap);
    const double length = axis.length();
    painter.drawLine(start, start + along * length);
    const double count = std::floor(length / hatchLength);
    const QLineF hatched(start, start + along * (count * hatchLength));
    const double margin = 2 * hatchLength;
    forEachWithin(stretchBeside(hatched, along, area.adjusted(-margin, -margin, margin, margin)),
                  count, [&](double i) {
                      if (i > 0) {
                          painter.drawLine(start + along * (i * hatchLength),
                                           start + along * ((i - 1) * hatchLength) +
                                               below * hatchLength);
                      }
                  });
    painter.restore();
}

QPointF loadVector(const LineLoadSign& load)
{
    QPointF direction(0, 1);
    if (load.direction == LoadDirection::Normal) {
        // y points downwards, so this is the right hand.
        const QPointF along = unitVector(load.axis);
        direction = QPointF(-along.y(), along.x());
    }
    return load.against ? -direction : direction;
}

void drawLineLoad(QPainter& painter, const LineLoadSign& load, const QRectF& area)
{
    painter.save();
    painter.setPen(QPen(loadColour(), 1.0));
    painter.setBrush(loadColour());
    const QPointF direction = loadVector(load);
    if (isAxial(load)) {
        drawAxialLoad(painter, load, direction, area);
        painter.restore();
        return;
    }
    const QLineF tails = tailLine(load, direction);
    const QLineF tips = load.axis.translated(-direction * (load.halfDepth + gap));
    const double intervals = qMax(1.0, std::floor(tips.length() / arrowDistance));
    painter.drawLine(tails);
    // All arrows run one way, so those that are seen lie beside the area at right angles to it.
    const QPointF across(-direction.y(), direction.x());
    const Stretch seen =
        stretchBeside(tips, across, area.adjusted(-arrowHead, -arrowHead, arrowHead, arrowHead));
    forEachWithin(seen, intervals, [&](double i) {
        const double t = i / intervals;
        drawArrow(painter, tails.pointAt(t), tips.pointAt(t));
    });
    painter.restore();
}

const QColor& loadColour()
{
    static const QColor colour(170, 30, 90);
    return colour;
}

LabelPlace loadLabelPlace(const LineLoadSign& load, double textHeight)
{
    if (isAxial(load)) {
        const QPointF offset = aside(load);
        const double length = QLineF(QPointF(), offset).length();
        return {load.axis.translated(offset * (1 + (arrowHead + textHeight / 2) / length)),
                std::abs(load.axis.dy()) > std::abs(load.axis.dx()), true};
    }
    const QPointF direction = loadVector(load);
    return {tailLine(load, direction).translated(-direction * (textHeight / 2 + 2)),
            std::abs(direction.x()) > std::abs(direction.y()), true};
}

LabelPlace nameLabelPlace(const QLineF& axis, double halfDepth, const QSizeF& textSize)
{
    if (std::abs(axis.dy()) > std::abs(axis.dx())) {
        return {axis.translated(halfDepth + 4 + textSize.width() / 2, 0), false, false};
    }
    return {axis.translated(0, halfDepth + 4 + textSize.height() / 2), false, true};
}

LabelLayer::LabelLayer(QPainter& painter, const QRectF& area)
    : m_painter(painter)
    , m_area(area)
{}

void LabelLayer::add(const LabelPlace& place, const QString& text, const QColor& colour)
{
    const QSizeF size =
        QFontMetricsF(m_painter.font(), m_painter.device()).size(Qt::TextSingleLine, text);
    const Stretch acrossArea = stretchBeside(place.line, {1, 0}, m_area);
    const Stretch downArea = stretchBeside(place.line, {0, 1}, m_area);
    const double from = qMax(acrossArea.from, downArea.from);
    const double to = qMin(acrossArea.to, downArea.to);
    const QLineF seen(place.line.pointAt(from), place.line.pointAt(to));
    if (from > to || (place.along && seen.length() < size.width())) {
        return;
    }
    for (const double t : {0.5, 0.3, 0.7}) {
        QRectF box(QPointF(), place.upwards ? size.transposed() : size);
        box.moveCenter(seen.pointAt(t));
        const bool isFree =
            std::none_of(m_taken.begin(), m_taken.end(),
                         [&box](const QRectF& taken) { return taken.intersects(box); });
        if (isFree) {
            m_taken.push_back(box);
            draw(box.center(), place.upwards, text, colour);
            return;
        }
    }
}

Qt::LayoutDirection readingDirection(const QString& text)
{
    return text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

void LabelLayer::draw(const QPointF& middle, bool upwards, const QString& text,
                      const QColor& colour)
{
    QRectF box(QPointF(),
               QFontMetricsF(m_painter.font(), m_painter.device()).size(Qt::TextSingleLine, text));
    box.moveCenter(QPointF());
    m_painter.save();
    m_painter.translate(middle);
    m_painter.rotate(upwards ? -90 : 0);
    // A light ground, so that a text can be read over the lines of the drawing.
    m_painter.fillRect(box, QColor(255, 255, 255, 150));
    m_painter.setPen(colour);
    m_painter.setLayoutDirection(readingDirection(text));
    m_painter.drawText(box, Qt::AlignCenter, text);
    m_painter.restore();
}

} // namespace frame_editor
