#pragma once

#include "platform/export.h"

#include <boost/signals2/signal.hpp>

#include <QGraphicsView>

namespace zel::qt::graphics {

/// The canvas of a 2D editor: a view with a gradient background, rulers along its top and left
/// edges in scene coordinates, a cross hair and a hand-drawn cursor that follow the mouse, and a
/// title. The right mouse button pans, the wheel zooms about the point under the mouse, and views
/// can be linked so that one follows the centre and the scale of another.
///
/// Rulers, cross hair, cursor and title are drawn over the items in the coordinates of the widget.
/// The view makes and owns its scene, whose rectangle is (-200, -200) to (400, 400) until the host
/// sets another; all items on it die with the view. A drag with the left button draws a rubber
/// band.
///
/// A drawing is not mirrored: the layout direction of the view is Qt::LeftToRight whatever that of
/// the application. Child widgets of the view inherit it; the title reads as its script does.
///
/// The view keeps a record of its own of the scene point that it looks at, the centre. Panning,
/// zooming, setCenter() and the links keep it; scrolling by other means, such as fitInView(), does
/// not: a host that does so tells the view by setCenter().
///
/// The notifications are public boost::signals2 members. They live as long as the view; whoever
/// connects something that may die earlier tracks it or disconnects.
class ZEL_QT_EXPORT EditorView : public QGraphicsView
{
public:
    /// What a view takes over from another one, as bits of a mask; other bits are ignored.
    /// 15 couples everything, 5 the horizontal axis and 10 the vertical one.
    enum LinkMask
    {
        LinkCenterX = 1,
        LinkCenterY = 2,
        LinkScaleX = 4,
        LinkScaleY = 8,
    };

    /// A view without a parent, with a scene of its own, its centre at (50, 0).
    EditorView();
    ~EditorView() override;

    /// The remembered centre, in scene coordinates.
    [[nodiscard]] const QPointF& getCenter() const;
    /// Remembers the centre and scrolls there. Fires centerChanged only if `notify` is true: with
    /// false, linked views are not told.
    void setCenter(const QPointF& center, bool notify);
    /// The size of one pixel in scene units; negative along an axis that is mirrored.
    [[nodiscard]] QPointF pixelSize() const;

    // These store the value and do not repaint.

    /// Which rulers are drawn; none at first.
    void setRulers(bool vertical, bool horizontal);
    /// The text in the top left corner; empty, as at first, for none.
    void setTitle(const QString& title);
    /// Whether the cross hair is drawn while the mouse is inside; it is at first.
    void setDrawCrossHairs(bool on);
    /// Whether a cursor is drawn by hand in place of the system's; not at first. The system's
    /// cursor changes when the mouse next enters or a pan ends.
    void setDrawCustomCursor(bool on);
    /// Whether the right button pans; it does at first. If not, it reaches the scene.
    void setPanningEnabled(bool on);
    /// Whether the wheel zooms; it does at first. If not, wheel events are left alone, and a
    /// resize does not keep the centre.
    void setZoomingEnabled(bool on);

    /// Takes over the parts of the centre and the scale of `other` that `mask` (bits of LinkMask)
    /// names. Fires nothing.
    void acquireViewSettingsFrom(EditorView* other, int mask);
    /// Makes this view follow `other`: whenever `other` fires centerChanged or zoomChanged, this
    /// view acquires its settings. Nothing is taken over before that. The link ends when `other`
    /// is destroyed and cannot be undone otherwise. This view must outlive `other`, or at least
    /// its last notification: the link holds a plain pointer.
    void linkViewSettingsTo(EditorView* other, int mask);
    /// Links both ways. Since neither then notifies the other from a link, nothing goes round in
    /// circles. Both views must outlive the last notification of either: destroy them together.
    static void linkViewSettingsBidirectionally(EditorView* first, EditorView* second, int mask);

    /// A mouse button was released, and no pan ended with it; behind the handling by the scene.
    boost::signals2::signal<void(QMouseEvent*)> mouseReleased;
    /// The mouse has moved, during a pan too; behind the handling.
    boost::signals2::signal<void(QMouseEvent*)> mouseMoved;
    /// The remembered centre was set: by a pan, the wheel, a resize, or setCenter() with notify.
    boost::signals2::signal<void(const QPointF&)> centerChanged;
    /// The wheel has zoomed; behind the centerChanged that goes with it.
    boost::signals2::signal<void()> zoomChanged;
    /// The view has been resized.
    boost::signals2::signal<void()> resized;

protected:
    /// Scales both axes by `factor`; fires nothing.
    void scaleBy(double factor);

    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

private:
    [[nodiscard]] QRectF visibleSceneRect() const;
    void invalidateVisibleBackground();
    void invalidateAll();
    void panBy(const QPoint& distance);

    QString m_title;
    bool m_verticalRuler = false;
    bool m_horizontalRuler = false;
    Qt::CursorShape m_savedCursorShape = Qt::ArrowCursor;
    bool m_drawCrossHairs = true;
    bool m_drawCustomCursor = false;
    bool m_mouseInside = false;
    bool m_zoomingEnabled = true;
    bool m_panningEnabled = true;
    bool m_panning = false;
    QPoint m_lastPanPos;
    QPointF m_center = {50, 0};
};

} // namespace zel::qt::graphics
