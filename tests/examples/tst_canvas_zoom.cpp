#include "examples/frame_editor/canvas_overview.h"
#include "examples/frame_editor/canvas_symbols.h"
#include "tests/examples/canvas_stage.h"
#include "tests/helpers/checked_test.h"

#include <QElapsedTimer>
#include <QGraphicsScene>

using namespace frame_editor;

namespace {

FrameModel loaded(LoadDirection direction, double load, const Node& end)
{
    FrameModel model = modelWith([&](Member& member) {
        member.loadDirection = direction;
        member.lineLoad = load;
        member.bedded = true;
        member.hingeStart = true;
        member.support = Support::Fixed;
    });
    model.nodes[1] = end;
    return model;
}

const Node level{QStringLiteral("B"), 10, 0};
const Node upright{QStringLiteral("B"), 0, 10};
const Node slope{QStringLiteral("B"), 10, 4};

} // namespace

Q_DECLARE_METATYPE(frame_editor::LoadDirection)
Q_DECLARE_METATYPE(frame_editor::Node)

/// The drawing at scales at which most of a member lies outside of the window.
class TestCanvasZoom : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void farInIsDrawnInTime_data();
    void farInIsDrawnInTime();
    void loadsStayWhereTheyAre_data();
    void loadsStayWhereTheyAre();
    void textsStayInView_data();
    void textsStayInView();
    void elevationsFarIn();
    void farOut();
};

void TestCanvasZoom::farInIsDrawnInTime_data()
{
    QTest::addColumn<LoadDirection>("direction");
    QTest::addColumn<Node>("end");
    QTest::addColumn<double>("scale");
    for (const double scale : {1e4, 1e7, 1e10, 1e15, 1e20}) {
        QTest::addRow("beam at %g", scale) << LoadDirection::Vertical << level << scale;
        QTest::addRow("column at %g", scale) << LoadDirection::Vertical << upright << scale;
        QTest::addRow("wind at %g", scale) << LoadDirection::Normal << upright << scale;
        QTest::addRow("snow at %g", scale) << LoadDirection::Projected << slope << scale;
    }
}

void TestCanvasZoom::farInIsDrawnInTime()
{
    QFETCH(LoadDirection, direction);
    QFETCH(Node, end);
    QFETCH(double, scale);
    Stage stage;
    stage.document.setModel(loaded(direction, 5.0, end), QString());
    QElapsedTimer timer;
    timer.start();
    for (const double part : {0.0, 0.5, 1.0}) {
        stage.canvas.setTransform(QTransform::fromScale(scale, scale));
        stage.canvas.setCenter(stage.item("M")->axis().pointAt(part), false);
        QCOMPARE(stage.shot().size(), QSize(600, 500));
    }
    QVERIFY2(timer.elapsed() < 5000, "takes time in proportion to the length in pixels");
}

void TestCanvasZoom::loadsStayWhereTheyAre_data()
{
    QTest::addColumn<LoadDirection>("direction");
    QTest::addColumn<bool>("against");
    QTest::addColumn<QLineF>("axis");
    const QLineF beam(-2000, 100, 3000, 100);
    const QLineF column(100, 3000, 100, -2000);
    const QLineF rafter(-2000, 1100, 3000, -1400);
    for (const bool against : {false, true}) {
        const char* const sign = against ? "against" : "with";
        QTest::addRow("beam %s", sign) << LoadDirection::Vertical << against << beam;
        QTest::addRow("wind %s", sign) << LoadDirection::Normal << against << column;
        QTest::addRow("along a column %s", sign) << LoadDirection::Vertical << against << column;
        QTest::addRow("snow %s", sign) << LoadDirection::Projected << against << rafter;
        QTest::addRow("normal to a rafter %s", sign) << LoadDirection::Normal << against << rafter;
    }
}

