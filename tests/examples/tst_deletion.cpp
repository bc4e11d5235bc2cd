#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/canvas_items.h"
#include "examples/frame_editor/member_list.h"
#include "tests/examples/member_table_stage.h"
#include "tests/helpers/checked_test.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <functional>

using namespace frame_editor;
using zel::test::MemberTableStage;

namespace {

/// The window, and the ways in which its user deletes members.
struct Stage : MemberTableStage
{
    MemberList& list()
    {
        return *window.findChild<MemberList*>();
    }
    QAction& action(const char* name)
    {
        return *window.findChild<QAction*>(QLatin1String(name));
    }
    QStringList names() const
    {
        QStringList result;
        for (const Member& member : document.model().members) {
            result << member.name;
        }
        return result;
    }
    bool has(const char* name) const
    {
        return names().contains(QLatin1String(name));
    }
    void clickInTheList(int row, Qt::KeyboardModifiers modifiers = {})
    {
        list().scrollToItem(list().item(row));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers,
                          list().visualItemRect(list().item(row)).center());
        list().setFocus();
    }
    QPoint placeOnTheCanvas(int member)
    {
        return window.canvas().mapFromScene(
            window.canvas().memberItems()[std::size_t(member)]->axis().pointAt(0.3));
    }
    /// Presses the keys of a window where the focus is.
    void pressKey(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    /// Whether all views show the members of the model, in its order.
    bool isShownEverywhere()
    {
        const int count = int(document.model().members.size());
        bool shown = list().count() == count && cells().memberCount() == count &&
                     cells().rowCount() == count + 1 &&
                     int(window.canvas().memberItems().size()) == count;
        for (int i = 0; shown && i < count; ++i) {
            const QString& name = member(i).name;
            shown = list().item(i)->text().startsWith(name + QStringLiteral("  (")) &&
                    cells().index(i, findMemberColumn(QStringLiteral("name"))).data() == name &&
                    window.canvas().memberItems()[std::size_t(i)]->toolTip().startsWith(name) &&
                    list().item(i)->isSelected() == document.selection().contains(i);
        }
        return shown;
    }
};

/// Does something with the next menu that pops up, and closes it.
class MenuVisit : public QObject
{
public:
    explicit MenuVisit(const std::function<void(QMenu&)>& visit)
    {
        m_timer.setInterval(0);
        connect(&m_timer, &QTimer::timeout, this, [this, visit] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu && menu->isVisible()) {
                m_timer.stop();
                visited = true;
                visit(*menu);
                menu->close();
            }
        });
        m_timer.start();
    }

    bool visited = false;

private:
    QTimer m_timer;
};

/// Asks for a context menu as the right button of the mouse does.
void rightClick(QWidget& area, const QPoint& place)
{
    QTest::mouseClick(&area, Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, area.mapToGlobal(place));
    QApplication::sendEvent(&area, &event);
}

void choose(QMenu& menu, const QString& text)
{
    for (QAction* action : menu.actions()) {
        if (action->text().section(QLatin1Char('\t'), 0, 0) == text) {
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no entry ") + text));
}

} // namespace

/// Deleting members in the window.
class TestDeletion : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void keyInTheList();
    void keyOnTheCanvas();
    void keyElsewhere();
    void keyInTheTableClearsCells();
    void keyOfRowsInTheTable();
    void menuEntry();
    void menuOfTheList();
    void menuOfTheTable();
    void menuOfARowNumber();
    void blankRowIsNoMember();
    void severalAreOneStep();
    void all();
    void nodesAreNamed();
    void keyboardGoesOn();
    void typedTextCountsFirst();
    void refusedTextHoldsBack();
    void typedCellCountsFirst();
    void refusedCellHoldsBack();
    void nameInTheBlankRow();
    void openListOfAField();
    void otherRowBeingEdited_data();
    void otherRowBeingEdited();
    void rowBeingEdited_data();
    void rowBeingEdited();
    void delegatesFollowTheRows();
    void notDuringADrag();
    void ampersandInAName();
};

