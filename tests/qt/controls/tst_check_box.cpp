#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"

#include <QAccessible>
#include <QCheckBox>
#include <QSignalSpy>

#include <memory>
#include <rapidcheck.h>

using namespace zel::qt;

namespace {

/// A check box in a window, with what a test looks at.
struct Box
{
    Box()
        : control(MultiEditCheckBox::create(QStringLiteral("Fixed"), &window))
        , inner(control->findChild<QCheckBox*>())
        , changed(control, &MultiEditCheckBox::valueChanged)
    {
        window.resize(200, 50);
        window.show();
    }

    void click()
    {
        QTest::mouseClick(inner, Qt::LeftButton, {}, QPoint(5, inner->height() / 2));
    }

    QWidget window;
    MultiEditCheckBox* control;
    QCheckBox* inner;
    QSignalSpy changed;
};

bool holdsBool(const boost::any& value, bool expected)
{
    const bool* b = boost::any_cast<bool>(&value);
    return b != nullptr && *b == expected;
}

} // namespace

class CheckBoxTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void createReportsAMissingParent();
    void simpleForwardsToTheCheckBox();
    void setCheckedIsVirtual();
    void startsUncheckedAndUnvarying();
    void clickEmitsOnce();
    void spaceKeyEmitsOnce();
    void setCheckedEmitsTwiceForAChangeAndOnceWithout();
    void forceVariesIsSilentAndPartial();
    void forceVariesRestoresTheBlockingState();
    void clickOnVaryingGivesTrue();
    void listenerMayMakeItVaryAgain();
    void setCheckedFromVarying_data();
    void setCheckedFromVarying();
    void suspendedSignalStaysSilent();
    void suspendDoesNotNest();
    void readsOfOneSelection_data();
    void readsOfOneSelection();
    void firstReadEmitsOnlyForAChange();
    void readWhileVaryingIsIgnored();
    void readOfAnotherTypeThrows();
    void setValueOfAnotherTypeReports();
    void setValueLeavesVarying();
    void loadingIsSilent();
    void loadingReadReleasesTheBlockerOnAThrow();
    void resetEmitsOnlyForAChange_data();
    void resetEmitsOnlyForAChange();
    void orderOfReadingDoesNotMatter();
    void assistiveToolsSeeNameAndState();
    void takesTheFocus();
};

void CheckBoxTest::createReportsAMissingParent()
{
    const std::unique_ptr<SimpleCheckBox> simple(SimpleCheckBox::create("a", nullptr));
    const std::unique_ptr<MultiEditCheckBox> multi(MultiEditCheckBox::create("b", nullptr));
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(2));
    for (const auto& report : reports) {
        QCOMPARE(report.expression, std::string("parent"));
        QCOMPARE(report.file, std::string("qt/src/controls/check_box.cpp"));
    }
    QVERIFY(simple && multi);
}

void CheckBoxTest::simpleForwardsToTheCheckBox()
{
    QWidget window;
    SimpleCheckBox* box = SimpleCheckBox::create(QStringLiteral("Fixed"), &window);
    auto* inner = box->findChild<QCheckBox*>();
    QCOMPARE(inner->text(), QStringLiteral("Fixed"));
    QVERIFY(inner->isCheckable());
    QCOMPARE(box->layout()->contentsMargins(), QMargins());
    QVERIFY(!box->isChecked());
    box->setChecked(true);
    QVERIFY(inner->isChecked());
    inner->click();
    QVERIFY(!box->isChecked());
    QCOMPARE(SimpleCheckBox::staticMetaObject.methodCount(),
             QWidget::staticMetaObject.methodCount());
}

void CheckBoxTest::setCheckedIsVirtual()
{
    Box box;
    static_cast<SimpleCheckBox*>(box.control)->setChecked(true);
    QCOMPARE(box.changed.count(), 2);
}

void CheckBoxTest::startsUncheckedAndUnvarying()
{
    const Box box;
    QVERIFY(!box.control->isChecked());
    QVERIFY(!box.control->getValue());
    QVERIFY(!box.control->dataVaries());
    QVERIFY(!box.inner->isTristate());
    QVERIFY(holdsBool(box.control->getCurrentValue(), false));
}

void CheckBoxTest::clickEmitsOnce()
{
    Box box;
    box.click();
    QCOMPARE(box.changed.count(), 1);
    QVERIFY(holdsBool(box.control->getCurrentValue(), true));
    box.click();
    QCOMPARE(box.changed.count(), 2);
    QVERIFY(holdsBool(box.control->getCurrentValue(), false));
}

void CheckBoxTest::spaceKeyEmitsOnce()
{
    Box box;
    QTest::keyClick(box.inner, Qt::Key_Space);
    QCOMPARE(box.changed.count(), 1);
    QVERIFY(box.control->getValue());
}

void CheckBoxTest::setCheckedEmitsTwiceForAChangeAndOnceWithout()
{
    Box box;
    box.control->setChecked(true);
    QCOMPARE(box.changed.count(), 2);
    box.control->setChecked(true);
    QCOMPARE(box.changed.count(), 3);
    box.control->setChecked(false);
    QCOMPARE(box.changed.count(), 5);
}

