#include "tests/helpers/checked_test.h"
#include "tests/helpers/scoped_global_locale.h"
#include "units/inc/units.h"

#include <cstdlib>
#include <locale>
#include <new>

using namespace zel::units::v1;

namespace {

int allocations = 0;
int questions = 0;

/// A locale with the blanks of Unicode that counts how often it is asked what a character is.
class CountingCharacters : public std::ctype_byname<wchar_t>
{
public:
    CountingCharacters()
        : std::ctype_byname<wchar_t>("C.UTF-8")
    {}

protected:
    bool do_is(mask m, wchar_t c) const override
    {
        ++questions;
        return std::ctype_byname<wchar_t>::do_is(m, c);
    }
};

} // namespace

// The library's allocations come here, too, so that the test can count them.
void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size != 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

/// What parsing takes beside time, whether the text is understood or not: no memory, and few
/// questions to the locale, which are what takes long.
class ParseMemoryTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void parsingTakesNoMemory_data();
    void parsingTakesNoMemory();
    void countingWorks();
    void localeIsAskedAFewTimesForACharacter_data();
    void localeIsAskedAFewTimesForACharacter();
};

void ParseMemoryTest::parsingTakesNoMemory_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("id");
    for (const char* text : {"2.5", "2.5 m", "250 cm", "5' 6 1/2''", "5 ft 6.5 in", "1 3/4 in",
                             "1.2e-3 m", "abc", "12 xyz", "51/m", "3 kN/m3", ""}) {
        QTest::newRow(text[0] != 0 ? text : "nothing") << QString::fromUtf8(text) << 1001;
    }
    QTest::newRow("other unit of the same label") << QStringLiteral("3 kN/m3") << 1091;
    QTest::newRow("label outside ASCII") << QStringLiteral("12 \u00e9\u00e9") << 1001;
    QTest::newRow("100 characters") << QString(100, QLatin1Char('9')) << 1001;
}

void ParseMemoryTest::parsingTakesNoMemory()
{
    QFETCH(QString, text);
    QFETCH(int, id);
    const std::wstring wide = text.toStdWString();
    const std::locale& locale = std::locale::classic();
    const Context context(0);
    context.parse(L"3 kN/m3", UnitId(1091), locale); // the tables are built on first use
    const int before = allocations;
    context.parse(wide, UnitId(id), locale);
    QCOMPARE(allocations - before, 0);
}

void ParseMemoryTest::countingWorks()
{
    // A stream is what it takes to read this number.
    const int before = allocations;
    parseNumber(L"1e999", std::locale::classic());
    QVERIFY(allocations > before);
}

void ParseMemoryTest::localeIsAskedAFewTimesForACharacter_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("repeated");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("isLength");
    const QString blank(QChar(0x2003));
    const QString letter(QChar(0xe9));
    QTest::newRow("blanks") << "" << blank << "" << false;
    QTest::newRow("blanks before a quantity") << "" << blank << "5 m" << true;
    QTest::newRow("blanks behind a number") << "5" << blank << "" << true;
    QTest::newRow("blanks behind a unit") << "5 m" << blank << "" << false;
    QTest::newRow("blanks before a unit") << "5" << blank << "m" << true;
    QTest::newRow("blanks in a mixed fraction") << "1" << blank << "3/4" << true;
    QTest::newRow("blanks before feet and inches") << "" << blank << "5' 6''" << true;
    QTest::newRow("blanks in feet and inches") << "5'" << blank << "6''" << true;
    QTest::newRow("blanks around an apostrophe") << "" << blank << "'" << false;
    QTest::newRow("label behind a number") << "5 " << letter << "" << false;
    QTest::newRow("label behind a fraction") << "3/4 " << letter << "" << false;
    QTest::newRow("label behind a mixed fraction") << "1 3/4 " << letter << "" << false;
    QTest::newRow("label behind an exponent") << "5e3" << letter << "" << false;
    QTest::newRow("part of a reciprocal") << "11e11/" << letter << "" << false;
    QTest::newRow("part") << "5 kg/" << letter << "" << false;
}

void ParseMemoryTest::localeIsAskedAFewTimesForACharacter()
{
    QFETCH(QString, before);
    QFETCH(QString, repeated);
    QFETCH(QString, after);
    QFETCH(bool, isLength);
    const int count = 1000;
    const std::wstring text = (before + repeated.repeated(count) + after).toStdWString();
    const zel::test::ScopedGlobalLocale global(
        std::locale(std::locale::classic(), new CountingCharacters));
    questions = 0;
    const auto q = Context(0).parse(text, UnitId(1001), std::locale::classic());
    QCOMPARE(q.has_value(), isLength);
    // Once for the parser of feet and inches and at most twice for the general one.
    QVERIFY2(questions >= count && questions <= 3 * count + 10,
             qPrintable(QString::number(questions)));
}

QTEST_GUILESS_MAIN(ParseMemoryTest)
#include "tst_parse_memory.moc"
