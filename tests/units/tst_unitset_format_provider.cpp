#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <functional>
#include <limits>
#include <stdexcept>

using namespace zel::units::v1;

static_assert(std::is_base_of_v<IFormatProvider, UnitsetFormatProvider>);
static_assert(Notation::Fixed == 0 && Notation::Scientific == 1 && Notation::Fraction == 2);

/// What single ids answer; that each row of the tables answers rightly is held against the data
/// files elsewhere.
class UnitsetFormatProviderTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void columns_data();
    void columns();
    void unknownIds_data();
    void unknownIds();
    void plainIdsWithoutAUnit();
    void columnOutside_data();
    void columnOutside();
    void settersStartFromWhatIsShown();
    void settersOfPlainIdsStartFromNothing();
    void settersTakeAnyId();
    void settersOutsideTheColumnsReportOnce();
    void labelOverrideComesAndGoes();
    void copiesAreIndependent();

private:
    static QString textOf(const std::function<void()>& ask);
    static QString shown(const UnitsetFormatProvider& format, UnitId id);
};

namespace {

const QString columnAssertion = QStringLiteral("index < defaults_of_one_unit->size()");

} // namespace

/// The text of the std::invalid_argument that the question throws.
QString UnitsetFormatProviderTest::textOf(const std::function<void()>& ask)
{
    try {
        ask();
    } catch (const std::invalid_argument& e) {
        return QString::fromUtf8(e.what());
    }
    return QStringLiteral("nothing thrown");
}

QString UnitsetFormatProviderTest::shown(const UnitsetFormatProvider& format, UnitId id)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(int(format.get_unit(id)))
        .arg(format.get_decimals(id))
        .arg(format.get_notation(id))
        .arg(QString::fromStdString(format.get_label_override(id).value_or("absent")));
}

void UnitsetFormatProviderTest::columns_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("format");
    QTest::newRow("length in metres") << 0 << 1001 << "13 3 0 absent";
    QTest::newRow("length in millimetres") << 6 << 1001 << "16 0 0 absent";
    QTest::newRow("length in feet") << 8 << 1001 << "213 2 0 absent";
    QTest::newRow("scientific") << 0 << 1015 << "45 3 1 absent";
    QTest::newRow("plain metre") << 0 << 13 << "13 3 0 absent";
    QTest::newRow("plain millimetre") << 9 << 16 << "16 0 0 absent";
    QTest::newRow("plain scientific") << 9 << 107 << "107 3 1 absent";
    QTest::newRow("zero") << 5 << 0 << "1 3 0 absent";
    QTest::newRow("unit that the set does not allow") << 7 << 1182 << "54 3 0 absent";
}

void UnitsetFormatProviderTest::columns()
{
    QFETCH(int, column);
    QFETCH(int, id);
    QFETCH(QString, format);
    QCOMPARE(shown(UnitsetFormatProvider(column), UnitId(id)), format);
}

void UnitsetFormatProviderTest::unknownIds_data()
{
    QTest::addColumn<int>("id");
    for (const int id : {1035, 1084, 1292, 7777, -1, std::numeric_limits<int>::min(),
                         std::numeric_limits<int>::max()}) {
        QTest::newRow(qPrintable(QString::number(id))) << id;
    }
}

void UnitsetFormatProviderTest::unknownIds()
{
    QFETCH(int, id);
    const UnitId unit = UnitId(id);
    const UnitsetFormatProvider format(0);
    const QString invalid = QStringLiteral("Invalid unit id.");
    QVERIFY(!format.has_format(unit));
    QCOMPARE(textOf([&] { format.get_unit(unit); }), invalid);
    QCOMPARE(textOf([&] { format.get_decimals(unit); }), invalid);
    QCOMPARE(textOf([&] { format.get_notation(unit); }), invalid);
    QCOMPARE(textOf([&] { format.get_label_override(unit); }), invalid);
}

void UnitsetFormatProviderTest::plainIdsWithoutAUnit()
{
    const UnitsetFormatProvider format(0);
    for (const int id : {12, 404, 999}) {
        const UnitId unit = UnitId(id);
        QVERIFY(format.has_format(unit));
        QCOMPARE(int(format.get_unit(unit)), id);
        QCOMPARE(format.get_notation(unit), 0);
        QVERIFY(!format.get_label_override(unit));
        QCOMPARE(textOf([&] { format.get_decimals(unit); }), QStringLiteral("Invalid unit id."));
    }
}