void CheckBoxTest::forceVariesIsSilentAndPartial()
{
    Box box;
    QSignalSpy state(box.inner, &QCheckBox::stateChanged);
    box.control->forceVaries();
    QCOMPARE(box.changed.count(), 0);
    QCOMPARE(state.count(), 0);
    QVERIFY(box.control->dataVaries());
    QVERIFY(box.control->getCurrentValue().empty());
    QCOMPARE(box.inner->checkState(), Qt::PartiallyChecked);
    QVERIFY(box.inner->isTristate());
    QVERIFY(box.control->getValue());
}

void CheckBoxTest::forceVariesRestoresTheBlockingState()
{
    Box box;
    box.control->forceVaries();
    QVERIFY(!box.inner->signalsBlocked());
    box.inner->blockSignals(true);
    box.control->forceVaries();
    QVERIFY(box.inner->signalsBlocked());
}

void CheckBoxTest::clickOnVaryingGivesTrue()
{
    Box box;
    box.control->forceVaries();
    box.click();
    QCOMPARE(box.changed.count(), 1);
    QVERIFY(!box.control->dataVaries());
    QVERIFY(!box.inner->isTristate());
    QCOMPARE(box.inner->checkState(), Qt::Checked);
    QVERIFY(holdsBool(box.control->getCurrentValue(), true));
    box.click();
    QCOMPARE(box.changed.count(), 2);
    QCOMPARE(box.inner->checkState(), Qt::Unchecked);
    box.click();
    QCOMPARE(box.inner->checkState(), Qt::Checked);
}

void CheckBoxTest::listenerMayMakeItVaryAgain()
{
    Box box;
    connect(box.control, &MultiEditCheckBox::valueChanged, [&] { box.control->forceVaries(); });
    for (int click = 1; click <= 2; ++click) {
        box.click();
        QCOMPARE(box.changed.count(), click);
        QVERIFY(box.control->dataVaries());
        QVERIFY(box.control->getCurrentValue().empty());
        QCOMPARE(box.inner->checkState(), Qt::PartiallyChecked);
        QVERIFY(box.inner->isTristate());
    }
}

void CheckBoxTest::setCheckedFromVarying_data()
{
    QTest::addColumn<bool>("checked");
    QTest::newRow("checked") << true;
    QTest::newRow("unchecked") << false;
}

void CheckBoxTest::setCheckedFromVarying()
{
    QFETCH(bool, checked);
    Box box;
    box.control->forceVaries();
    box.control->setChecked(checked);
    // The state changes from partial, so it speaks through the change and at the end.
    QCOMPARE(box.changed.count(), 2);
    QVERIFY(!box.control->dataVaries());
    QVERIFY(!box.inner->isTristate());
    QCOMPARE(box.inner->checkState(), checked ? Qt::Checked : Qt::Unchecked);
    QVERIFY(holdsBool(box.control->getCurrentValue(), checked));
}

void CheckBoxTest::suspendedSignalStaysSilent()
{
    Box box;
    box.control->suspendValueChangedSignal();
    box.click();
    QVERIFY(box.control->getValue());
    box.control->setChecked(false);
    box.control->setValue(boost::any(true));
    box.control->reset();
    QCOMPARE(box.changed.count(), 0);
    box.control->resumeValueChangedSignal();
    box.click();
    QCOMPARE(box.changed.count(), 1);
}

void CheckBoxTest::suspendDoesNotNest()
{
    Box box;
    box.control->suspendValueChangedSignal();
    box.control->suspendValueChangedSignal();
    box.control->resumeValueChangedSignal();
    box.click();
    QCOMPARE(box.changed.count(), 1);
}

void CheckBoxTest::readsOfOneSelection_data()
{
    QTest::addColumn<QVector<bool>>("values");
    QTest::addColumn<bool>("varies");
    QTest::newRow("none") << QVector<bool>{} << false;
    QTest::newRow("true") << QVector<bool>{true} << false;
    QTest::newRow("true true") << QVector<bool>{true, true} << false;
    QTest::newRow("false false false") << QVector<bool>{false, false, false} << false;
    QTest::newRow("true false") << QVector<bool>{true, false} << true;
    QTest::newRow("false true") << QVector<bool>{false, true} << true;
    QTest::newRow("false true true") << QVector<bool>{false, true, true} << true;
}

void CheckBoxTest::readsOfOneSelection()
{
    QFETCH(QVector<bool>, values);
    QFETCH(bool, varies);
    Box box;
    box.control->reset();
    for (const bool value : values) {
        box.control->readValue(boost::any(value));
    }
    QCOMPARE(box.control->dataVaries(), varies);
    QCOMPARE(box.control->getCurrentValue().empty(), varies);
    if (!varies) {
        QVERIFY(holdsBool(box.control->getCurrentValue(), values.value(0)));
    }
}

void CheckBoxTest::firstReadEmitsOnlyForAChange()
{
    Box box;
    box.control->readValue(boost::any(false));
    QCOMPARE(box.changed.count(), 0);
    box.control->reset();
    box.control->readValue(boost::any(true));
    QCOMPARE(box.changed.count(), 1);
    box.control->readValue(boost::any(false));
    QCOMPARE(box.changed.count(), 1);
    QVERIFY(box.control->dataVaries());
}

