#include "qt/inc/integer_validator.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"

#include <limits>
#include <memory>

using namespace zel::qt;
using zel::test::finished;
using zel::test::validated;

namespace {

const std::bitset<32> noFlags;

using Int = IntegerValidator<int>;
using UInt = IntegerValidator<unsigned int>;
using UShort = IntegerValidator<unsigned short>;

template <class T>
std::unique_ptr<IValidator> unlimited()
{
    return std::make_unique<IntegerValidator<T>>(std::numeric_limits<T>::min(),
                                                 std::numeric_limits<T>::max(), true);
}

std::unique_ptr<IValidator> unlimited(const QString& type)
{
    if (type == "int") {
        return unlimited<int>();
    }
    return type == "unsigned int" ? unlimited<unsigned int>() : unlimited<unsigned short>();
}

} // namespace

class IntegerValidatorTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void readsBaseTenAndWraps_data();
    void readsBaseTenAndWraps();
    void emptyText_data();
    void emptyText();
    void emptyValueIsShown_data();
    void emptyValueIsShown();
    void rangeIsForTheEndOfEditing_data();
    void rangeIsForTheEndOfEditing();
    void wrappedNumberIsClamped();
    void formatsTheWholeRange();
    void reversedRangeIsReportedAndKept();
    void equalBoundsAreFine();
    void fieldsAreWrittenDirectly();
    void otherTypesAreReported_data();
    void otherTypesAreReported();
    void displayAddsThePostfix();
};

void IntegerValidatorTest::readsBaseTenAndWraps_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("number");
    QTest::newRow("int") << "int"
                         << "25" << true << "25";
    QTest::newRow("int, negative") << "int"
                                   << "-25" << true << "-25";
    QTest::newRow("int, blanks") << "int"
                                 << " 25 " << true << "25";
    QTest::newRow("int, leading zeros") << "int"
                                        << "010" << true << "10";
    QTest::newRow("int, wraps") << "int"
                                << "4294967296" << true << "0";
    QTest::newRow("int, wraps to negative") << "int"
                                            << "2147483648" << true << "-2147483648";
    QTest::newRow("int, too long for 64 bits") << "int"
                                               << "9223372036854775808" << false << "0";
    QTest::newRow("int, hexadecimal") << "int"
                                      << "0x10" << false << "0";
    QTest::newRow("int, point") << "int"
                                << "1.5" << false << "0";
    QTest::newRow("int, word") << "int"
                               << "abc" << false << "0";
    QTest::newRow("int, sign") << "int"
                               << "-" << false << "0";
    QTest::newRow("unsigned int") << "unsigned int"
                                  << "4294967295" << true << "4294967295";
    QTest::newRow("unsigned int, negative") << "unsigned int"
                                            << "-1" << true << "4294967295";
    QTest::newRow("unsigned int, wraps") << "unsigned int"
                                         << "4294967296" << true << "0";
    QTest::newRow("unsigned int, point") << "unsigned int"
                                         << "1.5" << false << "0";
    QTest::newRow("unsigned short") << "unsigned short"
                                    << "65535" << true << "65535";
    QTest::newRow("unsigned short, wraps") << "unsigned short"
                                           << "65536" << true << "0";
    QTest::newRow("unsigned short, negative") << "unsigned short"
                                              << "-1" << true << "65535";
    QTest::newRow("unsigned short, point") << "unsigned short"
                                           << "1.5" << false << "0";
}

void IntegerValidatorTest::readsBaseTenAndWraps()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    QFETCH(QString, number);
    const auto validator = unlimited(type);
    const QString answer = QString("%1 %2 %3").arg(accepted ? "true" : "false", type, number);
    QCOMPARE(validated(*validator, text).told(), answer);
    QCOMPARE(validated(*validator, text, std::bitset<32>(1)).told(), answer);
    QCOMPARE(finished(*validator, text).told(), answer);
}

void IntegerValidatorTest::emptyText_data()
{
    QTest::addColumn<bool>("emptyAsZero");
    QTest::addColumn<bool>("emptyValueAllowed");
    QTest::addColumn<QString>("answer");
    QTest::newRow("neither") << false << false << "false int 0";
    QTest::newRow("as zero") << true << false << "true empty";
    QTest::newRow("allowed") << false << true << "true empty";
    QTest::newRow("both") << true << true << "true empty";
}

void IntegerValidatorTest::emptyText()
{
    QFETCH(bool, emptyAsZero);
    QFETCH(bool, emptyValueAllowed);
    Int validator(5, 10, emptyAsZero);
    QCOMPARE(validator.m_emptyValueAllowed, false);
    validator.m_emptyValueAllowed = emptyValueAllowed;
    QTEST(validated(validator, "").told(), "answer");
    QTEST(finished(validator, "").told(), "answer");
}

void IntegerValidatorTest::emptyValueIsShown_data()
{
    QTest::addColumn<bool>("emptyAsZero");
    QTest::addColumn<bool>("emptyValueAllowed");
    QTest::addColumn<QString>("text");
    QTest::newRow("as zero, whatever the range") << true << false << "0";
    QTest::newRow("allowed") << false << true << "";
    QTest::newRow("allowed goes first") << true << true << "";
}

