#include "examples/frame_editor/canvas_overview.h"
#include "examples/frame_editor/canvas_symbols.h"
#include "examples/frame_editor/member_list.h"
#include "tests/examples/canvas_stage.h"
#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <QGraphicsScene>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QUndoStack>

#include <cmath>

using namespace frame_editor;

Q_DECLARE_METATYPE(Support)
Q_DECLARE_METATYPE(LoadDirection)

class TestCanvas : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheModelUpright();
    void bandsAreAsDeepAsTheirSections();
    void memberWithoutSection();
    void emptyModel();

    void dragIsOneStep();
    void membersFollowDuringTheDrag();
    void dragOfTwoNodesIsOneStep();
    void dragSnaps_data();
    void dragSnaps();
    void dragBackIsNoStep();
    void escapeGivesTheDragUp();
    void undoDuringADrag();

    void clickSelects();
    void clickOnNothingClears();
    void nodesLeaveTheSelectionOfMembers();
    void rubberBandSelectsOnce();
    void selectionComesFromTheList();
    void selectedMembersShowIt();
    void membersAreNotDragged();

    void fitShowsAll();
    void fitFollowsTheWindowUntilMoved();
    void otherModelIsFitted();
    void titleIsTheFile();
    void elevationsRunUpwards();
    void pointedAt();
    void unitsOfTheSettings();

    void overviewIsLinked();
    void overviewHasNoGrips();
    void clickInTheOverviewGoesThere();

    void supportSigns_data();
    void supportSigns();
    void clampIsAcrossTheMember_data();
    void clampIsAcrossTheMember();
    void loadVectors_data();
    void loadVectors();
    void loadArrows_data();
    void loadArrows();
    void loadsAreDrawnWithTheirValues();
    void beddingAndHinges();
    void labelsDoNotOverlap();
    void labelReadsAsItsText_data();
    void labelReadsAsItsText();
    void sameInARightToLeftLayout();
};

void TestCanvas::showsTheModelUpright()
{
    Stage stage;
    QVERIFY(stage.shown);
    QCOMPARE(stage.canvas.nodeGrips().size(), stage.document.model().nodes.size());
    QCOMPARE(stage.canvas.memberItems().size(), stage.document.model().members.size());
    // The ridge is above the eaves, these above the ground, and x runs to the right.
    QVERIFY(stage.pixelOf("N4").y() < stage.pixelOf("N2").y());
    QVERIFY(stage.pixelOf("N2").y() < stage.pixelOf("N1").y());
    QVERIFY(stage.pixelOf("N1").x() < stage.pixelOf("N8").x());
    QCOMPARE(stage.grip("N4")->pos(), QPointF(12, -8));
    QCOMPARE(stage.item("R2")->axis(), QLineF(2.4, -7.2, 12, -8));
}

void TestCanvas::bandsAreAsDeepAsTheirSections()
{
    Stage stage;
    QCOMPARE(stage.item("C1")->visibleDepth(), 0.3);
    // Turned by a right angle the post shows the width of its HEA 160.
    QCOMPARE(stage.item("P1")->visibleDepth(), 0.16);
    const double scale = stage.canvas.transform().m11();
    const QImage image = stage.shot();
    const QPoint middle = stage.pixelOn("C1", 0.5);
    int width = 0;
    for (int x = middle.x() - 40; x < middle.x() + 40; ++x) {
        width += countPixels(image, QRect(x, middle.y() - 25, 1, 1), QColor(150, 168, 189));
    }
    QVERIFY2(std::abs(width - 0.3 * scale) <= 3, qPrintable(QString::number(width)));
}

void TestCanvas::memberWithoutSection()
{
    Stage stage;
    stage.document.setModel(
        modelWith([](Member& member) { member.section = QStringLiteral("unknown"); }), QString());
    QCOMPARE(stage.item("M")->visibleDepth(), 0.0);
    stage.click(stage.pixelOn("M"));
    QCOMPARE(stage.selected(), QVector<int>{0});
    QVERIFY(!stage.shot().isNull());
}

void TestCanvas::emptyModel()
{
    Stage stage;
    stage.document.selection().set({1, 2});
    stage.document.setModel(FrameModel(), QString());
    QCOMPARE(stage.canvas.nodeGrips().size(), std::size_t(0));
    QCOMPARE(stage.canvas.memberItems().size(), std::size_t(0));
    QVERIFY(std::isfinite(stage.canvas.transform().m11()));
    stage.click(QPoint(200, 200));
    QVERIFY(!stage.shot().isNull());
    QCOMPARE(stage.document.undoStack().count(), 0);
}

