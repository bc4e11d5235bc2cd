#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/enum_box_fixture.h"

#include <QAccessible>
#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>
#include <QWindow>

#include <algorithm>
#include <boost/make_shared.hpp>
#include <memory>
#include <rapidcheck.h>

using namespace zel::qt;
using zel::test::equalInts;
using Simple = zel::test::EnumBoxFixture<SimpleEnumBox>;
using Multi = zel::test::EnumBoxFixture<MultiEditEnumBox>;

namespace {

int intOf(const boost::any& value)
{
    return value.empty() ? -1 : boost::any_cast<int>(value);
}

int equalCalls = 0;

bool countingEqual(const boost::any& a, const boost::any& b)
{
    ++equalCalls;
    return equalInts(a, b);
}

QStringList methodsOf(const QMetaObject& object)
{
    QStringList methods;
    for (int i = object.methodOffset(); i < object.methodCount(); ++i) {
        methods << QString::fromLatin1(object.method(i).methodSignature());
    }
    return methods;
}

/// Opens what a subclass sees, and notes down its hooks.
class NotingEnumBox : public SimpleEnumBox
{
public:
    explicit NotingEnumBox(QWidget* parent)
        : SimpleEnumBox(parent, QString(), equalInts)
    {}

    using SimpleEnumBox::anyEq;
    using SimpleEnumBox::anyEqAvailable;
    using SimpleEnumBox::combo;

    void resize(int width, int height) override
    {
        notes << QStringLiteral("resize");
        SimpleEnumBox::resize(width, height);
    }

    QStringList notes;

protected:
    void onSelected() override
    {
        notes << QStringLiteral("selected");
    }
    void onItemActivated(const QString& text) override
    {
        notes << QStringLiteral("activated ") + text;
    }
};

} // namespace

class EnumBoxTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void createReports();
    void metaObjectListsTheMethodsInOrder();
    void canBeCalledThroughTheMetaObject();
    void hooksCanBeOverridden();
    void looksAsConstructed();
    void emptyLabelMakesNoLabel();
    void addWidgetStandsBehindTheCombo();
    void labelNamesTheCombo();
    void setValuesFillsTheCombo();
    void setValuesWithPixmaps();
    void setValuesWithColors();
    void setValuesKeepsThePolicyWithoutPixmaps();
    void setValuesIsSilent();
    void setValuesMakesRoomForTheLongestName();
    void withoutValues();
    void selectByName();
    void selectByValue();
    void selectByUnknownValueReports();
    void namesAndValues();
    void noCurrentEntryReports();
    void nextAndPrevious();
    void nextSkipsTheVariesItem();
    void anyEqAndEmptyValues();
    void withoutEqualityNothingIsEqual();
    void choiceEmits();
    void keysEmit();
    void choiceOfTheSameItemEmits();
    void readsOfOneSelection();
    void firstReadOfAnUnknownValue();
    void stepsLeaveTheVaryingState_data();
    void stepsLeaveTheVaryingState();
    void nextDoesNotLeaveTheVaryingState();
    void variesItemStaysUntilReset();
    void varyingBoxRefilled();
    void choosingTheVariesItemDecidesNothing_data();
    void choosingTheVariesItemDecidesNothing();
    void varyingBoxHasNoSelectedValue();
    void resetGoesBackToTheEntry();
    void orderOfReadingDoesNotMatter();
    void assistiveToolsSeeNameAndState();
};

void EnumBoxTest::createReports()
{
    const std::unique_ptr<SimpleEnumBox> simple(SimpleEnumBox::create(nullptr, "", equalInts));
    auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("parent"));
    QCOMPARE(reports[0].file, std::string("qt/src/controls/enum_box.cpp"));
    // A factory makes its editors without a parent.
    const std::unique_ptr<MultiEditEnumBox> multi(MultiEditEnumBox::create(nullptr, "", equalInts));
    QCOMPARE(takeExpressions(), QStringList());
    const std::unique_ptr<MultiEditEnumBox> none(MultiEditEnumBox::create(nullptr, "", nullptr));
    QCOMPARE(takeExpressions(), (QStringList{"eqFn", "anyEqAvailable()"}));
}

