#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/canvas_items.h"
#include "examples/frame_editor/member_list.h"
#include "tests/examples/member_table_stage.h"
#include "tests/helpers/checked_test.h"

#include "qt/inc/delegates.h"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

using namespace frame_editor;
using zel::test::MemberTableStage;

namespace {

/// The combo box inside the editor of a choice.
QComboBox* comboOf(QWidget* editor)
{
    return editor ? editor->findChild<QComboBox*>() : nullptr;
}

} // namespace

/// The table of members: what its cells show, and how they are edited and selected.
class TestMemberTable : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void shownCells_data();
    void shownCells();
    void headers();
    void otherUnits();
    void typedText();
    void typedTexts_data();
    void typedTexts();
    void refusedTexts_data();
    void refusedTexts();
    void passingThroughWritesNothing_data();
    void passingThroughWritesNothing();
    void valueBeyondTheLimitsStays();
    void textBeyondTheLimitsStays_data();
    void textBeyondTheLimitsStays();
    void escape();
    void tabGoesToTheNextCell();
    void choiceByMouse();
    void choiceByKeyboard();
    void choiceOfANodeLeavesTheOtherOut();
    void mark();
    void buttonZooms();
    void cellsOfALink();
    void cellsOfALinkAreGrey();
    void memberBecomesALinkAndBack();
    void delegatesFollowTheRows();
    void nameInTheBlankRow();
    void refusedNameInTheBlankRow();
    void selectionFromTheTable();
    void selectionFromElsewhere();
    void selectionOnTheCanvas();
    void selectionOfCellsStays();
    void undoWhileAnEditorIsOpen();
    void changeWhileAnotherEditorIsOpen();
    void undoTakesWhatIsBeingTyped();
    void otherUnitsTakeWhatIsBeingTyped();
    void refusedTextStaysOpen();
    void otherModelWhileAnEditorIsOpen_data();
    void otherModelWhileAnEditorIsOpen();
    void removedRowWhileAnEditorIsOpen();
    void shownAndHidden();
    void windowGoesWithAnOpenEditor();
};

void TestMemberTable::shownCells_data()
{
    QTest::addColumn<QByteArray>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<bool>("toTheRight");
    const auto row = [](const char* column, const char* text, const char* toolTip,
                        bool toTheRight) {
        QTest::newRow(column) << QByteArray(column) << QString::fromUtf8(text)
                              << QString::fromUtf8(toolTip) << toTheRight;
    };
    row("zoom", "Show", "Zooms to R2", false);
    row("name", "R2", "R2", false);
    row("start", "N3", "N3", false);
    row("end", "N4", "N4", false);
    row("kind", "Rafter", "Rafter", false);
    row("section", "IPE 450", "IPE 450", false);
    row("length_offset", "0.000", "0.000 m", true);
    row("divisions", "4", "4", true);
    row("line_load", "6.75", "6.75 kN/m", true);
    row("temperature_difference", "15.00", "15.00 \u00b0C", true);
    row("elastic_modulus", "210000", "210000 MPa", true);
    row("hinge_start", "", "no", false);
}

