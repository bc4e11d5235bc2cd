#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"

#include <cmath>
#include <limits>

using namespace zel::qt;
using zel::test::finished;
using zel::test::told;
using zel::test::validated;

namespace {

const std::bitset<32> localeFlag(1);
const std::bitset<32> noFlags;

QString reformatted(IValidator& validator, const boost::any& value,
                    const std::bitset<32>& flags = noFlags)
{
    return validator.reformat(value, flags);
}

} // namespace

class DoubleEditValidatorTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();

    void readsWhatTheLocaleReads_data();
    void readsWhatTheLocaleReads();
    void emptyText();
    void emptyValueAllowedOverwritesTheConstructor();
    void rangeIsForTheEndOfEditing_data();
    void rangeIsForTheEndOfEditing();
    void defaultRangeIsEveryFiniteNumber();
    void notANumberPassesTheClamp();
    void minimumAboveMaximum();
    void formats_data();
    void formats();
    void formatsInTheLocaleOfTheFlags();
    void otherTypesAreReported_data();
    void otherTypesAreReported();
    void constructorChecksRangeAndPrecision_data();
    void constructorChecksRangeAndPrecision();
    void setRangeChecksAndStores();
    void settersCheckNothing();
    void finishDoesNotUseTheVirtualTable();
    void displayAddsThePostfix();
};

void DoubleEditValidatorTest::initTestCase()
{
    // Before the first use of the library: it keeps the application's locale from then on.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void DoubleEditValidatorTest::readsWhatTheLocaleReads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("inLocale");
    QTest::addColumn<QString>("answer");
    QTest::newRow("integer") << "25" << false << "true double 25";
    QTest::newRow("point") << "2.5" << false << "true double 2.5";
    QTest::newRow("negative") << "-2.5" << false << "true double -2.5";
    QTest::newRow("exponent") << "1e3" << false << "true double 1000";
    QTest::newRow("comma refused") << "2,5" << false << "false double 0";
    QTest::newRow("comma behind a thousand is a group") << "1,234" << false << "true double 1234";
    QTest::newRow("comma in the locale") << "2,5" << true << "true double 2.5";
    QTest::newRow("point in the locale") << "2.5" << true << "false double 0";
    QTest::newRow("word") << "abc" << false << "false double 0";
    QTest::newRow("unit") << "2 m" << false << "false double 0";
    QTest::newRow("two points") << "1.2.3" << false << "false double 0";
    QTest::newRow("sign alone") << "-" << false << "false double 0";
}

void DoubleEditValidatorTest::readsWhatTheLocaleReads()
{
    QFETCH(QString, text);
    QFETCH(bool, inLocale);
    DoubleEditValidator validator;
    const std::bitset<32> flags = inLocale ? localeFlag : noFlags;
    QTEST(validated(validator, text, flags).told(), "answer");
    QTEST(finished(validator, text, flags).told(), "answer");
    // The other bits have no meaning.
    QTEST(validated(validator, text, flags | std::bitset<32>(0xfffffffe)).told(), "answer");
}

void DoubleEditValidatorTest::emptyText()
{
    DoubleEditValidator validator;
    QCOMPARE(validated(validator, "").told(), QString("true double 0"));
    QCOMPARE(finished(validator, "").told(), QString("true double 0"));
    validator.setEmptyValueAllowed(true);
    QCOMPARE(validated(validator, "").told(), QString("true empty"));
    QCOMPARE(finished(validator, "").told(), QString("true empty"));
    QCOMPARE(reformatted(validator, boost::any()), QString());

    DoubleEditValidator refusing(3, 0.0, 1.0, false);
    QCOMPARE(validated(refusing, "").told(), QString("false double 0"));
    QCOMPARE(finished(refusing, "").told(), QString("false double 0"));

    // A text of blanks is no empty text.
    QCOMPARE(validated(validator, " ").accepted, false);

    // Zero out of range is moved into it as any other number.
    DoubleEditValidator positive(3, 1.0, 2.0, true);
    QCOMPARE(validated(positive, "").told(), QString("true double 0"));
    QCOMPARE(finished(positive, "").told(), QString("true double 1"));
}

void DoubleEditValidatorTest::emptyValueAllowedOverwritesTheConstructor()
{
    DoubleEditValidator validator(3, 0.0, 1.0, false);
    validator.setEmptyValueAllowed(true);
    QCOMPARE(validated(validator, "").told(), QString("true empty"));
    validator.setEmptyValueAllowed(false);
    QCOMPARE(validated(validator, "").told(), QString("true double 0"));
}