void EnumBoxTest::metaObjectListsTheMethodsInOrder()
{
    QCOMPARE(
        methodsOf(SimpleEnumBox::staticMetaObject),
        (QStringList{"valueChanged()", "activated(int)", "onEditingFinished()",
                     "onItemActivated(QString)",
                     "setValues(NamedValueList,PixmapPtrList,std::deque<QColor>)",
                     "setValues(NamedValueList,PixmapPtrList)", "setValues(NamedValueList)",
                     "selectByName(QString)", "selectByValue(boost::any)", "getSelectedValue()",
                     "getNameForValue(boost::any)", "getValueForName(QString)", "next()",
                     "previous()", "setEditable(bool,IValidator::pointer)", "setEditable(bool)",
                     "addWidget(QWidget*)", "getComboWidth()"}));
    QCOMPARE(methodsOf(MultiEditEnumBox::staticMetaObject),
             (QStringList{"onItemActivated(QString)", "onLineEditTextChanged()"}));
}

void EnumBoxTest::canBeCalledThroughTheMetaObject()
{
    Simple f;
    QVERIFY(QMetaObject::invokeMethod(f.box, "setValues",
                                      Q_ARG(NamedValueList, (NamedValueList{{"x", 7}, {"y", 8}}))));
    QVERIFY(QMetaObject::invokeMethod(f.box, "next"));
    boost::any value;
    QVERIFY(QMetaObject::invokeMethod(f.box, "getSelectedValue", Q_RETURN_ARG(boost::any, value)));
    QCOMPARE(intOf(value), 8);
    QVERIFY(QMetaObject::invokeMethod(f.box, "selectByName", Q_ARG(QString, "x")));
    QString name;
    QVERIFY(QMetaObject::invokeMethod(f.box, "getNameForValue", Q_RETURN_ARG(QString, name),
                                      Q_ARG(boost::any, boost::any(8))));
    QCOMPARE(name, QStringLiteral("y"));
    int width = 0;
    QVERIFY(QMetaObject::invokeMethod(f.box, "getComboWidth", Q_RETURN_ARG(int, width)));
    QCOMPARE(width, f.combo->width());
    QVERIFY(QMetaObject::invokeMethod(f.box, "setEditable", Q_ARG(bool, true)));
    QVERIFY(f.combo->isEditable());
}

void EnumBoxTest::hooksCanBeOverridden()
{
    QWidget window;
    NotingEnumBox box(&window);
    box.setValues({{"a", 1}, {"b", 2}});
    box.selectByName("b");
    box.selectByValue(boost::any(1));
    static_cast<SimpleEnumBox&>(box).resize(200, 30);
    QCOMPARE(box.size(), QSize(200, 30));
    QTest::keyClick(&box.combo(), Qt::Key_Down);
    QCOMPARE(box.notes, (QStringList{"selected", "selected", "resize", "activated b"}));
    static_cast<SimpleEnumBox&>(box).resize(QSize(210, 30));
    QCOMPARE(box.size(), QSize(210, 30));
    QVERIFY(box.anyEqAvailable());
    QVERIFY(box.anyEq(boost::any(1), boost::any(1)));
}

