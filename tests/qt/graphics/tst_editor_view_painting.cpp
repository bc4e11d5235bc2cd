#include "qt/inc/graphics.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/view_stage.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QScopeGuard>

#include <functional>
#include <limits>

using namespace zel::qt::graphics;
using zel::test::ViewStage;

namespace {

using Draw = std::function<void(QPainter&)>;

QImage shot(EditorView& view)
{
    return view.viewport()->grab().toImage();
}

/// `base` with something drawn on it as a painter on the viewport would.
QImage drawnOn(const QImage& base, const EditorView& view, const QPen& pen, const Draw& draw)
{
    QImage image = base;
    // The resolution of the widget, by which fonts are sized.
    image.setDotsPerMeterX(qRound(view.logicalDpiX() / 0.0254));
    image.setDotsPerMeterY(qRound(view.logicalDpiY() / 0.0254));
    QPainter painter(&image);
    painter.setFont(view.viewport()->font());
    painter.setPen(pen);
    draw(painter);
    return image;
}

const QPen& blackPen()
{
    static const QPen pen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    return pen;
}

int differingPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
        }
    }
    return count;
}

/// A pixel has the colour at its middle, which is not quite that of the corner of a gradient.
bool isNearly(const QColor& actual, const QColor& expected)
{
    return qAbs(actual.red() - expected.red()) <= 2 && actual.red() == actual.green() &&
           actual.red() == actual.blue();
}

struct Major
{
    int pixel;
    const char* label;
};
struct Ruler
{
    std::vector<Major> major;
    std::vector<int> minor;
};

void drawHorizontal(QPainter& painter, const Ruler& ruler)
{
    for (const Major& mark : ruler.major) {
        const QString label = QString::fromLatin1(mark.label);
        const QRect box = painter.fontMetrics().boundingRect(label).adjusted(0, 0, 2, 0);
        painter.drawLine(mark.pixel, 0, mark.pixel, 8);
        painter.drawText(box.translated(mark.pixel - box.width() / 2, box.height() / 2 + 12),
                         Qt::AlignCenter, label);
    }
    for (const int pixel : ruler.minor) {
        painter.drawLine(pixel, 0, pixel, 3);
    }
}

void drawVertical(QPainter& painter, const Ruler& ruler)
{
    for (const Major& mark : ruler.major) {
        const QString label = QString::fromLatin1(mark.label);
        const QRect box = painter.fontMetrics().boundingRect(label).adjusted(0, 0, 2, 0);
        painter.drawLine(0, mark.pixel, 8, mark.pixel);
        painter.drawText(box.translated(9, mark.pixel + box.height() / 3), Qt::AlignCenter, label);
    }
    for (const int pixel : ruler.minor) {
        painter.drawLine(0, pixel, 3, pixel);
    }
}

} // namespace

Q_DECLARE_METATYPE(Ruler)

class EditorViewPaintingTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void background();
    void backgroundIsPerExposedRectangle();
    void backgroundLeavesNoBrush();
    void nothingElseAtFirst();
    void title();
    void titleReadsAsItsText_data();
    void titleReadsAsItsText();
    void emptyTitle();
    void crossHairFollowsTheMouse();
    void crossHairOnlyInsideAndIfWanted();
    void crossHairInAFrame();
    void customCursor();
    void customCursorIsDrawnOutsideToo();
    void horizontalRuler_data();
    void horizontalRuler();
    void verticalRuler_data();
    void verticalRuler();
    void rulerBetweenTwoMajorMarks();
    void rulerInAFrame();
    void rulerGoesByTheWidthOfAPixel();
    void rulersDoNotScaleWithTheScene();
    void rulerOfBackwardsRangeIsEmpty();
    void rulerInARightToLeftLayout();
    void rulerMarkPixels();
    void twoDevicePixelsToAPixel();
    void everythingTogetherInOrder();
    void foregroundIsAboveTheItems();
    void painterIsRestored();
    void extremeViewsAreDrawnInTime_data();
    void extremeViewsAreDrawnInTime();
    void extremeAspectKeepsPixelsFree();
};