void TestCanvas::dragIsOneStep()
{
    Stage stage;
    QSignalSpy changed(&stage.document, &Document::changed);
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(10, -10));
    stage.moveMouse(from + QPoint(30, -20));
    QCOMPARE(stage.document.undoStack().count(), 0);
    QCOMPARE(stage.node("N4").x, 12.0);
    stage.release(from + QPoint(40, -30));
    QCOMPARE(stage.document.undoStack().count(), 1);
    QCOMPARE(changed.count(), 1);
    const double scale = stage.canvas.transform().m11();
    QVERIFY(std::abs(stage.node("N4").x - (12 + 40 / scale)) < 0.1);
    QVERIFY(std::abs(stage.node("N4").y - (8 + 30 / scale)) < 0.1);
    QCOMPARE(stage.grip("N4")->pos(), Canvas::toScene(stage.node("N4").x, stage.node("N4").y));
    QVERIFY(stage.document.isModified());

    stage.document.undoStack().undo();
    QCOMPARE(stage.node("N4").x, 12.0);
    QCOMPARE(stage.node("N4").y, 8.0);
    QCOMPARE(stage.grip("N4")->pos(), QPointF(12, -8));
    QCOMPARE(stage.item("R2")->axis(), QLineF(2.4, -7.2, 12, -8));
    QVERIFY(!stage.document.isModified());
    stage.document.undoStack().redo();
    QCOMPARE(stage.item("R2")->axis().p2(), stage.grip("N4")->pos());
}

void TestCanvas::membersFollowDuringTheDrag()
{
    Stage stage;
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(20, -30));
    const QPointF pos = stage.grip("N4")->pos();
    QVERIFY(pos != QPointF(12, -8));
    QCOMPARE(stage.item("R2")->axis(), QLineF(QPointF(2.4, -7.2), pos));
    QCOMPARE(stage.item("R3")->axis(), QLineF(pos, QPointF(21.6, -7.2)));
    QCOMPARE(stage.item("P1")->axis(), QLineF(QPointF(12, 0), pos));
    QCOMPARE(stage.item("C1")->axis(), QLineF(0, 0, 0, -7));
    stage.release(from + QPoint(20, -30));
    QCOMPARE(stage.item("R2")->axis(), QLineF(QPointF(2.4, -7.2), pos));
}

void TestCanvas::dragOfTwoNodesIsOneStep()
{
    Stage stage;
    stage.click(stage.pixelOf("N3"));
    stage.click(stage.pixelOf("N5"), Qt::ControlModifier);
    const QPoint from = stage.pixelOf("N5");
    stage.press(from);
    stage.moveMouse(from + QPoint(0, -15));
    stage.release(from + QPoint(0, -30));
    QCOMPARE(stage.document.undoStack().count(), 1);
    QVERIFY(stage.node("N3").y > 7.5);
    QCOMPARE(stage.node("N3").y, stage.node("N5").y);
    QCOMPARE(stage.node("N3").x, 2.4);
    QCOMPARE(stage.node("N5").x, 21.6);
    QCOMPARE(stage.node("N4").y, 8.0);
    stage.document.undoStack().undo();
    QCOMPARE(stage.node("N3").y, 7.2);
    QCOMPARE(stage.node("N5").y, 7.2);
}

void TestCanvas::dragSnaps_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    // N3 is at (2.4, 7.2).
    QTest::newRow("one jerk aside leaves the other coordinate")
        << 25.0 << QPoint(1, -30) << 2.4 << 8.4;
    QTest::newRow("five centimetres") << 25.0 << QPoint(4, -6) << 2.55 << 7.45;
    QTest::newRow("one centimetre") << 200.0 << QPoint(30, 10) << 2.55 << 7.15;
    QTest::newRow("ten centimetres") << 12.0 << QPoint(-12, 6) << 1.4 << 6.7;
    QTest::newRow("half metres") << 4.0 << QPoint(8, 0) << 4.4 << 7.2;
    QTest::newRow("metres") << 1.25 << QPoint(10, 5) << 10.4 << 3.2;
}

void TestCanvas::dragSnaps()
{
    QFETCH(double, scale);
    QFETCH(QPoint, way);
    QFETCH(double, x);
    QFETCH(double, y);
    Stage stage;
    stage.canvas.setTransform(QTransform::fromScale(scale, scale));
    stage.canvas.setCenter(QPointF(2.4, -7.2), false);
    const QPoint from = stage.pixelOf("N3");
    // Straight from the grip, so that the drag does not begin beside its middle.
    stage.press(from);
    stage.moveMouse(from + way / 2);
    stage.release(from + way);
    // Half of a step to either side: where the grip was caught is not where it is.
    QVERIFY2(std::abs(stage.node("N3").x - x) < 1.01 * std::max(0.05, 1.0 / scale) &&
                 std::abs(stage.node("N3").y - y) < 1.01 * std::max(0.05, 1.0 / scale),
             qPrintable(QStringLiteral("%1, %2").arg(stage.node("N3").x).arg(stage.node("N3").y)));
    const double step = scale > 100  ? 0.01
                        : scale > 20 ? 0.05
                        : scale > 10 ? 0.1
                        : scale > 2  ? 0.5
                                     : 1.0;
    for (const double steps :
         {(stage.node("N3").x - 2.4) / step, (stage.node("N3").y - 7.2) / step}) {
        QVERIFY2(std::abs(steps - std::round(steps)) < 1e-6, qPrintable(QString::number(steps)));
    }
    // No dust of binary fractions.
    QCOMPARE(QString::number(stage.node("N3").x, 'g', 10).toDouble() == stage.node("N3").x, true);
    QCOMPARE(QString::number(stage.node("N3").y, 'g', 10).toDouble() == stage.node("N3").y, true);
}

