// What rulers and a cross hair cost in an editor view, beside a plain view with the same items and
// the same background.

#include "benchmarks/report.h"
#include "qt/inc/editor2d.h"
#include "qt/inc/graphics.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCursor>
#include <QGraphicsScene>
#include <QPainter>

namespace {

using zel::qt::ed2d::EditorItem;
using zel::qt::graphics::EditorView;

constexpr int columns = 100;
constexpr int rows = 50;
constexpr QSize viewSize(1200, 800);

class PlainView : public QGraphicsView
{
public:
    PlainView()
    {
        setScene(&m_scene);
        m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
        setRenderHint(QPainter::Antialiasing, true);
        setDragMode(QGraphicsView::RubberBandDrag);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setMouseTracking(true);
    }

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override
    {
        QLinearGradient gradient(rect.topLeft(), rect.bottomRight());
        gradient.setColorAt(0, Qt::white);
        gradient.setColorAt(1, Qt::lightGray);
        painter->fillRect(rect, gradient);
        painter->setBrush(Qt::NoBrush);
    }

private:
    QGraphicsScene m_scene;
};

void prepare(QGraphicsView& view)
{
    QGraphicsScene& scene = *view.scene();
    scene.setSceneRect(0, 0, viewSize.width(), viewSize.height());
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            auto* const item = new EditorItem;
            item->setPos(column * 12, row * 16);
            scene.addItem(item);
        }
    }
    view.setFrameShape(QFrame::NoFrame);
    view.resize(viewSize);
    view.move(0, 0);
    view.show();
    QCursor::setPos(QPoint(400, 300));
    QCoreApplication::processEvents();
}

void repaint(benchmark::State& state, QGraphicsView& view)
{
    for (auto _ : state) {
        view.viewport()->repaint();
    }
    state.SetItemsProcessed(state.iterations() * columns * rows);
}

/// `everywhere` is whether the view repaints by itself.
void moveMouse(benchmark::State& state, QGraphicsView& view, bool everywhere)
{
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % viewSize.width();
        QCursor::setPos(view.mapToGlobal(QPoint(x, 301)));
        if (!everywhere) {
            view.viewport()->update();
        }
        QCoreApplication::processEvents();
    }
}

void repaintPlain(benchmark::State& state)
{
    PlainView view;
    prepare(view);
    repaint(state, view);
}

void repaintWithRulers(benchmark::State& state)
{
    EditorView view;
    view.setRulers(true, true);
    view.setDrawCrossHairs(false);
    prepare(view);
    repaint(state, view);
}

void moveMousePlain(benchmark::State& state)
{
    PlainView view;
    prepare(view);
    moveMouse(state, view, false);
}

void moveMouseWithCrossHair(benchmark::State& state)
{
    EditorView view;
    view.setRulers(true, true);
    prepare(view);
    moveMouse(state, view, true);
}

BENCHMARK(repaintPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintWithRulers)->Unit(benchmark::kMillisecond);
BENCHMARK(moveMousePlain)->Unit(benchmark::kMillisecond);
BENCHMARK(moveMouseWithCrossHair)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const zel::bench::Report report(argc, argv);
    const auto row = [&report](const char* what, const char* plain, const char* editor) {
        const double before = report.seconds(plain);
        const double after = report.seconds(editor);
        return std::vector<std::string>{what, report.time(before), report.time(after),
                                        report.number(after / before), "1.2"};
    };
    report.print({{"What", "Plain view", "`EditorView`", "Ratio", "Bound"},
                  row("Repaint, with both rulers", "repaintPlain", "repaintWithRulers"),
                  row("Move of the mouse and the repaint that follows, with both rulers and the "
                      "cross hair",
                      "moveMousePlain", "moveMouseWithCrossHair")});
    return report.status();
}