void TestCanvasZoom::loadsStayWhereTheyAre()
{
    // What is left out is what nobody sees: the picture is that of the whole load.
    QFETCH(LoadDirection, direction);
    QFETCH(bool, against);
    QFETCH(QLineF, axis);
    LineLoadSign load;
    load.axis = axis;
    load.halfDepth = 5;
    load.direction = direction;
    load.against = against;
    load.height = 30;
    const QRectF seen(0, 0, 200, 200);
    const QRectF everything(-1e5, -1e5, 2e5, 2e5);
    const auto shotOf = [&load](const QRectF& area) {
        return drawn([&](QPainter& painter) {
            drawLineLoad(painter, load, area);
            drawBedding(painter, load.axis, load.halfDepth, area);
        });
    };
    const QImage image = shotOf(seen);
    QVERIFY(countPixels(image, image.rect(), loadColour()) > 50);
    QCOMPARE(image, shotOf(everything));
    // Another part of the window shows another part of it.
    QVERIFY(inked(shotOf(QRectF(5000, 5000, 100, 100))).height() < inked(image).height() ||
            shotOf(QRectF(5000, 5000, 100, 100)) != image);
}

void TestCanvasZoom::textsStayInView_data()
{
    QTest::addColumn<Node>("end");
    QTest::addColumn<double>("part");
    for (const double part : {0.05, 0.4, 0.9}) {
        QTest::addRow("beam at %g", part) << level << part;
        QTest::addRow("column at %g", part) << upright << part;
        QTest::addRow("rafter at %g", part) << slope << part;
    }
}

void TestCanvasZoom::textsStayInView()
{
    // The window shows two metres of ten; name and load of the member are read all the same.
    QFETCH(Node, end);
    QFETCH(double, part);
    Stage stage;
    const auto shotWith = [&](const QString& name, double load) {
        FrameModel model = loaded(LoadDirection::Normal, load, end);
        model.members[0].name = name;
        stage.document.setModel(model, QString());
        stage.canvas.setTransform(QTransform::fromScale(300, 300));
        stage.canvas.setCenter(stage.item(name.toLatin1())->axis().pointAt(part), false);
        return stage.shot();
    };
    const QImage image = shotWith(QStringLiteral("M"), 5.0);
    QVERIFY(shotWith(QStringLiteral("M"), 8.0) != image);
    QVERIFY(shotWith(QStringLiteral("W"), 5.0) != image);
    QCOMPARE(shotWith(QStringLiteral("M"), 5.0), image);
}

void TestCanvasZoom::elevationsFarIn()
{
    // Half a metre is farther than a screen is high, and than a number of pixels can count.
    Stage stage;
    for (const double scale : {1e4, 1e12}) {
        stage.canvas.setTransform(QTransform::fromScale(scale, scale));
        stage.canvas.setCenter(QPointF(0.2, -0.2), false);
        const QImage image = stage.shot();
        for (int y = 40; y < 480; ++y) {
            QVERIFY2(image.pixelColor(2, y) != QColor(Qt::black), qPrintable(QString::number(y)));
        }
    }
    stage.canvas.setTransform(QTransform::fromScale(1e4, 1e4));
    stage.canvas.setCenter(QPointF(0.2, -0.5), false);
    const int y = stage.canvas.mapFromScene(QPointF(0, -0.5)).y();
    QCOMPARE(stage.shot().pixelColor(7, y), QColor(Qt::black));
}

void TestCanvasZoom::farOut()
{
    // The box of the overview is larger than any screen then: all of the overview is in it.
    Stage stage;
    CanvasOverview overview(stage.canvas, nullptr);
    overview.resize(200, 150);
    const auto tint = [&overview] {
        const QColor colour = overview.viewport()->grab().toImage().pixelColor(100, 5);
        return colour.red() - colour.blue();
    };
    stage.canvas.scene()->setSceneRect(-1e15, -1e15, 2e15, 2e15);
    for (const double scale : {1.0, 1e-3, 1e-9, 1e-12}) {
        stage.canvas.setTransform(QTransform::fromScale(scale, scale));
        stage.canvas.setCenter(QPointF(12, -4), true);
        QVERIFY(!stage.shot().isNull());
        QVERIFY2(tint() > 10, qPrintable(QString::number(scale)));
    }
}

QTEST_MAIN(TestCanvasZoom)
#include "tst_canvas_zoom.moc"
