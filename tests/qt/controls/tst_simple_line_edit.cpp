#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/number_validator.h"
#include "tests/helpers/word_translator.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMetaMethod>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyleOptionButton>
#include <QToolButton>

#include <boost/make_shared.hpp>

#include <limits>
#include <memory>
#include <stdexcept>

using namespace zel::qt;
using zel::test::NumberValidator;

namespace {

const QString black = QStringLiteral("QLineEdit { color: #000; }");
const QString red = QStringLiteral("QLineEdit { color: #e61414; }");

/// A line edit as a subclass sees it.
class OpenLineEdit : public SimpleLineEdit
{
public:
    explicit OpenLineEdit(boost::shared_ptr<IValidator> validator, QWidget* parent = nullptr)
        : SimpleLineEdit(parent, QString(), std::move(validator), {}, 0, ExpandRight)
    {}

    using SimpleLineEdit::setFallbackValue;
    using SimpleLineEdit::validator;

    QString vetoed;        ///< the text that is exempt from validation
    QStringList validated; ///< what onValidated() was told

private:
    bool vetoValidation(const QString& text) override
    {
        return !vetoed.isNull() && text == vetoed;
    }
    void onValidated(const QString& text, const boost::any& value) override
    {
        validated.append(
            text + QLatin1Char('=') +
            (value.empty() ? QString() : QString::number(boost::any_cast<double>(value))));
    }
};

/// Counts the changes of style of a widget.
class StyleChanges : public QObject
{
public:
    explicit StyleChanges(QWidget& widget)
    {
        widget.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* e) override
    {
        count += e->type() == QEvent::StyleChange ? 1 : 0;
        return false;
    }
    int count = 0;
};

} // namespace

/// The field under test stands above a plain one of its kind in an active window.
class SimpleLineEditTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void metaObject();
    void newControlIsNotValid();
    void partsInOrder_data();
    void partsInOrder();
    void lookOfTheFlags_data();
    void lookOfTheFlags();
    void captionIsPlainText();
    void rawValidatorIsOwned();
    void sharedValidatorIsShared();
    void keystroke_data();
    void keystroke();
    void keystrokeAsksTheValidatorOnce();
    void firstKeystrokeReplacesTheSheet();
    void sameColourIsNotSetAgain();
    void endOfEditing_data();
    void endOfEditing();
    void endOfEditingAsksTheValidatorInOrder();
    void everyEndOfEditingIsTold();
    void lossToTheOwnContextMenuIsNone();
    void lossToAnotherMenuIsOne();
    void lossToTheCompleterIsNone();
    void badTextStays();
    void valueIsClampedAtTheEnd();
    void vetoedTextIsLeftAlone();
    void validatedTextsAreTold();
    void fallbackReplacesABadText();
    void setValueLeavesTheColour();
    void setValueIsSilent();
    void setValueTellsValidity();
    void getValueOfABadTextIsReported();
    void withoutValidator();
    void exceptionPassesThrough();
    void hintFollowsTheText();
    void hintWithoutFocusStaysHidden();
    void historyIsSharedWithThePopup();
    void historyEntryIsACommit();
    void currentValueGoesToTheHistory_data();
    void currentValueGoesToTheHistory();
    void historyWithoutValidatorIsReported();
    void unitString();
    void minimumWidthFactorHasNoEffect_data();
    void minimumWidthFactorHasNoEffect();
    void sizeHints_data();
    void sizeHints();
    void forwardsToTheEdit();
    void innerButton();
    void dotsButton();
    void focusGoesToTheEdit();
    void paintsAButtonOfNoSize();

private:
    int changes() const
    {
        return m_changed->count();
    }

    std::unique_ptr<QWidget> m_window;
    NumberValidator* m_validator = nullptr;
    SimpleLineEdit* m_field = nullptr;
    SimpleLineEdit* m_other = nullptr;
    QLineEdit* m_edit = nullptr;
    std::unique_ptr<QSignalSpy> m_changed;
};

void SimpleLineEditTest::init()
{
    CheckedTest::init();
    m_window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(m_window.get());
    m_validator = new NumberValidator;
    m_field = SimpleLineEdit::create(m_window.get(), QStringLiteral("Length"), m_validator, 0,
                                     ExpandRight);
    m_other =
        SimpleLineEdit::create(m_window.get(), QString(), new NumberValidator, 0, ExpandRight);
    layout->addWidget(m_field);
    layout->addWidget(m_other);
    m_edit = &m_field->edit();
    m_changed = std::make_unique<QSignalSpy>(m_field, &SimpleLineEdit::valueChanged);
    QVERIFY(zel::test::showActive(*m_window));
    m_edit->setFocus();
    QVERIFY(m_edit->hasFocus());
}

void SimpleLineEditTest::cleanup()
{
    m_changed.reset();
    m_window.reset();
    CheckedTest::cleanup();
}

