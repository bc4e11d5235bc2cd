#include "tests/examples/member_table_stage.h"
#include "tests/helpers/checked_test.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace frame_editor;
using zel::test::MemberTableStage;

/// The table of members and the clipboard.
class TestMemberTablePaste : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void copiedTexts_data();
    void copiedTexts();
    void copiedBlock();
    void roundTrip_data();
    void roundTrip();
    void copyOfAllMembersIntoTheBlankRow();
    void numbersKeepTheirDigits_data();
    void numbersKeepTheirDigits();
    void spreadsheetText_data();
    void spreadsheetText();
    void oneStep();
    void valueIntoSeveralCells();
    void valueIntoAWholeColumn();
    void partlyBelow();
    void intoTheBlankRow();
    void newMembersHaveWhatMembersNeed();
    void refusedCellOfANewMember();
    void refusedTextsMakeNoMember();
    void blankLines();
    void modelWithoutNodes();
    void refusedCells_data();
    void refusedCells();
    void severalRefusedCells();
    void refusedValueInSeveralCells();
    void shownTextIsNoChange();
    void emptyCellsLeaveValues();
    void textsWithTabsAndLineEnds();
    void exchangedNames();
    void namesInAChain();
    void turnedMember();
    void wholeNumbers_data();
    void wholeNumbers();
    void marks_data();
    void marks();
    void choices_data();
    void choices();
    void rigidLink();
    void beyondTheLastColumn();
    void cut();
    void deleted();
    void pastedCellsAreSelected();
    void nothingToPaste();
    void modelIsSound();
};

void TestMemberTablePaste::copiedTexts_data()
{
    QTest::addColumn<QByteArray>("member");
    QTest::addColumn<QByteArray>("column");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* member, const char* column, const char* text) {
        QTest::addRow("%s of %s", column, member)
            << QByteArray(member) << QByteArray(column) << QString::fromUtf8(text);
    };
    row("R1", "name", "R1");
    row("R1", "start", "N2");
    row("R1", "kind", "Rafter");
    row("R1", "section", "IPE 500");
    row("R1", "length_offset", "-0.150 m");
    row("T1", "length_offset", "0.0004 m");
    row("R2", "divisions", "4");
    row("R1", "line_load", "6.75 kN/m");
    row("R1", "load_direction", "Vertical, per plan length");
    row("P1", "hinge_start", "yes");
    row("R1", "hinge_start", "no");
    row("R1", "zoom", "");
    row("L1", "section", "");
    row("", "name", "");
}

void TestMemberTablePaste::copiedTexts()
{
    QFETCH(QByteArray, member);
    QFETCH(QByteArray, column);
    MemberTableStage stage;
    stage.selectCell(stage.cell(member, column));
    QTEST(stage.copied(), "text");
}

void TestMemberTablePaste::copiedBlock()
{
    MemberTableStage stage;
    stage.selectBlock(stage.cell("R1", "name"), stage.cell("R2", "end"));
    QCOMPARE(stage.copied(), QStringLiteral("R1\tN2\tN3\nR2\tN3\tN4\n"));
}

void TestMemberTablePaste::roundTrip_data()
{
    QTest::addColumn<int>("units");
    for (int column = 0; column < UnitSettings::columnCount; ++column) {
        QTest::addRow("units %d", column) << column;
    }
}

void TestMemberTablePaste::roundTrip()
{
    // Copied whole, and pasted where it came from: under the same units nothing changes, and under
    // other ones neither.
    QFETCH(int, units);
    MemberTableStage stage;
    stage.units.setColumn(units);
    const QByteArray before = stage.bytes();
    stage.table().selectAll();
    const QString text = stage.copied();
    QCOMPARE(text.count(QLatin1Char('\n')), stage.cells().rowCount());
    stage.units.setColumn((units + 3) % UnitSettings::columnCount);
    stage.paste(stage.cells().index(0, 0), text);
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 0);
}