void TestMemberTable::shownCells()
{
    QFETCH(QByteArray, column);
    QFETCH(bool, toTheRight);
    MemberTableStage stage;
    const QModelIndex cell = stage.cell("R2", column);
    QTEST(cell.data().toString(), "text");
    QTEST(cell.data(Qt::ToolTipRole).toString(), "toolTip");
    QCOMPARE((cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0, toTheRight);
    QCOMPARE(cell.data(Qt::CheckStateRole).isValid(), column == "hinge_start");
}

void TestMemberTable::headers()
{
    MemberTableStage stage;
    const auto header = [&stage](const char* column) {
        return stage.cells()
            .headerData(findMemberColumn(QLatin1String(column)), Qt::Horizontal, Qt::DisplayRole)
            .toString();
    };
    QCOMPARE(header("line_load"), QStringLiteral("Line load\n[kN/m]"));
    QCOMPARE(header("temperature_difference"), QStringLiteral("Temperature\ndifference [\u00b0C]"));
    QCOMPARE(header("hinge_start"), QStringLiteral("Hinge at\nstart"));
    QCOMPARE(header("name"), QStringLiteral("Name"));
    const auto number = [&stage](int row) {
        return stage.cells().headerData(row, Qt::Vertical, Qt::DisplayRole).toString();
    };
    QCOMPARE(number(0), QStringLiteral("1"));
    QCOMPARE(number(11), QStringLiteral("*"));
    // Every column is as wide as its header and its texts.
    for (int column = 0; column < stage.cells().columnCount(); ++column) {
        QVERIFY(stage.table().columnWidth(column) >=
                stage.table().horizontalHeader()->sectionSizeHint(column));
    }
}

void TestMemberTable::otherUnits()
{
    MemberTableStage stage;
    stage.units.setColumn(8);
    QCOMPARE(stage.shown("R2", "line_load"), QStringLiteral("0.46"));
    QCOMPARE(stage.cells()
                 .headerData(findMemberColumn(QStringLiteral("line_load")), Qt::Horizontal,
                             Qt::DisplayRole)
                 .toString(),
             QStringLiteral("Line load\n[kip/ft]"));
    stage.enterInto(stage.cell("R2", "line_load"), QStringLiteral("2.5 kN/m"));
    QCOMPARE(stage.named("R2").lineLoad, 2.5);
    QCOMPARE(stage.shown("R2", "line_load"), QStringLiteral("0.17"));
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTable::typedText()
{
    MemberTableStage stage;
    QSignalSpy changed(&stage.document, &Document::changed);
    auto* edit = qobject_cast<QLineEdit*>(stage.open(stage.cell("R1", "line_load")));
    QVERIFY(edit != nullptr);
    QCOMPARE(edit->text(), QStringLiteral("6.75 kN/m"));
    QCOMPARE(edit->selectedText(), edit->text());
    QTest::keyClicks(edit, QStringLiteral("2.5"));
    QCOMPARE(changed.count(), 0);
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 1);
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.named("R1").lineLoad, 2.5);
    QCOMPARE(stage.shown("R1", "line_load"), QStringLiteral("2.50"));
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.document.undoStack().undoText(), QStringLiteral("Line load of R1"));
    QCOMPARE(stage.status(), QStringLiteral("Line load of R1: written"));
    // The panel shows the member that is edited.
    QCOMPARE(stage.text("line_load"), QStringLiteral("2.50 kN/m"));
}

void TestMemberTable::typedTexts_data()
{
    QTest::addColumn<QByteArray>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* column, const char* text, const char* shown) {
        QTest::addRow("%s %s", column, text)
            << QByteArray(column) << QString::fromUtf8(text) << QString::fromUtf8(shown);
    };
    row("name", "Roof 1", "Roof 1");
    row("length_offset", "250 cm", "2.500");
    row("length_offset", "5' 6 1/2''", "1.689");
    row("line_load", "2500 N/m", "2.50");
    row("divisions", "12", "12");
    row("note", "as built", "as built");
}

void TestMemberTable::typedTexts()
{
    QFETCH(QByteArray, column);
    QFETCH(QString, text);
    MemberTableStage stage;
    const QModelIndex cell = stage.cell("R1", column);
    stage.enterInto(cell, text);
    QTEST(cell.data().toString(), "shown");
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTable::refusedTexts_data()
{
    QTest::addColumn<QByteArray>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* column, const char* text, const char* reason) {
        QTest::addRow("%s %s", column, text)
            << QByteArray(column) << QString::fromUtf8(text) << QString::fromUtf8(reason);
    };
    row("line_load", "abc",
        "Line load: \"abc\" is not understood as a number with a unit such as kN/m");
    row("line_load", "2,5", "Line load: \"2,5\": decimals stand behind a point");
    row("line_load", "2000", "Line load: 2000.00 kN/m is more than 1000.00 kN/m");
    row("divisions", "4294967297", "Divisions: \"4294967297\" is no whole number from 1 to 1000");
    row("name", "C1", "Name: there is a member \"C1\" already");
    row("name", " ", "Name: a member needs a name");
}

