#include "tests/examples/canvas_stage.h"
#include "tests/helpers/checked_test.h"

#include <QGraphicsScene>
#include <QSignalSpy>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

using namespace frame_editor;

namespace {

FrameModel modelOf(const std::vector<Node>& nodes)
{
    FrameModel model = modelWith([](Member&) {});
    model.nodes = nodes;
    if (nodes.size() < 2) {
        model.members.clear();
    }
    return model;
}

/// Looks at a node at a scale of so many pixels to a metre.
void lookAt(Stage& stage, const char* node, double scale)
{
    stage.canvas.setTransform(QTransform::fromScale(scale, scale));
    stage.canvas.setCenter(stage.grip(node)->pos(), false);
}

bool showsAllNodes(const Stage& stage)
{
    const QRect area = stage.canvas.viewport()->rect();
    const std::vector<NodeGrip*>& grips = stage.canvas.nodeGrips();
    return std::all_of(grips.begin(), grips.end(), [&](const NodeGrip* grip) {
        return area.contains(stage.canvas.mapFromScene(grip->pos()));
    });
}

} // namespace

Q_DECLARE_METATYPE(std::vector<frame_editor::Node>)

/// What a hand at the mouse does beyond the plain drag and the plain click.
class TestCanvasGestures : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void unsteadyClickMovesNothing_data();
    void unsteadyClickMovesNothing();
    void jerkAsideLeavesTheOtherCoordinate_data();
    void jerkAsideLeavesTheOtherCoordinate();
    void dragToZeroLeavesNoSign();
    void dragOutOfTheWindow();
    void focusIsLostDuringADrag();
    void panDuringADrag();
    void panDuringARubberBand();
    void panShowsItsHandOverANode();
    void otherModelWithTheSameNodesIsFitted();
    void fitOfPoorModels_data();
    void fitOfPoorModels();
    void nodeUponNode();
    void placesNearZeroHaveNoSign();
};

void TestCanvasGestures::unsteadyClickMovesNothing_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.25, 4.0, 12.0, 25.0, 90.0, 200.0}) {
        QTest::addRow("%g pixels to a metre", scale) << scale;
    }
}

void TestCanvasGestures::unsteadyClickMovesNothing()
{
    QFETCH(double, scale);
    Stage stage;
    lookAt(stage, "N4", scale);
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(1, -2));
    stage.moveMouse(from + QPoint(-2, 1));
    stage.release(from + QPoint(2, 2));
    QVERIFY(stage.grip("N4")->isSelected());
    QCOMPARE(stage.grip("N4")->pos(), QPointF(12, -8));
    QCOMPARE(stage.document.undoStack().count(), 0);
}

void TestCanvasGestures::jerkAsideLeavesTheOtherCoordinate_data()
{
    unsteadyClickMovesNothing_data();
}

void TestCanvasGestures::jerkAsideLeavesTheOtherCoordinate()
{
    QFETCH(double, scale);
    Stage stage;
    lookAt(stage, "N3", scale);
    const QPoint from = stage.pixelOf("N3");
    stage.press(from);
    stage.moveMouse(from + QPoint(2, -20));
    stage.release(from + QPoint(2, -60));
    QCOMPARE(stage.node("N3").x, 2.4);
    QVERIFY(stage.node("N3").y > 7.2);
    const QPoint next = stage.pixelOf("N3");
    const double y = stage.node("N3").y;
    stage.press(next);
    stage.release(next + QPoint(40, -2));
    QVERIFY(stage.node("N3").x > 2.4);
    QCOMPARE(stage.node("N3").y, y);
    QCOMPARE(stage.document.undoStack().count(), 2);
}

void TestCanvasGestures::dragToZeroLeavesNoSign()
{
    // Three tenths less three steps of a tenth are a little below zero.
    Stage stage;
    stage.document.setModel(
        modelOf({{QStringLiteral("A"), 0.3, 0.3}, {QStringLiteral("B"), 10, 0}}), QString());
    lookAt(stage, "A", 12);
    const QPoint from = stage.pixelOf("A");
    stage.press(from);
    stage.release(from + QPoint(-4, 4));
    QCOMPARE(stage.node("A").x, 0.0);
    QCOMPARE(stage.node("A").y, 0.0);
    QVERIFY(!std::signbit(stage.node("A").x));
    QVERIFY(!std::signbit(stage.node("A").y));
}

