#include "qt/inc/validators.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/enum_box_fixture.h"
#include "tests/helpers/number_validator.h"

#include <QAccessible>
#include <QPointer>
#include <QPushButton>
#include <QScopedPointer>
#include <QWindow>

#include <boost/make_shared.hpp>
#include <memory>

using namespace zel::qt;
using zel::test::NumberValidator;

namespace {

bool equalDoubles(const boost::any& a, const boost::any& b)
{
    const double* x = boost::any_cast<double>(&a);
    const double* y = boost::any_cast<double>(&b);
    return x == nullptr || y == nullptr ? a.empty() && b.empty() : *x == *y;
}

QString told(const boost::any& value)
{
    return value.empty() ? QStringLiteral("empty")
                         : QString::number(boost::any_cast<double>(value));
}

/// An editable box over "half", "10" and "none" with a validator of numbers.
template <class Box>
struct Editable : zel::test::EnumBoxFixture<Box>
{
    Editable()
        : zel::test::EnumBoxFixture<Box>(equalDoubles, QStringLiteral("Factor"))
        , validator(boost::make_shared<NumberValidator>())
        , other(new QPushButton(QStringLiteral("other"), &this->window))
    {
        this->window.layout()->addWidget(other);
        this->box->setEditable(true, validator);
        this->box->setValues({{"half", 0.5}, {"10", 10.0}, {"none", boost::any()}});
        this->changed.clear();
    }

    QLineEdit* edit() const
    {
        return this->combo->lineEdit();
    }

    boost::shared_ptr<NumberValidator> validator;
    QPushButton* other;
};

using Simple = Editable<SimpleEnumBox>;
using Multi = Editable<MultiEditEnumBox>;

/// Deferred deletions, as the event loop does them.
void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class EnumBoxEditableTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void takesTheEditOfALineEdit();
    void showsNothingElseOfTheLineEdit();
    void valueOfTheText_data();
    void valueOfTheText();
    void withoutValidatorOnlyNamesCount();
    void withoutEntriesThereIsNoValue();
    void selectByValueShowsAnEntry();
    void selectByValueShowsAStranger();
    void selectByValueWithoutValidatorReports();
    void nameForAStranger();
    void typingAndLeavingEmitsOnce();
    void leavingWithANameEmitsNothing();
    void leavingKeepsANameThatIsANumber_data();
    void leavingKeepsANameThatIsANumber();
    void returnCommits();
    void returnOnANameActivatesIt();
    void invalidTextIsRedAndEmpty();
    void textIsNormalisedAndClamped();
    void nothingIsCompleted();
    void dropDownChoiceSetsTheText();
    void typingLeavesTheVaryingState();
    void varyingFieldPassedThroughStaysVarying();
    void varyingTextIsNeverAValue();
    void varyingFieldRefilled();
    void nextAndPreviousChangeTheText();
    void readsOfStrangers();
    void secondSetEditableKeepsTheFirstValidatorOfTheEdit();
    void switchingOffDeletesTheEdit();
    void switchingOffWhileTyping();
    void switchingOffAndOnAgain();
    void lineEditGoesWithTheBox();
    void lineEditFollowsTheParent();
    void boxWithoutParentOwnsItsLineEdit();
    void anyOrderOfDestruction();
    void assistiveToolsSeeTheName();
};

void EnumBoxEditableTest::takesTheEditOfALineEdit()
{
    const Simple f;
    QVERIFY(f.combo->isEditable());
    QVERIFY(qobject_cast<detail::LineEditImpl*>(f.edit()) != nullptr);
    QCOMPARE(f.edit()->parentWidget(), static_cast<QWidget*>(f.combo));
    QCOMPARE(f.window.findChildren<QLineEdit*>().size(), 1);
    const auto lineEdits =
        f.window.findChildren<MultiEditLineEdit*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(lineEdits.size(), 1);
}

void EnumBoxEditableTest::showsNothingElseOfTheLineEdit()
{
    Simple f;
    QVERIFY(zel::test::showActive(f.window));
    QVERIFY(f.edit()->isVisible());
    QVERIFY(!f.window.findChild<MultiEditLineEdit*>()->isVisible());
    // It takes no part in the tab order either.
    f.box->setFocus();
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(f.other));
}

void EnumBoxEditableTest::valueOfTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");
    QTest::newRow("name") << "half"
                          << "0.5";
    QTest::newRow("name that reads as a number") << "10"
                                                 << "10";
    QTest::newRow("number") << "2.5"
                            << "2.5";
    QTest::newRow("neither") << "Half"
                             << "empty";
    QTest::newRow("nothing") << ""
                             << "empty";
    QTest::newRow("name of no value") << "none"
                                      << "empty";
}

