#include "docs/snippets/expect.h"
//! [headers]
#include "qt/inc/editor2d.h"
#include "qt/inc/graphics.h"

#include <QGraphicsScene>
#include <QMouseEvent>
#include <QPainter>

using namespace zel::qt;
//! [headers]

#include <QApplication>
#include <QTest>

namespace {

//! [item]
/// A member of the frame: a line between two grips, which the user drags.
class MemberItem : public ed2d::EditorItem
{
public:
    MemberItem(const QPointF& a, const QPointF& b)
        : m_start(new ed2d::GripItem(this))
        , m_end(new ed2d::GripItem(this))
    {
        // The grips move, the line follows; the item itself stays where it is.
        setFlag(ItemIsMovable, false);
        m_start->setPos(a);
        m_end->setPos(b);
        follow();
        m_start->positionChanged.connect([this] { follow(); });
        m_end->positionChanged.connect([this] { follow(); });
    }

    QRectF boundingRect() const override
    {
        return QRectF(m_line.p1(), m_line.p2()).normalized().adjusted(-1, -1, 1, 1);
    }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        QPen pen(isSelected() ? Qt::red : Qt::black, 3);
        pen.setCosmetic(true);
        painter->setPen(pen);
        painter->drawLine(m_line);
    }

private:
    void follow()
    {
        prepareGeometryChange();
        m_line = {m_start->pos(), m_end->pos()};
    }

    QLineF m_line;
    ed2d::GripItem* m_start; // owned by this item, as its children
    ed2d::GripItem* m_end;
};
//! [item]

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    //! [view]
    graphics::EditorView view;
    view.setTitle(QStringLiteral("Front"));
    view.setRulers(true, true);
    auto* member = new MemberItem({0, 0}, {80, -40});
    view.scene()->addItem(member); // the scene owns it now
    //! [view]

    //! [moved]
    view.mouseMoved.connect([&](QMouseEvent* event) {
        const QPointF position = view.mapToScene(event->pos());
        // ... shown in the status bar
        //! [moved]
        EXPECT(!position.isNull());
        //! [moved]
    });
    //! [moved]

    //! [linked]
    graphics::EditorView below; // shows the same stretch along the x axis
    graphics::EditorView::linkViewSettingsBidirectionally(
        &view, &below, graphics::EditorView::LinkCenterX | graphics::EditorView::LinkScaleX);
    //! [linked]
    view.resize(400, 300);
    below.resize(400, 300);
    view.show();
    below.show();
    view.setCenter({20, 10}, true);
    EXPECT(below.getCenter().x() == 20 && below.getCenter().y() == 0);

    const QRectF before = member->boundingRect();
    member->childItems().first()->setPos(-20, 0);
    EXPECT(member->boundingRect().left() < before.left());
    QTest::mouseMove(view.viewport(), QPoint(40, 40));
    return failedExpectations();
}
