#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <memory>
#include <rapidcheck.h>
#include <type_traits>

using namespace zel::qt;

namespace {

/// The cell that a widget takes in a grid.
QPoint cellOf(const QGridLayout& grid, QWidget* widget)
{
    int row = -1;
    int column = -1;
    int rowSpan = 0;
    int columnSpan = 0;
    const int index = grid.indexOf(widget);
    if (index >= 0) {
        grid.getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
    }
    return rowSpan == 1 && columnSpan == 1 ? QPoint(row, column) : QPoint(-1, -1);
}

QMargins margins(int size)
{
    return {size, size, size, size};
}

} // namespace

class LayoutersTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void isNoncopyable();
    void hasNoLayoutBeforeOnCreate();
    void boxesPackAtTheStart_data();
    void boxesPackAtTheStart();
    void boxAddsWithoutStretchAndAlignment();
    void gridStartsAtTheOrigin();
    void gridSkipsCellsToTheRight();
    void gridSkipsCellsDownwards();
    void gridPositionCanBeSetInBetween();
    void gridFollowsAnySequenceOfSteps();
    void secondOnCreateKeepsTheGridPosition();
    void propertyGridPutsLabelsAndControls();
    void propertyGridLeavesTheLabelCellFree();
    void propertyGridStretchesTheEnd();
    void propertyGridWithoutControlsFinishes();
    void propertyGridKeepsTheStyleMargins();
    void propertyGridNamesTheFocusWidget();
    void propertyGridKeepsAnAccessibleName();
    void labelKeepsItsAmpersand();
    void onAddBeforeOnCreateReports();
};

void LayoutersTest::isNoncopyable()
{
    QVERIFY(!std::is_copy_constructible_v<VBoxLayouter>);
    QVERIFY(!std::is_copy_assignable_v<GridLayouter>);
    QVERIFY(std::is_abstract_v<ILayouter>);
    QVERIFY(std::has_virtual_destructor_v<ILayouter>);
}

void LayoutersTest::hasNoLayoutBeforeOnCreate()
{
    QVERIFY(VBoxLayouter().layout() == nullptr);
    QVERIFY(HBoxLayouter().layout() == nullptr);
    QVERIFY(GridLayouter().layout() == nullptr);
    QVERIFY(PropertyGridLayouter().layout() == nullptr);
}

void LayoutersTest::boxesPackAtTheStart_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::newRow("column") << true;
    QTest::newRow("row") << false;
}

void LayoutersTest::boxesPackAtTheStart()
{
    QFETCH(bool, vertical);
    QWidget window;
    VBoxLayouter column;
    HBoxLayouter row;
    ILayouter& layouter = vertical ? static_cast<ILayouter&>(column) : row;
    layouter.onCreate(&window);
    auto* first = new QCheckBox(QStringLiteral("first"));
    auto* second = new QCheckBox(QStringLiteral("second"));
    layouter.onAdd(first);
    layouter.onAdd(second);
    layouter.onFinish();

    QBoxLayout* layout = vertical ? static_cast<QBoxLayout*>(column.layout()) : row.layout();
    QCOMPARE(static_cast<QLayout*>(layout), window.layout());
    QCOMPARE(layout->contentsMargins(), margins(4));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 3);
    QVERIFY(layout->itemAt(2)->spacerItem() != nullptr);
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->stretch(1), 0);
    QCOMPARE(layout->stretch(2), 1);
    QCOMPARE(first->parentWidget(), &window);

    window.resize(400, 400);
    window.show();
    if (vertical) {
        QCOMPARE(first->y(), 4);
        QCOMPARE(second->y(), 4 + first->height());
        QCOMPARE(second->height(), second->sizeHint().height());
    } else {
        QCOMPARE(first->x(), 4);
        QCOMPARE(second->x(), 4 + first->width());
        QCOMPARE(second->width(), second->sizeHint().width());
    }
}

void LayoutersTest::boxAddsWithoutStretchAndAlignment()
{
    QWidget window;
    VBoxLayouter layouter;
    layouter.onCreate(&window);
    layouter.onAdd(new QWidget);
    QCOMPARE(layouter.layout()->itemAt(0)->alignment(), Qt::Alignment());
    QCOMPARE(layouter.layout()->count(), 1);
}

