#include "qt/inc/controls.h"
#include "tests/helpers/multi_edit_steps.h"
#include "tests/helpers/number_validator.h"
#include "tests/helpers/two_fields_test.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>
#include <rapidcheck.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace zel::qt;
using zel::test::answer;
using zel::test::apply;
using zel::test::NumberValidator;
using zel::test::typeOver;

namespace {

const QString marker = QStringLiteral("*VARIES*");
const QString red = QStringLiteral("QLineEdit { color: #e61414; }");

} // namespace

/// The field under test stands above another one in an active window.
class MultiEditLineEditTest : public zel::test::TwoFieldsTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void isFresh();
    void createOverloads();
    void borderlessLook_data();
    void borderlessLook();
    void stateTable_data();
    void stateTable();
    void textsAreComparedAndNotValues_data();
    void textsAreComparedAndNotValues();
    void comparesWithTheTextInTheEdit();
    void readingAfterTheMarkerFormatsNothing();
    void readsAreInAnyOrder();
    void forcedBeforeTheFirstReadStays();
    void forceVariesLeavesValidityAndColour();
    void fillingIsSilent_data();
    void fillingIsSilent();
    void loadingBlocksTheSignals();
    void stateIsDecidedBeforeTheTextIs();
    void otherFieldsCommitWhenLeft();
    void copyOfTheState();
    void virtualStateIsAsked();
    void withoutValidator();

private:
};

void MultiEditLineEditTest::init()
{
    CheckedTest::init();
    setUpFields();
}

void MultiEditLineEditTest::cleanup()
{
    tearDownFields();
    CheckedTest::cleanup();
}

void MultiEditLineEditTest::isFresh()
{
    QVERIFY(!m_field->dataVaries());
    QVERIFY(!m_field->isValueValid());
    QVERIFY(m_field->getCurrentValue().empty());
    QCOMPARE(m_field->edit().text(), QString());
    // Nothing was decided, though the validator would take the empty text for 0.
    QCOMPARE(answer(*add(new NumberValidator(NumberValidator::EmptyAsZero))),
             QStringLiteral("one -"));
    const QMetaObject& meta = MultiEditLineEdit::staticMetaObject;
    QCOMPARE(meta.className(), "zel::qt::MultiEditLineEdit");
    QCOMPARE(meta.superClass(), &SimpleLineEdit::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void MultiEditLineEditTest::createOverloads()
{
    bool destroyed = false;
    auto* raw = new NumberValidator;
    raw->destroyed = &destroyed;
    delete MultiEditLineEdit::create(nullptr, QString(), raw, 0, ExpandDown);
    QVERIFY(destroyed);

    const auto shared = boost::make_shared<NumberValidator>();
    const std::unique_ptr<MultiEditLineEdit> second(
        MultiEditLineEdit::create(nullptr, QStringLiteral("x"), shared, 0, ExpandDown));
    QCOMPARE(shared.use_count(), 2L);
    QVERIFY(qobject_cast<QVBoxLayout*>(second->layout()) != nullptr);

    int clicks = 0;
    const std::unique_ptr<MultiEditLineEdit> third(MultiEditLineEdit::create(
        nullptr, QString(), shared, [&clicks] { ++clicks; }, 0, ExpandRight));
    third->findChild<QPushButton*>()->click();
    QCOMPARE(clicks, 1);
}

void MultiEditLineEditTest::borderlessLook_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("framed") << 0U << "";
    QTest::newRow("borderless") << 1U << "* { background-color:white; }";
    QTest::newRow("bit without a meaning") << 2U << "";
}

void MultiEditLineEditTest::borderlessLook()
{
    QFETCH(unsigned int, flags);
    const std::unique_ptr<MultiEditLineEdit> field(
        MultiEditLineEdit::create(nullptr, QString(), new NumberValidator, flags, ExpandRight));
    QTEST(field->styleSheet(), "sheet");
}

void MultiEditLineEditTest::stateTable_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("text");
    // A trailing read of 9 tells whether the next read counts as the first.
    QTest::newRow("nothing read, read") << "1"
                                        << "one 1"
                                        << "1.000";
    QTest::newRow("nothing read, force") << "f"
                                         << "varies -" << marker;
    QTest::newRow("nothing read, force: no first read any more") << "f9"
                                                                 << "varies -" << marker;
    QTest::newRow("nothing read, reset") << "r"
                                         << "one -"
                                         << "";
    QTest::newRow("nothing read, set") << "s"
                                       << "one 5"
                                       << "5.000";
    QTest::newRow("nothing read, set: next read is the first") << "s9"
                                                               << "one 9"
                                                               << "9.000";
    QTest::newRow("one value, read equal") << "11"
                                           << "one 1"
                                           << "1.000";
    QTest::newRow("one value, read different") << "12"
                                               << "varies -" << marker;
    QTest::newRow("one value, force") << "1f"
                                      << "varies -" << marker;
    QTest::newRow("one value, reset keeps the text") << "1r"
                                                     << "one 1"
                                                     << "1.000";
    QTest::newRow("one value, reset: next read is the first") << "1r9"
                                                              << "one 9"
                                                              << "9.000";
    QTest::newRow("one value, set") << "1s"
                                    << "one 5"
                                    << "5.000";
    QTest::newRow("one value, set: next read is compared") << "1s9"
                                                           << "varies -" << marker;
    QTest::newRow("varying, read") << "121"
                                   << "varies -" << marker;
    QTest::newRow("varying, force") << "12f"
                                    << "varies -" << marker;
    QTest::newRow("varying, reset: next read is the first") << "12r9"
                                                            << "one 9"
                                                            << "9.000";
    QTest::newRow("varying, set") << "12s"
                                  << "one 5"
                                  << "5.000";
    QTest::newRow("varying, set: next read is compared") << "12s9"
                                                         << "varies -" << marker;
}

