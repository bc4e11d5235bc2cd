#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"
#include "units/inc/units.h"

#include <cmath>
#include <cstring>
#include <limits>

using namespace zel::qt;
using zel::test::finished;
using zel::test::told;
using zel::test::validated;
using zel::units::UnknownUnit;

namespace {

const std::bitset<32> localeFlag(1);
const std::bitset<32> noFlags;

/// What the unit library answers, and what it was asked.
struct Library
{
    double storedPerShown = 1000.0;
    double metresPerShown = 1.0;
    int decimals = 3;
    std::string label = "m";
    int labelResult = 1;

    std::vector<std::pair<int, int>> askedDecimals;
    std::vector<std::pair<int, int>> askedUnits;
    std::vector<std::pair<int, int>> askedLabels;
    int labelSize = 0;
    bool labelZeroed = true;
};

QString reformatted(IValidator& validator, const boost::any& value,
                    const std::bitset<32>& flags = noFlags)
{
    return validator.reformat(value, flags);
}

} // namespace

class DistanceEditValidatorTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void asksForTheDecimalsOnce();
    void decimalsOfUnknownUnits_data();
    void decimalsOfUnknownUnits();
    void defaultArguments();
    void readsNumbersAndSuffixes_data();
    void readsNumbersAndSuffixes();
    void unknownSuffixesThrow_data();
    void unknownSuffixesThrow();
    void valueIsZeroWhenASuffixThrows();
    void numberIsReadInTheLocale_data();
    void numberIsReadInTheLocale();
    void scalesByBothModes();
    void emptyText();
    void emptyTextWithoutEitherFlagIsZero();
    void rangeIsInStoredUnits();
    void rangeInTheWrongOrder();
    void notANumberPassesTheClamp();
    void formats_data();
    void formats();
    void labelStandsBehindTheNumber_data();
    void labelStandsBehindTheNumber();
    void otherTypesAreReported_data();
    void otherTypesAreReported();
    void finishDoesNotUseTheVirtualTable();
    void worksWithTheActiveContext();

private:
    Library m_library;
    zel::units::v1::UnitLibrary m_previous;
};

void DistanceEditValidatorTest::initTestCase()
{
    // Before the first use of the library: it keeps the application's locale from then on.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void DistanceEditValidatorTest::init()
{
    CheckedTest::init();
    m_library = Library();
    zel::units::v1::UnitLibrary library;
    library.unitd = [this](int unit, int mode) {
        m_library.askedUnits.emplace_back(unit, mode);
        return mode == 1 ? m_library.storedPerShown : m_library.metresPerShown;
    };
    library.decimals = [this](int unit, int mode) {
        m_library.askedDecimals.emplace_back(unit, mode);
        return m_library.decimals;
    };
    library.label = [this](int unit, int mode, char* buffer, int size) {
        m_library.askedLabels.emplace_back(unit, mode);
        m_library.labelSize = size;
        for (int i = 0; i <= size; ++i) {
            m_library.labelZeroed = m_library.labelZeroed && buffer[i] == '\0';
        }
        std::strcpy(buffer, m_library.label.c_str());
        return m_library.labelResult;
    };
    m_previous = zel::units::v1::set_unit_library(std::move(library));
}

void DistanceEditValidatorTest::cleanup()
{
    zel::units::v1::set_unit_library(std::move(m_previous));
    CheckedTest::cleanup();
}

void DistanceEditValidatorTest::asksForTheDecimalsOnce()
{
    DistanceEditValidator validator(1007, 0.0, 1.0e6, true);
    const std::vector<std::pair<int, int>> asked = {{1007, 1}};
    QVERIFY(m_library.askedDecimals == asked);
    QVERIFY(m_library.askedUnits.empty());
    m_library.decimals = 1;
    QCOMPARE(reformatted(validator, 2500.0), QString("2.500"));
    validated(validator, "2");
    QVERIFY(m_library.askedDecimals == asked);
    QVERIFY(m_library.askedLabels.empty());
}

void DistanceEditValidatorTest::decimalsOfUnknownUnits_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::newRow("metre") << 13 << -1 << "2.500";
    QTest::newRow("millimetre") << 16 << -1 << "2.5";
    QTest::newRow("other") << 14 << -7 << "2.50";
    QTest::newRow("unit set") << 1001 << -1 << "2.50";
    QTest::newRow("known metre") << 13 << 1 << "2.5";
    QTest::newRow("known, no decimals") << 1001 << 0 << "2";
}

