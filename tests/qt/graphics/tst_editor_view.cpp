#include "qt/inc/graphics.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/view_stage.h"

#include <QGraphicsRectItem>
#include <QGraphicsSceneMouseEvent>
#include <QMimeData>
#include <QPointer>
#include <QScopeGuard>

#include <cmath>
#include <memory>

using namespace zel::qt::graphics;
using zel::test::EventCount;
using zel::test::ViewStage;

namespace {

constexpr double zoomIn = 1.15;
constexpr double zoomOut = 0.8695652173913044;
constexpr int notch = 120;

/// Writes down what a view notifies, in order.
class Log
{
public:
    explicit Log(EditorView& view)
    {
        view.mouseReleased.connect([this](QMouseEvent* event) {
            m_entries << QStringLiteral("released %1").arg(event->button());
        });
        view.mouseMoved.connect([this](QMouseEvent*) { m_entries << QStringLiteral("moved"); });
        view.centerChanged.connect([this](const QPointF& center) {
            m_entries << QStringLiteral("center");
            m_center = center;
        });
        view.zoomChanged.connect([this] { m_entries << QStringLiteral("zoom"); });
        view.resized.connect([this] { m_entries << QStringLiteral("resized"); });
    }

    QStringList take()
    {
        return std::exchange(m_entries, {});
    }
    [[nodiscard]] QPointF lastCenter() const
    {
        return m_center;
    }

private:
    QStringList m_entries;
    QPointF m_center;
};

/// Notes what reaches the scene, as an item that takes everything.
class Target : public QGraphicsRectItem
{
public:
    Target()
        : QGraphicsRectItem(-1000, -1000, 2000, 2000)
    {
        setAcceptDrops(true);
    }

    int presses = 0;
    int releases = 0;
    int moves = 0;
    int dragMoves = 0;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        ++presses;
        event->accept();
    }
    void mouseMoveEvent(QGraphicsSceneMouseEvent*) override
    {
        ++moves;
    }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent*) override
    {
        ++releases;
    }
    void dragMoveEvent(QGraphicsSceneDragDropEvent*) override
    {
        ++dragMoves;
    }
};

/// Opens what Qt calls.
struct OpenView : EditorView
{
    using EditorView::focusInEvent;
    using EditorView::focusOutEvent;
    using EditorView::mouseMoveEvent;
    using EditorView::mousePressEvent;
    using EditorView::mouseReleaseEvent;
    using EditorView::wheelEvent;
};

double scaleX(const QGraphicsView& view)
{
    return view.transform().m11();
}

double scaleY(const QGraphicsView& view)
{
    return view.transform().m22();
}

bool isClose(const QPointF& a, const QPointF& b, double tolerance)
{
    return std::abs(a.x() - b.x()) <= tolerance && std::abs(a.y() - b.y()) <= tolerance;
}

} // namespace

class EditorViewTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void freshView();
    void destroyingTheViewDestroysSceneAndItems();
    void setCenterNotifiesOnlyWhenTold();
    void pixelSize_data();
    void pixelSize();
    void settersDoNotRepaint();

    void wheelZoomsByOneStep_data();
    void wheelZoomsByOneStep();
    void wheelKeepsThePointUnderTheMouse_data();
    void wheelKeepsThePointUnderTheMouse();
    void wheelMovesTheCenterFromTheRecord();
    void wheelHasNoLimits();
    void disabledWheelDoesNothing_data();
    void disabledWheelDoesNothing();

    void rightButtonPans();
    void panStopsAtTheSceneRect();
    void panTakesItsEvents();
    void panRepaintsWhatIsSeen();
    void panInAFrame();
    void panInARightToLeftLayout();
    void panWaitsWhileTheMouseIsOutside();
    void otherButtonsDuringAPan();
    void disabledPanningReachesTheScene();
    void panningMayBeDisabledDuringAPan();
    void otherButtonsReachTheScene();
    void moveIsToldBehindTheScene();
    void leftDragDrawsARubberBand();

    void moveRepaintsOnlyForWhatFollowsTheMouse_data();
    void moveRepaintsOnlyForWhatFollowsTheMouse();
    void enterAndLeaveRepaint();
    void customCursorHidesTheSystemCursor();
    void customCursorWaitsForTheNextEntry();
    void customCursorStaysHiddenBehindAPan();
    void panRestoresTheSavedCursor();

    void resizeKeepsTheCenter();
    void resizeWithoutZoomingLeavesTheCenter();
    void resizeGoesByZoomingNotByPanning();

    void linkFollowsByMask_data();
    void linkFollowsByMask();
    void linkTakesOverNothingAtOnce();
    void linkIsSilent();
    void linkHearsPanZoomAndResize();
    void linkDoesNotHearSetCenterWithoutNotify();
    void linkWithMaskZeroRepaintsTheBackground();
    void linksBothWaysDoNotGoInCircles();
    void linksInARowEndAtTheFirst();
    void linkIsDeafWhileItActs();
    void linkDiesWithTheFollowedView();
    void acquireScaleOfMirroredView();
    void acquireFromAViewBeyondPrecision();

    void dragMovesReachTheScene();
    void focusReachesTheScene();
    void eventsWithoutASceneAreHarmless();
};