void UnitsetFormatProviderTest::columnOutside_data()
{
    QTest::addColumn<int>("column");
    for (const int column :
         {10, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QTest::newRow(qPrintable(QString::number(column))) << column;
    }
}

void UnitsetFormatProviderTest::columnOutside()
{
    QFETCH(int, column);
    const UnitsetFormatProvider format(column);
    QVERIFY(!format.has_format(UnitId(1001)));
    const std::vector<zel::smartassert::Report> reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(QString::fromStdString(reports[0].expression), columnAssertion);
    QCOMPARE(QString::fromStdString(reports[0].file),
             QStringLiteral("units/src/unitset/unitset_format_provider.cpp"));

    const QString invalid = QStringLiteral("Invalid unit id.");
    QCOMPARE(textOf([&] { format.get_unit(UnitId(1001)); }), invalid);
    QCOMPARE(textOf([&] { format.get_decimals(UnitId(1001)); }), invalid);
    QCOMPARE(textOf([&] { format.get_notation(UnitId(1001)); }), invalid);
    QCOMPARE(textOf([&] { format.get_label_override(UnitId(1001)); }), invalid);
    QCOMPARE(takeExpressions(),
             (QStringList{columnAssertion, columnAssertion, columnAssertion, columnAssertion}));

    // The ids of plain units end at 999.
    QVERIFY(!format.has_format(UnitId(1000)));
    QCOMPARE(takeExpressions(), QStringList{columnAssertion});

    // The plain units have no columns; the id 0 has, and falls back to itself.
    QCOMPARE(shown(format, UnitId(13)), QStringLiteral("13 3 0 absent"));
    QCOMPARE(takeExpressions(), QStringList());
    QVERIFY(format.has_format(UnitId(0)));
    QCOMPARE(int(format.get_unit(UnitId(0))), 0);
    QCOMPARE(takeExpressions(), (QStringList{columnAssertion, columnAssertion}));
}

void UnitsetFormatProviderTest::settersStartFromWhatIsShown()
{
    UnitsetFormatProvider format(8);
    format.set_decimals(UnitId(1001), 7);
    QCOMPARE(shown(format, UnitId(1001)), QStringLiteral("213 7 0 absent"));
    format.set_unit(UnitId(1001), UnitId(214));
    format.set_notation(UnitId(1001), Notation::Fraction);
    QCOMPARE(shown(format, UnitId(1001)), QStringLiteral("214 7 2 absent"));
    QCOMPARE(shown(format, UnitId(1000)), QStringLiteral("211 3 0 absent"));
}

void UnitsetFormatProviderTest::settersOfPlainIdsStartFromNothing()
{
    UnitsetFormatProvider format(0);
    format.set_decimals(UnitId(13), 2);
    QCOMPARE(shown(format, UnitId(13)), QStringLiteral("0 2 0 absent"));
    format.set_unit(UnitId(13), UnitId(13));
    QCOMPARE(shown(format, UnitId(13)), QStringLiteral("13 2 0 absent"));
    format.set_notation(UnitId(107), 1);
    QCOMPARE(shown(format, UnitId(107)), QStringLiteral("0 0 1 absent"));
}

void UnitsetFormatProviderTest::settersTakeAnyId()
{
    UnitsetFormatProvider format(0);
    for (const int id : {1084, 7777, -1, 12}) {
        const UnitId unit = UnitId(id);
        format.set_notation(unit, 9);
        QVERIFY(format.has_format(unit));
        QCOMPARE(shown(format, unit), QStringLiteral("0 0 9 absent"));
    }
}

void UnitsetFormatProviderTest::settersOutsideTheColumnsReportOnce()
{
    UnitsetFormatProvider format(10);
    format.set_unit(UnitId(1001), UnitId(15));
    QCOMPARE(takeExpressions(), QStringList{columnAssertion});
    QCOMPARE(shown(format, UnitId(1001)), QStringLiteral("15 0 0 absent"));
}

void UnitsetFormatProviderTest::labelOverrideComesAndGoes()
{
    UnitsetFormatProvider format(0);
    format.set_label_override(UnitId(1001), std::string());
    QCOMPARE(format.get_label_override(UnitId(1001)), boost::optional<std::string>(std::string()));
    format.set_label_override(UnitId(1001), std::string("'"));
    QCOMPARE(shown(format, UnitId(1001)), QStringLiteral("13 3 0 '"));
    format.set_label_override(UnitId(1001), boost::none);
    QCOMPARE(shown(format, UnitId(1001)), QStringLiteral("13 3 0 absent"));
}

void UnitsetFormatProviderTest::copiesAreIndependent()
{
    UnitsetFormatProvider format(8);
    format.set_decimals(UnitId(1001), 5);
    UnitsetFormatProvider copy = format;
    copy.set_decimals(UnitId(1001), 6);
    copy.set_decimals(UnitId(1002), 6);
    QCOMPARE(format.get_decimals(UnitId(1001)), 5);
    QCOMPARE(format.get_decimals(UnitId(1002)), 2);
    QCOMPARE(shown(copy, UnitId(1001)), QStringLiteral("213 6 0 absent"));
}

QTEST_GUILESS_MAIN(UnitsetFormatProviderTest)
#include "tst_unitset_format_provider.moc"
