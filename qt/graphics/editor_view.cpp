#include "qt/inc/graphics/editor_view.h"

#include "qt/graphics/graphics_scene.h"
#include "qt/graphics/ruler.h"

#include <boost/signals2/shared_connection_block.hpp>

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace zel::qt::graphics {
namespace {

constexpr double zoomFactor = 1.15;

/// The component of the wheel's angle that is larger by magnitude; the vertical one of equals.
int wheelDelta(const QWheelEvent& event)
{
    const QPoint angle = event.angleDelta();
    return qAbs(angle.x()) > qAbs(angle.y()) ? angle.x() : angle.y();
}

/// A ratio of pixel sizes as a scale. A view zoomed beyond the precision of its coordinates has
/// pixels of no size; taking that over would spoil the other view's transformation for good.
double usableScale(double ratio)
{
    return std::isfinite(ratio) && ratio != 0 ? ratio : 1.0;
}

void prepareForWidgetCoordinates(QPainter* painter, const QColor& colour, Qt::PenStyle style)
{
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setWorldMatrixEnabled(false);
    painter->setPen(QPen(colour, 1.0, style, Qt::FlatCap, Qt::MiterJoin));
}

void drawCrossHairs(QPainter* painter, const QRect& rect, const QPoint& pos)
{
    painter->save();
    prepareForWidgetCoordinates(painter, Qt::darkGray, Qt::DotLine);
    painter->drawLine(pos.x(), rect.top(), pos.x(), rect.bottom());
    painter->drawLine(rect.left(), pos.y(), rect.right(), pos.y());
    painter->restore();
}

void drawCustomCursor(QPainter* painter, const QPoint& pos)
{
    painter->save();
    prepareForWidgetCoordinates(painter, Qt::black, Qt::SolidLine);
    painter->drawLine(pos - QPoint(0, 20), pos - QPoint(0, 6));
    painter->drawLine(pos + QPoint(0, 20), pos + QPoint(0, 6));
    painter->drawLine(pos - QPoint(20, 0), pos - QPoint(6, 0));
    painter->drawLine(pos + QPoint(20, 0), pos + QPoint(6, 0));
    painter->drawRect(QRectF(pos - QPointF(4, 4), pos + QPointF(4, 4)));
    painter->restore();
}

void drawTitle(QPainter* painter, const QString& title)
{
    painter->save();
    painter->setWorldMatrixEnabled(false);
    painter->setPen(QPen(Qt::black, 1.0, Qt::SolidLine));
    painter->setLayoutDirection(title.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter->drawText(QPoint(20, 30), title);
    painter->restore();
}

} // namespace

EditorView::EditorView()
{
    auto* const ownScene = new GraphicsScene(this);
    ownScene->setItemIndexMethod(QGraphicsScene::NoIndex);
    ownScene->setSceneRect(-200, -200, 600, 600);
    setCenter(m_center, true);
    setScene(ownScene);
    setCacheMode(QGraphicsView::CacheNone);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setRenderHint(QPainter::Antialiasing, true);
    setDragMode(QGraphicsView::RubberBandDrag);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAttribute(Qt::WA_MouseTracking, true);
    // In a right-to-left layout the scroll bar would run against the mouse of a pan.
    setLayoutDirection(Qt::LeftToRight);
}

EditorView::~EditorView() = default;

const QPointF& EditorView::getCenter() const
{
    return m_center;
}

void EditorView::setCenter(const QPointF& center, bool notify)
{
    m_center = center;
    centerOn(m_center);
    if (notify) {
        centerChanged(m_center);
    }
}

QPointF EditorView::pixelSize() const
{
    return mapToScene(QPoint(1, 1)) - mapToScene(QPoint(0, 0));
}

void EditorView::setRulers(bool vertical, bool horizontal)
{
    m_verticalRuler = vertical;
    m_horizontalRuler = horizontal;
}

void EditorView::setTitle(const QString& title)
{
    m_title = title;
}

void EditorView::setDrawCrossHairs(bool on)
{
    m_drawCrossHairs = on;
}

void EditorView::setDrawCustomCursor(bool on)
{
    m_drawCustomCursor = on;
}

void EditorView::setPanningEnabled(bool on)
{
    m_panningEnabled = on;
}

void EditorView::setZoomingEnabled(bool on)
{
    m_zoomingEnabled = on;
}

void EditorView::acquireViewSettingsFrom(EditorView* other, int mask)
{
    const QPointF mine = pixelSize();
    const QPointF theirs = other->pixelSize();
    scale((mask & LinkScaleX) != 0 ? usableScale(mine.x() / theirs.x()) : 1.0,
          (mask & LinkScaleY) != 0 ? usableScale(mine.y() / theirs.y()) : 1.0);
    if ((mask & LinkCenterX) != 0) {
        m_center.setX(other->m_center.x());
    }
    if ((mask & LinkCenterY) != 0) {
        m_center.setY(other->m_center.y());
    }
    centerOn(m_center);
    invalidateVisibleBackground();
}

void EditorView::linkViewSettingsTo(EditorView* other, int mask)
{
    using Connection = boost::signals2::connection;
    using Block = boost::signals2::shared_connection_block;
    other->zoomChanged.connect_extended(
        [this, other, mask](const Connection& connection) {
            const Block block(connection);
            acquireViewSettingsFrom(other, mask);
        },
        boost::signals2::at_back);
    other->centerChanged.connect_extended(
        [this, other, mask](const Connection& connection, const QPointF&) {
            const Block block(connection);
            acquireViewSettingsFrom(other, mask);
        },
        boost::signals2::at_back);
}

void EditorView::linkViewSettingsBidirectionally(EditorView* first, EditorView* second, int mask)
{
    first->linkViewSettingsTo(second, mask);
    second->linkViewSettingsTo(first, mask);
}

void EditorView::scaleBy(double factor)
{
    scale(factor, factor);
}

void EditorView::mousePressEvent(QMouseEvent* event)
{
    if (m_panningEnabled && event->button() == Qt::RightButton) {
        m_panning = true;
        m_lastPanPos = event->pos();
        setCursor(Qt::ClosedHandCursor);
        event->accept();
    } else {
        QGraphicsView::mousePressEvent(event);
    }
}

void EditorView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_panning && event->button() == Qt::RightButton) {
        m_panning = false;
        setCursor(m_drawCustomCursor ? Qt::BlankCursor : m_savedCursorShape);
        event->accept();
    } else {
        QGraphicsView::mouseReleaseEvent(event);
        mouseReleased(event);
    }
}

