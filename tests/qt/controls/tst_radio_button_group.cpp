#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/any_compare.h"
#include "tests/helpers/checked_test.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QRadioButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <rapidcheck.h>

using namespace zel::qt;
using zel::test::equalInts;
using zel::test::lessInts;

namespace {

NamedValueList threeValues()
{
    return {{"Steel", 1}, {"Concrete", 2}, {"Timber", 3}};
}

/// Notes down what it is asked to place.
class NotingLayouter : public ILayouter
{
public:
    void onCreate(QWidget* container) override
    {
        notes << QStringLiteral("create ") +
                     QString::fromLatin1(container->metaObject()->className());
    }
    void onAdd(QWidget* widget) override
    {
        notes << QStringLiteral("add ") + qobject_cast<QRadioButton*>(widget)->text();
    }
    void onFinish() override
    {
        notes << QStringLiteral("finish");
    }

    QStringList notes;
};

/// A group in a window, exclusive by a QButtonGroup or by the parent of the buttons.
struct Group
{
    explicit Group(bool withButtonGroup = true, const NamedValueList& values = threeValues())
        : control(MultiEditRadioButtonGroup::create(QStringLiteral("Material"), values, equalInts,
                                                    lessInts, &window, nullptr, true,
                                                    withButtonGroup))
        , changed(control, &MultiEditRadioButtonGroup::valueChanged)
        , buttons(control->findChildren<QRadioButton*>())
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(control);
        window.show();
    }

    /// One character for each button, "x" for a checked one.
    QString shown() const
    {
        QString text;
        for (const QRadioButton* button : buttons) {
            text += QLatin1Char(button->isChecked() ? 'x' : '-');
        }
        return text;
    }

    void click(int index)
    {
        QTest::mouseClick(buttons[index], Qt::LeftButton, {},
                          QPoint(5, buttons[index]->height() / 2));
    }

    int current() const
    {
        const boost::any value = control->getCurrentValue();
        return value.empty() ? -1 : boost::any_cast<int>(value);
    }

    QWidget window;
    MultiEditRadioButtonGroup* control;
    QSignalSpy changed;
    QList<QRadioButton*> buttons;
};

} // namespace

class RadioButtonGroupTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void simpleCreateAssertsInItsOrder();
    void multiCreateAssertsInItsOrder();
    void simpleStartsWithNothingChecked();
    void asksTheLayouterInOrder();
    void asksTheLayouterWithoutGroupBox();
    void placesInAColumnByDefault();
    void withoutGroupBoxAndLayouterReports();
    void labelAndFrame();
    void setSelectedChecksTheButton();
    void setSelectedOfAnUnknownValue();
    void valuesCanBeDisabled();
    void laterOfTwoEquivalentValuesWins();
    void emptyOrderingThrows();
    void multiStartsWithTheFirstEntry();
    void clickEmitsOnce_data();
    void clickEmitsOnce();
    void spaceAndArrowKeysChoose();
    void setValueEmitsOnce();
    void setValueOfAnUnknownValueStillEmits();
    void setValueMakesAutoExclusive();
    void readsOfOneSelection();
    void readThatVariesEmits();
    void forceVariesUnchecksAll_data();
    void forceVariesUnchecksAll();
    void forceVariesDoesNotRestoreBlocking();
    void clickInVaryingDecides_data();
    void clickInVaryingDecides();
    void getValueWhileVaryingReports();
    void resetChecksTheFirstAndEmitsOnce();
    void resetEnables();
    void stackConstructedGroupHearsItsButtons();
    void withoutEqualityNothingIsEqual();
    void noValuesDoNotCrash();
    void orderOfReadingDoesNotMatter();
};

void RadioButtonGroupTest::simpleCreateAssertsInItsOrder()
{
    const std::unique_ptr<SimpleRadioButtonGroup> group(
        SimpleRadioButtonGroup::create("a", {}, nullptr, {}, nullptr, nullptr, true, true));
    const auto reports = takeReports();
    QStringList expressions;
    for (const auto& report : reports) {
        expressions << QString::fromStdString(report.expression);
    }
    QCOMPARE(expressions, (QStringList{"parent", "!values.empty()", "equalFn", "lessFn", "m_fn",
                                       "!m_values.empty()"}));
    QCOMPARE(reports[0].file, std::string("qt/src/controls/radio_button_group.cpp"));
}

