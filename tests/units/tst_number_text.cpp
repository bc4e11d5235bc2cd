#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "tests/helpers/sanitized.h"
#include "tests/helpers/scoped_global_locale.h"
#include "units/inc/units.h"

#include <cmath>
#include <limits>
#include <random>
#include <sstream>

using namespace zel::units::v1;
using zel::test::CommaNumbers;
using zel::test::numberText;

namespace {

#ifdef ZEL_TEST_SANITIZED
constexpr int numberCount = 10'000;
#else
constexpr int numberCount = 200'000;
#endif

/// Makes texts of numbers of any length, many of them just between two doubles.
class NumberTextGenerator
{
public:
    explicit NumberTextGenerator(unsigned seed)
        : m_random(seed)
    {}

    std::wstring next()
    {
        std::wstring text = below(3) == 0 ? between() : digits();
        if (below(2) == 0) {
            text += below(2) == 0 ? L'e' : L'E';
            text += below(3) == 0 ? L"-" : below(2) == 0 ? L"+" : L"";
            text += std::to_wstring(below(below(4) == 0 ? 400 : 30));
        }
        return (below(3) == 0 ? L"-" : L"") + text;
    }

private:
    int below(int limit)
    {
        return static_cast<int>(m_random() % static_cast<unsigned>(limit));
    }

    std::wstring digits()
    {
        std::wstring text;
        const int count = below(4) == 0 ? 100 + below(60) : below(25);
        const wchar_t mostly = below(2) == 0 ? L'0' : L'9';
        for (int i = 0; i < count; ++i) {
            text += below(3) == 0 ? mostly : static_cast<wchar_t>(L'0' + below(10));
        }
        return text.insert(static_cast<std::size_t>(below(count + 1)), below(5) == 0 ? L"" : L".");
    }

    /// A whole number halfway between two doubles, or a little beside it. Behind the point it is
    /// as long as the reader's own buffer and longer.
    std::wstring between()
    {
        const auto lower = (std::uint64_t(1) << 53) + 2 * (m_random() >> 12);
        std::wstring text = std::to_wstring(lower + 1) + L'.';
        text.append(static_cast<std::size_t>(90 + below(40)), L'0');
        return below(2) == 0 ? text + L'1' : text;
    }

    std::mt19937_64 m_random;
};

class BlankThousands : public CommaNumbers
{
protected:
    wchar_t do_thousands_sep() const override
    {
        return L' ';
    }
};

class NumbersInDozens : public std::num_get<wchar_t>
{
protected:
    iter_type do_get(iter_type begin, iter_type end, std::ios_base& stream,
                     std::ios_base::iostate& state, double& number) const override
    {
        const iter_type behind = std::num_get<wchar_t>::do_get(begin, end, stream, state, number);
        number *= 12;
        return behind;
    }
};

} // namespace

class NumberTextTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void parsesNumbers_data();
    void parsesNumbers();
    void parsesNumbersOfAnotherLocale_data();
    void parsesNumbersOfAnotherLocale();
    void blanksBehindTheWholePartAreReadWithIt_data();
    void blanksBehindTheWholePartAreReadWithIt();
    void numbersAreReadAsByAStream_data();
    void numbersAreReadAsByAStream();
    void localeReadsNumbersItself();
    void negativeZeroKeepsItsSign();
    void formatsFractions_data();
    void formatsFractions();
    void formatsFractionsOfAnotherLocale();
    void hugeAndOtherValuesAreWrittenAsTheyAre_data();
    void hugeAndOtherValuesAreWrittenAsTheyAre();
    void denominatorZeroIsReported();
};