void TestDeletion::keyInTheList()
{
    Stage stage;
    const QByteArray before = stage.bytes();
    stage.clickInTheList(2);
    stage.clickInTheList(9, Qt::ControlModifier);
    stage.pressKey(Qt::Key_Delete);
    QVERIFY(!stage.has("R1") && !stage.has("T1"));
    QCOMPARE(stage.names().size(), 9);
    QVERIFY(stage.isShownEverywhere());
    QVERIFY(stage.document.selection().isEmpty());
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(), QStringLiteral("Deletion of 2 members: done"));
    // Nothing is selected, so pressing it once more does nothing.
    stage.pressKey(Qt::Key_Delete);
    QCOMPARE(stage.steps(), 1);
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.document.selection().members(), (QVector<int>{2, 9}));
    QVERIFY(stage.isShownEverywhere());
    QVERIFY(!stage.document.isModified());
    QCOMPARE(stage.text("line_load"), QStringLiteral("*VARIES*"));
    QCOMPARE(stage.status(), QStringLiteral("Deletion of 2 members: undone"));
    stage.pressKey(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(stage.names().size(), 9);
    QVERIFY(stage.isShownEverywhere());
    QCOMPARE(stage.status(), QStringLiteral("Deletion of 2 members: redone"));
}

void TestDeletion::keyOnTheCanvas()
{
    Stage stage;
    const QByteArray before = stage.bytes();
    Canvas& canvas = stage.window.canvas();
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, {}, stage.placeOnTheCanvas(1));
    QVERIFY(canvas.hasFocus());
    stage.pressKey(Qt::Key_Delete);
    QVERIFY(!stage.has("C2"));
    QVERIFY(stage.isShownEverywhere());
    QCOMPARE(int(canvas.nodeGrips().size()), 9);
    QTest::mouseClick(canvas.viewport(), Qt::LeftButton, {}, stage.placeOnTheCanvas(6));
    QCOMPARE(stage.document.selection().members(), QVector<int>{6});
    stage.pressKey(Qt::Key_Delete);
    QVERIFY(!stage.has("B1"));
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.bytes(), before);
    QVERIFY(stage.isShownEverywhere());
}

void TestDeletion::keyElsewhere()
{
    // In a text the key is for the text; in a choice, the tool bar or the results it does nothing.
    Stage stage;
    stage.select({0});
    stage.edit("note").setFocus(Qt::TabFocusReason);
    stage.pressKey(Qt::Key_Home);
    stage.pressKey(Qt::Key_Delete);
    QCOMPARE(stage.text("note"), QStringLiteral("ind on the long wall"));
    for (QWidget* widget :
         {stage.field("kind").editor()->focusProxy(), stage.field("hinge_start").editor(),
          stage.window.findChild<QWidget*>(QStringLiteral("units"))}) {
        widget->setFocus(Qt::TabFocusReason);
        stage.pressKey(Qt::Key_Delete);
    }
    QVERIFY(stage.has("C1"));
    QCOMPARE(stage.names().size(), 11);
}

void TestDeletion::keyInTheTableClearsCells()
{
    Stage stage;
    stage.selectBlock(stage.cell("R1", "line_load"), stage.cell("R2", "line_load"));
    stage.pressKey(Qt::Key_Delete);
    QCOMPARE(stage.names().size(), 11);
    QCOMPARE(stage.named("R1").lineLoad, 0.0);
    QCOMPARE(stage.named("R2").lineLoad, 0.0);
    QCOMPARE(stage.steps(), 1);
    // Also where the row is selected as a whole.
    stage.table().selectRow(2);
    stage.pressKey(Qt::Key_Delete);
    QVERIFY(stage.has("R1"));
    QCOMPARE(stage.named("R1").note, QString());
}

void TestDeletion::keyOfRowsInTheTable()
{
    Stage stage;
    const QByteArray before = stage.bytes();
    stage.selectBlock(stage.cell("R1", "line_load"), stage.cell("R2", "moment"));
    stage.pressKey(Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(!stage.has("R1") && !stage.has("R2"));
    QVERIFY(stage.isShownEverywhere());
    QCOMPARE(stage.steps(), 1);
    QVERIFY(stage.table().hasFocus());
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.bytes(), before);
    QVERIFY(stage.isShownEverywhere());
    QVERIFY(stage.table().selectionModel()->isRowSelected(2, {}));
    QVERIFY(stage.table().selectionModel()->isRowSelected(3, {}));
}

