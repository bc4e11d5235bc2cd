#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "tests/units/reference/expression_parser.h"
#include "units/inc/units.h"

#include <limits>
#include <string>
#include <vector>

using namespace zel::units::v1;
using zel::test::escaped;
using zel::test::numberText;
namespace reference = zel::test::reference;

namespace {

// As many as a line edit takes, and more than anyone would paste into a cell. What took a time that
// grows with the square of the length would not end with the latter, and a recursion would end in a
// crash.
constexpr std::size_t longestTyped = 32'767;
constexpr std::size_t longestPasted = 1'048'576;

QString quantityText(const boost::optional<IConverter::quantity>& q)
{
    return q ? QStringLiteral("%1 of %2").arg(numberText(q->value)).arg(int(q->unit_id))
             : QStringLiteral("none");
}

/// As many times `piece` as fit into `size` characters.
std::wstring repeated(const std::wstring& piece, std::size_t size)
{
    std::wstring text;
    text.reserve(size);
    while (text.size() + piece.size() <= size) {
        text += piece;
    }
    return text;
}

/// The grammar's own characters, each kind of those beside them, and letters of labels.
std::vector<wchar_t> characters()
{
    std::vector<wchar_t> all;
    for (const wchar_t c :
         std::wstring(L"0159.,/- '\t\neE+ftinm%?\"\r\x1f\x7f\x85\xa0\xb0\u2003\u2028"
                      L"\ufeff\uff15")) {
        all.push_back(c);
    }
    for (const int c : {0, 0x1d7d3, 0xd835, 0xdfd3, 0x10ffff, 0x110000, -1}) {
        all.push_back(static_cast<wchar_t>(c));
    }
    return all;
}

} // namespace

/// Texts that nobody types but that anybody may paste by accident.
class LongQuantityTextsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void longTexts_data();
    void longTexts();
    void anyCharacter();
    void anyPairOfCharacters();

private:
    QString answers(const std::wstring& text) const;
    QString definedAnswers(const std::wstring& text);
    void compare(const std::wstring& piece, std::size_t size);

    const std::locale& m_locale = std::locale::classic();
    const Context m_context{0};
    const Parser m_parser{&m_context.unit_provider(), &m_context.format_provider(),
                          &m_context.converter()};
    const FeetAndFractionalInchesParser m_feetParser{
        &m_context.unit_provider(), &m_context.format_provider(), &m_context.converter()};
    const FractionalInchesParser m_inchParser{&m_context.unit_provider(),
                                              &m_context.format_provider(), &m_context.converter()};
    const reference::LabelMap m_labels = reference::labelsOf(m_context.unit_provider());
    reference::ExpressionParser m_expressions{reference::ExpressionParser::Compile::Once};
};

void LongQuantityTextsTest::longTexts_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("length");
    const QString none = QStringLiteral("none");
    const QString largest = numberText(std::numeric_limits<double>::max());
    const auto row = [](const char* tag, const char* before, const char* piece, const char* after,
                        const QString& quantity, const QString& length) {
        QTest::newRow(tag) << before << piece << after << quantity << length;
    };
    row("blanks", "", " ", "", none, none);
    row("blanks before", "", " ", "2.5 m", "2.5 of 13", none);
    row("blanks between", "2.5", " ", "m", "2.5 of 13", none);
    row("blanks behind a number", "2.5", " ", "", "2.5 of 1", none);
    row("blanks behind a unit", "2.5 m", " ", "", none, none);
    row("blanks in a mixed fraction", "1", " ", "3/4", "1.75 of 1", none);
    row("blanks in a unit", "1 kg", " ", "/sec", none, none);
    row("blanks around feet and inches", "5'", " ", "6''", none, "5.5 of 213");
    row("blanks behind inches", "5'6''", " ", "", none, "5.5 of 213");
    row("line ends", "5'", "\n", "6''", none, none);
    row("nines", "", "9", "", largest + " of 1", none);
    row("nines of a unit", "", "9", "m", largest + " of 13", none);
    row("negative nines", "-", "9", " m", '-' + largest + " of 13", none);
    row("leading zeros", "", "0", "5 m", "5 of 13", none);
    row("small", "0.", "0", "1 m", "0 of 13", none);
    row("digits behind the point", "0.5", "0", "1 m", "0.5 of 13", none);
    row("large exponent", "1e", "9", " m", largest + " of 13", none);
    row("small exponent", "1e-", "9", " m", "0 of 13", none);
    row("exponent with leading zeros", "1e", "0", "3 m", "1000 of 13", none);
    row("exponent that is not read", ".5e", "9", " m", "0.5 of 13", none);
    row("large numerator", "", "9", "/2",
        numberText(std::numeric_limits<double>::max() / 2) + " of 1", none);
    row("long denominator", "3/", "0", "4", "0.75 of 1", none);
    row("long whole part", "", "0", "1 3/4 in", "1.75 of 214", none);
    row("reciprocal behind digits", "", "0", "51/m", "5 of 17", none);
    row("ones before a slash", "", "1", "/m", largest + " of 17", none);
    row("points", "", ".", "", "0 of 1", none);
    row("commas", "", ",", " m", "0 of 13", none);
    row("minus signs", "", "-", "", none, none);
    row("minus signs behind a number", "5 ", "-", "", none, none);
    row("slashes", "", "/", "", none, none);
    row("slashes behind a number", "5 m", "/", "", none, none);
    row("parts", "5 m", "/m", "", none, none);
    row("fractions", "1", "/1", "", none, none);
    row("letters", "", "m", "", none, none);
    row("long label", "5 ", "m", "", none, none);
    row("long part", "5 kg/", "s", "", none, none);
    row("letters e", "5", "e", "", none, none);
    row("exponents", "5", "e5", "", none, none);
    row("signs of inches", "", "'", "", none, "0 of 213");
    row("signs of feet", "5", "'", "6''", none, "5.5 of 213");
    row("words of feet", "5 ", "ft ", "6 in", none, "5.5 of 213");
    row("words of inches", "5 ft ", "in", "", none, "5 of 213");
    row("long feet", "", "0", "5' 6''", none, "5.5 of 213");
    row("long inches", "5 ft ", "0", "6 in", none, "5.5 of 213");
    row("digits and blanks", "", "1 ", "", none, none);
    row("numbers and units", "", "5 m ", "", none, none);
    row("characters outside the basic plane", "5 ", "\xf0\x9d\x9f\x93", "", none, none);
    row("no-break blanks", "5", "\xc2\xa0", "m", none, none);
    row("replacement characters", "", "\xef\xbf\xbd", "", none, none);
}