void TestMemberTablePaste::copyOfAllMembersIntoTheBlankRow()
{
    MemberTableStage stage;
    stage.units.setColumn(8);
    const std::vector<Member> members = stage.document.model().members;
    stage.selectBlock(stage.cell("C1", "start"), stage.cell("L1", "drawing"));
    const QString text = stage.copied();
    stage.paste(stage.cell("", "start"), text);
    QCOMPARE(stage.document.model().members.size(), 2 * members.size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        Member copy = stage.document.model().members.at(members.size() + i);
        QVERIFY(copy.name != members[i].name);
        copy.name = members[i].name;
        if (copy.kind == MemberKind::Link) {
            continue; // its other values do not count
        }
        QVERIFY2(copy == members[i], qPrintable(copy.name));
    }
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(), QStringLiteral("11 new members: written"));
}

void TestMemberTablePaste::numbersKeepTheirDigits_data()
{
    roundTrip_data();
}

void TestMemberTablePaste::numbersKeepTheirDigits()
{
    // Numbers that no display shows to their end, copied to other members.
    QFETCH(int, units);
    MemberTableStage stage;
    const QVector<const char*> columns{
        "length_offset",          "line_load",       "moment",         "rotation", "thickness",
        "temperature_difference", "elastic_modulus", "bedding_modulus"};
    for (const char* column : columns) {
        const double number = QByteArray(column) == "elastic_modulus" ? 2.1e8 / 3 : 0.1 / 3;
        QCOMPARE(stage.document.setMemberValues(*findMemberProperty(QLatin1String(column)),
                                                {{0, number}}),
                 QString());
    }
    stage.units.setColumn(units);
    for (const char* column : columns) {
        stage.selectCell(stage.cell("C1", column));
        const QString text = stage.copied();
        stage.paste(stage.cell("C2", column), text);
        const MemberProperty& property = *findMemberProperty(QLatin1String(column));
        QVERIFY2(property.get(stage.named("C2")) == property.get(stage.named("C1")),
                 qPrintable(text));
    }
}

void TestMemberTablePaste::spreadsheetText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("line feeds") << "2.5\t1\n3.5\t2";
    QTest::newRow("a trailing one") << "2.5\t1\n3.5\t2\n";
    QTest::newRow("carriage returns") << "2.5\t1\r\n3.5\t2\r\n";
    QTest::newRow("carriage return, no end") << "2.5\t1\r\n3.5\t2";
    QTest::newRow("units") << "2.5 kN/m\t1 kNm\n3500 N/m\t2.0 kNm\n";
    QTest::newRow("blanks around") << " 2.5 \t 1\r\n3.5\t2 \r\n";
}

void TestMemberTablePaste::spreadsheetText()
{
    QFETCH(QString, text);
    MemberTableStage stage;
    // The two columns stand side by side but for the direction of the load.
    const QString block = QString(text).replace(QLatin1Char('\t'), QStringLiteral("\tnormal\t"));
    stage.paste(stage.cell("C1", "line_load"), block);
    QCOMPARE(stage.named("C1").lineLoad, 2.5);
    QCOMPARE(stage.named("C1").moment, 1.0);
    QCOMPARE(stage.named("C2").lineLoad, 3.5);
    QCOMPARE(stage.named("C2").moment, 2.0);
    QCOMPARE(stage.named("R1").lineLoad, 6.75);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(), QStringLiteral("Paste of 4 cells: written"));
}

void TestMemberTablePaste::oneStep()
{
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    QSignalSpy changed(&stage.document, &Document::changed);
    stage.paste(stage.cell("C1", "section"), QStringLiteral("IPE 200\tS235\nIPE 300\tS235\n"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.document.undoStack().undoText(), QStringLiteral("Paste of 4 cells"));
    QCOMPARE(stage.named("C2").section, QStringLiteral("IPE 300"));
    stage.undo();
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.shown("C2", "section"), QStringLiteral("HEB 300"));
}