void SimpleLineEditTest::metaObject()
{
    const QMetaObject& meta = SimpleLineEdit::staticMetaObject;
    QCOMPARE(meta.className(), "zel::qt::SimpleLineEdit");
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char* const kind = method.methodType() == QMetaMethod::Signal ? "signal" : "slot";
        const char* const access = method.access() == QMetaMethod::Public ? "public" : "private";
        methods << QStringLiteral("%1 %2 %3")
                       .arg(QLatin1String(access), QLatin1String(kind),
                            QString::fromLatin1(method.methodSignature()));
    }
    QCOMPARE(methods,
             (QStringList{"public signal valueChanged()", "public slot onEditingFinished()",
                          "public slot onTextEdited(QString)", "private slot onClickedButton()"}));
}

void SimpleLineEditTest::newControlIsNotValid()
{
    const std::unique_ptr<SimpleLineEdit> field(SimpleLineEdit::create(
        nullptr, QString(), new NumberValidator(NumberValidator::EmptyAsZero), 0, ExpandRight));
    QVERIFY(!field->isValueValid());
    QCOMPARE(field->edit().text(), QString());
    QCOMPARE(field->edit().styleSheet(), QString());
    QVERIFY(!field->valueHistory());
    QCOMPARE(boost::any_cast<double>(field->getValue()), 0.0);
    QVERIFY(!field->isValueValid());
}

void SimpleLineEditTest::partsInOrder_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("downwards");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("withButton");
    QTest::newRow("side by side") << int(ExpandRight) << false << "Length" << true;
    QTest::newRow("below one another") << int(ExpandDown) << true << "Length" << true;
    QTest::newRow("unknown direction") << 7 << true << "Length" << true;
    QTest::newRow("no caption") << int(ExpandRight) << false << "" << true;
    QTest::newRow("no button") << int(ExpandRight) << false << "Length" << false;
}

void SimpleLineEditTest::partsInOrder()
{
    QFETCH(int, direction);
    QFETCH(bool, downwards);
    QFETCH(QString, caption);
    QFETCH(bool, withButton);
    const boost::function<void()> onClicked =
        withButton ? boost::function<void()>([] {}) : boost::function<void()>();
    const std::unique_ptr<SimpleLineEdit> field(
        SimpleLineEdit::create(nullptr, caption, boost::make_shared<NumberValidator>(), onClicked,
                               0, static_cast<ExpandDirection>(direction)));
    QLayout* const layout = field->layout();
    QCOMPARE(qobject_cast<QVBoxLayout*>(layout) != nullptr, downwards);
    QCOMPARE(qobject_cast<QHBoxLayout*>(layout) != nullptr, !downwards);
    QCOMPARE(layout->contentsMargins(), QMargins(2, 2, 2, 2));
    QStringList parts;
    for (int i = 0; i < layout->count(); ++i) {
        const QWidget* const part = layout->itemAt(i)->widget();
        parts << QString::fromLatin1(part->metaObject()->className());
        QCOMPARE(part->parentWidget(), field.get());
    }
    QStringList expected{"zel::qt::detail::LineEditImpl", "ZEL_QT_Label"};
    if (!caption.isEmpty()) {
        expected.prepend(QStringLiteral("ZEL_QT_Label"));
        QCOMPARE(qobject_cast<QLabel*>(layout->itemAt(0)->widget())->text(), caption);
    }
    if (withButton) {
        expected.append(QStringLiteral("ZEL_QT_PushButton"));
        const auto* button = field->findChild<QPushButton*>();
        QCOMPARE(button->text(), QStringLiteral("..."));
        QCOMPARE(button->minimumSize(), QSize(20, 20));
        QCOMPARE(button->maximumSize(), QSize(20, 20));
    }
    QCOMPARE(parts, expected);
    QVERIFY(layout->itemAt(expected.indexOf(QStringLiteral("zel::qt::detail::LineEditImpl")) + 1)
                ->widget()
                ->isHidden());
    QCOMPARE(field->focusProxy(), &field->edit());
    QCOMPARE(field->edit().accessibleName(), caption);
}

void SimpleLineEditTest::lookOfTheFlags_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<bool>("borderless");
    QTest::newRow("none") << 0U << false;
    QTest::newRow("borderless") << 1U << true;
    QTest::newRow("bits without a meaning") << 6U << false;
    QTest::newRow("all bits") << ~0U << true;
}

void SimpleLineEditTest::lookOfTheFlags()
{
    QFETCH(unsigned int, flags);
    QFETCH(bool, borderless);
    const std::unique_ptr<SimpleLineEdit> field(
        SimpleLineEdit::create(nullptr, QString(), new NumberValidator, flags, ExpandRight));
    QCOMPARE(field->edit().styleSheet(),
             borderless ? QStringLiteral("QLineEdit { border:0; background-color:white; }")
                        : QString());
    QCOMPARE(field->styleSheet(),
             borderless ? QStringLiteral("* { background-color:white; }") : QString());
}