void EnumBoxTest::looksAsConstructed()
{
    const Simple f(equalInts, QStringLiteral("Material"));
    QCOMPARE(f.box->layout()->contentsMargins(), QMargins());
    auto* label = f.box->findChild<ZEL_QT_Label*>();
    QCOMPARE(label->text(), QStringLiteral("Material"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->objectName(), QString());
    QCOMPARE(f.box->layout()->count(), 2);
    QCOMPARE(f.box->layout()->itemAt(0)->widget(), static_cast<QWidget*>(label));
    QCOMPARE(f.box->layout()->itemAt(1)->widget(), static_cast<QWidget*>(f.combo));
    QCOMPARE(f.box->focusProxy(), static_cast<QWidget*>(f.combo));
    QVERIFY(!f.combo->isEditable());
    QVERIFY(!f.combo->duplicatesEnabled());
    QCOMPARE(f.box->getComboWidth(), f.combo->width());
    f.box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    QCOMPARE(f.combo->sizeAdjustPolicy(), QComboBox::AdjustToContents);
}

void EnumBoxTest::emptyLabelMakesNoLabel()
{
    const Simple f;
    QVERIFY(f.box->findChild<QLabel*>() == nullptr);
    QCOMPARE(f.box->layout()->count(), 1);
    QCOMPARE(f.combo->accessibleName(), QString());
}

void EnumBoxTest::addWidgetStandsBehindTheCombo()
{
    const Simple f;
    auto* button = new QPushButton(QStringLiteral("..."));
    f.box->addWidget(button);
    QCOMPARE(f.box->layout()->itemAt(1)->widget(), static_cast<QWidget*>(button));
    QCOMPARE(button->parentWidget(), static_cast<QWidget*>(f.box));
    f.box->addWidget(nullptr);
    QCOMPARE(takeExpressions(), QStringList{"w"});
    QCOMPARE(f.box->layout()->count(), 2);
}

void EnumBoxTest::labelNamesTheCombo()
{
    const Simple f(equalInts, QStringLiteral("Material"));
    QCOMPARE(f.combo->accessibleName(), QStringLiteral("Material"));
    QCOMPARE(f.box->findChild<QLabel*>()->buddy(), static_cast<QWidget*>(f.combo));
    const Simple forces(equalInts, QStringLiteral("N & M"));
    QCOMPARE(forces.combo->accessibleName(), QStringLiteral("N & M"));
    // As a buddy the label would show the ampersand as the mark of a shortcut.
    QVERIFY(forces.box->findChild<QLabel*>()->buddy() == nullptr);
}

void EnumBoxTest::setValuesFillsTheCombo()
{
    const Simple f;
    f.box->setValues({{"x", 7}, {"y", 8}, {"z", 9}});
    QCOMPARE(f.combo->count(), 3);
    QCOMPARE(f.combo->itemText(1), QStringLiteral("y"));
    QCOMPARE(f.combo->currentIndex(), 0);
    QCOMPARE(f.combo->insertPolicy(), QComboBox::InsertAtBottom);
    for (int i = 0; i < 3; ++i) {
        // The values are found by index; the combo box knows nothing of them.
        QCOMPARE(f.combo->itemData(i), QVariant());
        QVERIFY(f.combo->itemIcon(i).isNull());
        QCOMPARE(f.combo->itemData(i, Qt::BackgroundRole), QVariant());
    }
    QCOMPARE(intOf(f.box->getSelectedValue()), 7);
}

void EnumBoxTest::setValuesWithPixmaps()
{
    const Simple f;
    const auto wide = boost::make_shared<QPixmap>(30, 10);
    const auto high = boost::make_shared<QPixmap>(12, 24);
    wide->fill(Qt::red);
    high->fill(Qt::blue);
    f.box->setValues({{"x", 7}, {"y", 8}, {"z", 9}, {"u", 10}}, {wide, nullptr, high});
    QCOMPARE(f.combo->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
    QVERIFY(!f.combo->itemIcon(0).isNull());
    QVERIFY(f.combo->itemIcon(1).isNull());
    QVERIFY(!f.combo->itemIcon(2).isNull());
    QVERIFY(f.combo->itemIcon(3).isNull());
    QCOMPARE(f.combo->iconSize(), QSize(30, 24));
    QCOMPARE(f.combo->itemText(2), QStringLiteral("z"));
    // With no picture in the list the size stays as it is.
    f.box->setValues({{"x", 7}}, {nullptr});
    QCOMPARE(f.combo->iconSize(), QSize(30, 24));
}

void EnumBoxTest::setValuesWithColors()
{
    const Simple f;
    f.box->setValues({{"x", 7}, {"y", 8}}, {}, {QColor(Qt::yellow)});
    QCOMPARE(f.combo->itemData(0, Qt::BackgroundRole).value<QColor>(), QColor(Qt::yellow));
    QCOMPARE(f.combo->itemData(1, Qt::BackgroundRole), QVariant());
}

void EnumBoxTest::setValuesKeepsThePolicyWithoutPixmaps()
{
    const Simple f;
    f.box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    f.box->setValues({{"x", 7}});
    QCOMPARE(f.combo->sizeAdjustPolicy(), QComboBox::AdjustToContents);
}

void EnumBoxTest::setValuesIsSilent()
{
    Multi f;
    f.changed.clear();
    f.choose(2);
    QCOMPARE(f.changed.count(), 2);
    f.box->setValues({{"x", 7}, {"y", 8}});
    QCOMPARE(f.changed.count(), 2);
    QCOMPARE(f.activated.count(), 1);
    QCOMPARE(f.combo->currentIndex(), 0);
}

void EnumBoxTest::setValuesMakesRoomForTheLongestName()
{
    const Simple f;
    f.box->setValues({{"x", 7}});
    const int narrow = f.combo->minimumWidth();
    const QString name = QStringLiteral("reinforced concrete, cracked, long term");
    f.box->setValues({{"x", 7}, {name, 8}});
    QCOMPARE(f.combo->minimumWidth(), f.combo->sizeHint().width());
    QVERIFY(f.combo->minimumWidth() > f.combo->fontMetrics().horizontalAdvance(name));
    f.box->setValues({{"x", 7}});
    QCOMPARE(f.combo->minimumWidth(), narrow);
}

void EnumBoxTest::withoutValues()
{
    Multi f;
    f.box->setValues({});
    QCOMPARE(f.combo->count(), 0);
    QVERIFY(f.box->getSelectedValue().empty());
    f.box->selectByValue(boost::any(1));
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(2));
    QCOMPARE(reports[0].expression, std::string("m_combo->isEditable() || !m_values.empty()"));
    QCOMPARE(reports[1].expression, std::string("found"));
    QCOMPARE(reports[1].message, std::string("Value not found"));
    f.box->next();
    f.box->previous();
    QCOMPARE(f.changed.count(), 0);
    f.box->forceVaries();
    QVERIFY(f.hasVarious());
    QVERIFY(f.box->getSelectedValue().empty());
    f.box->reset();
    QCOMPARE(f.combo->count(), 0);
}

void EnumBoxTest::selectByName()
{
    Simple f;
    f.box->selectByName("c");
    QCOMPARE(intOf(f.box->getSelectedValue()), 3);
    f.box->selectByName("C");
    f.box->selectByName("unknown");
    f.box->selectByName(QString());
    QCOMPARE(f.combo->currentIndex(), 2);
    QCOMPARE(f.changed.count(), 0);

    Multi m;
    m.box->selectByName("b");
    QCOMPARE(m.changed.count(), 1);
    m.box->selectByName("b");
    QCOMPARE(m.changed.count(), 2);
    m.box->selectByName("unknown");
    QCOMPARE(m.changed.count(), 2);
    QCOMPARE(m.activated.count(), 0);
    m.box->setValues({{"same", 1}, {"same", 2}});
    m.box->selectByName("same");
    QCOMPARE(intOf(m.box->getSelectedValue()), 1);
}

void EnumBoxTest::selectByValue()
{
    Simple f;
    f.box->selectByValue(boost::any(2));
    QCOMPARE(f.combo->currentIndex(), 1);
    QCOMPARE(f.changed.count(), 0);
    Multi m;
    m.box->selectByValue(boost::any(2));
    QCOMPARE(m.changed.count(), 1);
    m.box->setValue(boost::any(3));
    QCOMPARE(m.changed.count(), 2);
    QCOMPARE(intOf(m.box->getCurrentValue()), 3);
}

void EnumBoxTest::selectByUnknownValueReports()
{
    Multi f;
    f.box->selectByValue(boost::any(2));
    f.box->forceVaries();
    f.changed.clear();
    f.box->selectByValue(boost::any(7));
    QCOMPARE(takeExpressions(), QStringList{"found"});
    QCOMPARE(f.changed.count(), 0);
    QVERIFY(f.box->dataVaries());
    f.box->selectByValue(boost::any());
    QCOMPARE(takeExpressions(), QStringList{"found"});
}

void EnumBoxTest::namesAndValues()
{
    const Simple f;
    f.box->setValues({{"a", 1}, {"b", 2}, {"b", 3}, {"none", boost::any()}});
    QCOMPARE(f.box->getNameForValue(boost::any(3)), QStringLiteral("b"));
    QCOMPARE(f.box->getNameForValue(boost::any(7)), QString());
    QCOMPARE(f.box->getNameForValue(boost::any()), QStringLiteral("none"));
    QCOMPARE(intOf(f.box->getValueForName("b")), 2);
    QVERIFY(f.box->getValueForName("B").empty());
    QVERIFY(f.box->getValueForName("none").empty());
    QVERIFY(!f.box->isValueValid());
}

void EnumBoxTest::noCurrentEntryReports()
{
    const Simple f;
    f.combo->setCurrentIndex(-1);
    QVERIFY(f.box->getSelectedValue().empty());
    QCOMPARE(takeExpressions(), QStringList{"i >= 0 && i < m_combo->count()"});
    // An item beyond the entries is none of ours, but it is an item.
    f.combo->addItem("stranger");
    f.combo->setCurrentIndex(3);
    QVERIFY(f.box->getSelectedValue().empty());
}

void EnumBoxTest::nextAndPrevious()
{
    Simple f;
    f.box->previous();
    QCOMPARE(f.changed.count(), 0);
    f.box->next();
    QCOMPARE(f.changed.count(), 1);
    f.box->next();
    QCOMPARE(f.changed.count(), 2);
    QCOMPARE(intOf(f.box->getSelectedValue()), 3);
    f.box->next();
    QCOMPARE(f.changed.count(), 2);
    QCOMPARE(intOf(f.box->getSelectedValue()), 3);
    f.box->previous();
    QCOMPARE(f.changed.count(), 3);
    QCOMPARE(intOf(f.box->getSelectedValue()), 2);
    QCOMPARE(f.activated.count(), 0);
    Multi m;
    m.box->next();
    QCOMPARE(m.changed.count(), 1);
}

void EnumBoxTest::nextSkipsTheVariesItem()
{
    Multi f;
    f.box->forceVaries();
    f.choose(2);
    QVERIFY(f.hasVarious());
    f.changed.clear();
    f.box->next();
    QCOMPARE(intOf(f.box->getCurrentValue()), 3);
    QCOMPARE(f.changed.count(), 0);
    f.combo->addItem("behind");
    f.box->next();
    QCOMPARE(f.combo->currentText(), QStringLiteral("behind"));
    f.box->previous();
    QCOMPARE(intOf(f.box->getCurrentValue()), 3);
    QCOMPARE(f.changed.count(), 2);
}

void EnumBoxTest::anyEqAndEmptyValues()
{
    QWidget window;
    NotingEnumBox plain(&window);
    QVERIFY(!plain.anyEq(boost::any(), boost::any(1)));
    const Simple f(countingEqual);
    f.box->setValues({{"none", boost::any()}, {"a", 1}});
    equalCalls = 0;
    f.box->selectByValue(boost::any());
    // Two empty values are for the function to compare.
    QCOMPARE(equalCalls, 1);
    QCOMPARE(f.combo->currentIndex(), 0);
    f.box->selectByValue(boost::any(1));
    // One empty value differs from any other without asking.
    QCOMPARE(equalCalls, 2);
    QCOMPARE(f.combo->currentIndex(), 1);
}

void EnumBoxTest::withoutEqualityNothingIsEqual()
{
    Multi f(nullptr);
    QCOMPARE(takeExpressions(), (QStringList{"eqFn", "anyEqAvailable()"}));
    f.box->setValues({{"a", 1}, {"b", 2}});
    f.box->readValue(boost::any(1));
    QCOMPARE(takeExpressions(), (QStringList{"m_eq != 0", "m_eq != 0", "found"}));
    f.box->readValue(boost::any(1));
    QCOMPARE(takeExpressions(), QStringList{"m_eq != 0"});
    QVERIFY(f.box->dataVaries());
}

void EnumBoxTest::choiceEmits()
{
    Simple simple;
    simple.choose(1);
    QCOMPARE(simple.changed.count(), 1);
    QCOMPARE(simple.activated.count(), 0);
    QCOMPARE(intOf(simple.box->getSelectedValue()), 2);
    Multi multi;
    QStringList order;
    connect(multi.box, &SimpleEnumBox::activated, this, [&order] { order << "activated"; });
    connect(multi.box, &SimpleEnumBox::valueChanged, this, [&order] { order << "changed"; });
    multi.choose(1);
    QCOMPARE(multi.changed.count(), 2);
    QCOMPARE(multi.activated.count(), 1);
    QCOMPARE(multi.activated.at(0).at(0).toInt(), 1);
    QCOMPARE(order, (QStringList{"activated", "changed", "changed"}));
}

void EnumBoxTest::keysEmit()
{
    Multi f;
    QVERIFY(zel::test::showActive(f.window));
    f.box->setFocus();
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Down);
    QCOMPARE(f.changed.count(), 2);
    QCOMPARE(intOf(f.box->getCurrentValue()), 2);
    QTest::keyClick(f.window.windowHandle(), Qt::Key_C);
    QCOMPARE(intOf(f.box->getCurrentValue()), 3);
    QCOMPARE(f.changed.count(), 4);
    QTest::keyClick(f.window.windowHandle(), Qt::Key_End);
    QCOMPARE(f.changed.count(), 4);
}