void TestDeletion::menuEntry()
{
    Stage stage;
    QAction& entry = stage.action("delete");
    QVERIFY(!entry.isEnabled());
    QCOMPARE(entry.text(), QStringLiteral("&Delete"));
    stage.select({2});
    QVERIFY(entry.isEnabled());
    QCOMPARE(entry.text(), QStringLiteral("&Delete R1"));
    stage.enter("name", QStringLiteral("Roof"));
    QCOMPARE(entry.text(), QStringLiteral("&Delete Roof"));
    stage.select({2, 3, 4});
    QCOMPARE(entry.text(), QStringLiteral("&Delete 3 members"));
    // By Alt and letters, from wherever the focus is.
    stage.edit("moment").setFocus();
    const MenuVisit visit([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_D); });
    QTest::keyClick(&stage.window, Qt::Key_E, Qt::AltModifier);
    QTRY_VERIFY(!entry.isEnabled());
    QCOMPARE(stage.names().size(), 8);
    QCOMPARE(entry.text(), QStringLiteral("&Delete"));
}

void TestDeletion::menuOfTheList()
{
    // The right button selects what it points at, and leaves a selection alone that it is in.
    Stage stage;
    stage.clickInTheList(0);
    const MenuVisit first([](QMenu& menu) { choose(menu, QStringLiteral("&Delete R2")); });
    rightClick(*stage.list().viewport(),
               stage.list().visualItemRect(stage.list().item(3)).center());
    QVERIFY(first.visited);
    QVERIFY(!stage.has("R2") && stage.has("C1"));
    stage.clickInTheList(0);
    stage.clickInTheList(1, Qt::ControlModifier);
    const MenuVisit second([](QMenu& menu) { choose(menu, QStringLiteral("&Delete 2 members")); });
    rightClick(*stage.list().viewport(),
               stage.list().visualItemRect(stage.list().item(1)).center());
    QVERIFY(second.visited);
    QVERIFY(!stage.has("C1") && !stage.has("C2"));
    QCOMPARE(stage.steps(), 2);
}

void TestDeletion::menuOfTheTable()
{
    Stage stage;
    const auto rightClickOn = [&stage](const QModelIndex& cell) {
        stage.table().scrollTo(cell);
        rightClick(*stage.table().viewport(), stage.table().visualRect(cell).center());
    };
    stage.selectCell(stage.cell("R1", "note"));
    {
        const MenuVisit visit([](QMenu& menu) { choose(menu, QStringLiteral("&Copy")); });
        rightClickOn(stage.cell("R1", "note"));
        QVERIFY(visit.visited);
    }
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Haunched at the eaves"));
    {
        const MenuVisit visit([](QMenu& menu) { choose(menu, QStringLiteral("&Paste")); });
        rightClickOn(stage.cell("R2", "note"));
    }
    QCOMPARE(stage.named("R2").note, QStringLiteral("Haunched at the eaves"));
    {
        const MenuVisit visit([](QMenu& menu) { choose(menu, QStringLiteral("Cu&t")); });
        rightClickOn(stage.cell("R2", "note"));
    }
    QCOMPARE(stage.named("R2").note, QString());
    {
        const MenuVisit visit([](QMenu& menu) { choose(menu, QStringLiteral("C&lear cells")); });
        rightClickOn(stage.cell("R1", "note"));
    }
    QCOMPARE(stage.named("R1").note, QString());
    QCOMPARE(stage.steps(), 3);
    {
        const MenuVisit visit([](QMenu& menu) { choose(menu, QStringLiteral("&Delete R1")); });
        rightClickOn(stage.cell("R1", "note"));
    }
    QVERIFY(!stage.has("R1"));
    QVERIFY(stage.isShownEverywhere());
    QCOMPARE(stage.steps(), 4);
}

