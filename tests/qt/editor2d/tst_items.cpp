#include "qt/inc/editor2d.h"
#include "qt/inc/graphics.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/view_stage.h"

#include <QGraphicsSceneHoverEvent>
#include <QPainter>

using zel::qt::ed2d::EditorItem;
using zel::qt::ed2d::GripItem;
using zel::qt::graphics::EditorView;
using zel::test::EventCount;
using zel::test::ViewStage;

namespace {

const QString gripAssertion =
    QStringLiteral("(flags() & ItemIgnoresTransformations) == ItemIgnoresTransformations");

/// A view on the screen with one item whose origin lies at the viewport's (200, 150); the mouse is
/// outside, and no cross hair disturbs the picture.
template <class Item>
struct Scene
{
    Scene()
        : stage(view)
        , item(new Item)
    {
        view.setDrawCrossHairs(false);
        item->setPos(200, 150);
        view.scene()->addItem(item);
        QCoreApplication::processEvents();
        item->positionChanged.connect([this] { ++moved; });
    }

    QImage shot()
    {
        return view.viewport()->grab().toImage();
    }
    QImage shotWithout()
    {
        item->setVisible(false);
        QImage image = shot();
        item->setVisible(true);
        return image;
    }
    /// The rectangle of the pixels that the item changes, relative to its origin.
    QRect painted()
    {
        const QImage with = shot();
        const QImage without = shotWithout();
        QRect rect;
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x) {
                if (with.pixel(x, y) != without.pixel(x, y)) {
                    rect |= QRect(x, y, 1, 1);
                }
            }
        }
        return rect.translated(-200, -150);
    }
    QColor colour(int x, int y)
    {
        return shot().pixelColor(200 + x, 150 + y);
    }

    EditorView view;
    ViewStage stage;
    Item* item;
    int moved = 0;
};

/// Opens what the scene calls.
struct OpenItem : EditorItem
{
    using EditorItem::hoverEnterEvent;
    using EditorItem::hoverLeaveEvent;
    using EditorItem::itemChange;
};

bool isNearly(const QColor& actual, const QColor& expected)
{
    return qAbs(actual.red() - expected.red()) <= 3 &&
           qAbs(actual.green() - expected.green()) <= 3 &&
           qAbs(actual.blue() - expected.blue()) <= 3;
}

} // namespace

class ItemsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void freshEditorItem();
    void freshGrip();
    void itemsBelongToTheirParent();
    void positionChangedOncePerChange();
    void positionChangedInADrag();
    void positionChangedNeedsItsFlag();
    void otherChangesFireNothing();
    void itemChangeAnswersAsTheBase();
    void hoverComesAndGoes();
    void hoverRepaints();
    void hoverNeedsSelectable();
    void hoverEndsWithoutSelectable();
    void hoverTwice();
    void editorItemColours_data();
    void editorItemColours();
    void editorItemSquare();
    void gripKeepsItsSizeOnScreen_data();
    void gripKeepsItsSizeOnScreen();
    void gripGrowsBeyondItsBounds_data();
    void gripGrowsBeyondItsBounds();
    void gripColours_data();
    void gripColours();
    void gripBoundsFollowItsSize_data();
    void gripBoundsFollowItsSize();
    void gripLeavesThePainterChanged();
    void gripDrawsFirstWithThePenThatItGot();
    void gripWithoutItsFlagReportsAndPaints();
    void gripIsDragged();
};

void ItemsTest::freshEditorItem()
{
    const EditorItem item;
    QCOMPARE(item.flags(), QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                               QGraphicsItem::ItemSendsGeometryChanges);
    QVERIFY(item.acceptHoverEvents());
    QVERIFY(!item.hovering());
    QCOMPARE(item.boundingRect(), QRectF(0, 0, 10, 10));
    QCOMPARE(item.parentItem(), nullptr);
    QCOMPARE(item.positionChanged.num_slots(), std::size_t(0));
}

void ItemsTest::freshGrip()
{
    const GripItem grip;
    QCOMPARE(grip.flags(), QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                               QGraphicsItem::ItemSendsGeometryChanges |
                               QGraphicsItem::ItemIgnoresTransformations);
    QVERIFY(grip.acceptHoverEvents());
    QCOMPARE(grip.m_size, 8.0);
    QCOMPARE(grip.m_highlighted, false);
    QCOMPARE(grip.zValue(), 0.0);
    QCOMPARE(grip.boundingRect(), QRectF(-4, -4, 8, 8));
}

