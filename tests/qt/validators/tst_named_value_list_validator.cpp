#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"

using namespace zel::qt;
using zel::test::finished;
using zel::test::told;
using zel::test::validated;

namespace {

const std::bitset<32> noFlags;
int comparisons = 0;

bool equalInts(const boost::any& a, const boost::any& b)
{
    ++comparisons;
    const int* first = boost::any_cast<int>(&a);
    const int* second = boost::any_cast<int>(&b);
    return first != nullptr && second != nullptr && *first == *second;
}

bool neverEqual(const boost::any&, const boost::any&)
{
    return false;
}

const NamedValueList letters = {{"a", 1}, {"b", 2}};

QString reformatted(IValidator& validator, const boost::any& value)
{
    return validator.reformat(value, noFlags);
}

} // namespace

class NamedValueListValidatorTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void namesAndValues_data();
    void namesAndValues();
    void valuesAndNames_data();
    void valuesAndNames();
    void emptyName();
    void emptyNameIsReplaced();
    void entryTakesPrecedenceOverTheEmptyName();
    void comparisonSeesTheEmptyValue();
    void emptyTextIsANameLikeAnyOther();
    void entryWithoutAValue();
    void firstOfEqualEntriesWins();
    void emptyListRefuses();
    void copiesBothForms();
    void finishesAsItValidates();
};

void NamedValueListValidatorTest::namesAndValues_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("answer");
    QTest::newRow("first") << "a"
                           << "true int 1";
    QTest::newRow("second") << "b"
                            << "true int 2";
    QTest::newRow("other case") << "B"
                                << "false untouched";
    QTest::newRow("part") << ""
                          << "false untouched";
    QTest::newRow("blank behind") << "a "
                                  << "false untouched";
}

void NamedValueListValidatorTest::namesAndValues()
{
    QFETCH(QString, text);
    NamedValueListValidator validator(letters);
    QTEST(validated(validator, text).told(), "answer");
    QTEST(finished(validator, text, std::bitset<32>(1)).told(), "answer");
}

void NamedValueListValidatorTest::valuesAndNames_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("first") << 1 << "a";
    QTest::newRow("second") << 2 << "b";
    QTest::newRow("not in the list") << 3 << "";
}

void NamedValueListValidatorTest::valuesAndNames()
{
    QFETCH(int, value);
    NamedValueListValidator validator(letters);
    validator.set_equal_to(equalInts);
    QTEST(reformatted(validator, value), "text");
    QCOMPARE(reformatted(validator, double(value)), QString());
    QCOMPARE(reformatted(validator, boost::any()), QString());
}

void NamedValueListValidatorTest::emptyName()
{
    NamedValueListValidator validator(letters);
    validator.set_equal_to(equalInts);
    QCOMPARE(validated(validator, "none").told(), QString("false untouched"));
    validator.enable_empty_value("none");
    QCOMPARE(validated(validator, "none").told(), QString("true empty"));
    QCOMPARE(validated(validator, "None").told(), QString("false untouched"));
    QCOMPARE(reformatted(validator, boost::any()), QString("none"));
    QCOMPARE(reformatted(validator, 3), QString());
    QCOMPARE(reformatted(validator, 2), QString("b"));
}

void NamedValueListValidatorTest::emptyNameIsReplaced()
{
    NamedValueListValidator validator(letters);
    validator.set_equal_to(equalInts);
    validator.enable_empty_value("none");
    validator.enable_empty_value("nothing");
    QCOMPARE(validated(validator, "none").told(), QString("false untouched"));
    QCOMPARE(validated(validator, "nothing").told(), QString("true empty"));
    QCOMPARE(reformatted(validator, boost::any()), QString("nothing"));
}

void NamedValueListValidatorTest::entryTakesPrecedenceOverTheEmptyName()
{
    NamedValueListValidator validator(NamedValueList{{"none", 7}});
    validator.set_equal_to(equalInts);
    validator.enable_empty_value("none");
    QCOMPARE(validated(validator, "none").told(), QString("true int 7"));
    QCOMPARE(reformatted(validator, boost::any()), QString("none"));
}

void NamedValueListValidatorTest::comparisonSeesTheEmptyValue()
{
    NamedValueListValidator validator(letters);
    validator.set_equal_to([](const boost::any& a, const boost::any&) { return a.empty(); });
    validator.enable_empty_value("none");
    QCOMPARE(reformatted(validator, boost::any()), QString("a"));
}

void NamedValueListValidatorTest::emptyTextIsANameLikeAnyOther()
{
    NamedValueListValidator inList(NamedValueList{{"", 5}});
    QCOMPARE(validated(inList, "").told(), QString("true int 5"));
    NamedValueListValidator asEmpty(letters);
    asEmpty.enable_empty_value("");
    QCOMPARE(validated(asEmpty, "").told(), QString("true empty"));
}

void NamedValueListValidatorTest::entryWithoutAValue()
{
    NamedValueListValidator validator(NamedValueList{{"-", boost::any()}});
    QCOMPARE(validated(validator, "-").told(), QString("true empty"));
}

void NamedValueListValidatorTest::firstOfEqualEntriesWins()
{
    NamedValueListValidator validator(NamedValueList{{"a", 1}, {"a", 2}, {"b", 2}});
    validator.set_equal_to(equalInts);
    QCOMPARE(validated(validator, "a").told(), QString("true int 1"));
    QCOMPARE(reformatted(validator, 2), QString("a"));
}

void NamedValueListValidatorTest::emptyListRefuses()
{
    NamedValueListValidator withoutComparison((NamedValueList()));
    QCOMPARE(validated(withoutComparison, "").told(), QString("false untouched"));
    QCOMPARE(validated(withoutComparison, "a").told(), QString("false untouched"));
    QCOMPARE(reformatted(withoutComparison, 1), QString());
    QCOMPARE(reformatted(withoutComparison, boost::any()), QString());
    withoutComparison.set_equal_to(equalInts);
    comparisons = 0;
    QCOMPARE(reformatted(withoutComparison, 1), QString());
    QCOMPARE(comparisons, 0);
}

void NamedValueListValidatorTest::copiesBothForms()
{
    NamedValueList list = letters;
    NamedValueListValidator moved(std::move(list));
    QCOMPARE(list.size(), std::size_t(2)); // NOLINT(bugprone-use-after-move): it is copied
    QCOMPARE(list[1].first, QString("b"));
    QCOMPARE(told(list[1].second), QString("int 2"));
    NamedValueListValidator copied(list);
    list.clear();
    QCOMPARE(validated(moved, "b").told(), QString("true int 2"));
    QCOMPARE(validated(copied, "b").told(), QString("true int 2"));
}

void NamedValueListValidatorTest::finishesAsItValidates()
{
    NamedValueListValidator validator(letters);
    validator.set_equal_to(neverEqual);
    validator.setPostfix("!");
    QCOMPARE(finished(validator, "b").told(), QString("true int 2"));
    QCOMPARE(validator.reformatForDisplay(2, noFlags), QString(" !"));
}

QTEST_GUILESS_MAIN(NamedValueListValidatorTest)
#include "tst_named_value_list_validator.moc"