void SimpleLineEditTest::captionIsPlainText()
{
    const std::unique_ptr<SimpleLineEdit> field(SimpleLineEdit::create(
        nullptr, QStringLiteral("<b>x</b>"), new NumberValidator, 0, ExpandRight));
    const auto labels = field->findChildren<ZEL_QT_Label*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(labels.size(), 2);
    QCOMPARE(labels[0]->text(), QStringLiteral("<b>x</b>"));
    QCOMPARE(labels[0]->textFormat(), Qt::PlainText);
}

void SimpleLineEditTest::rawValidatorIsOwned()
{
    bool destroyed = false;
    auto* validator = new NumberValidator;
    validator->destroyed = &destroyed;
    auto* field = SimpleLineEdit::create(m_window.get(), QString(), validator, 0, ExpandRight);
    QCOMPARE(field->parentWidget(), m_window.get());
    QVERIFY(!destroyed);
    delete field;
    QVERIFY(destroyed);
}

void SimpleLineEditTest::sharedValidatorIsShared()
{
    const auto validator = boost::make_shared<NumberValidator>();
    auto* a = SimpleLineEdit::create(nullptr, QString(), validator, 0, ExpandRight);
    auto* b = SimpleLineEdit::create(nullptr, QString(), validator, {}, 0, ExpandRight);
    QCOMPARE(validator.use_count(), 3L);
    delete a;
    b->setValue(1.0);
    QVERIFY(b->isValueValid());
    delete b;
    QCOMPARE(validator.use_count(), 1L);
}

void SimpleLineEditTest::keystroke_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("valid");
    QTest::newRow("number") << "1.5" << true;
    QTest::newRow("number in the middle of typing") << "1." << true;
    QTest::newRow("letters") << "abc" << false;
    QTest::newRow("number that turned bad") << "1.5x" << false;
    QTest::newRow("bad text that turned good") << "-1" << true;
}

void SimpleLineEditTest::keystroke()
{
    QFETCH(QString, typed);
    QFETCH(bool, valid);
    const QSignalSpy finished(m_edit, &QLineEdit::editingFinished);
    QTest::keyClicks(m_edit, typed);
    QCOMPARE(m_field->isValueValid(), valid);
    QCOMPARE(m_edit->styleSheet(), valid ? black : red);
    QCOMPARE(m_edit->text(), typed);
    QCOMPARE(changes(), 0);
    QCOMPARE(finished.count(), 0);
    const QColor shown = m_edit->palette().color(QPalette::Text);
    QCOMPARE(shown, valid ? QColor(Qt::black) : QColor(230, 20, 20));
}

void SimpleLineEditTest::keystrokeAsksTheValidatorOnce()
{
    QTest::keyClicks(m_edit, QStringLiteral("1x"));
    QCOMPARE(m_validator->takeCalls(), (QStringList{"validate 1", "validate 1x"}));
    QVERIFY(!m_validator->anyFlagSet);
    QVERIFY(m_validator->unusedValueGiven);
}

void SimpleLineEditTest::firstKeystrokeReplacesTheSheet()
{
    const std::unique_ptr<SimpleLineEdit> borderless(
        SimpleLineEdit::create(nullptr, QString(), new NumberValidator, 1, ExpandRight));
    QTest::keyClicks(&borderless->edit(), QStringLiteral("1"));
    QCOMPARE(borderless->edit().styleSheet(), black);
    QCOMPARE(borderless->styleSheet(), QStringLiteral("* { background-color:white; }"));

    m_field->addButton([](const QString& text) { return text; }, QPixmap());
    QVERIFY(m_edit->styleSheet().contains(QLatin1String("padding-right")));
    QTest::keyClicks(m_edit, QStringLiteral("x"));
    QCOMPARE(m_edit->styleSheet(), red);
}

void SimpleLineEditTest::sameColourIsNotSetAgain()
{
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    const StyleChanges changes(*m_edit);
    QTest::keyClicks(m_edit, QStringLiteral("23"));
    QCOMPARE(changes.count, 0);
    QTest::keyClicks(m_edit, QStringLiteral("x"));
    const int toRed = changes.count;
    QVERIFY(toRed > 0);
    QTest::keyClicks(m_edit, QStringLiteral("yz"));
    QCOMPARE(changes.count, toRed);
}

void SimpleLineEditTest::endOfEditing_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("edited");
    for (const char* how : {"Return", "Enter", "Tab", "Backtab", "click", "clearFocus", "disabled",
                            "hidden", "another window"}) {
        QTest::addRow("edited, %s", how) << QString::fromLatin1(how) << true;
        QTest::addRow("unchanged, %s", how) << QString::fromLatin1(how) << false;
    }
}

