#include "tests/helpers/checked_test.h"
#include "tests/helpers/german_locale.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

/// The program itself, as a process without a display. The files that it writes are read by Qt's
/// JSON parser and not by its own.
class TestFrameEditor : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void written_data();
    void written();
    void severalSettings();
    void tableCells();
    void refusedCells_data();
    void refusedCells();
    void pasteInAnotherEncoding_data();
    void pasteInAnotherEncoding();
    void nothingSet();
    void passingValuesStay();
    void moved();
    void refused_data();
    void refused();
    void failedSaveLeavesNoPicture();
    void usage_data();
    void usage();
    void argumentsInAnotherEncoding();
    void listAndPrint();
    void screenshot();
    void form();
    void badForm();
    void noDisplay();
    void help();
    void german();
    void germanWordsAreNotTaken_data();
    void germanWordsAreNotTaken();
    void french();

private:
    struct Result
    {
        int code = -1;
        QString out;
        QString err;
    };

    /// Runs under the locale of C or, if one is given, that of another language.
    static Result run(const QStringList& arguments, const QString& locale = QStringLiteral("C"));
    static QString model(const char* name = "portal_frame.json");
    static QJsonObject read(const QString& fileName);
    static QJsonObject memberOf(const QJsonObject& root, const QString& name);
    /// The paths of all values in which two models differ.
    static QStringList differences(const QJsonObject& left, const QJsonObject& right);
};

TestFrameEditor::Result TestFrameEditor::run(const QStringList& arguments, const QString& locale)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("LANGUAGE"));
    environment.insert(QStringLiteral("LC_ALL"), locale);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(FRAME_EDITOR_PROGRAM), arguments);
    Result result;
    if (process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit) {
        result.code = process.exitCode();
    }
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QString TestFrameEditor::model(const char* name)
{
    return QStringLiteral(FRAME_EDITOR_MODELS "/") + QLatin1String(name);
}

QJsonObject TestFrameEditor::read(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                          : QJsonObject();
}

QJsonObject TestFrameEditor::memberOf(const QJsonObject& root, const QString& name)
{
    for (const QJsonValue& member : root.value(QStringLiteral("members")).toArray()) {
        if (member.toObject().value(QStringLiteral("name")).toString() == name) {
            return member.toObject();
        }
    }
    return QJsonObject();
}

QStringList TestFrameEditor::differences(const QJsonObject& left, const QJsonObject& right)
{
    QStringList result;
    for (const QString& key : left.keys()) {
        if (!left.value(key).isArray()) {
            if (left.value(key) != right.value(key)) {
                result << key;
            }
            continue;
        }
        const QJsonArray before = left.value(key).toArray();
        const QJsonArray after = right.value(key).toArray();
        if (before.size() != after.size()) {
            result << key;
            continue;
        }
        for (int i = 0; i < before.size(); ++i) {
            const QJsonObject item = before.at(i).toObject();
            for (const QString& field : item.keys()) {
                if (item.value(field) != after.at(i).toObject().value(field)) {
                    result << item.value(QStringLiteral("name")).toString() + QLatin1Char('.') +
                                  field;
                }
            }
        }
    }
    return result;
}

