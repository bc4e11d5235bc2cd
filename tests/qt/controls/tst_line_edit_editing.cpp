#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/line_edit_form.h"

#include <QLabel>
#include <QToolButton>

#include <boost/make_shared.hpp>

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

class LineEditEditingTest : public zel::test::CheckedTest, private zel::test::LineEditForm
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void keystroke_data();
    void keystroke();
    void keystrokeAsksTheValidatorOnce();
    void firstKeystrokeReplacesTheSheet();
    void sameColourIsNotSetAgain();
    void badTextStays();
    void endOfEditingDecidesTheValidity_data();
    void endOfEditingDecidesTheValidity();
    void valueIsClampedAtTheEnd();
    void vetoedTextIsLeftAlone();
    void validatedTextsAreTold();
    void subclassHearsOfEachStep();
    void fallbackReplacesABadText();
    void setValueLeavesTheColour();
    void setValueIsSilent();
    void setValueTellsValidity();
    void getValueOfABadTextIsReported();
    void withoutValidator();
    void exceptionPassesThrough();
    void innerButton();
    void tabPassesTheInnerButton();
};

void LineEditEditingTest::init()
{
    CheckedTest::init();
    QVERIFY(open());
}

void LineEditEditingTest::cleanup()
{
    close();
    CheckedTest::cleanup();
}

void LineEditEditingTest::keystroke_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("valid");
    QTest::newRow("number") << "1.5" << true;
    QTest::newRow("number in the middle of typing") << "1." << true;
    QTest::newRow("letters") << "abc" << false;
    QTest::newRow("number that turned bad") << "1.5x" << false;
    QTest::newRow("bad text that turned good") << "-1" << true;
}

void LineEditEditingTest::keystroke()
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

void LineEditEditingTest::keystrokeAsksTheValidatorOnce()
{
    QTest::keyClicks(m_edit, QStringLiteral("1x"));
    QCOMPARE(m_validator->takeCalls(), (QStringList{"validate 1", "validate 1x"}));
    QVERIFY(!m_validator->anyFlagSet);
    QVERIFY(m_validator->unusedValueGiven);
}

void LineEditEditingTest::firstKeystrokeReplacesTheSheet()
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

void LineEditEditingTest::sameColourIsNotSetAgain()
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

void LineEditEditingTest::badTextStays()
{
    QTest::keyClicks(m_edit, QStringLiteral("abc"));
    QCOMPARE(m_edit->styleSheet(), red);
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(m_edit->text(), QStringLiteral("abc"));
    QCOMPARE(m_edit->styleSheet(), red);
    QVERIFY(!m_field->isValueValid());
    QCOMPARE(changes(), 1);
}

void LineEditEditingTest::endOfEditingDecidesTheValidity_data()
{
    QTest::addColumn<bool>("whileTyping");
    QTest::addColumn<bool>("finished");
    QTest::newRow("good in the middle of typing only") << true << false;
    QTest::newRow("good when it is finished only") << false << true;
}

void LineEditEditingTest::endOfEditingDecidesTheValidity()
{
    struct TwoAnswers : NumberValidator
    {
        bool validate(const QString&, boost::any& value, const std::bitset<32>&) override
        {
            value = 1.0;
            return whileTyping;
        }
        bool validateWhenFinished(const QString&, boost::any& value,
                                  const std::bitset<32>&) override
        {
            value = 2.0;
            return finished;
        }
        bool whileTyping = false;
        bool finished = false;
    };
    QFETCH(bool, whileTyping);
    QFETCH(bool, finished);
    const auto validator = boost::make_shared<TwoAnswers>();
    validator->whileTyping = whileTyping;
    validator->finished = finished;
    OpenLineEdit field(validator);
    QTest::keyClicks(&field.edit(), QStringLiteral("3"));
    QCOMPARE(field.isValueValid(), whileTyping);
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(field.isValueValid(), finished);
    QCOMPARE(field.edit().text(), finished ? QStringLiteral("2.000") : QStringLiteral("3"));
    QCOMPARE(field.edit().styleSheet(), whileTyping ? black : red); // the colour is of the typing
}

void LineEditEditingTest::valueIsClampedAtTheEnd()
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

void LineEditEditingTest::vetoedTextIsLeftAlone()
{
    auto* validator = new NumberValidator;
    validator->setEditHintFunction([](const QString& text) { return "hint of " + text; });
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
    QCOMPARE(field.findChild<detail::EditHintPopup*>()->findChild<QLabel*>()->text(),
             QStringLiteral("hint of "));
    QTest::keyClick(&field.edit(), Qt::Key_Backspace);
    QCOMPARE(field.validated, QStringList{"1=1"});
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
}