void ItemsTest::itemsBelongToTheirParent()
{
    EditorItem parent;
    const auto* const child = new EditorItem(&parent);
    const auto* const grip = new GripItem(&parent);
    QCOMPARE(child->parentItem(), &parent);
    QCOMPARE(grip->parentItem(), &parent);
    QCOMPARE(parent.childItems().size(), 2);
}

void ItemsTest::positionChangedOncePerChange()
{
    EditorItem item;
    int moved = 0;
    QPointF seen;
    item.positionChanged.connect([&] {
        ++moved;
        seen = item.pos();
    });
    item.setPos(3, 4);
    QCOMPARE(moved, 1);
    QCOMPARE(seen, QPointF(3, 4));
    item.setPos(3, 4);
    QCOMPARE(moved, 1);
    item.setX(5);
    item.setY(6);
    item.moveBy(1, 1);
    QCOMPARE(moved, 4);
    QCOMPARE(seen, QPointF(6, 7));
}

void ItemsTest::positionChangedInADrag()
{
    Scene<EditorItem> scene;
    scene.stage.moveMouse(QPoint(205, 155));
    scene.stage.press(Qt::LeftButton, QPoint(205, 155));
    QCOMPARE(scene.moved, 0);
    QVERIFY(scene.item->isSelected());
    scene.stage.moveMouse(QPoint(235, 165));
    QCOMPARE(scene.moved, 1);
    scene.stage.moveMouse(QPoint(245, 145));
    QCOMPARE(scene.moved, 2);
    scene.stage.release(Qt::LeftButton, QPoint(245, 145));
    QCOMPARE(scene.moved, 2);
    QCOMPARE(scene.item->pos(), QPointF(240, 140));
}

void ItemsTest::positionChangedNeedsItsFlag()
{
    EditorItem item;
    int moved = 0;
    item.positionChanged.connect([&moved] { ++moved; });
    item.setFlag(QGraphicsItem::ItemSendsGeometryChanges, false);
    item.setPos(3, 4);
    QCOMPARE(moved, 0);
}

void ItemsTest::otherChangesFireNothing()
{
    Scene<EditorItem> scene;
    scene.item->setSelected(true);
    scene.item->setSelected(false);
    scene.item->setRotation(30);
    scene.item->setScale(2);
    scene.item->setZValue(3);
    scene.item->setVisible(false);
    scene.item->setEnabled(false);
    scene.item->setToolTip(QStringLiteral("tip"));
    scene.view.scene()->removeItem(scene.item);
    QCOMPARE(scene.moved, 0);
    delete scene.item;
    QCOMPARE(scene.moved, 0);
}

void ItemsTest::itemChangeAnswersAsTheBase()
{
    OpenItem item;
    int moved = 0;
    item.positionChanged.connect([&moved] { ++moved; });
    QCOMPARE(item.itemChange(QGraphicsItem::ItemPositionHasChanged, QPointF(1, 2)),
             QVariant(QPointF(1, 2)));
    QCOMPARE(moved, 1);
    QCOMPARE(item.itemChange(QGraphicsItem::ItemPositionChange, QPointF(3, 4)),
             QVariant(QPointF(3, 4)));
    QCOMPARE(item.itemChange(QGraphicsItem::ItemSelectedHasChanged, true), QVariant(true));
    QCOMPARE(moved, 1);
}

void ItemsTest::hoverComesAndGoes()
{
    Scene<EditorItem> scene;
    QVERIFY(!scene.item->hovering());
    scene.stage.moveMouse(QPoint(205, 155));
    QVERIFY(scene.item->hovering());
    scene.stage.moveMouse(QPoint(207, 157));
    QVERIFY(scene.item->hovering());
    scene.stage.moveMouse(QPoint(230, 155));
    QVERIFY(!scene.item->hovering());
    scene.stage.moveMouse(QPoint(201, 151));
    QVERIFY(scene.item->hovering());
    scene.stage.moveMouseAway();
    QVERIFY(!scene.item->hovering());
    QCOMPARE(scene.moved, 0);
}