void TestFrameEditor::written_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    const auto row = [](const char* setting, int column, const char* key, const QJsonValue& value) {
        QTest::addRow("%s in column %d", setting, column)
            << QString::fromUtf8(setting) << column << QString::fromUtf8(key) << value;
    };
    row("line_load=2.5 kN/m", 8, "line_load", 2.5);
    row("line_load=2.5", 0, "line_load", 2.5);
    row("line_load=2500 N/m", 0, "line_load", 2.5);
    row("length_offset=2 ft", 0, "length_offset", 0.6096);
    row("length_offset=5' 6 1/2''", 0, "length_offset", (6.5 * 0.0254 / 0.3048 + 5) * 0.3048);
    row("length_offset=12", 6, "length_offset", 12 * 0.001);
    row("length_offset=-1", 8, "length_offset", -0.3048);
    row("moment=3.125", 0, "moment", 3.125);
    row("temperature_difference=-12.5", 0, "temperature_difference", -12.5);
    row("temperature_difference=20 K", 0, "temperature_difference", 20.0);
    row("rotation=0.25 rad", 0, "rotation", 0.25);
    row("rotation=90 \xc2\xb0", 3, "rotation", 90 * 0.017453292519943295);
    row("thickness=15 mm", 0, "thickness", 15 * 0.001);
    row("elastic_modulus=2.05e5", 0, "elastic_modulus", 2.05e8);
    row("name=Column one", 0, "name", QStringLiteral("Column one"));
    row("note=a\xf0\x9f\x8f\x97"
        "b",
        0, "note",
        QStringLiteral("a\U0001F3D7"
                       "b"));
    row("note=\xc3\xa4 \"b\" = c", 0, "note", QStringLiteral("\u00e4 \"b\" = c"));
    row("kind=Brace", 0, "kind", QStringLiteral("brace"));
    row("section=HEA 240", 0, "section", QStringLiteral("HEA 240"));
    row("material=S235", 0, "material", QStringLiteral("S235"));
    row("support=fixed", 0, "support", QStringLiteral("fixed"));
    row("load_direction=projected", 0, "load_direction", QStringLiteral("projected"));
    row("hinge_start=yes", 0, "hinge_start", true);
    row("hinge_end=yes", 0, "hinge_end", true);
    row("bedded=yes", 0, "bedded", true);
    row("drawing=plans/c 1.pdf", 0, "drawing", QStringLiteral("plans/c 1.pdf"));
}

void TestFrameEditor::written()
{
    QFETCH(QString, setting);
    QFETCH(int, column);
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("out.json"));
    const Result result = run({model(), QStringLiteral("--select"), QStringLiteral("C1"),
                               QStringLiteral("--set"), setting, QStringLiteral("--units"),
                               QString::number(column), QStringLiteral("--save"), saved});
    QCOMPARE(result.err, QString());
    QCOMPARE(result.code, 0);
    const QJsonObject before = read(model());
    const QJsonObject after = read(saved);
    QCOMPARE(differences(before, after), QStringList{QStringLiteral("C1.") + key});
    const QJsonArray members = after.value(QStringLiteral("members")).toArray();
    QCOMPARE(members.at(0).toObject().value(key), value);
    QVERIFY(result.out.contains(QStringLiteral(" -> ")));
    QVERIFY(result.out.endsWith(QStringLiteral("saved ") + saved + QLatin1Char('\n')));
}

void TestFrameEditor::severalSettings()
{
    QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("out.json"));
    const Result result = run({model(), QStringLiteral("--select"), QStringLiteral("C1,B1"),
                               QStringLiteral("--select=T1"), QStringLiteral("--set"),
                               QStringLiteral("line_load=2.5 kN/m"), QStringLiteral("--set"),
                               QStringLiteral("hinge_start=yes"), QStringLiteral("--set"),
                               QStringLiteral("bedded=yes"), QStringLiteral("--save"), saved});
    QCOMPARE(result.err, QString());
    QCOMPARE(result.code, 0);
    const QStringList lines = result.out.split(QLatin1Char('\n'));
    QCOMPARE(lines.at(0),
             QStringLiteral("C1.line_load: 3.60 kN/m (3.6000000000000001) -> 2.50 kN/m (2.5)"));
    QCOMPARE(lines.at(1), QStringLiteral("B1.line_load: 4.50 kN/m (4.5) -> 2.50 kN/m (2.5)"));
    QCOMPARE(lines.at(2), QStringLiteral("T1.line_load: 0.00 kN/m (0) -> 2.50 kN/m (2.5)"));
    QCOMPARE(lines.at(3), QStringLiteral("C1.hinge_start: no -> yes"));
    QCOMPARE(lines.at(5), QStringLiteral("T1.hinge_start: yes, unchanged"));
    QStringList found = differences(read(model()), read(saved));
    found.sort();
    QCOMPARE(found, (QStringList{QStringLiteral("B1.hinge_start"), QStringLiteral("B1.line_load"),
                                 QStringLiteral("C1.bedded"), QStringLiteral("C1.hinge_start"),
                                 QStringLiteral("C1.line_load"), QStringLiteral("T1.bedded"),
                                 QStringLiteral("T1.line_load")}));
}