void TestDeletion::menuOfARowNumber()
{
    Stage stage;
    stage.table().selectRow(0);
    QHeaderView& header = *stage.table().verticalHeader();
    const auto rightClickOn = [&header](int row) {
        rightClick(*header.viewport(), QPoint(5, header.sectionViewportPosition(row) + 5));
    };
    stage.table().scrollToTop();
    {
        const MenuVisit visit([](QMenu& menu) { choose(menu, QStringLiteral("&Delete R1")); });
        rightClickOn(2);
        QVERIFY(visit.visited);
    }
    QVERIFY(!stage.has("R1") && stage.has("C1"));
    stage.table().selectRow(0);
    stage.table().selectionModel()->select(stage.cells().index(1, 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
    {
        const MenuVisit visit(
            [](QMenu& menu) { choose(menu, QStringLiteral("&Delete 2 members")); });
        rightClickOn(1);
    }
    QVERIFY(!stage.has("C1") && !stage.has("C2"));
}

void TestDeletion::blankRowIsNoMember()
{
    Stage stage;
    stage.selectCell(stage.cell("", "name"));
    QVERIFY(!stage.action("delete").isEnabled());
    stage.pressKey(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(stage.steps(), 0);
    stage.table().selectAll();
    QCOMPARE(stage.action("deleteRows").text(), QStringLiteral("&Delete 11 members"));
}

void TestDeletion::severalAreOneStep()
{
    Stage stage;
    stage.select({2});
    stage.enter("line_load", QStringLiteral("2.5"));
    stage.enter("length_offset", QStringLiteral("0.123456"));
    const QByteArray before = stage.bytes();
    stage.select({0, 2, 3, 10});
    stage.list().setFocus();
    stage.pressKey(Qt::Key_Delete);
    QCOMPARE(stage.steps(), 3);
    stage.select({1});
    stage.enter("moment", QStringLiteral("4"));
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    stage.pressKey(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.document.selection().members(), (QVector<int>{0, 2, 3, 10}));
    QCOMPARE(stage.named("R1").lengthOffset, 0.123456);
}

void TestDeletion::all()
{
    Stage stage;
    const QByteArray before = stage.bytes();
    stage.list().setFocus();
    stage.pressKey(Qt::Key_A, Qt::ControlModifier);
    stage.pressKey(Qt::Key_Delete);
    QVERIFY(stage.names().isEmpty());
    QVERIFY(stage.isShownEverywhere());
    QVERIFY(!stage.action("delete").isEnabled());
    // The table goes on: the blank row makes the first member anew.
    stage.table().setFocus();
    stage.enterInto(stage.cell("", "name"), QStringLiteral("X"));
    QCOMPARE(stage.names(), QStringList{QStringLiteral("X")});
    QVERIFY(stage.isShownEverywhere());
    stage.undo();
    stage.undo();
    QCOMPARE(stage.bytes(), before);
    QVERIFY(stage.isShownEverywhere());
}

void TestDeletion::nodesAreNamed()
{
    Stage stage;
    stage.select({10});
    stage.list().setFocus();
    stage.pressKey(Qt::Key_Delete);
    QCOMPARE(stage.status(),
             QStringLiteral("Deletion of L1: done; nodes that stay without a member: N9"));
    QCOMPARE(stage.document.model().findNode(QStringLiteral("N9")), 8);
    // They can be given to another member.
    QComboBox* combo = nullptr;
    stage.table().setFocus();
    combo = stage.open(stage.cell("T1", "end"))->findChild<QComboBox*>();
    QVERIFY(combo->findText(QStringLiteral("N9")) >= 0);
}

void TestDeletion::keyboardGoesOn()
{
    // The list does not jump: the member that has moved up comes next.
    Stage stage;
    stage.clickInTheList(4);
    stage.pressKey(Qt::Key_Delete);
    QVERIFY(stage.list().hasFocus());
    QCOMPARE(stage.list().currentRow(), 4);
    stage.pressKey(Qt::Key_Space);
    QCOMPARE(stage.document.selection().members(), QVector<int>{4});
    QCOMPARE(stage.member(4).name, QStringLiteral("R4"));
    stage.clickInTheList(9);
    stage.pressKey(Qt::Key_Delete);
    stage.pressKey(Qt::Key_Up);
    QCOMPARE(stage.document.selection().members().size(), 1);
}

void TestDeletion::typedTextCountsFirst()
{
    Stage stage;
    stage.select({2});
    stage.type("line_load", QStringLiteral("2.5"));
    stage.action("delete").trigger();
    QVERIFY(!stage.has("R1"));
    QVERIFY(stage.list().hasFocus());
    QCOMPARE(stage.steps(), 2);
    stage.undo();
    QCOMPARE(stage.named("R1").lineLoad, 2.5);
    stage.undo();
    QCOMPARE(stage.named("R1").lineLoad, 6.75);
}

void TestDeletion::refusedTextHoldsBack()
{
    Stage stage;
    stage.select({2});
    stage.type("line_load", QStringLiteral("2,5"));
    stage.action("delete").trigger();
    QVERIFY(stage.has("R1"));
    QCOMPARE(stage.text("line_load"), QStringLiteral("2,5"));
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(
        stage.status(),
        QStringLiteral("Line load: \"2,5\": decimals stand behind a point; nothing is written; "
                       "nothing is deleted"));
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Escape);
    stage.action("delete").trigger();
    QVERIFY(!stage.has("R1"));
}

void TestDeletion::typedCellCountsFirst()
{
    Stage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("2.5"));
    stage.action("delete").trigger();
    QVERIFY(!stage.has("R1"));
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.steps(), 2);
    stage.undo();
    QCOMPARE(stage.named("R1").lineLoad, 2.5);
}

