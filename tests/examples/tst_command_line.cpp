#include "examples/frame_editor/command_line.h"
#include "tests/helpers/checked_test.h"

using namespace frame_editor;

class TestCommandLine : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void everything();
    void windowOnly();
    void valueWithEqualsSign();
    void cells();
    void refused_data();
    void refused();
};

namespace {

QStringList words(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

} // namespace

void TestCommandLine::everything()
{
    CommandLine line;
    QString error;
    QVERIFY(parseCommandLine(words("m.json|--select|B1,B2|--select=B 3|--set|line_load=2.5 kN/m|"
                                   "--set=note=|--units|8|--save|o.json|--screenshot=o.png|--list|"
                                   "--print"),
                             line, error));
    QCOMPARE(error, QString());
    QCOMPARE(line.modelFile, QStringLiteral("m.json"));
    QCOMPARE(line.select, words("B1|B2|B 3"));
    QCOMPARE(line.settings.size(), 2);
    QCOMPARE(line.settings.at(0).first, QStringLiteral("line_load"));
    QCOMPARE(line.settings.at(0).second, QStringLiteral("2.5 kN/m"));
    QCOMPARE(line.settings.at(1).first, QStringLiteral("note"));
    QCOMPARE(line.settings.at(1).second, QString());
    QCOMPARE(line.column, 8);
    QCOMPARE(line.saveFile, QStringLiteral("o.json"));
    QCOMPARE(line.screenshotFile, QStringLiteral("o.png"));
    QVERIFY(line.list);
    QVERIFY(line.print);
    QVERIFY(line.headless());
}

void TestCommandLine::windowOnly()
{
    CommandLine line;
    QString error;
    QVERIFY(parseCommandLine(words("m.json|--select|B1|--units|3"), line, error));
    QVERIFY(!line.headless());
    CommandLine empty;
    QVERIFY(parseCommandLine({}, empty, error));
    QVERIFY(!empty.headless());
}

void TestCommandLine::cells()
{
    CommandLine line;
    QString error;
    QVERIFY(parseCommandLine(
        words("m.json|--cell|B.1.note=a=b.c|--paste=.name=rows.txt|--cell|B1.note="), line, error));
    QCOMPARE(line.cells.size(), 3);
    QCOMPARE(line.cells.at(0).member, QStringLiteral("B.1"));
    QCOMPARE(line.cells.at(0).column, QStringLiteral("note"));
    QCOMPARE(line.cells.at(0).text, QStringLiteral("a=b.c"));
    QVERIFY(!line.cells.at(0).isPaste);
    QCOMPARE(line.cells.at(1).member, QString());
    QCOMPARE(line.cells.at(1).column, QStringLiteral("name"));
    QCOMPARE(line.cells.at(1).text, QStringLiteral("rows.txt"));
    QVERIFY(line.cells.at(1).isPaste);
    QCOMPARE(line.cells.at(2).text, QString());
    QVERIFY(line.headless());
    for (const char* bad : {"B1", "B1.note", "B1=3", "B1.=3", "=3"}) {
        CommandLine none;
        QVERIFY(!parseCommandLine(
            {QStringLiteral("m.json"), QStringLiteral("--cell"), QString::fromUtf8(bad)}, none,
            error));
        QCOMPARE(error, QStringLiteral("--cell: \"%1\" is not of the form MEMBER.COLUMN=...")
                            .arg(QString::fromUtf8(bad)));
    }
}

void TestCommandLine::valueWithEqualsSign()
{
    CommandLine line;
    QString error;
    QVERIFY(parseCommandLine(words("m.json|--select-all|--set|note=a=b"), line, error));
    QVERIFY(line.selectAll);
    QCOMPARE(line.settings.at(0).second, QStringLiteral("a=b"));
}

void TestCommandLine::refused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("unknown option") << "m.json|--fast"
                                    << "unknown option --fast";
    QTest::newRow("two models") << "a.json|b.json"
                                << "one model file is enough: b.json";
    QTest::newRow("no value") << "m.json|--save"
                              << "--save needs a value";
    QTest::newRow("empty file name") << "m.json|--save="
                                     << "--save: the file name is empty";
    QTest::newRow("no equals sign") << "m.json|--select|B1|--set|note"
                                    << "--set: \"note\" is not of the form PROPERTY=TEXT";
    QTest::newRow("no property") << "m.json|--select|B1|--set|=3"
                                 << "--set: \"=3\" is not of the form PROPERTY=TEXT";
    QTest::newRow("column out of range") << "m.json|--units|10"
                                         << "--units: \"10\" is no column from 0 to 9";
    QTest::newRow("column as text") << "m.json|--units|metric"
                                    << "--units: \"metric\" is no column from 0 to 9";
    QTest::newRow("empty member") << "m.json|--select|B1,,B2"
                                  << "--select: an empty name in \"B1,,B2\"";
    QTest::newRow("no model") << "--list"
                              << "a model file is needed";
    QTest::newRow("nothing selected") << "m.json|--set|note=a"
                                      << "--set needs --select NAMES or --select-all";
}

void TestCommandLine::refused()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    CommandLine line;
    QString error;
    QVERIFY(!parseCommandLine(arguments.split(QLatin1Char('|')), line, error));
    QCOMPARE(error, message);
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_command_line.moc"