void ItemsTest::hoverRepaints()
{
    OpenItem item;
    EditorView view;
    ViewStage stage(view);
    view.scene()->addItem(&item);
    QCoreApplication::processEvents();
    EventCount paints(view.viewport(), QEvent::Paint);
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverEnter);
    const auto paintsAfter = [&paints] {
        QCoreApplication::processEvents();
        return paints.take();
    };
    QCOMPARE(paintsAfter(), 0);
    item.hoverEnterEvent(&event);
    QCOMPARE(paintsAfter(), 1);
    item.hoverLeaveEvent(&event);
    QCOMPARE(paintsAfter(), 1);
    view.scene()->removeItem(&item);
}

void ItemsTest::hoverNeedsSelectable()
{
    Scene<EditorItem> scene;
    scene.item->setFlag(QGraphicsItem::ItemIsSelectable, false);
    scene.stage.moveMouse(QPoint(205, 155));
    QVERIFY(!scene.item->hovering());
    // Nor does it later, while the mouse stays.
    scene.item->setFlag(QGraphicsItem::ItemIsSelectable, true);
    scene.stage.moveMouse(QPoint(206, 155));
    QVERIFY(!scene.item->hovering());
}

void ItemsTest::hoverEndsWithoutSelectable()
{
    Scene<EditorItem> scene;
    scene.stage.moveMouse(QPoint(205, 155));
    QVERIFY(scene.item->hovering());
    scene.item->setFlag(QGraphicsItem::ItemIsSelectable, false);
    scene.stage.moveMouse(QPoint(230, 155));
    QVERIFY(!scene.item->hovering());
}

void ItemsTest::hoverTwice()
{
    OpenItem item;
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverEnter);
    item.hoverLeaveEvent(&event);
    QVERIFY(!item.hovering());
    item.hoverEnterEvent(&event);
    item.hoverEnterEvent(&event);
    QVERIFY(item.hovering());
    item.hoverLeaveEvent(&event);
    QVERIFY(!item.hovering());
}

void ItemsTest::editorItemColours_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("plain") << false << false << QColor(Qt::blue);
    QTest::newRow("hovered") << false << true << QColor(Qt::yellow);
    QTest::newRow("selected") << true << false << QColor(Qt::red);
    QTest::newRow("selected and hovered") << true << true << QColor(Qt::red);
}

void ItemsTest::editorItemColours()
{
    QFETCH(bool, selected);
    QFETCH(bool, hovered);
    QFETCH(QColor, colour);
    Scene<EditorItem> scene;
    scene.item->setSelected(selected);
    if (hovered) {
        scene.stage.moveMouse(QPoint(205, 155));
    }
    QCOMPARE(scene.item->hovering(), hovered);
    for (const QPoint& point : {QPoint(5, 5), QPoint(1, 1), QPoint(8, 8)}) {
        QCOMPARE(scene.colour(point.x(), point.y()), colour);
    }
    // The brush is solid, also if the painter came with another.
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::green);
    QPainter painter(&image);
    painter.setBrush(Qt::Dense6Pattern);
    scene.item->paint(&painter, nullptr);
    QCOMPARE(painter.brush(), QBrush(colour, Qt::SolidPattern));
}

void ItemsTest::editorItemSquare()
{
    Scene<EditorItem> scene;
    // The pen's line lies half on either side of the edge, smoothed.
    const QRect expected(-1, -1, 12, 12);
    QCOMPARE(scene.painted(), expected);
}

void ItemsTest::gripKeepsItsSizeOnScreen_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("plain") << 1.0;
    QTest::newRow("far out") << 0.02;
    QTest::newRow("half") << 0.5;
    QTest::newRow("four times") << 4.0;
    QTest::newRow("far in") << 100.0;
}