void TestCanvas::dragBackIsNoStep()
{
    Stage stage;
    QSignalSpy changed(&stage.document, &Document::changed);
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(30, -20));
    stage.moveMouse(from);
    stage.release(from);
    QCOMPARE(stage.document.undoStack().count(), 0);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(stage.grip("N4")->pos(), QPointF(12, -8));
}

void TestCanvas::escapeGivesTheDragUp()
{
    Stage stage;
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(30, -20));
    QVERIFY(stage.grip("N4")->pos() != QPointF(12, -8));
    QTest::keyClick(&stage.canvas, Qt::Key_Escape);
    QCOMPARE(stage.grip("N4")->pos(), QPointF(12, -8));
    QCOMPARE(stage.item("R2")->axis(), QLineF(2.4, -7.2, 12, -8));
    stage.release(from + QPoint(60, -40));
    QCOMPARE(stage.document.undoStack().count(), 0);
    QCOMPARE(stage.grip("N4")->pos(), QPointF(12, -8));
    // The next drag works as ever.
    stage.press(from);
    stage.moveMouse(from + QPoint(10, -10));
    stage.release(from + QPoint(30, -20));
    QCOMPARE(stage.document.undoStack().count(), 1);
}

void TestCanvas::undoDuringADrag()
{
    Stage stage;
    QVERIFY(stage.document.moveNodes({{stage.document.model().findNode("N2"), 0, 6}}).isEmpty());
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(30, -20));
    stage.document.undoStack().undo();
    QCOMPARE(stage.grip("N4")->pos(), QPointF(12, -8));
    QCOMPARE(stage.grip("N2")->pos(), QPointF(0, -7));
    stage.release(from);
    QCOMPARE(stage.document.undoStack().count(), 1);
    QCOMPARE(stage.document.undoStack().index(), 0);
}

void TestCanvas::clickSelects()
{
    Stage stage;
    QSignalSpy changed(&stage.document, &Document::selectionChanged);
    stage.click(stage.pixelOn("C1"));
    QCOMPARE(stage.selected(), QVector<int>{stage.member("C1")});
    QCOMPARE(changed.count(), 1);
    stage.click(stage.pixelOn("B1"));
    QCOMPARE(stage.selected(), QVector<int>{stage.member("B1")});
    stage.click(stage.pixelOn("C2"), Qt::ControlModifier);
    QCOMPARE(stage.selected(), (QVector<int>{stage.member("C2"), stage.member("B1")}));
    stage.click(stage.pixelOn("B1"), Qt::ControlModifier);
    QCOMPARE(stage.selected(), QVector<int>{stage.member("C2")});
    QCOMPARE(stage.document.undoStack().count(), 0);
}

void TestCanvas::clickOnNothingClears()
{
    Stage stage;
    stage.document.selection().set({1, 2});
    stage.click(stage.pixelOn("C1", 0.5) + QPoint(80, 0));
    QCOMPARE(stage.selected(), QVector<int>());
}

void TestCanvas::nodesLeaveTheSelectionOfMembers()
{
    Stage stage;
    stage.document.selection().set({1, 2});
    QSignalSpy changed(&stage.document, &Document::selectionChanged);
    stage.click(stage.pixelOf("N4"));
    QVERIFY(stage.grip("N4")->isSelected());
    QCOMPARE(stage.selected(), (QVector<int>{1, 2}));
    QVERIFY(stage.canvas.memberItems()[1]->isSelected());
    const QPoint from = stage.pixelOf("N3");
    stage.press(from);
    stage.moveMouse(from + QPoint(0, -10));
    stage.release(from + QPoint(0, -20));
    QCOMPARE(stage.document.undoStack().count(), 1);
    QCOMPARE(stage.selected(), (QVector<int>{1, 2}));
    QVERIFY(stage.canvas.memberItems()[1]->isSelected());
    QCOMPARE(changed.count(), 0);
    // A member picked together with nodes counts.
    stage.click(stage.pixelOn("C1"));
    QCOMPARE(stage.selected(), QVector<int>{stage.member("C1")});
}

