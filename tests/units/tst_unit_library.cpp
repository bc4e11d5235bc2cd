#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <cstring>
#include <memory>
#include <string>
#include <utility>

using namespace zel::units::v1;

class UnitLibraryTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void answersFromTheActiveContext_data();
    void answersFromTheActiveContext();
    void existingCopiesStayAsTheyAre();
    void unknownUnits_data();
    void unknownUnits();
    void labelsThatDoNotFitAreNotWritten_data();
    void labelsThatDoNotFitAreNotWritten();
    void labelOverridesAreShown();
    void hostReplacesAllThree();
    void emptyFunctionsAreTheDefault();
    void functionsMayReplaceTheLibraryWhileTheyRun();
};

namespace {

/// The label that the library writes, or "none".
QString labelOf(int unit, int size = 31)
{
    char buffer[32] = {};
    const int result = zel_get_unit_label(unit, 1, buffer, size);
    return result != 0 ? QString::fromUtf8(buffer) : QStringLiteral("none");
}

} // namespace

void UnitLibraryTest::init()
{
    CheckedTest::init();
    set_active_input_context(Context(0));
}

void UnitLibraryTest::cleanup()
{
    set_unit_library({});
    set_active_input_context(Context(0));
    CheckedTest::cleanup();
}

void UnitLibraryTest::answersFromTheActiveContext_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("label");
    QTest::newRow("length in metres") << 0 << 1001 << 1.0 << 3 << "m";
    QTest::newRow("length in millimetres") << 6 << 1001 << 0.001 << 0 << "mm";
    QTest::newRow("length in feet") << 8 << 1001 << 0.3048 << 2 << "ft";
    QTest::newRow("plain metre") << 8 << 13 << 1.0 << 3 << "m";
    QTest::newRow("plain millimetre") << 0 << 16 << 0.001 << 0 << "mm";
    QTest::newRow("label outside ASCII")
        << 0 << 5 << 0.017453292519943295 << 2 << QString(QChar(0xb0));
}

void UnitLibraryTest::answersFromTheActiveContext()
{
    QFETCH(int, column);
    QFETCH(int, unit);
    QFETCH(double, factor);
    QFETCH(int, decimals);
    QFETCH(QString, label);
    set_active_input_context(Context(column));
    QCOMPARE(zel_get_unitd(unit, 1), factor);
    QCOMPARE(zel_get_unitd(unit, 0), factor);
    QCOMPARE(zel_get_unit_decimals(unit, 1), decimals);
    QCOMPARE(labelOf(unit), label);
}

void UnitLibraryTest::existingCopiesStayAsTheyAre()
{
    const Context copy = get_active_input_context();
    QCOMPARE(int(get_active_input_context().format_provider().get_unit(UnitId(1001))), 13);
    set_active_input_context(Context(8));
    QCOMPARE(int(get_active_input_context().format_provider().get_unit(UnitId(1001))), 213);
    QCOMPARE(int(copy.format_provider().get_unit(UnitId(1001))), 13);
}

void UnitLibraryTest::unknownUnits_data()
{
    QTest::addColumn<int>("unit");
    for (const int unit : {1084, 7777, -1, 999, 12}) {
        QTest::newRow(qPrintable(QString::number(unit))) << unit;
    }
}

void UnitLibraryTest::unknownUnits()
{
    QFETCH(int, unit);
    QCOMPARE(zel_get_unitd(unit, 1), 1.0);
    QVERIFY(zel_get_unit_decimals(unit, 1) < 0);
    QCOMPARE(labelOf(unit), QStringLiteral("none"));
}

void UnitLibraryTest::labelsThatDoNotFitAreNotWritten_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("fits");
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("zero") << 0 << false;
    QTest::newRow("no place for the terminating zero") << 2 << false;
    QTest::newRow("just enough") << 3 << true;
    QTest::newRow("plenty") << 31 << true;
}