void TestDeletion::refusedCellHoldsBack()
{
    Stage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("abc"));
    stage.action("delete").trigger();
    QVERIFY(stage.has("R1"));
    auto* edit = qobject_cast<QLineEdit*>(stage.editor());
    QVERIFY(edit != nullptr);
    QCOMPARE(edit->text(), QStringLiteral("abc"));
    QVERIFY(stage.status().endsWith(QStringLiteral("; nothing is deleted")));
}

void TestDeletion::nameInTheBlankRow()
{
    // What is deleted is what was selected, and not the member that the typed name makes.
    Stage stage;
    stage.select({2});
    stage.table().setCurrentIndex(QModelIndex());
    stage.table().selectionModel()->select(stage.cell("R1", "name"),
                                           QItemSelectionModel::ClearAndSelect);
    stage.table().selectionModel()->setCurrentIndex(stage.cell("", "name"),
                                                    QItemSelectionModel::NoUpdate);
    stage.press(Qt::Key_F2);
    QVERIFY(stage.editor() != nullptr);
    QTest::keyClicks(stage.editor(), QStringLiteral("X"));
    stage.action("delete").trigger();
    QVERIFY(!stage.has("R1"));
    QVERIFY(stage.has("X"));
    QVERIFY(stage.isShownEverywhere());
}

void TestDeletion::openListOfAField()
{
    Stage stage;
    stage.select({2});
    auto& combo = stage.inside<QComboBox>("section");
    combo.setFocus();
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_Home);
    stage.document.removeMembers({2});
    QCoreApplication::processEvents();
    const QByteArray before = stage.bytes();
    if (combo.view()->isVisible()) {
        QTest::keyClick(combo.view(), Qt::Key_Return);
    }
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 1);
}

void TestDeletion::otherRowBeingEdited_data()
{
    QTest::addColumn<QByteArray>("member");
    QTest::addColumn<QByteArray>("column");
    QTest::newRow("text") << QByteArray("T1") << QByteArray("note");
    QTest::newRow("number") << QByteArray("B1") << QByteArray("line_load");
    QTest::newRow("rigid link") << QByteArray("L1") << QByteArray("note");
}

void TestDeletion::otherRowBeingEdited()
{
    // The editor goes along with its member when rows come and go above it.
    QFETCH(QByteArray, member);
    QFETCH(QByteArray, column);
    Stage stage;
    const QString text = QStringLiteral("7");
    stage.typeInto(stage.cell(member, column), text);
    const QPointer<QWidget> editor = stage.editor();
    stage.document.removeMembers({0, 2, 3});
    QVERIFY(editor && editor == stage.editor());
    QCOMPARE(stage.table().currentIndex(), stage.cell(member, column));
    stage.undo();
    QVERIFY(editor && editor == stage.editor());
    QCOMPARE(stage.table().currentIndex(), stage.cell(member, column));
    stage.document.undoStack().redo();
    const QByteArray before = stage.bytes();
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(stage.editor() == nullptr);
    QCOMPARE(stage.document.undoStack().undoText().section(QLatin1Char(' '), -1),
             QString::fromLatin1(member));
    QVERIFY(stage.shown(member, column).startsWith(text));
    stage.undo();
    QCOMPARE(stage.bytes(), before);
}