void SimpleLineEditTest::endOfEditing()
{
    QFETCH(QString, how);
    QFETCH(bool, edited);
    const QSignalSpy finished(m_edit, &QLineEdit::editingFinished);
    const QSignalSpy otherChanged(m_other, &SimpleLineEdit::valueChanged);
    if (edited) {
        QTest::keyClicks(m_edit, QStringLiteral("1.5"));
    } else {
        m_edit->setText(QStringLiteral("1.5"));
    }
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

void SimpleLineEditTest::endOfEditingAsksTheValidatorInOrder()
{
    m_edit->setText(QStringLiteral("1.5"));
    m_validator->takeCalls();
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(m_validator->takeCalls(),
             (QStringList{"validate 1.5", "finish 1.5", "reformat 1.500"}));
    QVERIFY(!m_validator->anyFlagSet);
    QVERIFY(m_validator->unusedValueGiven);
}

void SimpleLineEditTest::everyEndOfEditingIsTold()
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

void SimpleLineEditTest::lossToTheOwnContextMenuIsNone()
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

void SimpleLineEditTest::lossToAnotherMenuIsOne()
{
    m_edit->setText(QStringLiteral("1.5"));
    QMenu menu(m_window.get());
    menu.addAction(QStringLiteral("entry"));
    menu.popup(m_window->mapToGlobal(QPoint(0, 0)));
    QCOMPARE(changes(), 1);
    QCOMPARE(m_edit->text(), QStringLiteral("1.500"));
    menu.close();
    QCOMPARE(changes(), 1);
}

void SimpleLineEditTest::lossToTheCompleterIsNone()
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

void SimpleLineEditTest::badTextStays()
{
    QTest::keyClicks(m_edit, QStringLiteral("abc"));
    QCOMPARE(m_edit->styleSheet(), red);
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(m_edit->text(), QStringLiteral("abc"));
    QCOMPARE(m_edit->styleSheet(), red);
    QVERIFY(!m_field->isValueValid());
    QCOMPARE(changes(), 1);
}

void SimpleLineEditTest::valueIsClampedAtTheEnd()
{
    m_validator->maximum = 10.0;
    QTest::keyClicks(m_edit, QStringLiteral("12"));
    QCOMPARE(m_edit->styleSheet(), black);
    QCOMPARE(m_edit->text(), QStringLiteral("12"));
    QCOMPARE(boost::any_cast<double>(m_field->getValue()), 10.0);
    QTest::keyClick(m_edit, Qt::Key_Return);
    QCOMPARE(m_edit->text(), QStringLiteral("10.000"));
    QVERIFY(m_field->isValueValid());
    QCOMPARE(changes(), 1);
}

void SimpleLineEditTest::vetoedTextIsLeftAlone()
{
    auto* validator = new NumberValidator;
    validator->setEditHintFunction([](const QString&) { return QStringLiteral("hint"); });
    OpenLineEdit field{boost::shared_ptr<IValidator>(validator)};
    field.vetoed = QStringLiteral("12");
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QTest::keyClicks(&field.edit(), QStringLiteral("x"));
    QTest::keyClick(&field.edit(), Qt::Key_Backspace);
    validator->takeCalls();
    field.edit().setText(QStringLiteral("1"));
    QTest::keyClicks(&field.edit(), QStringLiteral("2")); // the vetoed keystroke
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(validator->takeCalls(), QStringList());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(field.edit().text(), QStringLiteral("12"));
    QCOMPARE(field.edit().styleSheet(), red);
    QVERIFY(!field.isValueValid());
    QVERIFY(field.validated.isEmpty());
    QTest::keyClick(&field.edit(), Qt::Key_Backspace);
    QCOMPARE(field.validated, QStringList{"1=1"});
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
}

void SimpleLineEditTest::validatedTextsAreTold()
{
    auto validator = boost::make_shared<NumberValidator>(NumberValidator::EmptyAllowed);
    validator->maximum = 10.0;
    OpenLineEdit field(validator);
    QTest::keyClicks(&field.edit(), QStringLiteral("x"));
    QVERIFY(field.validated.isEmpty());
    QTest::keyClick(&field.edit(), Qt::Key_Backspace);
    QTest::keyClicks(&field.edit(), QStringLiteral("12"));
    QCOMPARE(field.validated, (QStringList{"=", "1=1", "12=12"}));
    field.validated.clear();
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(field.validated, (QStringList{"12=12", "12=10"}));
}

void SimpleLineEditTest::fallbackReplacesABadText()
{
    const auto validator = boost::make_shared<NumberValidator>();
    OpenLineEdit field(validator);
    field.setFallbackValue(7.0);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QTest::keyClicks(&field.edit(), QStringLiteral("1"));
    QCOMPARE(field.edit().text(), QStringLiteral("1"));
    validator->takeCalls();
    QTest::keyClicks(&field.edit(), QStringLiteral("x"));
    QCOMPARE(validator->takeCalls(), (QStringList{"validate 1x", "reformat 7.000"}));
    QCOMPARE(field.edit().text(), QStringLiteral("7.000"));
    QCOMPARE(field.edit().styleSheet(), black);
    QVERIFY(!field.isValueValid());
    QCOMPARE(changed.count(), 0);
    // The end of editing still judges the text that it began with.
    field.edit().setText(QStringLiteral("y"));
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(field.edit().text(), QStringLiteral("7.000"));
    QVERIFY(!field.isValueValid());
    QCOMPARE(changed.count(), 1);
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QVERIFY(field.isValueValid());
    // Without the fallback a bad text stays again.
    field.setFallbackValue(boost::any());
    QTest::keyClicks(&field.edit(), QStringLiteral("x"));
    QCOMPARE(field.edit().text(), QStringLiteral("7.000x"));
    QCOMPARE(field.edit().styleSheet(), red);
}

void SimpleLineEditTest::setValueLeavesTheColour()
{
    QTest::keyClicks(m_edit, QStringLiteral("abc"));
    m_field->setValue(2.0);
    QCOMPARE(m_edit->styleSheet(), red);
    QVERIFY(m_field->isValueValid());
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    QCOMPARE(m_edit->styleSheet(), black);
}

void SimpleLineEditTest::setValueIsSilent()
{
    const auto validator = boost::make_shared<NumberValidator>();
    validator->setEditHintFunction([](const QString&) { return QStringLiteral("hint"); });
    OpenLineEdit field(validator);
    QVERIFY(zel::test::showActive(field));
    field.setFocus();
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    field.setValue(2.5);
    QCOMPARE(validator->takeCalls(), (QStringList{"reformat 2.500", "validate 2.500"}));
    QVERIFY(!validator->anyFlagSet);
    QCOMPARE(field.edit().text(), QStringLiteral("2.500"));
    QCOMPARE(boost::any_cast<double>(field.getValue()), 2.5);
    QCOMPARE(changed.count(), 0);
    QVERIFY(field.validated.isEmpty());
    QCOMPARE(field.edit().styleSheet(), QString());
    QCOMPARE(field.findChild<detail::EditHintPopup*>()->findChild<QLabel*>()->text(), QString());
}

void SimpleLineEditTest::setValueTellsValidity()
{
    m_field->setValue(2.5);
    QVERIFY(m_field->isValueValid());
    m_field->setValue(boost::any()); // formats as the empty text, which this validator refuses
    QVERIFY(!m_field->isValueValid());
    QCOMPARE(m_edit->text(), QString());
    // The edit may cut what the validator gave.
    m_field->setMaxLength(3);
    m_field->setValue(1234.5);
    QCOMPARE(m_edit->text(), QStringLiteral("123"));
    QVERIFY(m_field->isValueValid());
}

void SimpleLineEditTest::getValueOfABadTextIsReported()
{
    QTest::keyClicks(m_edit, QStringLiteral("abc"));
    m_field->getValue();
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("ok"));
    QCOMPARE(reports[0].message, std::string("getValue() failed to validate"));
    QVERIFY(reports[0].file.rfind("qt/src/controls", 0) == 0);
}

