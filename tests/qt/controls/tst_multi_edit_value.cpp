#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"

#include <stdexcept>
#include <type_traits>

using namespace zel::qt;

class MultiEditValueTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void isDeletedAsItself();
    void isFresh();
    void nullComparisonThrows();
    void stateTable_data();
    void stateTable();
    void resultOfTheComparisonIsNotNegated();
    void comparisonGetsTheNewValueFirst();
    void comparisonRunsOnlyWhileNothingVaries();
    void variesUntilResetOrSet();
    void firstReadGoesThroughSetValue();
    void currentValueAsksTheVirtualState();
    void copiesTheValue();
};

namespace {

QStringList comparisons;

int number(const boost::any& value)
{
    return boost::any_cast<int>(value);
}

bool differs(const boost::any& a, const boost::any& b)
{
    comparisons.append(QStringLiteral("%1 %2").arg(number(a)).arg(number(b)));
    return number(a) != number(b);
}

bool equals(const boost::any& a, const boost::any& b)
{
    return number(a) == number(b);
}

QString shown(const MultiEditValue& value)
{
    const boost::any current = value.getCurrentValue();
    return (value.dataVaries() ? QStringLiteral("varies ") : QStringLiteral("one ")) +
           (current.empty() ? QStringLiteral("-") : QString::number(number(current)));
}

/// r: reset, 1 to 9: read that value, s: set 5, f: force
void apply(MultiEditValue& value, const QString& steps)
{
    for (const QChar step : steps) {
        if (step == QLatin1Char('r')) {
            value.reset();
        } else if (step == QLatin1Char('s')) {
            value.setValue(5);
        } else if (step == QLatin1Char('f')) {
            value.forceVaries();
        } else {
            value.readValue(step.digitValue());
        }
    }
}

} // namespace

void MultiEditValueTest::isDeletedAsItself()
{
    // Whoever gets one from the callback editor deletes it, and need not know what derives from it.
    QVERIFY(std::has_virtual_destructor_v<MultiEditValue>);
    QVERIFY(!std::has_virtual_destructor_v<MultiEditControlBase>);
}

void MultiEditValueTest::isFresh()
{
    const MultiEditValue value(&differs);
    QVERIFY(!value.dataVaries());
    QVERIFY(value.getCurrentValue().empty());
}

void MultiEditValueTest::nullComparisonThrows()
{
    QString text;
    try {
        const MultiEditValue value(nullptr);
    } catch (const std::invalid_argument& e) {
        text = QString::fromUtf8(e.what());
    }
    QCOMPARE(text, QStringLiteral("fn"));
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("fn"));
    QVERIFY(reports[0].file.rfind("qt/src/controls", 0) == 0);
}

void MultiEditValueTest::stateTable_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("expected");
    // A trailing read of 9 tells whether the next read counts as the first.
    QTest::newRow("nothing read, read") << "1"
                                        << "one 1";
    QTest::newRow("nothing read, set") << "s"
                                       << "one 5";
    QTest::newRow("nothing read, set: next read is the first") << "s9"
                                                               << "one 9";
    QTest::newRow("nothing read, force") << "f"
                                         << "varies -";
    QTest::newRow("nothing read, reset") << "r"
                                         << "one -";
    QTest::newRow("one value, read equal") << "11"
                                           << "one 1";
    QTest::newRow("one value, read different") << "12"
                                               << "varies -";
    QTest::newRow("one value, set") << "1s"
                                    << "one 5";
    QTest::newRow("one value, set: next read is compared") << "1s9"
                                                           << "varies -";
    QTest::newRow("one value, force") << "1f"
                                      << "varies -";
    QTest::newRow("one value, force: next read is not the first") << "1f9"
                                                                  << "varies -";
    QTest::newRow("one value, reset") << "1r"
                                      << "one -";
    QTest::newRow("one value, reset: next read is the first") << "1r9"
                                                              << "one 9";
    QTest::newRow("varying, read") << "121"
                                   << "varies -";
    QTest::newRow("varying, set") << "12s"
                                  << "one 5";
    QTest::newRow("varying, set: next read is compared") << "12s9"
                                                         << "varies -";
    QTest::newRow("varying, force") << "12f"
                                    << "varies -";
    QTest::newRow("varying, reset") << "12r"
                                    << "one -";
    QTest::newRow("varying, reset: next read is the first") << "12r9"
                                                            << "one 9";
    QTest::newRow("forced, read") << "f1"
                                  << "one 1";
    QTest::newRow("forced, set") << "fs"
                                 << "one 5";
    QTest::newRow("forced, set: next read is the first") << "fs9"
                                                         << "one 9";
    QTest::newRow("forced, force") << "ff"
                                   << "varies -";
    QTest::newRow("forced, reset") << "fr"
                                   << "one -";
}