void DoubleEditValidatorTest::rangeIsForTheEndOfEditing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("typed");
    QTest::addColumn<double>("kept");
    QTest::newRow("inside") << "5" << 5.0 << 5.0;
    QTest::newRow("lower bound") << "0" << 0.0 << 0.0;
    QTest::newRow("upper bound") << "10" << 10.0 << 10.0;
    QTest::newRow("below") << "-0.5" << -0.5 << 0.0;
    QTest::newRow("above") << "25" << 25.0 << 10.0;
}

void DoubleEditValidatorTest::rangeIsForTheEndOfEditing()
{
    QFETCH(QString, text);
    QFETCH(double, typed);
    QFETCH(double, kept);
    DoubleEditValidator validator(0.0, 10.0);
    QCOMPARE(validated(validator, text).told(), "true " + told(typed));
    QCOMPARE(finished(validator, text).told(), "true " + told(kept));
    QCOMPARE(reformatted(validator, typed), QString::number(kept, 'f', 3));
}

void DoubleEditValidatorTest::defaultRangeIsEveryFiniteNumber()
{
    DoubleEditValidator validator;
    QCOMPARE(finished(validator, "1.7976931348623157e308").told(),
             "true " + told(std::numeric_limits<double>::max()));
    QCOMPARE(finished(validator, "-1.7976931348623157e308").told(),
             "true " + told(std::numeric_limits<double>::lowest()));
    QCOMPARE(finished(validator, "inf").told(), "true " + told(std::numeric_limits<double>::max()));
}

void DoubleEditValidatorTest::notANumberPassesTheClamp()
{
    DoubleEditValidator validator(0.0, 10.0);
    const zel::test::Validation answer = finished(validator, "nan");
    QVERIFY(answer.accepted);
    QVERIFY(std::isnan(boost::any_cast<double>(answer.value)));
    QCOMPARE(reformatted(validator, std::nan("")), QString("nan"));
}

void DoubleEditValidatorTest::minimumAboveMaximum()
{
    DoubleEditValidator validator(0.0, 3.0);
    validator.setMinimum(5.0);
    QCOMPARE(finished(validator, "1").told(), QString("true double 5"));
    QCOMPARE(finished(validator, "4").told(), QString("true double 5"));
    QCOMPARE(finished(validator, "5").told(), QString("true double 3"));
    QCOMPARE(finished(validator, "8").told(), QString("true double 3"));
    QCOMPARE(reformatted(validator, 4.0), QString("5.000"));
    QCOMPARE(reformatted(validator, 8.0), QString("3.000"));
}

void DoubleEditValidatorTest::formats_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("text");
    QTest::newRow("no digits") << 2.4 << 0 << "2";
    QTest::newRow("one digit") << 2.26 << 1 << "2.3";
    QTest::newRow("default") << 2.5 << 3 << "2.500";
    QTest::newRow("negative") << -2.5 << 2 << "-2.50";
    QTest::newRow("no exponent") << 1.0e8 << 1 << "100000000.0";
}

void DoubleEditValidatorTest::formats()
{
    QFETCH(double, number);
    QFETCH(int, precision);
    DoubleEditValidator validator(precision, -1.0e9, 1.0e9, true);
    QTEST(reformatted(validator, number), "text");
    DoubleEditValidator other;
    other.setPrecision(precision);
    QTEST(reformatted(other, number), "text");
}

void DoubleEditValidatorTest::formatsInTheLocaleOfTheFlags()
{
    DoubleEditValidator validator(0.0, 10.0);
    QCOMPARE(reformatted(validator, 25.0), QString("10.000"));
    QCOMPARE(reformatted(validator, 25.0, localeFlag), QString("10,000"));
    DoubleEditValidator wide;
    QCOMPARE(reformatted(wide, 1234.5), QString("1234.500"));
    QCOMPARE(reformatted(wide, 1234.5, localeFlag), QString("1.234,500"));
}

void DoubleEditValidatorTest::otherTypesAreReported_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("int") << 0;
    QTest::newRow("float") << 1;
    QTest::newRow("empty") << 2;
}