void EditorViewPaintingTest::background()
{
    EditorView view;
    ViewStage stage(view);
    const QImage image = shot(view);
    QCOMPARE(image.size(), QSize(400, 300));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
    QCOMPARE(image.pixelColor(399, 299), QColor(Qt::lightGray));
    const int middle = (255 + QColor(Qt::lightGray).red()) / 2;
    QVERIFY(qAbs(image.pixelColor(200, 150).red() - middle) <= 1);
    // At right angles to the diagonal, not along the corners.
    QVERIFY(image.pixelColor(399, 0).red() < image.pixelColor(0, 299).red());
}

void EditorViewPaintingTest::backgroundIsPerExposedRectangle()
{
    EditorView view;
    ViewStage stage(view);
    QImage image(100, 60, QImage::Format_RGB32);
    QPainter painter(&image);
    view.render(&painter, QRectF(0, 0, 100, 60), QRect(150, 100, 100, 60));
    painter.end();
    QVERIFY(isNearly(image.pixelColor(0, 0), QColor(Qt::white)));
    QVERIFY(isNearly(image.pixelColor(99, 59), QColor(Qt::lightGray)));

    const QImage part = view.viewport()->grab(QRect(150, 100, 100, 60)).toImage();
    QVERIFY(isNearly(part.pixelColor(0, 0), QColor(Qt::white)));
    QVERIFY(isNearly(part.pixelColor(99, 59), QColor(Qt::lightGray)));
}

void EditorViewPaintingTest::backgroundLeavesNoBrush()
{
    struct OpenView : EditorView
    {
        using EditorView::drawBackground;
    };
    OpenView view;
    QImage image(20, 20, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setBrush(Qt::red);
    view.drawBackground(&painter, QRectF(0, 0, 20, 20));
    QCOMPARE(painter.brush().style(), Qt::NoBrush);
    QVERIFY(isNearly(image.pixelColor(0, 0), QColor(Qt::white)));
}

void EditorViewPaintingTest::nothingElseAtFirst()
{
    // Neither rulers nor a title, and the cross hair not while the mouse is outside.
    EditorView view;
    ViewStage stage(view);
    const QImage image = shot(view);
    QLinearGradient gradient(QPointF(0, 0), QPointF(400, 300));
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, Qt::lightGray);
    QImage expected(image.size(), image.format());
    QPainter painter(&expected);
    painter.fillRect(QRectF(0, 0, 400, 300), gradient);
    painter.end();
    QCOMPARE(image, expected);
}

void EditorViewPaintingTest::title()
{
    EditorView view;
    ViewStage stage(view);
    // It stays where it is, at its size, whatever the scene does.
    for (const double scale : {1.0, 3.0}) {
        view.scale(scale, scale);
        view.setCenter(QPointF(500 * scale, 0), false);
        view.setTitle(QString());
        const QImage plain = shot(view);
        view.setTitle(QStringLiteral("Frame A & B"));
        const QImage expected = drawnOn(plain, view, QPen(Qt::black, 1.0), [](QPainter& painter) {
            painter.drawText(QPoint(20, 30), QStringLiteral("Frame A & B"));
        });
        QVERIFY(differingPixels(expected, plain) > 100);
        QCOMPARE(shot(view), expected);
    }
}

void EditorViewPaintingTest::titleReadsAsItsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("Latin") << QStringLiteral("Frame 2 *") << Qt::LeftToRight;
    QTest::newRow("number") << QStringLiteral("-2") << Qt::LeftToRight;
    QTest::newRow("Hebrew") << QString::fromUtf8("\u05de\u05e1\u05d2\u05e8\u05ea B *")
                            << Qt::RightToLeft;
}

void EditorViewPaintingTest::titleReadsAsItsText()
{
    QFETCH(QString, text);
    QFETCH(Qt::LayoutDirection, direction);
    const auto restore = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    for (const Qt::LayoutDirection layout : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(layout);
        EditorView view;
        ViewStage stage(view);
        const QImage plain = shot(view);
        view.setTitle(text);
        const QImage expected = drawnOn(plain, view, QPen(Qt::black, 1.0), [&](QPainter& painter) {
            painter.setLayoutDirection(direction);
            painter.drawText(QPoint(20, 30), text);
        });
        QVERIFY(differingPixels(expected, plain) > 5);
        QCOMPARE(shot(view), expected);
    }
}

void EditorViewPaintingTest::emptyTitle()
{
    EditorView view;
    ViewStage stage(view);
    const QImage plain = shot(view);
    view.setTitle(QStringLiteral("x"));
    QVERIFY(shot(view) != plain);
    view.setTitle(QString());
    QCOMPARE(shot(view), plain);
}