void CheckBoxTest::readWhileVaryingIsIgnored()
{
    Box box;
    box.control->forceVaries();
    box.control->readValue(boost::any(false));
    QVERIFY(box.control->dataVaries());
    QCOMPARE(box.inner->checkState(), Qt::PartiallyChecked);
    QCOMPARE(box.changed.count(), 0);
}

void CheckBoxTest::readOfAnotherTypeThrows()
{
    Box box;
    QVERIFY_EXCEPTION_THROWN(box.control->readValue(boost::any(QStringLiteral("true"))),
                             boost::bad_any_cast);
    QVERIFY_EXCEPTION_THROWN(box.control->readValue(boost::any()), boost::bad_any_cast);
    QVERIFY_EXCEPTION_THROWN(box.control->readValue(boost::any(1)), boost::bad_any_cast);
    QVERIFY(holdsBool(box.control->getCurrentValue(), false));
    QCOMPARE(box.changed.count(), 0);
}

void CheckBoxTest::setValueOfAnotherTypeReports()
{
    Box box;
    box.control->forceVaries();
    box.control->setValue(boost::any(QStringLiteral("true")));
    box.control->setValue(boost::any());
    QCOMPARE(takeExpressions(), (QStringList{"v", "v"}));
    QVERIFY(box.control->dataVaries());
    QCOMPARE(box.inner->checkState(), Qt::PartiallyChecked);
    QCOMPARE(box.changed.count(), 0);
}

void CheckBoxTest::setValueLeavesVarying()
{
    Box box;
    box.control->forceVaries();
    box.control->setValue(boost::any(false));
    QVERIFY(holdsBool(box.control->getCurrentValue(), false));
    QCOMPARE(box.changed.count(), 2);
}

void CheckBoxTest::loadingIsSilent()
{
    Box box;
    box.control->setLoading(true);
    box.control->setValue(boost::any(true));
    QVERIFY(box.control->getValue());
    box.control->reset();
    QCOMPARE(box.changed.count(), 1);
    box.control->readValue(boost::any(true));
    QVERIFY(box.control->getValue());
    QCOMPARE(box.changed.count(), 1);
    QVERIFY(!box.control->signalsBlocked());
    box.control->setLoading(false);
    box.click();
    QCOMPARE(box.changed.count(), 2);
}

void CheckBoxTest::loadingReadReleasesTheBlockerOnAThrow()
{
    Box box;
    box.control->setLoading(true);
    QVERIFY_EXCEPTION_THROWN(box.control->readValue(boost::any()), boost::bad_any_cast);
    QVERIFY(!box.control->signalsBlocked());
}

void CheckBoxTest::resetEmitsOnlyForAChange_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("signalCount");
    QTest::newRow("unchecked") << 0 << 0;
    QTest::newRow("varying") << 1 << 1;
    QTest::newRow("checked") << 2 << 1;
}

void CheckBoxTest::resetEmitsOnlyForAChange()
{
    QFETCH(int, state);
    QFETCH(int, signalCount);
    Box box;
    if (state == 1) {
        box.control->forceVaries();
    } else {
        box.control->setChecked(state == 2);
    }
    box.changed.clear();
    box.control->reset();
    QCOMPARE(box.changed.count(), signalCount);
    QVERIFY(!box.control->dataVaries());
    QVERIFY(!box.inner->isTristate());
    QCOMPARE(box.inner->checkState(), Qt::Unchecked);
    // The next reading counts as the first.
    box.control->readValue(boost::any(true));
    QVERIFY(holdsBool(box.control->getCurrentValue(), true));
}

void CheckBoxTest::orderOfReadingDoesNotMatter()
{
    Box box;
    const bool holds = rc::check("a selection varies if and only if it holds both values", [&box] {
        const auto values =
            *rc::gen::nonEmpty(rc::gen::container<std::vector<bool>>(rc::gen::arbitrary<bool>()));
        box.control->reset();
        for (const bool value : values) {
            box.control->readValue(boost::any(value));
        }
        bool both = false;
        for (const bool value : values) {
            both = both || value != values.front();
        }
        RC_ASSERT(box.control->dataVaries() == both);
        RC_ASSERT((box.inner->checkState() == Qt::PartiallyChecked) == both);
        RC_ASSERT(both || holdsBool(box.control->getCurrentValue(), values.front()));
    });
    QVERIFY(holds);
}

void CheckBoxTest::assistiveToolsSeeNameAndState()
{
    Box box;
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(box.inner);
    QVERIFY(seen != nullptr);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Fixed"));
    QVERIFY(!seen->state().checkStateMixed);
    box.control->forceVaries();
    QVERIFY(seen->state().checkStateMixed);
}

void CheckBoxTest::takesTheFocus()
{
    Box box;
    QVERIFY(zel::test::showActive(box.window));
    box.control->setFocus();
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(box.inner));
}

QTEST_MAIN(CheckBoxTest)
#include "tst_check_box.moc"
