#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <cstdlib>
#include <new>

using namespace zel::units::v1;

namespace {

int allocations = 0;

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

/// Parsing takes no memory, whether the text is understood or not.
class ParseMemoryTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void parsingTakesNoMemory_data();
    void parsingTakesNoMemory();
    void countingWorks();
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

QTEST_GUILESS_MAIN(ParseMemoryTest)
#include "tst_parse_memory.moc"