void EditorViewPaintingTest::crossHairFollowsTheMouse()
{
    EditorView view;
    ViewStage stage(view);
    const QImage plain = shot(view);
    const QPen pen(Qt::darkGray, 1.0, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin);
    for (const QPoint& pos : {QPoint(120, 70), QPoint(0, 0), QPoint(399, 299)}) {
        stage.moveMouse(pos);
        const QImage expected = drawnOn(plain, view, pen, [&pos](QPainter& painter) {
            painter.drawLine(pos.x(), 0, pos.x(), 299);
            painter.drawLine(0, pos.y(), 399, pos.y());
        });
        QCOMPARE(shot(view), expected);
    }
    // Dots: about half of the pixels along the lines, and none beside them.
    stage.moveMouse(QPoint(120, 70));
    const int dots = differingPixels(shot(view), plain);
    QVERIFY2(dots > 200 && dots < 500, qPrintable(QString::number(dots)));
    view.rotate(30);
    QCOMPARE(shot(view).pixelColor(120, 0), QColor(Qt::darkGray));
}

void EditorViewPaintingTest::crossHairOnlyInsideAndIfWanted()
{
    EditorView view;
    ViewStage stage(view);
    const QImage plain = shot(view);
    stage.moveMouse(QPoint(120, 70));
    QVERIFY(shot(view) != plain);
    view.setDrawCrossHairs(false);
    QCOMPARE(shot(view), plain);
    view.setDrawCrossHairs(true);
    QVERIFY(shot(view) != plain);
    stage.moveMouseAway();
    QCOMPARE(shot(view), plain);
}

void EditorViewPaintingTest::crossHairInAFrame()
{
    // The lines are those of the widget, the frame included.
    EditorView view;
    ViewStage stage(view);
    view.setFrameStyle(QFrame::Box | QFrame::Plain);
    view.setLineWidth(5);
    QCoreApplication::processEvents();
    const QImage plain = shot(view);
    QCOMPARE(plain.size(), QSize(390, 290));
    stage.moveMouse(QPoint(120, 70));
    const QPen pen(Qt::darkGray, 1.0, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin);
    const QImage expected = drawnOn(plain, view, pen, [](QPainter& painter) {
        painter.drawLine(125, 0, 125, 299);
        painter.drawLine(0, 75, 399, 75);
    });
    QCOMPARE(shot(view), expected);
}

void EditorViewPaintingTest::customCursor()
{
    EditorView view;
    ViewStage stage(view);
    view.setDrawCrossHairs(false);
    stage.moveMouse(QPoint(120, 70));
    const QImage plain = shot(view);
    view.setDrawCustomCursor(true);
    const QImage expected = drawnOn(plain, view, blackPen(), [](QPainter& painter) {
        painter.drawLine(120, 50, 120, 64);
        painter.drawLine(120, 90, 120, 76);
        painter.drawLine(100, 70, 114, 70);
        painter.drawLine(140, 70, 126, 70);
        painter.drawRect(116, 66, 8, 8);
    });
    const QImage image = shot(view);
    QCOMPARE(image, expected);
    const QRgb black = QColor(Qt::black).rgb();
    QCOMPARE(image.pixel(120, 51), black);
    QCOMPARE(image.pixel(139, 70), black);
    QCOMPARE(image.pixel(116, 66), black);
    QCOMPARE(image.pixel(124, 74), black);
    for (const QPoint& gap : {QPoint(120, 70), QPoint(120, 69), QPoint(115, 70), QPoint(120, 49),
                              QPoint(125, 75), QPoint(141, 70)}) {
        QCOMPARE(image.pixel(gap), plain.pixel(gap));
    }
}

void EditorViewPaintingTest::customCursorIsDrawnOutsideToo()
{
    EditorView view;
    ViewStage stage(view);
    const QImage plain = shot(view);
    view.setDrawCustomCursor(true);
    stage.moveMouse(QPoint(-10, 100));
    const QImage image = shot(view);
    QCOMPARE(image.pixelColor(5, 100), QColor(Qt::black));
    QCOMPARE(image.pixelColor(12, 100), plain.pixelColor(12, 100));
}