void MultiEditLineEditTest::stateTable()
{
    QFETCH(QString, steps);
    apply(*m_field, steps);
    QTEST(answer(*m_field), "expected");
    QTEST(m_field->edit().text(), "text");
}

void MultiEditLineEditTest::textsAreComparedAndNotValues_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<bool>("varies");
    QTest::newRow("same") << 1.0 << 1.0 << false;
    QTest::newRow("behind the precision") << 1.0 << 1.0004 << false;
    QTest::newRow("within the precision") << 1.0 << 1.0006 << true;
    QTest::newRow("different") << 1.0 << 2.0 << true;
}

void MultiEditLineEditTest::textsAreComparedAndNotValues()
{
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(bool, varies);
    m_field->readValue(first);
    m_field->readValue(second);
    QCOMPARE(m_field->dataVaries(), varies);
    QCOMPARE(m_field->edit().text(), varies ? marker : QStringLiteral("1.000"));
}

void MultiEditLineEditTest::comparesWithTheTextInTheEdit()
{
    m_field->readValue(1.0);
    m_field->edit().setText(QStringLiteral("2.000"));
    m_field->readValue(2.0);
    QVERIFY(!m_field->dataVaries());
    m_field->edit().setText(QStringLiteral("2.0"));
    m_field->readValue(2.0);
    QVERIFY(m_field->dataVaries());
}

void MultiEditLineEditTest::readingAfterTheMarkerFormatsNothing()
{
    auto* validator = new NumberValidator;
    MultiEditLineEdit* const field = add(validator);
    field->readValue(1.0);
    QCOMPARE(validator->takeCalls(), (QStringList{"reformat 1.000", "validate 1.000"}));
    field->readValue(2.0);
    QCOMPARE(validator->takeCalls(), QStringList{"reformat 2.000"});
    field->readValue(3.0);
    QCOMPARE(validator->takeCalls(), QStringList());
    QVERIFY(!validator->anyFlagSet);
}