void EditorViewTest::freshView()
{
    EditorView view;
    QCOMPARE(view.parent(), nullptr);
    QCOMPARE(view.getCenter(), QPointF(50, 0));
    QVERIFY(view.scene() != nullptr);
    QCOMPARE(view.scene()->parent(), &view);
    QCOMPARE(view.scene()->sceneRect(), QRectF(-200, -200, 600, 600));
    QCOMPARE(view.scene()->itemIndexMethod(), QGraphicsScene::NoIndex);
    QCOMPARE(view.scene()->backgroundBrush().style(), Qt::NoBrush);
    QCOMPARE(view.cacheMode(), QGraphicsView::CacheNone);
    QCOMPARE(view.viewportUpdateMode(), QGraphicsView::FullViewportUpdate);
    QVERIFY(view.renderHints().testFlag(QPainter::Antialiasing));
    QCOMPARE(view.dragMode(), QGraphicsView::RubberBandDrag);
    QCOMPARE(view.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(view.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(view.testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(view.transform(), QTransform());
    QCOMPARE(view.pixelSize(), QPointF(1, 1));
    QCOMPARE(view.metaObject(), &QGraphicsView::staticMetaObject);
}

void EditorViewTest::destroyingTheViewDestroysSceneAndItems()
{
    struct Item : QGraphicsRectItem
    {
        explicit Item(int& count)
            : m_count(count)
        {
            ++m_count;
        }
        ~Item() override
        {
            --m_count;
        }
        int& m_count;
    };
    int alive = 0;
    auto view = std::make_unique<EditorView>();
    const QPointer<QGraphicsScene> scene = view->scene();
    view->scene()->addItem(new Item(alive));
    view->scene()->addItem(new Item(alive));
    QCOMPARE(alive, 2);
    view.reset();
    QVERIFY(scene.isNull());
    QCOMPARE(alive, 0);
}

void EditorViewTest::setCenterNotifiesOnlyWhenTold()
{
    EditorView view;
    ViewStage stage(view);
    Log log(view);
    view.setCenter(QPointF(-30, 70), false);
    QCOMPARE(view.getCenter(), QPointF(-30, 70));
    QCOMPARE(view.mapToScene(200, 150), QPointF(-30, 70));
    QCOMPARE(log.take(), QStringList());
    view.setCenter(QPointF(500.25, -11), true);
    QCOMPARE(view.getCenter(), QPointF(500.25, -11));
    QCOMPARE(view.mapToScene(200, 150), QPointF(500, -11));
    QCOMPARE(log.take(), QStringList{"center"});
    QCOMPARE(log.lastCenter(), QPointF(500.25, -11));
    // The same centre again is told again.
    view.setCenter(view.getCenter(), true);
    QCOMPARE(log.take(), QStringList{"center"});
    QCOMPARE(view.getCenter(), QPointF(500.25, -11));
    // The record is what was asked for, also where the scene rectangle forbids to look there.
    view.setCenter(QPointF(1e6, 0), false);
    QCOMPARE(view.getCenter(), QPointF(1e6, 0));
    QVERIFY(view.mapToScene(200, 150).x() < 1e5);
}

void EditorViewTest::pixelSize_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::newRow("plain") << 1.0 << 1.0;
    QTest::newRow("zoomed in") << 4.0 << 4.0;
    QTest::newRow("zoomed out") << 0.125 << 0.125;
    QTest::newRow("per axis") << 2.0 << 0.5;
    QTest::newRow("y upwards") << 2.0 << -2.0;
}

void EditorViewTest::pixelSize()
{
    QFETCH(double, x);
    QFETCH(double, y);
    EditorView view;
    view.scale(x, y);
    QCOMPARE(view.pixelSize(), QPointF(1 / x, 1 / y));
}

void EditorViewTest::settersDoNotRepaint()
{
    EditorView view;
    ViewStage stage(view);
    QVERIFY(stage.shown());
    Log log(view);
    EventCount paints(view.viewport(), QEvent::Paint);
    view.setRulers(true, true);
    view.setTitle(QStringLiteral("title"));
    view.setDrawCrossHairs(false);
    view.setDrawCustomCursor(true);
    view.setPanningEnabled(false);
    view.setZoomingEnabled(false);
    QCoreApplication::processEvents();
    QCOMPARE(paints.take(), 0);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);
    view.viewport()->update();
    QCoreApplication::processEvents();
    QCOMPARE(paints.take(), 1);
}

void EditorViewTest::wheelZoomsByOneStep_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<double>("factor");
    QTest::newRow("one notch forwards") << QPoint(0, notch) << zoomIn;
    QTest::newRow("one notch back") << QPoint(0, -notch) << zoomOut;
    QTest::newRow("no delta") << QPoint(0, 0) << zoomOut;
    QTest::newRow("least delta") << QPoint(0, 1) << zoomIn;
    QTest::newRow("least delta back") << QPoint(0, -1) << zoomOut;
    QTest::newRow("five notches at once") << QPoint(0, 5 * notch) << zoomIn;
    QTest::newRow("wheel to the side") << QPoint(notch, 0) << zoomIn;
    QTest::newRow("wheel to the other side") << QPoint(-notch, 0) << zoomOut;
    QTest::newRow("larger component is the vertical one") << QPoint(-40, 50) << zoomIn;
    QTest::newRow("larger component is the horizontal one") << QPoint(-50, 40) << zoomOut;
    QTest::newRow("vertical one of equals") << QPoint(-40, 40) << zoomIn;
    QTest::newRow("vertical one of equals, back") << QPoint(40, -40) << zoomOut;
}