void EnumBoxTest::choiceOfTheSameItemEmits()
{
    Multi f;
    f.choose(0);
    QCOMPARE(f.changed.count(), 2);
    QCOMPARE(f.activated.count(), 1);
}

void EnumBoxTest::readsOfOneSelection()
{
    Multi f;
    f.box->readValue(boost::any(2));
    QCOMPARE(f.changed.count(), 1);
    f.box->readValue(boost::any(2));
    QVERIFY(!f.box->dataVaries());
    QVERIFY(!f.hasVarious());
    QCOMPARE(intOf(f.box->getCurrentValue()), 2);
    f.box->readValue(boost::any(3));
    QVERIFY(f.box->dataVaries());
    QVERIFY(f.hasVarious());
    QCOMPARE(f.combo->currentText(), QStringLiteral("*VARIES*"));
    QCOMPARE(f.combo->currentIndex(), 3);
    QVERIFY(f.box->getCurrentValue().empty());
    f.box->readValue(boost::any(1));
    QVERIFY(f.box->dataVaries());
    QCOMPARE(f.combo->count(), 4);
    QCOMPARE(f.changed.count(), 1);
    QCOMPARE(f.activated.count(), 0);
}

void EnumBoxTest::firstReadOfAnUnknownValue()
{
    Multi f;
    f.box->readValue(boost::any(7));
    QCOMPARE(takeExpressions(), QStringList{"found"});
    QCOMPARE(f.changed.count(), 0);
    QCOMPARE(f.combo->currentIndex(), 0);
    // It was the first reading all the same.
    f.box->readValue(boost::any(2));
    QVERIFY(f.box->dataVaries());
}