void SimpleLineEditTest::withoutValidator()
{
    OpenLineEdit field(nullptr);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QVERIFY(!field.isValueValid());
    QTest::keyClicks(&field.edit(), QStringLiteral("x"));
    QVERIFY(field.isValueValid());
    QCOMPARE(field.edit().styleSheet(), QString());
    QVERIFY(field.validated.isEmpty());
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QVERIFY(field.isValueValid());
    QCOMPARE(field.edit().text(), QStringLiteral("x"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(takeExpressions(), QStringList());

    field.validator();
    QCOMPARE(takeExpressions(), QStringList{"m_validator"});
    field.getValue();
    QCOMPARE(takeExpressions(), QStringList{"ok"});
    field.setValue(1.0);
    QVERIFY(takeExpressions().contains(QStringLiteral("m_validator")));
    QVERIFY(!field.isValueValid());
}

void SimpleLineEditTest::exceptionPassesThrough()
{
    struct Throwing : NumberValidator
    {
        bool validate(const QString&, boost::any&, const std::bitset<32>&) override
        {
            throw std::domain_error("no such unit");
        }
    };
    OpenLineEdit field(boost::make_shared<Throwing>());
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QVERIFY_EXCEPTION_THROWN(field.onTextEdited(QStringLiteral("1")), std::domain_error);
    QVERIFY_EXCEPTION_THROWN(field.onEditingFinished(), std::domain_error);
    QVERIFY_EXCEPTION_THROWN(field.setValue(1.0), std::domain_error);
    QCOMPARE(changed.count(), 0);
}

void SimpleLineEditTest::hintFollowsTheText()
{
    m_validator->setEditHintFunction([](const QString& text) {
        return text.contains(QLatin1Char('9')) ? QString() : QStringLiteral("hint of ") + text;
    });
    auto* const popup = m_field->findChild<detail::EditHintPopup*>();
    auto* const history = m_field->findChild<detail::HistoryPopup*>();
    const auto* const label = popup->findChild<QLabel*>();
    popup->hide();
    QTest::keyClicks(m_edit, QStringLiteral("12"));
    QVERIFY(!popup->isHidden());
    QCOMPARE(label->text(), QStringLiteral("hint of 12"));
    QCOMPARE(popup->size(), label->sizeHint());
    QCOMPARE(popup->minimumSize(), popup->maximumSize());
    zel::test::runDeferred();
    const QPoint below = m_edit->mapToGlobal(QPoint(0, m_edit->height()));
    QCOMPARE(popup->pos(), below);
    QCOMPARE(history->pos(), below + QPoint(0, popup->height() + 5));
    const int height = popup->height();
    // A bad text has a hint all the same.
    QTest::keyClicks(m_edit, QStringLiteral("x"));
    QCOMPARE(label->text(), QStringLiteral("hint of 12x"));
    QVERIFY(!popup->isHidden());
    QTest::keyClicks(m_edit, QStringLiteral("9"));
    QVERIFY(popup->isHidden());
    QCOMPARE(label->text(), QString());
    QCOMPARE(popup->size(), QSize(0, 0));
    zel::test::runDeferred();
    QCOMPARE(history->pos(), below + QPoint(0, height + 5));
    QVERIFY(m_edit->hasFocus());
}

void SimpleLineEditTest::hintWithoutFocusStaysHidden()
{
    m_validator->setEditHintFunction([](const QString&) { return QStringLiteral("hint"); });
    m_other->edit().setFocus();
    auto* const popup = m_field->findChild<detail::EditHintPopup*>();
    QVERIFY(popup->isHidden());
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    QVERIFY(popup->isHidden());
    QCOMPARE(popup->findChild<QLabel*>()->text(), QStringLiteral("hint"));
    popup->show();
    QTest::keyClicks(m_edit, QStringLiteral("2"));
    QVERIFY(!popup->isHidden());
}

void SimpleLineEditTest::historyIsSharedWithThePopup()
{
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    history->add(L"1");
    m_field->setValueHistory(history);
    QCOMPARE(m_field->valueHistory(), history);
    m_other->edit().setFocus();
    m_edit->setFocus();
    const auto* list = m_field->findChild<QListWidget*>();
    QCOMPARE(list->count(), 1);
    m_field->setValueHistory(nullptr);
    QVERIFY(!m_field->valueHistory());
    QCOMPARE(history.use_count(), 1L);
}

void SimpleLineEditTest::historyEntryIsACommit()
{
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    history->add(L"1.5");
    history->add(L"2.5");
    m_field->setValueHistory(history);
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QTest::mouseClick(m_edit, Qt::LeftButton);
    zel::test::runDeferred();
    m_changed->clear();
    auto* list = m_field->findChild<QListWidget*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    QCOMPARE(m_edit->text(), QStringLiteral("1.500"));
    QVERIFY(m_field->isValueValid());
    QCOMPARE(changes(), 1);
    QVERIFY(m_edit->hasFocus());
    QVERIFY(!m_field->findChild<detail::HistoryPopup*>()->isHidden());
}

void SimpleLineEditTest::currentValueGoesToTheHistory_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("translation");
    QTest::addColumn<bool>("recorded");
    QTest::newRow("number") << "1.5"
                            << "*VARIES*" << true;
    QTest::newRow("bad text") << "abc"
                              << "*VARIES*" << true;
    QTest::newRow("blank") << " "
                           << "*VARIES*" << true;
    QTest::newRow("outside the basic plane")
        << QString::fromUtf8("\U0001F4CF") << "*VARIES*" << true;
    QTest::newRow("empty") << ""
                           << "*VARIES*" << false;
    QTest::newRow("marker") << "*VARIES*"
                            << "*VARIES*" << false;
    QTest::newRow("marker of another language") << "*VARIES*"
                                                << "*DIVERS*" << true;
    QTest::newRow("marker in its language") << "*DIVERS*"
                                            << "*DIVERS*" << false;
}

void SimpleLineEditTest::currentValueGoesToTheHistory()
{
    QFETCH(QString, text);
    QFETCH(QString, translation);
    QFETCH(bool, recorded);
    const zel::test::WordTranslator translator("QObject", "*VARIES*", nullptr, translation);
    m_edit->setText(text);
    m_field->addCurrentValueToValueHistory(); // no history: nothing
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    m_field->setValueHistory(history);
    m_validator->takeCalls();
    m_field->addCurrentValueToValueHistory();
    std::deque<std::wstring> values;
    history->get(values);
    QCOMPARE(values,
             recorded ? std::deque<std::wstring>{text.toStdWString()} : std::deque<std::wstring>());
    QCOMPARE(m_validator->takeCalls(), QStringList());
    QCOMPARE(changes(), 0);
}

void SimpleLineEditTest::historyWithoutValidatorIsReported()
{
    OpenLineEdit field(nullptr);
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    field.setValueHistory(history);
    field.edit().setText(QStringLiteral("1"));
    field.addCurrentValueToValueHistory();
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("m_validator"));
    QVERIFY(reports[0].file.rfind("qt/src/controls", 0) == 0);
    std::deque<std::wstring> values;
    QCOMPARE(history->get(values), std::size_t(1));
}