void EditorViewTest::wheelZoomsByOneStep()
{
    QFETCH(QPoint, angle);
    QFETCH(double, factor);
    EditorView view;
    ViewStage stage(view);
    Log log(view);
    stage.turnWheel(QPoint(200, 150), angle);
    QCOMPARE(scaleX(view), factor);
    QCOMPARE(scaleY(view), factor);
    QCOMPARE(log.take(), (QStringList{"center", "zoom"}));
    QCOMPARE(log.lastCenter(), view.getCenter());
}

void EditorViewTest::wheelKeepsThePointUnderTheMouse_data()
{
    QTest::addColumn<QPoint>("mouse");
    QTest::newRow("middle") << QPoint(200, 150);
    QTest::newRow("top left") << QPoint(0, 0);
    QTest::newRow("bottom right") << QPoint(399, 299);
    QTest::newRow("at the side") << QPoint(17, 160);
}

void EditorViewTest::wheelKeepsThePointUnderTheMouse()
{
    QFETCH(QPoint, mouse);
    EditorView view;
    ViewStage stage(view);
    const QPointF before = view.mapToScene(mouse);
    for (const int delta : {notch, notch, notch, -notch, -notch, -notch, -notch, notch}) {
        stage.turnWheel(mouse, QPoint(0, delta));
        // The bars scroll by whole pixels, and each step may lose part of one.
        const double pixel = view.pixelSize().x();
        QVERIFY(isClose(view.mapToScene(mouse), before, 4 * pixel));
        QVERIFY(isClose(view.mapToScene(200, 150), view.getCenter(), 2 * pixel));
    }
}

void EditorViewTest::wheelMovesTheCenterFromTheRecord()
{
    // Scrolled behind its back, the view goes on from the centre that it remembers.
    EditorView view;
    ViewStage stage(view);
    view.setCenter(QPointF(200, 150), false);
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->value() + 1000);
    stage.turnWheel(QPoint(200, 150), QPoint(0, notch));
    QVERIFY(isClose(view.getCenter(), QPointF(200, 150), 2));
}

void EditorViewTest::wheelHasNoLimits()
{
    EditorView view;
    ViewStage stage(view);
    view.setRulers(true, true);
    for (int i = 0; i < 300; ++i) {
        stage.turnWheel(QPoint(20, 30), QPoint(0, notch));
    }
    QVERIFY(qAbs(scaleX(view) / std::pow(zoomIn, 300) - 1) < 1e-9);
    view.viewport()->grab();
    for (int i = 0; i < 600; ++i) {
        stage.turnWheel(QPoint(20, 30), QPoint(0, -notch));
    }
    QVERIFY(qAbs(scaleX(view) / std::pow(zoomIn, -300) - 1) < 1e-9);
    view.viewport()->grab();
}

void EditorViewTest::disabledWheelDoesNothing_data()
{
    QTest::addColumn<bool>("accepted");
    QTest::newRow("accepted before") << true;
    QTest::newRow("ignored before") << false;
}

