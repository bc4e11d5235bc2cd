#include "examples/frame_editor/canvas_overview.h"

#include "examples/frame_editor/canvas.h"

#include <QMouseEvent>
#include <QPainter>

namespace frame_editor {

CanvasOverview::CanvasOverview(Canvas& canvas, QWidget* parent)
    : m_canvas(canvas)
{
    setParent(parent);
    setObjectName(QStringLiteral("overview"));
    setAccessibleName(tr("Overview"));
    setFrameShape(QFrame::NoFrame);
    setScene(canvas.scene());
    setInteractive(false);
    setDragMode(QGraphicsView::NoDrag);
    setDrawCrossHairs(false);
    setCenter(canvas.getCenter(), false);
    linkViewSettingsBidirectionally(&canvas, this, LinkCenterX | LinkCenterY);
    resized.connect([this] { fitScale(); });
    mouseReleased.connect([this](QMouseEvent* event) {
        if (event->button() == Qt::LeftButton) {
            setCenter(mapToScene(event->pos()), true);
        }
    });
    connect(canvas.scene(), &QGraphicsScene::sceneRectChanged, this, &CanvasOverview::fitScale);
}

QSize CanvasOverview::sizeHint() const
{
    return {220, 150};
}

void CanvasOverview::fitScale()
{
    const QRectF frame = m_canvas.frameRect();
    constexpr double part = 0.7;
    const double fit =
        part * qMin(viewport()->width() / frame.width(), viewport()->height() / frame.height());
    setTransform(QTransform::fromScale(fit, fit));
    setCenter(getCenter(), false);
}

void CanvasOverview::drawForeground(QPainter* painter, const QRectF& rect)
{
    // Far out the box is larger than an int can tell.
    constexpr qreal beyond = 10;
    const QRectF canvas = m_canvas.mapToScene(m_canvas.viewport()->rect()).boundingRect();
    const QRect seen =
        viewportTransform()
            .mapRect(canvas)
            .intersected(QRectF(viewport()->rect()).adjusted(-beyond, -beyond, beyond, beyond))
            .toRect();
    painter->save();
    painter->setWorldMatrixEnabled(false);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(QPen(QColor(190, 80, 0), 1.0));
    painter->setBrush(QColor(255, 186, 82, 40));
    painter->drawRect(seen.adjusted(0, 0, -1, -1));
    painter->restore();
    EditorView::drawForeground(painter, rect);
}

} // namespace frame_editor