void TestMemberTablePaste::valueIntoSeveralCells()
{
    // «250 cm» in a column of metres, without a tab or a line end.
    MemberTableStage stage;
    stage.selectBlock(stage.cell("C1", "length_offset"), stage.cell("R1", "length_offset"));
    stage.pasteOver(QStringLiteral("250 cm"));
    QCOMPARE(stage.named("C1").lengthOffset, 2.5);
    QCOMPARE(stage.named("R1").lengthOffset, 2.5);
    QCOMPARE(stage.named("R2").lengthOffset, 0.0);
    QCOMPARE(stage.shown("C1", "length_offset"), QStringLiteral("2.500"));
    QCOMPARE(stage.steps(), 1);
    stage.undo();
    QCOMPARE(stage.named("R1").lengthOffset, -0.15);
}

void TestMemberTablePaste::valueIntoAWholeColumn()
{
    // The blank row is selected with the column, but nobody asked for a new member.
    MemberTableStage stage;
    stage.table().selectColumn(findMemberColumn(QStringLiteral("note")));
    stage.pasteOver(QStringLiteral("checked"));
    QCOMPARE(int(stage.document.model().members.size()), 11);
    QCOMPARE(stage.named("C1").note, QStringLiteral("checked"));
    QCOMPARE(stage.named("L1").note, QStringLiteral("checked"));
    QCOMPARE(stage.status(), QStringLiteral("Paste of 11 cells: written"));
    // By itself it takes the value.
    stage.paste(stage.cell("", "note"), QStringLiteral("new"));
    QCOMPARE(stage.member(11).note, QStringLiteral("new"));
}

void TestMemberTablePaste::partlyBelow()
{
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    stage.paste(stage.cell("T1", "name"),
                QStringLiteral("T2\tN2\tN6\nL2\tN6\tN9\nX1\tN1\tN2\nX2\tN2\tN4\n"));
    QCOMPARE(int(stage.document.model().members.size()), 13);
    QCOMPARE(stage.member(9).name, QStringLiteral("T2"));
    QCOMPARE(stage.member(9).lengthOffset, 0.0004);
    QCOMPARE(stage.member(10).name, QStringLiteral("L2"));
    QCOMPARE(stage.member(12).name, QStringLiteral("X2"));
    QCOMPARE(stage.member(12).start, 1);
    QCOMPARE(stage.member(12).end, 3);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.cells().rowCount(), 14);
    // The other views have them too.
    stage.select({12});
    QCOMPARE(stage.text("name"), QStringLiteral("X2"));
    stage.undo();
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.cells().rowCount(), 12);
    QVERIFY(stage.document.selection().isEmpty());
    stage.document.undoStack().redo();
    QCOMPARE(stage.member(12).name, QStringLiteral("X2"));
    QCOMPARE(stage.shown("X2", "start"), QStringLiteral("N2"));
}

void TestMemberTablePaste::intoTheBlankRow()
{
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    stage.paste(stage.cell("", "name"), QStringLiteral("X1\tN1\tN4\r\nX2\tN2\tN5\r\n"));
    QCOMPARE(int(stage.document.model().members.size()), 13);
    QCOMPARE(stage.member(11).name, QStringLiteral("X1"));
    QCOMPARE(stage.member(12).name, QStringLiteral("X2"));
    QCOMPARE(stage.document.selection().members(), (QVector<int>{11, 12}));
    QCOMPARE(stage.steps(), 1);
    stage.undo();
    QCOMPARE(stage.bytes(), before);
    QVERIFY(stage.document.selection().isEmpty());
}