void EditorViewTest::disabledWheelDoesNothing()
{
    QFETCH(bool, accepted);
    OpenView view;
    ViewStage stage(view);
    view.setZoomingEnabled(false);
    Log log(view);
    const int bar = view.verticalScrollBar()->value();
    QWheelEvent event(QPointF(5, 5), QPointF(105, 105), {}, QPoint(0, notch), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    event.setAccepted(accepted);
    view.wheelEvent(&event);
    QCOMPARE(event.isAccepted(), accepted);
    stage.turnWheel(QPoint(5, 5), QPoint(0, -notch));
    QCOMPARE(view.transform(), QTransform());
    QCOMPARE(view.verticalScrollBar()->value(), bar);
    QCOMPARE(view.getCenter(), QPointF(200, 150));
    QCOMPARE(log.take(), QStringList());
}

void EditorViewTest::rightButtonPans()
{
    EditorView view;
    ViewStage stage(view);
    auto* const target = new Target;
    view.scene()->addItem(target);
    stage.moveMouse(QPoint(100, 100));
    Log log(view);

    stage.press(Qt::RightButton, QPoint(100, 100));
    QCOMPARE(view.cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(log.take(), QStringList());

    stage.moveMouse(QPoint(130, 80));
    QCOMPARE(log.take(), (QStringList{"center", "moved"}));
    // The scene follows the mouse: the view looks as far to the other side.
    QCOMPARE(view.mapToScene(0, 0), QPointF(-30, 20));
    QCOMPARE(view.getCenter(), stage.shownCenter());
    QCOMPARE(log.lastCenter(), view.getCenter());

    stage.moveMouse(QPoint(140, 80));
    stage.moveMouse(QPoint(140, 95));
    QCOMPARE(log.take(), (QStringList{"center", "moved", "center", "moved"}));
    QCOMPARE(view.mapToScene(0, 0), QPointF(-40, 5));
    QCOMPARE(view.getCenter(), stage.shownCenter());

    stage.release(Qt::RightButton, QPoint(140, 95));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);
    stage.moveMouse(QPoint(10, 10));
    QCOMPARE(log.take(), QStringList{"moved"});
    QCOMPARE(view.mapToScene(0, 0), QPointF(-40, 5));
    QCOMPARE(target->presses, 0);
    QCOMPARE(target->releases, 0);
}

void EditorViewTest::panStopsAtTheSceneRect()
{
    EditorView view;
    ViewStage stage(view);
    view.scene()->setSceneRect(0, 0, 500, 400);
    view.setCenter(QPointF(200, 150), false);
    stage.drag(Qt::RightButton, QPoint(300, 200), QPoint(50, 50));
    QCOMPARE(view.mapToScene(0, 0), QPointF(100, 100));
    QCOMPARE(view.getCenter(), stage.shownCenter());
}

void EditorViewTest::panTakesItsEvents()
{
    OpenView view;
    ViewStage stage(view);
    stage.moveMouse(QPoint(100, 100));
    const auto isTaken = [](QEvent::Type type, Qt::MouseButton button, const auto& handler) {
        QMouseEvent event(type, QPointF(100, 100), button, Qt::RightButton, {});
        event.ignore();
        handler(&event);
        return event.isAccepted();
    };
    QVERIFY(isTaken(QEvent::MouseButtonPress, Qt::RightButton,
                    [&view](QMouseEvent* event) { view.mousePressEvent(event); }));
    QVERIFY(isTaken(QEvent::MouseMove, Qt::NoButton,
                    [&view](QMouseEvent* event) { view.mouseMoveEvent(event); }));
    QVERIFY(isTaken(QEvent::MouseButtonRelease, Qt::RightButton,
                    [&view](QMouseEvent* event) { view.mouseReleaseEvent(event); }));
}

void EditorViewTest::panRepaintsWhatIsSeen()
{
    EditorView view;
    ViewStage stage(view);
    stage.moveMouse(QPoint(100, 100));
    stage.press(Qt::RightButton, QPoint(100, 100));
    QCoreApplication::processEvents();
    QList<QRectF> regions;
    QObject::connect(view.scene(), &QGraphicsScene::changed,
                     [&regions](const QList<QRectF>& region) { regions += region; });
    QCoreApplication::processEvents();
    regions.clear();
    stage.moveMouse(QPoint(130, 80));
    QCoreApplication::processEvents();
    QCOMPARE(regions, QList<QRectF>{view.mapToScene(view.rect()).boundingRect()});
    stage.release(Qt::RightButton, QPoint(130, 80));
}

void EditorViewTest::panInAFrame()
{
    // What the view looks at is the middle of the widget, the frame included.
    EditorView view;
    ViewStage stage(view);
    view.setFrameStyle(QFrame::Box | QFrame::Plain);
    view.setLineWidth(20);
    QCoreApplication::processEvents();
    QCOMPARE(view.viewport()->size(), QSize(360, 260));
    stage.moveMouse(QPoint(100, 100));
    stage.press(Qt::RightButton, QPoint(120, 120));
    stage.moveMouse(QPoint(130, 80));
    QCOMPARE(view.getCenter(), stage.shownCenter());
    QVERIFY(view.getCenter() != view.mapToScene(view.viewport()->rect()).boundingRect().center());
    stage.release(Qt::RightButton, QPoint(150, 100));
}

void EditorViewTest::panInARightToLeftLayout()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    const auto restore = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    EditorView view;
    ViewStage stage(view);
    const QPointF grabbed = view.mapToScene(QPoint(100, 100));
    stage.drag(Qt::RightButton, QPoint(100, 100), QPoint(160, 130));
    QCOMPARE(view.mapToScene(QPoint(160, 130)), grabbed);
    // With the edge on the left kept where it is, as in any other window.
    view.setZoomingEnabled(false);
    const QPointF corner = view.mapToScene(QPoint(0, 0));
    view.resize(300, 300);
    QCoreApplication::processEvents();
    QCOMPARE(view.mapToScene(QPoint(0, 0)), corner);
}

void EditorViewTest::panWaitsWhileTheMouseIsOutside()
{
    EditorView view;
    ViewStage stage(view);
    stage.moveMouse(QPoint(100, 100));
    stage.press(Qt::RightButton, QPoint(100, 100));
    stage.moveMouseAway();
    Log log(view);
    QTest::mouseMove(view.windowHandle(), QPoint(-40, -40));
    QCOMPARE(log.take(), QStringList{"moved"});
    QCOMPARE(view.mapToScene(0, 0), QPointF(0, 0));
    // Back inside it goes on from where the mouse was when it left.
    stage.moveMouse(QPoint(110, 105));
    QCOMPARE(log.take(), (QStringList{"center", "moved"}));
    QCOMPARE(view.mapToScene(0, 0), QPointF(-10, -5));
    stage.release(Qt::RightButton, QPoint(110, 105));
    QCOMPARE(log.take(), QStringList());
}