void TestMemberTable::refusedTexts()
{
    QFETCH(QByteArray, column);
    QFETCH(QString, text);
    QFETCH(QString, reason);
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    stage.enterInto(stage.cell("R1", column), text);
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(), QStringLiteral("R1, %1; this cell was left as it is").arg(reason));
}

void TestMemberTable::passingThroughWritesNothing_data()
{
    QTest::addColumn<int>("units");
    for (int column = 0; column < UnitSettings::columnCount; ++column) {
        QTest::addRow("units %d", column) << column;
    }
}

void TestMemberTable::passingThroughWritesNothing()
{
    QFETCH(int, units);
    MemberTableStage stage;
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("rotation")), {{9, 0.1}});
    const QByteArray before = stage.bytes();
    stage.units.setColumn(units);
    for (const char* member : {"T1", "L1", ""}) {
        for (int column = 1; column < stage.cells().columnCount(); ++column) {
            QWidget* editor = stage.open(stage.cells().index(stage.row(member), column));
            if (editor) {
                QTest::keyClick(editor, Qt::Key_Return);
                QCoreApplication::processEvents();
            }
            QVERIFY(stage.editor() == nullptr);
        }
    }
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTable::valueBeyondTheLimitsStays()
{
    // The file knows no limits; what is there may stay.
    MemberTableStage stage;
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("length_offset")),
                                   {{0, 25.0}});
    QWidget* editor = stage.open(stage.cell("C1", "length_offset"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(stage.named("C1").lengthOffset, 25.0);
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTable::textBeyondTheLimitsStays_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<int>("length");
    QTest::newRow("name") << QByteArray("name") << 41;
    QTest::newRow("note") << QByteArray("note") << 1001;
    // A line edit as it comes takes 32767 characters.
    QTest::newRow("note of a long line") << QByteArray("note") << 40000;
    QTest::newRow("drawing, which has no limit") << QByteArray("drawing") << 40000;
}

void TestMemberTable::textBeyondTheLimitsStays()
{
    QFETCH(QByteArray, property);
    QFETCH(int, length);
    MemberTableStage stage;
    stage.document.setMemberValues(*findMemberProperty(QLatin1String(property)),
                                   {{2, QString(length, QLatin1Char('x'))}});
    const QByteArray before = stage.bytes();
    QWidget* editor = stage.open(stage.cells().index(2, findMemberColumn(QLatin1String(property))));
    QVERIFY(editor != nullptr);
    QCOMPARE(stage.table().commitPending(), QString());
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(), QStringLiteral("Ready"));
}

void TestMemberTable::escape()
{
    MemberTableStage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("2.5"));
    QTest::keyClick(stage.editor(), Qt::Key_Escape);
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.named("R1").lineLoad, 6.75);
    QCOMPARE(stage.steps(), 0);
}

void TestMemberTable::tabGoesToTheNextCell()
{
    MemberTableStage stage;
    stage.typeInto(stage.cell("R1", "length_offset"), QStringLiteral("1"));
    QTest::keyClick(stage.editor(), Qt::Key_Tab);
    QCOMPARE(stage.named("R1").lengthOffset, 1.0);
    QCOMPARE(stage.table().currentIndex(), stage.cell("R1", "divisions"));
    auto* next = qobject_cast<QLineEdit*>(stage.editor());
    QVERIFY(next != nullptr);
    QTest::keyClicks(next, QStringLiteral("3"));
    QTest::keyClick(next, Qt::Key_Return);
    QCOMPARE(stage.named("R1").divisions, 3);
    QCOMPARE(stage.steps(), 2);
}

