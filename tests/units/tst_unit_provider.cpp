#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <functional>
#include <limits>
#include <stdexcept>
#include <type_traits>

using namespace zel::units::v1;

static_assert(std::is_enum_v<zel::units::_bond_enumerators::UnitId::UnitId>);
static_assert(std::is_same_v<std::underlying_type_t<UnitId>, std::int32_t>);
static_assert(std::is_convertible_v<UnitId, int>, "an unscoped enumeration");
static_assert(
    std::is_same_v<zel::units::v1::UnitId, zel::units::_bond_enumerators::UnitId::UnitId>);
static_assert(std::is_same_v<zel::units::UnitId, zel::units::v1::UnitId>);
static_assert(UnitId::FOOT == 213 && UnitId::INCH == 214);
static_assert(std::is_base_of_v<IUnitProvider, ZelUnitProvider>);
static_assert(std::has_virtual_destructor_v<IUnitProvider>);

class UnitProviderTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void unknownIds_data();
    void unknownIds();
    void lengthsAndTheirSet();
    void aliases();
    void labelsOfFractions();
    void zeroIsThePlainUnit();
    void instancesShareTheTables();
    void unknownUnitHasItsText();
};

void UnitProviderTest::unknownIds_data()
{
    QTest::addColumn<int>("id");
    for (const int id : {12, 200, 294, 360, 394, 404, 999, 1035, 1084, 1292, 7777, -1,
                         std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QTest::newRow(qPrintable(QString::number(id))) << id;
    }
}

void UnitProviderTest::unknownIds()
{
    QFETCH(int, id);
    const ZelUnitProvider units;
    const UnitId unit = UnitId(id);
    QVERIFY(!units.has_unit(unit));
    const std::vector<std::function<void()>> questions = {
        [&] { units.get_dimension(unit); }, [&] { units.get_factor(unit); },
        [&] { units.get_label(unit); },     [&] { units.get_aliases(unit); },
        [&] { units.get_set_units(unit); },
    };
    for (const auto& ask : questions) {
        QString text;
        try {
            ask();
        } catch (const std::invalid_argument& e) {
            text = QString::fromUtf8(e.what());
        }
        QCOMPARE(text, QStringLiteral("unit_id"));
    }
}

void UnitProviderTest::lengthsAndTheirSet()
{
    const ZelUnitProvider units;
    QVERIFY(units.has_unit(UnitId(1001)));
    QCOMPARE(units.get_factor(UnitId(1001)), 1.0);
    QVERIFY(units.get_label(UnitId(1001)).empty());
    QCOMPARE(units.get_dimension(UnitId(1001)), units.get_dimension(UnitId(11)));
    QVERIFY_EXCEPTION_THROWN(units.get_aliases(UnitId(1001)), std::invalid_argument);
    QVERIFY(units.get_set_units(UnitId(13)).empty());
}

void UnitProviderTest::aliases()
{
    const ZelUnitProvider units;
    QCOMPARE(units.get_aliases(UnitId(213)), std::vector<std::string>{"'"});
    QCOMPARE(units.get_aliases(UnitId(214)), std::vector<std::string>{"''"});
    QCOMPARE(units.get_aliases(UnitId(216)), std::vector<std::string>{"''"});
    QVERIFY(units.get_aliases(UnitId(215)).empty());
}

void UnitProviderTest::labelsOfFractions()
{
    const ZelUnitProvider units;
    QCOMPARE(units.get_label(UnitId(215)), std::string("##'# #/#"));
    QCOMPARE(units.get_label(UnitId(216)), std::string("# #/#"));
    QCOMPARE(units.get_label(UnitId(5)), std::string("\xc2\xb0"));
}

void UnitProviderTest::zeroIsThePlainUnit()
{
    const ZelUnitProvider units;
    QCOMPARE(units.get_label(UnitId(0)), std::string(" "));
    QVERIFY(units.get_set_units(UnitId(0)).empty());
    QVERIFY(units.get_aliases(UnitId(0)).empty());
}

void UnitProviderTest::instancesShareTheTables()
{
    const ZelUnitProvider one;
    const ZelUnitProvider other;
    QCOMPARE(&one.get_label(UnitId(13)), &other.get_label(UnitId(13)));
    QCOMPARE(&one.get_set_units(UnitId(1001)), &other.get_set_units(UnitId(1001)));
}

void UnitProviderTest::unknownUnitHasItsText()
{
    QString text;
    try {
        throw zel::units::UnknownUnit("furlong");
    } catch (const zel::Exception& e) {
        text = QString::fromUtf8(e.what());
    }
    QCOMPARE(text, QStringLiteral("furlong"));
}

QTEST_GUILESS_MAIN(UnitProviderTest)
#include "tst_unit_provider.moc"