void RadioButtonGroupTest::multiCreateAssertsInItsOrder()
{
    const std::unique_ptr<MultiEditRadioButtonGroup> group(
        MultiEditRadioButtonGroup::create("a", {}, nullptr, {}, nullptr, nullptr, true, true));
    QCOMPARE(takeExpressions(), (QStringList{"!values.empty()", "lessFn", "equalFn", "parent",
                                             "m_fn", "!m_values.empty()"}));
}

void RadioButtonGroupTest::simpleStartsWithNothingChecked()
{
    QWidget window;
    SimpleRadioButtonGroup* group = SimpleRadioButtonGroup::create(
        "Material", threeValues(), equalInts, lessInts, &window, nullptr, true, true);
    for (const QRadioButton* button : group->findChildren<QRadioButton*>()) {
        QVERIFY(!button->isChecked());
    }
    QCOMPARE(boost::any_cast<int>(group->getSelectedValue()), 1);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("false"));
    QCOMPARE(reports[0].message, std::string("no button checked - returning default value"));
    QCOMPARE(reports[0].file, std::string("qt/src/controls/radio_button_group.cpp"));
    QCOMPARE(SimpleRadioButtonGroup::staticMetaObject.methodCount(),
             QWidget::staticMetaObject.methodCount());
}

void RadioButtonGroupTest::asksTheLayouterInOrder()
{
    QWidget window;
    NotingLayouter layouter;
    const SimpleRadioButtonGroup group("Material", threeValues(), equalInts, lessInts, &window,
                                       &layouter, true, true);
    QCOMPARE(layouter.notes, (QStringList{"create QGroupBox", "add Steel", "add Concrete",
                                          "add Timber", "finish"}));
}

void RadioButtonGroupTest::asksTheLayouterWithoutGroupBox()
{
    QWidget window;
    NotingLayouter layouter;
    const SimpleRadioButtonGroup group("Material", threeValues(), equalInts, lessInts, &window,
                                       &layouter, false, true);
    QCOMPARE(layouter.notes, (QStringList{"add Steel", "add Concrete", "add Timber"}));
    QVERIFY(group.findChild<QGroupBox*>() == nullptr);
    QVERIFY(group.layout() == nullptr);
    for (const QRadioButton* button : group.findChildren<QRadioButton*>()) {
        QCOMPARE(button->parentWidget(), static_cast<const QWidget*>(&group));
    }
}

void RadioButtonGroupTest::placesInAColumnByDefault()
{
    const Group group;
    auto* frame = group.control->findChild<QGroupBox*>();
    auto* column = qobject_cast<QVBoxLayout*>(frame->layout());
    QVERIFY(column != nullptr);
    QCOMPARE(column->count(), 4);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(column->itemAt(i)->widget(), static_cast<QWidget*>(group.buttons[i]));
    }
    QVERIFY(column->itemAt(3)->spacerItem() != nullptr);
}

void RadioButtonGroupTest::withoutGroupBoxAndLayouterReports()
{
    QWidget window;
    const SimpleRadioButtonGroup group("", threeValues(), equalInts, lessInts, &window, nullptr,
                                       false, true);
    QCOMPARE(takeExpressions(), (QStringList{"m_layout", "m_layout", "m_layout"}));
}

void RadioButtonGroupTest::labelAndFrame()
{
    const Group group;
    auto* frame = group.control->findChild<QGroupBox*>();
    QCOMPARE(frame->title(), QStringLiteral("Material"));
    auto* layout = qobject_cast<QVBoxLayout*>(group.control->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
    QCOMPARE(layout->stretch(0), 0);
    auto* buttonGroup = group.control->findChild<QButtonGroup*>();
    QVERIFY(buttonGroup != nullptr);
    QCOMPARE(buttonGroup->buttons().size(), 3);
    const Group plain(false);
    QVERIFY(plain.control->findChild<QButtonGroup*>() == nullptr);
}

void RadioButtonGroupTest::setSelectedChecksTheButton()
{
    Group group;
    group.control->setSelected(boost::any(3));
    QCOMPARE(group.shown(), QStringLiteral("--x"));
    QCOMPARE(boost::any_cast<int>(group.control->getSelectedValue()), 3);
    QCOMPARE(group.changed.count(), 0);
}

void RadioButtonGroupTest::setSelectedOfAnUnknownValue()
{
    Group group;
    group.control->setSelected(boost::any(2));
    group.control->setSelected(boost::any(7));
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("it != m_value2button.end()"));
    QCOMPARE(reports[0].message, std::string("value key not found"));
    QCOMPARE(group.shown(), QStringLiteral("-x-"));
}

