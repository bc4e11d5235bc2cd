#include "examples/frame_editor/model_file.h"
#include "tests/examples/editor_stage.h"
#include "tests/helpers/checked_test.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>

using namespace frame_editor;
using zel::test::EditorStage;

namespace {

const QString varies = QStringLiteral("*VARIES*");

bool isRed(const QLineEdit& edit)
{
    return edit.styleSheet().contains(QLatin1String("#e61414"));
}

/// The text of the popup below an edit; null if it is not shown.
QString hintBelow(const QLineEdit& edit)
{
    for (const auto* popup : edit.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const auto* label = popup->isWindow()
                                ? popup->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly)
                                : nullptr;
        if (label && popup->isVisible()) {
            return label->text();
        }
    }
    return QString();
}

QListWidget* historyBelow(const QLineEdit& edit)
{
    return edit.findChild<QListWidget*>();
}

} // namespace

class TestPropertyPanel : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void nothingSelected();
    void oneMember();
    void severalMembers();
    void oneTextForTwoNumbers();
    void commitGoesToAllSelected();
    void passingThroughWritesNothing();
    void everyFieldEveryMemberEveryColumn_data();
    void everyFieldEveryMemberEveryColumn();
    void roundedNumberSurvivesAnEditOfOthers();
    void retypedTextIsNoDecision();
    void typedNumberKeepsItsDigits_data();
    void typedNumberKeepsItsDigits();
    void typedZeroReplacesWhatShowsAsZero();
    void typedTextGoesToMembersThatShowIt();
    void refusedTexts_data();
    void refusedTexts();
    void colourGoesWithTheText();
    void leftInvalidVaryingField();
    void clampIsTold();
    void valueBeyondTheLimits();
    void notFiniteIsRefused();
    void wholeNumber();
    void hints_data();
    void hints();
    void hintGoesWithTheEditing();
    void hintIsOnTheScreen();
    void history();
    void historyKeepsDigits();
    void escapeRestores();
    void undoRefreshes();
    void undoKeyInAField();
    void undoTakesWhatIsBeingTyped();
    void otherSelectionTakesWhatIsBeingTyped();
    void otherUnitsTakeWhatIsBeingTyped();
    void saveTakesWhatIsBeingTyped();
    void otherViewLeavesWhatIsBeingTyped();
    void unitColumns_data();
    void unitColumns();
    void takenName();
    void nameOfSeveral();
    void emptyName();
    void longTextFromItsBeginning();
    void otherModel();
};

void TestPropertyPanel::nothingSelected()
{
    EditorStage stage;
    QVERIFY(!stage.edit("name").isEnabled());
    QVERIFY(stage.window.findChild<QLabel*>(QStringLiteral("selectedMembers"))
                ->text()
                .contains(QStringLiteral("No member")));
    stage.select({0});
    QVERIFY(stage.edit("name").isEnabled());
    stage.select({});
    QVERIFY(!stage.edit("name").isEnabled());
}

void TestPropertyPanel::oneMember()
{
    EditorStage stage;
    stage.select({0});
    QCOMPARE(stage.text("name"), QStringLiteral("C1"));
    QCOMPARE(stage.text("line_load"), QStringLiteral("3.60 kN/m"));
    QCOMPARE(stage.text("length_offset"), QStringLiteral("0.000 m"));
    QCOMPARE(stage.text("moment"), QStringLiteral("0.00 kNm"));
    QCOMPARE(stage.text("temperature_difference"), QStringLiteral("0.00 \u00b0C"));
    QCOMPARE(stage.text("rotation"), QStringLiteral("0.0 \u00b0"));
    QCOMPARE(stage.text("thickness"), QStringLiteral("0.020 m"));
    QCOMPARE(stage.text("elastic_modulus"), QStringLiteral("210000 MPa"));
    QCOMPARE(stage.text("note"), QStringLiteral("Wind on the long wall"));
    const auto* unit = stage.field("line_load")
                           .editor()
                           ->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(unit->text(), QStringLiteral("[kN/m]"));
    QVERIFY(unit->isVisible());
    QCOMPARE(stage.edit("length_offset").toolTip(), QStringLiteral("from -10.000 m to 10.000 m"));
    QCOMPARE(stage.steps(), 0);
}