void TestCanvas::rubberBandSelectsOnce()
{
    Stage stage;
    stage.document.selection().set({stage.member("T1")});
    QSignalSpy changed(&stage.document, &Document::selectionChanged);
    // About the left column, touching what meets it.
    const QPoint topLeft = stage.pixelOf("N2") + QPoint(-30, -15);
    const QPoint bottomRight = stage.pixelOf("N1") + QPoint(15, 20);
    stage.press(topLeft);
    QCOMPARE(stage.selected(), QVector<int>());
    stage.moveMouse(topLeft + QPoint(20, 40));
    stage.moveMouse(topLeft + QPoint(40, 90));
    stage.moveMouse(bottomRight);
    QCOMPARE(changed.count(), 1);
    QVERIFY(stage.item("C1")->isSelected());
    stage.release(bottomRight);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(stage.selected(), (QVector<int>{stage.member("C1"), stage.member("R1"),
                                             stage.member("B1"), stage.member("T1")}));
    QCOMPARE(stage.document.undoStack().count(), 0);
}

void TestCanvas::selectionComesFromTheList()
{
    Stage stage;
    MemberList list(stage.document, nullptr);
    list.item(stage.member("R2"))->setSelected(true);
    list.item(stage.member("R3"))->setSelected(true);
    QVERIFY(stage.item("R2")->isSelected());
    QVERIFY(stage.item("R3")->isSelected());
    QVERIFY(!stage.item("C1")->isSelected());
    stage.click(stage.pixelOn("C1"));
    QVERIFY(list.item(stage.member("C1"))->isSelected());
    QVERIFY(!list.item(stage.member("R2"))->isSelected());
    QCOMPARE(list.selectedItems().size(), 1);
}

void TestCanvas::selectedMembersShowIt()
{
    Stage stage;
    const QRect about(stage.pixelOn("C1", 0.5) - QPoint(3, 3), QSize(7, 7));
    const QColor orange(255, 186, 82);
    QCOMPARE(countPixels(stage.shot(), about, orange), 0);
    stage.document.selection().set({stage.member("C1")});
    QVERIFY(countPixels(stage.shot(), about, orange) > 10);
}

void TestCanvas::membersAreNotDragged()
{
    Stage stage;
    const QPoint from = stage.pixelOn("C1");
    const QLineF axis = stage.item("C1")->axis();
    stage.press(from);
    stage.moveMouse(from + QPoint(20, 20));
    stage.release(from + QPoint(40, 40));
    QCOMPARE(stage.item("C1")->pos(), QPointF());
    QCOMPARE(stage.item("C1")->axis(), axis);
    QCOMPARE(stage.document.undoStack().count(), 0);
    QCOMPARE(stage.selected(), QVector<int>{stage.member("C1")});
}

void TestCanvas::fitShowsAll()
{
    Stage stage;
    const QRect inner = stage.canvas.viewport()->rect().adjusted(80, 80, -80, -80);
    for (const NodeGrip* grip : stage.canvas.nodeGrips()) {
        QVERIFY(inner.contains(stage.canvas.mapFromScene(grip->pos())));
    }
    QCOMPARE(stage.canvas.transform().m11(), stage.canvas.transform().m22());
    // It uses the width that there is.
    QVERIFY(stage.pixelOf("N7").x() - stage.pixelOf("N1").x() > 400);
}

void TestCanvas::fitFollowsTheWindowUntilMoved()
{
    Stage stage;
    stage.canvas.resize(700, 550);
    QCoreApplication::processEvents();
    QVERIFY(stage.pixelOf("N7").x() - stage.pixelOf("N1").x() > 500);
    stage.turnWheel(QPoint(100, 100), 120);
    const QTransform zoomed = stage.canvas.transform();
    stage.canvas.resize(600, 500);
    QCoreApplication::processEvents();
    QCOMPARE(stage.canvas.transform(), zoomed);
    stage.canvas.fitToWindow();
    QVERIFY(stage.canvas.transform() != zoomed);
    const QPointF center = stage.canvas.getCenter();
    stage.press(QPoint(300, 300), Qt::RightButton);
    stage.release(QPoint(320, 310), Qt::RightButton);
    QVERIFY(stage.canvas.getCenter() != center);
    const QTransform panned = stage.canvas.transform();
    stage.canvas.resize(700, 550);
    QCoreApplication::processEvents();
    QCOMPARE(stage.canvas.transform(), panned);
    // An edit does not move the view either.
    QVERIFY(stage.document.moveNodes({{3, 12, 12}}).isEmpty());
    QCOMPARE(stage.canvas.transform(), panned);
}

void TestCanvas::otherModelIsFitted()
{
    Stage stage;
    stage.turnWheel(QPoint(100, 100), 120);
    stage.document.open(multiStorey);
    QCOMPARE(stage.canvas.nodeGrips().size(), std::size_t(54));
    QCOMPARE(stage.canvas.memberItems().size(), std::size_t(96));
    for (const NodeGrip* grip : stage.canvas.nodeGrips()) {
        QVERIFY(stage.canvas.viewport()->rect().contains(stage.canvas.mapFromScene(grip->pos())));
    }
    stage.document.open(portalFrame);
    QCOMPARE(stage.canvas.nodeGrips().size(), std::size_t(9));
    QCOMPARE(stage.canvas.scene()->items().size(), 20);
}