void EditorViewPaintingTest::horizontalRuler_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("centerX");
    QTest::addColumn<Ruler>("ruler");
    // A pixel is one unit: ten are not less than the step 10, so the minor marks lie 20 apart.
    QTest::newRow("plain") << 1.0 << 200.0
                           << Ruler{{{0, "0"}, {100, "100"}, {200, "200"}, {300, "300"}},
                                    {0, 20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 260,
                                     280, 300}};
    QTest::newRow("scrolled to both sides of zero")
        << 1.0 << 0.0
        << Ruler{{{0, "-200"}, {100, "-100"}, {200, "0"}, {300, "100"}},
                 {0, 20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 260, 280, 300}};
    QTest::newRow("first mark left of the view")
        << 1.0 << 350.0
        << Ruler{{{-50, "100"}, {50, "200"}, {150, "300"}, {250, "400"}, {350, "500"}},
                 {-50, -30, -10, 10,  30,  50,  70,  90,  110, 130, 150,
                  170, 190, 210, 230, 250, 270, 290, 310, 330, 350}};
    QTest::newRow("ten pixels are exactly five")
        << 2.0 << 100.0
        << Ruler{{{0, "0"}, {100, "50"}, {200, "100"}, {300, "150"}},
                 {0, 20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 260, 280, 300}};
    QTest::newRow("zoomed in beyond the list")
        << 256.0 << 0.78125
        << Ruler{{{0, "0"}, {128, "0.5"}, {256, "1"}, {384, "1.5"}},
                 {0, 26, 51, 77, 102, 128, 154, 179, 205, 230, 256, 282, 307, 333, 358, 384}};
    QTest::newRow("zoomed out beyond the list")
        << 0.0625 << 0.0
        << Ruler{{{0, "-3200"},
                  {50, "-2400"},
                  {100, "-1600"},
                  {150, "-800"},
                  {200, "0"},
                  {250, "800"},
                  {300, "1600"},
                  {350, "2400"}},
                 {0,   10,  20,  30,  40,  50,  60,  70,  80,  90,  100, 110,
                  120, 130, 140, 150, 160, 170, 180, 190, 200, 210, 220, 230,
                  240, 250, 260, 270, 280, 290, 300, 310, 320, 330, 340, 350}};
}

void EditorViewPaintingTest::horizontalRuler()
{
    QFETCH(double, scale);
    QFETCH(double, centerX);
    QFETCH(Ruler, ruler);
    EditorView view;
    ViewStage stage(view);
    view.scale(scale, scale);
    view.setCenter(QPointF(centerX, 0), false);
    const QImage plain = shot(view);
    view.setRulers(false, true);
    const QImage expected = drawnOn(
        plain, view, blackPen(), [&ruler](QPainter& painter) { drawHorizontal(painter, ruler); });
    QCOMPARE(shot(view), expected);
}

void EditorViewPaintingTest::verticalRuler_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("centerY");
    QTest::addColumn<Ruler>("ruler");
    QTest::newRow("plain") << 1.0 << 150.0
                           << Ruler{{{0, "0"}, {100, "100"}, {200, "200"}},
                                    {0, 20, 40, 60, 80, 100, 120, 140, 160, 180, 200}};
    QTest::newRow("scrolled to both sides of zero")
        << 1.0 << 30.0
        << Ruler{{{20, "-100"}, {120, "0"}, {220, "100"}},
                 {20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220}};
    QTest::newRow("between two marks, one above the view")
        << 4.0 << 62.5
        << Ruler{{{0, "25"}, {100, "50"}, {200, "75"}},
                 {0, 20, 40, 60, 80, 100, 120, 140, 160, 180, 200}};
}

void EditorViewPaintingTest::verticalRuler()
{
    QFETCH(double, scale);
    QFETCH(double, centerY);
    QFETCH(Ruler, ruler);
    EditorView view;
    ViewStage stage(view);
    view.scale(scale, scale);
    view.setCenter(QPointF(0, centerY), false);
    const QImage plain = shot(view);
    view.setRulers(true, false);
    const QImage expected = drawnOn(plain, view, blackPen(),
                                    [&ruler](QPainter& painter) { drawVertical(painter, ruler); });
    QCOMPARE(shot(view), expected);
}