void NumberTextTest::parsesNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("number");
    const auto row = [](const char* text, const char* number) {
        QTest::newRow(text[0] != 0 ? text : "nothing") << QString::fromUtf8(text) << number;
    };
    row("2.5", "2.5");
    row("-2.5", "-2.5");
    row("+2.5", "2.5");
    row(" 2.5", "2.5");
    row("2.5 m", "2.5");
    row("2,5", "2");
    row("1.2.3", "1.2");
    row(".5", "0.5");
    row("5.", "5");
    row("1e3", "1000");
    row("1E-3", "0.001");
    row("1e+3", "1000");
    row("1.5e3.5", "1500");
    row("", "0");
    row(" ", "0");
    row(".", "0");
    row("-", "0");
    row("abc", "0");
    row("e5", "0");
    // A stream takes these for the beginning of an exponent, and then for no number at all.
    row("1e", "0");
    row("1e+", "0");
    row("2ex", "0");
    row("1e999", "1.7976931348623157e+308");
    row("-1e999", "-1.7976931348623157e+308");
    row("1e-999", "0");
    row("4.9e-324", "4.9406564584124654e-324");
    row("2.2250738585072011e-308", "2.2250738585072009e-308");
    row("0x10", "0");
    row("nan", "0");
    row("inf", "0");
    row("9007199254740993", "9007199254740992");
    row("0.1000000000000000055511151231257827021181583404541015625000000000000000000000000000000000"
        "000000000000000000000000000000000000000000000000000000000000000000000000000001",
        "0.10000000000000001");
    row("3/4", "0.75");
    row("-3/4", "-0.75");
    row("1 3/4", "1.75");
    row("1\t \n3/4", "1.75");
    row("-1 3/4", "-1.75");
    row("1 -3/4", "-1.75");
    row("-1 -3/4", "-1.75");
    row("--3/4", "-0.75");
    row("---3/4", "0");
    row("- 3/4", "0");
    row("13/4", "3.25");
    row("1 3/4 ", "1");
    row(" 1 3/4", "1");
    row("1.5/2", "1.5");
    row("3/ 4", "3");
    row("3 /4", "3");
    row("/4", "0");
    row("3/", "3");
    row("1/2/3", "1");
    row("1/0", "inf");
    row("-1/0", "-inf");
    row("0/0", "nan");
    row("5 0/0", "nan");
}

void NumberTextTest::parsesNumbers()
{
    QFETCH(QString, text);
    QFETCH(QString, number);
    const auto parsed = parseNumber(text.toStdWString(), std::locale::classic());
    QVERIFY(parsed.has_value());
    QCOMPARE(numberText(*parsed), number);
}

void NumberTextTest::parsesNumbersOfAnotherLocale_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("comma") << "2,5" << 2.5;
    QTest::newRow("thousands") << "1.234.567,5" << 1234567.5;
    QTest::newRow("exponent") << "2,5e2" << 250.0;
    QTest::newRow("fraction") << "1 3/4" << 1.75;
    QTest::newRow("thousands in a fraction") << "1234 3/4" << 1234.75;
}

void NumberTextTest::parsesNumbersOfAnotherLocale()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    const auto parsed = parseNumber(text.toStdWString(), CommaNumbers::locale());
    QVERIFY(parsed.has_value());
    QCOMPARE(*parsed, number);
}

void NumberTextTest::blanksBehindTheWholePartAreReadWithIt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("one blank") << "9 3/4" << 9.75;
    QTest::newRow("two blanks are no number of this locale") << "9  3/4" << 0.75;
    QTest::newRow("another blank") << "9\t\t3/4" << 9.75;
    QTest::newRow("thousands") << "1234 3/4" << 1234.75;
}

/// In a locale that writes a blank between thousands.
void NumberTextTest::blanksBehindTheWholePartAreReadWithIt()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    const std::locale locale(std::locale::classic(), new BlankThousands);
    const auto parsed = parseNumber(text.toStdWString(), locale);
    QVERIFY(parsed.has_value());
    QCOMPARE(*parsed, number);
}

void NumberTextTest::numbersAreReadAsByAStream_data()
{
    QTest::addColumn<bool>("classic");
    QTest::addColumn<int>("count");
    QTest::newRow("classic locale") << true << numberCount;
    QTest::newRow("locale with comma and thousands") << false << numberCount / 10;
}

void NumberTextTest::numbersAreReadAsByAStream()
{
    QFETCH(bool, classic);
    QFETCH(int, count);
    const std::locale locale = classic ? std::locale::classic() : CommaNumbers::locale();
    NumberTextGenerator texts(std::random_device{}());
    for (int i = 0; i < count; ++i) {
        const std::wstring text = texts.next();
        std::wistringstream stream(text);
        stream.imbue(locale);
        double expected = 0.0;
        stream >> expected;
        const auto actual = parseNumber(text, locale);
        QVERIFY2(actual && numberText(*actual) == numberText(expected),
                 qPrintable(QStringLiteral("%1 is read as %2, not %3")
                                .arg(QString::fromStdWString(text),
                                     numberText(actual.value_or(-4711.0)), numberText(expected))));
    }
}