void TestMemberTablePaste::newMembersHaveWhatMembersNeed()
{
    MemberTableStage stage;
    stage.paste(stage.cell("", "name"), QStringLiteral("A\nM1\n"));
    const Member& first = stage.named("A");
    QCOMPARE(first.start, 0);
    QCOMPARE(first.end, 1);
    QCOMPARE(first.section, QStringLiteral("HEA 160"));
    QCOMPARE(first.material, QStringLiteral("S235"));
    QCOMPARE(first.elasticModulus, 2.1e8);
    QCOMPARE(first.divisions, 1);
    QCOMPARE(first.lineLoad, 0.0);
    // A member without a name gets one that is free.
    stage.paste(stage.cell("", "start"), QStringLiteral("N2\tN1\nN1\n\tN1\n"));
    QCOMPARE(stage.member(13).name, QStringLiteral("M2"));
    QCOMPARE(stage.member(13).start, 1);
    QCOMPARE(stage.member(13).end, 0);
    QCOMPARE(stage.member(14).name, QStringLiteral("M3"));
    QCOMPARE(stage.member(14).end, 1);
    QCOMPARE(stage.member(15).start, 1);
    QCOMPARE(stage.member(15).end, 0);
}

void TestMemberTablePaste::refusedCellOfANewMember()
{
    MemberTableStage stage;
    stage.paste(stage.cell("", "name"), QStringLiteral("C1\tN1\tN99\nX\tN2\tN2\n"));
    QCOMPARE(stage.member(11).name, QStringLiteral("M1"));
    QCOMPARE(stage.member(11).start, 0);
    QCOMPARE(stage.member(11).end, 1);
    QCOMPARE(stage.member(12).name, QStringLiteral("X"));
    QCOMPARE(stage.member(12).start, 1);
    QCOMPARE(stage.member(12).end, 0);
    QCOMPARE(stage.status(),
             QStringLiteral("2 new members: written; 3 cells were left as they are; M1, End node: "
                            "the model has no node \"N99\""));
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTablePaste::refusedTextsMakeNoMember()
{
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    stage.paste(stage.cell("", "section"), QStringLiteral("IPE 201"));
    QCOMPARE(stage.status(), QStringLiteral("New member, Cross section: the model has no cross "
                                            "section \"IPE 201\"; this cell was left as it is"));
    stage.paste(stage.cell("", "name"), QStringLiteral("C1"));
    QCOMPARE(stage.status(), QStringLiteral("New member, Name: there is a member \"C1\" already; "
                                            "this cell was left as it is"));
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.cells().rowCount(), 12);
    // Those behind it are made all the same.
    stage.paste(stage.cell("", "section"), QStringLiteral("IPE 201\tWood\nIPE 200\tWood\n"));
    QCOMPARE(int(stage.document.model().members.size()), 12);
    QCOMPARE(stage.member(11).section, QStringLiteral("IPE 200"));
    QCOMPARE(stage.status(),
             QStringLiteral("New member M1: written; 3 cells were left as they are; New member, "
                            "Cross section: the model has no cross section \"IPE 201\""));
}

void TestMemberTablePaste::blankLines()
{
    MemberTableStage stage;
    stage.paste(stage.cell("", "name"), QStringLiteral("\t\n\t\nX1\tN1\n\t\nX2\tN77\n\t\n"));
    QCOMPARE(int(stage.document.model().members.size()), 13);
    QCOMPARE(stage.member(11).name, QStringLiteral("X1"));
    QCOMPARE(stage.member(12).name, QStringLiteral("X2"));
    QVERIFY(stage.status().endsWith(QStringLiteral(
        "X2, Start node: the model has no node \"N77\"; this cell was left as it is")));
    stage.paste(stage.cell("", "name"), QStringLiteral("\n\n"));
    QCOMPARE(int(stage.document.model().members.size()), 13);
    QCOMPARE(stage.cells().rowCount(), 14);
}

void TestMemberTablePaste::modelWithoutNodes()
{
    MemberTableStage stage;
    stage.document.setModel(FrameModel(), QString());
    stage.paste(stage.cell("", "name"), QStringLiteral("A\nB\n"));
    QVERIFY(stage.document.model().members.empty());
    QCOMPARE(stage.steps(), 0);
    QVERIFY(stage.status().contains(
        QStringLiteral("a member needs two nodes, a section and a material")));
    QCOMPARE(stage.cells().rowCount(), 1);
}