void EditorView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_mouseInside && m_panning) {
        panBy(m_lastPanPos - event->pos());
        m_lastPanPos = event->pos();
        event->accept();
        invalidateVisibleBackground();
    } else {
        if (m_drawCrossHairs || m_drawCustomCursor) {
            invalidateAll();
        }
        QGraphicsView::mouseMoveEvent(event);
    }
    mouseMoved(event);
}

void EditorView::wheelEvent(QWheelEvent* event)
{
    if (!m_zoomingEnabled) {
        return;
    }
    const QPoint mouse = event->position().toPoint();
    const QPointF before = mapToScene(mouse);
    const QPointF center = m_center;
    scaleBy(wheelDelta(*event) > 0 ? zoomFactor : 1 / zoomFactor);
    const QPointF after = mapToScene(mouse);
    setCenter(center + before - after, true);
    zoomChanged();
}

void EditorView::focusInEvent(QFocusEvent* event)
{
    QGraphicsView::focusInEvent(event);
}

void EditorView::focusOutEvent(QFocusEvent* event)
{
    QGraphicsView::focusOutEvent(event);
}

void EditorView::enterEvent(QEvent* event)
{
    QGraphicsView::enterEvent(event);
    m_mouseInside = true;
    invalidateAll();
    m_savedCursorShape = cursor().shape();
    if (m_drawCustomCursor) {
        setCursor(Qt::BlankCursor);
    }
}

void EditorView::leaveEvent(QEvent* event)
{
    QGraphicsView::leaveEvent(event);
    m_mouseInside = false;
    invalidateAll();
    setCursor(m_savedCursorShape);
}

void EditorView::resizeEvent(QResizeEvent* event)
{
    const QPointF center = m_center;
    QGraphicsView::resizeEvent(event);
    if (m_zoomingEnabled) {
        setCenter(center, true);
    }
    resized();
}

void EditorView::dragMoveEvent(QDragMoveEvent* event)
{
    QGraphicsView::dragMoveEvent(event);
}

void EditorView::drawBackground(QPainter* painter, const QRectF& rect)
{
    QLinearGradient gradient(rect.topLeft(), rect.bottomRight());
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, Qt::lightGray);
    painter->fillRect(rect, gradient);
    painter->setBrush(Qt::NoBrush);
}

void EditorView::drawForeground(QPainter* painter, const QRectF& sceneRect)
{
    QGraphicsView::drawForeground(painter, sceneRect);
    const QPoint pos = mapFromGlobal(QCursor::pos());
    if (m_drawCrossHairs && m_mouseInside) {
        drawCrossHairs(painter, rect(), pos);
    }
    if (m_drawCustomCursor) {
        drawCustomCursor(painter, pos);
    }
    if (!m_title.isEmpty()) {
        drawTitle(painter, m_title);
    }
    if (m_horizontalRuler) {
        drawRuler(painter, *this, Qt::Horizontal);
    }
    if (m_verticalRuler) {
        drawRuler(painter, *this, Qt::Vertical);
    }
}

QRectF EditorView::visibleSceneRect() const
{
    return mapToScene(rect()).boundingRect();
}

void EditorView::invalidateVisibleBackground()
{
    if (scene() != nullptr) {
        scene()->invalidate(visibleSceneRect(), QGraphicsScene::BackgroundLayer);
    }
}

void EditorView::invalidateAll()
{
    if (scene() != nullptr) {
        scene()->invalidate(QRectF(), QGraphicsScene::AllLayers);
    }
}

void EditorView::panBy(const QPoint& distance)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + distance.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + distance.y());
    m_center = visibleSceneRect().center();
    centerChanged(m_center);
}

} // namespace zel::qt::graphics
