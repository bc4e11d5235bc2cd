#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <algorithm>
#include <stdexcept>
#include <typeinfo>

using namespace zel::units::v1;

static_assert(std::is_base_of_v<IConverter, Converter>);

class ConverterTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void needsAProvider();
    void canConvert_data();
    void canConvert();
    void canConvertAsksBothSides();
    void setsConvertToTheirUnitsAlone();
    void setThatIsConvertedFromDecides();
    void answersMayShareOneVector();
    void incompatibleUnitsAreReportedAndThrown();
    void multipliesByTheReciprocal();
    void fromBaseDivides();
    void addsNoOffset();
    void unknownIdsThrow();
    void followsItsProvider();

private:
    template <class Expected, class Call>
    static QString textOf(Call call);

    ZelUnitProvider m_units;
    Converter m_converter = [this] {
        Converter converter;
        converter.set_unit_provider(&m_units);
        return converter;
    }();
};

/// The text of the exception that the call throws.
template <class Expected, class Call>
QString ConverterTest::textOf(Call call)
{
    try {
        call();
    } catch (const Expected& e) {
        return typeid(e) == typeid(Expected) ? QString::fromUtf8(e.what())
                                             : QStringLiteral("another type");
    }
    return QStringLiteral("nothing thrown");
}

void ConverterTest::needsAProvider()
{
    Converter converter;
    const QString none = QStringLiteral("No unit provider set.");
    const auto check = [&converter, &none] {
        QCOMPARE(textOf<std::logic_error>([&] { converter.can_convert(UnitId(13), UnitId(13)); }),
                 none);
        QCOMPARE(textOf<std::logic_error>([&] {
                     converter.convert({UnitId(13), 1.0}, UnitId(13));
                 }),
                 none);
        QCOMPARE(textOf<std::logic_error>([&] { converter.to_base({UnitId(13), 1.0}); }), none);
        QCOMPARE(textOf<std::logic_error>([&] { converter.from_base(1.0, UnitId(13)); }), none);
    };
    check();
    converter.set_unit_provider(&m_units);
    QVERIFY(converter.can_convert(UnitId(13), UnitId(13)));
    converter.set_unit_provider(nullptr);
    check();
}

void ConverterTest::canConvert_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<bool>("can");
    QTest::newRow("an unknown id to itself") << 7777 << 7777 << true;
    QTest::newRow("by dimension") << 13 << 213 << true;
    QTest::newRow("set to a unit it leaves out") << 1001 << 14 << false;
    QTest::newRow("unit to a set that leaves it out") << 14 << 1001 << false;
    QTest::newRow("units of one dimension") << 14 << 13 << true;
    QTest::newRow("set to its unit") << 1001 << 16 << true;
    QTest::newRow("unit to its set") << 16 << 1001 << true;
    QTest::newRow("two sets of lengths") << 1001 << 1000 << false;
    QTest::newRow("a set to itself") << 1001 << 1001 << true;
    QTest::newRow("same label, other dimension") << 79 << 78 << false;
    QTest::newRow("celsius of both kinds") << 6 << 202 << false;
}

void ConverterTest::canConvert()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(bool, can);
    QCOMPARE(m_converter.can_convert(UnitId(from), UnitId(to)), can);
}

void ConverterTest::canConvertAsksBothSides()
{
    const QString unknown = QStringLiteral("unit_id");
    const auto text = [&](int from, int to) {
        return textOf<std::invalid_argument>(
            [&] { m_converter.can_convert(UnitId(from), UnitId(to)); });
    };
    QCOMPARE(text(7777, 13), unknown);
    QCOMPARE(text(13, 7777), unknown);
    QCOMPARE(text(1001, 7777), unknown);
    QCOMPARE(text(7777, 1001), unknown);
}

void ConverterTest::setsConvertToTheirUnitsAlone()
{
    int convertible = 0;
    for (const UnitId from : m_units.get_unit_ids()) {
        for (const UnitId to : m_units.get_unit_ids()) {
            if (from == to || (from < 1000 && to < 1000)) {
                continue;
            }
            const UnitId set = from >= 1000 ? from : to;
            const UnitId other = from >= 1000 ? to : from;
            const std::vector<UnitId>& allowed = m_units.get_set_units(set);
            const bool expected = std::find(allowed.begin(), allowed.end(), other) != allowed.end();
            QCOMPARE(m_converter.can_convert(from, to), expected);
            convertible += expected ? 1 : 0;
        }
    }
    QVERIFY(convertible > 1000);
}

/// A provider of the host's, of whose unit sets one allows another.
class NestedSets : public ZelUnitProvider
{
public:
    const std::vector<UnitId>& get_set_units(UnitId id) const override
    {
        static const std::vector<UnitId> outer = {UnitId(1001), UnitId(13)};
        return id == 1000 ? outer : ZelUnitProvider::get_set_units(id);
    }
};