void SimpleLineEditTest::unitString()
{
    const auto* unit = qobject_cast<QLabel*>(m_field->layout()->itemAt(2)->widget());
    const QWidget* const field = m_field;
    const int plain = field->sizeHint().width();
    QVERIFY(unit->isHidden());
    m_field->setUnitString(QStringLiteral("kN"));
    QVERIFY(!unit->isHidden());
    QCOMPARE(unit->text(), QStringLiteral("[kN]"));
    const int withUnit = field->sizeHint().width();
    QVERIFY(withUnit > plain);
    m_field->setUnitString(QString());
    QVERIFY(unit->isHidden());
    QCOMPARE(unit->text(), QStringLiteral("[kN]"));
    QCOMPARE(field->sizeHint().width(), withUnit);
    m_field->setUnitString(QStringLiteral("m"));
    QVERIFY(!unit->isHidden());
    QCOMPARE(unit->text(), QStringLiteral("[m]"));
    QCOMPARE(unit->textFormat(), Qt::PlainText);
}

void SimpleLineEditTest::minimumWidthFactorHasNoEffect_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative") << -3.0;
    QTest::newRow("half") << 0.5;
    QTest::newRow("fifty") << 50.0;
    QTest::newRow("huge") << 1e300;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
}

void SimpleLineEditTest::minimumWidthFactorHasNoEffect()
{
    QFETCH(double, factor);
    const QWidget* const field = m_field;
    const QSize hint = field->sizeHint();
    const QSize minimum = field->minimumSizeHint();
    m_field->setMinimumWidthFactor(factor);
    QCOMPARE(field->sizeHint(), hint);
    QCOMPARE(field->minimumSizeHint(), minimum);
}

