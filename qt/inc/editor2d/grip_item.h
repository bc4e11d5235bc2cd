#pragma once

#include "qt/inc/editor2d/editor_item.h"

namespace zel::qt::ed2d {

/// The round handle that the user drags to change a shape. It keeps its size on the screen whatever
/// the zoom of the view, and is centred on its position. It is red, pale when selected, and grows
/// by 30 percent while the mouse is over it or while it is highlighted.
///
/// The enlarged grip reaches beyond boundingRect(): a view that shows grips updates its whole
/// viewport, as EditorView does.
class ZEL_QT_EXPORT GripItem : public EditorItem
{
public:
    explicit GripItem(QGraphicsItem* parent = nullptr);
    ~GripItem() override;

    QRectF boundingRect() const override;
    /// Reports an assertion, and paints all the same, if the flag ItemIgnoresTransformations was
    /// taken away. The painter is left changed: its pen, brush, scale and antialiasing.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

    /// The diameter in pixels. A host sets it before the grip is on a scene, or in a derived class
    /// behind prepareGeometryChange(); nothing in the library writes it.
    double m_size = 8.0;
    /// Drawn enlarged as if hovered. Nothing is repainted by setting it; call update().
    bool m_highlighted = false;
};

} // namespace zel::qt::ed2d