void RadioButtonGroupTest::valuesCanBeDisabled()
{
    Group group;
    group.control->setValueEnabled(boost::any(2), false);
    QVERIFY(group.buttons[0]->isEnabled());
    QVERIFY(!group.buttons[1]->isEnabled());
    QVERIFY(group.buttons[2]->isEnabled());
    group.click(1);
    QCOMPARE(group.changed.count(), 0);
    group.control->setValuesEnabled(false);
    QVERIFY(!group.buttons[0]->isEnabled());
    QVERIFY(!group.buttons[2]->isEnabled());
    group.control->setValuesEnabled(true);
    QVERIFY(group.buttons[1]->isEnabled());
    group.control->setValueEnabled(boost::any(7), false);
    QCOMPARE(takeExpressions(), QStringList{"it != m_value2button.end()"});
}

void RadioButtonGroupTest::laterOfTwoEquivalentValuesWins()
{
    Group group(true, {{"one", 1}, {"two", 2}, {"another two", 2}});
    group.control->setSelected(boost::any(2));
    QCOMPARE(group.shown(), QStringLiteral("--x"));
    group.click(1);
    QCOMPARE(group.current(), 2);
    // Only the button of the value is meant here as well.
    group.control->setValuesEnabled(false);
    QVERIFY(group.buttons[1]->isEnabled());
    QVERIFY(!group.buttons[2]->isEnabled());
    // Varying unchecks both.
    group.control->forceVaries();
    QCOMPARE(group.shown(), QStringLiteral("---"));
}

void RadioButtonGroupTest::emptyOrderingThrows()
{
    QWidget window;
    QVERIFY_EXCEPTION_THROWN(SimpleRadioButtonGroup::create("a", threeValues(), equalInts, {},
                                                            &window, nullptr, true, true),
                             boost::bad_function_call);
    QCOMPARE(takeExpressions(), (QStringList{"lessFn", "m_fn"}));
}

void RadioButtonGroupTest::multiStartsWithTheFirstEntry()
{
    const Group group;
    QCOMPARE(group.shown(), QStringLiteral("x--"));
    QVERIFY(!group.control->dataVaries());
    QCOMPARE(group.current(), 1);
    QCOMPARE(boost::any_cast<int>(group.control->getValue()), 1);
}

void RadioButtonGroupTest::clickEmitsOnce_data()
{
    QTest::addColumn<bool>("withButtonGroup");
    QTest::newRow("button group") << true;
    QTest::newRow("auto-exclusive") << false;
}

void RadioButtonGroupTest::clickEmitsOnce()
{
    QFETCH(bool, withButtonGroup);
    Group group(withButtonGroup);
    group.click(2);
    QCOMPARE(group.changed.count(), 1);
    QCOMPARE(group.shown(), QStringLiteral("--x"));
    QCOMPARE(group.current(), 3);
    group.click(2);
    QCOMPARE(group.changed.count(), 2);
    QCOMPARE(group.shown(), QStringLiteral("--x"));
}

void RadioButtonGroupTest::spaceAndArrowKeysChoose()
{
    Group group;
    QVERIFY(zel::test::showActive(group.window));
    group.control->forceVaries();
    group.buttons[0]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(group.window.windowHandle(), Qt::Key_Space);
    QCOMPARE(group.current(), 1);
    QCOMPARE(group.changed.count(), 1);
    QTest::keyClick(group.window.windowHandle(), Qt::Key_Down);
    QCOMPARE(group.shown(), QStringLiteral("-x-"));
    QCOMPARE(group.current(), 2);
    QCOMPARE(group.changed.count(), 2);
}