void TestMemberTablePaste::refusedCells_data()
{
    QTest::addColumn<QByteArray>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* tag, const char* column, const char* text, const char* reason) {
        QTest::newRow(tag) << QByteArray(column) << QString::fromUtf8(text)
                           << QString::fromUtf8(reason);
    };
    row("word", "line_load", "abc",
        "Line load: \"abc\" is not understood as a number with a unit such as kN/m");
    row("comma", "length_offset", "2,5", "Length offset: \"2,5\": decimals stand behind a point");
    row("another unit", "moment", "2 m",
        "Moment: \"2 m\" is not understood as a number with a unit such as kNm");
    row("too much", "length_offset", "25 m", "Length offset: 25.000 m is more than 10.000 m");
    row("too little", "thickness", "-1 mm", "Thickness: -0.001 m is less than 0.000 m");
    row("section", "section", "IPE 201",
        "Cross section: the model has no cross section \"IPE 201\"");
    row("case of a section", "section", "ipe 200",
        "Cross section: the model has no cross section \"ipe 200\"");
    row("material", "material", "Wood", "Material: the model has no material \"Wood\"");
    row("node", "start", "N77", "Start node: the model has no node \"N77\"");
    row("both ends on one node", "end", "N1", "End node: a member needs two different nodes");
    row("kind", "kind", "Arch", "Kind: \"Arch\" is not in the list");
    row("taken name", "name", "R1", "Name: there is a member \"R1\" already");
    row("blank name", "name", " ", "Name: a member needs a name");
    row("long name", "name", "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx",
        "Name: this is longer than 40 characters");
    row("mark", "hinge_end", "perhaps", "Hinge at end: \"perhaps\" is neither yes nor no");
    row("fraction", "divisions", "2.5", "Divisions: \"2.5\" is no whole number from 1 to 1000");
    row("text for a button", "zoom", "Show me", "Zoom: \"Show me\" has no place here");
}

void TestMemberTablePaste::refusedCells()
{
    // A good value behind the refused one is written all the same.
    QFETCH(QByteArray, column);
    QFETCH(QString, text);
    QFETCH(QString, reason);
    MemberTableStage stage;
    stage.paste(stage.cell("C1", column), text);
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(),
             QStringLiteral("C1, ") + reason + QStringLiteral("; this cell was left as it is"));
    const QModelIndex good =
        stage.cell("C1", column).siblingAtColumn(findMemberColumn(QLatin1String(column)) + 1);
    const QString value = good.siblingAtRow(3).data(Qt::AccessibleTextRole).toString();
    stage.paste(stage.cell("C1", column), text + QLatin1Char('\t') + value + QStringLiteral("\n"));
    QVERIFY(stage.steps() <= 1);
    QVERIFY(stage.status().contains(QStringLiteral("C1, ")));
}

void TestMemberTablePaste::severalRefusedCells()
{
    MemberTableStage stage;
    stage.paste(stage.cell("C1", "section"),
                QStringLiteral("IPE 201\tS235\t0.1\nIPE 200\tWood\tx\n"));
    QCOMPARE(stage.named("C1").section, QStringLiteral("HEB 300"));
    QCOMPARE(stage.named("C1").material, QStringLiteral("S235"));
    QCOMPARE(stage.named("C1").lengthOffset, 0.1);
    QCOMPARE(stage.named("C2").section, QStringLiteral("IPE 200"));
    QCOMPARE(stage.named("C2").material, QStringLiteral("S355"));
    QCOMPARE(stage.named("C2").lengthOffset, 0.0);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(),
             QStringLiteral("Paste of 3 cells: written; 3 cells were left as they are; C1, Cross "
                            "section: the model has no cross section \"IPE 201\""));
}

void TestMemberTablePaste::refusedValueInSeveralCells()
{
    // One value into cells of several columns: it fits into some.
    MemberTableStage stage;
    stage.selectBlock(stage.cell("R1", "length_offset"), stage.cell("R1", "line_load"));
    stage.pasteOver(QStringLiteral("2.5"));
    QCOMPARE(stage.named("R1").lengthOffset, 2.5);
    QCOMPARE(stage.named("R1").lineLoad, 2.5);
    QCOMPARE(stage.named("R1").divisions, 1);
    QCOMPARE(stage.steps(), 1);
    QVERIFY(stage.status().endsWith(
        QStringLiteral("R1, Divisions: \"2.5\" is no whole number from 1 to 1000; this cell was "
                       "left as it is")));
}