void MultiEditLineEditTest::readsAreInAnyOrder()
{
    const bool holds = rc::check("a selection varies if its texts do, in any order", [this] {
        const auto thousandths =
            *rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 4)));
        NumberValidator formatter;
        bool differ = false;
        const double first = thousandths.front() * 0.0004;
        const auto text = [&formatter](double value) { return formatter.reformat(value, {}); };
        for (const int t : thousandths) {
            differ = differ || text(t * 0.0004) != text(first);
        }
        auto turned = thousandths;
        std::rotate(turned.begin(),
                    turned.begin() +
                        *rc::gen::inRange<std::ptrdiff_t>(0, std::ptrdiff_t(turned.size())),
                    turned.end());
        for (const auto& order : {thousandths, turned}) {
            m_field->reset();
            for (const int t : order) {
                m_field->readValue(t * 0.0004);
            }
            RC_ASSERT(m_field->dataVaries() == differ);
            RC_ASSERT(m_field->getCurrentValue().empty() == differ);
            RC_ASSERT((m_field->edit().text() == marker) == differ);
        }
    });
    QVERIFY(holds);
}

void MultiEditLineEditTest::forcedBeforeTheFirstReadStays()
{
    m_field->forceVaries();
    m_field->readValue(1.0);
    QVERIFY(m_field->dataVaries());
    QCOMPARE(m_field->edit().text(), marker);
    m_field->reset();
    QVERIFY(!m_field->dataVaries());
    QCOMPARE(m_field->edit().text(), marker); // until the next read
    m_field->readValue(1.0);
    QCOMPARE(m_field->edit().text(), QStringLiteral("1.000"));
    QVERIFY(!m_field->dataVaries());
}

void MultiEditLineEditTest::forceVariesLeavesValidityAndColour()
{
    typeOver(m_field->edit(), QStringLiteral("x"));
    m_field->forceVaries();
    QVERIFY(!m_field->isValueValid());
    QCOMPARE(m_field->edit().styleSheet(), red);
    m_field->setValue(1.0);
    m_field->forceVaries();
    QVERIFY(m_field->isValueValid());
}

void MultiEditLineEditTest::fillingIsSilent_data()
{
    QTest::addColumn<QString>("steps");
    QTest::newRow("reset") << "r";
    QTest::newRow("one value") << "1";
    QTest::newRow("equal values") << "11";
    QTest::newRow("different values") << "12";
    QTest::newRow("set") << "s";
    QTest::newRow("force") << "f";
    QTest::newRow("one selection after another") << "12r3r44f";
}

void MultiEditLineEditTest::fillingIsSilent()
{
    QFETCH(QString, steps);
    const QSignalSpy changed(m_field, &SimpleLineEdit::valueChanged);
    const QSignalSpy edited(&m_field->edit(), &QLineEdit::textEdited);
    const QSignalSpy finished(&m_field->edit(), &QLineEdit::editingFinished);
    apply(*m_field, steps);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(edited.count(), 0);
    QCOMPARE(finished.count(), 0);
}

void MultiEditLineEditTest::loadingBlocksTheSignals()
{
    struct Witness : NumberValidator
    {
        QString reformat(const boost::any& value, const std::bitset<32>& flags) override
        {
            blocked << field->signalsBlocked();
            return NumberValidator::reformat(value, flags);
        }
        const QObject* field = nullptr;
        QList<bool> blocked;
    };
    auto* witness = new Witness;
    MultiEditLineEdit* const field = add(witness);
    witness->field = field;
    field->setValue(1.0);
    field->setLoading(true);
    field->setValue(2.0);
    QVERIFY(!field->signalsBlocked());
    field->blockSignals(true);
    field->setValue(2.0);
    QVERIFY(field->signalsBlocked());
    field->blockSignals(false);
    field->setLoading(false);
    field->setValue(3.0);
    QCOMPARE(witness->blocked, (QList<bool>{false, true, true, false}));
}

