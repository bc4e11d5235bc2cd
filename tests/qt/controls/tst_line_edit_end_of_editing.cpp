#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/line_edit_form.h"
#include "tests/helpers/validation.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QIntValidator>
#include <QMenu>
#include <QPointer>

using namespace zel::qt;
using zel::test::told;

/// When the editing of a field ends, and how often it says so.
class LineEditEndOfEditingTest : public zel::test::CheckedTest, private zel::test::LineEditForm
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void isToldOnce_data();
    void isToldOnce();
    void asksTheValidatorInOrder();
    void everyOneIsTold();
    void editTakesPartInTheLoss();
    void lossToTheOwnContextMenuIsNone();
    void lossToAnotherMenuIsOne();
    void lossToTheCompleterIsNone();
    void unacceptableInputIsNotTold_data();
    void unacceptableInputIsNotTold();
    void endOfTheFieldIsNoEndOfEditing();
    void hostMayAnswer_data();
    void hostMayAnswer();
};

void LineEditEndOfEditingTest::init()
{
    CheckedTest::init();
    QVERIFY(open());
}

void LineEditEndOfEditingTest::cleanup()
{
    close();
    CheckedTest::cleanup();
}

void LineEditEndOfEditingTest::isToldOnce_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("before");
    for (const char* how : {"Return", "Enter", "Tab", "Backtab", "click", "clearFocus", "disabled",
                            "hidden", "another window"}) {
        for (const char* before : {"edited", "set", "entered"}) {
            QTest::addRow("%s, %s", before, how)
                << QString::fromLatin1(how) << QString::fromLatin1(before);
        }
    }
}