void TestMemberTablePaste::shownTextIsNoChange()
{
    // T1 is longer by 0.0004 m, which shows as 0.000.
    MemberTableStage stage;
    for (const char* text : {"0.000", "0.000 m", "0.000\n"}) {
        stage.paste(stage.cell("T1", "length_offset"), QString::fromUtf8(text));
        QCOMPARE(stage.named("T1").lengthOffset, 0.0004);
    }
    QCOMPARE(stage.steps(), 0);
    stage.paste(stage.cell("T1", "length_offset"), QStringLiteral("0"));
    QCOMPARE(stage.named("T1").lengthOffset, 0.0);
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTablePaste::emptyCellsLeaveValues()
{
    // A block of cells that were picked one by one has empty texts between them.
    MemberTableStage stage;
    stage.table().selectionModel()->select(stage.cell("R1", "line_load"),
                                           QItemSelectionModel::ClearAndSelect);
    stage.table().selectionModel()->select(stage.cell("B1", "moment"), QItemSelectionModel::Select);
    const QString text = stage.copied();
    const Member before = stage.named("C2");
    stage.paste(stage.cell("C1", "line_load"), text);
    QCOMPARE(stage.named("C1").lineLoad, 6.75);
    QCOMPARE(stage.named("C1").loadDirection == LoadDirection::Normal, true);
    QVERIFY(stage.named("C2") == before);
    // A note can be empty.
    stage.paste(stage.cell("C1", "note"), QStringLiteral("\n"));
    QCOMPARE(stage.named("C1").note, QString());
}

void TestMemberTablePaste::textsWithTabsAndLineEnds()
{
    // A file may have them in a text. Copied, such a text is one cell all the same, and what stands
    // behind and below it keeps its place.
    MemberTableStage stage;
    const QString note = QStringLiteral("above\nbelow\tbeside\r");
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("note")), {{2, note}});
    const QByteArray before = stage.bytes();
    stage.selectBlock(stage.cell("R1", "note"), stage.cell("R2", "drawing"));
    QCOMPARE(stage.copied(), QStringLiteral("above below beside \t\n\t\n"));
    stage.pasteOver(QGuiApplication::clipboard()->text());
    QCOMPARE(stage.bytes(), before);
    stage.selectCell(stage.cell("R1", "note"));
    QCOMPARE(stage.copied(), QStringLiteral("above below beside "));
    stage.pasteOver(QGuiApplication::clipboard()->text());
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTablePaste::exchangedNames()
{
    MemberTableStage stage;
    stage.paste(stage.cell("C1", "name"), QStringLiteral("C2\nC1\n"));
    QCOMPARE(stage.member(0).name, QStringLiteral("C2"));
    QCOMPARE(stage.member(1).name, QStringLiteral("C1"));
    QCOMPARE(stage.status(), QStringLiteral("Paste of 2 cells: written"));
}

void TestMemberTablePaste::namesInAChain()
{
    // C2 would free its name for C1, but may not have that of R2 itself.
    MemberTableStage stage;
    stage.paste(stage.cell("C1", "name"), QStringLiteral("C2\nR2\n"));
    QCOMPARE(stage.member(0).name, QStringLiteral("C1"));
    QCOMPARE(stage.member(1).name, QStringLiteral("C2"));
    QCOMPARE(stage.steps(), 0);
    QVERIFY(stage.status().startsWith(QStringLiteral("2 cells were left as they are; ")));
    stage.paste(stage.cell("C1", "name"), QStringLiteral("X\nX\n"));
    QCOMPARE(stage.member(0).name, QStringLiteral("X"));
    QCOMPARE(stage.member(1).name, QStringLiteral("C2"));
}

