#include "examples/frame_editor/file_error.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/model_file.h"
#include "tests/examples/editor_stage.h"
#include "tests/helpers/checked_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

using namespace frame_editor;
using zel::test::EditorStage;

namespace {

QString formPath(const char* name)
{
    return QStringLiteral(FRAME_EDITOR_MODELS "/../forms/") + QLatin1String(name);
}

/// A form of one group with these fields, each on a line of its own from line 4 on.
QByteArray formWith(const QByteArray& fields)
{
    return "{\"format\": \"frame_form\", \"version\": 1, \"title\": \"T\",\n"
           "\"groups\": [{\"title\": \"G\",\n\"fields\": [\n" +
           fields + "\n]}]}";
}

const char* const thickness =
    R"({"property": "thickness", "hints": {"editor": "quantity", "validator": {"unit_id": 1025}}})";

} // namespace

class TestForm : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void suppliedForms_data();
    void suppliedForms();
    void builtIn();
    void refused_data();
    void refused();
    void refusedGroups_data();
    void refusedGroups();
    void fieldOfTheUser();
    void captionsKeepTheirAmpersands();
    void otherForm();
    void otherFormTakesWhatIsBeingTyped();
    void badFormInTheWindow();
};

void TestForm::suppliedForms_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<int>("count");
    QTest::newRow("member") << formPath("member.json") << 20;
    QTest::newRow("loads") << formPath("loads.json") << 5;
}

void TestForm::suppliedForms()
{
    QFETCH(QString, fileName);
    QFETCH(int, count);
    EditorStage stage;
    stage.window.panel().setForm(loadForm(fileName));
    QCOMPARE(int(stage.window.panel().fields().size()), count);
    const QByteArray before = writeModel(stage.document.model());
    for (int member = 0; member < 10; ++member) {
        stage.select({member});
        stage.select({member, 9 - member});
    }
    QCOMPARE(writeModel(stage.document.model()), before);
}

void TestForm::builtIn()
{
    const Form form = builtInForm();
    QCOMPARE(form.title, loadForm(formPath("member.json")).title);
    // It has all that a member has.
    std::size_t fields = 0;
    for (const FormGroup& group : form.groups) {
        fields += group.fields.size() + (group.property ? 1 : 0);
    }
    QCOMPARE(fields, memberProperties().size());
}