void TestFrameEditor::tableCells()
{
    QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("out.json"));
    QFile rows(folder.filePath(QStringLiteral("rows.txt")));
    QVERIFY(rows.open(QIODevice::WriteOnly));
    rows.write("S1\tN2\tN4\tBrace\r\nS2\tN4\tN6\tBrace\r\n");
    rows.close();
    const QString cell = QStringLiteral("--cell");
    const Result result =
        run({model(), cell, QStringLiteral("R1.line_load=2.5 kN/m"), cell,
             QStringLiteral("P1.section=HEA 200"), cell, QStringLiteral("R1.kind=brace"), cell,
             QStringLiteral("R1.hinge_end=yes"), cell, QStringLiteral("R1.end=N5"), cell,
             QStringLiteral("T1.length_offset=0.000 m"), QStringLiteral("--paste"),
             QStringLiteral(".name=") + rows.fileName(), QStringLiteral("--save"), saved});
    QCOMPARE(result.err, QString());
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QStringLiteral("Line load of R1: written\n"
                                        "Cross section of P1: written\n"
                                        "Kind of R1: written\n"
                                        "Hinge at end of R1: written\n"
                                        "End node of R1: written\n"
                                        "T1.length_offset: unchanged\n"
                                        "2 new members: written\n"
                                        "saved %1\n")
                             .arg(saved));
    const QJsonObject after = read(saved);
    const QJsonObject rafter = memberOf(after, QStringLiteral("R1"));
    QCOMPARE(rafter.value(QStringLiteral("line_load")).toDouble(), 2.5);
    QCOMPARE(rafter.value(QStringLiteral("kind")).toString(), QStringLiteral("brace"));
    QCOMPARE(rafter.value(QStringLiteral("end")).toString(), QStringLiteral("N5"));
    QVERIFY(rafter.value(QStringLiteral("hinge_end")).toBool());
    QCOMPARE(memberOf(after, QStringLiteral("P1")).value(QStringLiteral("section")).toString(),
             QStringLiteral("HEA 200"));
    QCOMPARE(memberOf(after, QStringLiteral("S2")).value(QStringLiteral("start")).toString(),
             QStringLiteral("N4"));
    QCOMPARE(
        memberOf(after, QStringLiteral("T1")).value(QStringLiteral("length_offset")).toDouble(),
        0.0004);
    QCOMPARE(after.value(QStringLiteral("members")).toArray().size(), 13);
}

void TestFrameEditor::refusedCells_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* cell, const char* message) {
        QTest::newRow(cell) << QString::fromUtf8(cell) << QString::fromUtf8(message);
    };
    row("R1.line_load=abc", "R1, Line load: \"abc\" is not understood as a number with a unit such "
                            "as kN/m; this cell was left as it is");
    row("R1.divisions=4294967297", "R1, Divisions: \"4294967297\" is no whole number from 1 to "
                                   "1000; this cell was left as it is");
    row("R1.name=C1", "R1, Name: there is a member \"C1\" already; this cell was left as it is");
    row("R1.section=IPE 201", "Cross section: \"IPE 201\" is not in the list");
    row("R1.end=N2", "End node: \"N2\" is not in the list");
    row("R1.hinge_end=2", "Hinge at end: \"2\" is neither yes nor no");
    row("L1.section=IPE 200", "Cross section: this member has no such cell");
    row("R1.zoom=1", "Zoom: this member has no such cell");
    row("R1.colour=red", "the table has no column \"colour\"");
}

void TestFrameEditor::refusedCells()
{
    QFETCH(QString, cell);
    QFETCH(QString, message);
    QTemporaryDir folder;
    const Result result = run({model(), QStringLiteral("--cell"), QStringLiteral("C1.note=good"),
                               QStringLiteral("--cell"), cell, QStringLiteral("--save"),
                               folder.filePath(QStringLiteral("out.json"))});
    QCOMPARE(result.err, QStringLiteral("frame_editor: ") + message + QLatin1Char('\n'));
    QCOMPARE(result.code, 1);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

void TestFrameEditor::pasteInAnotherEncoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isText");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf"
                                                   "St\xc3\xbctze\n")
                                     << true;
    QTest::newRow("Latin 1") << QByteArray("St\xfctze\n") << false;
    QTest::newRow("UTF-16") << QByteArray("\xff\xfeS\0t\0\xfc\0\n\0", 10) << false;
    QTest::newRow("cut short") << QByteArray("St\xc3") << false;
}