void LayoutersTest::gridStartsAtTheOrigin()
{
    QWidget window;
    GridLayouter layouter;
    layouter.onCreate(&window);
    QCOMPARE(layouter.layout()->contentsMargins(), margins(4));
    QCOMPARE(layouter.layout()->spacing(), 4);
    auto* first = new QWidget;
    auto* second = new QWidget;
    layouter.onAdd(first);
    layouter.onAdd(second);
    layouter.onFinish();
    QCOMPARE(cellOf(*layouter.layout(), first), QPoint(0, 0));
    QCOMPARE(cellOf(*layouter.layout(), second), QPoint(1, 0));
    QCOMPARE(layouter.layout()->count(), 2);
    QCOMPARE(layouter.layout()->rowStretch(1), 0);
}

void LayoutersTest::gridSkipsCellsToTheRight()
{
    QWidget window;
    GridLayouter layouter(ExpandRight);
    layouter.onCreate(&window);
    layouter.setCellSkip(1);
    for (int i = 0; i < 3; ++i) {
        auto* widget = new QWidget;
        layouter.onAdd(widget);
        QCOMPARE(cellOf(*layouter.layout(), widget), QPoint(0, 2 * i));
    }
}

void LayoutersTest::gridSkipsCellsDownwards()
{
    QWidget window;
    GridLayouter layouter(ExpandDown);
    layouter.onCreate(&window);
    layouter.setCellSkip(2);
    for (int i = 0; i < 3; ++i) {
        auto* widget = new QWidget;
        layouter.onAdd(widget);
        QCOMPARE(cellOf(*layouter.layout(), widget), QPoint(3 * i, 0));
    }
}

void LayoutersTest::gridPositionCanBeSetInBetween()
{
    QWidget window;
    GridLayouter layouter;
    layouter.onCreate(&window);
    layouter.onAdd(new QWidget);
    layouter.setPosition(3, 2);
    auto* third = new QWidget;
    layouter.onAdd(third);
    QCOMPARE(cellOf(*layouter.layout(), third), QPoint(3, 2));
    auto* behind = new QWidget;
    layouter.onAdd(behind);
    QCOMPARE(cellOf(*layouter.layout(), behind), QPoint(4, 2));
}

void LayoutersTest::gridFollowsAnySequenceOfSteps()
{
    const bool holds = rc::check("a control stands where the steps before it lead", [] {
        const auto direction = *rc::gen::element(ExpandDown, ExpandRight);
        const auto steps = *rc::gen::container<std::vector<std::tuple<int, int, int>>>(
            rc::gen::tuple(rc::gen::inRange(0, 3), rc::gen::inRange(0, 5), rc::gen::inRange(0, 5)));
        QWidget window;
        GridLayouter layouter(direction);
        layouter.onCreate(&window);
        QPoint expected(0, 0);
        int skip = 0;
        for (const auto& [kind, a, b] : steps) {
            if (kind == 0) {
                layouter.setPosition(a, b);
                expected = QPoint(a, b);
            } else if (kind == 1) {
                layouter.setCellSkip(a);
                skip = a;
            } else {
                auto* widget = new QWidget;
                layouter.onAdd(widget);
                RC_ASSERT(cellOf(*layouter.layout(), widget) == expected);
                expected += direction == ExpandRight ? QPoint(0, skip + 1) : QPoint(skip + 1, 0);
            }
        }
    });
    QVERIFY(holds);
}

void LayoutersTest::secondOnCreateKeepsTheGridPosition()
{
    QWidget first;
    QWidget second;
    GridLayouter layouter;
    layouter.onCreate(&first);
    layouter.onAdd(new QWidget);
    layouter.onCreate(&second);
    QCOMPARE(static_cast<QLayout*>(layouter.layout()), second.layout());
    auto* widget = new QWidget;
    layouter.onAdd(widget);
    QCOMPARE(cellOf(*layouter.layout(), widget), QPoint(1, 0));
}

void LayoutersTest::propertyGridPutsLabelsAndControls()
{
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    for (int row = 0; row < 2; ++row) {
        auto* control = new QLineEdit;
        layouter.onAdd(control, QStringLiteral("x%1").arg(row));
        QCOMPARE(cellOf(*layouter.layout(), control), QPoint(row, 1));
        auto* label = qobject_cast<QLabel*>(layouter.layout()->itemAtPosition(row, 0)->widget());
        QVERIFY(label != nullptr);
        QCOMPARE(label->text(), QStringLiteral("x%1").arg(row));
        QCOMPARE(label->parentWidget(), &window);
        QVERIFY(!label->isWindow());
    }
    QCOMPARE(layouter.layout()->count(), 4);
}