void TestMemberTable::choiceByMouse()
{
    MemberTableStage stage;
    QComboBox* combo = comboOf(stage.open(stage.cell("R1", "section")));
    QVERIFY(combo != nullptr);
    QCOMPARE(combo->currentText(), QStringLiteral("IPE 500"));
    QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
    zel::test::runDeferred();
    QAbstractItemView* list = combo->view();
    const QPoint place(20, list->visualRect(list->model()->index(2, 0)).center().y());
    QTest::mouseMove(list->viewport(), place - QPoint(5, 0));
    QTest::mouseMove(list->viewport(), place);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    zel::test::runDeferred();
    QCOMPARE(stage.named("R1").section, QStringLiteral("IPE 360"));
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTable::choiceByKeyboard()
{
    MemberTableStage stage;
    QWidget* editor = stage.open(stage.cell("R1", "material"));
    QComboBox* combo = comboOf(editor);
    QVERIFY(combo != nullptr);
    QTest::keyClick(combo, Qt::Key_Up);
    QCOMPARE(combo->currentText(), QStringLiteral("S235"));
    QCOMPARE(stage.steps(), 0);
    QTest::keyClick(combo, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(stage.named("R1").material, QStringLiteral("S235"));
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.document.undoStack().undoText(), QStringLiteral("Material of R1"));
    QVERIFY(stage.editor() == nullptr);
}

void TestMemberTable::choiceOfANodeLeavesTheOtherOut()
{
    MemberTableStage stage;
    QComboBox* combo = comboOf(stage.open(stage.cell("R1", "start")));
    QVERIFY(combo != nullptr);
    QCOMPARE(combo->currentText(), QStringLiteral("N2"));
    QCOMPARE(combo->count(), 8);
    QCOMPARE(combo->findText(QStringLiteral("N3")), -1);
    QTest::keyClick(combo, Qt::Key_Home);
    QTest::keyClick(combo, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(stage.named("R1").start, 0);
    QCOMPARE(stage.document.undoStack().undoText(), QStringLiteral("Start node of R1"));
}

void TestMemberTable::mark()
{
    MemberTableStage stage;
    const QModelIndex cell = stage.cell("R1", "hinge_start");
    stage.selectCell(cell);
    QCOMPARE(cell.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    stage.press(Qt::Key_Space);
    QCOMPARE(stage.named("R1").hingeStart, true);
    QCOMPARE(cell.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.steps(), 1);
    const QRect rect = stage.table().visualRect(cell);
    QTest::mouseClick(stage.table().viewport(), Qt::LeftButton, {},
                      QPoint(rect.left() + 10, rect.center().y()));
    QCOMPARE(stage.named("R1").hingeStart, false);
    QCOMPARE(stage.steps(), 2);
    stage.undo();
    QCOMPARE(cell.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
}

void TestMemberTable::buttonZooms()
{
    MemberTableStage stage;
    QSignalSpy zoomed(&stage.table(), &MemberTable::zoomRequested);
    const QModelIndex button = stage.cell("B1", "zoom");
    stage.table().horizontalScrollBar()->setValue(0);
    stage.table().scrollTo(button);
    QTest::mouseClick(stage.table().viewport(), Qt::LeftButton, {},
                      stage.table().visualRect(button).center());
    QCOMPARE(zoomed.count(), 1);
    QCOMPARE(zoomed.at(0).at(0).toInt(), 7);
    QVERIFY(stage.editor() == nullptr);
    // B1 goes from (0, 0) to (12, 0): it is in the middle, and fills more than half of the canvas.
    Canvas& canvas = stage.window.canvas();
    QVERIFY(std::abs(canvas.getCenter().x() - 6.0) < 0.1);
    QVERIFY(std::abs(canvas.getCenter().y()) < 0.1);
    const double seen = canvas.mapToScene(canvas.viewport()->rect()).boundingRect().width();
    QVERIFY(seen > 12.0 && seen < 24.0);
    // By the keyboard too; the blank row has no button.
    stage.selectCell(stage.cell("C2", "zoom"));
    stage.press(Qt::Key_F2);
    QCOMPARE(zoomed.count(), 2);
    QVERIFY(std::abs(canvas.getCenter().x() - 24.0) < 0.1);
    stage.selectCell(stage.cell("", "zoom"));
    stage.press(Qt::Key_F2);
    QCOMPARE(zoomed.count(), 2);
    QCOMPARE(stage.steps(), 0);
}

void TestMemberTable::cellsOfALink()
{
    // The row chooses a delegate without an editor, and single cells in it those of their columns.
    MemberTableStage stage;
    for (const MemberColumn& column : memberColumns()) {
        const QByteArray id = column.id.toUtf8();
        const QModelIndex cell = stage.cell("L1", id);
        const bool isThere =
            QList<QByteArray>{"zoom", "name", "start", "end", "kind", "support", "note", "drawing"}
                .contains(id);
        QVERIFY2(stage.cells().hasCell(cell.row(), cell.column()) == isThere, id.constData());
        QVERIFY2(cell.flags().testFlag(Qt::ItemIsEditable) == isThere, id.constData());
        if (column.cell == MemberColumn::Cell::Button) {
            continue;
        }
        QVERIFY2((stage.open(cell) != nullptr) == isThere, id.constData());
        QCOMPARE(cell.data(zel::qt::EditRole).isValid(), isThere);
        stage.table().setCurrentIndex(QModelIndex());
    }
    QVERIFY(comboOf(stage.open(stage.cell("L1", "end"))) != nullptr);
    stage.table().setCurrentIndex(QModelIndex());
    stage.enterInto(stage.cell("L1", "name"), QStringLiteral("Bracket"));
    QCOMPARE(stage.member(10).name, QStringLiteral("Bracket"));
    QCOMPARE(stage.steps(), 1);
}

void TestMemberTable::cellsOfALinkAreGrey()
{
    MemberTableStage stage;
    const auto colour = [&stage](const QModelIndex& cell) {
        stage.table().scrollTo(cell);
        const QRect rect = stage.table().visualRect(cell);
        return stage.table().viewport()->grab(rect).toImage().pixelColor(rect.width() / 2,
                                                                         rect.height() - 4);
    };
    stage.table().setCurrentIndex(QModelIndex());
    const QPalette palette = stage.table().palette();
    QCOMPARE(colour(stage.cell("L1", "section")), palette.color(QPalette::Window));
    QCOMPARE(colour(stage.cell("T1", "section")), palette.color(QPalette::Base));
    QCOMPARE(colour(stage.cell("", "section")), palette.color(QPalette::Base));
    // Selected they are so from end to end.
    stage.select({10});
    QCOMPARE(colour(stage.cell("L1", "section")), colour(stage.cell("L1", "note")));
    QVERIFY(colour(stage.cell("L1", "section")) != palette.color(QPalette::Base));
}

void TestMemberTable::memberBecomesALinkAndBack()
{
    MemberTableStage stage;
    for (const char* key : {"End", "Home"}) {
        QComboBox* combo = comboOf(stage.open(stage.cell("C1", "kind")));
        QVERIFY(combo != nullptr);
        QTest::keyClick(combo, QByteArray(key) == "End" ? Qt::Key_End : Qt::Key_Home);
        QTest::keyClick(combo, Qt::Key_Return);
        QCoreApplication::processEvents();
        // The delegate at work was replaced; its editor has gone all the same.
        QVERIFY(stage.editor() == nullptr);
        MemberTableStage::runDeferredDeletes();
        QVERIFY(comboOf(&stage.table()) == nullptr);
        const bool isLink = QByteArray(key) == "End";
        QCOMPARE(stage.named("C1").kind == MemberKind::Link, isLink);
        QCOMPARE(stage.open(stage.cell("C1", "section")) == nullptr, isLink);
        stage.table().setCurrentIndex(QModelIndex());
        QCOMPARE(stage.shown("C1", "section"), isLink ? QString() : QStringLiteral("HEB 300"));
    }
    QCOMPARE(stage.steps(), 2);
}

void TestMemberTable::delegatesFollowTheRows()
{
    // A new member in the place of the blank row, and the blank row back: each row has its cells.
    MemberTableStage stage;
    for (int i = 0; i < 3; ++i) {
        stage.paste(stage.cell("", "name"), QStringLiteral("X\tN1\tN2\tRigid link\nY\tN2\tN3\n"));
        QVERIFY(stage.open(stage.cell("X", "section")) == nullptr);
        QVERIFY(stage.open(stage.cell("Y", "section")) != nullptr);
        QVERIFY(stage.open(stage.cell("", "section")) == nullptr);
        QVERIFY(stage.open(stage.cell("", "name")) != nullptr);
        stage.table().setCurrentIndex(QModelIndex());
        stage.undo();
        QVERIFY(stage.open(stage.cell("", "section")) == nullptr);
        QVERIFY(stage.open(stage.cell("L1", "line_load")) == nullptr);
        stage.table().setCurrentIndex(QModelIndex());
        stage.document.undoStack().redo();
        QVERIFY(stage.open(stage.cell("X", "section")) == nullptr);
        QVERIFY(stage.open(stage.cell("Y", "line_load")) != nullptr);
        stage.table().setCurrentIndex(QModelIndex());
        stage.undo();
    }
}

void TestMemberTable::nameInTheBlankRow()
{
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    stage.typeInto(stage.cell("", "name"), QStringLiteral("X"));
    QTest::keyClick(stage.editor(), Qt::Key_Tab);
    QCOMPARE(stage.member(11).name, QStringLiteral("X"));
    QCOMPARE(stage.status(), QStringLiteral("New member X: written"));
    QCOMPARE(stage.document.selection().members(), QVector<int>{11});
    QCOMPARE(stage.cells().rowCount(), 13);
    QCOMPARE(stage.steps(), 1);
    // The next cell of the new member is being edited.
    QVERIFY(comboOf(stage.editor()) != nullptr);
    QTest::keyClick(comboOf(stage.editor()), Qt::Key_Escape);
    stage.undo();
    QCOMPARE(stage.bytes(), before);
}

void TestMemberTable::refusedNameInTheBlankRow()
{
    MemberTableStage stage;
    const QByteArray before = stage.bytes();
    stage.enterInto(stage.cell("", "name"), QStringLiteral("C1"));
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.status(), QStringLiteral("New member, Name: there is a member \"C1\" already; "
                                            "this cell was left as it is"));
    stage.enterInto(stage.cell("", "name"), QString(50, QLatin1Char('x')));
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.cells().rowCount(), 12);
    QCOMPARE(stage.steps(), 0);
}

void TestMemberTable::selectionFromTheTable()
{
    MemberTableStage stage;
    QSignalSpy selected(&stage.document, &Document::selectionChanged);
    stage.selectCell(stage.cell("R1", "line_load"));
    QCOMPARE(stage.document.selection().members(), QVector<int>{2});
    QCOMPARE(selected.count(), 1);
    stage.press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(stage.document.selection().members(), (QVector<int>{2, 3}));
    QCOMPARE(selected.count(), 2);
    QCOMPARE(stage.table().selectionModel()->selectedIndexes().size(), 2);
    auto* list = stage.window.findChild<MemberList*>();
    QVERIFY(list->item(2)->isSelected() && list->item(3)->isSelected());
    QCOMPARE(stage.text("name"), QStringLiteral("*VARIES*"));
    // Another cell of the same member is no other selection.
    stage.selectCell(stage.cell("R2", "moment"));
    QCOMPARE(selected.count(), 3);
    stage.press(Qt::Key_Left);
    QCOMPARE(selected.count(), 3);
    stage.selectCell(stage.cell("", "name"));
    QVERIFY(stage.document.selection().isEmpty());
    stage.table().selectAll();
    QCOMPARE(stage.document.selection().members().size(), 11);
}

void TestMemberTable::selectionFromElsewhere()
{
    MemberTableStage stage;
    QSignalSpy selected(&stage.document, &Document::selectionChanged);
    auto* list = stage.window.findChild<MemberList*>();
    list->setFocus();
    list->setCurrentRow(8);
    QCOMPARE(stage.document.selection().members(), QVector<int>{8});
    QCOMPARE(selected.count(), 1);
    QVERIFY(stage.table().selectionModel()->isRowSelected(8, {}));
    QCOMPARE(stage.table().currentIndex().row(), 8);
    QVERIFY(stage.table()
                .visualRect(stage.cell("B2", "name"))
                .intersects(stage.table().viewport()->rect()));
    stage.select({1, 2, 9});
    QCOMPARE(stage.table().selectionModel()->selectedRows().size(), 3);
    QCOMPARE(selected.count(), 2);
    stage.select({});
    QVERIFY(!stage.table().selectionModel()->hasSelection());
    QCOMPARE(selected.count(), 3);
}

void TestMemberTable::selectionOnTheCanvas()
{
    MemberTableStage stage;
    const Canvas& canvas = stage.window.canvas();
    QSignalSpy selected(&stage.document, &Document::selectionChanged);
    const QRectF column = canvas.memberItems()[1]->sceneBoundingRect();
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, {}, canvas.mapFromScene(column.center()));
    QCOMPARE(stage.document.selection().members(), QVector<int>{1});
    QCOMPARE(selected.count(), 1);
    QCOMPARE(stage.table().selectionModel()->selectedRows().size(), 1);
    QVERIFY(stage.table().selectionModel()->isRowSelected(1, {}));
    // And back.
    stage.selectCell(stage.cell("R1", "line_load"));
    QVERIFY(canvas.memberItems()[2]->isSelected());
    QVERIFY(!canvas.memberItems()[1]->isSelected());
    QCOMPARE(selected.count(), 2);
    QCOMPARE(stage.table().selectionModel()->selectedIndexes().size(), 1);
}

void TestMemberTable::selectionOfCellsStays()
{
    // What is selected in the table is not widened to whole rows by its own way round.
    MemberTableStage stage;
    stage.selectBlock(stage.cell("R1", "line_load"), stage.cell("R2", "moment"));
    stage.document.selection().set({3, 2});
    QCOMPARE(stage.table().selectionModel()->selectedIndexes().size(), 6);
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("note")),
                                   {{2, QStringLiteral("x")}});
    QCOMPARE(stage.table().selectionModel()->selectedIndexes().size(), 6);
}