void EditorViewTest::otherButtonsDuringAPan()
{
    EditorView view;
    ViewStage stage(view);
    stage.moveMouse(QPoint(100, 100));
    stage.press(Qt::RightButton, QPoint(100, 100));
    Log log(view);
    stage.press(Qt::LeftButton, QPoint(100, 100));
    stage.release(Qt::LeftButton, QPoint(100, 100));
    QCOMPARE(log.take(), QStringList{"released 1"});
    QCOMPARE(view.cursor().shape(), Qt::ClosedHandCursor);
    stage.moveMouse(QPoint(110, 100));
    QCOMPARE(log.take(), (QStringList{"center", "moved"}));
    stage.release(Qt::RightButton, QPoint(110, 100));
    QCOMPARE(log.take(), QStringList());
}

void EditorViewTest::disabledPanningReachesTheScene()
{
    EditorView view;
    ViewStage stage(view);
    view.setPanningEnabled(false);
    auto* const target = new Target;
    view.scene()->addItem(target);
    Log log(view);
    stage.drag(Qt::RightButton, QPoint(100, 100), QPoint(150, 120));
    QCOMPARE(log.take(), (QStringList{"moved", "moved", "released 2"}));
    QCOMPARE(target->presses, 1);
    QCOMPARE(target->releases, 1);
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(view.mapToScene(0, 0), QPointF(0, 0));
}

void EditorViewTest::panningMayBeDisabledDuringAPan()
{
    EditorView view;
    ViewStage stage(view);
    stage.moveMouse(QPoint(100, 100));
    stage.press(Qt::RightButton, QPoint(100, 100));
    view.setPanningEnabled(false);
    Log log(view);
    stage.moveMouse(QPoint(110, 100));
    stage.release(Qt::RightButton, QPoint(110, 100));
    QCOMPARE(log.take(), (QStringList{"center", "moved"}));
    stage.press(Qt::RightButton, QPoint(110, 100));
    stage.release(Qt::RightButton, QPoint(110, 100));
    QCOMPARE(log.take(), QStringList{"released 2"});
}

void EditorViewTest::otherButtonsReachTheScene()
{
    EditorView view;
    ViewStage stage(view);
    auto* const target = new Target;
    view.scene()->addItem(target);
    int releasesWhenNotified = -1;
    view.mouseReleased.connect(
        [&releasesWhenNotified, target](QMouseEvent*) { releasesWhenNotified = target->releases; });
    stage.moveMouse(QPoint(30, 30));
    Log log(view);
    stage.press(Qt::LeftButton, QPoint(30, 30));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(target->presses, 1);
    stage.release(Qt::LeftButton, QPoint(30, 30));
    QCOMPARE(log.take(), QStringList{"released 1"});
    QCOMPARE(releasesWhenNotified, 1);
    stage.press(Qt::MiddleButton, QPoint(30, 30));
    stage.release(Qt::MiddleButton, QPoint(30, 30));
    QCOMPARE(log.take(), QStringList{"released 4"});
}

void EditorViewTest::moveIsToldBehindTheScene()
{
    EditorView view;
    ViewStage stage(view);
    auto* const target = new Target;
    view.scene()->addItem(target);
    stage.moveMouse(QPoint(30, 30));
    stage.press(Qt::LeftButton, QPoint(30, 30));
    int movesWhenNotified = -1;
    view.mouseMoved.connect(
        [&movesWhenNotified, target](QMouseEvent*) { movesWhenNotified = target->moves; });
    stage.moveMouse(QPoint(40, 30));
    QCOMPARE(movesWhenNotified, 1);
    stage.release(Qt::LeftButton, QPoint(40, 30));
}

void EditorViewTest::leftDragDrawsARubberBand()
{
    EditorView view;
    ViewStage stage(view);
    auto* const item = view.scene()->addRect(50, 50, 10, 10);
    item->setFlag(QGraphicsItem::ItemIsSelectable);
    Log log(view);
    stage.drag(Qt::LeftButton, QPoint(20, 20), QPoint(100, 100));
    QVERIFY(item->isSelected());
    QCOMPARE(log.take(), (QStringList{"moved", "moved", "released 1"}));
    QCOMPARE(view.mapToScene(0, 0), QPointF(0, 0));
}

void EditorViewTest::moveRepaintsOnlyForWhatFollowsTheMouse_data()
{
    QTest::addColumn<bool>("crossHairs");
    QTest::addColumn<bool>("customCursor");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("cross hair") << true << false;
    QTest::newRow("cursor") << false << true;
    QTest::newRow("both") << true << true;
}

void EditorViewTest::moveRepaintsOnlyForWhatFollowsTheMouse()
{
    QFETCH(bool, crossHairs);
    QFETCH(bool, customCursor);
    EditorView view;
    ViewStage stage(view);
    view.setDrawCrossHairs(crossHairs);
    view.setDrawCustomCursor(customCursor);
    stage.moveMouse(QPoint(10, 10));
    QCoreApplication::processEvents();
    Log log(view);
    EventCount paints(view.viewport(), QEvent::Paint);
    stage.moveMouse(QPoint(50, 50));
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), QStringList{"moved"});
    QCOMPARE(paints.take() > 0, crossHairs || customCursor);
}