void EnumBoxEditableTest::valueOfTheText()
{
    QFETCH(QString, text);
    QFETCH(QString, value);
    Simple f;
    f.type(text);
    QCOMPARE(f.edit()->text(), text);
    QCOMPARE(told(f.box->getSelectedValue()), value);
    // An entry is found by its name and not by what the validator makes of it.
    f.validator->takeCalls();
    f.box->selectByName("none");
    QVERIFY(f.box->getSelectedValue().empty());
    QCOMPARE(f.validator->takeCalls(), QStringList());
    QVERIFY(!f.validator->anyFlagSet);
}

void EnumBoxEditableTest::withoutValidatorOnlyNamesCount()
{
    Simple f;
    f.box->setEditable(true);
    f.edit()->setText("2.5");
    QVERIFY(f.box->getSelectedValue().empty());
    f.edit()->setText("half");
    QCOMPARE(told(f.box->getSelectedValue()), QStringLiteral("0.5"));
    QCOMPARE(f.box->getNameForValue(boost::any(2.5)), QString());
    QVERIFY(QMetaObject::invokeMethod(f.box, "onEditingFinished"));
    QCOMPARE(f.changed.count(), 0);
}

void EnumBoxEditableTest::withoutEntriesThereIsNoValue()
{
    Simple f;
    f.box->setValues({});
    f.type("2.5");
    QVERIFY(f.box->getSelectedValue().empty());
    f.box->selectByValue(boost::any(2.5));
    QCOMPARE(f.edit()->text(), QStringLiteral("2.500"));
}

void EnumBoxEditableTest::selectByValueShowsAnEntry()
{
    Multi f;
    f.type("2.5");
    f.changed.clear();
    f.box->selectByValue(boost::any(0.5));
    QCOMPARE(f.edit()->text(), QStringLiteral("half"));
    QCOMPARE(f.combo->currentIndex(), 0);
    QCOMPARE(f.changed.count(), 1);
}

void EnumBoxEditableTest::selectByValueShowsAStranger()
{
    Multi f;
    f.box->selectByName("10");
    f.box->forceVaries();
    f.changed.clear();
    f.box->selectByValue(boost::any(2.5));
    QCOMPARE(f.edit()->text(), QStringLiteral("2.500"));
    QCOMPARE(f.changed.count(), 1);
    QVERIFY(!f.box->dataVaries());
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("2.5"));
    QCOMPARE(f.combo->findText("2.500"), -1);
}

void EnumBoxEditableTest::selectByValueWithoutValidatorReports()
{
    Multi f;
    f.box->setEditable(true);
    f.box->selectByValue(boost::any(2.5));
    QCOMPARE(takeExpressions(), QStringList{"m_validator"});
    QCOMPARE(f.edit()->text(), QStringLiteral("half"));
    QCOMPARE(f.changed.count(), 0);
}

void EnumBoxEditableTest::nameForAStranger()
{
    const Simple f;
    QCOMPARE(f.box->getNameForValue(boost::any(10.0)), QStringLiteral("10"));
    QCOMPARE(f.box->getNameForValue(boost::any(2.5)), QStringLiteral("2.500"));
    f.box->setEditable(false, f.validator);
    QCOMPARE(f.box->getNameForValue(boost::any(2.5)), QString());
}

void EnumBoxEditableTest::typingAndLeavingEmitsOnce()
{
    Multi f;
    QVERIFY(zel::test::showActive(f.window));
    f.box->setFocus();
    f.type("2.5");
    QCOMPARE(f.changed.count(), 0);
    QVERIFY(f.box->isValueValid());
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(f.other));
    QCOMPARE(f.edit()->text(), QStringLiteral("2.500"));
    QCOMPARE(f.changed.count(), 1);
    QCOMPARE(f.activated.count(), 0);
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("2.5"));
    // The text is no item of the list.
    QCOMPARE(f.combo->count(), 3);
}

void EnumBoxEditableTest::leavingWithANameEmitsNothing()
{
    Simple f;
    QVERIFY(QMetaObject::invokeMethod(f.box, "onEditingFinished"));
    QCOMPARE(f.changed.count(), 0);
    f.edit()->setText("7");
    QVERIFY(QMetaObject::invokeMethod(f.box, "onEditingFinished"));
    QCOMPARE(f.changed.count(), 1);
    f.edit()->setText("none");
    QVERIFY(QMetaObject::invokeMethod(f.box, "onEditingFinished"));
    QCOMPARE(f.changed.count(), 1);
}