void TestMemberTable::undoWhileAnEditorIsOpen()
{
    // The cell that is being edited gets another value: the editor shows it, and so passing through
    // does not bring the old one back.
    MemberTableStage stage;
    stage.enterInto(stage.cell("R1", "line_load"), QStringLiteral("2.5"));
    auto* edit = qobject_cast<QLineEdit*>(stage.open(stage.cell("R1", "line_load")));
    QVERIFY(edit != nullptr);
    QCOMPARE(edit->text(), QStringLiteral("2.50 kN/m"));
    stage.undo();
    QCOMPARE(edit->text(), QStringLiteral("6.75 kN/m"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(stage.named("R1").lineLoad, 6.75);
    QVERIFY(stage.document.undoStack().canRedo());
}

void TestMemberTable::changeWhileAnotherEditorIsOpen()
{
    MemberTableStage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("2.5"));
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("moment")), {{2, 4.0}});
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("line_load")), {{3, 4.0}});
    auto* edit = qobject_cast<QLineEdit*>(stage.editor());
    QVERIFY(edit != nullptr);
    QCOMPARE(edit->text(), QStringLiteral("2.5"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(stage.named("R1").lineLoad, 2.5);
    QCOMPARE(stage.named("R1").moment, 4.0);
}

void TestMemberTable::undoTakesWhatIsBeingTyped()
{
    // Typing is a step of its own, and the first one to be undone.
    MemberTableStage stage;
    stage.enterInto(stage.cell("R1", "moment"), QStringLiteral("1"));
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("2.5"));
    stage.window.findChild<QAction*>(QStringLiteral("undo"))->trigger();
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.named("R1").lineLoad, 6.75);
    QCOMPARE(stage.named("R1").moment, 1.0);
    QCOMPARE(stage.document.undoStack().redoText(), QStringLiteral("Line load of R1"));
}

