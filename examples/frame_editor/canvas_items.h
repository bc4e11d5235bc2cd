#pragma once

#include "examples/frame_editor/frame_model.h"
#include "qt/inc/editor2d.h"

#include <QLineF>

namespace frame_editor {

class Canvas;

/// A member in the elevation: a band as deep as its section, from node to node. It is selected but
/// never moved; it follows its nodes.
class MemberItem : public zel::qt::ed2d::EditorItem
{
public:
    MemberItem(const Canvas& canvas, int index);

    /// Index in the model.
    int index() const;
    /// Takes what is drawn from the model; `section` may be null.
    void show(const Member& member, const Section* section);
    /// The axis, in scene coordinates.
    void setAxis(const QLineF& axis);
    const QLineF& axis() const;
    /// What an eye sees of the section from the side, in metres: its depth, or its width if it is
    /// turned by a right angle.
    double visibleDepth() const;

    QRectF boundingRect() const override;
    /// At least a few pixels thick, so that a slender member can be clicked.
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    double reach() const;
    QPolygonF band(double halfDepth) const;

    const Canvas& m_canvas;
    int m_index;
    QLineF m_axis;
    MemberKind m_kind = MemberKind::Beam;
    double m_visibleDepth = 0.0;
    double m_flange = 0.0; ///< thickness of the edges that are seen, 0 for none
};

/// A node. Dragged by the user it moves in whole steps from where it was, so that a small jerk to
/// the side leaves the other coordinate alone.
class NodeGrip : public zel::qt::ed2d::GripItem
{
public:
    NodeGrip(const Canvas& canvas, int index);

    int index() const;
    /// Only on the canvas itself: an overview of the same scene has no room for grips.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    const Canvas& m_canvas;
    int m_index;
};

} // namespace frame_editor