void DistanceEditValidatorTest::decimalsOfUnknownUnits()
{
    QFETCH(int, unit);
    QFETCH(int, decimals);
    m_library.decimals = decimals;
    m_library.storedPerShown = 1.0;
    DistanceEditValidator validator(unit);
    QTEST(reformatted(validator, decimals == 0 ? 2.0 : 2.5), "text");
}

void DistanceEditValidatorTest::defaultArguments()
{
    DistanceEditValidator validator;
    const std::vector<std::pair<int, int>> asked = {{1001, 1}};
    QVERIFY(m_library.askedDecimals == asked);
    QCOMPARE(validated(validator, "").told(), QString("true double 0"));
    m_library.storedPerShown = 1.0;
    QCOMPARE(finished(validator, "inf").told(), "true " + told(std::numeric_limits<double>::max()));
    QCOMPARE(finished(validator, "-inf").told(),
             "true " + told(std::numeric_limits<double>::lowest()));
    QCOMPARE(reformatted(validator, 1.5), QString("1.500"));
}

void DistanceEditValidatorTest::readsNumbersAndSuffixes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("answer");
    QTest::newRow("number") << "2.5"
                            << "true double 2500";
    QTest::newRow("exponent") << "1e3"
                              << "true double 1000000";
    QTest::newRow("m") << "2.5m"
                       << "true double 2500";
    QTest::newRow("dm") << "25dm"
                        << "true double 2500";
    QTest::newRow("cm") << "250cm"
                        << "true double 2500";
    QTest::newRow("mm") << "2500mm"
                        << "true double 2500";
    QTest::newRow("blank between") << "2.5 m"
                                   << "true double 2500";
    QTest::newRow("blanks around") << "  2.5 m  "
                                   << "true double 2500";
    QTest::newRow("sign") << "-5m"
                          << "true double -5000";
    QTest::newRow("point first") << ".5m"
                                 << "true double 500";
    QTest::newRow("point last") << "5.m"
                                << "true double 5000";
    QTest::newRow("comma in the number") << "2,5m"
                                         << "false double 0";
    QTest::newRow("two points and a suffix") << "1.2.3m"
                                             << "false double 0";
    QTest::newRow("sign inside") << "1-2m"
                                 << "false double 0";
    QTest::newRow("sign and blank") << "- 5m"
                                    << "false double 0";
    // A plus sign is a mathematical symbol, no punctuation.
    QTest::newRow("plus and suffix") << "+5m"
                                     << "false double 0";
    QTest::newRow("plus alone") << "+5"
                                << "true double 5000";
    QTest::newRow("inches") << "5''"
                            << "false double 0";
    QTest::newRow("word") << "abc"
                          << "false double 0";
    QTest::newRow("suffix alone") << "m"
                                  << "false double 0";
    // No suffix, so nothing ends the number: such text is zero.
    QTest::newRow("two points") << "1.2.3"
                                << "true double 0";
    QTest::newRow("comma") << "2,5"
                           << "true double 0";
    QTest::newRow("point") << "."
                           << "true double 0";
    QTest::newRow("blanks") << "  "
                            << "true double 0";
    QTest::newRow("digits beyond the range of a number") << QString(400, '9') << "true double 0";
    QTest::newRow("sign behind") << "5-"
                                 << "true double 0";
}

void DistanceEditValidatorTest::readsNumbersAndSuffixes()
{
    QFETCH(QString, text);
    DistanceEditValidator validator;
    QTEST(validated(validator, text).told(), "answer");
    QTEST(finished(validator, text).told(), "answer");
}

void DistanceEditValidatorTest::unknownSuffixesThrow_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("feet") << "12 ft"
                          << "ft";
    QTest::newRow("upper case") << "12 M"
                                << "M";
    QTest::newRow("exponent and suffix") << "1e3m"
                                         << "e3m";
    QTest::newRow("two points in a row") << "5..5m"
                                         << ".5m";
    QTest::newRow("two points at the end") << "5.."
                                           << ".";
    QTest::newRow("kilometre") << "1 km "
                               << "km";
    QTest::newRow("suffix with a blank") << "1 m m"
                                         << "m m";
    QTest::newRow("not of ASCII") << QString::fromUtf8("1 \u00b5m") << QString::fromUtf8("\u00b5m");
    QTest::newRow("point and apostrophes") << "5.''"
                                           << "''";
}

void DistanceEditValidatorTest::unknownSuffixesThrow()
{
    QFETCH(QString, text);
    QFETCH(QString, suffix);
    DistanceEditValidator validator;
    for (const bool atTheEnd : {false, true}) {
        QString thrown;
        try {
            atTheEnd ? finished(validator, text) : validated(validator, text);
        } catch (const UnknownUnit& e) {
            thrown = QString::fromUtf8(e.what());
        }
        QCOMPARE(thrown, suffix);
    }
}