void EditorViewTest::enterAndLeaveRepaint()
{
    EditorView view;
    ViewStage stage(view);
    view.setDrawCrossHairs(false);
    QCoreApplication::processEvents();
    Log log(view);
    EventCount paints(view.viewport(), QEvent::Paint);
    stage.moveMouse(QPoint(10, 10));
    QCoreApplication::processEvents();
    QVERIFY(paints.take() > 0);
    stage.moveMouseAway();
    QCoreApplication::processEvents();
    QVERIFY(paints.take() > 0);
    QCOMPARE(log.take(), QStringList{"moved"});
}

void EditorViewTest::customCursorHidesTheSystemCursor()
{
    EditorView view;
    ViewStage stage(view);
    view.setCursor(Qt::CrossCursor);
    view.setDrawCustomCursor(true);
    stage.moveMouse(QPoint(10, 10));
    QCOMPARE(view.cursor().shape(), Qt::BlankCursor);
    stage.moveMouseAway();
    QCOMPARE(view.cursor().shape(), Qt::CrossCursor);
}

void EditorViewTest::customCursorWaitsForTheNextEntry()
{
    EditorView view;
    ViewStage stage(view);
    stage.moveMouse(QPoint(10, 10));
    view.setDrawCustomCursor(true);
    stage.moveMouse(QPoint(20, 20));
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);
    stage.moveMouseAway();
    stage.moveMouse(QPoint(20, 20));
    QCOMPARE(view.cursor().shape(), Qt::BlankCursor);
    // Leaving restores the shape whatever the setting is by then.
    view.setDrawCustomCursor(false);
    QCOMPARE(view.cursor().shape(), Qt::BlankCursor);
    stage.moveMouseAway();
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);
}

void EditorViewTest::customCursorStaysHiddenBehindAPan()
{
    EditorView view;
    ViewStage stage(view);
    view.setDrawCustomCursor(true);
    stage.moveMouse(QPoint(10, 10));
    stage.press(Qt::RightButton, QPoint(10, 10));
    QCOMPARE(view.cursor().shape(), Qt::ClosedHandCursor);
    stage.release(Qt::RightButton, QPoint(10, 10));
    QCOMPARE(view.cursor().shape(), Qt::BlankCursor);
    // Set within a pan, it takes effect at its end.
    view.setDrawCustomCursor(false);
    stage.press(Qt::RightButton, QPoint(10, 10));
    stage.release(Qt::RightButton, QPoint(10, 10));
    QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);
}

void EditorViewTest::panRestoresTheSavedCursor()
{
    EditorView view;
    ViewStage stage(view);
    view.setCursor(Qt::PointingHandCursor);
    stage.moveMouse(QPoint(10, 10));
    stage.press(Qt::RightButton, QPoint(10, 10));
    stage.release(Qt::RightButton, QPoint(10, 10));
    QCOMPARE(view.cursor().shape(), Qt::PointingHandCursor);
}

void EditorViewTest::resizeKeepsTheCenter()
{
    EditorView view;
    ViewStage stage(view);
    view.setCenter(QPointF(70, 80), false);
    Log log(view);
    view.resize(500, 200);
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), (QStringList{"center", "resized"}));
    QCOMPARE(log.lastCenter(), QPointF(70, 80));
    QCOMPARE(view.getCenter(), QPointF(70, 80));
    QCOMPARE(view.mapToScene(250, 100), QPointF(70, 80));
}

void EditorViewTest::resizeWithoutZoomingLeavesTheCenter()
{
    EditorView view;
    ViewStage stage(view);
    view.setZoomingEnabled(false);
    Log log(view);
    view.resize(500, 200);
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), QStringList{"resized"});
    QCOMPARE(view.getCenter(), QPointF(200, 150));
    QVERIFY(view.mapToScene(250, 100) != QPointF(200, 150));
}

void EditorViewTest::resizeGoesByZoomingNotByPanning()
{
    EditorView view;
    ViewStage stage(view);
    view.setPanningEnabled(false);
    Log log(view);
    view.resize(500, 200);
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), (QStringList{"center", "resized"}));
    QCOMPARE(view.mapToScene(250, 100), QPointF(200, 150));
}

void EditorViewTest::linkFollowsByMask_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<bool>("centerX");
    QTest::addColumn<bool>("centerY");
    QTest::addColumn<bool>("scaleOfX");
    QTest::addColumn<bool>("scaleOfY");
    for (int mask = 0; mask < 16; ++mask) {
        QTest::addRow("%d", mask) << mask << (mask % 2 == 1) << (mask / 2 % 2 == 1)
                                  << (mask / 4 % 2 == 1) << (mask / 8 == 1);
    }
    QTest::newRow("bits above are ignored")
        << (1024 + 64 + 16 + 5) << true << false << true << false;
    QTest::newRow("all bits") << -1 << true << true << true << true;
}