void TestFrameEditor::pasteInAnotherEncoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isText);
    QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("out.json"));
    QFile rows(folder.filePath(QStringLiteral("rows.txt")));
    QVERIFY(rows.open(QIODevice::WriteOnly));
    rows.write(bytes);
    rows.close();
    const Result result =
        run({model(), QStringLiteral("--paste"), QStringLiteral("R1.name=") + rows.fileName(),
             QStringLiteral("--save"), saved});
    QCOMPARE(result.code, isText ? 0 : 1);
    QCOMPARE(
        result.err,
        isText
            ? QString()
            : QStringLiteral("frame_editor: %1: bytes that are not UTF-8\n").arg(rows.fileName()));
    QCOMPARE(QFile::exists(saved), isText);
    QVERIFY(!isText || !memberOf(read(saved), QStringLiteral("Stütze")).isEmpty());
}

void TestFrameEditor::nothingSet()
{
    QTemporaryDir folder;
    for (const char* name : {"portal_frame.json", "multi_storey.json"}) {
        const QString saved = folder.filePath(QLatin1String(name));
        const Result result = run({model(name), QStringLiteral("--save"), saved});
        QCOMPARE(result.code, 0);
        QFile left(model(name));
        QFile right(saved);
        QVERIFY(left.open(QIODevice::ReadOnly) && right.open(QIODevice::ReadOnly));
        QCOMPARE(right.readAll(), left.readAll());
    }
}

void TestFrameEditor::passingValuesStay()
{
    // T1 holds 0.0004 m and shows "0.000 m": typing what it shows changes nothing.
    QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("out.json"));
    const Result result =
        run({model(), QStringLiteral("--select"), QStringLiteral("T1"), QStringLiteral("--set"),
             QStringLiteral("length_offset=0.000 m"), QStringLiteral("--save"), saved});
    QCOMPARE(result.code, 0);
    QVERIFY(result.out.contains(QStringLiteral("unchanged")));
    QCOMPARE(differences(read(model()), read(saved)), QStringList());
    QCOMPARE(memberOf(read(saved), QStringLiteral("T1"))
                 .value(QStringLiteral("length_offset"))
                 .toDouble(),
             0.0004);
}

void TestFrameEditor::moved()
{
    QTemporaryDir folder;
    const QString saved = folder.filePath(QStringLiteral("out.json"));
    const Result result =
        run({model(), QStringLiteral("--select"), QStringLiteral("C1"), QStringLiteral("--set"),
             QStringLiteral("length_offset=25 m"), QStringLiteral("--save"), saved});
    QCOMPARE(result.code, 0);
    QVERIFY(result.out.contains(
        QStringLiteral("Length offset: limited to 10.000 m, \"25 m\" was typed\n")));
    QCOMPARE(memberOf(read(saved), QStringLiteral("C1"))
                 .value(QStringLiteral("length_offset"))
                 .toDouble(),
             10.0);
}