void TestPropertyPanel::severalMembers()
{
    EditorStage stage;
    stage.select({0, 1});
    QCOMPARE(stage.text("name"), varies);
    QCOMPARE(stage.text("line_load"), varies);
    QCOMPARE(stage.text("thickness"), QStringLiteral("0.020 m"));
    stage.select({0});
    QCOMPARE(stage.text("line_load"), QStringLiteral("3.60 kN/m"));
    QCOMPARE(stage.steps(), 0);
}

void TestPropertyPanel::oneTextForTwoNumbers()
{
    EditorStage stage;
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("length_offset")),
                                   {{0, 0.0003}, {1, 0.0004}});
    stage.select({0, 1});
    QCOMPARE(stage.text("length_offset"), QStringLiteral("0.000 m"));
    stage.units.setColumn(7);
    QCOMPARE(stage.text("length_offset"), varies);
}

void TestPropertyPanel::commitGoesToAllSelected()
{
    EditorStage stage;
    stage.select({0, 1, 9});
    QSignalSpy changed(&stage.document, &Document::changed);
    QSignalSpy committed(&stage.field("line_load"), &PropertyField::committed);
    stage.type("line_load", QStringLiteral("2.5"));
    QCOMPARE(changed.count(), 0);
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(committed.count(), 1);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.member(0).lineLoad, 2.5);
    QCOMPARE(stage.member(1).lineLoad, 2.5);
    QCOMPARE(stage.member(9).lineLoad, 2.5);
    QCOMPARE(stage.member(2).lineLoad, 6.75);
    QCOMPARE(stage.text("line_load"), QStringLiteral("2.50 kN/m"));
    QCOMPARE(stage.status(), QStringLiteral("Line load of 3 members: written"));
    // Leaving the field afterwards says nothing new.
    stage.tab();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::passingThroughWritesNothing()
{
    EditorStage stage;
    const QByteArray before = writeModel(stage.document.model());
    QSignalSpy changed(&stage.document, &Document::changed);
    for (const QVector<int>& members : {QVector<int>{9}, QVector<int>{0, 9}}) {
        stage.select(members);
        stage.edit("name").setFocus(Qt::TabFocusReason);
        for (int i = 0; i < 30; ++i) {
            stage.tab();
        }
        stage.edit("length_offset").setFocus(Qt::TabFocusReason);
        QTest::keyClick(&stage.edit("length_offset"), Qt::Key_Return);
        QTest::keyClick(&stage.edit("length_offset"), Qt::Key_Enter);
    }
    QCOMPARE(stage.text("length_offset"), QStringLiteral("0.000 m"));
    QCOMPARE(stage.member(9).lengthOffset, 0.0004);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(writeModel(stage.document.model()), before);
}

void TestPropertyPanel::everyFieldEveryMemberEveryColumn_data()
{
    QTest::addColumn<int>("column");
    for (int column = 0; column < UnitSettings::columnCount; ++column) {
        QTest::addRow("column %d", column) << column;
    }
}

void TestPropertyPanel::everyFieldEveryMemberEveryColumn()
{
    // Numbers that show rounded, negative and beyond the limits, in every field.
    QFETCH(int, column);
    EditorStage stage;
    int factor = 1;
    for (int member = 0; member < 10; ++member) {
        stage.document.setMemberValues(*findMemberProperty(QStringLiteral("bedded")),
                                       {{member, true}});
    }
    for (const MemberProperty& property : memberProperties()) {
        if (property.kind == PropertyKind::Quantity) {
            std::vector<MemberChange> changes;
            for (int member = 0; member < 10; ++member) {
                changes.push_back({member, std::pow(-3.1, member) * 0.000137 * factor++});
            }
            QCOMPARE(stage.document.setMemberValues(property, changes), QString());
        }
    }
    stage.units.setColumn(column);
    const QByteArray before = writeModel(stage.document.model());
    const int steps = stage.steps();
    for (int member = 0; member < 10; ++member) {
        stage.select({member});
        for (PropertyField* field : stage.window.panel().fields()) {
            field->editor()->setFocus(Qt::TabFocusReason);
            if (field->lineEdit()) {
                QVERIFY(field->lineEdit()->edit().hasFocus());
                QTest::keyClick(&field->lineEdit()->edit(), Qt::Key_Return);
                QVERIFY2(!isRed(field->lineEdit()->edit()),
                         qPrintable(field->lineEdit()->edit().text()));
            }
        }
    }
    QCOMPARE(writeModel(stage.document.model()), before);
    QCOMPARE(stage.steps(), steps);
}