void TestDeletion::rowBeingEdited_data()
{
    QTest::addColumn<QByteArray>("member");
    QTest::addColumn<QByteArray>("column");
    QTest::newRow("text") << QByteArray("R1") << QByteArray("name");
    QTest::newRow("choice") << QByteArray("R1") << QByteArray("section");
    QTest::newRow("rigid link") << QByteArray("L1") << QByteArray("kind");
}

void TestDeletion::rowBeingEdited()
{
    // From elsewhere, without asking the editor: it goes, and writes nothing into another member.
    QFETCH(QByteArray, member);
    QFETCH(QByteArray, column);
    Stage stage;
    const QByteArray start = stage.bytes();
    const QPointer<QWidget> editor = stage.open(stage.cell(member, column));
    QVERIFY(editor);
    if (auto* combo = editor->findChild<QComboBox*>()) {
        combo->showPopup();
    } else {
        QTest::keyClicks(editor, QStringLiteral("X"));
    }
    stage.document.removeMembers({stage.row(member)});
    const QByteArray before = stage.bytes();
    QCoreApplication::processEvents();
    MemberTableStage::runDeferredDeletes();
    QVERIFY(stage.editor() == nullptr);
    QVERIFY(!editor);
    QCOMPARE(stage.bytes(), before);
    QCOMPARE(stage.steps(), 1);
    stage.undo();
    QCOMPARE(stage.bytes(), start);
    QVERIFY(stage.open(stage.cell(member, column)) != nullptr);
}

void TestDeletion::delegatesFollowTheRows()
{
    // A rigid link has fewer cells, the blank row but one, wherever they come to stand.
    Stage stage;
    const auto hasEditor = [&stage](const char* member, const char* column) {
        const bool opened = stage.open(stage.cell(member, column)) != nullptr;
        stage.table().setCurrentIndex(QModelIndex());
        return opened;
    };
    const auto check = [&] {
        return !hasEditor("L1", "section") && hasEditor("L1", "note") &&
               hasEditor("T1", "section") && hasEditor("C1", "line_load") &&
               !hasEditor("", "section") && hasEditor("", "name");
    };
    QVERIFY(check());
    stage.document.removeMembers({1, 2, 8});
    QVERIFY(check());
    stage.document.removeMembers({stage.row("L1")});
    QVERIFY(hasEditor("T1", "section") && !hasEditor("", "section") && hasEditor("", "name"));
    stage.undo();
    QVERIFY(check());
    stage.undo();
    QVERIFY(check());
    stage.document.undoStack().redo();
    QVERIFY(check());
}

void TestDeletion::notDuringADrag()
{
    Stage stage;
    Canvas& canvas = stage.window.canvas();
    stage.select({0});
    const QPoint from = canvas.mapFromScene(canvas.nodeGrips()[3]->pos());
    canvas.setFocus();
    QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, from);
    QVERIFY(canvas.hasGesture());
    stage.pressKey(Qt::Key_Delete);
    QCOMPARE(stage.names().size(), 11);
    QTest::mouseRelease(canvas.viewport(), Qt::LeftButton, {}, from);
    QVERIFY(!canvas.hasGesture());
    stage.pressKey(Qt::Key_Delete);
    QCOMPARE(stage.names().size(), 10);
}

void TestDeletion::ampersandInAName()
{
    Stage stage;
    stage.select({2});
    stage.enter("name", QStringLiteral("A&B"));
    QCOMPARE(stage.action("delete").text(), QStringLiteral("&Delete A&&B"));
    stage.action("delete").trigger();
    QCOMPARE(stage.action("undo").text(), QStringLiteral("&Undo Deletion of A&&B"));
    QCOMPARE(stage.status(), QStringLiteral("Deletion of A&B: done"));
}

QTEST_MAIN(TestDeletion)
#include "tst_deletion.moc"
