#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "tests/helpers/sanitized.h"
#include "tests/helpers/scoped_global_locale.h"
#include "tests/units/reference/stream_formatter.h"
#include "units/inc/units.h"

#include <cmath>
#include <limits>
#include <random>

using namespace zel::units::v1;
using zel::test::CommaNumbers;
using zel::test::numberText;

/// The two parsers of feet and inches, which share their form.
class FeetAndInchesTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void parses_data();
    void parses();
    void inchesAreLeftToTheGeneralParser_data();
    void inchesAreLeftToTheGeneralParser();
    void parsesInAnotherLocale();
    void formats_data();
    void formats();
    void formatsInOtherLocales();
    void otherQuantitiesAreReported_data();
    void otherQuantitiesAreReported();
    void negativeDecimalsCountAsFour();
    void lengthsAreWrittenAsDefined();
    void hugeLengthsAreNotWrapped();
    void wholeSixteenthsComeBack();

private:
    struct Parsers
    {
        Parsers(const Context& context)
            : feet(&context.unit_provider(), &context.format_provider(), &context.converter())
            , inches(&context.unit_provider(), &context.format_provider(), &context.converter())
        {}
        FeetAndFractionalInchesParser feet;
        FractionalInchesParser inches;
    };

    static Context contextWithDenominator(int denominator);

    const std::locale& m_locale = std::locale::classic();
};

namespace {

#ifdef ZEL_TEST_SANITIZED
constexpr int lengthCount = 10'000;
#else
constexpr int lengthCount = 200'000;
#endif

QString quantityText(const boost::optional<IConverter::quantity>& q)
{
    return q ? QStringLiteral("%1 of %2").arg(numberText(q->value)).arg(int(q->unit_id))
             : QStringLiteral("none");
}

} // namespace

/// A context that shows feet as 215 and inches as 216, in fractions of an inch.
Context FeetAndInchesTest::contextWithDenominator(int denominator)
{
    Context context(0);
    for (const int id : {213, 214, 1001}) {
        context.format_provider().set_unit(UnitId(id), UnitId(id == 214 ? 216 : 215));
        context.format_provider().set_decimals(UnitId(id), denominator);
    }
    return context;
}

void FeetAndInchesTest::parses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("feet");
    const auto row = [](const char* text, const QString& feet) {
        QTest::newRow(text[0] != 0 ? text : "nothing") << QString::fromUtf8(text) << feet;
    };
    const QString fiveAndAHalf = QStringLiteral("5.5 of 213");
    const QString none = QStringLiteral("none");
    row("5' 6''", fiveAndAHalf);
    row("5'6''", fiveAndAHalf);
    row(" 5 ' 6 '' ", fiveAndAHalf);
    row("5ft 6in", fiveAndAHalf);
    row("\t5\tft\t6\tin\n", fiveAndAHalf);
    row("5' 6 1/2''", numberText(5 + 6.5 * 0.0254 / 0.3048) + " of 213");
    row("1/2' 1 1/2''", numberText(0.5 + 1.5 * 0.0254 / 0.3048) + " of 213");
    row("5.5' 0''", fiveAndAHalf);
    row("5' 1e1''", numberText(5 + 10 * 0.0254 / 0.3048) + " of 213");
    row("5' -1''", none);
    row("-2' 6''", "-1.5 of 213");
    row("-2' -6''", none);
    row("5' -0''", "5 of 213");
    row("x' y''", "0 of 213");
    row("' ''", "0 of 213");
    row("'''", "0 of 213");
    row("5' ''", "5 of 213");
    row("5'", none);
    row("''", none);
    row("6''", none);
    row("5FT 6IN", none);
    row("5 ft", none);
    row("6 in", none);
    row("ftin", "0 of 213");
    row("5ft6ft7in", numberText(5 + 7 * 0.0254 / 0.3048) + " of 213");
    row("5'\n6''", none);
    row("\n5'6''\n", fiveAndAHalf);
    row("5'6''x", none);
    row("5' 6in", none);
    row("", none);
}

void FeetAndInchesTest::parses()
{
    QFETCH(QString, text);
    QFETCH(QString, feet);
    const Context context(0);
    const Parsers parsers(context);
    QCOMPARE(quantityText(parsers.feet.parse(text.toStdWString(), m_locale)), feet);
    QCOMPARE(quantityText(parsers.inches.parse(text.toStdWString(), m_locale)),
             QStringLiteral("none"));
}