void ItemsTest::gripKeepsItsSizeOnScreen()
{
    QFETCH(double, scale);
    Scene<GripItem> scene;
    const QRect atFirst = scene.painted();
    QCOMPARE(atFirst.center(), QPoint(0, 0));
    QVERIFY2(atFirst.width() == 9 && atFirst.height() == 9,
             qPrintable(QStringLiteral("%1 by %2").arg(atFirst.width()).arg(atFirst.height())));
    const QImage before = scene.shot().copy(190, 140, 20, 20);
    scene.view.scene()->setSceneRect(-1e6, -1e6, 2e6, 2e6);
    scene.view.scale(scale, scale);
    scene.view.setCenter(QPointF(200, 150), false);
    QCOMPARE(scene.view.mapFromScene(QPointF(200, 150)), QPoint(200, 150));
    QCOMPARE(scene.painted(), atFirst);
    for (const int y : {-2, 0, 1, 3}) {
        QVERIFY(isNearly(scene.colour(0, y), before.pixelColor(10, 10 + y)));
    }
}

void ItemsTest::gripGrowsBeyondItsBounds_data()
{
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<bool>("highlighted");
    QTest::addColumn<double>("scale");
    for (const double scale : {0.1, 1.0, 20.0}) {
        QTest::addRow("hovered at %g", scale) << true << false << scale;
        QTest::addRow("highlighted at %g", scale) << false << true << scale;
        QTest::addRow("both at %g", scale) << true << true << scale;
    }
}

void ItemsTest::gripGrowsBeyondItsBounds()
{
    QFETCH(bool, hovered);
    QFETCH(bool, highlighted);
    QFETCH(double, scale);
    Scene<GripItem> scene;
    scene.item->m_size = 40;
    scene.view.scene()->setSceneRect(-1e6, -1e6, 2e6, 2e6);
    scene.view.scale(scale, scale);
    scene.view.setCenter(QPointF(200, 150), false);
    QCOMPARE(scene.painted().size(), QSize(41, 41));
    scene.item->m_highlighted = highlighted;
    if (hovered) {
        scene.stage.moveMouse(QPoint(200, 150));
    }
    QCOMPARE(scene.item->hovering(), hovered);
    const QRect enlarged = scene.painted();
    QVERIFY2(qAbs(enlarged.width() - 53) <= 1 && qAbs(enlarged.height() - 53) <= 1,
             qPrintable(QString::number(enlarged.width())));
    QVERIFY(qAbs(enlarged.center().x()) <= 1 && qAbs(enlarged.center().y()) <= 1);
    QCOMPARE(scene.item->boundingRect(), QRectF(-20, -20, 40, 40));
    scene.item->m_highlighted = false;
    scene.stage.moveMouse(QPoint(20, 20));
    QVERIFY(!scene.item->hovering());
    QCOMPARE(scene.painted().size(), QSize(41, 41));
}

void ItemsTest::gripColours_data()
{
    QTest::addColumn<bool>("selected");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QColor>("upper");
    QTest::addColumn<QColor>("lower");
    for (const double scale : {0.1, 1.0, 30.0}) {
        QTest::addRow("plain at %g", scale)
            << false << scale << QColor(255, 0, 0) << QColor(128, 0, 0);
        QTest::addRow("selected at %g", scale)
            << true << scale << QColor(255, 230, 230) << QColor(255, 51, 51);
    }
}

void ItemsTest::gripColours()
{
    QFETCH(bool, selected);
    QFETCH(QColor, upper);
    QFETCH(QColor, lower);
    // Large enough for the gradient to be told pixel by pixel.
    QFETCH(double, scale);
    Scene<GripItem> scene;
    scene.item->m_size = 200;
    scene.item->setSelected(selected);
    scene.view.scene()->setSceneRect(-1e6, -1e6, 2e6, 2e6);
    scene.view.scale(scale, scale);
    scene.view.setCenter(QPointF(200, 150), false);
    for (const int y : {-98, -50, -1}) {
        for (const int x : {-10, 0, 10}) {
            QVERIFY(isNearly(scene.colour(x, y), upper));
        }
    }
    const QColor middle((upper.red() + lower.red()) / 2, (upper.green() + lower.green()) / 2,
                        (upper.blue() + lower.blue()) / 2);
    QVERIFY(isNearly(scene.colour(0, 50), middle));
    QVERIFY(isNearly(scene.colour(-60, 50), middle));
    QVERIFY(isNearly(scene.colour(0, 98), lower));
    // A black line about it, without antialiasing.
    QCOMPARE(scene.colour(0, -100), QColor(Qt::black));
    QCOMPARE(scene.colour(-100, 0), QColor(Qt::black));
    QVERIFY(isNearly(scene.colour(-98, 0), upper));
}