void LineEditEditingTest::validatedTextsAreTold()
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

void LineEditEditingTest::subclassHearsOfEachStep()
{
    class Witness : public SimpleLineEdit
    {
    public:
        explicit Witness(const boost::shared_ptr<NumberValidator>& validator)
            : SimpleLineEdit(nullptr, QString(), validator, {}, 0, ExpandRight)
            , m_asked(validator)
        {}
        QStringList takeSteps()
        {
            note(QStringList());
            QStringList taken;
            taken.swap(m_steps);
            return taken;
        }

    private:
        void note(const QStringList& step)
        {
            m_steps += m_asked->takeCalls() + step;
        }
        bool vetoValidation(const QString& text) override
        {
            note({"veto " + text});
            return false;
        }
        void onValidated(const QString& text, const boost::any&) override
        {
            note({"validated " + text + ", shown " + edit().text()});
        }
        boost::shared_ptr<NumberValidator> m_asked;
        QStringList m_steps;
    };
    const auto validator = boost::make_shared<NumberValidator>();
    validator->maximum = 10.0;
    Witness field(validator);
    QTest::keyClicks(&field.edit(), QStringLiteral("1"));
    QCOMPARE(field.takeSteps(), (QStringList{"veto 1", "validate 1", "validated 1, shown 1"}));
    QTest::keyClicks(&field.edit(), QStringLiteral("2"));
    field.takeSteps();
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(field.takeSteps(),
             (QStringList{"veto 12", "validate 12", "validated 12, shown 12", "veto 12",
                          "finish 12", "validated 12, shown 12", "reformat 10.000"}));
    QCOMPARE(field.edit().text(), QStringLiteral("10.000"));
}

void LineEditEditingTest::fallbackReplacesABadText()
{
    const auto validator = boost::make_shared<NumberValidator>();
    validator->setEditHintFunction([](const QString& text) { return text; });
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
    QCOMPARE(field.findChild<detail::EditHintPopup*>()->findChild<QLabel*>()->text(),
             QStringLiteral("1x")); // the hint is that of the text that was typed
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

void LineEditEditingTest::setValueLeavesTheColour()
{
    QTest::keyClicks(m_edit, QStringLiteral("abc"));
    m_field->setValue(2.0);
    QCOMPARE(m_edit->styleSheet(), red);
    QVERIFY(m_field->isValueValid());
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    QCOMPARE(m_edit->styleSheet(), black);
    QCOMPARE(changes(), 0);
}

void LineEditEditingTest::setValueIsSilent()
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
    QCOMPARE(validator->takeCalls(), QStringList{"finish 2.500"});
    QVERIFY(!validator->anyFlagSet);
    QCOMPARE(changed.count(), 0);
    QVERIFY(field.validated.isEmpty());
    QCOMPARE(field.edit().styleSheet(), QString());
    QCOMPARE(field.findChild<detail::EditHintPopup*>()->findChild<QLabel*>()->text(), QString());
}

void LineEditEditingTest::setValueTellsValidity()
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

void LineEditEditingTest::getValueOfABadTextIsReported()
{
    QTest::keyClicks(m_edit, QStringLiteral("abc"));
    m_field->getValue();
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("ok"));
    QCOMPARE(reports[0].message, std::string("getValue() failed to validate"));
    QVERIFY(reports[0].file.rfind("qt/src/controls", 0) == 0);
}

void LineEditEditingTest::withoutValidator()
{
    OpenLineEdit field(nullptr);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QVERIFY(!field.isValueValid());
    field.vetoed = QStringLiteral("x"); // where nothing is validated, nothing is exempt
    QTest::keyClicks(&field.edit(), QStringLiteral("x"));
    QVERIFY(field.isValueValid());
    field.vetoed = QString();
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

void LineEditEditingTest::exceptionPassesThrough()
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

void LineEditEditingTest::innerButton()
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

void LineEditEditingTest::tabPassesTheInnerButton()
{
    m_field->addButton([](const QString& text) { return text; }, QPixmap());
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QVERIFY(m_other->edit().hasFocus());
    QTest::keyClicks(m_window->focusWidget(), QStringLiteral("2"));
    QCOMPARE(m_edit->text(), QStringLiteral("1.000"));
    QCOMPARE(m_other->edit().text(), QStringLiteral("2"));
    QCOMPARE(changes(), 1);
    QTest::keyClick(&m_other->edit(), Qt::Key_Tab); // the button was made last: it would be next
    QVERIFY(m_edit->hasFocus());
}

QTEST_MAIN(LineEditEditingTest)
#include "tst_line_edit_editing.moc"