void TestFrameEditor::refused_data()
{
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QString>("members");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* tag, const QStringList& settings, const char* members,
                        const char* message) {
        QTest::newRow(tag) << settings << QString::fromUtf8(members)
                           << QStringLiteral("frame_editor: ") + QString::fromUtf8(message);
    };
    const auto one = [](const char* setting) { return QStringList{QString::fromUtf8(setting)}; };
    row("word", one("line_load=abc"), "C1",
        "Line load: \"abc\" is not understood as a number with a unit such as kN/m; nothing is "
        "written");
    row("unit of another kind", one("line_load=2 m"), "C1",
        "Line load: \"2 m\" is not understood as a number with a unit such as kN/m; nothing is "
        "written");
    row("comma", one("length_offset=2,5"), "C1",
        "Length offset: \"2,5\": decimals stand behind a point; nothing is written");
    row("not finite", one("moment=1/0"), "C1",
        "Moment: \"1/0\" is no finite number; nothing is written");
    row("good ones before", {QStringLiteral("line_load=1"), QStringLiteral("moment=x")}, "C1",
        "Moment: \"x\" is not understood as a number with a unit such as kNm; nothing is written");
    row("good ones behind", {QStringLiteral("moment=x"), QStringLiteral("line_load=1")}, "C1",
        "Moment: \"x\" is not understood as a number with a unit such as kNm; nothing is written");
    row("unknown property", one("colour=red"), "C1", "there is no property \"colour\"");
    row("property without a field", one("start=N1"), "C1", "there is no property \"start\"");
    row("unknown choice", one("kind=Arch"), "C1", "Kind: \"Arch\" is not in the list");
    row("unknown material", one("material=Wood"), "C1",
        "Material: \"Wood\" is not in the list; nothing is written");
    row("no flag", one("hinge_end=2"), "C1", "Hinge at end: \"2\" is neither yes nor no");
    row("taken name", one("name=R1"), "C1",
        "Name: there is a member \"R1\" already; nothing is written");
    row("one name for two", one("name=X"), "C1,C2",
        "Name: two members cannot have the same name; nothing is written");
    row("empty name", one("name="), "C1", "Name: a member needs a name; nothing is written");
    row("long name", one("name=xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"), "C1",
        "Name: \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\" cannot stand here; "
        "nothing is written");
    row("line break", one("note=first\nsecond"), "C1",
        "Note: the text has characters that cannot be typed");
    row("line break in a list", one("material=S2\n35"), "C1",
        "Material: the text has characters that cannot be typed");
    row("mark of a rigid link", one("hinge_end=yes"), "L1",
        "Hinge at end: a rigid link has no such value");
    row("number of a rigid link", one("line_load=2"), "L1",
        "Line load: a rigid link has no such value");
    row("disabled field", one("bedding_modulus=1"), "C1", "Bedding modulus: the field is disabled");
}

void TestFrameEditor::refused()
{
    QFETCH(QStringList, settings);
    QFETCH(QString, members);
    QFETCH(QString, message);
    QTemporaryDir folder;
    QStringList arguments{model(), QStringLiteral("--select"), members};
    for (const QString& setting : settings) {
        arguments << QStringLiteral("--set") << setting;
    }
    arguments << QStringLiteral("--save") << folder.filePath(QStringLiteral("out.json"))
              << QStringLiteral("--screenshot") << folder.filePath(QStringLiteral("out.png"));
    const Result result = run(arguments);
    QCOMPARE(result.err, message + QLatin1Char('\n'));
    QCOMPARE(result.code, 1);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

void TestFrameEditor::failedSaveLeavesNoPicture()
{
    QTemporaryDir folder;
    const Result result =
        run({model(), QStringLiteral("--save"), folder.filePath(QStringLiteral("no/out.json")),
             QStringLiteral("--screenshot"), folder.filePath(QStringLiteral("out.png"))});
    QCOMPARE(result.code, 1);
    QVERIFY(result.err.contains(QStringLiteral("not saved")));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

void TestFrameEditor::usage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* tag, const QStringList& arguments, int code,
                        const QString& message) {
        QTest::newRow(tag) << arguments << code << message;
    };
    const QString save = QStringLiteral("--save");
    row("no model", {QStringLiteral("--list")}, 2, QStringLiteral("a model file is needed"));
    row("unknown option", {model(), QStringLiteral("--fast")}, 2,
        QStringLiteral("unknown option --fast"));
    row("column", {model(), QStringLiteral("--units"), QStringLiteral("12")}, 2,
        QStringLiteral("--units: \"12\" is no column from 0 to 9"));
    row("unknown member",
        {model(), QStringLiteral("--select"), QStringLiteral("C1,C7"), QStringLiteral("--print")},
        1, model() + QStringLiteral(": there is no member \"C7\""));
    row("missing model", {QStringLiteral("/nonexistent/m.json"), QStringLiteral("--list")}, 1,
        QStringLiteral("/nonexistent/m.json: No such file or directory"));
    row("no folder", {model(), save, QStringLiteral("/nonexistent/m.json")}, 1,
        QStringLiteral("/nonexistent/m.json: not saved: No such file or directory"));
    row("no folder for the picture",
        {model(), QStringLiteral("--screenshot"), QStringLiteral("/nonexistent/m.png")}, 1,
        QStringLiteral("/nonexistent/m.png: not saved: No such file or directory"));
}

void TestFrameEditor::usage()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFETCH(QString, message);
    const Result result = run(arguments);
    QCOMPARE(result.err, QStringLiteral("frame_editor: ") + message + QLatin1Char('\n'));
    QCOMPARE(result.code, code);
}

