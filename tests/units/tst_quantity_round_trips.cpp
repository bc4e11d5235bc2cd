#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <QTest>
#include <rapidcheck.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

using namespace zel::units::v1;

/// Text that was written is understood again, for numbers of all magnitudes. RapidCheck prints the
/// number with which a property fails, and the rest of the input beside it.
class QuantityRoundTripsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void unitSetsInAllColumns();
    void plainUnits();
    void feetAndInches();
    void allDigitsOfANumber();
    void mixedFractions();
    void typedNumberMeansTheShownUnit();
};

namespace {

using quantity = IConverter::quantity;

const std::locale& locale = std::locale::classic();

/// A number of up to seven digits, from a billionth to a million.
double anyNumber()
{
    const int digits = *rc::gen::inRange(-9'999'999, 10'000'000);
    const int exponent = *rc::gen::inRange(-15, 1);
    return digits * std::pow(10.0, exponent);
}

std::string narrow(const std::wstring& text)
{
    return QString::fromStdWString(text).toStdString();
}

/// Half of the last digit that is shown, in base units.
double halfOfLastDigit(const Context& context, UnitId id, double value)
{
    const UnitsetFormatProvider& format = context.format_provider();
    const UnitId shown = format.get_unit(id);
    double digit =
        std::pow(10.0, -format.get_decimals(id)) * context.unit_provider().get_factor(shown);
    if (format.get_notation(id) == Notation::Scientific && value != 0.0) {
        const double number = context.converter().convert({id, value}, shown).value;
        digit *= std::pow(10.0, std::trunc(std::log10(std::fabs(number))));
    }
    return 0.5 * digit / context.unit_provider().get_factor(id);
}

/// Checks that the text of the quantity means the quantity, which has the same text then.
void checkRoundTrip(const Context& context, UnitId id, double value)
{
    const std::wstring text = context.format({id, value}, locale);
    RC_LOG() << "id " << id << ", text \"" << narrow(text) << "\"\n";
    const boost::optional<quantity> q = context.parse(text, id, locale);
    RC_ASSERT(q.has_value());
    RC_ASSERT(q->unit_id == id);
    const double tolerance =
        halfOfLastDigit(context, id, value) * (1 + 1e-9) + std::fabs(value) * 1e-13;
    RC_ASSERT(std::fabs(q->value - value) <= tolerance);
    // Beside a power of ten the last bit of a number decides whether its mantissa is 0.1 or 1, and
    // so how many digits are shown.
    if (context.format_provider().get_notation(id) != Notation::Scientific) {
        RC_ASSERT(narrow(context.format(*q, locale)) == narrow(text));
    }
}

} // namespace

void QuantityRoundTripsTest::unitSetsInAllColumns()
{
    int checked = 0;
    QVERIFY(rc::check("the text of a quantity of a unit set means the quantity", [&checked] {
        const double value = anyNumber();
        for (int column = 0; column < 10; ++column) {
            const Context context(column);
            for (const UnitId id : context.unit_provider().get_unit_ids()) {
                const UnitId shown = context.format_provider().get_unit(id);
                if (id < 1000 || !context.converter().can_convert(id, shown)) {
                    continue; // two sets are shown in a unit that they do not allow
                }
                RC_LOG() << "column " << column << ", ";
                checkRoundTrip(context, id, value * context.unit_provider().get_factor(shown));
                ++checked;
            }
        }
    }));
    QVERIFY(checked >= 10 * 133 * 100);
}

void QuantityRoundTripsTest::plainUnits()
{
    int checked = 0;
    QVERIFY(rc::check("the text of a quantity of a plain unit means the quantity", [&checked] {
        const double value = anyNumber();
        const Context context(0);
        for (const UnitId id : context.unit_provider().get_unit_ids()) {
            if (id >= 1000) {
                break;
            }
            const std::string& label = context.unit_provider().get_label(id);
            // Labels that cannot be typed, and fractions of an inch, which lose a sign.
            if (label == " " || label.find_first_of(".#") != std::string::npos) {
                continue;
            }
            if (context.parse(L"1 " + QString::fromStdString(label).toStdWString(), id, locale)
                    ->value != 1.0) {
                continue; // the label means a unit of the same dimension and another size
            }
            checkRoundTrip(context, id, value);
            ++checked;
        }
    }));
    QVERIFY(checked > 300 * 100);
}

