#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "units/inc/units.h"

#include <memory>
#include <stdexcept>
#include <utility>

using namespace zel::units::v1;
using zel::test::numberText;

static_assert(std::is_copy_constructible_v<Context> && std::is_copy_assignable_v<Context>);
static_assert(std::is_nothrow_move_constructible_v<Context>);

class ContextTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void parses_data();
    void parses();
    void unknownIdsThrow_data();
    void unknownIdsThrow();
    void columnOutsideThrows();
    void shownUnitWithoutRowThrows();
    void shownUnitDecidesTheDimension();
    void overriddenFeetDecideWhoIsAsked();
    void feetThatASetDoesNotAllowGiveNoValue();
    void unitsOfTheSameLabelAreTriedInOrder();
    void copiesAreWhole_data();
    void copiesAreWhole();
    void selfAssignmentKeepsAll();
    void formatsByTheShownUnit();

private:
    static QString answer(const Context& context, const wchar_t* text, int id);
    static void checkIsWhole(const Context& context);
};

namespace {

const std::locale& locale = std::locale::classic();

} // namespace

QString ContextTest::answer(const Context& context, const wchar_t* text, int id)
{
    const auto q = context.parse(text, UnitId(id), locale);
    return q ? QStringLiteral("%1 of %2").arg(numberText(q->value)).arg(int(q->unit_id))
             : QStringLiteral("none");
}

void ContextTest::parses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* text, int column, int id, const QString& expected) {
        QTest::newRow(qPrintable(QStringLiteral("%1 for %2 in column %3")
                                     .arg(QString::fromUtf8(text))
                                     .arg(id)
                                     .arg(column)))
            << text << column << id << expected;
    };
    const QString none = QStringLiteral("none");
    row("2", 6, 1001, numberText(0.002) + " of 1001");
    row("2", 0, 1001, "2 of 1001");
    row("2", 8, 1001, numberText(2 * 0.3048) + " of 1001");
    row("2 -", 6, 1001, numberText(0.002) + " of 1001"); // the unit "-" is none
    row("2 dm", 0, 1001, none);
    row("2 s", 0, 1001, none);
    row("3 kN/m3", 0, 1091, "3 of 1091");
    row("3 kN/m3", 0, 1193, "3 of 1193");
    row("5' 6''", 0, 1001, numberText(0.3048 * 5.5) + " of 1001");
    row("5' 6''", 0, 1002, none);
    row("5' 6''", 0, 13, numberText(0.3048 * 5.5) + " of 13");
    row("5' -1''", 0, 1001, none);
    row("3", 0, 16, "3 of 16");
    row("1 m", 0, 16, numberText(1.0 / 0.001) + " of 16");
    row("1", 0, 215, numberText(0.3048 * (1.0 / 0.3048)) + " of 215");
    row("2 ft", 0, 215, numberText((0.3048 * 2) * (1.0 / 0.3048)) + " of 215");
    row("1.5E-3 kN", 0, 1101, numberText(0.0015) + " of 1101");
    row("1e+3 m", 0, 1001, "1000 of 1001");
    row("50 %", 0, 8, "50 of 8");
    row("5", 0, 0, "5 of 0");
    row("7", 7, 1182, none); // is shown in a unit that it does not allow
}

void ContextTest::parses()
{
    QFETCH(QString, text);
    QFETCH(int, column);
    QFETCH(int, id);
    QFETCH(QString, expected);
    QCOMPARE(answer(Context(column), text.toStdWString().c_str(), id), expected);
}

void ContextTest::unknownIdsThrow_data()
{
    QTest::addColumn<int>("id");
    for (const int id : {1084, 7777, -1, 12, 999}) {
        QTest::newRow(qPrintable(QString::number(id))) << id;
    }
}

void ContextTest::unknownIdsThrow()
{
    QFETCH(int, id);
    QString text;
    try {
        Context(0).parse(L"2", UnitId(id), locale);
    } catch (const std::invalid_argument& e) {
        text = QString::fromUtf8(e.what());
    }
    QCOMPARE(text, QStringLiteral("Invalid unit id."));
}

void ContextTest::columnOutsideThrows()
{
    QVERIFY_EXCEPTION_THROWN(Context(10).parse(L"2", UnitId(1001), locale), std::invalid_argument);
    QCOMPARE(takeExpressions(),
             QStringList{QStringLiteral("index < defaults_of_one_unit->size()")});
    QCOMPARE(answer(Context(10), L"2", 13), QStringLiteral("2 of 13"));
}