void RadioButtonGroupTest::setValueEmitsOnce()
{
    Group group;
    group.control->forceVaries();
    group.control->setValue(boost::any(2));
    QCOMPARE(group.changed.count(), 1);
    QVERIFY(!group.control->dataVaries());
    QCOMPARE(group.shown(), QStringLiteral("-x-"));
}

void RadioButtonGroupTest::setValueOfAnUnknownValueStillEmits()
{
    Group group;
    group.control->setSelected(boost::any(2));
    group.control->setValue(boost::any(7));
    QCOMPARE(takeExpressions(), QStringList{"it != m_value2button.end()"});
    QCOMPARE(group.shown(), QStringLiteral("-x-"));
    QCOMPARE(group.changed.count(), 1);
}

void RadioButtonGroupTest::setValueMakesAutoExclusive()
{
    Group group(false);
    for (QRadioButton* button : group.buttons) {
        button->setAutoExclusive(false);
    }
    group.control->setValue(boost::any(2));
    for (const QRadioButton* button : group.buttons) {
        QVERIFY(button->autoExclusive());
    }
}

void RadioButtonGroupTest::readsOfOneSelection()
{
    Group group;
    group.control->readValue(boost::any(2));
    QCOMPARE(group.changed.count(), 1);
    QCOMPARE(group.current(), 2);
    group.control->readValue(boost::any(2));
    QCOMPARE(group.changed.count(), 1);
    QVERIFY(!group.control->dataVaries());
}

void RadioButtonGroupTest::readThatVariesEmits()
{
    Group group;
    group.control->readValue(boost::any(2));
    group.control->readValue(boost::any(3));
    QCOMPARE(group.changed.count(), 2);
    QVERIFY(group.control->dataVaries());
    QCOMPARE(group.shown(), QStringLiteral("---"));
    QVERIFY(group.control->getCurrentValue().empty());
    group.control->readValue(boost::any(1));
    QCOMPARE(group.changed.count(), 2);
    QCOMPARE(group.shown(), QStringLiteral("---"));
}

void RadioButtonGroupTest::forceVariesUnchecksAll_data()
{
    clickEmitsOnce_data();
}

void RadioButtonGroupTest::forceVariesUnchecksAll()
{
    QFETCH(bool, withButtonGroup);
    Group group(withButtonGroup);
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (QRadioButton* button : group.buttons) {
        spies.push_back(std::make_unique<QSignalSpy>(button, SIGNAL(clicked(bool))));
        spies.push_back(std::make_unique<QSignalSpy>(button, SIGNAL(toggled(bool))));
    }
    group.control->forceVaries();
    QVERIFY(group.control->dataVaries());
    QCOMPARE(group.shown(), QStringLiteral("---"));
    QCOMPARE(group.changed.count(), 0);
    for (const auto& spy : spies) {
        QCOMPARE(spy->count(), 0);
    }
    for (const QRadioButton* button : group.buttons) {
        QVERIFY(button->autoExclusive());
    }
    if (withButtonGroup) {
        QVERIFY(group.control->findChild<QButtonGroup*>()->exclusive());
    }
    // Forced before the first reading: that reading does not count as the first.
    group.control->readValue(boost::any(2));
    QVERIFY(group.control->dataVaries());
}

void RadioButtonGroupTest::forceVariesDoesNotRestoreBlocking()
{
    Group group;
    group.buttons[1]->blockSignals(true);
    group.control->forceVaries();
    QVERIFY(!group.buttons[1]->signalsBlocked());
}

void RadioButtonGroupTest::clickInVaryingDecides_data()
{
    clickEmitsOnce_data();
}

void RadioButtonGroupTest::clickInVaryingDecides()
{
    QFETCH(bool, withButtonGroup);
    for (int index = 0; index < 3; ++index) {
        Group group(withButtonGroup);
        group.control->forceVaries();
        group.click(index);
        QCOMPARE(group.changed.count(), 1);
        QVERIFY(!group.control->dataVaries());
        QCOMPARE(group.current(), index + 1);
        group.click((index + 1) % 3);
        QCOMPARE(group.shown().count(QLatin1Char('x')), 1);
        QCOMPARE(group.current(), (index + 1) % 3 + 1);
    }
}