void QuantityRoundTripsTest::feetAndInches()
{
    QVERIFY(rc::check("a length in feet and fractional inches means itself", [] {
        const double feet = std::fabs(anyNumber());
        const int denominator = *rc::gen::inRange(1, 257);
        Context context(0);
        context.format_provider().set_unit(UnitId(1001), UnitId(215));
        context.format_provider().set_decimals(UnitId(1001), denominator);
        const std::wstring text = context.format({UnitId(1001), feet * 0.3048}, locale);
        RC_LOG() << feet << " feet, text \"" << narrow(text) << "\"\n";
        const boost::optional<quantity> q = context.parse(text, UnitId(1001), locale);
        RC_ASSERT(q.has_value());
        // Half a step, and what is below a whole foot by 1/512 counts as above it.
        const double tolerance = (0.5 / denominator + 2 * 12.0 / 512) * 0.0254;
        RC_ASSERT(std::fabs(q->value - feet * 0.3048) <= tolerance + feet * 1e-12);
    }));
}

void QuantityRoundTripsTest::allDigitsOfANumber()
{
    QVERIFY(rc::check("a number with 17 digits is read to the last bit", [] {
        const double number =
            *rc::gen::arbitrary<double>() * std::pow(10.0, *rc::gen::inRange(-300, 300));
        RC_PRE(std::isfinite(number));
        char text[40];
        std::snprintf(text, sizeof text, "%.17g", number);
        const Context context(0);
        for (const char* unit : {"", " ", "m", " m", "\tkN/m2"}) {
            const std::string typed = std::string(text) + unit;
            RC_LOG() << "typed \"" << typed << "\"\n";
            const Parser parser(&context.unit_provider(), &context.format_provider(),
                                &context.converter());
            const auto q = parser.parse(std::wstring(typed.begin(), typed.end()), locale);
            RC_ASSERT(q.has_value());
            RC_ASSERT(q->value == number);
        }
    }));
}

void QuantityRoundTripsTest::mixedFractions()
{
    QVERIFY(rc::check("a mixed fraction is its whole part and its fraction", [] {
        const int whole = *rc::gen::inRange(0, 1'000'000);
        const int upper = *rc::gen::inRange(0, 1'000);
        const int lower = *rc::gen::inRange(1, 1'000);
        const bool negative = *rc::gen::arbitrary<bool>();
        const std::wstring text = (negative ? L"-" : L"") + std::to_wstring(whole) + L' ' +
                                  std::to_wstring(upper) + L'/' + std::to_wstring(lower);
        RC_LOG() << "typed \"" << narrow(text) << "\"\n";
        const double expected = (negative ? -1.0 : 1.0) * (double(upper) / lower + whole);
        RC_ASSERT(parseNumber(text, locale).value() == expected);
        const auto q = Context(0).parse(text + L" m", UnitId(13), locale);
        RC_ASSERT(q.has_value());
        RC_ASSERT(q->value == expected);
    }));
}

void QuantityRoundTripsTest::typedNumberMeansTheShownUnit()
{
    QVERIFY(rc::check("a number without a unit means the same as with the shown one", [] {
        const double value = anyNumber();
        char text[40];
        std::snprintf(text, sizeof text, "%.9g", value);
        const std::wstring number(text, text + std::strlen(text));
        for (int column = 0; column < 10; ++column) {
            const Context context(column);
            for (const UnitId id : context.unit_provider().get_unit_ids()) {
                const UnitId shown = context.format_provider().get_unit(id);
                if (id < 1000 || !context.converter().can_convert(id, shown)) {
                    continue;
                }
                const std::string& label = context.unit_provider().get_label(shown);
                RC_LOG() << "column " << column << ", id " << id << ", typed \"" << text << " "
                         << label << "\"\n";
                const auto bare = context.parse(number, id, locale);
                const auto labelled = context.parse(
                    number + L' ' + QString::fromStdString(label).toStdWString(), id, locale);
                RC_ASSERT(bare.has_value());
                RC_ASSERT(labelled.has_value());
                RC_ASSERT(bare->value == labelled->value);
            }
        }
    }));
}

QTEST_GUILESS_MAIN(QuantityRoundTripsTest)
#include "tst_quantity_round_trips.moc"