void EditorViewPaintingTest::rulerBetweenTwoMajorMarks()
{
    // From 105 to 194: the mark of 100 is outside, its label reaches in, and no minor marks follow.
    EditorView view;
    ViewStage stage(view);
    view.resize(400, 90);
    QCoreApplication::processEvents();
    view.setCenter(QPointF(200, 150), false);
    QCOMPARE(view.mapToScene(0, 0), QPointF(0, 105));
    const QImage plain = shot(view);
    view.setRulers(true, false);
    const QImage expected = drawnOn(plain, view, blackPen(), [](QPainter& painter) {
        drawVertical(painter, {{{-5, "100"}}, {}});
    });
    QVERIFY(expected != plain);
    QCOMPARE(shot(view), expected);
}

void EditorViewPaintingTest::rulerInAFrame()
{
    // The range is that of the widget: the mark of 300 lies beyond the viewport, and yet the minor
    // marks before it are drawn.
    EditorView view;
    ViewStage stage(view);
    view.setFrameStyle(QFrame::Box | QFrame::Plain);
    view.setLineWidth(60);
    QCoreApplication::processEvents();
    view.horizontalScrollBar()->setValue(0);
    view.verticalScrollBar()->setValue(0);
    QCOMPARE(view.viewport()->size(), QSize(280, 180));
    QCOMPARE(view.mapToScene(0, 0), QPointF(0, 0));
    const QImage plain = shot(view);
    view.setRulers(true, true);
    const QImage expected = drawnOn(plain, view, blackPen(), [](QPainter& painter) {
        const std::vector<int> minor = {0,   20,  40,  60,  80,  100, 120, 140,
                                        160, 180, 200, 220, 240, 260, 280, 300};
        drawHorizontal(painter, {{{0, "0"}, {100, "100"}, {200, "200"}, {300, "300"}}, minor});
        drawVertical(painter,
                     {{{0, "0"}, {100, "100"}, {200, "200"}}, {minor.begin(), minor.begin() + 11}});
    });
    QCOMPARE(shot(view), expected);
    QCOMPARE(shot(view).pixelColor(260, 1), QColor(Qt::black));
}

void EditorViewPaintingTest::rulerGoesByTheWidthOfAPixel()
{
    // Twice as fine upwards: the step stays that of the x axis, 20, here 40 pixels.
    EditorView view;
    ViewStage stage(view);
    view.scale(1, 2);
    view.setCenter(QPointF(0, 75), false);
    const QImage plain = shot(view);
    view.setRulers(true, false);
    const Ruler ruler{{{0, "0"}, {200, "100"}}, {0, 40, 80, 120, 160, 200}};
    const QImage expected = drawnOn(plain, view, blackPen(),
                                    [&ruler](QPainter& painter) { drawVertical(painter, ruler); });
    QCOMPARE(shot(view), expected);
}

void EditorViewPaintingTest::rulersDoNotScaleWithTheScene()
{
    EditorView view;
    ViewStage stage(view);
    view.setCenter(QPointF(200, 150), false);
    view.setRulers(true, true);
    const QImage before = shot(view);
    stage.turnWheel(QPoint(200, 150), QPoint(0, 120));
    const QImage after = shot(view);
    QVERIFY(before != after);
    for (const QImage& image : {before, after}) {
        int longest = 0;
        for (int x = 60; x < 400; ++x) {
            int length = 0;
            while (image.pixelColor(x, length) == QColor(Qt::black)) {
                ++length;
            }
            longest = qMax(longest, length);
        }
        QVERIFY2(longest == 8 || longest == 9, qPrintable(QString::number(longest)));
    }
}

void EditorViewPaintingTest::rulerOfBackwardsRangeIsEmpty()
{
    EditorView view;
    ViewStage stage(view);
    view.scale(1, -1);
    view.setCenter(QPointF(200, 0), false);
    const QImage plain = shot(view);
    view.setRulers(true, false);
    QCOMPARE(shot(view), plain);
    // The horizontal ruler lies at the top all the same.
    view.setRulers(false, true);
    const QImage horizontal = shot(view);
    QVERIFY(horizontal != plain);
    QCOMPARE(horizontal.pixelColor(100, 5), QColor(Qt::black));
    view.setRulers(true, true);
    QCOMPARE(shot(view), horizontal);
}

void EditorViewPaintingTest::rulerInARightToLeftLayout()
{
    // "-200" is not "200-".
    EditorView view;
    ViewStage stage(view);
    view.setCenter(QPointF(-200, -150), false);
    const QImage plain = shot(view);
    view.setRulers(true, true);
    const QImage expected = shot(view);
    QVERIFY(differingPixels(expected, plain) > 100);
    QApplication::setLayoutDirection(Qt::RightToLeft);
    const auto restore = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    view.setCenter(QPointF(-200, -150), false);
    QCOMPARE(shot(view), expected);
}

