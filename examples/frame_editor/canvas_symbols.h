#pragma once

#include "examples/frame_editor/frame_model.h"

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <vector>

class QColor;
class QPainter;

namespace frame_editor {

// The signs of structural drawings. All are drawn in pixels, y downwards, at a size of their own,
// with the painter's state left as it was.

/// The sign of a support at the start of a member with this axis: a triangle below the node for a
/// hinge, on two lines if it rolls, and for a clamp a hatched line across the member, level under a
/// column and upright behind the end of a beam. Nothing for none.
void drawSupport(QPainter& painter, Support support, const QLineF& axis);

/// The ring of a hinge, near `end` on the way to `other`.
void drawHinge(QPainter& painter, const QPointF& end, const QPointF& other);

// Members can be longer than the screen by any factor, so what is repeated along them takes the
// area that is seen and leaves out what lies beyond it.

/// The hatching of the ground along the lower side of a member that is bedded on it; `halfDepth` is
/// that of the member.
void drawBedding(QPainter& painter, const QLineF& axis, double halfDepth, const QRectF& area);

/// A line load on a member.
struct LineLoadSign
{
    QLineF axis;            ///< of the member, from start to end
    double halfDepth = 0.0; ///< of the member
    LoadDirection direction = LoadDirection::Vertical;
    bool against = false; ///< the load is negative: it acts the other way
    double height = 0.0;  ///< length of the arrows
};

/// The direction in which the arrows point, of length 1. A load at right angles acts to the right
/// of one who walks from the start to the end: on a beam drawn from left to right downwards, on a
/// column drawn upwards to the right.
QPointF loadVector(const LineLoadSign& load);

/// Arrows that press on the member from a line behind them. The line of a projected load is level,
/// as the plan is on which it lies; the others run along the member. A load that acts along its
/// member is a row of arrows beside it.
void drawLineLoad(QPainter& painter, const LineLoadSign& load, const QRectF& area);

/// Where a text may stand.
struct LabelPlace
{
    QLineF line;          ///< for the middle of the text
    bool upwards = false; ///< the text reads upwards
    bool along = false;   ///< the text lies along the line and needs its length
};

/// The place for the value of a load: beyond the line from which its arrows start.
LabelPlace loadLabelPlace(const LineLoadSign& load, double textHeight);

/// The place for the name of a member: beside a steep one, below a flat one.
LabelPlace nameLabelPlace(const QLineF& axis, double halfDepth, const QSizeF& textSize);

/// The texts of a drawing, none of them over another: what finds no room is left out. A text stands
/// on the part of its line that is seen.
class LabelLayer
{
public:
    /// The painter has to outlive the layer; `area` is what is seen.
    LabelLayer(QPainter& painter, const QRectF& area);

    void add(const LabelPlace& place, const QString& text, const QColor& colour);

private:
    void draw(const QPointF& middle, bool upwards, const QString& text, const QColor& colour);

    QPainter& m_painter;
    QRectF m_area;
    std::vector<QRectF> m_taken;
};

/// The direction in which a text of the drawing reads, whatever that of the window: a number stays
/// in front of its unit, and a sign in front of its number.
Qt::LayoutDirection readingDirection(const QString& text);

const QColor& loadColour();

} // namespace frame_editor