void DistanceEditValidatorTest::valueIsZeroWhenASuffixThrows()
{
    DistanceEditValidator validator;
    IValidator& protocol = validator;
    boost::any value = zel::test::Untouched();
    QVERIFY_EXCEPTION_THROWN(protocol.validate("12 ft", value, noFlags), zel::Exception);
    QCOMPARE(told(value), QString("double 0"));
}

void DistanceEditValidatorTest::numberIsReadInTheLocale_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("answer");
    QTest::newRow("comma") << "2,5"
                           << "true double 2500";
    QTest::newRow("point is a group") << "2.500"
                                      << "true double 2500000";
    QTest::newRow("number with a suffix has a point") << "2.5m"
                                                      << "true double 2500";
    QTest::newRow("comma and suffix") << "2,5m"
                                      << "false double 0";
}

void DistanceEditValidatorTest::numberIsReadInTheLocale()
{
    QFETCH(QString, text);
    DistanceEditValidator validator;
    QTEST(validated(validator, text, localeFlag).told(), "answer");
}

void DistanceEditValidatorTest::scalesByBothModes()
{
    m_library.storedPerShown = 0.25;
    m_library.metresPerShown = 0.5;
    DistanceEditValidator validator(16);
    QCOMPARE(validated(validator, "3").told(), QString("true double 0.75"));
    const std::vector<std::pair<int, int>> asked = {{16, 1}};
    QVERIFY(m_library.askedUnits == asked);
    m_library.askedUnits.clear();
    QCOMPARE(validated(validator, "3m").told(), QString("true double 1.5"));
    const std::vector<std::pair<int, int>> askedBoth = {{16, 0}, {16, 1}};
    QVERIFY(m_library.askedUnits == askedBoth);
    QCOMPARE(reformatted(validator, 1.5), QString("6.000"));
}

void DistanceEditValidatorTest::emptyText()
{
    DistanceEditValidator validator;
    QCOMPARE(validated(validator, "").told(), QString("true double 0"));
    validator.setEmptyValueAllowed(true);
    QCOMPARE(validated(validator, "").told(), QString("true empty"));
    QCOMPARE(finished(validator, "").told(), QString("true empty"));
    QCOMPARE(reformatted(validator, boost::any()), QString());
    validator.setEmptyValueAllowed(false);
    QCOMPARE(validated(validator, "").told(), QString("true double 0"));
}

void DistanceEditValidatorTest::emptyTextWithoutEitherFlagIsZero()
{
    DistanceEditValidator validator(1001, 1.0, 2.0, false);
    QCOMPARE(validated(validator, "").told(), QString("true double 0"));
    QCOMPARE(finished(validator, "").told(), QString("true double 1"));
}

void DistanceEditValidatorTest::rangeIsInStoredUnits()
{
    DistanceEditValidator validator(1001, 500.0, 2000.0, true);
    QCOMPARE(validated(validator, "2.5").told(), QString("true double 2500"));
    QCOMPARE(finished(validator, "2.5").told(), QString("true double 2000"));
    QCOMPARE(finished(validator, "1mm").told(), QString("true double 500"));
    QCOMPARE(finished(validator, "1.5").told(), QString("true double 1500"));
    QCOMPARE(finished(validator, "").told(), QString("true double 500"));
    QCOMPARE(reformatted(validator, 9999.0), QString("2.000"));
    QCOMPARE(reformatted(validator, 0.0), QString("0.500"));
    QCOMPARE(reformatted(validator, 1500.0), QString("1.500"));
}

void DistanceEditValidatorTest::rangeInTheWrongOrder()
{
    m_library.storedPerShown = 1.0;
    DistanceEditValidator validator(1001, 5.0, 3.0, true);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("m_min < m_max"));
    QCOMPARE(reports[0].file, std::string("qt/src/validators/distance_edit_validator.cpp"));
    const std::vector<std::pair<std::string, std::wstring>> values = {{"m_min", L"5"},
                                                                      {"m_max", L"3"}};
    QVERIFY(reports[0].values == values);
    QCOMPARE(finished(validator, "4").told(), QString("true double 5"));
    QCOMPARE(finished(validator, "8").told(), QString("true double 3"));
    // In a text the lower bound comes last and wins.
    QCOMPARE(reformatted(validator, 4.0), QString("5.000"));
    QCOMPARE(reformatted(validator, 8.0), QString("5.000"));
}