void TestPropertyPanel::roundedNumberSurvivesAnEditOfOthers()
{
    EditorStage stage;
    stage.select({9});
    stage.enter("line_load", QStringLiteral("1"));
    stage.edit("length_offset").setFocus(Qt::TabFocusReason);
    stage.tab();
    QCOMPARE(stage.member(9).lengthOffset, 0.0004);
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::retypedTextIsNoDecision()
{
    EditorStage stage;
    stage.select({9});
    stage.enter("length_offset", QStringLiteral("0.000 m"));
    QCOMPARE(stage.member(9).lengthOffset, 0.0004);
    // A character and back again.
    QTest::keyClick(&stage.edit("length_offset"), Qt::Key_X);
    QTest::keyClick(&stage.edit("length_offset"), Qt::Key_Backspace);
    stage.tab();
    QCOMPARE(stage.member(9).lengthOffset, 0.0004);
    QCOMPARE(stage.steps(), 0);
}

void TestPropertyPanel::typedNumberKeepsItsDigits_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("more digits than shown") << 0 << "0.123456" << 0.123456 << "0.123 m";
    QTest::newRow("below the last digit") << 0 << "0.0004" << 0.0004 << "0.000 m";
    QTest::newRow("feet among metres") << 0 << "2 ft" << 2 * 0.3048 << "0.610 m";
    QTest::newRow("metres among feet") << 8 << "1 m" << 1.0 << "3.28 ft";
    QTest::newRow("bare number among feet") << 8 << "2" << 2 * 0.3048 << "2.00 ft";
    QTest::newRow("bare number among millimetres") << 6 << "250" << 0.25 << "250 mm";
    QTest::newRow("feet and inches") << 0 << "5' 6 1/2''" << (5 + 6.5 / 12) * 0.3048 << "1.689 m";
    QTest::newRow("words for feet and inches") << 0 << "5ft 6in" << 5.5 * 0.3048 << "1.676 m";
    QTest::newRow("inches") << 0 << "6 1/2 in" << 6.5 * 0.0254 << "0.165 m";
    QTest::newRow("fraction") << 0 << "3/4" << 0.75 << "0.750 m";
    QTest::newRow("exponent") << 0 << "1e-3 km" << 1.0 << "1.000 m";
    QTest::newRow("blanks around") << 0 << " 2.5 " << 2.5 << "2.500 m";
    QTest::newRow("negative") << 0 << "-25 cm" << -0.25 << "-0.250 m";
    QTest::newRow("point first") << 0 << ".5" << 0.5 << "0.500 m";
}