void TestFrameEditor::argumentsInAnotherEncoding()
{
    // A shell, since Qt starts programs with arguments that it has encoded itself.
    QProcess process;
    process.start(QStringLiteral("sh"),
                  {QStringLiteral("-c"),
                   QStringLiteral("exec \"$0\" \"$1\" --set \"note=f$(printf '\\374')r\" --list"),
                   QStringLiteral(FRAME_EDITOR_PROGRAM), model()});
    QVERIFY(process.waitForFinished(120000));
    QCOMPARE(QString::fromUtf8(process.readAllStandardError()),
             QStringLiteral("frame_editor: argument 3 is not UTF-8\n"));
    QCOMPARE(process.exitCode(), 2);
}

void TestFrameEditor::listAndPrint()
{
    const Result list = run({model("multi_storey.json"), QStringLiteral("--list")});
    QCOMPARE(list.code, 0);
    QCOMPARE(list.out.count(QLatin1Char('\n')), 96);
    QCOMPARE(list.out.section(QLatin1Char('\n'), 0, 0),
             QStringLiteral("C1A\tColumn\tHEB 300\tA0 - A1\t4.200 m"));
    const Result print =
        run({model(), QStringLiteral("--select"), QStringLiteral("T1"), QStringLiteral("--print"),
             QStringLiteral("--units"), QStringLiteral("9")});
    QCOMPARE(print.code, 0);
    QVERIFY(
        print.out.contains(QStringLiteral("T1.length_offset: 0.02 in (0.00040000000000000002)\n")));
    QVERIFY(print.out.contains(QStringLiteral("T1.temperature_difference: 5.00 \u00b0C (5)\n")));
    QVERIFY(!print.out.contains(QStringLiteral("C1.")));
}

void TestFrameEditor::screenshot()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("out.png"));
    const Result result = run({model(), QStringLiteral("--select"), QStringLiteral("C1,C2"),
                               QStringLiteral("--screenshot"), fileName});
    QCOMPARE(result.err, QString());
    QCOMPARE(result.code, 0);
    const QImage image(fileName);
    QVERIFY(image.width() >= 800);
    QSet<QRgb> colours;
    for (int x = 0; x < image.width(); x += 3) {
        for (int y = 0; y < image.height(); y += 3) {
            colours.insert(image.pixel(x, y));
        }
    }
    QVERIFY(colours.size() > 20);
}

void TestFrameEditor::form()
{
    // A file beside the program's own: a field for the thickness in another unit set.
    QTemporaryDir folder;
    const QString form = folder.filePath(QStringLiteral("mine.json"));
    QFile file(form);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"format": "frame_form", "version": 1, "title": "Mine", "groups": [
        {"title": "Mine", "fields": [{"property": "thickness", "hints": {"editor": "quantity",
         "validator": {"unit_id": 1025}}}]}]})");
    file.close();
    const QString saved = folder.filePath(QStringLiteral("out.json"));
    const QStringList arguments{model(),
                                QStringLiteral("--form"),
                                form,
                                QStringLiteral("--select"),
                                QStringLiteral("C1"),
                                QStringLiteral("--save"),
                                saved,
                                QStringLiteral("--set")};
    // A bare number counts in the unit that the field shows.
    const Result result = run(arguments + QStringList{QStringLiteral("thickness=35")});
    QCOMPARE(result.err, QString());
    QCOMPARE(result.code, 0);
    QCOMPARE(
        memberOf(read(saved), QStringLiteral("C1")).value(QStringLiteral("thickness")).toDouble(),
        35 * 0.001);
    const Result missing = run(arguments + QStringList{QStringLiteral("line_load=1")});
    QCOMPARE(missing.code, 1);
    QCOMPARE(missing.err,
             QStringLiteral("frame_editor: the form has no field for \"line_load\"\n"));
}

void TestFrameEditor::badForm()
{
    QTemporaryDir folder;
    const QString form = folder.filePath(QStringLiteral("bad.json"));
    QFile file(form);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"frame_form\", \"version\": 1}");
    file.close();
    const Result result = run({model(), QStringLiteral("--form"), form, QStringLiteral("--save"),
                               folder.filePath(QStringLiteral("out.json"))});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.err,
             QStringLiteral("frame_editor: %1:1:1: $: the key \"title\" is missing\n").arg(form));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("bad.json")});
}