void ItemsTest::gripBoundsFollowItsSize_data()
{
    QTest::addColumn<double>("size");
    QTest::newRow("larger") << 15.0;
    QTest::newRow("nothing") << 0.0;
    QTest::newRow("fraction") << 0.5;
}

void ItemsTest::gripBoundsFollowItsSize()
{
    QFETCH(double, size);
    GripItem grip;
    grip.m_size = size;
    QCOMPARE(grip.boundingRect(), QRectF(-size / 2, -size / 2, size, size));
}

void ItemsTest::gripLeavesThePainterChanged()
{
    GripItem grip;
    QImage image(20, 20, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    grip.paint(&painter, nullptr);
    QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
    QCOMPARE(painter.pen(), QPen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    QCOMPARE(painter.transform(), QTransform());
    QVERIFY(painter.brush().gradient() != nullptr);
    QCOMPARE(painter.brush().gradient()->type(), QGradient::LinearGradient);
    const auto& gradient = static_cast<const QLinearGradient&>(*painter.brush().gradient());
    QCOMPARE(gradient.start(), QPointF(0, -4));
    QCOMPARE(gradient.finalStop(), QPointF(0, 4));
    const QGradientStops stops = gradient.stops();
    QCOMPARE(stops.size(), 3);
    QCOMPARE(stops[0], QGradientStop(0, QColor(255, 0, 0)));
    QCOMPARE(stops[1], QGradientStop(0.5, QColor(255, 0, 0)));
    QCOMPARE(stops[2].first, 1.0);
    QVERIFY(isNearly(stops[2].second, QColor(128, 0, 0)));
    grip.m_highlighted = true;
    grip.paint(&painter, nullptr);
    QCOMPARE(painter.transform(), QTransform::fromScale(1.3, 1.3));
}

void ItemsTest::gripDrawsFirstWithThePenThatItGot()
{
    // A wide pen shows on both sides of the black line that is drawn behind it.
    GripItem grip;
    grip.m_size = 40;
    QImage image(80, 80, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(40, 40);
    painter.setPen(QPen(Qt::green, 9.0));
    grip.paint(&painter, nullptr);
    painter.end();
    QCOMPARE(image.pixelColor(40, 17), QColor(Qt::green));
    QCOMPARE(image.pixelColor(40, 20), QColor(Qt::black));
    QVERIFY(isNearly(image.pixelColor(40, 23), QColor(255, 0, 0)));
}

void ItemsTest::gripWithoutItsFlagReportsAndPaints()
{
    GripItem grip;
    grip.setFlag(QGraphicsItem::ItemIgnoresTransformations, false);
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(10, 10);
    grip.paint(&painter, nullptr);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(QString::fromStdString(reports[0].expression), gripAssertion);
    QVERIFY(QString::fromStdString(reports[0].file).startsWith("qt/editor2d/grip_item"));
    QVERIFY(reports[0].values.empty());
    QVERIFY(reports[0].message.empty());
    QCOMPARE(image.pixelColor(10, 8), QColor(255, 0, 0));
    // Put back, all is well.
    grip.setFlag(QGraphicsItem::ItemIgnoresTransformations);
    grip.paint(&painter, nullptr);
    QCOMPARE(takeReports().size(), std::size_t(0));
}

void ItemsTest::gripIsDragged()
{
    Scene<GripItem> scene;
    scene.view.scale(4, 4);
    scene.view.setCenter(QPointF(200, 150), false);
    scene.stage.drag(Qt::LeftButton, QPoint(201, 151), QPoint(241, 131));
    QCOMPARE(scene.item->pos(), QPointF(210, 145));
    QCOMPARE(scene.moved, 1);
    QVERIFY(scene.item->isSelected());
    // Beside the grip there is nothing to drag.
    scene.stage.drag(Qt::LeftButton, QPoint(250, 131), QPoint(280, 131));
    QCOMPARE(scene.item->pos(), QPointF(210, 145));
    QCOMPARE(scene.moved, 1);
}

QTEST_MAIN(ItemsTest)
#include "tst_items.moc"
