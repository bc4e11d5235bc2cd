#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"
#include "units/inc/units.h"

#include <rapidcheck.h>

#include <cmath>

using namespace zel::qt;
using zel::units::UnitId;
using zel::units::v1::Context;
using Quantity = zel::units::v1::IConverter::quantity;

namespace {

const std::bitset<32> localeFlag(1);
const std::bitset<32> noFlags;
const UnitId geoLength = UnitId(1001);

QString told(const boost::any& value)
{
    if (const auto* quantity = boost::any_cast<Quantity>(&value)) {
        return QString("quantity %1 %2")
            .arg(int(quantity->unit_id))
            .arg(quantity->value, 0, 'g', 12);
    }
    return zel::test::told(value);
}

QString told(const zel::test::Validation& answer)
{
    return (answer.accepted ? "true " : "false ") + told(answer.value);
}

QString validated(UnitValidator& validator, const QString& text,
                  const std::bitset<32>& flags = noFlags)
{
    return told(zel::test::validated(validator, text, flags));
}

QString finished(UnitValidator& validator, const QString& text,
                 const std::bitset<32>& flags = noFlags)
{
    return told(zel::test::finished(validator, text, flags));
}

} // namespace

class UnitValidatorTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void readsQuantities_data();
    void readsQuantities();
    void plainUnit();
    void emptyText();
    void rangeIsForTheEndOfEditing();
    void boundsInTheWrongOrder();
    void notANumberPassesTheClamp();
    void formats_data();
    void formats();
    void otherTypesAreReported_data();
    void otherTypesAreReported();
    void finishDoesNotUseTheVirtualTable();
    void unknownIdThrows();
    void idIsSetLater();
    void contextIsASnapshot();
    void flagsChooseTheLocale();
    void displayAddsThePostfix();

    void whatWasFormattedIsAccepted();
    void whatWasTypedSurvivesItsText();
};

void UnitValidatorTest::readsQuantities_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("answer");
    QTest::newRow("number in the unit shown") << "2.5"
                                              << "true quantity 1001 2.5";
    QTest::newRow("centimetres") << "250 cm"
                                 << "true quantity 1001 2.5";
    QTest::newRow("feet") << "2 ft"
                          << "true quantity 1001 0.6096";
    QTest::newRow("feet and inches") << "5' 6''"
                                     << "true quantity 1001 1.6764";
    QTest::newRow("unit of another dimension") << "2 s"
                                               << "false quantity 1001 0";
    QTest::newRow("unit that the set leaves out") << "2 dm"
                                                  << "false quantity 1001 0";
    // In the C locale the number ends at the comma.
    QTest::newRow("decimal comma") << "2,5"
                                   << "true quantity 1001 2";
    QTest::newRow("word") << "abc"
                          << "false quantity 1001 0";
}

void UnitValidatorTest::readsQuantities()
{
    QFETCH(QString, text);
    UnitValidator validator(Context(0), geoLength);
    QTEST(validated(validator, text), "answer");
    QTEST(finished(validator, text), "answer");
}

void UnitValidatorTest::plainUnit()
{
    UnitValidator validator(Context(0), UnitId(16));
    QCOMPARE(validated(validator, "3"), QString("true quantity 16 3"));
    QCOMPARE(validated(validator, "1 m"), QString("true quantity 16 1000"));
    QCOMPARE(validator.reformat(Quantity{UnitId(16), 1000.0}, noFlags), QString("1000 mm"));
}

void UnitValidatorTest::emptyText()
{
    UnitValidator validator(Context(0), geoLength);
    QCOMPARE(validated(validator, ""), QString("true quantity 1001 0"));
    QCOMPARE(finished(validator, ""), QString("true quantity 1001 0"));
    validator.setEmptyValueAllowed(true);
    QCOMPARE(validated(validator, ""), QString("true empty"));
    QCOMPARE(finished(validator, ""), QString("true empty"));
    QCOMPARE(validator.reformat(boost::any(), noFlags), QString());
    validator.setEmptyValueAllowed(false);
    QCOMPARE(validated(validator, ""), QString("true quantity 1001 0"));
    validator.set_minimum(1.0);
    QCOMPARE(finished(validator, ""), QString("true quantity 1001 1"));
}

