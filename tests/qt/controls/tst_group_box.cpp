#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QVBoxLayout>
#include <QWindow>

#include <memory>

using namespace zel::qt;

namespace {

struct Group
{
    Group()
        : control(MultiEditGroupBox::create(QStringLiteral("Reinforcement"), &window))
        , changed(control, &MultiEditGroupBox::valueChanged)
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(control);
        auto* inner = new QVBoxLayout(control);
        edit = new QLineEdit;
        inner->addWidget(edit);
        window.show();
    }

    /// Clicks on the check box of the title.
    void click()
    {
        QStyleOptionGroupBox option;
        option.initFrom(control);
        option.subControls = QStyle::SC_GroupBoxCheckBox | QStyle::SC_GroupBoxFrame;
        option.text = control->title();
        const QRect rect = control->style()->subControlRect(QStyle::CC_GroupBox, &option,
                                                            QStyle::SC_GroupBoxCheckBox, control);
        QTest::mouseClick(control, Qt::LeftButton, {}, rect.center());
    }

    QWidget window;
    MultiEditGroupBox* control;
    QLineEdit* edit = nullptr;
    QSignalSpy changed;
};

bool holdsBool(const boost::any& value, bool expected)
{
    const bool* b = boost::any_cast<bool>(&value);
    return b != nullptr && *b == expected;
}

} // namespace

class GroupBoxTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void createReportsAMissingParent();
    void startsUncheckedAndEnabled();
    void clickEmitsOnce();
    void spaceKeyEmitsOnce();
    void setCheckedFromCodeIsSilent();
    void forceVariesDisables();
    void clickOnVaryingDoesNothing();
    void readsOfOneSelection_data();
    void readsOfOneSelection();
    void readWhileVaryingIsIgnored();
    void readOfAnotherTypeThrows();
    void setValueEmitsOnce();
    void setValueOfAnotherTypeReports();
    void setValueDoesNotEnable();
    void setValueWhileLoadingEmits();
    void suspendedSignalStaysSilent();
    void suspendDoesNotNest();
    void resetIsSilentAndEnables();
};

void GroupBoxTest::createReportsAMissingParent()
{
    const std::unique_ptr<MultiEditGroupBox> group(MultiEditGroupBox::create("a", nullptr));
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("parent"));
    QCOMPARE(reports[0].file, std::string("qt/src/controls/group_box.cpp"));
}

void GroupBoxTest::startsUncheckedAndEnabled()
{
    const Group group;
    QCOMPARE(group.control->title(), QStringLiteral("Reinforcement"));
    QVERIFY(group.control->isCheckable());
    QVERIFY(!group.control->getValue());
    QVERIFY(group.control->isEnabled());
    QVERIFY(!group.control->dataVaries());
    QVERIFY(holdsBool(group.control->getCurrentValue(), false));
    QVERIFY(!group.edit->isEnabled());
}

void GroupBoxTest::clickEmitsOnce()
{
    Group group;
    group.click();
    QCOMPARE(group.changed.count(), 1);
    QVERIFY(holdsBool(group.control->getCurrentValue(), true));
    QVERIFY(group.edit->isEnabled());
    group.click();
    QCOMPARE(group.changed.count(), 2);
    QVERIFY(holdsBool(group.control->getCurrentValue(), false));
}

void GroupBoxTest::spaceKeyEmitsOnce()
{
    Group group;
    QVERIFY(zel::test::showActive(group.window));
    group.control->setFocus();
    QTest::keyClick(group.window.windowHandle(), Qt::Key_Space);
    QCOMPARE(group.changed.count(), 1);
    QVERIFY(group.control->getValue());
}

void GroupBoxTest::setCheckedFromCodeIsSilent()
{
    Group group;
    group.control->setChecked(true);
    QCOMPARE(group.changed.count(), 0);
    QVERIFY(group.control->getValue());
}

void GroupBoxTest::forceVariesDisables()
{
    Group group;
    group.control->readValue(boost::any(true));
    group.control->forceVaries();
    QVERIFY(group.control->dataVaries());
    QVERIFY(!group.control->isEnabled());
    QVERIFY(!group.edit->isEnabled());
    QVERIFY(group.control->isChecked());
    QVERIFY(group.control->getValue());
    QVERIFY(group.control->getCurrentValue().empty());
    QCOMPARE(group.changed.count(), 0);
}

void GroupBoxTest::clickOnVaryingDoesNothing()
{
    Group group;
    QVERIFY(zel::test::showActive(group.window));
    group.control->setFocus();
    QVERIFY(group.control->hasFocus());
    group.control->forceVaries();
    group.click();
    QTest::keyClick(group.window.windowHandle(), Qt::Key_Space);
    QVERIFY(group.control->dataVaries());
    QVERIFY(!group.control->isChecked());
    QCOMPARE(group.changed.count(), 0);
}

