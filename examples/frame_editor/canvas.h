#pragma once

#include "qt/inc/graphics.h"

#include <QLineF>
#include <QTransform>

#include <vector>

namespace frame_editor {

class Document;
class MemberItem;
class NodeGrip;
struct LineLoadSign;
struct Member;

/// The elevation of the frame: members as deep as their sections, supports, loads, and a grip for
/// each node that moves it. What is selected here is what the document has selected.
///
/// Scene units are metres. x is that of the model; y is its negative, since a scene counts
/// downwards and a ruler of the view draws no range that runs backwards. So the scene is not
/// mirrored, texts stand upright, and the ruler along the left edge, which the canvas draws itself
/// with the marks of the library's rulers, shows elevations: upwards, 0 at the ground.
class Canvas : public zel::qt::graphics::EditorView
{
    Q_OBJECT
public:
    /// The document has to outlive the canvas.
    Canvas(Document& document, QWidget* parent);
    ~Canvas() override;

    static QPointF toScene(double x, double y)
    {
        return {x, -y};
    }

    /// Shows the whole frame as large as it fits with its signs; and goes on doing so when the
    /// canvas is resized, until the user pans or zooms.
    void fitToWindow();
    /// Shows one member with its neighbourhood.
    void zoomToMember(int member);
    /// Draws loads and places in the units of the active settings.
    void showUnits();
    /// The rectangle of all nodes, in scene coordinates; never without size.
    QRectF frameRect() const;

    /// Whether the mouse is in the midst of a drag or of a rubber band.
    bool hasGesture() const;

    /// Whether grips are just being put where the model has their nodes.
    bool isShowingModel() const;
    /// Where a node dragged to `pos` comes to lie: whole steps from its place in the model. The
    /// step is the finest of 1 cm, 5 cm, 10 cm, 50 cm that is no less than a pixel, or 1 m. A
    /// coordinate that is only a few pixels off stays: a click with an unsteady hand moves nothing,
    /// and a drag along one axis leaves the other coordinate alone.
    QPointF snapped(int node, const QPointF& pos) const;

    /// The items of the nodes and members, by their index in the model.
    const std::vector<NodeGrip*>& nodeGrips() const;
    const std::vector<MemberItem*>& memberItems() const;

Q_SIGNALS:
    /// What the mouse points at: a place, or a node under way; empty when it has left.
    void pointedAt(const QString& text);
    /// One line on what came of a drag.
    void told(const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

private:
    void showModel();
    void showNodes();
    void showMembers();
    void showSelection();
    void showFile();
    void placeMember(std::size_t index);
    void placeMembers(int node);
    void takeSelection();
    void takeMoves();
    void finishGesture(Qt::MouseButton released);
    void finishRubberBand();
    void tellPlace(const QPoint& pos);

    /// The line load, 0 for a rigid link, of which none counts.
    static double shownLoad(const Member& member);
    void drawSigns(QPainter& painter) const;
    void drawLoads(QPainter& painter) const;
    void drawLabels(QPainter& painter) const;
    void drawElevations(QPainter& painter) const;
    LineLoadSign loadSign(const MemberItem& item) const;
    QLineF axisInPixels(const MemberItem& item) const;
    double halfDepthInPixels(const MemberItem& item) const;
    QRectF drawnArea() const;

    Document& m_document;
    std::vector<NodeGrip*> m_nodeGrips;     // owned by the scene
    std::vector<MemberItem*> m_memberItems; // owned by the scene
    double m_largestLoad = 0.0;             // kN/m
    bool m_showing = false;                 ///< the scene follows the document
    bool m_selectionPending = false;        ///< a rubber band is under way
    bool m_otherModel = true;               ///< the next model to be shown is not known yet
    bool m_fitted = false;
    QPointF m_fittedCenter;
    QTransform m_fittedTransform;
};

} // namespace frame_editor