void TestPropertyPanel::typedNumberKeepsItsDigits()
{
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(double, value);
    QFETCH(QString, shown);
    EditorStage stage;
    stage.units.setColumn(column);
    stage.select({0, 2});
    stage.enter("length_offset", typed);
    QVERIFY(std::abs(stage.member(0).lengthOffset - value) <= 1e-15 * std::abs(value));
    QCOMPARE(stage.member(2).lengthOffset, stage.member(0).lengthOffset);
    QCOMPARE(stage.text("length_offset"), shown);
    QCOMPARE(stage.steps(), 1);
    stage.tab();
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::typedZeroReplacesWhatShowsAsZero()
{
    EditorStage stage;
    stage.select({9});
    stage.enter("length_offset", QStringLiteral("0"));
    QCOMPARE(stage.member(9).lengthOffset, 0.0);
    QCOMPARE(stage.steps(), 1);
    // And an empty text means zero as well.
    stage.enter("line_load", QStringLiteral("3"));
    stage.enter("line_load", QString());
    QCOMPARE(stage.member(9).lineLoad, 0.0);
    QCOMPARE(stage.text("line_load"), QStringLiteral("0.00 kN/m"));
    QCOMPARE(stage.steps(), 3);
}

void TestPropertyPanel::typedTextGoesToMembersThatShowIt()
{
    // T1 shows "0.000 m" and holds 0.0004 m; beside R1 that is one value of two. Who types a value
    // for both wants them equal.
    EditorStage stage;
    stage.select({2, 9});
    QCOMPARE(stage.text("length_offset"), varies);
    stage.enter("length_offset", QStringLiteral("0.000 m"));
    QCOMPARE(stage.member(2).lengthOffset, 0.0);
    QCOMPARE(stage.member(9).lengthOffset, 0.0);
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::refusedTexts_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("reason");
    const QString notUnderstood =
        QStringLiteral("Length offset: \"%1\" is not understood as a number with a unit such as m; "
                       "nothing is written");
    QTest::newRow("word") << "abc" << notUnderstood.arg(QStringLiteral("abc"));
    QTest::newRow("unit of another kind") << "2 s" << notUnderstood.arg(QStringLiteral("2 s"));
    QTest::newRow("unit that lengths leave out")
        << "2 dm" << notUnderstood.arg(QStringLiteral("2 dm"));
    QTest::newRow("unit alone") << "m" << notUnderstood.arg(QStringLiteral("m"));
    QTest::newRow("point alone") << "." << notUnderstood.arg(QStringLiteral("."));
    QTest::newRow("two points") << "1.2.3" << notUnderstood.arg(QStringLiteral("1.2.3"));
    QTest::newRow("no numerator") << "/4" << notUnderstood.arg(QStringLiteral("/4"));
    QTest::newRow("exponent that would be dropped")
        << ".5e3" << notUnderstood.arg(QStringLiteral(".5e3"));
    QTest::newRow("negative inches") << "5' -1''" << notUnderstood.arg(QStringLiteral("5' -1''"));
    QTest::newRow("words for feet") << "x' y''" << notUnderstood.arg(QStringLiteral("x' y''"));
    QTest::newRow("comma") << "2,5"
                           << "Length offset: \"2,5\": decimals stand behind a point; "
                              "nothing is written";
    QTest::newRow("comma and unit") << "2,5 m"
                                    << "Length offset: \"2,5 m\": decimals stand behind a point; "
                                       "nothing is written";
    QTest::newRow("division by zero") << "1/0"
                                      << "Length offset: \"1/0\" is no finite number; "
                                         "nothing is written";
}

void TestPropertyPanel::refusedTexts()
{
    QFETCH(QString, typed);
    QFETCH(QString, reason);
    EditorStage stage;
    stage.select({0, 9});
    const QByteArray before = writeModel(stage.document.model());
    stage.type("length_offset", typed);
    QVERIFY(isRed(stage.edit("length_offset")));
    QTest::keyClick(&stage.edit("length_offset"), Qt::Key_Return);
    QVERIFY(isRed(stage.edit("length_offset")));
    QCOMPARE(stage.text("length_offset"), typed);
    QCOMPARE(stage.status(), reason);
    stage.tab();
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(writeModel(stage.document.model()), before);
}

void TestPropertyPanel::colourGoesWithTheText()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("length_offset", QStringLiteral("abc"));
    QVERIFY(isRed(stage.edit("length_offset")));
    stage.select({1});
    QVERIFY(!isRed(stage.edit("length_offset")));
    QCOMPARE(stage.text("length_offset"), QStringLiteral("0.000 m"));
    QVERIFY(stage.status().contains(QStringLiteral("abc")));
}