void ConverterTest::setThatIsConvertedFromDecides()
{
    NestedSets units;
    Converter converter;
    converter.set_unit_provider(&units);
    QVERIFY(converter.can_convert(UnitId(1000), UnitId(1001)));
    QVERIFY(!converter.can_convert(UnitId(1001), UnitId(1000)));
    QVERIFY(converter.can_convert(UnitId(13), UnitId(1000)));
    QVERIFY(!converter.can_convert(UnitId(16), UnitId(1000)));
}

/// A provider of the host's, which writes every answer into the same vector.
class OneVector : public ZelUnitProvider
{
public:
    const std::vector<UnitId>& get_set_units(UnitId id) const override
    {
        m_answer = ZelUnitProvider::get_set_units(id);
        return m_answer;
    }

private:
    mutable std::vector<UnitId> m_answer;
};

void ConverterTest::answersMayShareOneVector()
{
    OneVector units;
    Converter converter;
    converter.set_unit_provider(&units);
    QVERIFY(converter.can_convert(UnitId(1001), UnitId(13)));
    QVERIFY(!converter.can_convert(UnitId(1001), UnitId(14)));
    QVERIFY(converter.can_convert(UnitId(13), UnitId(1001)));
    QVERIFY(!converter.can_convert(UnitId(1001), UnitId(1000)));
    QCOMPARE(converter.convert({UnitId(1001), 5.0}, UnitId(13)).value, 5.0);
}

void ConverterTest::incompatibleUnitsAreReportedAndThrown()
{
    QCOMPARE(textOf<std::invalid_argument>([&] {
                 m_converter.convert({UnitId(6), 20.0}, UnitId(201));
             }),
             QStringLiteral("Incompatible units."));
    const std::vector<zel::smartassert::Report> reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("can_convert(q.unit_id, unit_id)"));
    QCOMPARE(reports[0].file, std::string("units/src/definitions/converter.cpp"));
    const std::vector<std::pair<std::string, std::wstring>> values = {{"q.unit_id", L"6"},
                                                                      {"unit_id", L"201"}};
    QVERIFY(reports[0].values == values);
    QCOMPARE(reports[0].message, std::string());
}

void ConverterTest::multipliesByTheReciprocal()
{
    const auto converted = [this](int from, double value, int to) {
        const IConverter::quantity q = m_converter.convert({UnitId(from), value}, UnitId(to));
        return q.unit_id == to ? q.value : -1.0;
    };
    const volatile double foot = 0.3048;
    const volatile double inch = 0.0254;
    QVERIFY(converted(213, 1.0, 214) == (foot * 1.0) * (1.0 / inch));
    QVERIFY(converted(13, 7.0, 214) == (1.0 * 7.0) * (1.0 / inch));
    QVERIFY(converted(13, 7.0, 214) != 7.0 / inch);
    QVERIFY(converted(13, 5.0, 1001) == 5.0);
    QVERIFY(converted(1001, 5.0, 16) == 5.0 * (1.0 / 0.001));
    QVERIFY(converted(62, 2.5, 60) == (1.0 * 2.5) * (1.0 / 0.001));
}

void ConverterTest::fromBaseDivides()
{
    const volatile double foot = 0.3048;
    const IConverter::quantity q = m_converter.from_base(5.0, UnitId(213));
    QCOMPARE(int(q.unit_id), 213);
    QVERIFY(q.value == 5.0 / foot);
    QVERIFY(q.value != 5.0 * (1.0 / foot));
    QVERIFY(m_converter.to_base({UnitId(213), 2.0}) == foot * 2.0);
    QVERIFY(m_converter.to_base({UnitId(1001), 5.0}) == 5.0);
}

void ConverterTest::addsNoOffset()
{
    QCOMPARE(m_converter.convert({UnitId(201), 0.0}, UnitId(202)).value, 0.0);
    QCOMPARE(m_converter.convert({UnitId(202), 20.0}, UnitId(201)).value, 20.0);
}

void ConverterTest::unknownIdsThrow()
{
    const QString unknown = QStringLiteral("unit_id");
    const auto text = [](auto call) { return textOf<std::invalid_argument>(call); };
    QCOMPARE(text([&] { m_converter.convert({UnitId(7777), 1.0}, UnitId(13)); }), unknown);
    QCOMPARE(text([&] { m_converter.convert({UnitId(7777), 1.0}, UnitId(7777)); }), unknown);
    QCOMPARE(text([&] { m_converter.to_base({UnitId(7777), 1.0}); }), unknown);
    QCOMPARE(text([&] { m_converter.from_base(1.0, UnitId(7777)); }), unknown);
}

/// A provider of the host's, whose one unit changes its size.
class GrowingUnit : public ZelUnitProvider
{
public:
    double get_factor(UnitId) const override
    {
        return factor;
    }

    double factor = 2.0;
};

void ConverterTest::followsItsProvider()
{
    GrowingUnit units;
    Converter converter;
    converter.set_unit_provider(&units);
    QCOMPARE(converter.to_base({UnitId(13), 3.0}), 6.0);
    units.factor = 4.0;
    QCOMPARE(converter.to_base({UnitId(13), 3.0}), 12.0);
}

QTEST_GUILESS_MAIN(ConverterTest)
#include "tst_converter.moc"