void TestMemberTable::otherUnitsTakeWhatIsBeingTyped()
{
    MemberTableStage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("2.5"));
    stage.units.setColumn(8);
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.named("R1").lineLoad, 2.5);
}

void TestMemberTable::refusedTextStaysOpen()
{
    // Saving takes what is being typed; what cannot be taken is not thrown away for that.
    MemberTableStage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("abc"));
    QVERIFY(stage.table().commitPending().contains(QStringLiteral("\"abc\" is not understood")));
    auto* edit = qobject_cast<QLineEdit*>(stage.editor());
    QVERIFY(edit != nullptr);
    QCOMPARE(edit->text(), QStringLiteral("abc"));
    // Under other units it would be read in another way.
    stage.units.setColumn(8);
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.table().commitPending(), QString());
    QCOMPARE(stage.steps(), 0);
}

void TestMemberTable::otherModelWhileAnEditorIsOpen_data()
{
    QTest::addColumn<QByteArray>("member");
    QTest::addColumn<QByteArray>("column");
    QTest::newRow("text") << QByteArray("T1") << QByteArray("name");
    QTest::newRow("number") << QByteArray("T1") << QByteArray("line_load");
    QTest::newRow("choice") << QByteArray("T1") << QByteArray("section");
    QTest::newRow("rigid link") << QByteArray("L1") << QByteArray("kind");
    QTest::newRow("blank row") << QByteArray("") << QByteArray("name");
}

