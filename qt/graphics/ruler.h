#pragma once

#include "qt/inc/graphics/ruler_ticks.h"

#include <QPoint>

#include <utility>
#include <vector>

class QGraphicsView;
class QPainter;

namespace zel::qt::graphics {

/// The marks of a ruler as they lie on the widget.
struct RulerMarks
{
    std::vector<std::pair<QPoint, double>> major; ///< outer end and value
    std::vector<QPoint> minor;                    ///< outer end
};

/// The ticks as marks of `view`. A horizontal ruler lies at the scene's y `edge`, a vertical one at
/// its x. Ticks so far away that their positions are no sensible pixels are left out.
RulerMarks mapRulerTicks(const QGraphicsView& view, const RulerTicks& ticks,
                         Qt::Orientation orientation, double edge);

/// Draws the marks with `painter` as it stands, and the labels of the major ones.
void drawRulerMarks(QPainter* painter, const RulerMarks& marks, Qt::Orientation orientation);

/// Draws the ruler of `view` along its top (horizontal) or left (vertical) edge.
void drawRuler(QPainter* painter, const QGraphicsView& view, Qt::Orientation orientation);

} // namespace zel::qt::graphics