void TestCanvas::titleIsTheFile()
{
    Stage stage;
    const QRect place(18, 16, 120, 20);
    const QImage named = stage.shot();
    stage.document.setModel(stage.document.model(), QString());
    const QImage unnamed = stage.shot();
    QVERIFY(countPixels(named, place, Qt::black) > 10);
    QVERIFY(named.copy(place) != unnamed.copy(place));
}

void TestCanvas::elevationsRunUpwards()
{
    Stage stage;
    const QImage image = stage.shot();
    const auto isMarked = [&](double elevation, int x) {
        const int y = stage.canvas.mapFromScene(Canvas::toScene(0, elevation)).y();
        return image.pixelColor(x, y) == QColor(Qt::black);
    };
    // At 17.5 pixels to a metre the marks lie one metre apart, the major ones five.
    for (const double elevation : {-5.0, 0.0, 5.0, 10.0, 15.0}) {
        QVERIFY2(isMarked(elevation, 7), qPrintable(QString::number(elevation)));
    }
    QVERIFY(isMarked(1, 2));
    QVERIFY(!isMarked(1, 7));
    QVERIFY(!isMarked(0.5, 2));
    // Labels of two digits have more ink, so the numbers grow upwards.
    const auto ink = [&](double elevation) {
        const int y = stage.canvas.mapFromScene(Canvas::toScene(0, elevation)).y();
        return countPixels(image, QRect(12, y - 6, 40, 13), Qt::black);
    };
    QVERIFY(ink(5) > 0);
    QVERIFY(ink(10) > ink(5));
    QVERIFY(ink(15) > ink(5));
    QVERIFY(ink(2.5) == 0);
}

void TestCanvas::pointedAt()
{
    Stage stage;
    QSignalSpy pointed(&stage.canvas, &Canvas::pointedAt);
    stage.moveMouse(stage.pixelOf("N4"));
    QVERIFY(pointed.count() > 0);
    QCOMPARE(pointed.last().first().toString(), QStringLiteral("N4   x 12.000 m   y 8.000 m"));
    const QPoint from = stage.pixelOf("N4");
    stage.press(from);
    stage.moveMouse(from + QPoint(0, -30));
    QVERIFY(pointed.last().first().toString().startsWith(QStringLiteral("N4   x 12.000 m   y 9.")));
    stage.release(from + QPoint(0, -30));
    stage.moveMouse(QPoint(300, 20));
    QVERIFY(pointed.last().first().toString().startsWith(QStringLiteral("x ")));
    stage.moveMouse(QPoint(-50, -50));
    QCOMPARE(pointed.last().first().toString(), QString());
}

void TestCanvas::unitsOfTheSettings()
{
    namespace units = zel::units::v1;
    const units::Context before = units::get_active_input_context();
    Stage stage;
    const QImage metric = stage.shot();
    QSignalSpy pointed(&stage.canvas, &Canvas::pointedAt);
    units::set_active_input_context(units::Context(8));
    const QImage imperial = stage.shot();
    stage.moveMouse(stage.pixelOf("N4"));
    units::set_active_input_context(before);
    QVERIFY(metric != imperial);
    QVERIFY(pointed.count() > 0);
    QVERIFY(!pointed.last().first().toString().contains(QStringLiteral("12.000 m")));
}

void TestCanvas::overviewIsLinked()
{
    Stage stage;
    CanvasOverview overview(stage.canvas, nullptr);
    overview.resize(200, 150);
    overview.move(720, 100);
    overview.show();
    QVERIFY(QTest::qWaitForWindowExposed(&overview));
    QCOMPARE(overview.scene(), stage.canvas.scene());
    QCOMPARE(overview.getCenter(), stage.canvas.getCenter());
    const QTransform scale = overview.transform();
    // All of the frame in the small window.
    QVERIFY(scale.m11() < stage.canvas.transform().m11() / 2);
    for (const NodeGrip* grip : stage.canvas.nodeGrips()) {
        QVERIFY(overview.viewport()->rect().contains(overview.mapFromScene(grip->pos())));
    }
    stage.turnWheel(QPoint(100, 100), 120);
    stage.press(QPoint(300, 300), Qt::RightButton);
    stage.release(QPoint(350, 320), Qt::RightButton);
    QCOMPARE(overview.getCenter(), stage.canvas.getCenter());
    QCOMPARE(overview.transform(), scale);
    // And back: panned in the overview, the canvas follows, each in its scale.
    const QTransform canvasScale = stage.canvas.transform();
    overview.setCenter(QPointF(3, -4), true);
    QCOMPARE(stage.canvas.getCenter(), QPointF(3, -4));
    QCOMPARE(stage.canvas.transform(), canvasScale);
}