void UnitValidatorTest::rangeIsForTheEndOfEditing()
{
    UnitValidator validator(Context(0), geoLength);
    validator.set_minimum(-1.0);
    validator.set_maximum(10.0);
    QCOMPARE(validated(validator, "25"), QString("true quantity 1001 25"));
    QCOMPARE(finished(validator, "25"), QString("true quantity 1001 10"));
    QCOMPARE(finished(validator, "-3"), QString("true quantity 1001 -1"));
    QCOMPARE(finished(validator, "3"), QString("true quantity 1001 3"));
    // The range is that of the number held, whatever unit was typed.
    QCOMPARE(finished(validator, "900 cm"), QString("true quantity 1001 9"));
    QCOMPARE(finished(validator, "1100 cm"), QString("true quantity 1001 10"));
    QCOMPARE(validator.reformat(Quantity{geoLength, 25.0}, noFlags), QString("10.000 m"));
    QCOMPARE(validator.reformat(Quantity{geoLength, -3.0}, noFlags), QString("-1.000 m"));
    // The number is compared as it stands, and the quantity keeps its own id.
    QCOMPARE(validator.reformat(Quantity{UnitId(16), 25.0}, noFlags), QString("10 mm"));
}

void UnitValidatorTest::boundsInTheWrongOrder()
{
    UnitValidator validator(Context(0), geoLength);
    validator.set_minimum(5.0);
    validator.set_maximum(3.0);
    QCOMPARE(finished(validator, "4"), QString("true quantity 1001 5"));
    QCOMPARE(finished(validator, "8"), QString("true quantity 1001 3"));
}

void UnitValidatorTest::notANumberPassesTheClamp()
{
    UnitValidator validator(Context(0), geoLength);
    validator.set_maximum(3.0);
    const QString text = validator.reformat(Quantity{geoLength, std::nan("")}, noFlags);
    QVERIFY2(text.contains("nan"), qPrintable(text));
}

void UnitValidatorTest::formats_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::newRow("metres") << 0 << "0.610 m";
    QTest::newRow("millimetres") << 6 << "610 mm";
    QTest::newRow("feet") << 8 << "2.00 ft";
}

void UnitValidatorTest::formats()
{
    QFETCH(int, column);
    UnitValidator validator(Context(column), geoLength);
    QTEST(validator.reformat(Quantity{geoLength, 0.6096}, noFlags), "text");
}

void UnitValidatorTest::otherTypesAreReported_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("double") << 0;
    QTest::newRow("empty") << 1;
}

void UnitValidatorTest::otherTypesAreReported()
{
    QFETCH(int, which);
    const boost::any values[] = {boost::any(2.5), boost::any()};
    UnitValidator validator(Context(0), geoLength);
    QCOMPARE(validator.reformat(values[which], noFlags), QString());
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression,
             std::string("value.type() == typeid(units::IConverter::quantity)"));
    QCOMPARE(reports[0].file, std::string("qt/src/validators/unit_validator.cpp"));
    QVERIFY(reports[0].values.empty());
}

void UnitValidatorTest::finishDoesNotUseTheVirtualTable()
{
    struct Refusing : UnitValidator
    {
        using UnitValidator::UnitValidator;
        bool validate(const QString&, boost::any&, const std::bitset<32>&) override
        {
            return false;
        }
    };
    Refusing validator(Context(0), geoLength);
    QCOMPARE(validated(validator, "3"), QString("false untouched"));
    QCOMPARE(finished(validator, "3"), QString("true quantity 1001 3"));
}

void UnitValidatorTest::unknownIdThrows()
{
    UnitValidator validator(Context(0), UnitId(7777));
    QString what;
    try {
        validated(validator, "2");
    } catch (const std::invalid_argument& e) {
        what = e.what();
    }
    QCOMPARE(what, QString("Invalid unit id."));
    QVERIFY_EXCEPTION_THROWN(validator.reformat(Quantity{UnitId(7777), 1.0}, noFlags),
                             std::invalid_argument);
    // An empty text needs no unit.
    QCOMPARE(validated(validator, ""), QString("true quantity 7777 0"));
}