void LongQuantityTextsTest::longTexts()
{
    QFETCH(QString, before);
    QFETCH(QString, piece);
    QFETCH(QString, after);
    QFETCH(QString, quantity);
    QFETCH(QString, length);
    for (const std::size_t size : {longestTyped, longestPasted}) {
        const std::wstring start = before.toStdWString();
        const std::wstring end = after.toStdWString();
        const std::wstring text =
            start + repeated(piece.toStdWString(), size - start.size() - end.size()) + end;
        QCOMPARE(quantityText(m_parser.parse(text, m_locale)), quantity);
        QCOMPARE(quantityText(m_feetParser.parse(text, m_locale)), length);
        QCOMPARE(quantityText(m_inchParser.parse(text, m_locale)), QStringLiteral("none"));
    }
}

QString LongQuantityTextsTest::answers(const std::wstring& text) const
{
    return QStringList{quantityText(m_parser.parse(text, m_locale)),
                       quantityText(m_feetParser.parse(text, m_locale)),
                       quantityText(m_inchParser.parse(text, m_locale)),
                       quantityText(m_context.parse(text, UnitId(1001), m_locale)),
                       numberText(parseNumber(text, m_locale).value_or(-4711.0))}
        .join(QStringLiteral("; "));
}

QString LongQuantityTextsTest::definedAnswers(const std::wstring& text)
{
    return QStringList{
        quantityText(m_expressions.parse(m_labels, text, m_locale)),
        quantityText(m_expressions.parseFeet(text, m_locale)),
        quantityText(m_expressions.parseInches(text, m_locale)),
        quantityText(m_expressions.parse(m_context, m_labels, text, UnitId(1001), m_locale)),
        numberText(m_expressions.parseNumber(text, m_locale).value_or(-4711.0))}
        .join(QStringLiteral("; "));
}

/// The expressions are recursive and slow, so they are asked about fewer repetitions: so many that
/// more of them mean the same, which takes a number beyond all doubles where digits stand alone.
void LongQuantityTextsTest::compare(const std::wstring& piece, std::size_t size)
{
    const bool isNumber = piece.find_first_not_of(L"0123456789") == std::wstring::npos;
    const std::size_t count = isNumber ? 400 : 60;
    const QString actual = answers(repeated(piece, size));
    const QString expected = definedAnswers(repeated(piece, count * piece.size()));
    QVERIFY2(actual == expected, qPrintable(QStringLiteral("\"%1\", repeated, gives %2, not %3")
                                                .arg(escaped(piece), actual, expected)));
}

void LongQuantityTextsTest::anyCharacter()
{
    for (const wchar_t c : characters()) {
        compare(std::wstring(1, c), longestPasted);
    }
}

void LongQuantityTextsTest::anyPairOfCharacters()
{
    for (const wchar_t first : characters()) {
        for (const wchar_t second : characters()) {
            compare({first, second}, longestTyped);
        }
    }
}

QTEST_GUILESS_MAIN(LongQuantityTextsTest)
#include "tst_long_quantity_texts.moc"