/// Not just what its number format tells decides.
void NumberTextTest::localeReadsNumbersItself()
{
    const std::locale locale(std::locale::classic(), new NumbersInDozens);
    QCOMPARE(parseNumber(L"2.5", locale).value(), 30.0);
    QCOMPARE(parseNumber(L"1 3/4", locale).value(), 12.75);
}

void NumberTextTest::negativeZeroKeepsItsSign()
{
    QVERIFY(std::signbit(*parseNumber(L"-0", std::locale::classic())));
    QVERIFY(std::signbit(*parseNumber(L"-0/4", std::locale::classic())));
    QVERIFY(!std::signbit(*parseNumber(L"-", std::locale::classic())));
}

void NumberTextTest::formatsFractions_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("denominator");
    QTest::addColumn<QString>("text");
    const auto row = [](double value, int denominator, const char* text) {
        QTest::newRow(qPrintable(QStringLiteral("%1 in 1/%2").arg(value).arg(denominator)))
            << value << denominator << QString::fromLatin1(text);
    };
    row(0.0, 8, "0");
    row(-0.0, 8, "0");
    row(2.5, 8, "2 1/2");
    row(0.5, 8, "1/2");
    row(-0.5, 8, "1/2"); // the sign is lost
    row(-2.5, 8, "-2 1/2");
    row(2.999, 8, "3");
    row(3.0 - 1.0 / 512, 8, "3");
    row(3.0 - 1.0 / 256, 8, "3");
    row(3.0 - 1.0 / 256, 256, "2 255/256");
    row(0.99, 2, "1");
    row(-2.0, 8, "-2");
    row(-1.9999, 8, "-2");
    row(-2.0005, 8, "-2");
    row(1.0 / 3, 3, "1/3");
    row(0.75, 1, "1");
    row(0.49, 1, "0");
    row(0.03125, 16, "1/16"); // half a step is rounded up
    row(0.03, 16, "0");
    row(4.25, 10, "4 3/10");
    row(1234567.5, 2, "1234567 1/2");
    row(0.5, -8, "-1/-2");
    row(9007199254740991.0, 16, "9007199254740991");
    row(0.6666666666666666, std::numeric_limits<int>::max(), "1431655765/2147483647");
}

void NumberTextTest::formatsFractions()
{
    QFETCH(double, value);
    QFETCH(int, denominator);
    QFETCH(QString, text);
    const auto format = [&](const std::wstring& label) {
        return QString::fromStdWString(
            formatFraction(value, denominator, label, std::locale::classic()));
    };
    QCOMPARE(format(L""), text);
    QCOMPARE(format(L"in"), text + QStringLiteral(" in"));
}

void NumberTextTest::formatsFractionsOfAnotherLocale()
{
    QCOMPARE(formatFraction(12345.5, 2, L"m", CommaNumbers::locale()),
             std::wstring(L"12.345 1/2 m"));
    QCOMPARE(formatFraction(0.4999, 10000, L"", CommaNumbers::locale()),
             std::wstring(L"4.999/10.000"));
}

void NumberTextTest::hugeAndOtherValuesAreWrittenAsTheyAre_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("2^62") << 4611686018427387904.0 << "4611686018427387904";
    QTest::newRow("2^63") << 9223372036854775808.0 << "9223372036854775808";
    QTest::newRow("-2^63") << -9223372036854775808.0 << "-9223372036854775808";
    QTest::newRow("1e22") << 1e22 << "10000000000000000000000";
    QTest::newRow("1e30") << 1e30 << "1000000000000000019884624838656";
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << "inf";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "nan";
}

void NumberTextTest::hugeAndOtherValuesAreWrittenAsTheyAre()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdWString(formatFraction(value, 16, L"m", std::locale::classic())),
             text + QStringLiteral(" m"));
}

void NumberTextTest::denominatorZeroIsReported()
{
    QCOMPARE(formatFraction(2.4, 0, L"m", std::locale::classic()), std::wstring(L"2 m"));
    QCOMPARE(takeExpressions(), QStringList{QStringLiteral("denominator != 0")});
}

QTEST_GUILESS_MAIN(NumberTextTest)
#include "tst_number_text.moc"