void EditorViewTest::linkFollowsByMask()
{
    QFETCH(int, mask);
    QFETCH(bool, centerX);
    QFETCH(bool, centerY);
    QFETCH(bool, scaleOfX);
    QFETCH(bool, scaleOfY);
    EditorView view;
    ViewStage stage(view);
    EditorView follower;
    ViewStage followerStage(follower, QPoint(100, 450));
    follower.setCenter(QPointF(11, 12), false);
    follower.linkViewSettingsTo(&view, mask);
    stage.turnWheel(QPoint(50, 250), QPoint(0, notch));
    const QPointF center = view.getCenter();
    QVERIFY(center != QPointF(200, 150));
    QCOMPARE(follower.getCenter(), QPointF(centerX ? center.x() : 11, centerY ? center.y() : 12));
    QCOMPARE(scaleX(follower), scaleOfX ? zoomIn : 1.0);
    QCOMPARE(scaleY(follower), scaleOfY ? zoomIn : 1.0);
    QVERIFY(isClose(follower.mapToScene(200, 150), follower.getCenter(), 1));
    QCOMPARE(view.getCenter(), center);
    QCOMPARE(scaleX(view), zoomIn);
}

void EditorViewTest::linkTakesOverNothingAtOnce()
{
    EditorView view;
    EditorView follower;
    view.setCenter(QPointF(7, 8), false);
    follower.linkViewSettingsTo(&view, 15);
    QCOMPARE(follower.getCenter(), QPointF(50, 0));
    QCOMPARE(view.zoomChanged.num_slots(), std::size_t(1));
    QCOMPARE(view.centerChanged.num_slots(), std::size_t(1));
    QCOMPARE(view.resized.num_slots(), std::size_t(0));
    QCOMPARE(view.mouseMoved.num_slots(), std::size_t(0));
    QCOMPARE(follower.centerChanged.num_slots(), std::size_t(0));
}

void EditorViewTest::linkIsSilent()
{
    EditorView view;
    ViewStage stage(view);
    EditorView follower;
    ViewStage followerStage(follower, QPoint(100, 450));
    follower.linkViewSettingsTo(&view, 15);
    Log log(follower);
    view.setCenter(QPointF(1, 2), true);
    stage.turnWheel(QPoint(0, 0), QPoint(0, notch));
    follower.acquireViewSettingsFrom(&view, 15);
    QCOMPARE(follower.getCenter(), view.getCenter());
    QCOMPARE(log.take(), QStringList());
}

void EditorViewTest::linkHearsPanZoomAndResize()
{
    EditorView view;
    ViewStage stage(view);
    EditorView follower;
    ViewStage followerStage(follower, QPoint(100, 450));
    follower.linkViewSettingsTo(&view, 15);
    stage.drag(Qt::RightButton, QPoint(100, 100), QPoint(140, 90));
    QVERIFY(view.getCenter() != QPointF(200, 150));
    QCOMPARE(follower.getCenter(), view.getCenter());
    stage.turnWheel(QPoint(10, 10), QPoint(0, -notch));
    QCOMPARE(follower.getCenter(), view.getCenter());
    QCOMPARE(follower.transform().m11(), zoomOut);
    // Scrolled away, the follower comes back with the next resize of the followed view.
    follower.setCenter(QPointF(0, 0), false);
    view.resize(410, 310);
    QCoreApplication::processEvents();
    QCOMPARE(follower.getCenter(), view.getCenter());
}

void EditorViewTest::linkDoesNotHearSetCenterWithoutNotify()
{
    EditorView view;
    EditorView follower;
    follower.linkViewSettingsTo(&view, 15);
    view.setCenter(QPointF(1, 2), false);
    QCOMPARE(follower.getCenter(), QPointF(50, 0));
    view.setCenter(QPointF(1, 2), true);
    QCOMPARE(follower.getCenter(), QPointF(1, 2));
}

void EditorViewTest::linkWithMaskZeroRepaintsTheBackground()
{
    EditorView view;
    ViewStage stage(view);
    EditorView follower;
    ViewStage followerStage(follower, QPoint(100, 450));
    QCoreApplication::processEvents();
    EventCount paints(follower.viewport(), QEvent::Paint);
    QCoreApplication::processEvents();
    QCOMPARE(paints.take(), 0);
    follower.linkViewSettingsTo(&view, 0);
    view.setCenter(QPointF(1, 2), true);
    QCoreApplication::processEvents();
    QVERIFY(paints.take() > 0);
    view.zoomChanged();
    QCoreApplication::processEvents();
    QVERIFY(paints.take() > 0);
    QCOMPARE(follower.getCenter(), QPointF(200, 150));
    QCOMPARE(follower.transform(), QTransform());
}

void EditorViewTest::linksBothWaysDoNotGoInCircles()
{
    EditorView first;
    ViewStage firstStage(first);
    EditorView second;
    ViewStage secondStage(second, QPoint(100, 450));
    EditorView::linkViewSettingsBidirectionally(&first, &second, 15);
    QCOMPARE(first.centerChanged.num_slots(), std::size_t(1));
    QCOMPARE(second.centerChanged.num_slots(), std::size_t(1));
    Log firstLog(first);
    Log secondLog(second);
    firstStage.turnWheel(QPoint(10, 20), QPoint(0, notch));
    QCOMPARE(firstLog.take(), (QStringList{"center", "zoom"}));
    QCOMPARE(secondLog.take(), QStringList());
    QCOMPARE(second.getCenter(), first.getCenter());
    QCOMPARE(scaleX(second), zoomIn);
    secondStage.turnWheel(QPoint(300, 20), QPoint(0, notch));
    QCOMPARE(firstLog.take(), QStringList());
    QCOMPARE(secondLog.take(), (QStringList{"center", "zoom"}));
    QCOMPARE(second.getCenter(), first.getCenter());
    QVERIFY(qAbs(scaleX(first) - scaleX(second)) < 1e-9);
    secondStage.drag(Qt::RightButton, QPoint(10, 10), QPoint(30, 30));
    QCOMPARE(firstLog.take(), QStringList());
    QCOMPARE(secondLog.take(), (QStringList{"moved", "center", "moved"}));
    QCOMPARE(second.getCenter(), first.getCenter());
}