void UnitValidatorTest::idIsSetLater()
{
    UnitValidator validator{Context(0)};
    validator.set_unit_id(geoLength);
    QCOMPARE(int(validator.get_unit_id()), 1001);
    QCOMPARE(validated(validator, "2.5"), QString("true quantity 1001 2.5"));
    validator.set_unit_id(UnitId(16));
    QCOMPARE(int(validator.get_unit_id()), 16);
    QCOMPARE(validated(validator, "2.5"), QString("true quantity 16 2.5"));
}

void UnitValidatorTest::contextIsASnapshot()
{
    const Context before = zel::units::v1::get_active_input_context();
    UnitValidator validator(zel::units::v1::get_active_input_context(), geoLength);
    zel::units::v1::set_active_input_context(Context(6));
    UnitValidator later(zel::units::v1::get_active_input_context(), geoLength);
    const QString kept = validator.reformat(Quantity{geoLength, 2.5}, noFlags);
    const QString fresh = later.reformat(Quantity{geoLength, 2.5}, noFlags);
    zel::units::v1::set_active_input_context(before);
    QCOMPARE(kept, QString("2.500 m"));
    QCOMPARE(fresh, QString("2500 mm"));
    QCOMPARE(validated(validator, "2"), QString("true quantity 1001 2"));
    QCOMPARE(validated(later, "2"), QString("true quantity 1001 0.002"));
}

void UnitValidatorTest::flagsChooseTheLocale()
{
    // Whatever the environment's locale is, its own text is read back with the same flag.
    UnitValidator validator(Context(0), geoLength);
    const QString text = validator.reformat(Quantity{geoLength, 2.5}, localeFlag);
    QCOMPARE(validated(validator, text, localeFlag), QString("true quantity 1001 2.5"));
    const wchar_t point =
        std::use_facet<std::numpunct<wchar_t>>(stdLocaleForFlags(localeFlag)).decimal_point();
    QCOMPARE(text, "2" + QString::fromWCharArray(&point, 1) + "500 m");
}

void UnitValidatorTest::displayAddsThePostfix()
{
    UnitValidator validator(Context(0), geoLength);
    validator.setPostfix("net");
    QCOMPARE(validator.reformatForDisplay(Quantity{geoLength, 2.5}, noFlags),
             QString("2.500 m net"));
}

void UnitValidatorTest::whatWasFormattedIsAccepted()
{
    QVERIFY(rc::check("a formatted length validates and formats alike", [] {
        const int column = *rc::gen::inRange(0, 10);
        const double number = *rc::gen::inRange(-100000000, 100000000) / 7919.0;
        UnitValidator validator(Context(column), geoLength);
        const QString text = validator.reformat(Quantity{geoLength, number}, noFlags);
        RC_LOG() << "column " << column << ", text " << text.toStdString() << '\n';
        boost::any value;
        RC_ASSERT(validator.validate(text, value, noFlags));
        // The text loses digits once; after that it stays as it is.
        RC_ASSERT(validator.reformat(value, noFlags).toStdString() == text.toStdString());
        const auto quantity = boost::any_cast<Quantity>(value);
        RC_ASSERT(quantity.unit_id == geoLength);
        // Half of the last digit shown, which is at most 0.01 ft.
        RC_ASSERT(std::abs(quantity.value - number) <= 0.5 * 0.003048 + 1.0e-9);
    }));
}

void UnitValidatorTest::whatWasTypedSurvivesItsText()
{
    QVERIFY(rc::check("a typed length survives the text that is made of it", [] {
        const int thousandths = *rc::gen::inRange(-1000000, 1000000);
        const QString unit = QString::fromStdString(
            *rc::gen::element<std::string>("", " m", " cm", " mm", " ft", " in"));
        const QString typed = QString::number(thousandths / 1000.0, 'f', 3) + unit;
        RC_LOG() << "typed " << typed.toStdString() << '\n';
        Context context(0);
        context.format_provider().set_decimals(geoLength, 9);
        UnitValidator validator(context, geoLength);
        boost::any value;
        RC_ASSERT(validator.validateWhenFinished(typed, value, noFlags));
        const QString text = validator.reformat(value, noFlags);
        boost::any again;
        RC_ASSERT(validator.validate(text, again, noFlags));
        RC_ASSERT(std::abs(boost::any_cast<Quantity>(again).value -
                           boost::any_cast<Quantity>(value).value) < 1.0e-9);
    }));
}

QTEST_GUILESS_MAIN(UnitValidatorTest)
#include "tst_unit_validator.moc"