void MultiEditValueTest::stateTable()
{
    QFETCH(QString, steps);
    MultiEditValue value(&differs);
    apply(value, steps);
    QTEST(shown(value), "expected");
}

void MultiEditValueTest::resultOfTheComparisonIsNotNegated()
{
    MultiEditValue value(&equals);
    apply(value, QStringLiteral("11"));
    QVERIFY(value.dataVaries());
    apply(value, QStringLiteral("r12"));
    QCOMPARE(shown(value), QStringLiteral("one 1"));
}

void MultiEditValueTest::comparisonGetsTheNewValueFirst()
{
    comparisons.clear();
    MultiEditValue value(&differs);
    apply(value, QStringLiteral("113"));
    QCOMPARE(comparisons, (QStringList{"1 1", "3 1"}));
}

void MultiEditValueTest::comparisonRunsOnlyWhileNothingVaries()
{
    comparisons.clear();
    MultiEditValue value(&differs);
    apply(value, QStringLiteral("1"));
    QCOMPARE(comparisons.size(), 0);
    apply(value, QStringLiteral("2"));
    QCOMPARE(comparisons.size(), 1);
    apply(value, QStringLiteral("34"));
    QCOMPARE(comparisons.size(), 1);
}

void MultiEditValueTest::variesUntilResetOrSet()
{
    MultiEditValue value(&differs);
    apply(value, QStringLiteral("12111"));
    QVERIFY(value.dataVaries());
    value.setValue(boost::any());
    QVERIFY(!value.dataVaries());
    QVERIFY(value.getCurrentValue().empty());
}

void MultiEditValueTest::firstReadGoesThroughSetValue()
{
    struct Counting : MultiEditValue
    {
        using MultiEditValue::MultiEditValue;
        void setValue(const boost::any& value) override
        {
            ++sets;
            MultiEditValue::setValue(value);
        }
        int sets = 0;
    };
    Counting value(&differs);
    apply(value, QStringLiteral("12"));
    QCOMPARE(value.sets, 1);

    // The state is the reading's own: what was forced before is gone whatever is made of the value.
    struct Refusing : MultiEditValue
    {
        using MultiEditValue::MultiEditValue;
        void setValue(const boost::any&) override {}
    };
    Refusing refusing(&differs);
    refusing.forceVaries();
    refusing.readValue(1);
    QVERIFY(!refusing.dataVaries());
}

void MultiEditValueTest::currentValueAsksTheVirtualState()
{
    struct Undecided : MultiEditValue
    {
        using MultiEditValue::MultiEditValue;
        bool dataVaries() const override
        {
            return true;
        }
    };
    Undecided value(&differs);
    value.setValue(3);
    QVERIFY(value.getCurrentValue().empty());
}

void MultiEditValueTest::copiesTheValue()
{
    MultiEditValue value(&differs);
    boost::any given = 3;
    value.setValue(given);
    given = 4;
    QCOMPARE(number(value.getCurrentValue()), 3);
}

QTEST_GUILESS_MAIN(MultiEditValueTest)
#include "tst_multi_edit_value.moc"