void EnumBoxEditableTest::leavingKeepsANameThatIsANumber_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("signalCount");
    QTest::newRow("passed through") << QString() << "10"
                                    << "70" << 0;
    QTest::newRow("the name typed") << "10"
                                    << "10"
                                    << "70" << 0;
    QTest::newRow("the number typed") << "10.0"
                                      << "10.000"
                                      << "10" << 1;
}

void EnumBoxEditableTest::leavingKeepsANameThatIsANumber()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QString, value);
    QFETCH(int, signalCount);
    Multi f;
    f.box->setValues({{"half", 0.5}, {"10", 70.0}});
    f.box->readValue(boost::any(70.0));
    QVERIFY(zel::test::showActive(f.window));
    f.box->setFocus();
    if (!typed.isEmpty()) {
        f.type(typed);
    }
    f.changed.clear();
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(f.other));
    QCOMPARE(f.edit()->text(), shown);
    QCOMPARE(told(f.box->getCurrentValue()), value);
    QCOMPARE(f.changed.count(), signalCount);
}

void EnumBoxEditableTest::returnCommits()
{
    Simple simple;
    simple.type("2.5");
    QTest::keyClick(simple.combo, Qt::Key_Return);
    // Once for the item that Return adds to the list, once for the end of editing.
    QCOMPARE(simple.changed.count(), 2);
    QCOMPARE(simple.edit()->text(), QStringLiteral("2.500"));
    QCOMPARE(told(simple.box->getSelectedValue()), QStringLiteral("2.5"));
    QCOMPARE(simple.combo->count(), 4);

    Multi multi;
    multi.type("2.5");
    QTest::keyClick(multi.combo, Qt::Key_Return);
    QCOMPARE(multi.changed.count(), 3);
    QCOMPARE(multi.activated.count(), 1);
    QCOMPARE(told(multi.box->getCurrentValue()), QStringLiteral("2.5"));
}

void EnumBoxEditableTest::returnOnANameActivatesIt()
{
    Multi f;
    f.type("none");
    QTest::keyClick(f.combo, Qt::Key_Return);
    QCOMPARE(f.activated.count(), 1);
    QCOMPARE(f.activated.at(0).at(0).toInt(), 2);
    QCOMPARE(f.combo->count(), 3);
    QCOMPARE(f.combo->currentIndex(), 2);
}

void EnumBoxEditableTest::invalidTextIsRedAndEmpty()
{
    Multi f;
    f.type("abc");
    QVERIFY(!f.box->isValueValid());
    QVERIFY(f.edit()->styleSheet().contains(QStringLiteral("#e61414")));
    QVERIFY(f.box->getSelectedValue().empty());
    QTest::keyClick(f.combo, Qt::Key_Return);
    QCOMPARE(f.edit()->text(), QStringLiteral("abc"));
    QVERIFY(f.box->getCurrentValue().empty());
}

void EnumBoxEditableTest::textIsNormalisedAndClamped()
{
    Multi f;
    f.validator->maximum = 100.0;
    f.type("500");
    QTest::keyClick(f.combo, Qt::Key_Return);
    QCOMPARE(f.edit()->text(), QStringLiteral("100.000"));
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("100"));
}

void EnumBoxEditableTest::nothingIsCompleted()
{
    Multi f;
    f.type("1");
    QCOMPARE(f.edit()->text(), QStringLiteral("1"));
    QTest::keyClick(f.combo, Qt::Key_Return);
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("1"));
}

void EnumBoxEditableTest::dropDownChoiceSetsTheText()
{
    Multi f;
    f.choose(1);
    QCOMPARE(f.edit()->text(), QStringLiteral("10"));
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("10"));
    QCOMPARE(f.changed.count(), 2);
    // The list takes the focus from the edit, which ends the editing of a typed text first.
    f.type("2.5");
    f.choose(0);
    QCOMPARE(f.edit()->text(), QStringLiteral("half"));
    QCOMPARE(f.changed.count(), 5);
}