void RadioButtonGroupTest::getValueWhileVaryingReports()
{
    Group group;
    group.control->forceVaries();
    QCOMPARE(boost::any_cast<int>(group.control->getValue()), 1);
    QCOMPARE(takeExpressions(), QStringList{"false"});
    QVERIFY(group.control->getCurrentValue().empty());
}

void RadioButtonGroupTest::resetChecksTheFirstAndEmitsOnce()
{
    Group group;
    group.control->readValue(boost::any(2));
    group.control->readValue(boost::any(3));
    group.changed.clear();
    group.control->reset();
    QCOMPARE(group.changed.count(), 1);
    QCOMPARE(group.shown(), QStringLiteral("x--"));
    QVERIFY(!group.control->dataVaries());
    group.control->readValue(boost::any(3));
    QCOMPARE(group.current(), 3);
}

void RadioButtonGroupTest::resetEnables()
{
    Group group(false);
    group.control->setEnabled(false);
    group.buttons[2]->setAutoExclusive(false);
    // A listener is told before, while the group is still disabled.
    bool enabledWhenTold = true;
    connect(group.control, &MultiEditRadioButtonGroup::valueChanged,
            [&] { enabledWhenTold = group.control->isEnabled(); });
    group.control->reset();
    QVERIFY(!enabledWhenTold);
    QVERIFY(group.control->isEnabled());
    QVERIFY(group.buttons[2]->autoExclusive());
}

void RadioButtonGroupTest::stackConstructedGroupHearsItsButtons()
{
    QWidget window;
    MultiEditRadioButtonGroup group("Material", threeValues(), equalInts, lessInts, &window,
                                    nullptr, true, true);
    const QSignalSpy changed(&group, &MultiEditRadioButtonGroup::valueChanged);
    group.forceVaries();
    group.findChildren<QRadioButton*>()[1]->click();
    QCOMPARE(changed.count(), 1);
    QVERIFY(!group.dataVaries());
    QCOMPARE(boost::any_cast<int>(group.getCurrentValue()), 2);
}

void RadioButtonGroupTest::withoutEqualityNothingIsEqual()
{
    QWidget window;
    MultiEditRadioButtonGroup* group = MultiEditRadioButtonGroup::create(
        "Material", threeValues(), nullptr, lessInts, &window, nullptr, true, true);
    QCOMPARE(takeExpressions(), QStringList{"equalFn"});
    group->readValue(boost::any(2));
    QVERIFY(!group->dataVaries());
    // Nothing can be said of a second object, so nothing is decided for it.
    group->readValue(boost::any(2));
    QVERIFY(group->dataVaries());
    QVERIFY(group->getCurrentValue().empty());
}

void RadioButtonGroupTest::noValuesDoNotCrash()
{
    QWidget window;
    MultiEditRadioButtonGroup group("Material", {}, equalInts, lessInts, &window, nullptr, true,
                                    true);
    QCOMPARE(takeExpressions(), QStringList{"!m_values.empty()"});
    QVERIFY(group.getCurrentValue().empty());
    QCOMPARE(takeExpressions(), QStringList{"false"});
    group.forceVaries();
    group.reset();
    QVERIFY(!group.dataVaries());
}

void RadioButtonGroupTest::orderOfReadingDoesNotMatter()
{
    Group group;
    const bool holds = rc::check("a selection varies if and only if it holds two values", [&] {
        const auto values =
            *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 4)));
        group.control->reset();
        for (const int value : values) {
            group.control->readValue(boost::any(value));
        }
        const bool same = std::all_of(values.begin(), values.end(),
                                      [&](int value) { return value == values.front(); });
        RC_ASSERT(group.control->dataVaries() == !same);
        RC_ASSERT(group.current() == (same ? values.front() : -1));
        RC_ASSERT(group.shown().count(QLatin1Char('x')) == (same ? 1 : 0));
    });
    QVERIFY(holds);
}

QTEST_MAIN(RadioButtonGroupTest)
#include "tst_radio_button_group.moc"