void EditorViewPaintingTest::rulerMarkPixels()
{
    EditorView view;
    ViewStage stage(view);
    const QImage plain = shot(view);
    view.setRulers(true, true);
    const QImage image = shot(view);
    const QColor black(Qt::black);
    for (int i = 0; i < 8; ++i) {
        QCOMPARE(image.pixelColor(100, i), black);
        QCOMPARE(image.pixelColor(i, 100), black);
    }
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(image.pixelColor(120, i), black);
        QCOMPARE(image.pixelColor(i, 120), black);
    }
    for (int i = 5; i < 9; ++i) {
        QCOMPARE(image.pixel(120, i), plain.pixel(120, i));
        QCOMPARE(image.pixel(i, 120), plain.pixel(i, 120));
    }
    QCOMPARE(image.pixel(101, 0), plain.pixel(101, 0));
    QCOMPARE(image.pixel(0, 101), plain.pixel(0, 101));
    // No marks beyond the last major one.
    QCOMPARE(image.pixel(320, 0), plain.pixel(320, 0));
    QCOMPARE(image.pixel(0, 220), plain.pixel(0, 220));
}

void EditorViewPaintingTest::twoDevicePixelsToAPixel()
{
    EditorView view;
    ViewStage stage(view);
    view.setRulers(true, true);
    view.setTitle(QStringLiteral("M"));
    QImage image(QSize(800, 600), QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    view.viewport()->render(&image);
    const QColor black(Qt::black);
    // Marks are as long and stand where they do on another screen, in pixels of the widget.
    for (int i = 0; i < 15; ++i) {
        QCOMPARE(image.pixelColor(200, i), black);
        QCOMPARE(image.pixelColor(i, 200), black);
    }
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(image.pixelColor(240, i), black);
        QCOMPARE(image.pixelColor(i, 240), black);
    }
    for (int i = 8; i < 18; ++i) {
        QVERIFY(image.pixelColor(240, i).lightness() > 150);
        QVERIFY(image.pixelColor(i, 240).lightness() > 150);
    }
    // The title stands on its base line.
    const auto inkOf = [&image](const QRect& part) {
        int ink = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                ink += image.pixelColor(x, y).lightness() < 100 ? 1 : 0;
            }
        }
        return ink;
    };
    QVERIFY(inkOf(QRect(40, 46, 20, 14)) > 20);
    QCOMPARE(inkOf(QRect(40, 62, 20, 14)), 0);
}

void EditorViewPaintingTest::everythingTogetherInOrder()
{
    EditorView view;
    ViewStage stage(view);
    const QImage plain = shot(view);
    stage.moveMouse(QPoint(30, 20));
    view.setDrawCustomCursor(true);
    view.setTitle(QStringLiteral("Title"));
    view.setRulers(true, true);
    const QPen dots(Qt::darkGray, 1.0, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin);
    QImage expected = drawnOn(plain, view, dots, [](QPainter& painter) {
        painter.drawLine(30, 0, 30, 299);
        painter.drawLine(0, 20, 399, 20);
    });
    expected = drawnOn(expected, view, blackPen(), [](QPainter& painter) {
        painter.drawLine(30, 0, 30, 14);
        painter.drawLine(30, 40, 30, 26);
        painter.drawLine(10, 20, 24, 20);
        painter.drawLine(50, 20, 36, 20);
        painter.drawRect(26, 16, 8, 8);
        painter.drawText(QPoint(20, 30), QStringLiteral("Title"));
        const std::vector<int> minor = {0,   20,  40,  60,  80,  100, 120, 140,
                                        160, 180, 200, 220, 240, 260, 280, 300};
        drawHorizontal(painter, {{{0, "0"}, {100, "100"}, {200, "200"}, {300, "300"}}, minor});
        drawVertical(painter,
                     {{{0, "0"}, {100, "100"}, {200, "200"}}, {minor.begin(), minor.begin() + 11}});
    });
    QCOMPARE(shot(view), expected);
}