void GroupBoxTest::readsOfOneSelection_data()
{
    QTest::addColumn<QVector<bool>>("values");
    QTest::addColumn<bool>("varies");
    QTest::newRow("true") << QVector<bool>{true} << false;
    QTest::newRow("true true") << QVector<bool>{true, true} << false;
    QTest::newRow("true false") << QVector<bool>{true, false} << true;
    QTest::newRow("false true") << QVector<bool>{false, true} << true;
    QTest::newRow("false true false") << QVector<bool>{false, true, false} << true;
}

void GroupBoxTest::readsOfOneSelection()
{
    QFETCH(QVector<bool>, values);
    QFETCH(bool, varies);
    Group group;
    group.control->reset();
    for (const bool value : values) {
        group.control->readValue(boost::any(value));
    }
    QCOMPARE(group.control->dataVaries(), varies);
    QCOMPARE(group.control->isEnabled(), !varies);
    QCOMPARE(group.control->isChecked(), values.first());
    QCOMPARE(group.control->getCurrentValue().empty(), varies);
    QCOMPARE(group.changed.count(), 0);
}

void GroupBoxTest::readWhileVaryingIsIgnored()
{
    Group group;
    group.control->forceVaries();
    group.control->readValue(boost::any(true));
    QVERIFY(group.control->dataVaries());
    QVERIFY(!group.control->isChecked());
}

void GroupBoxTest::readOfAnotherTypeThrows()
{
    Group group;
    QVERIFY_EXCEPTION_THROWN(group.control->readValue(boost::any(QStringLiteral("true"))),
                             boost::bad_any_cast);
    QVERIFY_EXCEPTION_THROWN(group.control->readValue(boost::any()), boost::bad_any_cast);
    QVERIFY(holdsBool(group.control->getCurrentValue(), false));
}

void GroupBoxTest::setValueEmitsOnce()
{
    Group group;
    group.control->setValue(boost::any(true));
    QCOMPARE(group.changed.count(), 1);
    QVERIFY(group.control->getValue());
    group.control->setValue(boost::any(true));
    QCOMPARE(group.changed.count(), 2);
}

void GroupBoxTest::setValueOfAnotherTypeReports()
{
    Group group;
    group.control->forceVaries();
    group.control->setValue(boost::any(QStringLiteral("true")));
    group.control->setValue(boost::any());
    QCOMPARE(takeExpressions(), (QStringList{"checked", "checked"}));
    QVERIFY(group.control->dataVaries());
    QVERIFY(!group.control->isChecked());
    QCOMPARE(group.changed.count(), 0);
}

void GroupBoxTest::setValueDoesNotEnable()
{
    Group group;
    group.control->forceVaries();
    group.control->setValue(boost::any(true));
    QVERIFY(!group.control->dataVaries());
    QVERIFY(holdsBool(group.control->getCurrentValue(), true));
    QVERIFY(!group.control->isEnabled());
    QVERIFY(!group.edit->isEnabled());
    group.control->reset();
    QVERIFY(group.control->isEnabled());
}

void GroupBoxTest::setValueWhileLoadingEmits()
{
    Group group;
    group.control->setLoading(true);
    group.control->setValue(boost::any(true));
    QCOMPARE(group.changed.count(), 1);
    group.control->suspendValueChangedSignal();
    group.control->setValue(boost::any(false));
    QCOMPARE(group.changed.count(), 1);
}

void GroupBoxTest::suspendedSignalStaysSilent()
{
    Group group;
    group.control->suspendValueChangedSignal();
    group.click();
    QVERIFY(group.control->getValue());
    group.control->setValue(boost::any(false));
    QCOMPARE(group.changed.count(), 0);
    group.control->resumeValueChangedSignal();
    group.click();
    QCOMPARE(group.changed.count(), 1);
}

void GroupBoxTest::suspendDoesNotNest()
{
    Group group;
    group.control->suspendValueChangedSignal();
    group.control->suspendValueChangedSignal();
    group.control->resumeValueChangedSignal();
    group.click();
    QCOMPARE(group.changed.count(), 1);
}

void GroupBoxTest::resetIsSilentAndEnables()
{
    Group group;
    group.control->readValue(boost::any(true));
    group.control->readValue(boost::any(false));
    QVERIFY(group.control->dataVaries());
    group.control->reset();
    QVERIFY(!group.control->dataVaries());
    QVERIFY(group.control->isEnabled());
    QVERIFY(!group.control->isChecked());
    // The content of an unchecked group stays closed.
    QVERIFY(!group.edit->isEnabled());
    QCOMPARE(group.changed.count(), 0);
    group.control->readValue(boost::any(true));
    QVERIFY(holdsBool(group.control->getCurrentValue(), true));
    QVERIFY(group.edit->isEnabled());
}

QTEST_MAIN(GroupBoxTest)
#include "tst_group_box.moc"