void IntegerValidatorTest::emptyValueIsShown()
{
    QFETCH(bool, emptyAsZero);
    QFETCH(bool, emptyValueAllowed);
    Int validator(5, 10, emptyAsZero);
    validator.m_emptyValueAllowed = emptyValueAllowed;
    QTEST(validator.reformat(boost::any(), noFlags), "text");
}

void IntegerValidatorTest::rangeIsForTheEndOfEditing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("typed");
    QTest::addColumn<int>("kept");
    QTest::newRow("inside") << "5" << 5 << 5;
    QTest::newRow("lower bound") << "0" << 0 << 0;
    QTest::newRow("upper bound") << "10" << 10 << 10;
    QTest::newRow("below") << "-1" << -1 << 0;
    QTest::newRow("above") << "25" << 25 << 10;
}

void IntegerValidatorTest::rangeIsForTheEndOfEditing()
{
    QFETCH(QString, text);
    QFETCH(int, typed);
    QFETCH(int, kept);
    Int validator(0, 10, true);
    QCOMPARE(validated(validator, text).told(), QString("true int %1").arg(typed));
    QCOMPARE(finished(validator, text).told(), QString("true int %1").arg(kept));
    QCOMPARE(validator.reformat(typed, noFlags), QString::number(kept));
}

void IntegerValidatorTest::wrappedNumberIsClamped()
{
    UShort validator(3, 10, true);
    QCOMPARE(finished(validator, "65536").told(), QString("true unsigned short 3"));
    QCOMPARE(finished(validator, "-1").told(), QString("true unsigned short 10"));
    QCOMPARE(finished(validator, "65541").told(), QString("true unsigned short 5"));
}

void IntegerValidatorTest::formatsTheWholeRange()
{
    QCOMPARE(unlimited<int>()->reformat(std::numeric_limits<int>::min(), noFlags),
             QString("-2147483648"));
    QCOMPARE(unlimited<int>()->reformat(std::numeric_limits<int>::max(), std::bitset<32>(1)),
             QString("2147483647"));
    QCOMPARE(unlimited<unsigned int>()->reformat(4294967295U, noFlags), QString("4294967295"));
    using Short = unsigned short;
    QCOMPARE(unlimited<Short>()->reformat(Short(65535), noFlags), QString("65535"));
}

void IntegerValidatorTest::reversedRangeIsReportedAndKept()
{
    Int validator(10, 0, true);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("min <= max"));
    QCOMPARE(reports[0].file, std::string("qt/inc/integer_validator.h"));
    QVERIFY(reports[0].values.empty());
    QCOMPARE(validator.min, 10);
    QCOMPARE(validator.max, 0);
    // At the end of editing the lower bound is tested first, and one test is enough.
    QCOMPARE(finished(validator, "-5").told(), QString("true int 10"));
    QCOMPARE(finished(validator, "5").told(), QString("true int 10"));
    QCOMPARE(finished(validator, "10").told(), QString("true int 0"));
    QCOMPARE(finished(validator, "25").told(), QString("true int 0"));
    // In a text the lower bound comes last and wins.
    QCOMPARE(validator.reformat(5, noFlags), QString("10"));
    QCOMPARE(validator.reformat(25, noFlags), QString("10"));
}

void IntegerValidatorTest::equalBoundsAreFine()
{
    Int validator(4, 4, true);
    QCOMPARE(finished(validator, "9").told(), QString("true int 4"));
}

void IntegerValidatorTest::fieldsAreWrittenDirectly()
{
    UInt validator(0, 10, true);
    validator.min = 20;
    validator.max = 30;
    validator.m_emptyAsZero = false;
    QCOMPARE(finished(validator, "5").told(), QString("true unsigned int 20"));
    QCOMPARE(finished(validator, "50").told(), QString("true unsigned int 30"));
    QCOMPARE(validated(validator, "").told(), QString("false unsigned int 0"));
}

void IntegerValidatorTest::otherTypesAreReported_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("unsigned int") << 0;
    QTest::newRow("double") << 1;
    QTest::newRow("empty, refused") << 2;
}

void IntegerValidatorTest::otherTypesAreReported()
{
    QFETCH(int, which);
    const boost::any values[] = {boost::any(5U), boost::any(5.0), boost::any()};
    Int validator(0, 10, false);
    QCOMPARE(validator.reformat(values[which], noFlags), QString());
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("value.type() == typeid(value_type)"));
    QCOMPARE(reports[0].file, std::string("qt/inc/integer_validator.h"));
}

void IntegerValidatorTest::displayAddsThePostfix()
{
    Int validator(0, 10, true);
    validator.setPostfix("pcs");
    QCOMPARE(validator.reformatForDisplay(3, noFlags), QString("3 pcs"));
    QCOMPARE(validator.reformatForDisplay(boost::any(), noFlags), QString("0 pcs"));
}

QTEST_GUILESS_MAIN(IntegerValidatorTest)
#include "tst_integer_validator.moc"