void LayoutersTest::propertyGridLeavesTheLabelCellFree()
{
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    auto* bare = new QLineEdit;
    layouter.onAdd(bare);
    auto* labelled = new QLineEdit;
    layouter.onAdd(labelled, QStringLiteral("x"));
    ILayouter& base = layouter;
    auto* last = new QLineEdit;
    base.onAdd(last);
    QCOMPARE(cellOf(*layouter.layout(), bare), QPoint(0, 1));
    QVERIFY(layouter.layout()->itemAtPosition(0, 0) == nullptr);
    QCOMPARE(cellOf(*layouter.layout(), labelled), QPoint(1, 1));
    QCOMPARE(cellOf(*layouter.layout(), last), QPoint(2, 1));
}

void LayoutersTest::propertyGridStretchesTheEnd()
{
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    layouter.onAdd(new QLineEdit, QStringLiteral("a"));
    layouter.onAdd(new QLineEdit, QStringLiteral("b"));
    layouter.onFinish();
    QCOMPARE(layouter.layout()->rowStretch(0), 0);
    QCOMPARE(layouter.layout()->rowStretch(1), 1);
    QCOMPARE(layouter.layout()->columnStretch(0), 0);
    QCOMPARE(layouter.layout()->columnStretch(1), 1);
}

void LayoutersTest::propertyGridWithoutControlsFinishes()
{
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    layouter.onFinish();
    QCOMPARE(layouter.layout()->count(), 0);
}

void LayoutersTest::propertyGridKeepsTheStyleMargins()
{
    QWidget reference;
    const QGridLayout plain(&reference);
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    QCOMPARE(layouter.layout()->contentsMargins(), plain.contentsMargins());
    QCOMPARE(layouter.layout()->horizontalSpacing(), plain.horizontalSpacing());
}

void LayoutersTest::propertyGridNamesTheFocusWidget()
{
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    auto* box = MultiEditEnumBox::create(&window, QString(), nullptr);
    QCOMPARE(takeExpressions(), (QStringList{"eqFn", "anyEqAvailable()"}));
    layouter.onAdd(box, QStringLiteral("Material"));
    QCOMPARE(box->findChild<ZEL_QT4_ComboBox*>()->accessibleName(), QStringLiteral("Material"));
    QCOMPARE(window.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly)->buddy(),
             static_cast<QWidget*>(box));
}

void LayoutersTest::propertyGridKeepsAnAccessibleName()
{
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    auto* edit = new QLineEdit;
    edit->setAccessibleName(QStringLiteral("Length of the beam"));
    layouter.onAdd(edit, QStringLiteral("L"));
    QCOMPARE(edit->accessibleName(), QStringLiteral("Length of the beam"));
}

void LayoutersTest::labelKeepsItsAmpersand()
{
    QWidget window;
    PropertyGridLayouter layouter;
    layouter.onCreate(&window);
    layouter.onAdd(new QLineEdit, QStringLiteral("N & M"));
    auto* label = window.findChild<QLabel*>();
    QCOMPARE(label->text(), QStringLiteral("N & M"));
    // With a buddy the ampersand would be taken for the mark of a shortcut.
    QVERIFY(label->buddy() == nullptr);
}

void LayoutersTest::onAddBeforeOnCreateReports()
{
    QWidget control;
    std::vector<std::unique_ptr<ILayouter>> layouters;
    layouters.push_back(std::make_unique<VBoxLayouter>());
    layouters.push_back(std::make_unique<HBoxLayouter>());
    layouters.push_back(std::make_unique<GridLayouter>());
    layouters.push_back(std::make_unique<PropertyGridLayouter>());
    for (const auto& layouter : layouters) {
        layouter->onAdd(&control);
        QCOMPARE(takeExpressions(), QStringList{"m_layout"});
    }
    PropertyGridLayouter().onAdd(&control, QStringLiteral("x"));
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].file, std::string("qt/src/controls/layouters.cpp"));
    QVERIFY(control.parentWidget() == nullptr);
}

QTEST_MAIN(LayoutersTest)
#include "tst_layouters.moc"