void TestMemberTable::otherModelWhileAnEditorIsOpen()
{
    QFETCH(QByteArray, member);
    QFETCH(QByteArray, column);
    MemberTableStage stage;
    QWidget* editor = stage.open(stage.cell(member, column));
    QVERIFY(editor != nullptr);
    if (QComboBox* combo = comboOf(editor)) {
        combo->showPopup();
    }
    stage.document.open(QStringLiteral(FRAME_EDITOR_MODELS "/multi_storey.json"));
    const QByteArray before = stage.bytes();
    QCoreApplication::processEvents();
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 0);
    stage.enterInto(stage.cells().index(50, findMemberColumn(QStringLiteral("line_load"))),
                    QStringLiteral("2.5"));
    QCOMPARE(stage.member(50).lineLoad, 2.5);
}

void TestMemberTable::removedRowWhileAnEditorIsOpen()
{
    MemberTableStage stage;
    stage.paste(stage.cell("", "name"), QStringLiteral("X\nY\n"));
    stage.typeInto(stage.cell("Y", "line_load"), QStringLiteral("2.5"));
    stage.undo();
    QCoreApplication::processEvents();
    QCOMPARE(int(stage.document.model().members.size()), 11);
    QVERIFY(stage.editor() == nullptr);
    // The name of X is in the row that is the blank one from now on.
    stage.document.undoStack().redo();
    stage.typeInto(stage.cell("X", "name"), QStringLiteral("Z"));
    stage.undo();
    if (stage.editor()) {
        QTest::keyClick(stage.editor(), Qt::Key_Escape);
    }
    QCoreApplication::processEvents();
    QCOMPARE(int(stage.document.model().members.size()), 11);
}

void TestMemberTable::shownAndHidden()
{
    MemberTableStage stage;
    auto* dock = stage.window.findChild<QDockWidget*>(QStringLiteral("memberTableDock"));
    QVERIFY(dock != nullptr);
    QVERIFY(stage.table().isVisible());
    QVERIFY(stage.table().height() > 100);
    QAction* toggle = dock->toggleViewAction();
    toggle->trigger();
    QVERIFY(!stage.table().isVisible());
    toggle->trigger();
    QVERIFY(stage.table().isVisible());
    QVERIFY(stage.table().hasFocus());
    // Tab leads on from the table, so nobody is caught in it.
    stage.press(Qt::Key_Tab);
    QVERIFY(!stage.table().hasFocus());
}

void TestMemberTable::windowGoesWithAnOpenEditor()
{
    MemberTableStage stage;
    stage.typeInto(stage.cell("", "name"), QStringLiteral("X"));
}

QTEST_MAIN(TestMemberTable)
#include "tst_member_table.moc"