void TestCanvas::overviewHasNoGrips()
{
    Stage stage;
    CanvasOverview overview(stage.canvas, nullptr);
    overview.resize(200, 150);
    const QImage image = overview.grab().toImage();
    QCOMPARE(countPixels(image, image.rect(), Qt::red), 0);
    QVERIFY(countPixels(image, image.rect(), QColor(142, 195, 176).darker(130)) > 50);
    QVERIFY(countPixels(stage.shot(), stage.canvas.rect(), Qt::red) > 50);
    // Nothing is moved or selected there.
    QVERIFY(!overview.isInteractive());
}

void TestCanvas::clickInTheOverviewGoesThere()
{
    Stage stage;
    CanvasOverview overview(stage.canvas, nullptr);
    overview.resize(200, 150);
    overview.move(720, 100);
    overview.show();
    QVERIFY(QTest::qWaitForWindowExposed(&overview));
    const QPoint pos = overview.mapFromScene(stage.grip("N6")->pos());
    QTest::mouseClick(overview.viewport(), Qt::LeftButton, {}, pos);
    const double pixel = overview.pixelSize().x();
    QVERIFY(QLineF(stage.canvas.getCenter(), stage.grip("N6")->pos()).length() <= 2 * pixel);
    QCOMPARE(overview.getCenter(), stage.canvas.getCenter());
    QCOMPARE(stage.selected(), QVector<int>());
}

void TestCanvas::supportSigns_data()
{
    QTest::addColumn<Support>("support");
    QTest::addColumn<int>("height");
    QTest::newRow("none") << Support::None << 0;
    QTest::newRow("fixed") << Support::Fixed << 8;
    QTest::newRow("pinned") << Support::Pinned << 22;
    QTest::newRow("roller") << Support::Roller << 26;
}

void TestCanvas::supportSigns()
{
    QFETCH(Support, support);
    QFETCH(int, height);
    const QImage image = drawn(
        [support](QPainter& painter) { drawSupport(painter, support, QLineF(100, 100, 100, 20)); });
    QVERIFY(!image.isNull());
    const QRect ink = inked(image);
    if (support == Support::None) {
        QVERIFY(ink.isNull());
        return;
    }
    // Below the node, a little to either side of it.
    QVERIFY(ink.top() >= 98 && ink.top() <= 101);
    QVERIFY2(qAbs(ink.height() - height) <= 3, qPrintable(QString::number(ink.height())));
    QVERIFY(ink.left() < 90 && ink.right() > 110 && ink.left() > 70 && ink.right() < 130);
}

void TestCanvas::clampIsAcrossTheMember_data()
{
    QTest::addColumn<QPointF>("way");
    QTest::addColumn<QRect>("ink");
    const QRect below(QPoint(-13, 0), QPoint(13, 6));
    const QRect behind(QPoint(-6, -13), QPoint(0, 13));
    QTest::newRow("column") << QPointF(0, -80) << below;
    QTest::newRow("hanging column") << QPointF(0, 80) << QRect(QPoint(-13, -6), QPoint(13, 0));
    QTest::newRow("beam to the right") << QPointF(80, 0) << behind;
    QTest::newRow("beam to the left") << QPointF(-80, 0) << QRect(QPoint(0, -13), QPoint(6, 13));
    QTest::newRow("rafter") << QPointF(80, -40) << behind;
    QTest::newRow("raking column") << QPointF(40, -80) << below;
    QTest::newRow("member without length") << QPointF(0, 0) << below;
}

void TestCanvas::clampIsAcrossTheMember()
{
    QFETCH(QPointF, way);
    QFETCH(QRect, ink);
    const QPointF node(100, 100);
    const QImage image = drawn([&](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        drawSupport(painter, Support::Fixed, QLineF(node, node + way));
    });
    QVERIFY(!image.isNull());
    const QRect actual = inked(image).translated(-100, -100);
    for (const int difference : {actual.left() - ink.left(), actual.right() - ink.right(),
                                 actual.top() - ink.top(), actual.bottom() - ink.bottom()}) {
        QVERIFY2(qAbs(difference) <= 2, qPrintable(QString::number(difference)));
    }
}

void TestCanvas::loadVectors_data()
{
    QTest::addColumn<QLineF>("axis");
    QTest::addColumn<LoadDirection>("direction");
    QTest::addColumn<bool>("against");
    QTest::addColumn<QPointF>("vector");
    const QLineF beam(0, 0, 100, 0);
    const QLineF column(0, 100, 0, 0); // from the foot upwards
    const QLineF slope(0, 0, 30, -40);
    QTest::newRow("vertical on a beam")
        << beam << LoadDirection::Vertical << false << QPointF(0, 1);
    QTest::newRow("lifting") << beam << LoadDirection::Vertical << true << QPointF(0, -1);
    QTest::newRow("vertical on a slope")
        << slope << LoadDirection::Vertical << false << QPointF(0, 1);
    QTest::newRow("snow on a slope") << slope << LoadDirection::Projected << false << QPointF(0, 1);
    QTest::newRow("normal on a beam") << beam << LoadDirection::Normal << false << QPointF(0, 1);
    QTest::newRow("wind on a column") << column << LoadDirection::Normal << false << QPointF(1, 0);
    QTest::newRow("suction on a column")
        << column << LoadDirection::Normal << true << QPointF(-1, 0);
    QTest::newRow("normal on a slope")
        << slope << LoadDirection::Normal << false << QPointF(0.8, 0.6);
    QTest::newRow("member without length")
        << QLineF(5, 5, 5, 5) << LoadDirection::Normal << false << QPointF(0, 1);
}