void TestForm::refused_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* tag, const char* field, const char* message) {
        QTest::newRow(tag) << QByteArray(field)
                           << QStringLiteral("f.json:4:") + QString::fromUtf8(message);
    };
    row("no object", "7", "1: $.groups[0].fields[0]: an object is needed here, not a number");
    row("unknown key", R"({"property": "note", "hint": {}})",
        "30: $.groups[0].fields[0].hint: the format has no key \"hint\" here");
    row("no hints", R"({"property": "note"})",
        "1: $.groups[0].fields[0]: the key \"hints\" is missing");
    row("hints as text", R"({"property": "note", "hints": "lineedit"})",
        "31: $.groups[0].fields[0].hints: an object is needed here, not a text");
    row("unknown property", R"({"property": "colour", "hints": {"editor": "lineedit"}})",
        "14: $.groups[0].fields[0].property: members have no property \"colour\"");
    row("unknown editor", R"({"property": "note", "hints": {"editor": "slider"}})",
        "31: $.groups[0].fields[0].hints: this describes no editor");
    row("no editor", R"({"property": "note", "hints": {}})",
        "31: $.groups[0].fields[0].hints: this describes no editor");
    row("editor that does not fit", R"({"property": "line_load", "hints": {"editor": "lineedit"}})",
        "36: $.groups[0].fields[0].hints: an editor \"lineedit\" cannot edit this property");
    row("numbers for a text",
        R"({"property": "note", "hints": {"editor": "lineedit", "validator": {"type": "double"}}})",
        "31: $.groups[0].fields[0].hints: an editor \"lineedit\" cannot edit this property");
    row("optional", R"({"property": "note", "hints": {"editor": "lineedit", "optional": true}})",
        "31: $.groups[0].fields[0].hints: every member has a value here: \"optional\" has no "
        "meaning");
    row("unknown hint", R"({"property": "note", "hints": {"editor": "lineedit", "width": 3}})",
        "31: $.groups[0].fields[0].hints.width: unknown key; expected one of ");
    row("limit as text",
        R"({"property": "moment", "hints": {"editor": "quantity", "validator": )"
        R"({"kind": {"type": "double"}, "minimum": "low"}}})",
        "33: $.groups[0].fields[0].hints.validator.minimum: expected a number, found \"low\"");
    row("limits of another type",
        R"({"property": "moment", "hints": {"editor": "quantity", "validator": )"
        R"({"kind": {"type": "int"}, "minimum": 1}}})",
        "33: $.groups[0].fields[0].hints.validator.kind: the limits of a quantity are of the type "
        "\"double\"");
    row("limits in the wrong order",
        R"({"property": "moment", "hints": {"editor": "quantity", "validator": )"
        R"({"kind": {"type": "double"}, "minimum": 10, "maximum": -10}}})",
        "33: $.groups[0].fields[0].hints.validator.minimum: expected a number up to the maximum, "
        "-10, found 10");
    row("no room for a text",
        R"({"property": "note", "hints": {"editor": "lineedit", )"
        R"("validator": {"type": "string", "max_length": 0}}})",
        "31: $.groups[0].fields[0].hints.validator.max_length: expected an integer from 1 to "
        "2147483647, found 0");
    row("unit set of another quantity",
        R"({"property": "moment", "hints": {"editor": "quantity", "validator": {"unit_id": 1001}}})",
        "33: $.groups[0].fields[0].hints: 1001 is no unit set for this property");
    row("plain unit",
        R"({"property": "thickness", "hints": {"editor": "quantity", "validator": {"unit_id": 16}}})",
        "36: $.groups[0].fields[0].hints: 16 is no unit set for this property");
    row("unit set that there is not",
        R"({"property": "moment", "hints": {"editor": "quantity", "validator": {"unit_id": 1999}}})",
        "33: $.groups[0].fields[0].hints: Invalid unit id.");
    row("list that there is not",
        R"({"property": "kind", "hints": {"editor": "radio", "values": "sorts"}})",
        "31: $.groups[0].fields[0].hints.values: expected ");
    row("list of another property",
        R"({"property": "kind", "hints": {"editor": "radio", "values": "support"}})",
        "31: $.groups[0].fields[0].hints.values: the entries of this property are named \"kind\"");
    row("no list", R"({"property": "kind", "hints": {"editor": "radio"}})",
        "31: $.groups[0].fields[0].hints: No such node (values)");
    row("hint twice", R"({"property": "note", "hints": {"editor": "file", "editor": "lineedit"}})",
        "50: the name \"editor\" stands twice in one object");
}

void TestForm::refused()
{
    QFETCH(QByteArray, field);
    QFETCH(QString, message);
    try {
        readForm(formWith(field), QStringLiteral("f.json"));
        QFAIL("the form was accepted");
    } catch (const FileError& error) {
        // What the library says of its own keys ends in a list that is not repeated here.
        QVERIFY2(error.message().startsWith(message), qPrintable(error.message()));
        QVERIFY(!error.message().contains(QLatin1Char('\n')));
    }
}

void TestForm::refusedGroups_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const QByteArray head = "{\"format\": \"frame_form\", \"version\": 1, \"title\": \"T\", ";
    QTest::newRow("format") << QByteArray("{\"format\": \"frame_model\"}")
                            << "f.json:1:12: $.format: \"frame_form\" is needed here";
    QTest::newRow("version") << QByteArray("{\"format\": \"frame_form\", \"version\": 3}")
                             << "f.json:1:37: $.version: this program reads version 1, not 3";
    QTest::newRow("no groups") << head + "\"fields\": []}"
                               << "f.json:1:64: $.fields: the format has no key \"fields\" here";
    QTest::newRow("switch that is no flag")
        << head + "\"groups\": [{\"title\": \"G\", \"property\": \"note\", \"fields\": []}]}"
        << "f.json:1:92: $.groups[0].property: a group is switched by a property that is yes or no";
    QTest::newRow("property twice")
        << formWith(QByteArray(thickness) + ",\n" + thickness)
        << "f.json:5:14: $.groups[0].fields[1].property: the form has a field for \"thickness\" "
           "already";
    QTest::newRow("no JSON") << QByteArray("title: T") << "f.json:1:1: \"title\" is no JSON value";
}

void TestForm::refusedGroups()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    try {
        readForm(text, QStringLiteral("f.json"));
        QFAIL("the form was accepted");
    } catch (const FileError& error) {
        QCOMPARE(error.message(), message);
    }
}