void EditorViewPaintingTest::foregroundIsAboveTheItems()
{
    EditorView view;
    ViewStage stage(view);
    view.scene()->addRect(-10, -10, 1000, 1000, Qt::NoPen, Qt::green);
    view.setRulers(false, true);
    const QImage image = shot(view);
    QCOMPARE(image.pixelColor(100, 4), QColor(Qt::black));
    QCOMPARE(image.pixelColor(105, 4), QColor(Qt::green));
}

void EditorViewPaintingTest::painterIsRestored()
{
    struct OpenView : EditorView
    {
        using EditorView::drawForeground;
    };
    OpenView view;
    ViewStage stage(view);
    view.setDrawCustomCursor(true);
    view.setTitle(QStringLiteral("Title"));
    view.setRulers(true, true);
    stage.moveMouse(QPoint(30, 20));
    QImage image(400, 300, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::magenta);
    painter.scale(2, 3);
    view.drawForeground(&painter, QRectF(0, 0, 400, 300));
    QVERIFY(painter.testRenderHint(QPainter::Antialiasing));
    QCOMPARE(painter.pen(), QPen(Qt::magenta));
    QCOMPARE(painter.transform(), QTransform::fromScale(2, 3));
    QVERIFY(painter.worldMatrixEnabled());
}

void EditorViewPaintingTest::extremeViewsAreDrawnInTime_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<QRectF>("sceneRect");
    const QRectF ordinary(-1e4, -1e4, 2e4, 2e4);
    const QRectF vast(-1e15, -1e15, 2e15, 2e15);
    const double infinite = std::numeric_limits<double>::infinity();
    QTest::newRow("a thousand million times as high as wide")
        << QTransform::fromScale(1, 1e-9) << vast;
    QTest::newRow("a thousand million times as wide as high")
        << QTransform::fromScale(1e-9, 1) << vast;
    QTest::newRow("high and wide") << QTransform::fromScale(1e-12, 1e-12) << vast;
    QTest::newRow("far in") << QTransform::fromScale(1e15, 1e15) << ordinary;
    QTest::newRow("far out") << QTransform::fromScale(1e-300, 1e-300) << ordinary;
    QTest::newRow("far beyond 32 bits")
        << QTransform::fromScale(1, 1) << QRectF(1e15, 1e15, 1e5, 1e5);
    QTest::newRow("beyond the precision")
        << QTransform::fromScale(100, 100) << QRectF(1e18, 1e18, 1e5, 1e5);
    QTest::newRow("mirrored") << QTransform::fromScale(-1, 1) << ordinary;
    QTest::newRow("turned") << QTransform().rotate(90) << ordinary;
    QTest::newRow("flat") << QTransform(1, 0, 0, 0, 0, 0) << ordinary;
    QTest::newRow("point") << QTransform(0, 0, 0, 0, 0, 0) << ordinary;
    QTest::newRow("infinite scene")
        << QTransform() << QRectF(-infinite, -infinite, infinite, infinite);
}

void EditorViewPaintingTest::extremeViewsAreDrawnInTime()
{
    QFETCH(QTransform, transform);
    QFETCH(QRectF, sceneRect);
    EditorView view;
    ViewStage stage(view);
    view.scene()->setSceneRect(sceneRect);
    view.setTransform(transform);
    view.setCenter(sceneRect.center(), false);
    view.setRulers(true, true);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(shot(view).size(), QSize(400, 300));
    QVERIFY2(timer.elapsed() < 5000, "takes time in proportion to the numbers");
}

void EditorViewPaintingTest::extremeAspectKeepsPixelsFree()
{
    // As many marks as the step of the x axis asks for would make the edge one black stripe.
    EditorView view;
    ViewStage stage(view);
    view.scene()->setSceneRect(-1e12, -1e12, 2e12, 2e12);
    view.scale(1, 1e-6);
    view.setCenter(QPointF(0, 0), false);
    const QImage plain = shot(view);
    view.setRulers(true, false);
    const QImage image = shot(view);
    int marks = 0;
    for (int y = 0; y < 300; ++y) {
        marks += image.pixel(1, y) != plain.pixel(1, y) ? 1 : 0;
    }
    QVERIFY2(marks >= 4 && marks <= 60, qPrintable(QString::number(marks)));
    // Zero is a mark of every ruler.
    QCOMPARE(image.pixelColor(7, 150), QColor(Qt::black));
}

QTEST_MAIN(EditorViewPaintingTest)
#include "tst_editor_view_painting.moc"
