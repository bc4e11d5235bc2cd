#pragma once

#include "qt/inc/graphics.h"

namespace frame_editor {

class Canvas;

/// The whole frame at a glance, with the part that a canvas shows in a box. The two are linked:
/// both look at the same place, each in its own scale. A click goes there.
class CanvasOverview : public zel::qt::graphics::EditorView
{
    Q_OBJECT
public:
    /// Shows the scene of the canvas. Both have to be destroyed together, as children of one window
    /// are.
    CanvasOverview(Canvas& canvas, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void drawForeground(QPainter* painter, const QRectF& rect) override;

private:
    /// A scale in which the whole frame fits.
    void fitScale();

    Canvas& m_canvas;
};

} // namespace frame_editor