void LineEditEndOfEditingTest::isToldOnce()
{
    QFETCH(QString, how);
    QFETCH(QString, before);
    if (before == QLatin1String("edited")) {
        QTest::keyClicks(m_edit, QStringLiteral("1.5"));
    } else {
        m_edit->setText(QStringLiteral("1.5"));
    }
    if (before == QLatin1String("entered")) {
        // QLineEdit takes a text that was set for a change: only now it tells nothing of its own.
        m_other->setFocus();
        m_edit->setFocus();
        m_changed->clear();
    }
    const QSignalSpy finished(m_edit, &QLineEdit::editingFinished);
    const QSignalSpy otherChanged(m_other, &SimpleLineEdit::valueChanged);
    QWidget elsewhere;
    if (how == QLatin1String("Return")) {
        QTest::keyClick(m_edit, Qt::Key_Return);
    } else if (how == QLatin1String("Enter")) {
        QTest::keyClick(m_edit, Qt::Key_Enter);
    } else if (how == QLatin1String("Tab")) {
        QTest::keyClick(m_edit, Qt::Key_Tab);
    } else if (how == QLatin1String("Backtab")) {
        QTest::keyClick(m_edit, Qt::Key_Backtab);
    } else if (how == QLatin1String("click")) {
        QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    } else if (how == QLatin1String("clearFocus")) {
        m_edit->clearFocus();
    } else if (how == QLatin1String("disabled")) {
        m_field->setEnabled(false);
    } else if (how == QLatin1String("hidden")) {
        m_field->hide();
    } else {
        QVERIFY(zel::test::showActive(elsewhere));
    }
    QCOMPARE(changes(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(otherChanged.count(), 0);
    QCOMPARE(m_edit->text(), QStringLiteral("1.500"));
    QVERIFY(m_field->isValueValid());
    QCOMPARE(boost::any_cast<double>(m_field->getValue()), 1.5);
    QCOMPARE(m_edit->hasFocus(), how == QLatin1String("Return") || how == QLatin1String("Enter"));
}

void LineEditEndOfEditingTest::asksTheValidatorInOrder()
{
    m_edit->setText(QStringLiteral("1.5"));
    m_validator->takeCalls();
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(m_validator->takeCalls(),
             (QStringList{"validate 1.5", "finish 1.5", "reformat 1.500"}));
    QVERIFY(!m_validator->anyFlagSet);
    QVERIFY(m_validator->unusedValueGiven);
}

void LineEditEndOfEditingTest::everyOneIsTold()
{
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    QTest::keyClick(m_edit, Qt::Key_Return);
    QCOMPARE(changes(), 1);
    QTest::keyClick(m_edit, Qt::Key_Return);
    QCOMPARE(changes(), 2);
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(changes(), 3);
    m_edit->setFocus();
    QCOMPARE(changes(), 3);
    QTest::keyClicks(m_edit, QStringLiteral("2"));
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(changes(), 4);
}

void LineEditEndOfEditingTest::editTakesPartInTheLoss()
{
    // The edit drops its selection and its cursor as any other one does.
    m_edit->setText(QStringLiteral("abc")); // a bad text stays, so that nothing is set at the end
    m_edit->selectAll();
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QVERIFY(!m_edit->hasFocus());
    QCOMPARE(m_edit->text(), QStringLiteral("abc"));
    QVERIFY(!m_edit->hasSelectedText());
}

void LineEditEndOfEditingTest::lossToTheOwnContextMenuIsNone()
{
    QTest::keyClicks(m_edit, QStringLiteral("1.5"));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(3, 3),
                            m_edit->mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(m_edit, &event);
    QWidget* const menu = QApplication::activePopupWidget();
    QVERIFY(menu != nullptr);
    QCOMPARE(changes(), 0);
    QTest::keyClick(menu, Qt::Key_Escape);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QCOMPARE(changes(), 0);
    QCOMPARE(m_edit->text(), QStringLiteral("1.5"));
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(changes(), 1);
}

void LineEditEndOfEditingTest::lossToAnotherMenuIsOne()
{
    m_edit->setText(QStringLiteral("1.5"));
    QMenu menu(m_window.get());
    menu.addAction(QStringLiteral("entry"));
    menu.popup(m_window->mapToGlobal(QPoint(0, 0)));
    QCOMPARE(changes(), 1);
    QCOMPARE(m_edit->text(), QStringLiteral("1.500"));
    menu.close();
    QCOMPARE(changes(), 1);
    // Nothing was changed in between, so QLineEdit tells nothing of its own.
    menu.popup(m_window->mapToGlobal(QPoint(0, 0)));
    QCOMPARE(changes(), 2);
    menu.close();
    QCOMPARE(changes(), 2);
}

void LineEditEndOfEditingTest::lossToTheCompleterIsNone()
{
    auto* completer = new QCompleter(QStringList{"15", "16"}, m_edit);
    m_edit->setCompleter(completer);
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    QTRY_VERIFY(completer->popup()->isVisible());
    QCOMPARE(changes(), 0);
    QCOMPARE(m_edit->text(), QStringLiteral("1"));
    completer->popup()->hide();
    QCOMPARE(changes(), 0);
}

void LineEditEndOfEditingTest::unacceptableInputIsNotTold_data()
{
    QTest::addColumn<bool>("edited");
    QTest::newRow("edited") << true;
    QTest::newRow("unchanged") << false;
}

void LineEditEndOfEditingTest::unacceptableInputIsNotTold()
{
    // A host may restrict the edit itself, by a mask or by a validator of Qt's.
    QFETCH(bool, edited);
    if (edited) {
        QTest::keyClicks(m_edit, QStringLiteral("1"));
    } else {
        m_edit->setText(QStringLiteral("1"));
    }
    const QIntValidator twoDigits(10, 99, nullptr);
    m_edit->setValidator(&twoDigits);
    QTest::keyClick(m_edit, Qt::Key_Return);
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QVERIFY(!m_edit->hasFocus());
    QCOMPARE(changes(), 0);
    QCOMPARE(m_edit->text(), QStringLiteral("1"));
    m_edit->setFocus();
    QTest::keyClick(m_edit, Qt::Key_End);
    QTest::keyClicks(m_edit, QStringLiteral("2"));
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(changes(), 1);
    QCOMPARE(m_edit->text(), QStringLiteral("12.000"));
    m_edit->setValidator(nullptr);
}

void LineEditEndOfEditingTest::endOfTheFieldIsNoEndOfEditing()
{
    QTest::keyClicks(m_edit, QStringLiteral("1.5"));
    delete m_field;
    QCOMPARE(changes(), 0);
}

void LineEditEndOfEditingTest::hostMayAnswer_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("ends");
    for (const int key : {int(Qt::Key_Return), int(Qt::Key_Tab)}) {
        const QByteArray name = key == Qt::Key_Return ? "Return" : "Tab";
        QTest::newRow(name + ", sets a value") << "value" << key << "4.000" << 1;
        QTest::newRow(name + ", disables the field")
            << "disable" << key << "1.500" << (key == Qt::Key_Return ? 2 : 1);
        QTest::newRow(name + ", deletes the field later") << "delete" << key << "1.500" << 1;
    }
}

void LineEditEndOfEditingTest::hostMayAnswer()
{
    QFETCH(QString, what);
    QFETCH(int, key);
    QPointer<SimpleLineEdit> field = m_field;
    QString text;
    const QObject host; // the window that goes at the end of the test ends the editing too
    connect(m_field, &SimpleLineEdit::valueChanged, &host, [&] {
        text = field->edit().text();
        if (what == QLatin1String("value")) {
            field->setValue(4.0);
            text = field->edit().text();
        } else if (what == QLatin1String("disable")) {
            field->setEnabled(false);
        } else {
            field->deleteLater();
        }
    });
    QTest::keyClicks(m_edit, QStringLiteral("1.5"));
    QTest::keyClick(m_edit, Qt::Key(key));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTEST(changes(), "ends");
    QTEST(text, "text");
    QCOMPARE(field.isNull(), what == QLatin1String("delete"));
    if (field) {
        QVERIFY(field->isValueValid());
        QCOMPARE(told(field->getValue()), told(boost::any(text.toDouble())));
    }
}

QTEST_MAIN(LineEditEndOfEditingTest)
#include "tst_line_edit_end_of_editing.moc"