void DoubleEditValidatorTest::otherTypesAreReported()
{
    QFETCH(int, which);
    const boost::any values[] = {boost::any(5), boost::any(5.0f), boost::any()};
    const boost::any& value = values[which];
    DoubleEditValidator validator;
    QCOMPARE(reformatted(validator, value), QString());
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("value.type() == typeid(double)"));
    QVERIFY(QString::fromStdString(reports[0].file).startsWith("qt/src/validators/"));
    QCOMPARE(reports[0].values.size(), std::size_t(1));
    QCOMPARE(reports[0].values[0].first, std::string("value.type().name()"));
    QCOMPARE(QString::fromStdWString(reports[0].values[0].second),
             QString::fromLatin1(value.type().name()));
}

void DoubleEditValidatorTest::constructorChecksRangeAndPrecision_data()
{
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<QStringList>("expressions");
    QTest::newRow("good") << 0 << 0.0 << 1.0 << QStringList();
    QTest::newRow("reversed") << 3 << 2.0 << 1.0 << QStringList{"m_min < m_max"};
    QTest::newRow("equal") << 3 << 1.0 << 1.0 << QStringList{"m_min < m_max"};
    QTest::newRow("precision") << -1 << 0.0 << 1.0 << QStringList{"m_precision >= 0"};
    QTest::newRow("both") << -2 << 2.0 << 1.0 << QStringList{"m_min < m_max", "m_precision >= 0"};
}

void DoubleEditValidatorTest::constructorChecksRangeAndPrecision()
{
    QFETCH(int, precision);
    QFETCH(double, min);
    QFETCH(double, max);
    DoubleEditValidator validator(precision, min, max, true);
    QStringList expressions;
    for (const auto& report : takeReports()) {
        expressions.append(QString::fromStdString(report.expression));
        QVERIFY(QString::fromStdString(report.file).startsWith("qt/src/validators/"));
        if (report.expression == "m_min < m_max") {
            QCOMPARE(report.values.size(), std::size_t(2));
            QCOMPARE(report.values[0].first, std::string("m_min"));
            QCOMPARE(std::stod(report.values[0].second), min);
            QCOMPARE(report.values[1].first, std::string("m_max"));
            QCOMPARE(std::stod(report.values[1].second), max);
        } else {
            QCOMPARE(report.values.size(), std::size_t(1));
            QCOMPARE(report.values[0].first, std::string("m_precision"));
            QCOMPARE(std::stoi(report.values[0].second), precision);
        }
    }
    QTEST(expressions, "expressions");
    // The two bounds alone are not checked.
    DoubleEditValidator unchecked(min, max);
}

void DoubleEditValidatorTest::setRangeChecksAndStores()
{
    DoubleEditValidator validator;
    validator.setRange(1.0, 2.0);
    QCOMPARE(finished(validator, "9").told(), QString("true double 2"));
    validator.setRange(5.0, 3.0);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("min < max"));
    const std::vector<std::pair<std::string, std::wstring>> values = {{"min", L"5"}, {"max", L"3"}};
    QVERIFY(reports[0].values == values);
    QCOMPARE(finished(validator, "4").told(), QString("true double 5"));
    QCOMPARE(finished(validator, "9").told(), QString("true double 3"));
}

void DoubleEditValidatorTest::settersCheckNothing()
{
    DoubleEditValidator validator;
    validator.setMinimum(5.0);
    validator.setMaximum(1.0);
    validator.setPrecision(-1);
    validator.setPrecision(1);
    QCOMPARE(finished(validator, "7").told(), QString("true double 1"));
    QCOMPARE(reformatted(validator, 2.0), QString("5.0"));
}

void DoubleEditValidatorTest::finishDoesNotUseTheVirtualTable()
{
    struct Doubling : DoubleEditValidator
    {
        bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override
        {
            const bool accepted = DoubleEditValidator::validate(text, value, flags);
            value = 2.0 * boost::any_cast<double>(value);
            return accepted;
        }
    };
    Doubling validator;
    QCOMPARE(validated(validator, "3").told(), QString("true double 6"));
    QCOMPARE(finished(validator, "3").told(), QString("true double 3"));
}

void DoubleEditValidatorTest::displayAddsThePostfix()
{
    DoubleEditValidator validator;
    validator.setPostfix("kN");
    QCOMPARE(validator.reformatForDisplay(1.5, noFlags), QString("1.500 kN"));
    QCOMPARE(reformatted(validator, 1.5), QString("1.500"));
}

QTEST_GUILESS_MAIN(DoubleEditValidatorTest)
#include "tst_double_edit_validator.moc"