void TestPropertyPanel::leftInvalidVaryingField()
{
    EditorStage stage;
    stage.select({0, 1});
    stage.enter("line_load", QStringLiteral("much"));
    QCOMPARE(stage.steps(), 0);
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Escape);
    QCOMPARE(stage.text("line_load"), varies);
    QVERIFY(!isRed(stage.edit("line_load")));
    stage.type("line_load", varies);
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Return);
    QCOMPARE(stage.steps(), 0);
}

void TestPropertyPanel::clampIsTold()
{
    EditorStage stage;
    stage.select({0, 1});
    stage.type("length_offset", QStringLiteral("25 m"));
    QVERIFY(hintBelow(stage.edit("length_offset")).endsWith(QStringLiteral("limited to 10.000 m")));
    QTest::keyClick(&stage.edit("length_offset"), Qt::Key_Return);
    QCOMPARE(stage.member(0).lengthOffset, 10.0);
    QCOMPARE(stage.member(1).lengthOffset, 10.0);
    QCOMPARE(stage.text("length_offset"), QStringLiteral("10.000 m"));
    QCOMPARE(stage.status(),
             QStringLiteral("Length offset: limited to 10.000 m, \"25 m\" was typed"));
    QCOMPARE(stage.steps(), 1);
    stage.enter("thickness", QStringLiteral("-1 mm"));
    QCOMPARE(stage.member(0).thickness, 0.0);
    QCOMPARE(stage.status(), QStringLiteral("Thickness: limited to 0.000 m, \"-1 mm\" was typed"));
    stage.enter("line_load", QStringLiteral("1"));
    QCOMPARE(stage.status(), QStringLiteral("Line load of 2 members: written"));
}

void TestPropertyPanel::valueBeyondTheLimits()
{
    // A model may hold what the form would not let in. It is shown as it is, and left.
    EditorStage stage;
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("length_offset")),
                                   {{0, 150.25}});
    stage.select({0});
    QCOMPARE(stage.text("length_offset"), QStringLiteral("150.250 m"));
    stage.edit("length_offset").setFocus(Qt::TabFocusReason);
    stage.tab();
    QCOMPARE(stage.text("length_offset"), QStringLiteral("150.250 m"));
    QCOMPARE(stage.member(0).lengthOffset, 150.25);
    QCOMPARE(stage.steps(), 1);
    stage.enter("length_offset", QStringLiteral("120 m"));
    QCOMPARE(stage.member(0).lengthOffset, 10.0);
}

void TestPropertyPanel::wholeNumber()
{
    EditorStage stage;
    stage.select({2, 3});
    QCOMPARE(stage.text("divisions"), varies);
    stage.select({3});
    QCOMPARE(stage.text("divisions"), QStringLiteral("4"));
    QVERIFY(!isRed(stage.edit("divisions")));
    for (const char* text : {"4294967297", "0", "1001", "2.5", "many"}) {
        stage.enter("divisions", QString::fromUtf8(text));
        QCOMPARE(stage.member(3).divisions, 4);
        QVERIFY(isRed(stage.edit("divisions")));
        QCOMPARE(stage.status(),
                 QStringLiteral("Divisions: \"%1\" is no whole number from 1 to 1000; nothing is "
                                "written")
                     .arg(QString::fromUtf8(text)));
    }
    stage.enter("divisions", QStringLiteral("12"));
    QCOMPARE(stage.member(3).divisions, 12);
    QVERIFY(!isRed(stage.edit("divisions")));
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::notFiniteIsRefused()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("moment", QStringLiteral("0/0"));
    QVERIFY(isRed(stage.edit("moment")));
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(),
             QStringLiteral("Moment: \"0/0\" is no finite number; nothing is written"));
}