void EnumBoxTest::stepsLeaveTheVaryingState_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("signalCount");
    QTest::newRow("choice from the list") << "list" << 2 << 2;
    QTest::newRow("key") << "key" << 3 << 2;
    QTest::newRow("selectByName") << "name" << 2 << 1;
    QTest::newRow("selectByValue") << "value" << 2 << 1;
    QTest::newRow("setValue") << "set" << 2 << 1;
    QTest::newRow("reset") << "reset" << 1 << 0;
    QTest::newRow("slot") << "slot" << -1 << 1;
}

void EnumBoxTest::stepsLeaveTheVaryingState()
{
    QFETCH(QString, step);
    QFETCH(int, value);
    QFETCH(int, signalCount);
    Multi f;
    f.box->forceVaries();
    QCOMPARE(f.changed.count(), 0);
    if (step == "list") {
        f.choose(1);
    } else if (step == "key") {
        QTest::keyClick(f.combo, Qt::Key_Up);
    } else if (step == "name") {
        f.box->selectByName("b");
    } else if (step == "value") {
        f.box->selectByValue(boost::any(2));
    } else if (step == "set") {
        f.box->setValue(boost::any(2));
    } else if (step == "reset") {
        f.box->reset();
    } else {
        QMetaObject::invokeMethod(f.box, "onItemActivated", Q_ARG(QString, "b"));
    }
    QVERIFY(!f.box->dataVaries());
    QCOMPARE(f.changed.count(), signalCount);
    QCOMPARE(intOf(f.box->getCurrentValue()), value);
    QCOMPARE(f.hasVarious(), step != "reset");
}