void TestCanvas::loadVectors()
{
    QFETCH(QLineF, axis);
    QFETCH(LoadDirection, direction);
    QFETCH(bool, against);
    QFETCH(QPointF, vector);
    LineLoadSign load;
    load.axis = axis;
    load.direction = direction;
    load.against = against;
    QCOMPARE(loadVector(load), vector);
}

void TestCanvas::loadArrows_data()
{
    QTest::addColumn<QLineF>("axis");
    QTest::addColumn<LoadDirection>("direction");
    QTest::addColumn<bool>("against");
    QTest::addColumn<QRect>("ink");
    // The member is 10 deep, so its faces are 5 off; arrows end 2 before them and are 30 long.
    const QLineF beam(40, 100, 160, 100);
    const QLineF column(100, 160, 100, 40);
    QTest::newRow("down on a beam")
        << beam << LoadDirection::Vertical << false << QRect(QPoint(38, 63), QPoint(162, 93));
    QTest::newRow("up from below a beam")
        << beam << LoadDirection::Vertical << true << QRect(QPoint(38, 107), QPoint(162, 137));
    QTest::newRow("wind from the left")
        << column << LoadDirection::Normal << false << QRect(QPoint(63, 38), QPoint(93, 162));
    QTest::newRow("along a column")
        << column << LoadDirection::Vertical << false << QRect(QPoint(110, 40), QPoint(114, 160));
    // The line is level with the arrows above the upper end.
    QTest::newRow("snow on a slope") << QLineF(40, 130, 160, 100) << LoadDirection::Projected
                                     << false << QRect(QPoint(38, 63), QPoint(162, 123));
    QTest::newRow("own weight on a slope") << QLineF(40, 130, 160, 100) << LoadDirection::Vertical
                                           << false << QRect(QPoint(38, 63), QPoint(162, 123));
}

void TestCanvas::loadArrows()
{
    QFETCH(QLineF, axis);
    QFETCH(LoadDirection, direction);
    QFETCH(bool, against);
    QFETCH(QRect, ink);
    LineLoadSign load;
    load.axis = axis;
    load.halfDepth = 5;
    load.direction = direction;
    load.against = against;
    load.height = 30;
    const QImage image =
        drawn([&load](QPainter& painter) { drawLineLoad(painter, load, painter.window()); });
    QVERIFY(!image.isNull());
    const QRect actual = inked(image);
    const auto isClose = [](int a, int b) { return qAbs(a - b) <= 4; };
    const bool alongAColumn = direction == LoadDirection::Vertical && axis.dx() == 0.0;
    QVERIFY2(isClose(actual.left(), ink.left()) && isClose(actual.right(), ink.right()) &&
                 (alongAColumn ||
                  (isClose(actual.top(), ink.top()) && isClose(actual.bottom(), ink.bottom()))),
             qPrintable(QStringLiteral("%1 %2 %3 %4")
                            .arg(actual.left())
                            .arg(actual.top())
                            .arg(actual.right())
                            .arg(actual.bottom())));
    // The line behind the arrows of snow is level, the other follows the slope.
    if (direction == LoadDirection::Projected) {
        QVERIFY(image.pixelColor(50, 63) != QColor(Qt::white) ||
                image.pixelColor(50, 62) != QColor(Qt::white));
    }
}

void TestCanvas::loadsAreDrawnWithTheirValues()
{
    Stage stage;
    const auto shotWith = [&stage](double load) {
        stage.document.setModel(modelWith([load](Member& member) { member.lineLoad = load; }),
                                QString());
        return stage.shot();
    };
    const QImage none = shotWith(0.0);
    const QImage down = shotWith(6.75);
    const QImage up = shotWith(-6.75);
    const QImage other = shotWith(6.8);
    const QPoint start = stage.pixelOf("A");
    const QPoint end = stage.pixelOf("B");
    const QRect above(start.x(), start.y() - 70, end.x() - start.x(), 60);
    const QRect below(start.x(), start.y() + 10, end.x() - start.x(), 60);
    QCOMPARE(countPixels(none, above, loadColour()), 0);
    QVERIFY(countPixels(down, above, loadColour()) > 200);
    QCOMPARE(countPixels(down, below, loadColour()), 0);
    QVERIFY(countPixels(up, below, loadColour()) > 200);
    QCOMPARE(countPixels(up, above, loadColour()), 0);
    // The same arrows, another value.
    QVERIFY(down != other);
}