void EnumBoxEditableTest::typingLeavesTheVaryingState()
{
    Multi f;
    f.box->forceVaries();
    QCOMPARE(f.edit()->text(), QStringLiteral("*VARIES*"));
    f.type("2.5");
    QVERIFY(!f.box->dataVaries());
    QCOMPARE(f.changed.count(), 0);
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("2.5"));
    f.type("*VARIES*");
    QVERIFY(f.box->dataVaries());
    QVERIFY(f.box->getCurrentValue().empty());
    f.type("*VARIES");
    QVERIFY(!f.box->dataVaries());
    f.choose(3);
    QVERIFY(f.box->dataVaries());
    QCOMPARE(f.edit()->text(), QStringLiteral("*VARIES*"));
}

void EnumBoxEditableTest::varyingFieldPassedThroughStaysVarying()
{
    Multi f;
    QVERIFY(zel::test::showActive(f.window));
    f.box->forceVaries();
    f.box->setFocus();
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Tab);
    QVERIFY(f.box->dataVaries());
    QCOMPARE(f.changed.count(), 0);
    QCOMPARE(f.combo->currentText(), QStringLiteral("*VARIES*"));
    QVERIFY(QMetaObject::invokeMethod(f.box, "onEditingFinished"));
    QCOMPARE(f.changed.count(), 0);
}

void EnumBoxEditableTest::varyingTextIsNeverAValue()
{
    Multi f;
    auto anyText = boost::make_shared<StringEditValidator>(100);
    f.box->setEditable(false);
    f.box->setEditable(true, anyText);
    f.box->forceVaries();
    f.changed.clear();
    // Return chooses the item of that text, which decides nothing.
    QTest::keyClick(f.combo, Qt::Key_Return);
    QVERIFY(f.box->dataVaries());
    QVERIFY(f.box->getCurrentValue().empty());
    QCOMPARE(f.combo->count(), 4);
    f.type("steel");
    f.type("*VARIES*");
    QTest::keyClick(f.combo, Qt::Key_Return);
    QVERIFY(f.box->dataVaries());
    QVERIFY(f.box->getCurrentValue().empty());
    QCOMPARE(f.combo->count(), 4);
}

void EnumBoxEditableTest::varyingFieldRefilled()
{
    Multi f;
    f.box->forceVaries();
    f.box->setValues({{"x", 1.0}, {"y", 2.0}});
    QCOMPARE(f.changed.count(), 0);
    QCOMPARE(f.edit()->text(), QStringLiteral("x"));
    QVERIFY(!f.box->dataVaries());
    f.box->forceVaries();
    QCOMPARE(f.combo->count(), 3);
    QVERIFY(f.box->dataVaries());
}

void EnumBoxEditableTest::nextAndPreviousChangeTheText()
{
    Multi f;
    f.box->next();
    QCOMPARE(f.edit()->text(), QStringLiteral("10"));
    f.box->previous();
    QCOMPARE(f.edit()->text(), QStringLiteral("half"));
    QCOMPARE(f.changed.count(), 2);
}

void EnumBoxEditableTest::readsOfStrangers()
{
    Multi f;
    f.box->readValue(boost::any(2.5));
    QCOMPARE(f.changed.count(), 1);
    f.box->readValue(boost::any(2.5));
    QVERIFY(!f.box->dataVaries());
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("2.5"));
    f.box->readValue(boost::any(2.6));
    QVERIFY(f.box->dataVaries());
    QCOMPARE(f.edit()->text(), QStringLiteral("*VARIES*"));
    f.box->reset();
    f.box->readValue(boost::any(10.0));
    QCOMPARE(f.edit()->text(), QStringLiteral("10"));
    QVERIFY(!f.box->dataVaries());
}

void EnumBoxEditableTest::secondSetEditableKeepsTheFirstValidatorOfTheEdit()
{
    Simple f;
    QLineEdit* edit = f.edit();
    const auto second = boost::make_shared<NumberValidator>(NumberValidator::EmptyAllowed);
    f.box->setEditable(true, second);
    QCOMPARE(f.edit(), edit);
    f.validator->takeCalls();
    second->takeCalls();
    f.type("2.5");
    QCOMPARE(f.validator->takeCalls().last(), QStringLiteral("validate 2.5"));
    QCOMPARE(second->takeCalls(), QStringList());
    QCOMPARE(told(f.box->getSelectedValue()), QStringLiteral("2.5"));
    QCOMPARE(second->takeCalls(), QStringList{"validate 2.5"});
    QCOMPARE(f.validator->takeCalls(), QStringList());
}