void TestMemberTablePaste::turnedMember()
{
    MemberTableStage stage;
    stage.paste(stage.cell("C1", "start"), QStringLiteral("N2\tN1\n"));
    QCOMPARE(stage.named("C1").start, 1);
    QCOMPARE(stage.named("C1").end, 0);
    QCOMPARE(stage.steps(), 1);
    stage.paste(stage.cell("C1", "start"), QStringLiteral("N3\tN3\n"));
    QCOMPARE(stage.named("C1").start, 2);
    QCOMPARE(stage.named("C1").end, 0);
    QVERIFY(stage.status().endsWith(QStringLiteral(
        "C1, End node: a member needs two different nodes; this cell was left as it is")));
}

void TestMemberTablePaste::wholeNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("plain") << "12" << 12;
    QTest::newRow("largest") << "1000" << 1000;
    QTest::newRow("blanks") << " 7 " << 7;
    for (const char* text :
         {"0", "1001", "-3", "4294967297", "18446744073709551617", "1e2", "2.0", "two", "3 m"}) {
        QTest::newRow(text) << text << 1;
    }
}

void TestMemberTablePaste::wholeNumbers()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    MemberTableStage stage;
    stage.paste(stage.cell("C1", "divisions"), text);
    QCOMPARE(stage.named("C1").divisions, number);
    QCOMPARE(stage.status().contains(QStringLiteral("is no whole number from 1 to 1000")),
             number == 1);
}

void TestMemberTablePaste::marks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("mark");
    for (const char* text : {"yes", "Yes", "TRUE", "true", "1", " yes "}) {
        QTest::newRow(text) << text << true;
    }
    for (const char* text : {"no", "FALSE", "0"}) {
        QTest::newRow(text) << text << false;
    }
}

void TestMemberTablePaste::marks()
{
    QFETCH(QString, text);
    QFETCH(bool, mark);
    MemberTableStage stage;
    stage.paste(stage.cell(mark ? "C1" : "P1", "hinge_start"), text);
    QCOMPARE(stage.named(mark ? "C1" : "P1").hingeStart, mark);
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTablePaste::choices_data()
{
    QTest::addColumn<QByteArray>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key");
    QTest::newRow("as it reads") << QByteArray("kind") << "Rigid link"
                                 << "link";
    QTest::newRow("as in files") << QByteArray("kind") << "beam"
                                 << "beam";
    QTest::newRow("support") << QByteArray("support") << "Roller"
                             << "roller";
    QTest::newRow("section") << QByteArray("section") << "IPE 360"
                             << "IPE 360";
    QTest::newRow("material") << QByteArray("material") << "S235"
                              << "S235";
}

void TestMemberTablePaste::choices()
{
    QFETCH(QByteArray, column);
    QFETCH(QString, text);
    QFETCH(QString, key);
    MemberTableStage stage;
    stage.paste(stage.cell("C1", column), text);
    QCOMPARE(std::get<QString>(findMemberProperty(QLatin1String(column))->get(stage.named("C1"))),
             key);
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTablePaste::rigidLink()
{
    // It has no section, neither to copy nor to paste over; a paste can make another member of it.
    MemberTableStage stage;
    stage.paste(stage.cell("L1", "section"), QStringLiteral("IPE 200\t\n"));
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(), QStringLiteral("L1, Cross section: a rigid link has no such value; "
                                            "this cell was left as it is"));
    stage.paste(stage.cell("L1", "kind"), QStringLiteral("Brace\tIPE 200\n"));
    QVERIFY(stage.named("L1").kind == MemberKind::Brace);
    QCOMPARE(stage.named("L1").section, QStringLiteral("IPE 200"));
}

void TestMemberTablePaste::beyondTheLastColumn()
{
    MemberTableStage stage;
    stage.paste(stage.cell("C1", "drawing"), QStringLiteral("a.pdf\tmore\t\n"));
    QCOMPARE(stage.named("C1").drawing, QStringLiteral("a.pdf"));
    QCOMPARE(stage.status(),
             QStringLiteral("Drawing of C1: written; C1, column 24: \"more\" has no "
                            "place here; this cell was left as it is"));
}

void TestMemberTablePaste::cut()
{
    MemberTableStage stage;
    stage.selectBlock(stage.cell("R1", "line_load"), stage.cell("R1", "moment"));
    stage.press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("6.75 kN/m\tVertical, per plan length\t0.00 kNm\n"));
    QCOMPARE(stage.named("R1").lineLoad, 0.0);
    QVERIFY(stage.named("R1").loadDirection == LoadDirection::Projected);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(),
             QStringLiteral("Line load of R1: written; R1, Load direction: this cannot be empty; "
                            "this cell was left as it is"));
}