void FeetAndInchesTest::inchesAreLeftToTheGeneralParser_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("inches");
    QTest::newRow("sign") << "6''" << 6.0;
    QTest::newRow("word") << "6 in" << 6.0;
    QTest::newRow("mixed fraction") << "6 1/2''" << 6.5;
    QTest::newRow("negative") << "-6''" << -6.0;
    QTest::newRow("foot sign") << "5'" << 60.0;
    QTest::newRow("foot word") << "5 ft" << 60.0;
}

void FeetAndInchesTest::inchesAreLeftToTheGeneralParser()
{
    QFETCH(QString, text);
    QFETCH(double, inches);
    const Context context(9);
    const auto q = context.parse(text.toStdWString(), UnitId(1001), m_locale);
    QVERIFY(q.has_value());
    QCOMPARE(int(q->unit_id), 1001);
    QCOMPARE(q->value, inches * 0.0254);
}

void FeetAndInchesTest::parsesInAnotherLocale()
{
    const Context context(0);
    const auto q = Parsers(context).feet.parse(L"5,5' 3,0''", CommaNumbers::locale());
    QCOMPARE(quantityText(q), QStringLiteral("5.75 of 213"));
    // The stream of the classic locale stops at the comma.
    QCOMPARE(quantityText(Parsers(context).feet.parse(L"5,5' 3,0''", m_locale)),
             QStringLiteral("5.25 of 213"));
}

void FeetAndInchesTest::formats_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("denominator");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* text, int id, int denominator, double value) {
        QTest::newRow(
            qPrintable(QStringLiteral("%1 of %2 in 1/%3").arg(value).arg(id).arg(denominator)))
            << id << denominator << value << QString::fromUtf8(text);
    };
    row("5' 6 ''", 213, 16, 5.5);
    row("5' 6 1/2 ''", 213, 16, 5.541666);
    row("5' 11 7/8 ''", 213, 16, 5.99);
    row("6' 0 ''", 213, 16, 5.999);
    row("0' 0 ''", 213, 16, 0.0);
    row("-2' -6 ''", 213, 16, -2.5);
    row("0' -3 ''", 213, 16, -0.25);
    row("-1' -12 ''", 213, 16, -2.0);     // 1/512 is added to negative values, too
    row("0' 1/2 ''", 213, 16, -1.0 / 24); // the sign is lost
    row("1/2 ''", 214, 8, 0.5);
    row("6 1/4 ''", 214, 8, 6.25);
    row("3 ''", 214, 8, 2.999);
    row("0 ''", 214, 8, 0.0);
    row("1/2 ''", 214, 8, -0.5);
    row("-2 1/2 ''", 214, 8, -2.5);
    row("5' 6 ''", 1001, 16, 5.5 * 0.3048);
}

void FeetAndInchesTest::formats()
{
    QFETCH(int, id);
    QFETCH(int, denominator);
    QFETCH(double, value);
    QFETCH(QString, text);
    const Context context = contextWithDenominator(denominator);
    QCOMPARE(QString::fromStdWString(context.format({UnitId(id), value}, m_locale)), text);
    const Parsers parsers(context);
    const IParser& parser = id == 214 ? static_cast<const IParser&>(parsers.inches) : parsers.feet;
    QCOMPARE(QString::fromStdWString(parser.format({UnitId(id), value}, m_locale)), text);
}

void FeetAndInchesTest::formatsInOtherLocales()
{
    const Context context = contextWithDenominator(10000);
    const auto format = [&](const std::locale& locale) {
        return context.format({UnitId(213), 12345.0 + 0.4999 / 12}, locale);
    };
    // The whole feet are written in the program's locale, the inches in that of the call.
    QCOMPARE(format(m_locale), std::wstring(L"12345' 4999/10000 ''"));
    QCOMPARE(format(CommaNumbers::locale()), std::wstring(L"12345' 4.999/10.000 ''"));
    const zel::test::ScopedGlobalLocale global(CommaNumbers::locale());
    QCOMPARE(format(m_locale), std::wstring(L"12.345' 4999/10000 ''"));
}