void TestPropertyPanel::hints_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("hint");
    QTest::newRow("length") << 0 << "length_offset"
                            << "5' 6 1/2''"
                            << "= 1.689 m = 5' 6 1/2 ''";
    QTest::newRow("feet") << 0 << "length_offset"
                          << "2 ft"
                          << "= 0.610 m = 2' 0 ''";
    QTest::newRow("negative length") << 0 << "length_offset"
                                     << "-1.5 ft"
                                     << "= -0.457 m = minus 1' 6 ''";
    QTest::newRow("length in imperial units") << 8 << "length_offset"
                                              << "3"
                                              << "= 0.914 m = 3' 0 ''";
    QTest::newRow("load") << 0 << "line_load"
                          << "2500 N/m"
                          << "= 2.50 kN/m";
    QTest::newRow("load in imperial units") << 8 << "line_load"
                                            << "2.5 kN/m"
                                            << "= 0.17 kip/ft = 2.50 kN/m";
    QTest::newRow("limit") << 0 << "thickness"
                           << "2 m"
                           << "= 2.000 m, limited to 0.500 m";
    QTest::newRow("not understood") << 0 << "line_load"
                                    << "2 m"
                                    << "\"2 m\" is not understood as a number with a unit such "
                                       "as kN/m";
}

void TestPropertyPanel::hints()
{
    QFETCH(int, column);
    QFETCH(QString, property);
    QFETCH(QString, typed);
    QFETCH(QString, hint);
    EditorStage stage;
    stage.units.setColumn(column);
    stage.select({0});
    const QByteArray name = property.toUtf8();
    stage.type(name.constData(), typed);
    QCOMPARE(hintBelow(stage.edit(name.constData())), hint);
}

void TestPropertyPanel::hintGoesWithTheEditing()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("length_offset", QStringLiteral("2 ft"));
    stage.tab();
    stage.select({1});
    stage.edit("length_offset").setFocus(Qt::TabFocusReason);
    QCOMPARE(hintBelow(stage.edit("length_offset")), QString());
}

void TestPropertyPanel::hintIsOnTheScreen()
{
    // The form stands at the right edge of the screen, and a long hint has to be read there.
    EditorStage stage;
    const QRect screen = stage.window.screen()->availableGeometry();
    stage.select({0});
    const QPoint edge(screen.right() - 100, screen.top() + 100);
    const QPoint edit = stage.edit("line_load").mapTo(&stage.window, QPoint());
    stage.window.move(edge - edit);
    QCoreApplication::processEvents();
    for (const char* text : {"2", "about 2", "3"}) {
        stage.type("line_load", QLatin1String(text));
        QCoreApplication::processEvents();
        const QWidget* popup = nullptr;
        for (const auto* child : stage.edit("line_load").findChildren<QWidget*>()) {
            popup = child->isWindow() && child->isVisible() ? child : popup;
        }
        QVERIFY(popup != nullptr);
        QVERIFY2(screen.contains(popup->geometry()),
                 qPrintable(QStringLiteral("%1 at %2").arg(QLatin1String(text)).arg(popup->x())));
    }
}

void TestPropertyPanel::history()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("11"));
    stage.enter("line_load", QStringLiteral("12"));
    stage.enter("line_load", QStringLiteral("abc"));
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Escape);
    stage.edit("moment").setFocus();
    stage.select({1});
    stage.edit("line_load").setFocus();
    QListWidget* list = historyBelow(stage.edit("line_load"));
    QVERIFY(list->isVisible());
    QVERIFY(list->count() >= 2);
    QCOMPARE(list->item(0)->text(), QStringLiteral("12.00 kN/m"));
    QCOMPARE(list->item(1)->text(), QStringLiteral("11.00 kN/m"));
    const int steps = stage.steps();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    QCOMPARE(stage.member(1).lineLoad, 11.0);
    QCOMPARE(stage.steps(), steps + 1);
    // Fields of other properties have a history of their own.
    stage.edit("moment").setFocus();
    QCOMPARE(historyBelow(stage.edit("moment"))->count(), 0);
}