void TestCanvasGestures::dragOutOfTheWindow()
{
    Stage stage;
    const QPoint from = stage.pixelOf("N6");
    const QPoint to = QPoint(stage.canvas.width() + 60, from.y());
    stage.press(from);
    // A window with a button down gets all moves, wherever the mouse is.
    QTest::mouseMove(stage.canvas.windowHandle(), to);
    const double there = stage.canvas.mapToScene(to).x();
    QVERIFY(std::abs(stage.grip("N6")->pos().x() - there) < 0.2);
    QTest::mouseRelease(stage.canvas.windowHandle(), Qt::LeftButton, {}, to);
    QCOMPARE(stage.document.undoStack().count(), 1);
    QVERIFY(std::abs(stage.node("N6").x - there) < 0.2);
    QCOMPARE(stage.node("N6").y, 7.0);
    QCOMPARE(stage.item("C2")->axis().p2(), stage.grip("N6")->pos());
    QCOMPARE(stage.canvas.scene()->mouseGrabberItem(), nullptr);
}

void TestCanvasGestures::focusIsLostDuringADrag()
{
    Stage stage;
    QWidget other;
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(0, -20));
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    // Nothing is written before the button is up, wherever the keys go.
    QCOMPARE(stage.document.undoStack().count(), 0);
    other.hide();
    stage.moveMouse(from + QPoint(0, -30));
    stage.release(from + QPoint(0, -40));
    QCOMPARE(stage.document.undoStack().count(), 1);
    QVERIFY(std::abs(stage.node("N4").y - (8 + 40 / stage.canvas.transform().m11())) < 0.1);
    QCOMPARE(stage.node("N4").x, 12.0);
}

void TestCanvasGestures::panDuringADrag()
{
    // The right button goes down while the left one drags, and the left one is the first up.
    Stage stage;
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(0, -30));
    stage.press(from + QPoint(0, -30), Qt::RightButton);
    stage.release(from + QPoint(0, -30), Qt::LeftButton);
    QCOMPARE(stage.document.undoStack().count(), 1);
    QCOMPARE(stage.canvas.scene()->mouseGrabberItem(), nullptr);
    const double y = stage.node("N4").y;
    QVERIFY(y > 8.5);
    const QPointF center = stage.canvas.getCenter();
    stage.release(from + QPoint(20, -30), Qt::RightButton);
    QVERIFY(stage.canvas.getCenter() != center);
    QCOMPARE(stage.document.undoStack().count(), 1);
    QCOMPARE(stage.node("N4").y, y);
    // The next click is for what is under the mouse.
    stage.click(stage.pixelOn("C1"));
    QCOMPARE(stage.selected(), QVector<int>{stage.member("C1")});
    QCOMPARE(stage.document.undoStack().count(), 1);
}

void TestCanvasGestures::panDuringARubberBand()
{
    Stage stage;
    const QPoint topLeft = stage.pixelOf("N2") + QPoint(-30, -15);
    const QPoint bottomRight = stage.pixelOf("N1") + QPoint(15, 20);
    stage.press(topLeft);
    stage.moveMouse(topLeft + QPoint(20, 40));
    stage.moveMouse(bottomRight);
    stage.press(bottomRight, Qt::RightButton);
    stage.release(bottomRight, Qt::LeftButton);
    stage.release(bottomRight, Qt::RightButton);
    // Whenever the band goes, what it holds counts.
    stage.moveMouse(bottomRight + QPoint(3, 3));
    stage.moveMouse(bottomRight + QPoint(9, 3));
    QVERIFY(stage.canvas.rubberBandRect().isNull());
    QVERIFY(stage.item("C1")->isSelected());
    QVERIFY(stage.selected().contains(stage.member("C1")));
    for (const MemberItem* item : stage.canvas.memberItems()) {
        QCOMPARE(stage.selected().contains(item->index()), item->isSelected());
    }
}

void TestCanvasGestures::panShowsItsHandOverANode()
{
    Stage stage;
    const auto shape = [&stage] { return stage.canvas.viewport()->cursor().shape(); };
    const QPoint node = stage.pixelOf("N4");
    const QPoint empty = stage.pixelOn("C1", 0.5) + QPoint(80, 0);
    for (const QPoint& pos : {node, empty}) {
        stage.moveMouse(node);
        QCOMPARE(shape(), Qt::SizeAllCursor);
        stage.press(pos, Qt::RightButton);
        QCOMPARE(shape(), Qt::ClosedHandCursor);
        stage.release(pos, Qt::RightButton);
        stage.moveMouse(empty);
        QCOMPARE(shape(), Qt::ArrowCursor);
    }
}