void TestCanvas::beddingAndHinges()
{
    Stage stage;
    const auto shotWith = [&stage](const std::function<void(Member&)>& change) {
        stage.document.setModel(modelWith(change), QString());
        return stage.shot();
    };
    const QImage plain = shotWith([](Member&) {});
    const QImage bedded = shotWith([](Member& member) { member.bedded = true; });
    const QImage hingeStart = shotWith([](Member& member) { member.hingeStart = true; });
    const QImage hingeEnd = shotWith([](Member& member) { member.hingeEnd = true; });
    const QPoint start = stage.pixelOf("A");
    const QPoint end = stage.pixelOf("B");
    const QRect atStart(start + QPoint(6, -5), QSize(12, 11));
    const QRect atEnd(end + QPoint(-17, -5), QSize(12, 11));
    QVERIFY(plain.copy(atStart) != hingeStart.copy(atStart));
    QCOMPARE(plain.copy(atEnd), hingeStart.copy(atEnd));
    QVERIFY(plain.copy(atEnd) != hingeEnd.copy(atEnd));
    QCOMPARE(plain.copy(atStart), hingeEnd.copy(atStart));
    const QRect under(start + QPoint(20, 8), QSize(100, 16));
    QVERIFY(plain.copy(under) != bedded.copy(under));
}

void TestCanvas::labelsDoNotOverlap()
{
    const auto shotWith = [](int labels) {
        return drawn([labels](QPainter& painter) {
            LabelLayer layer(painter, painter.window());
            const LabelPlace place{QLineF(100, 100, 101, 100), false, false};
            for (int i = 0; i < labels; ++i) {
                layer.add(place, QStringLiteral("label"), Qt::black);
            }
        });
    };
    QVERIFY(!inked(shotWith(1)).isNull());
    QCOMPARE(shotWith(1), shotWith(2));
    // A line that is too short for a text along it gets none.
    const QImage none = drawn([](QPainter& painter) {
        LabelLayer(painter, painter.window())
            .add({QLineF(100, 100, 110, 100), false, true}, QStringLiteral("a long label"),
                 Qt::black);
    });
    QVERIFY(inked(none).isNull());
}

void TestCanvas::labelReadsAsItsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("number with unit") << QStringLiteral("4.50 kN/m") << Qt::LeftToRight;
    QTest::newRow("signed number") << QStringLiteral("-2.5 m") << Qt::LeftToRight;
    QTest::newRow("name with a mark behind it") << QStringLiteral("C1 *") << Qt::LeftToRight;
    QTest::newRow("Hebrew with a mark behind it")
        << QString::fromUtf8("\u05e2\u05de\u05d5\u05d3 B *") << Qt::RightToLeft;
}

void TestCanvas::labelReadsAsItsText()
{
    QFETCH(QString, text);
    QFETCH(Qt::LayoutDirection, direction);
    const auto shotIn = [&text](Qt::LayoutDirection window) {
        return drawn([&text, window](QPainter& painter) {
            painter.setLayoutDirection(window);
            LabelLayer(painter, painter.window())
                .add({QLineF(100, 100, 101, 100), false, false}, text, Qt::black);
        });
    };
    // Written by hand in its own direction.
    const QImage expected = drawn([&text, direction](QPainter& painter) {
        painter.save();
        QRectF box(QPointF(),
                   QFontMetricsF(painter.font(), painter.device()).size(Qt::TextSingleLine, text));
        box.moveCenter(QPointF());
        painter.translate(QPointF(100.5, 100));
        painter.fillRect(box, QColor(255, 255, 255, 150));
        painter.setPen(Qt::black);
        painter.setLayoutDirection(direction);
        painter.drawText(box, Qt::AlignCenter, text);
        painter.restore();
    });
    QVERIFY(!inked(expected).isNull());
    QCOMPARE(shotIn(Qt::LeftToRight), expected);
    QCOMPARE(shotIn(Qt::RightToLeft), expected);
}

void TestCanvas::sameInARightToLeftLayout()
{
    const auto restore = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    const auto picture = [](Qt::LayoutDirection direction) {
        QApplication::setLayoutDirection(direction);
        Stage stage;
        stage.document.setModel(modelWith([](Member& member) { member.lineLoad = 4.5; }),
                                QString());
        stage.canvas.fitToWindow();
        QCoreApplication::processEvents();
        return stage.shot();
    };
    const QImage expected = picture(Qt::LeftToRight);
    QVERIFY(countPixels(expected, expected.rect(), Qt::black) > 0);
    QCOMPARE(picture(Qt::RightToLeft), expected);
}

QTEST_MAIN(TestCanvas)
#include "tst_canvas.moc"