void TestFrameEditor::noDisplay()
{
    const Result result = run({model()});
    QCOMPARE(result.code, 2);
    QVERIFY(result.err.startsWith(QStringLiteral("frame_editor: there is no display")));
    QCOMPARE(result.err.count(QLatin1Char('\n')), 1);
}

void TestFrameEditor::help()
{
    const Result result = run({QStringLiteral("--help")});
    QCOMPARE(result.code, 0);
    for (const char* option :
         {"--select", "--set", "--units", "--save", "--screenshot", "--list", "--print"}) {
        QVERIFY(result.out.contains(QLatin1String(option)));
    }
}

void TestFrameEditor::german()
{
    // The C library has to know the locale too: its decimal comma must not get anywhere.
    QTemporaryDir folder;
    const QString problem = zel::test::makeGermanLocale(folder.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    qputenv("LOCPATH", folder.path().toUtf8());
    const auto arguments = [&folder](const char* name) {
        QStringList result{model(), QStringLiteral("--select"), QStringLiteral("R1,T1")};
        for (const char* setting :
             {"line_load=2.5 kN/m", "length_offset=5' 6 1/2''", "kind=Beam", "hinge_end=yes",
              "load_direction=normal", "elastic_modulus=2.05e5", "bedded=yes"}) {
            result << QStringLiteral("--set") << QLatin1String(setting);
        }
        return result << QStringLiteral("--print") << QStringLiteral("--save")
                      << folder.filePath(QLatin1String(name));
    };
    const Result english = run(arguments("same.json"));
    QFile saved(folder.filePath(QStringLiteral("same.json")));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    const QByteArray bytes = saved.readAll();
    saved.close();
    QVERIFY(saved.remove());
    const Result german = run(arguments("same.json"), QStringLiteral("de_DE.UTF-8"));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), bytes);
    qunsetenv("LOCPATH");

    QCOMPARE(german.err, QString());
    QCOMPARE(german.code, 0);
    // Values are told in the words that "--set" takes, the rest in the user's.
    QString expected = english.out;
    expected.replace(QStringLiteral(", unchanged\n"), QStringLiteral(", unverändert\n"));
    expected.replace(QStringLiteral("\nsaved "), QStringLiteral("\ngespeichert: "));
    QVERIFY(expected != english.out);
    QCOMPARE(german.out, expected);
}

void TestFrameEditor::germanWordsAreNotTaken_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("message");
    QTest::newRow("entry") << "kind=Träger"
                           << "Art: „Träger“ steht nicht in der Liste";
    QTest::newRow("button") << "load_direction=Senkrecht zum Stab"
                            << "Lastrichtung: Es gibt keine Auswahl „Senkrecht zum Stab“";
    QTest::newRow("yes") << "hinge_end=ja"
                         << "Gelenk am Ende: „ja“ ist weder yes noch no";
    QTest::newRow("comma") << "line_load=2,5"
                           << "Linienlast: „2,5“: Dezimalstellen stehen hinter einem Punkt; "
                              "nichts wird übernommen";
}

void TestFrameEditor::germanWordsAreNotTaken()
{
    QFETCH(QString, setting);
    QFETCH(QString, message);
    const Result result = run({model(), QStringLiteral("--select"), QStringLiteral("C1"),
                               QStringLiteral("--set"), setting},
                              QStringLiteral("de_DE.UTF-8"));
    QCOMPARE(result.err, QStringLiteral("frame_editor: ") + message + QLatin1Char('\n'));
    QCOMPARE(result.code, 1);
}

void TestFrameEditor::french()
{
    const QString locale = QStringLiteral("fr_CA.UTF-8");
    QVERIFY(
        run({QStringLiteral("--help")}, locale).out.startsWith(QStringLiteral("Usage\u00a0: ")));
    const Result unknown = run({QStringLiteral("--colour")}, locale);
    QCOMPARE(unknown.err, QStringLiteral("frame_editor: option inconnue --colour\n"));
    QCOMPARE(unknown.code, 2);
    QVERIFY(run({model()}, locale).err.startsWith(QStringLiteral("frame_editor: il n’y a pas")));
}

QTEST_GUILESS_MAIN(TestFrameEditor)
#include "tst_frame_editor.moc"
