#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "tests/helpers/sanitized.h"
#include "tests/helpers/scoped_global_locale.h"
#include "tests/units/reference/stream_formatter.h"
#include "units/inc/units.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <vector>

using namespace zel::units::v1;
using zel::test::CommaNumbers;
using zel::test::numberText;
namespace reference = zel::test::reference;

Q_DECLARE_METATYPE(std::locale)

namespace {

#ifdef ZEL_TEST_SANITIZED
constexpr int valueCount = 20'000;
#else
constexpr int valueCount = 500'000;
#endif

/// Makes numbers of all kinds, above all such as lie at the border of two texts.
class NumberGenerator
{
public:
    explicit NumberGenerator(unsigned seed)
        : m_random(seed)
    {}

    int below(int limit)
    {
        return static_cast<int>(m_random() % static_cast<unsigned>(limit));
    }

    double next()
    {
        double value = magnitude();
        for (int steps = below(3); steps > 0; --steps) {
            value = std::nextafter(value, below(2) == 0 ? -HUGE_VAL : HUGE_VAL);
        }
        return below(2) == 0 ? -value : value;
    }

private:
    double magnitude()
    {
        switch (below(7)) {
        case 0: { // any pattern of bits
            const std::uint64_t bits = m_random();
            double value = 0.0;
            std::memcpy(&value, &bits, sizeof value);
            return value;
        }
        case 1: // halfway between two texts
            return (below(2'000'000) + 0.5) / std::pow(10.0, below(9));
        case 2: // halfway between two fractions
            return (below(200'000) + 0.5) / (1 << below(9));
        case 3:
            return below(100'000);
        case 4:
            return std::pow(10.0, below(330) - 20);
        case 5: {
            static const std::vector<double> special = {
                0.0,
                std::numeric_limits<double>::infinity(),
                std::numeric_limits<double>::quiet_NaN(),
                std::numeric_limits<double>::denorm_min(),
                std::numeric_limits<double>::min(),
                std::numeric_limits<double>::max(),
                1e24,
                9007199254740992.0,
            };
            return special[static_cast<std::size_t>(below(static_cast<int>(special.size())))];
        }
        default:
            return std::ldexp(below(1'000'000'007), below(80) - 60);
        }
    }

    std::mt19937_64 m_random;
};

/// Digits of another script. Points and thousands are those of the classic locale, so they do not
/// give this locale away.
class OwnDigits : public std::ctype<wchar_t>
{
protected:
    wchar_t do_widen(char c) const override
    {
        return c >= '0' && c <= '9' ? static_cast<wchar_t>(L'\u0660' + (c - '0'))
                                    : std::ctype<wchar_t>::do_widen(c);
    }
    const char* do_widen(const char* begin, const char* end, wchar_t* out) const override
    {
        std::transform(begin, end, out, [this](char c) { return do_widen(c); });
        return end;
    }
};

} // namespace

/// What the library writes, held against the streams that define it.
class QuantityFormatTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void numbersOfAllKinds_data();
    void numbersOfAllKinds();
    void fractionsOfAllKinds_data();
    void fractionsOfAllKinds();
    void allUnitSetsInAllColumns_data();
    void allUnitSetsInAllColumns();

private:
    static void addLocales();
};

void QuantityFormatTest::addLocales()
{
    QTest::addColumn<std::locale>("locale");
    QTest::addColumn<int>("count");
    QTest::newRow("classic locale") << std::locale::classic() << valueCount;
    QTest::newRow("locale with comma and thousands") << CommaNumbers::locale() << valueCount / 10;
    QTest::newRow("locale with digits of its own")
        << std::locale(std::locale::classic(), new OwnDigits) << valueCount / 10;
}

void QuantityFormatTest::numbersOfAllKinds_data()
{
    addLocales();
}

void QuantityFormatTest::numbersOfAllKinds()
{
    QFETCH(int, count);
    QFETCH(std::locale, locale);
    NumberGenerator numbers(std::random_device{}());
    const UnitId length = UnitId(1001);
    std::vector<Context> contexts;
    for (int decimals = -1; decimals < 36; ++decimals) {
        Context context(0);
        context.format_provider().set_decimals(length, decimals);
        contexts.push_back(context);
    }
    for (int i = 0; i < count; ++i) {
        Context& context = contexts[static_cast<std::size_t>(numbers.below(37))];
        const double value = numbers.next();
        // The integer of the exponent is not defined for what has no logarithm.
        const int notation = std::isfinite(value) ? numbers.below(2) : 0;
        context.format_provider().set_notation(length, notation);
        const std::wstring actual = context.format({length, value}, locale);
        const std::wstring expected = reference::quantityText(context, {length, value}, locale);
        QVERIFY2(actual == expected,
                 qPrintable(
                     QStringLiteral("%1 with %2 decimals in notation %3 gives %4, not %5")
                         .arg(numberText(value))
                         .arg(context.format_provider().get_decimals(length))
                         .arg(notation)
                         .arg(QString::fromStdWString(actual), QString::fromStdWString(expected))));
    }
}

void QuantityFormatTest::fractionsOfAllKinds_data()
{
    addLocales();
}

void QuantityFormatTest::fractionsOfAllKinds()
{
    QFETCH(int, count);
    QFETCH(std::locale, locale);
    NumberGenerator numbers(std::random_device{}());
    for (int i = 0; i < count; ++i) {
        const double value = numbers.next();
        const int denominator =
            numbers.below(4) == 0 ? 1 + numbers.below(1'000'000) : 1 << numbers.below(10);
        if (!(std::fabs(value) < 9e18)) {
            continue; // no 64-bit integer, so not defined by the streams
        }
        for (const std::wstring& label : {std::wstring(), std::wstring(L"in")}) {
            const std::wstring actual = formatFraction(value, denominator, label, locale);
            const std::wstring expected =
                reference::fractionText(value, denominator, label, locale);
            QVERIFY2(actual == expected, qPrintable(QStringLiteral("%1 in 1/%2 gives %3, not %4")
                                                        .arg(numberText(value))
                                                        .arg(denominator)
                                                        .arg(QString::fromStdWString(actual),
                                                             QString::fromStdWString(expected))));
        }
    }
}

void QuantityFormatTest::allUnitSetsInAllColumns_data()
{
    addLocales();
}

void QuantityFormatTest::allUnitSetsInAllColumns()
{
    QFETCH(std::locale, locale);
    NumberGenerator numbers(std::random_device{}());
    const ZelUnitProvider units;
    int written = 0;
    for (int column = 0; column < 10; ++column) {
        const Context context(column);
        for (const UnitId id : units.get_unit_ids()) {
            if (!context.converter().can_convert(id, context.format_provider().get_unit(id))) {
                continue; // a set shown in a unit that it does not allow
            }
            for (int i = 0; i < 3; ++i) {
                const double value = numbers.below(20'000'000) / 1000.0 - 10'000.0;
                QCOMPARE(
                    QString::fromStdWString(context.format({id, value}, locale)),
                    QString::fromStdWString(reference::quantityText(context, {id, value}, locale)));
                ++written;
            }
        }
    }
    QVERIFY(written > 10 * 3 * 500);
}

QTEST_GUILESS_MAIN(QuantityFormatTest)
#include "tst_quantity_format.moc"