void SimpleLineEditTest::sizeHints_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("withButton");
    QTest::newRow("edit alone") << ""
                                << "" << false;
    QTest::newRow("caption") << "Length"
                             << "" << false;
    QTest::newRow("unit") << ""
                          << "kN" << false;
    QTest::newRow("caption and unit") << "Length"
                                      << "kN" << false;
    QTest::newRow("button does not count") << "Length"
                                           << "kN" << true;
}

void SimpleLineEditTest::sizeHints()
{
    QFETCH(QString, caption);
    QFETCH(QString, unit);
    QFETCH(bool, withButton);
    const boost::function<void()> onClicked =
        withButton ? boost::function<void()>([] {}) : boost::function<void()>();
    const std::unique_ptr<SimpleLineEdit> field(SimpleLineEdit::create(
        nullptr, caption, boost::make_shared<NumberValidator>(), onClicked, 0, ExpandRight));
    field->setUnitString(unit);
    const QWidget* const widget = field.get();
    const auto labels = field->findChildren<ZEL_QT_Label*>(QString(), Qt::FindDirectChildrenOnly);
    QSize hint(int(field->edit().sizeHint().width() * 0.6) + 12, field->edit().sizeHint().height());
    QSize minimum(int(field->edit().minimumSizeHint().width() * 0.6) + 12,
                  field->edit().minimumSizeHint().height());
    for (const ZEL_QT_Label* label : labels) {
        if (!label->text().isEmpty()) {
            hint.rwidth() += label->sizeHint().width();
            minimum.rwidth() += label->minimumSizeHint().width();
        }
    }
    QCOMPARE(widget->sizeHint(), hint);
    QCOMPARE(widget->minimumSizeHint(), minimum);
}

void SimpleLineEditTest::forwardsToTheEdit()
{
    m_field->setEditMaximumWidth(77);
    QCOMPARE(m_edit->maximumWidth(), 77);
    m_field->setMaxLength(5);
    QCOMPARE(m_edit->maxLength(), 5);
    m_field->setReadOnly(true);
    QVERIFY(m_edit->isReadOnly());
    m_field->setReadOnly(false);
    QVERIFY(!m_edit->isReadOnly());
    m_field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(int(m_edit->alignment()), int(Qt::AlignRight | Qt::AlignVCenter));
    m_edit->setText(QStringLiteral("12"));
    m_field->selectAll();
    QCOMPARE(m_edit->selectedText(), QStringLiteral("12"));
}