void TestCanvasGestures::otherModelWithTheSameNodesIsFitted()
{
    Stage stage;
    FrameModel model = stage.document.model();
    for (Node& node : model.nodes) {
        node.x += 1000;
    }
    stage.document.setModel(model, QString());
    QVERIFY(showsAllNodes(stage));
    // A change of the same model leaves the view alone, as does a step back.
    const QPointF center = stage.canvas.getCenter();
    QVERIFY(stage.document.moveNodes({{3, 2000, 8}}).isEmpty());
    QCOMPARE(stage.canvas.getCenter(), center);
    stage.document.undoStack().undo();
    QCOMPARE(stage.canvas.getCenter(), center);
}

void TestCanvasGestures::fitOfPoorModels_data()
{
    const auto node = [](const char* name, double x, double y) {
        return Node{QString::fromLatin1(name), x, y};
    };
    QTest::addColumn<std::vector<Node>>("nodes");
    using Nodes = std::vector<Node>;
    QTest::newRow("one node") << Nodes{node("A", 3, 4)};
    QTest::newRow("two at one place") << Nodes{node("A", 3, 4), node("B", 3, 4)};
    QTest::newRow("a level line") << Nodes{node("A", 0, 5), node("B", 30, 5)};
    QTest::newRow("an upright line") << Nodes{node("A", 5, 0), node("B", 5, 30)};
    QTest::newRow("a millimetre") << Nodes{node("A", 0, 0), node("B", 0.001, 0)};
    QTest::newRow("a thousand kilometres") << Nodes{node("A", 0, 0), node("B", 1e6, 0)};
    QTest::newRow("in the coordinates of the country")
        << Nodes{node("A", 4512345, 5412345), node("B", 4512365, 5412350)};
}

void TestCanvasGestures::fitOfPoorModels()
{
    QFETCH(std::vector<Node>, nodes);
    Stage stage;
    stage.document.setModel(modelOf(nodes), QString());
    const auto check = [&stage] {
        QVERIFY(stage.canvas.transform().isInvertible());
        QVERIFY(showsAllNodes(stage));
        // The grips are seen, at their size.
        const QRect place(stage.pixelOf("A") - QPoint(4, 4), QSize(9, 9));
        QVERIFY(countPixels(stage.shot(), place, Qt::red) > 10);
    };
    check();
    stage.turnWheel(QPoint(10, 10), 120);
    stage.canvas.fitToWindow();
    check();
}

void TestCanvasGestures::nodeUponNode()
{
    Stage stage;
    stage.document.setModel(modelWith([](Member& member) {
                                member.lineLoad = 5.0;
                                member.support = Support::Fixed;
                                member.hingeStart = true;
                                member.bedded = true;
                            }),
                            QString());
    QVERIFY(stage.document.moveNodes({{1, 0, 0}}).isEmpty());
    QCOMPARE(stage.item("M")->axis().length(), 0.0);
    QVERIFY(countPixels(stage.shot(), stage.canvas.rect(), Qt::red) > 10);
    stage.document.selection().set({0});
    QVERIFY(!stage.shot().isNull());
    // They come apart again.
    const QPoint from = stage.pixelOf("A");
    stage.press(from);
    stage.release(from + QPoint(60, 0));
    QCOMPARE(stage.document.undoStack().count(), 2);
    QVERIFY(stage.item("M")->axis().length() > 0.1);
    QVERIFY((stage.node("A").x == 0.0) != (stage.node("B").x == 0.0));
}

void TestCanvasGestures::placesNearZeroHaveNoSign()
{
    Stage stage;
    QSignalSpy pointed(&stage.canvas, &Canvas::pointedAt);
    stage.canvas.setTransform(QTransform::fromScale(1e5, 1e5));
    stage.canvas.setCenter(QPointF(0, 0), false);
    const QPoint zero = stage.canvas.mapFromScene(QPointF(0, 0));
    stage.moveMouse(zero + QPoint(-30, 30));
    QCOMPARE(pointed.last().first().toString(), QStringLiteral("x 0.000 m   y 0.000 m"));
    stage.moveMouse(zero + QPoint(-200, 200));
    QCOMPARE(pointed.last().first().toString(), QStringLiteral("x -0.002 m   y -0.002 m"));
}

QTEST_MAIN(TestCanvasGestures)
#include "tst_canvas_gestures.moc"