void EnumBoxEditableTest::switchingOffDeletesTheEdit()
{
    Multi f;
    const QPointer<QLineEdit> edit = f.edit();
    f.type("2.5");
    f.box->setEditable(false);
    QVERIFY(!f.combo->isEditable());
    QVERIFY(f.window.findChild<MultiEditLineEdit*>() == nullptr);
    deleteDeferred();
    QVERIFY(edit.isNull());
    // The item under the typed text comes back.
    QCOMPARE(f.combo->currentText(), QStringLiteral("half"));
    QCOMPARE(told(f.box->getSelectedValue()), QStringLiteral("0.5"));
    QVERIFY(!f.box->isValueValid());
    f.choose(1);
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("10"));
    f.box->setEditable(false);
}

void EnumBoxEditableTest::switchingOffWhileTyping()
{
    Multi f;
    QVERIFY(zel::test::showActive(f.window));
    connect(f.box, &SimpleEnumBox::valueChanged, f.box, [&f] { f.box->setEditable(false); });
    f.box->setFocus();
    f.type("2.5");
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Return);
    deleteDeferred();
    QVERIFY(!f.combo->isEditable());
    QVERIFY(f.changed.count() >= 1);
}

void EnumBoxEditableTest::switchingOffAndOnAgain()
{
    Multi f;
    f.box->setEditable(false);
    f.box->setEditable(true, f.validator);
    deleteDeferred();
    QCOMPARE(f.window.findChildren<MultiEditLineEdit*>().size(), 1);
    QVERIFY(f.combo->lineEdit() != nullptr);
    f.type("2.5");
    QVERIFY(f.box->isValueValid());
    QTest::keyClick(f.combo, Qt::Key_Return);
    QCOMPARE(f.changed.count(), 3);
    QCOMPARE(f.edit()->text(), QStringLiteral("2.500"));
    QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("2.5"));
}

void EnumBoxEditableTest::lineEditGoesWithTheBox()
{
    Multi f;
    delete f.box;
    QVERIFY(f.window.findChild<MultiEditLineEdit*>() == nullptr);
}

void EnumBoxEditableTest::lineEditFollowsTheParent()
{
    auto old = std::make_unique<QWidget>();
    QWidget window;
    MultiEditEnumBox* box = MultiEditEnumBox::create(old.get(), QString(), equalDoubles);
    box->setEditable(true, boost::make_shared<NumberValidator>());
    box->setValues({{"half", 0.5}});
    box->setParent(&window);
    old.reset();
    auto* combo = box->findChild<ZEL_QT4_ComboBox*>();
    window.show();
    box->show();
    QVERIFY(!window.findChild<MultiEditLineEdit*>()->isVisible());
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo, "x");
    QVERIFY(!box->isValueValid());
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo, "1");
    QVERIFY(box->isValueValid());
}

void EnumBoxEditableTest::boxWithoutParentOwnsItsLineEdit()
{
    std::unique_ptr<MultiEditEnumBox> box(
        MultiEditEnumBox::create(nullptr, QString(), equalDoubles));
    box->setEditable(true, boost::make_shared<NumberValidator>());
    bool destroyed = false;
    auto validator = boost::make_shared<NumberValidator>();
    validator->destroyed = &destroyed;
    box->setEditable(false);
    box->setEditable(true, validator);
    validator.reset();
    box.reset();
    // The line edit held it as well.
    QVERIFY(destroyed);
}

void EnumBoxEditableTest::anyOrderOfDestruction()
{
    {
        // The line edit first.
        Multi f;
        delete f.window.findChild<MultiEditLineEdit*>();
        f.type("2.5");
        QTest::keyClick(f.combo, Qt::Key_Return);
        QVERIFY(!f.box->isValueValid());
        QCOMPARE(told(f.box->getCurrentValue()), QStringLiteral("2.5"));
        QVERIFY(QMetaObject::invokeMethod(f.box, "onEditingFinished"));
        f.box->setEditable(true, f.validator);
        f.type("3");
        QVERIFY(f.box->isValueValid());
    }
    {
        // A pending deletion of the inner edit when everything goes.
        Multi f;
        f.box->setEditable(false);
    }
    {
        // The box, and then what is pending.
        Multi f;
        f.box->setEditable(false);
        f.box->setEditable(true, f.validator);
        delete f.box;
        deleteDeferred();
    }
}

void EnumBoxEditableTest::assistiveToolsSeeTheName()
{
    const Multi f;
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(f.edit());
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Factor"));
    QCOMPARE(f.combo->accessibleName(), QStringLiteral("Factor"));
}

QTEST_MAIN(EnumBoxEditableTest)
#include "tst_enum_box_editable.moc"