void DistanceEditValidatorTest::notANumberPassesTheClamp()
{
    DistanceEditValidator validator(1001, 0.0, 10.0, true);
    const zel::test::Validation answer = finished(validator, "nan");
    QVERIFY(answer.accepted);
    QVERIFY(std::isnan(boost::any_cast<double>(answer.value)));
    QCOMPARE(reformatted(validator, std::nan("")), QString("nan"));
}

void DistanceEditValidatorTest::formats_data()
{
    QTest::addColumn<double>("stored");
    QTest::addColumn<bool>("inLocale");
    QTest::addColumn<QString>("text");
    QTest::newRow("C locale") << 1500.0 << false << "1.500";
    QTest::newRow("application's locale") << 1500.0 << true << "1,500";
    QTest::newRow("groups of the locale") << 1234500.0 << true << "1.234,500";
    QTest::newRow("negative") << -250.0 << false << "-0.250";
}

void DistanceEditValidatorTest::formats()
{
    QFETCH(double, stored);
    QFETCH(bool, inLocale);
    DistanceEditValidator validator;
    QTEST(reformatted(validator, stored, inLocale ? localeFlag : noFlags), "text");
}

void DistanceEditValidatorTest::labelStandsBehindTheNumber_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("text");
    QTest::newRow("label") << "m" << 1 << "1.500 m";
    QTest::newRow("not of ASCII") << QString::fromUtf8("\u00b5m") << 1
                                  << QString::fromUtf8("1.500 \u00b5m");
    QTest::newRow("empty") << "" << 1 << "1.500";
    QTest::newRow("not found") << "m" << 0 << "1.500";
    QTest::newRow("another success") << "m" << -1 << "1.500 m";
    QTest::newRow("longest") << QString(30, 'x') << 1 << "1.500 " + QString(30, 'x');
}

void DistanceEditValidatorTest::labelStandsBehindTheNumber()
{
    QFETCH(QString, label);
    QFETCH(int, result);
    m_library.label = label.toStdString();
    m_library.labelResult = result;
    DistanceEditValidator validator(1007);
    QCOMPARE(reformatted(validator, 1500.0), QString("1.500"));
    QVERIFY(m_library.askedLabels.empty());
    validator.showUnitPostfix(true);
    QTEST(reformatted(validator, 1500.0), "text");
    const std::vector<std::pair<int, int>> asked = {{1007, 1}};
    QVERIFY(m_library.askedLabels == asked);
    QCOMPARE(m_library.labelSize, 31);
    QVERIFY(m_library.labelZeroed);
    validator.showUnitPostfix(false);
    QCOMPARE(reformatted(validator, 1500.0), QString("1.500"));
}

void DistanceEditValidatorTest::otherTypesAreReported_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("int") << 0;
    QTest::newRow("empty") << 1;
}

void DistanceEditValidatorTest::otherTypesAreReported()
{
    QFETCH(int, which);
    const boost::any values[] = {boost::any(5), boost::any()};
    DistanceEditValidator validator;
    validator.showUnitPostfix(true);
    QCOMPARE(reformatted(validator, values[which]), QString());
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("value.type() == typeid(double)"));
    QCOMPARE(reports[0].file, std::string("qt/src/validators/distance_edit_validator.cpp"));
    QVERIFY(reports[0].values.empty());
}

void DistanceEditValidatorTest::finishDoesNotUseTheVirtualTable()
{
    struct Refusing : DistanceEditValidator
    {
        bool validate(const QString&, boost::any&, const std::bitset<32>&) override
        {
            return false;
        }
    };
    Refusing validator;
    QCOMPARE(validated(validator, "3").told(), QString("false untouched"));
    QCOMPARE(finished(validator, "3").told(), QString("true double 3000"));
}

void DistanceEditValidatorTest::worksWithTheActiveContext()
{
    zel::units::v1::set_unit_library({});
    const zel::units::v1::Context before = zel::units::v1::get_active_input_context();
    zel::units::v1::set_active_input_context(zel::units::v1::Context(7));
    DistanceEditValidator validator;
    validator.showUnitPostfix(true);
    const QString text = reformatted(validator, 2.5);
    const QString number = validated(validator, "2500").told();
    const QString suffix = validated(validator, "250cm").told();
    zel::units::v1::set_active_input_context(before);
    QCOMPARE(text, QString("2500.000 mm"));
    QCOMPARE(number, QString("true double 2.5"));
    QCOMPARE(suffix, QString("true double 2.5"));
}

QTEST_GUILESS_MAIN(DistanceEditValidatorTest)
#include "tst_distance_edit_validator.moc"
