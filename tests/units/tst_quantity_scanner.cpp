#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "tests/helpers/sanitized.h"
#include "tests/helpers/scoped_global_locale.h"
#include "tests/units/reference/expression_parser.h"
#include "units/inc/units.h"

#include <array>
#include <random>
#include <regex>
#include <string>
#include <string_view>

using namespace zel::units::v1;
using zel::test::escaped;
using zel::test::numberText;
namespace reference = zel::test::reference;

namespace {

#ifdef ZEL_TEST_SANITIZED
constexpr int textCount = 20'000;
#else
constexpr int textCount = 1'000'000;
#endif

/// Makes texts of which many are almost, and some are just, a quantity.
class TextGenerator
{
public:
    explicit TextGenerator(unsigned seed)
        : m_random(seed)
    {}

    std::wstring next()
    {
        switch (below(4)) {
        case 0:
            return ofCharacters();
        case 1:
            return ofPieces();
        default:
            return mutated(ofGrammar());
        }
    }

private:
    int below(int limit)
    {
        return static_cast<int>(m_random() % static_cast<unsigned>(limit));
    }

    template <std::size_t N>
    const wchar_t* anyOf(const std::array<const wchar_t*, N>& texts)
    {
        return texts[static_cast<std::size_t>(below(static_cast<int>(N)))];
    }

    wchar_t character()
    {
        // The grammar's own characters, letters of labels, and what lies at the borders of the
        // classes: blanks and digits of other scripts, line ends, controls, unpaired surrogates,
        // characters outside the basic plane and numbers that are no characters.
        static const std::wstring_view common = L"0123456789..,,//--  ''\teE+ftinmkNs1/";
        static const std::wstring rare = [] {
            std::wstring characters = L"\n\r\v\f\b\x1f\x7f\x85\xa0\xb2\xbd\u0660\u1680\u2003\u2007"
                                      L"\u2009\u2028\u2029\u202f\u205f\u3000\ufeff\uff15\u00b0%?#"
                                      L"\u2032\u2033\u2044\u2212()*&xXpP\"\\_^~;:";
            for (const int c : {0, 0x1d7d3, 0x10ffff, 0xd835, 0xdfd3, 0x110000, -1}) {
                characters.push_back(static_cast<wchar_t>(c));
            }
            return characters;
        }();
        const std::wstring_view from = below(12) == 0 ? std::wstring_view(rare) : common;
        return from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
    }

    std::wstring ofCharacters()
    {
        std::wstring text;
        for (int n = below(11); n > 0; --n) {
            text.push_back(character());
        }
        return text;
    }

    std::wstring ofPieces()
    {
        static constexpr std::array<const wchar_t*, 40> pieces = {
            L"1", L"1",  L"11",  L"21",   L"0",    L"5",   L"2.5", L"1,5", L".",      L",",
            L"/", L"/",  L"/",   L"-",    L"-",    L" ",   L" ",   L"  ",  L"\u2003", L"e",
            L"E", L"e3", L"E-3", L"e+3",  L".5e3", L"m",   L"kN",  L"m2",  L"ft",     L"in",
            L"'", L"''", L"%",   L"o/oo", L"O/O",  L"0/0", L"3/4", L"1/m", L"kg",     L"sec"};
        std::wstring text;
        for (int n = 1 + below(6); n > 0; --n) {
            text += anyOf(pieces);
        }
        return text;
    }

    std::wstring blanks()
    {
        static constexpr std::array<const wchar_t*, 8> some = {L"",  L"",   L"",   L" ",
                                                               L" ", L"  ", L"\t", L"\n"};
        return anyOf(some);
    }

    std::wstring ofGrammar()
    {
        static constexpr std::array<const wchar_t*, 26> numbers = {
            L"2.5",   L"-2.5", L"2,5",   L".5",     L"-.5",  L"5.",      L"1",    L"11",    L"-1",
            L"3/4",   L"-3/4", L"1 3/4", L"-1 3/4", L"13/4", L"/4",      L"1 /4", L"1 1/1", L"1/11",
            L"1.5e3", L"1e-3", L"-1E+3", L"1,5e1",  L".5e3", L"-,5E-11", L"1e11", L"1.2.3"};
        static constexpr std::array<const wchar_t*, 40> units = {
            L"",       L"m",    L"cm",   L"kN",    L"kN/m2", L"kg/sec/m2", L"1/m",       L"1/sec",
            L"1 /m",   L"°",    L"°C/m", L"%",     L"o/o",   L"O/O",       L"o/oo",      L"O/OO",
            L"0/0",    L"0/00", L"-",    L"'",     L"''",    L"ft",        L"in",        L"in-lb",
            L"lbm-ft", L"e",    L"E",    L"e/m",   L"1/e",   L"kg /sec",   L"m/-",       L"1/-",
            L"1/m/m2", L"1/1",  L"?",    L"# #/#", L"xyz",   L"h.m.s",     L"m3/sec/m3", L"a/b/c"};
        static constexpr std::array<const wchar_t*, 6> feet = {L"'",  L"'",  L"ft",
                                                               L"ft", L"' ", L" ft "};
        static constexpr std::array<const wchar_t*, 4> inches = {L"''", L"''", L"in", L" in"};
        if (below(4) == 0) {
            return blanks() + anyOf(numbers) + blanks() + anyOf(feet) + blanks() + anyOf(numbers) +
                   blanks() + anyOf(inches) + blanks();
        }
        return blanks() + anyOf(numbers) + blanks() + anyOf(units) +
               (below(6) == 0 ? blanks() : std::wstring());
    }