void TestPropertyPanel::historyKeepsDigits()
{
    // What is remembered means the same value under other units, and to the last digit.
    EditorStage stage;
    stage.select({0});
    stage.enter("thickness", QStringLiteral("0.12345"));
    stage.enter("thickness", QStringLiteral("1 in"));
    stage.units.setColumn(8);
    stage.edit("thickness").setFocus();
    QListWidget* list = historyBelow(stage.edit("thickness"));
    QCOMPARE(list->item(0)->text(), QStringLiteral("1 in"));
    QCOMPARE(list->item(1)->text(), QStringLiteral("0.12345 m"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    QCOMPARE(stage.member(0).thickness, 0.12345);
}

void TestPropertyPanel::escapeRestores()
{
    EditorStage stage;
    stage.select({9});
    stage.type("length_offset", QStringLiteral("7"));
    QTest::keyClick(&stage.edit("length_offset"), Qt::Key_Escape);
    QCOMPARE(stage.text("length_offset"), QStringLiteral("0.000 m"));
    stage.tab();
    QCOMPARE(stage.member(9).lengthOffset, 0.0004);
    QCOMPARE(stage.steps(), 0);
}

void TestPropertyPanel::undoRefreshes()
{
    EditorStage stage;
    stage.select({0, 1});
    stage.enter("line_load", QStringLiteral("2"));
    stage.document.undoStack().undo();
    QCOMPARE(stage.text("line_load"), varies);
    stage.document.undoStack().redo();
    QCOMPARE(stage.text("line_load"), QStringLiteral("2.00 kN/m"));
}

void TestPropertyPanel::undoKeyInAField()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("2"));
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.member(0).lineLoad, 3.6);
    QCOMPARE(stage.text("line_load"), QStringLiteral("3.60 kN/m"));
    // While something is being typed the key belongs to the typing.
    stage.document.undoStack().redo();
    stage.type("line_load", QStringLiteral("55"));
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.member(0).lineLoad, 2.0);
    QVERIFY(stage.text("line_load") != QStringLiteral("55"));
}

void TestPropertyPanel::undoTakesWhatIsBeingTyped()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("2"));
    stage.type("moment", QStringLiteral("5"));
    stage.window.findChild<QAction*>(QStringLiteral("undo"))->trigger();
    QCOMPARE(stage.member(0).moment, 0.0);
    QCOMPARE(stage.member(0).lineLoad, 2.0);
    QCOMPARE(stage.text("moment"), QStringLiteral("0.00 kNm"));
    stage.window.findChild<QAction*>(QStringLiteral("redo"))->trigger();
    QCOMPARE(stage.member(0).moment, 5.0);
}

void TestPropertyPanel::otherSelectionTakesWhatIsBeingTyped()
{
    EditorStage stage;
    stage.select({0});
    stage.type("line_load", QStringLiteral("9"));
    stage.select({1, 2});
    QCOMPARE(stage.member(0).lineLoad, 9.0);
    QCOMPARE(stage.member(1).lineLoad, 1.8);
    QCOMPARE(stage.text("line_load"), varies);
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::otherUnitsTakeWhatIsBeingTyped()
{
    EditorStage stage;
    stage.select({0});
    stage.type("length_offset", QStringLiteral("3"));
    stage.units.setColumn(8);
    QCOMPARE(stage.member(0).lengthOffset, 3.0);
    QCOMPARE(stage.text("length_offset"), QStringLiteral("9.84 ft"));
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::saveTakesWhatIsBeingTyped()
{
    QTemporaryDir folder;
    EditorStage stage;
    stage.document.saveAs(folder.filePath(QStringLiteral("m.json")));
    stage.select({0});
    stage.type("line_load", QStringLiteral("9"));
    QVERIFY(stage.window.save());
    QCOMPARE(loadModel(folder.filePath(QStringLiteral("m.json"))).members.at(0).lineLoad, 9.0);
    QVERIFY(!stage.document.isModified());
}

void TestPropertyPanel::otherViewLeavesWhatIsBeingTyped()
{
    EditorStage stage;
    stage.select({0});
    stage.type("line_load", QStringLiteral("9"));
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("moment")), {{0, 4.0}});
    QCOMPARE(stage.text("moment"), QStringLiteral("4.00 kNm"));
    QCOMPARE(stage.text("line_load"), QStringLiteral("9"));
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Return);
    QCOMPARE(stage.member(0).lineLoad, 9.0);
}