void TestForm::fieldOfTheUser()
{
    // A caption, a unit set and limits of the user's own, and no build.
    EditorStage stage;
    stage.window.panel().setForm(readForm(
        formWith(R"({"property": "thickness", "caption": "Cladding", "hints": {"editor": )"
                 R"("quantity", "validator": {"unit_id": 1025, "kind": {"type": "double"}, )"
                 R"("minimum": 0, "maximum": 0.05}}})"),
        QStringLiteral("f.json")));
    stage.select({0, 1});
    QCOMPARE(stage.window.panel().fields().size(), std::size_t(1));
    QCOMPARE(stage.text("thickness"), QStringLiteral("20.00 mm"));
    QList<QLabel*> labels = stage.window.panel().findChildren<QLabel*>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [&stage](const QLabel* label) {
        return label->buddy() == stage.field("thickness").editor() &&
               QString(label->text()).remove(QLatin1Char('&')) == QLatin1String("Cladding");
    }));
    stage.enter("thickness", QStringLiteral("35"));
    QCOMPARE(stage.member(1).thickness, 35 * 0.001);
    stage.enter("thickness", QStringLiteral("1 m"));
    QCOMPARE(stage.member(1).thickness, 0.05);
    QCOMPARE(stage.status(), QStringLiteral("Thickness: limited to 50.00 mm, \"1 m\" was typed"));
}

void TestForm::captionsKeepTheirAmpersands()
{
    EditorStage stage;
    QByteArray form = formWith(
        R"({"property": "thickness", "caption": "R & D", "hints": {"editor": "quantity"}},)"
        R"({"property": "hinge_end", "caption": "A&B", "hints": {"editor": "check"}})");
    form.replace("\"G\"", "\"Loads & more\"");
    stage.window.panel().setForm(readForm(form, QStringLiteral("f.json")));
    stage.select({0});
    // As it is drawn: one ampersand marks a shortcut, two are one to see.
    const auto drawn = [](QString text) {
        const QString mark(QChar(0xfffc));
        text.replace(QStringLiteral("&&"), mark);
        return text.remove(QLatin1Char('&')).replace(mark, QStringLiteral("&"));
    };
    QStringList texts;
    for (const QLabel* label : stage.window.panel().findChildren<QLabel*>()) {
        texts << drawn(label->text());
    }
    QVERIFY(texts.contains(QStringLiteral("R & D")));
    QCOMPARE(drawn(stage.inside<QCheckBox>("hinge_end").text()), QStringLiteral("A&B"));
    QCOMPARE(drawn(stage.window.panel().findChild<QGroupBox*>()->title()),
             QStringLiteral("Loads & more"));
}

void TestForm::otherForm()
{
    EditorStage stage;
    stage.select({0});
    QVERIFY(stage.window.openForm(formPath("loads.json")));
    QVERIFY(!stage.window.panel().field(QStringLiteral("name")));
    QCOMPARE(stage.text("line_load"), QStringLiteral("3.60 kN/m"));
    QCOMPARE(stage.inside<QComboBox>("load_direction").currentText(),
             QStringLiteral("Normal to the member"));
    QCOMPARE(stage.status(), QStringLiteral("Form: Loads alone"));
    QCOMPARE(stage.steps(), 0);
}

void TestForm::otherFormTakesWhatIsBeingTyped()
{
    EditorStage stage;
    stage.select({0});
    stage.type("line_load", QStringLiteral("9"));
    QVERIFY(stage.window.openForm(formPath("loads.json")));
    QCOMPARE(stage.member(0).lineLoad, 9.0);
}

void TestForm::badFormInTheWindow()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("bad.json"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(formWith("{\"property\": \"colour\", \"hints\": {}}"));
    file.close();
    EditorStage stage;
    stage.select({0});
    QString told;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&told, &timer] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            timer.stop();
            told = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    timer.start(0);
    QVERIFY(!stage.window.openForm(fileName));
    QCOMPARE(told, fileName + QStringLiteral(":4:14: $.groups[0].fields[0].property: members have "
                                             "no property \"colour\""));
    QCOMPARE(stage.status(), told);
    QCOMPARE(stage.text("line_load"), QStringLiteral("3.60 kN/m"));
    QVERIFY(stage.window.panel().field(QStringLiteral("name")));
}

QTEST_MAIN(TestForm)
#include "tst_form.moc"