void ContextTest::shownUnitWithoutRowThrows()
{
    Context context(0);
    context.format_provider().set_unit(UnitId(1001), UnitId(7777));
    QVERIFY_EXCEPTION_THROWN(context.parse(L"2", UnitId(1001), locale), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(context.format({UnitId(1001), 2.0}, locale), std::invalid_argument);
}

void ContextTest::shownUnitDecidesTheDimension()
{
    // An area shown in metres is a length for whom to ask, and no unit of its own after that.
    Context context(0);
    context.format_provider().set_unit(UnitId(1002), UnitId(13));
    QCOMPARE(answer(context, L"2", 1002), QStringLiteral("none"));
    QCOMPARE(answer(context, L"2 m2", 1002), QStringLiteral("2 of 1002"));
    QCOMPARE(answer(context, L"5' 6''", 1002), QStringLiteral("none"));
}

void ContextTest::overriddenFeetDecideWhoIsAsked()
{
    // As long as 215 is shown as an area, no length is offered to the feet parser.
    Context context(0);
    context.format_provider().set_unit(UnitId(215), UnitId(22));
    QCOMPARE(answer(context, L"5' 6''", 1001), QStringLiteral("none"));
    QCOMPARE(answer(context, L"5'", 1001), numberText(5 * 0.3048) + " of 1001");
    context.format_provider().set_unit(UnitId(215), UnitId(1084));
    QVERIFY_EXCEPTION_THROWN(context.parse(L"2", UnitId(1001), locale), std::invalid_argument);
}

void ContextTest::feetThatASetDoesNotAllowGiveNoValue()
{
    // REINF_CRACKW is a length of millimetres and inches. The feet are understood, and that is it.
    QCOMPARE(answer(Context(0), L"1ft 2in", 1026), QStringLiteral("none"));
    QCOMPARE(answer(Context(0), L"2 in", 1026), numberText(2 * 0.0254) + " of 1026");
}

void ContextTest::unitsOfTheSameLabelAreTriedInOrder()
{
    // "W" is 39, 130 and 363, of the sizes 1, 0.001 and 1.
    QCOMPARE(answer(Context(0), L"2 W", 1216), QStringLiteral("0.002 of 1216"));
    QCOMPARE(answer(Context(0), L"2 W", 1282), QStringLiteral("2 of 1282"));
    QCOMPARE(answer(Context(0), L"2 W", 363), QStringLiteral("2 of 363"));
    // "\u00b0F" is 204, 206 and 208.
    const wchar_t* fahrenheit = L"2 \u00b0F";
    QCOMPARE(answer(Context(0), fahrenheit, 1215), numberText(2 * 0.5555555556) + " of 1215");
    QCOMPARE(answer(Context(0), fahrenheit, 1237), numberText(2 * 0.5555555556) + " of 1237");
    // "o/oo" is 2 and 9.
    QCOMPARE(answer(Context(0), L"2 o/oo", 1081), QStringLiteral("0.002 of 1081"));
}

void ContextTest::copiesAreWhole_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("copied") << 0;
    QTest::newRow("moved") << 1;
    QTest::newRow("copy-assigned") << 2;
    QTest::newRow("move-assigned") << 3;
}

/// Column and override are those of the original, and the converter works although the original
/// is gone.
void ContextTest::checkIsWhole(const Context& context)
{
    QCOMPARE(answer(context, L"2", 1001), numberText(2 * 0.0254) + " of 1001");
    QCOMPARE(answer(context, L"2", 1002), numberText(2 * 0.09290304) + " of 1002");
    QCOMPARE(context.format({UnitId(1001), 0.0254}, locale), std::wstring(L"1.0000 in"));
    QVERIFY(context.converter().can_convert(UnitId(13), UnitId(213)));
}

void ContextTest::copiesAreWhole()
{
    QFETCH(int, way);
    auto original = std::make_unique<Context>(8);
    original->format_provider().set_unit(UnitId(1001), UnitId(214));
    original->format_provider().set_decimals(UnitId(1001), 4);
    std::unique_ptr<Context> context;
    switch (way) {
    case 0:
        context = std::make_unique<Context>(*original);
        break;
    case 1:
        context = std::make_unique<Context>(std::move(*original));
        break;
    case 2:
        context = std::make_unique<Context>(0);
        *context = *original;
        break;
    default:
        context = std::make_unique<Context>(0);
        *context = std::move(*original);
    }
    QVERIFY(&context->converter() != &original->converter());
    if (way % 2 == 0) {
        original->format_provider().set_decimals(UnitId(1001), 1);
    }
    original.reset();
    checkIsWhole(*context);
}

void ContextTest::selfAssignmentKeepsAll()
{
    Context context(8);
    context.format_provider().set_unit(UnitId(1001), UnitId(214));
    context.format_provider().set_decimals(UnitId(1001), 4);
    const Context& alias = context;
    context = alias;
    checkIsWhole(context);
}

void ContextTest::formatsByTheShownUnit()
{
    const auto shownAs = [](int unit, double value) {
        Context context(0);
        context.format_provider().set_unit(UnitId(1001), UnitId(unit));
        context.format_provider().set_decimals(UnitId(1001), 4);
        return context.format({UnitId(1001), value}, locale);
    };
    QCOMPARE(shownAs(13, 2.5), std::wstring(L"2.5000 m"));
    QCOMPARE(shownAs(213, 0.3048), std::wstring(L"1.0000 ft"));
    QCOMPARE(shownAs(215, 0.3048 * 1.5), std::wstring(L"1' 6 ''"));
    QCOMPARE(shownAs(216, 0.0254 * 1.5), std::wstring(L"1 1/2 ''"));
    QCOMPARE(Context(0).format({UnitId(1001), 2.5}, locale), std::wstring(L"2.500 m"));
    QCOMPARE(Context(8).format({UnitId(1001), 0.6096}, locale), std::wstring(L"2.00 ft"));
    QVERIFY_EXCEPTION_THROWN(Context(0).format({UnitId(1084), 1.0}, locale), std::invalid_argument);
}

QTEST_GUILESS_MAIN(ContextTest)
#include "tst_context.moc"