void SimpleLineEditTest::innerButton()
{
    QToolButton* const button =
        m_field->addButton([](const QString& text) { return text + QLatin1Char('1'); }, QPixmap());
    QCOMPARE(button->parentWidget(), m_edit);
    m_field->setValue(2.0);
    m_validator->takeCalls();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(m_edit->text(), QStringLiteral("2.0001"));
    QCOMPARE(m_edit->selectedText(), QStringLiteral("2.0001"));
    QCOMPARE(changes(), 0);
    QCOMPARE(m_validator->takeCalls(), QStringList());
    QTest::keyClick(m_edit, Qt::Key_Return);
    QCOMPARE(changes(), 1);
    QCOMPARE(m_edit->text(), QStringLiteral("2.000"));
    QVERIFY(m_field->addButton([](const QString& text) { return text; }, QPixmap()) == nullptr);
    QCOMPARE(takeExpressions(), QStringList{"!m_btn1"});
    QCOMPARE(m_field->findChildren<QToolButton*>(), QList<QToolButton*>{button});
}

void SimpleLineEditTest::dotsButton()
{
    int clicks = 0;
    auto* field = SimpleLineEdit::create(
        m_window.get(), QString(), boost::make_shared<NumberValidator>(), [&clicks] { ++clicks; },
        0, ExpandRight);
    m_window->layout()->addWidget(field);
    field->show();
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    auto* button = field->findChild<QPushButton*>();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicks, 1);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicks, 2);
    QCOMPARE(changed.count(), 0);
    QVERIFY(m_field->findChildren<QPushButton*>().isEmpty());
    // The slot without a function has nothing to call.
    QVERIFY(QMetaObject::invokeMethod(m_field, "onClickedButton"));
}

void SimpleLineEditTest::focusGoesToTheEdit()
{
    m_other->setFocus();
    QVERIFY(m_other->edit().hasFocus());
    QFocusEvent in(QEvent::FocusIn);
    QApplication::sendEvent(m_field, &in);
    QVERIFY(m_edit->hasFocus());
    QFocusEvent out(QEvent::FocusOut);
    m_changed->clear();
    QApplication::sendEvent(m_field, &out); // that of the field itself, not of its edit
    QVERIFY(m_edit->hasFocus());
    QCOMPARE(changes(), 0);
}

void SimpleLineEditTest::paintsAButtonOfNoSize()
{
    class Witness : public QProxyStyle
    {
    public:
        void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const override
        {
            const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
            if (button != nullptr && qobject_cast<const SimpleLineEdit*>(widget) != nullptr &&
                (element == CE_PushButton || element == CE_PushButtonLabel)) {
                if (!insideButton) {
                    drawn << QStringLiteral("%1 %2 %3x%4")
                                 .arg(element)
                                 .arg(button->text)
                                 .arg(button->rect.width())
                                 .arg(button->rect.height());
                }
                insideButton = true;
                QProxyStyle::drawControl(element, option, painter, widget);
                insideButton = false;
                return;
            }
            QProxyStyle::drawControl(element, option, painter, widget);
        }
        mutable QStringList drawn;
        mutable bool insideButton = false;
    };
    Witness style;
    const std::unique_ptr<SimpleLineEdit> plain(
        SimpleLineEdit::create(nullptr, QString(), new NumberValidator, 0, ExpandRight));
    const std::unique_ptr<SimpleLineEdit> dotted(SimpleLineEdit::create(
        nullptr, QString(), boost::make_shared<NumberValidator>(), [] {}, 0, ExpandRight));
    for (SimpleLineEdit* field : {plain.get(), dotted.get()}) {
        field->setStyle(&style);
        field->resize(200, 30);
    }
    plain->grab();
    QCOMPARE(style.drawn, QStringList());
    QImage shown(200, 30, QImage::Format_RGB32);
    shown.fill(Qt::magenta);
    {
        QPainter painter(&shown);
        dotted->render(&painter, QPoint(), QRegion(), QWidget::RenderFlags());
    }
    QCOMPARE(style.drawn,
             (QStringList{QStringLiteral("%1 ... 0x0").arg(QStyle::CE_PushButton),
                          QStringLiteral("%1 ... 0x0").arg(QStyle::CE_PushButtonLabel)}));
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            QCOMPARE(shown.pixelColor(x, y), QColor(Qt::magenta));
        }
    }
    plain->setStyle(nullptr);
    dotted->setStyle(nullptr);
}

QTEST_MAIN(SimpleLineEditTest)
#include "tst_simple_line_edit.moc"