void TestMemberTablePaste::deleted()
{
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    stage.selectBlock(stage.cell("B1", "bedded"), stage.cell("B2", "note"));
    stage.press(Qt::Key_Delete);
    QCOMPARE(stage.named("B2").bedded, false);
    QCOMPARE(stage.named("B2").beddingModulus, 0.0);
    QCOMPARE(stage.named("B2").note, QString());
    QCOMPARE(stage.steps(), 1);
    stage.undo();
    QCOMPARE(stage.bytes(), before);
    // A modulus of nothing is no modulus, and a member without a name none.
    stage.selectCell(stage.cell("B1", "elastic_modulus"));
    stage.press(Qt::Key_Backspace);
    QCOMPARE(stage.named("B1").elasticModulus, 2.1e8);
    QCOMPARE(stage.status(), QStringLiteral("B1, Elastic modulus: 0 MPa is less than 1 MPa; this "
                                            "cell was left as it is"));
    stage.selectCell(stage.cell("B1", "name"));
    stage.press(Qt::Key_Delete);
    QCOMPARE(stage.member(7).name, QStringLiteral("B1"));
    // Nothing is to be cleared where nothing is.
    stage.selectCell(stage.cell("", "name"));
    stage.press(Qt::Key_Delete);
    stage.selectCell(stage.cell("L1", "line_load"));
    stage.press(Qt::Key_Delete);
    QCOMPARE(stage.bytes(), before);
}

void TestMemberTablePaste::pastedCellsAreSelected()
{
    MemberTableStage stage;
    stage.paste(stage.cell("R1", "line_load"), QStringLiteral("1\tnormal\n2\tnormal\n"));
    QCOMPARE(stage.document.selection().members(), (QVector<int>{2, 3}));
    QCOMPARE(stage.table().selectionModel()->selectedIndexes().size(), 4);
}

void TestMemberTablePaste::nothingToPaste()
{
    MemberTableStage stage;
    QGuiApplication::clipboard()->clear();
    stage.selectCell(stage.cell("R1", "line_load"));
    stage.press(Qt::Key_V, Qt::ControlModifier);
    stage.table().clearSelection();
    stage.pasteOver(QStringLiteral("1\t2\n"));
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(), QStringLiteral("Ready"));
}

void TestMemberTablePaste::modelIsSound()
{
    MemberTableStage stage;
    const QAbstractItemModelTester tester(&stage.cells(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    stage.paste(stage.cell("T1", "name"), QStringLiteral("A\nB\nC\nD\n"));
    stage.paste(stage.cell("C1", "kind"), QStringLiteral("Rigid link"));
    stage.paste(stage.cell("", "name"), QStringLiteral("E\n\nF\tN77\n"));
    for (int i = 0; i < 3; ++i) {
        stage.undo();
    }
    stage.document.undoStack().redo();
    stage.document.open(QStringLiteral(FRAME_EDITOR_MODELS "/multi_storey.json"));
    QCOMPARE(stage.cells().rowCount(), 97);
    stage.paste(stage.cell("", "name"), QStringLiteral("A\nB\n"));
    QCOMPARE(stage.cells().rowCount(), 99);
}

QTEST_MAIN(TestMemberTablePaste)
#include "tst_member_table_paste.moc"