void TestPropertyPanel::unitColumns_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("length");
    QTest::addColumn<QString>("load");
    QTest::addColumn<QString>("thickness");
    QTest::addColumn<QString>("modulus");
    QTest::newRow("0") << 0 << "-0.150 m"
                       << "6.75 kN/m"
                       << "0.000 m"
                       << "210000 MPa";
    QTest::newRow("1") << 1 << "-0.150 m"
                       << "6.75 kN/m"
                       << "0.00 cm"
                       << "210000 MPa";
    QTest::newRow("2") << 2 << "-0.150 m"
                       << "6.75 kN/m"
                       << "0.0 mm"
                       << "210000 N/mm2";
    QTest::newRow("6") << 6 << "-150 mm"
                       << "6.75 kN/m"
                       << "0.0 mm"
                       << "210000 N/mm2";
    QTest::newRow("7") << 7 << "-150.000 mm"
                       << "6750.00 N/m"
                       << "0.000 mm"
                       << "210000 MPa";
    QTest::newRow("8") << 8 << "-0.49 ft"
                       << "0.46 kip/ft"
                       << "0.00 ft"
                       << "30458 ksi";
    QTest::newRow("9") << 9 << "-5.91 in"
                       << "0.46 kip/ft"
                       << "0.00 in"
                       << "30458 ksi";
}

void TestPropertyPanel::unitColumns()
{
    QFETCH(int, column);
    QFETCH(QString, length);
    QFETCH(QString, load);
    QFETCH(QString, thickness);
    QFETCH(QString, modulus);
    EditorStage stage;
    stage.select({2});
    stage.edit("moment").setFocus();
    auto* chooser = stage.window.findChild<QComboBox*>(QStringLiteral("units"));
    chooser->setCurrentIndex(column);
    QCOMPARE(stage.units.column(), column);
    QCOMPARE(stage.text("length_offset"), length);
    QCOMPARE(stage.text("line_load"), load);
    QCOMPARE(stage.text("thickness"), thickness);
    QCOMPARE(stage.text("elastic_modulus"), modulus);
    QVERIFY(stage.edit("moment").hasFocus());
    QCOMPARE(stage.steps(), 0);
}

void TestPropertyPanel::takenName()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("name", QStringLiteral("R1"));
    QCOMPARE(stage.member(0).name, QStringLiteral("C1"));
    QCOMPARE(stage.status(), QStringLiteral("Name: there is a member \"R1\" already; nothing is "
                                            "written"));
    QVERIFY(isRed(stage.edit("name")));
    QCOMPARE(stage.steps(), 0);
    stage.enter("name", QStringLiteral("C9"));
    QCOMPARE(stage.member(0).name, QStringLiteral("C9"));
    QVERIFY(!isRed(stage.edit("name")));
    QCOMPARE(stage.steps(), 1);
}

void TestPropertyPanel::nameOfSeveral()
{
    EditorStage stage;
    stage.select({0, 1});
    stage.enter("name", QStringLiteral("X"));
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(),
             QStringLiteral("Name: two members cannot have the same name; nothing is written"));
}

void TestPropertyPanel::emptyName()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("name", QString());
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(), QStringLiteral("Name: a member needs a name; nothing is written"));
}

void TestPropertyPanel::longTextFromItsBeginning()
{
    EditorStage stage;
    stage.select({9});
    QVERIFY(stage.text("note").size() > 20);
    QCOMPARE(stage.edit("note").cursorPosition(), 0);
}

void TestPropertyPanel::otherModel()
{
    EditorStage stage;
    stage.select({0});
    const QString section = QStringLiteral("HEB 360");
    QVERIFY(stage.inside<QComboBox>("section").findText(section) < 0);
    stage.document.open(QStringLiteral(FRAME_EDITOR_MODELS "/multi_storey.json"));
    QVERIFY(stage.inside<QComboBox>("section").findText(section) >= 0);
    QVERIFY(!stage.edit("name").isEnabled());
    stage.select({0});
    QCOMPARE(stage.text("name"), QStringLiteral("C1A"));
}

QTEST_MAIN(TestPropertyPanel)
#include "tst_property_panel.moc"