void EditorViewTest::linksInARowEndAtTheFirst()
{
    EditorView first;
    EditorView second;
    EditorView third;
    second.linkViewSettingsTo(&first, 15);
    third.linkViewSettingsTo(&second, 15);
    first.setCenter(QPointF(1, 2), true);
    QCOMPARE(second.getCenter(), QPointF(1, 2));
    QCOMPARE(third.getCenter(), QPointF(50, 0));
}

void EditorViewTest::linkIsDeafWhileItActs()
{
    // A host that answers the follower's scrolling by moving the followed view again.
    EditorView view;
    ViewStage stage(view);
    EditorView follower;
    ViewStage followerStage(follower, QPoint(100, 450));
    follower.linkViewSettingsTo(&view, 15);
    int told = 0;
    view.centerChanged.connect([&told](const QPointF&) { ++told; });
    int scrolled = 0;
    QObject::connect(follower.horizontalScrollBar(), &QScrollBar::valueChanged, [&](int) {
        if (++scrolled < 10) {
            view.setCenter(view.getCenter() + QPointF(20, 0), true);
        }
    });
    view.setCenter(QPointF(300, 150), true);
    QCOMPARE(told, 2);
    QCOMPARE(scrolled, 1);
    QCOMPARE(view.getCenter(), QPointF(320, 150));
}

void EditorViewTest::linkDiesWithTheFollowedView()
{
    EditorView follower;
    Log log(follower);
    {
        EditorView view;
        follower.linkViewSettingsTo(&view, 15);
        view.setCenter(QPointF(1, 2), true);
    }
    QCOMPARE(follower.getCenter(), QPointF(1, 2));
    ViewStage stage(follower);
    log.take();
    stage.turnWheel(QPoint(10, 10), QPoint(0, notch));
    QCOMPARE(log.take(), (QStringList{"center", "zoom"}));
}

void EditorViewTest::acquireScaleOfMirroredView()
{
    EditorView view;
    view.scale(2, -4);
    EditorView follower;
    follower.acquireViewSettingsFrom(&view, 15);
    QCOMPARE(scaleX(follower), 2.0);
    QCOMPARE(scaleY(follower), -4.0);
}

void EditorViewTest::acquireFromAViewBeyondPrecision()
{
    // So far in that the scene coordinates of two neighbouring pixels are one number.
    EditorView view;
    view.scene()->setSceneRect(1e6, 1e6, 10, 10);
    view.scale(1e18, 1e18);
    view.setCenter(QPointF(1e6 + 3, 1e6 + 3), false);
    EditorView follower;
    follower.acquireViewSettingsFrom(&view, 15);
    const QTransform transform = follower.transform();
    QVERIFY(std::isfinite(transform.m11()) && transform.m11() != 0);
    QVERIFY(std::isfinite(transform.m22()) && transform.m22() != 0);
    QVERIFY(transform.isInvertible());
}

void EditorViewTest::dragMovesReachTheScene()
{
    EditorView view;
    ViewStage stage(view);
    view.setAcceptDrops(true);
    auto* const target = new Target;
    view.scene()->addItem(target);
    Log log(view);
    QMimeData data;
    data.setText(QStringLiteral("x"));
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move(QPoint(30, 30), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &move);
    QVERIFY(target->dragMoves > 0);
    QDragLeaveEvent leave;
    QApplication::sendEvent(view.viewport(), &leave);
    QCOMPARE(log.take(), QStringList());
}

void EditorViewTest::focusReachesTheScene()
{
    OpenView view;
    Log log(view);
    QFocusEvent in(QEvent::FocusIn);
    view.focusInEvent(&in);
    QVERIFY(view.scene()->hasFocus());
    QFocusEvent out(QEvent::FocusOut);
    view.focusOutEvent(&out);
    QVERIFY(!view.scene()->hasFocus());
    QCOMPARE(log.take(), QStringList());
}

void EditorViewTest::eventsWithoutASceneAreHarmless()
{
    EditorView view;
    ViewStage stage(view);
    view.setScene(nullptr);
    Log log(view);
    stage.moveMouse(QPoint(10, 10));
    stage.drag(Qt::RightButton, QPoint(10, 10), QPoint(20, 20));
    stage.turnWheel(QPoint(10, 10), QPoint(0, notch));
    stage.moveMouseAway();
    QCOMPARE(log.take(), (QStringList{"moved", "center", "moved", "center", "zoom"}));
}

QTEST_MAIN(EditorViewTest)
#include "tst_editor_view.moc"