void MultiEditLineEditTest::stateIsDecidedBeforeTheTextIs()
{
    // A host that follows the text of the edit asks the field from there.
    QStringList heard;
    connect(&m_field->edit(), &QLineEdit::textChanged, m_field, [&](const QString& text) {
        heard.append(text + (m_field->dataVaries() ? " varies" : " one"));
    });
    apply(*m_field, QStringLiteral("12sfr3"));
    QCOMPARE(heard, (QStringList{"1.000 one", marker + " varies", "5.000 one", marker + " varies",
                                 "3.000 one"}));
}

void MultiEditLineEditTest::otherFieldsCommitWhenLeft()
{
    m_field->setValue(1.0);
    const QSignalSpy changed(m_field, &SimpleLineEdit::valueChanged);
    m_field->setFocus();
    QTest::keyClick(&m_field->edit(), Qt::Key_Tab);
    QVERIFY(m_other->edit().hasFocus());
    QCOMPARE(changed.count(), 1);
    m_field->forceVaries();
    QTest::keyClick(&m_other->edit(), Qt::Key_Backtab);
    QVERIFY(m_field->edit().hasFocus());
    QTest::keyClick(&m_field->edit(), Qt::Key_Tab);
    QCOMPARE(changed.count(), 1);
}

void MultiEditLineEditTest::copyOfTheState()
{
    apply(*m_other, QStringLiteral("12"));
    m_field->setValue(1.0);
    m_field->copyStateFrom(*m_other);
    QVERIFY(m_field->dataVaries());
    QCOMPARE(m_field->edit().text(), marker);
    QVERIFY(m_field->isValueValid()); // stays as it was
    m_field->readValue(9.0);
    QCOMPARE(m_field->edit().text(), marker);

    MultiEditLineEdit* const fresh = add(new NumberValidator);
    m_field->copyStateFrom(*fresh);
    QCOMPARE(m_field->edit().text(), QString());
    QVERIFY(!m_field->dataVaries());
    m_field->readValue(9.0); // the first read, as in the field that was copied
    QCOMPARE(answer(*m_field), QStringLiteral("one 9"));

    apply(*m_other, QStringLiteral("r3"));
    const QSignalSpy changed(m_field, &SimpleLineEdit::valueChanged);
    m_field->copyStateFrom(*m_other);
    QCOMPARE(m_field->edit().text(), QStringLiteral("3.000"));
    m_field->readValue(4.0);
    QVERIFY(m_field->dataVaries());
    QCOMPARE(changed.count(), 0);
}

void MultiEditLineEditTest::virtualStateIsAsked()
{
    class Undecided : public MultiEditLineEdit
    {
    public:
        Undecided()
            : MultiEditLineEdit(nullptr, QString(), boost::make_shared<NumberValidator>(), {}, 0,
                                ExpandRight)
        {}
        bool dataVaries() const override
        {
            return true;
        }
        void setValue(const boost::any& value) override
        {
            ++sets;
            MultiEditLineEdit::setValue(value);
        }
        void forceVaries() override
        {
            ++forces;
            MultiEditLineEdit::forceVaries();
        }
        int sets = 0;
        int forces = 0;
    };
    Undecided field;
    apply(field, QStringLiteral("1"));
    QCOMPARE(field.sets, 1);
    QVERIFY(field.getCurrentValue().empty());
    apply(field, QStringLiteral("2"));
    QCOMPARE(field.forces, 1);
    apply(field, QStringLiteral("3"));
    QCOMPARE(field.forces, 1);
    QCOMPARE(field.sets, 1);
}

void MultiEditLineEditTest::withoutValidator()
{
    MultiEditLineEdit* const field = add(nullptr);
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    field->setFocus();
    QTest::keyClicks(&field->edit(), QStringLiteral("x"));
    QVERIFY(field->isValueValid());
    m_other->setFocus();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(field->edit().text(), QStringLiteral("x"));
    field->forceVaries();
    field->setFocus();
    m_other->setFocus();
    QCOMPARE(changed.count(), 1);
    QVERIFY(field->getCurrentValue().empty());
    QCOMPARE(takeExpressions(), QStringList());
}

QTEST_MAIN(MultiEditLineEditTest)
#include "tst_multi_edit_line_edit.moc"