void EnumBoxTest::nextDoesNotLeaveTheVaryingState()
{
    Multi f;
    f.box->forceVaries();
    f.box->next();
    QCOMPARE(f.changed.count(), 0);
    f.box->previous();
    QCOMPARE(f.changed.count(), 1);
    QCOMPARE(f.combo->currentIndex(), 2);
    QVERIFY(f.box->dataVaries());
    QVERIFY(f.box->getCurrentValue().empty());
}

void EnumBoxTest::variesItemStaysUntilReset()
{
    Multi f;
    f.box->forceVaries();
    f.choose(1);
    QVERIFY(f.hasVarious());
    f.box->setValue(boost::any(1));
    QVERIFY(f.hasVarious());
    f.changed.clear();
    f.box->reset();
    QVERIFY(!f.hasVarious());
    QCOMPARE(intOf(f.box->getCurrentValue()), 1);
    QCOMPARE(f.changed.count(), 0);
    f.box->readValue(boost::any(3));
    QCOMPARE(intOf(f.box->getCurrentValue()), 3);
}

void EnumBoxTest::varyingBoxRefilled()
{
    Multi f;
    f.box->forceVaries();
    f.box->setValues({{"x", 7}, {"y", 8}});
    QCOMPARE(f.changed.count(), 0);
    QVERIFY(!f.hasVarious());
    QCOMPARE(f.combo->currentIndex(), 0);
    // New entries decide nothing.
    QVERIFY(f.box->dataVaries());
    QVERIFY(f.box->getCurrentValue().empty());
    f.box->reset();
    QCOMPARE(f.combo->count(), 2);
    f.box->readValue(boost::any(8));
    f.box->readValue(boost::any(7));
    QVERIFY(f.hasVarious());
    QCOMPARE(f.combo->currentIndex(), 2);
}