void UnitLibraryTest::labelsThatDoNotFitAreNotWritten()
{
    QFETCH(int, size);
    QFETCH(bool, fits);
    char buffer[32];
    std::memset(buffer, '#', sizeof buffer);
    QCOMPARE(zel_get_unit_label(16, 1, buffer, size) != 0, fits);
    const std::string expected =
        fits ? std::string("mm\0", 3) + std::string(29, '#') : std::string(32, '#');
    QCOMPARE(std::string(buffer, sizeof buffer), expected);
}

void UnitLibraryTest::labelOverridesAreShown()
{
    Context context(8);
    context.format_provider().set_label_override(UnitId(1001), std::string("'"));
    context.format_provider().set_label_override(UnitId(1006), std::string());
    context.format_provider().set_label_override(UnitId(1010), std::string("feet"));
    set_active_input_context(context);
    QCOMPARE(labelOf(1001), QStringLiteral("'"));
    QCOMPARE(labelOf(1006), QString());
    QCOMPARE(labelOf(1010), QStringLiteral("ft"));
}

void UnitLibraryTest::hostReplacesAllThree()
{
    QVector<int> asked;
    UnitLibrary host;
    host.unitd = [&asked](int unit, int mode) {
        asked << unit << mode;
        return 1000.0;
    };
    host.decimals = [&asked](int unit, int mode) {
        asked << unit << mode;
        return 4;
    };
    host.label = [&asked](int unit, int mode, char* buffer, int size) {
        asked << unit << mode << size;
        std::strcpy(buffer, "ell");
        return 7;
    };
    const UnitLibrary before = set_unit_library(host);
    QVERIFY(!before.unitd && !before.decimals && !before.label);
    char buffer[32] = {};
    QCOMPARE(zel_get_unitd(1, 0), 1000.0);
    QCOMPARE(zel_get_unit_decimals(2, 1), 4);
    QCOMPARE(zel_get_unit_label(3, 1, buffer, 31), 7);
    QCOMPARE(QByteArray(buffer), QByteArray("ell"));
    QCOMPARE(asked, (QVector<int>{1, 0, 2, 1, 3, 1, 31}));
    const UnitLibrary returned = set_unit_library({});
    QCOMPARE(returned.unitd(1, 0), 1000.0);
    QCOMPARE(zel_get_unitd(1001, 1), 1.0);
    QCOMPARE(zel_get_unit_decimals(1001, 1), 3);
    QCOMPARE(labelOf(1001), QStringLiteral("m"));
}

void UnitLibraryTest::emptyFunctionsAreTheDefault()
{
    UnitLibrary host;
    host.decimals = [](int, int) { return 9; };
    set_unit_library(host);
    QCOMPARE(zel_get_unit_decimals(1001, 1), 9);
    QCOMPARE(zel_get_unitd(16, 1), 0.001);
    QCOMPARE(labelOf(16), QStringLiteral("mm"));
}

void UnitLibraryTest::functionsMayReplaceTheLibraryWhileTheyRun()
{
    static std::weak_ptr<int> held; // not of the function, which may be gone
    static int alive;
    alive = 0;
    const auto replacing = [] {
        auto own = std::make_shared<int>(7);
        held = own;
        return [own](auto...) {
            set_unit_library({});
            alive += held.expired() ? 0 : 1;
            return 7;
        };
    };
    UnitLibrary host;
    host.unitd = replacing();
    set_unit_library(std::exchange(host, {}));
    zel_get_unitd(1001, 1);
    host.decimals = replacing();
    set_unit_library(std::exchange(host, {}));
    zel_get_unit_decimals(1001, 1);
    host.label = replacing();
    set_unit_library(std::exchange(host, {}));
    char buffer[32] = {};
    zel_get_unit_label(1001, 1, buffer, 31);
    QCOMPARE(alive, 3);
    QCOMPARE(zel_get_unitd(16, 1), 0.001);
}

QTEST_GUILESS_MAIN(UnitLibraryTest)
#include "tst_unit_library.moc"
