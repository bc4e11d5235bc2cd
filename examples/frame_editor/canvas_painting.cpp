#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/canvas_items.h"
#include "examples/frame_editor/canvas_symbols.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/unit_settings.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace frame_editor {

namespace {

constexpr int lineLoadSet = 1191;
constexpr int titleBottom = 40;
constexpr double leastLengthWithName = 40.0; // in pixels, as all but the length of an arrow
constexpr double leastLengthWithLoad = 30.0;
constexpr double shortestArrow = 10.0;
constexpr double longestArrow = 1.2; // in metres
constexpr double longestArrowInPixels = 32.0;

const Member& memberOf(const FrameModel& model, const MemberItem& item)
{
    return model.members.at(static_cast<std::size_t>(item.index()));
}

} // namespace

void Canvas::drawForeground(QPainter* painter, const QRectF& rect)
{
    painter->save();
    painter->resetTransform();
    painter->setRenderHint(QPainter::Antialiasing, true);
    drawSigns(*painter);
    drawLoads(*painter);
    drawLabels(*painter);
    painter->restore();

    EditorView::drawForeground(painter, rect);

    painter->save();
    painter->setWorldMatrixEnabled(false);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    drawElevations(*painter);
    painter->restore();
}

QLineF Canvas::axisInPixels(const MemberItem& item) const
{
    return viewportTransform().map(item.axis());
}

double Canvas::halfDepthInPixels(const MemberItem& item) const
{
    return item.visibleDepth() / 2 * std::abs(transform().m11());
}

/// What is seen, and room for a text beyond its edges.
QRectF Canvas::drawnArea() const
{
    return QRectF(viewport()->rect()).adjusted(-10, -10, 10, 10);
}

void Canvas::drawSigns(QPainter& painter) const
{
    for (const MemberItem* item : m_memberItems) {
        const Member& member = memberOf(m_document.model(), *item);
        const QLineF axis = axisInPixels(*item);
        drawSupport(painter, member.support, axis);
        if (member.kind == MemberKind::Link) {
            continue; // whatever else it has does not count
        }
        if (member.bedded) {
            drawBedding(painter, axis, halfDepthInPixels(*item), drawnArea());
        }
        if (member.hingeStart) {
            drawHinge(painter, axis.p1(), axis.p2());
        }
        if (member.hingeEnd) {
            drawHinge(painter, axis.p2(), axis.p1());
        }
    }
}

LineLoadSign Canvas::loadSign(const MemberItem& item) const
{
    const Member& member = memberOf(m_document.model(), item);
    LineLoadSign load;
    load.axis = axisInPixels(item);
    load.halfDepth = halfDepthInPixels(item);
    load.direction = member.loadDirection;
    load.against = member.lineLoad < 0.0;
    // Less on a small scale, where the next storey is near.
    const double longest =
        qBound(shortestArrow, longestArrow * std::abs(transform().m11()), longestArrowInPixels);
    load.height =
        shortestArrow + (longest - shortestArrow) * std::abs(shownLoad(member)) / m_largestLoad;
    return load;
}

double Canvas::shownLoad(const Member& member)
{
    return member.kind == MemberKind::Link ? 0.0 : member.lineLoad;
}

void Canvas::drawLoads(QPainter& painter) const
{
    for (const MemberItem* item : m_memberItems) {
        const LineLoadSign load = loadSign(*item);
        if (shownLoad(memberOf(m_document.model(), *item)) != 0.0 &&
            load.axis.length() >= leastLengthWithLoad) {
            drawLineLoad(painter, load, drawnArea());
        }
    }
}

void Canvas::drawLabels(QPainter& painter) const
{
    std::vector<const MemberItem*> items(m_memberItems.begin(), m_memberItems.end());
    // Where there is no room for all texts, those that the user looks for come first.
    std::stable_partition(items.begin(), items.end(), [](const MemberItem* item) {
        return item->isSelected() || item->hovering();
    });
    const zel::units::v1::Context& units = zel::units::v1::get_active_input_context();
    LabelLayer labels(painter, viewport()->rect());
    const QFontMetricsF metrics(painter.font(), painter.device());
    for (const MemberItem* item : items) {
        const Member& member = memberOf(m_document.model(), *item);
        const QLineF axis = axisInPixels(*item);
        if (axis.length() >= leastLengthWithName) {
            labels.add(nameLabelPlace(axis, halfDepthInPixels(*item),
                                      metrics.size(Qt::TextSingleLine, member.name)),
                       member.name, QColor(60, 60, 60));
        }
        if (shownLoad(member) != 0.0 && axis.length() >= leastLengthWithLoad) {
            labels.add(loadLabelPlace(loadSign(*item), metrics.height()),
                       formatQuantity(units, lineLoadSet, std::abs(member.lineLoad)), loadColour());
        }
    }
}

void Canvas::drawElevations(QPainter& painter) const
{
    using zel::qt::graphics::RulerTicks;
    const double low = -mapToScene(0, height() - 1).y();
    const double high = -mapToScene(0, 0).y();
    const RulerTicks ticks =
        zel::qt::graphics::rulerTicks(low, high, std::abs(pixelSize().x()), height());
    const QTransform toPixels = viewportTransform();
    // A mark may lie beyond the ends of the ruler, and far in farther than an int can tell.
    const auto pixelOf = [&](double elevation) {
        const double y = toPixels.map(toScene(0, elevation)).y();
        return qRound(qBound(-1000.0, y, height() + 1000.0));
    };
    for (const double elevation : ticks.major) {
        const int y = pixelOf(elevation);
        // Farther off than on a library's ruler: the mark is not to be read as a minus.
        const QString label = QString::number(elevation);
        const QRect box = painter.fontMetrics().boundingRect(label).adjusted(0, 0, 2, 0);
        painter.drawLine(0, y, 8, y);
        if (y < titleBottom) {
            continue;
        }
        painter.setLayoutDirection(readingDirection(label));
        painter.drawText(box.translated(14, y + box.height() / 3), Qt::AlignCenter, label);
    }
    for (const double elevation : ticks.minor) {
        const int y = pixelOf(elevation);
        painter.drawLine(0, y, 3, y);
    }
    const QString note = tr("rulers in metres");
    painter.setLayoutDirection(readingDirection(note));
    painter.drawText(rect().adjusted(0, 0, -4, -3),
                     Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignBottom, note);
}

} // namespace frame_editor