void EnumBoxTest::choosingTheVariesItemDecidesNothing_data()
{
    QTest::addColumn<bool>("fromEntry");
    QTest::newRow("again") << false;
    QTest::newRow("back from an entry") << true;
}

void EnumBoxTest::choosingTheVariesItemDecidesNothing()
{
    QFETCH(bool, fromEntry);
    Multi f;
    f.box->forceVaries();
    if (fromEntry) {
        f.choose(0);
        QVERIFY(!f.box->dataVaries());
    }
    f.changed.clear();
    f.choose(3);
    QCOMPARE(f.combo->currentText(), QStringLiteral("*VARIES*"));
    // No value was chosen, so there is nothing to write back.
    QVERIFY(f.box->dataVaries());
    QVERIFY(f.box->getCurrentValue().empty());
    QCOMPARE(f.changed.count(), 2);
    f.choose(1);
    QCOMPARE(intOf(f.box->getCurrentValue()), 2);
}

void EnumBoxTest::varyingBoxHasNoSelectedValue()
{
    const Multi f;
    f.box->forceVaries();
    QVERIFY(f.box->getSelectedValue().empty());
}

void EnumBoxTest::resetGoesBackToTheEntry()
{
    const Multi f;
    f.box->readValue(boost::any(2));
    f.box->readValue(boost::any(3));
    f.box->reset();
    QCOMPARE(f.combo->currentText(), QStringLiteral("b"));
    QCOMPARE(f.combo->count(), 3);
}

void EnumBoxTest::orderOfReadingDoesNotMatter()
{
    Multi f;
    const bool holds = rc::check("a selection varies if and only if it holds two values", [&f] {
        const auto values =
            *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 4)));
        f.box->reset();
        for (const int value : values) {
            f.box->readValue(boost::any(value));
        }
        const bool same = std::all_of(values.begin(), values.end(),
                                      [&](int value) { return value == values.front(); });
        RC_ASSERT(f.box->dataVaries() == !same);
        RC_ASSERT(f.hasVarious() == !same);
        RC_ASSERT(intOf(f.box->getCurrentValue()) == (same ? values.front() : -1));
    });
    QVERIFY(holds);
}

void EnumBoxTest::assistiveToolsSeeNameAndState()
{
    const Multi f(equalInts, QStringLiteral("Material"));
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(f.combo);
    QVERIFY(seen != nullptr);
    const auto labels = seen->relations(QAccessible::Label);
    QCOMPARE(labels.size(), 1);
    QCOMPARE(labels[0].first->text(QAccessible::Name), QStringLiteral("Material"));
    QCOMPARE(seen->text(QAccessible::Value), QStringLiteral("a"));
    f.box->forceVaries();
    QCOMPARE(seen->text(QAccessible::Value), QStringLiteral("*VARIES*"));
}

QTEST_MAIN(EnumBoxTest)
#include "tst_enum_box.moc"
