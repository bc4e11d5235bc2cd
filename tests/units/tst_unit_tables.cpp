#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "units/inc/units.h"

#include <QFile>

// The tables are no part of what the library exports, so they are compiled once more here.
#include "units/src/definitions/unit_table.cpp"
#include "units/src/unitset/unit_set_table.cpp"

using namespace zel::units::v1;
using zel::test::numberText;

/// Each row of the two tables, held against the data files: as data, and as the providers tell it.
class UnitTablesTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void units_data();
    void units();
    void unitSets_data();
    void unitSets();
    void idsStandInTableOrder();
    void thePageHasAllUnitSets();
};

namespace {

/// The rows of a file behind its line of titles.
QList<QStringList> rowsOf(const QString& fileName)
{
    QList<QStringList> rows;
    for (const QString& line : zel::test::dataLines(fileName)) {
        rows.append(line.split(QLatin1Char(',')));
    }
    rows.removeFirst();
    return rows;
}

void addRows(const QString& fileName, int count)
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("row");
    const QList<QStringList> rows = rowsOf(fileName);
    QCOMPARE(rows.size(), count);
    for (int i = 0; i < rows.size(); ++i) {
        QTest::newRow(qPrintable(rows[i].mid(0, 2).join(QLatin1Char(' ')))) << i << rows[i];
    }
}

} // namespace

void UnitTablesTest::units_data()
{
    addRows(QStringLiteral("units.csv"), 399);
}

void UnitTablesTest::units()
{
    QFETCH(int, index);
    QFETCH(QStringList, row);
    const detail::UnitDefinitionRow& unit = detail::unitTable[index];
    const QStringList actual = {
        QString::number(unit.id),
        QString::fromUtf8(unit.label),
        numberText(unit.factor),
        QStringLiteral("0x%1").arg(unit.dimension & ~detail::baseUnitBit, 0, 16),
        QString::number((unit.dimension & detail::baseUnitBit) != 0 ? 1 : 0),
        QString::number(unit.format),
    };
    QStringList expected = row;
    expected[2] = numberText(row[2].toDouble());
    QCOMPARE(actual, expected);

    const ZelUnitProvider units;
    const UnitId id = UnitId(unit.id);
    QVERIFY(units.has_unit(id));
    QCOMPARE(QString::fromStdString(units.get_label(id)), row[1]);
    QCOMPARE(numberText(units.get_factor(id)), expected[2]);
    QCOMPARE(units.get_dimension(id), row[3].toUInt(nullptr, 16));
    QVERIFY(units.get_set_units(id).empty());
    const std::vector<std::string> aliases = id == 213 ? std::vector<std::string>{"'"}
                                             : id == 214 || id == 216
                                                 ? std::vector<std::string>{"''"}
                                                 : std::vector<std::string>{};
    QCOMPARE(units.get_aliases(id), aliases);

    const UnitsetFormatProvider format(4);
    QVERIFY(format.has_format(id));
    // The id 0 is the one that the unit sets have a row for, too: it is shown in unit 1.
    QCOMPARE(int(format.get_unit(id)), id == 0 ? 1 : int(id));
    QCOMPARE(format.get_decimals(id), row[5].toInt() % 100);
    QCOMPARE(format.get_notation(id), row[5].toInt() / 100);
    QVERIFY(!format.get_label_override(id));
}

void UnitTablesTest::unitSets_data()
{
    addRows(QStringLiteral("unit_sets.csv"), 136);
}

void UnitTablesTest::unitSets()
{
    QFETCH(int, index);
    QFETCH(QStringList, row);
    const detail::UnitSetRow& set = detail::unitSetTable[index];
    QStringList actual = {QString::number(set.id), QString::fromUtf8(set.name),
                          QString::fromUtf8(set.symbol)};
    for (const detail::UnitSetDefault& shown : set.defaults) {
        actual.append(QStringLiteral("%1.%2").arg(shown.unit).arg(shown.format));
    }
    QStringList allowed;
    for (const int unit : set.allowed) {
        if (unit != 0) {
            allowed.append(QString::number(unit));
        }
    }
    actual.append(allowed.join(QLatin1Char(' ')));
    QCOMPARE(actual, row);
    QCOMPARE(set.allowed.back(), 0);

    const UnitId id = UnitId(set.id);
    for (int column = 0; column < 10; ++column) {
        const UnitsetFormatProvider format(column);
        const QStringList shown = row[3 + column].split(QLatin1Char('.'));
        QVERIFY(format.has_format(id));
        QCOMPARE(int(format.get_unit(id)), shown[0].toInt());
        QCOMPARE(format.get_decimals(id), shown[1].toInt() % 100);
        QCOMPARE(format.get_notation(id), shown[1].toInt() / 100);
        QVERIFY(!format.get_label_override(id));
    }
    if (id == 0) {
        return; // the plain unit 0 is what the unit provider tells of
    }
    const ZelUnitProvider units;
    QVERIFY(units.has_unit(id));
    QCOMPARE(units.get_factor(id), 1.0);
    QCOMPARE(units.get_label(id), std::string());
    QVERIFY_EXCEPTION_THROWN(units.get_aliases(id), std::invalid_argument);
    QStringList told;
    for (const UnitId unit : units.get_set_units(id)) {
        told.append(QString::number(unit));
    }
    QCOMPARE(told.join(QLatin1Char(' ')), row.last());
    // The first unit decides: a few sets allow units of other dimensions, too.
    QCOMPARE(units.get_dimension(id), units.get_dimension(units.get_set_units(id).front()));
}

void UnitTablesTest::idsStandInTableOrder()
{
    std::vector<int> expected;
    for (const char* file : {"units.csv", "unit_sets.csv"}) {
        for (const QStringList& row : rowsOf(QString::fromLatin1(file))) {
            expected.push_back(row[0].toInt());
        }
    }
    std::vector<int> ids;
    for (const UnitId id : ZelUnitProvider().get_unit_ids()) {
        ids.push_back(id);
    }
    QCOMPARE(ids, expected);
    QCOMPARE(ids[0], 0);
    QCOMPARE(ids[1], 1);
    QCOMPARE(ids[2], 2);
    QCOMPARE(ids[399], 0);
}

/// docs/unit_sets.md has one row for each unit set, as the tables tell it.
void UnitTablesTest::thePageHasAllUnitSets()
{
    const ZelUnitProvider units;
    const auto label = [&](std::int32_t id) {
        return QLatin1Char('`') + QString::fromStdString(units.get_label(UnitId(id))) +
               QLatin1Char('`');
    };
    QStringList wanted;
    for (const detail::UnitSetRow& set : detail::unitSetTable) {
        if (set.id == 0) {
            continue; // the place that all ids without a unit set fall back to
        }
        QStringList typed;
        for (const UnitId unit : units.get_set_units(UnitId(set.id))) {
            typed << QStringLiteral("%1 %2").arg(label(unit)).arg(int(unit));
        }
        wanted << QStringLiteral("| %1 | %2 | %3 | %4 | %5 |")
                      .arg(set.id)
                      .arg(QLatin1String(set.name), label(set.defaults[0].unit),
                           label(set.defaults[8].unit), typed.join(QStringLiteral(", ")));
    }
    QFile page(QStringLiteral(ZEL_SOURCE_DIR "/docs/unit_sets.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    QStringList found;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("| 1"))) {
            found << line;
        }
    }
    QCOMPARE(found.join(QLatin1Char('\n')), wanted.join(QLatin1Char('\n')));
}

QTEST_GUILESS_MAIN(UnitTablesTest)
#include "tst_unit_tables.moc"