void FeetAndInchesTest::otherQuantitiesAreReported_data()
{
    QTest::addColumn<bool>("asFeet");
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("file");
    QTest::newRow("feet") << true << "m_converter->can_convert(q.unit_id, UnitId::FOOT)"
                          << "units/src/formatting/feet_and_fractional_inches_parser.cpp";
    QTest::newRow("inches") << false << "m_converter->can_convert(q.unit_id, UnitId::INCH)"
                            << "units/src/formatting/fractional_inches_parser.cpp";
}

void FeetAndInchesTest::otherQuantitiesAreReported()
{
    QFETCH(bool, asFeet);
    QFETCH(QString, expression);
    QFETCH(QString, file);
    Context context(0);
    context.format_provider().set_unit(UnitId(1002), UnitId(asFeet ? 215 : 216));
    QCOMPARE(context.format({UnitId(1002), 1.0}, m_locale), std::wstring());
    const std::vector<zel::smartassert::Report> reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(QString::fromStdString(reports[0].expression), expression);
    QCOMPARE(QString::fromStdString(reports[0].file), file);
}

void FeetAndInchesTest::negativeDecimalsCountAsFour()
{
    const Context context = contextWithDenominator(-1);
    const QStringList reported = {QStringLiteral("precision >= 0")};
    // 0.35 is another fraction in halves, thirds, fifths and eighths.
    QCOMPARE(context.format({UnitId(213), 5.0 + 0.35 / 12}, m_locale), std::wstring(L"5' 1/4 ''"));
    std::vector<zel::smartassert::Report> reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("precision >= 0"));
    QCOMPARE(reports[0].file,
             std::string("units/src/formatting/feet_and_fractional_inches_parser.cpp"));
    QCOMPARE(context.format({UnitId(214), 6.35}, m_locale), std::wstring(L"6 1/4 ''"));
    reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("precision >= 0"));
    QCOMPARE(reports[0].file, std::string("units/src/formatting/fractional_inches_parser.cpp"));
}

/// Above all where the last bit decides between two fractions.
void FeetAndInchesTest::lengthsAreWrittenAsDefined()
{
    std::mt19937 random(std::random_device{}());
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % unsigned(limit));
    };
    for (int i = 0; i < lengthCount; ++i) {
        const int denominator = below(4) == 0 ? 1 + below(1000) : 1 << below(9);
        const Context context = contextWithDenominator(denominator);
        const UnitId id = UnitId(below(2) == 0 ? 213 : 214);
        double value = (below(2'000'000) - 1'000'000) / (24.0 * denominator);
        if (below(3) == 0) {
            value = std::nextafter(value, below(2) == 0 ? -1e9 : 1e9);
        }
        const std::wstring text = context.format({id, value}, m_locale);
        const std::wstring expected =
            zel::test::reference::quantityText(context, {id, value}, m_locale);
        QVERIFY2(text == expected, qPrintable(QStringLiteral("%1 of %2 in 1/%3 gives %4, not %5")
                                                  .arg(numberText(value))
                                                  .arg(int(id))
                                                  .arg(denominator)
                                                  .arg(QString::fromStdWString(text),
                                                       QString::fromStdWString(expected))));
    }
}

void FeetAndInchesTest::hugeLengthsAreNotWrapped()
{
    const Context context = contextWithDenominator(16);
    const auto format = [&](double feet) { return context.format({UnitId(213), feet}, m_locale); };
    QCOMPARE(format(3e9), std::wstring(L"3000000000' 0 ''"));
    QCOMPARE(format(-3e9), std::wstring(L"-2999999999' -12 ''"));
    QCOMPARE(format(1e22), std::wstring(L"9999999999999997902848' 0 ''"));
    QCOMPARE(format(std::numeric_limits<double>::infinity()).substr(0, 4), std::wstring(L"inf'"));
    QVERIFY(format(std::numeric_limits<double>::quiet_NaN()).rfind(L"nan'", 0) == 0);
}

void FeetAndInchesTest::wholeSixteenthsComeBack()
{
    const Context context = contextWithDenominator(16);
    for (int sixteenths = 0; sixteenths < 16 * 12 * 30; ++sixteenths) {
        const double feet = sixteenths / (16.0 * 12.0);
        const std::wstring text = context.format({UnitId(213), feet}, m_locale);
        const auto q = Parsers(context).feet.parse(text, m_locale);
        QVERIFY2(q && qAbs(q->value - feet) < 1e-12, qPrintable(QString::fromStdWString(text)));
    }
}

QTEST_GUILESS_MAIN(FeetAndInchesTest)
#include "tst_feet_and_inches.moc"