    std::wstring mutated(std::wstring text)
    {
        for (int n = below(3); n > 0; --n) {
            const auto at = static_cast<std::size_t>(below(static_cast<int>(text.size()) + 1));
            switch (below(4)) {
            case 0:
                text.insert(at, 1, character());
                break;
            case 1:
                text.erase(at, 1);
                break;
            case 2:
                if (at < text.size()) {
                    text[at] = character();
                }
                break;
            default:
                if (at + 1 < text.size()) {
                    std::swap(text[at], text[at + 1]);
                }
            }
        }
        return text;
    }

    std::minstd_rand m_random;
};

QString quantityText(const boost::optional<IConverter::quantity>& q)
{
    return q ? QStringLiteral("%1 of %2").arg(numberText(q->value)).arg(int(q->unit_id))
             : QStringLiteral("none");
}

} // namespace

/// A provider whose labels try each shape that a unit can be typed in.
class OddLabels : public ZelUnitProvider
{
public:
    std::vector<UnitId> get_unit_ids() const override
    {
        std::vector<UnitId> ids;
        for (std::size_t i = 0; i < m_labels.size(); ++i) {
            ids.push_back(UnitId(static_cast<int>(i) + 10));
        }
        return ids;
    }

    const std::string& get_label(UnitId id) const override
    {
        return m_labels.at(static_cast<std::size_t>(id - 10));
    }

    const std::vector<std::string>& get_aliases(UnitId) const override
    {
        static const std::vector<std::string> none;
        return none;
    }

private:
    std::vector<std::string> m_labels = {
        "e",
        "E",
        "e/m",
        "E/m",
        "1/e",
        "1 /m",
        "1/m",
        "kg /sec",
        "kg/sec",
        "m/-",
        "a/b",
        "m/-5",
        "in-",
        "m",
        "m/m2",
        "m /m2",
        "1/m/m2",
        "1  /m",
        "e3",
        "e3/m",
        "ft",
        "''",
        "in",
        "'",
        "e-3",
        "E-3",
        "kg\t/sec",
        "x\n/y",
        "#",
        "",
        "-",
        "1/1",
        "/m",
        "1",
        " m",
        "m ",
        "kg/sec/m2",
        "m-1",
        "*",
        "\xc2\xb0",
        // No unit can be typed so, whatever the provider has.
        "1/-",
        "1/-5",
        "-m",
        "--",
        "-1",
        "5m",
        "2",
        ".m",
        "m.",
        ",m",
        "a/b/c",
        "1/m/m/m",
        "m/1",
        "/",
        "m /",
        "m/ m",
        " ",
        "1 m",
    };
};

/// The parsers of the library, held against the expressions that define them.
class QuantityScannerTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void regressions_data();
    void regressions();
    void generatedTexts();
    void generatedTextsForContexts();
    void generatedTextsWithFurtherBlanks();
    void characterClasses_data();
    void characterClasses();

private:
    /// What differs between library and definition for the text; empty if nothing does.
    QString difference(reference::ExpressionParser& expressions, const std::wstring& text,
                       bool withOddLabels) const;

    const std::locale& m_locale = std::locale::classic();
    const Context m_context{0};
    const OddLabels m_oddUnits;
    const reference::LabelMap m_labels = reference::labelsOf(m_context.unit_provider());
    const reference::LabelMap m_oddLabels = reference::labelsOf(m_oddUnits);
    const Parser m_parser{&m_context.unit_provider(), &m_context.format_provider(),
                          &m_context.converter()};
    const Parser m_oddParser{&m_oddUnits, &m_context.format_provider(), &m_context.converter()};
    const FeetAndFractionalInchesParser m_feetParser{
        &m_context.unit_provider(), &m_context.format_provider(), &m_context.converter()};
    const FractionalInchesParser m_inchParser{&m_context.unit_provider(),
                                              &m_context.format_provider(), &m_context.converter()};
};

QString QuantityScannerTest::difference(reference::ExpressionParser& expressions,
                                        const std::wstring& text, bool withOddLabels) const
{
    QString differences;
    const auto compare = [&](const char* what, const QString& actual, const QString& expected) {
        if (actual != expected) {
            differences += QStringLiteral("\n  %1 of \"%2\" gives %3, defined is %4")
                               .arg(QString::fromLatin1(what), escaped(text), actual, expected);
        }
    };
    compare("Parser", quantityText(m_parser.parse(text, m_locale)),
            quantityText(expressions.parse(m_labels, text, m_locale)));
    compare("FeetAndFractionalInchesParser", quantityText(m_feetParser.parse(text, m_locale)),
            quantityText(expressions.parseFeet(text, m_locale)));
    compare("FractionalInchesParser", quantityText(m_inchParser.parse(text, m_locale)),
            quantityText(expressions.parseInches(text, m_locale)));
    compare("parseNumber", numberText(parseNumber(text, m_locale).value_or(-4711.0)),
            numberText(expressions.parseNumber(text, m_locale).value_or(-4711.0)));
    if (withOddLabels) {
        compare("Parser with odd labels", quantityText(m_oddParser.parse(text, m_locale)),
                quantityText(expressions.parse(m_oddLabels, text, m_locale)));
    }
    return differences;
}

void QuantityScannerTest::regressions_data()
{
    QTest::addColumn<QString>("text");
    for (const QString& line : zel::test::dataLines(QStringLiteral("scanner_regressions.tsv"))) {
        QTest::newRow(qPrintable(line)) << line;
    }
}

void QuantityScannerTest::regressions()
{
    QFETCH(QString, text);
    reference::ExpressionParser expressions(reference::ExpressionParser::Compile::PerAttempt);
    const QString differences = difference(expressions, zel::test::unescaped(text), true);
    QVERIFY2(differences.isEmpty(), qPrintable(differences));
}

void QuantityScannerTest::generatedTexts()
{
    reference::ExpressionParser expressions(reference::ExpressionParser::Compile::Once);
    TextGenerator texts(std::random_device{}());
    int quantities = 0;
    int lengths = 0;
    for (int i = 0; i < textCount; ++i) {
        const std::wstring text = texts.next();
        const QString differences = difference(expressions, text, i % 4 == 0);
        QVERIFY2(
            differences.isEmpty(),
            qPrintable(differences + QStringLiteral("\nadd the text to scanner_regressions.tsv")));
        quantities += m_parser.parse(text, m_locale) ? 1 : 0;
        lengths += m_feetParser.parse(text, m_locale) ? 1 : 0;
    }
    // The texts are worth comparing only if a good part of them means something.
    QVERIFY2(quantities > textCount / 10, qPrintable(QString::number(quantities)));
    QVERIFY2(lengths > textCount / 100, qPrintable(QString::number(lengths)));
}

void QuantityScannerTest::generatedTextsForContexts()
{
    reference::ExpressionParser expressions(reference::ExpressionParser::Compile::Once);
    TextGenerator texts(std::random_device{}());
    const std::vector<UnitId> ids = m_context.unit_provider().get_unit_ids();
    for (int i = 0; i < textCount / 20; ++i) {
        const Context context(i % 10);
        const UnitId id = i % 3 != 0 ? UnitId(1001) : ids[static_cast<std::size_t>(i) % ids.size()];
        const std::wstring text = texts.next();
        QVERIFY2(quantityText(context.parse(text, id, m_locale)) ==
                     quantityText(expressions.parse(context, m_labels, text, id, m_locale)),
                 qPrintable(QStringLiteral("\"%1\" for %2").arg(escaped(text)).arg(int(id))));
    }
}

void QuantityScannerTest::generatedTextsWithFurtherBlanks()
{
    // The expressions take the blanks of the program's locale, and some know more than ASCII's.
    const zel::test::ScopedGlobalLocale global(std::locale("C.UTF-8"));
    reference::ExpressionParser expressions(reference::ExpressionParser::Compile::Once);
    TextGenerator texts(std::random_device{}());
    for (int i = 0; i < textCount / 20; ++i) {
        const QString differences = difference(expressions, texts.next(), true);
        QVERIFY2(differences.isEmpty(), qPrintable(differences));
    }
    QCOMPARE(quantityText(m_parser.parse(L"\u20032.5\u2003m", m_locale)),
             QStringLiteral("2.5 of 13"));
}

void QuantityScannerTest::characterClasses_data()
{
    QTest::addColumn<QString>("globalLocale");
    QTest::newRow("classic") << QStringLiteral("C");
    QTest::newRow("with the blanks of Unicode") << QStringLiteral("C.UTF-8");
}

void QuantityScannerTest::characterClasses()
{
    QFETCH(QString, globalLocale);
    const zel::test::ScopedGlobalLocale global(std::locale(globalLocale.toStdString()));
    const std::regex_traits<wchar_t> traits;
    const std::wstring names = L"sd";
    const auto space = traits.lookup_classname(names.begin(), names.begin() + 1);
    const auto digit = traits.lookup_classname(names.begin() + 1, names.end());
    QString differences;
    for (int c = -10; c < 0x110010; ++c) {
        const auto character = static_cast<wchar_t>(c);
        const bool isBlank = *parseNumber({L'1', character, L'3', L'/', L'4'}, m_locale) == 1.75;
        const bool isDigit = *parseNumber({L'9', character, L'/', L'4'}, m_locale) > 9.0;
        if (isBlank != traits.isctype(character, space) ||
            isDigit != traits.isctype(character, digit)) {
            differences += QStringLiteral(" %1").arg(c, 0, 16);
        }
    }
    QVERIFY2(differences.isEmpty(), qPrintable(differences));
}

QTEST_GUILESS_MAIN(QuantityScannerTest)
#include "tst_quantity_scanner.moc"
