#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/canvas_items.h"
#include "examples/frame_editor/member_list.h"
#include "examples/frame_editor/model_file.h"
#include "examples/frame_editor/results_view.h"
#include "tests/examples/member_table_stage.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/view_stage.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <functional>

using namespace frame_editor;
using zel::test::EditorStage;
using zel::test::EventCount;
using zel::test::MemberTableStage;

namespace {

/// The frame editor with its model in a file of its own, and the first member selected.
struct SavedStage : EditorStage
{
    explicit SavedStage(const QString& name = QStringLiteral("m.json"))
        : fileName(folder.filePath(name))
    {
        document.saveAs(fileName);
        select({0});
    }

    QTemporaryDir folder;
    const QString fileName;
};

/// Answers the next message box, and keeps its text.
class Answer : public QObject
{
public:
    explicit Answer(QMessageBox::StandardButton button)
    {
        m_timer.setInterval(0);
        connect(&m_timer, &QTimer::timeout, this, [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box && box->isVisible()) {
                m_timer.stop();
                text = box->text();
                QTest::mouseClick(box->button(button), Qt::LeftButton);
            }
        });
        m_timer.start();
    }

    QString text;

private:
    QTimer m_timer;
};

/// Does something with the next file dialog when it has the keyboard.
class DialogVisit : public QObject
{
public:
    explicit DialogVisit(const std::function<void(QFileDialog&)>& visit)
    {
        m_timer.setInterval(0);
        connect(&m_timer, &QTimer::timeout, this, [this, visit] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog && dialog->isAncestorOf(QApplication::focusWidget())) {
                m_timer.stop();
                visit(*dialog);
            }
        });
        m_timer.start();
    }

private:
    QTimer m_timer;
};

} // namespace

class TestMainWindow : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void title();
    void resultsScrollInALowWindow();
    void closeUnchanged();
    void closeAndSave();
    void closeAndDiscard();
    void closeAndCancel();
    void closeTakesWhatIsBeingTyped();
    void closeTakesATypedChoice();
    void closeTakesACellThatIsBeingTyped();
    void closeAsksForARefusedCell();
    void closeAsksForARefusedText();
    void closeWithFailedSave();
    void saveTellsOfARefusedText();
    void saveTwice();
    void fileNames_data();
    void fileNames();
    void savedNameGetsASuffix();
    void marksInNames();
    void badFile();
    void openAsksForChanges();
    void statusFollowsTheHistory();
    void statusAfterARefusedText();
    void statusOfADrag();
    void statusStaysBelowAMenu();
    void goodFile();
    void selectionByName();
    void undoTexts();
    void selectionInTheList();
    void listFollows();
    void captionsAndBuddies();
    void tabOrder();
    void alignment();
    void mnemonics();
    void movesOfTheMouseLayNothingOut();
};

void TestMainWindow::title()
{
    EditorStage stage;
    QCOMPARE(stage.window.windowTitle(), QStringLiteral("portal_frame.json[*] - Frame editor"));
    QVERIFY(!stage.window.isWindowModified());
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1"));
    QVERIFY(stage.window.isWindowModified());
    stage.document.undoStack().undo();
    QVERIFY(!stage.window.isWindowModified());
}

/// Below a small screen the status bar would not be seen.
void TestMainWindow::resultsScrollInALowWindow()
{
    EditorStage stage;
    const auto* results = stage.window.findChild<ResultsView*>();
    QVERIFY(results != nullptr);
    stage.window.resize(stage.window.width(), stage.window.minimumSizeHint().height());
    QTRY_VERIFY(results->visibleRegion().boundingRect().height() < results->height());
    QVERIFY(!results->visibleRegion().isEmpty());
}

void TestMainWindow::closeUnchanged()
{
    EditorStage stage;
    QVERIFY(stage.window.close());
}

void TestMainWindow::closeAndSave()
{
    SavedStage stage;
    stage.enter("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Save);
    QVERIFY(stage.window.close());
    QVERIFY(!answer.text.isEmpty());
    QCOMPARE(loadModel(stage.fileName).members.at(0).lineLoad, 1.5);
}

void TestMainWindow::closeAndDiscard()
{
    SavedStage stage;
    stage.enter("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Discard);
    QVERIFY(stage.window.close());
    QCOMPARE(loadModel(stage.fileName).members.at(0).lineLoad, 3.6);
}

void TestMainWindow::closeAndCancel()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Cancel);
    QVERIFY(!stage.window.close());
    QVERIFY(stage.window.isVisible());
    QCOMPARE(stage.member(0).lineLoad, 1.5);
    QVERIFY(stage.document.isModified());
}

void TestMainWindow::closeTakesWhatIsBeingTyped()
{
    EditorStage stage;
    stage.select({0});
    stage.type("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Cancel);
    QVERIFY(!stage.window.close());
    QVERIFY(!answer.text.isEmpty());
    QCOMPARE(stage.member(0).lineLoad, 1.5);
}

void TestMainWindow::closeTakesATypedChoice()
{
    EditorStage stage;
    stage.select({0});
    auto& combo = stage.inside<QComboBox>("material");
    combo.setFocus(Qt::TabFocusReason);
    combo.lineEdit()->selectAll();
    QTest::keyClicks(&combo, QStringLiteral("S235"));
    QCOMPARE(stage.steps(), 0);
    Answer answer(QMessageBox::Cancel);
    QVERIFY(!stage.window.close());
    QCOMPARE(answer.text, QStringLiteral("The model has changes that are not saved."));
    QCOMPARE(stage.member(0).material, QStringLiteral("S235"));
    QCOMPARE(stage.steps(), 1);
}

void TestMainWindow::closeTakesACellThatIsBeingTyped()
{
    MemberTableStage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("2.5"));
    Answer answer(QMessageBox::Cancel);
    QVERIFY(!stage.window.close());
    QCOMPARE(answer.text, QStringLiteral("The model has changes that are not saved."));
    QCOMPARE(stage.named("R1").lineLoad, 2.5);
    QVERIFY(stage.editor() == nullptr);
}

void TestMainWindow::closeAsksForARefusedCell()
{
    MemberTableStage stage;
    stage.typeInto(stage.cell("R1", "line_load"), QStringLiteral("2,5"));
    {
        Answer answer(QMessageBox::Cancel);
        QVERIFY(!stage.window.close());
        QVERIFY2(answer.text.contains(QStringLiteral("decimals stand behind a point")),
                 qPrintable(answer.text));
    }
    // Back in the window the text can be mended.
    const auto text = [&stage] {
        const auto* edit = qobject_cast<QLineEdit*>(stage.editor());
        return edit ? edit->text() : QString();
    };
    QCOMPARE(text(), QStringLiteral("2,5"));
    QCOMPARE(stage.window.focusWidget(), stage.editor());
    // So it can behind the other dialogs.
    {
        const DialogVisit visit(
            [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QVERIFY(!stage.window.saveWithDialog());
    }
    QCOMPARE(text(), QStringLiteral("2,5"));
    {
        const DialogVisit visit(
            [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        stage.window.openFormWithDialog();
    }
    QCOMPARE(text(), QStringLiteral("2,5"));
    Answer answer(QMessageBox::Discard);
    QVERIFY(stage.window.close());
    QCOMPARE(stage.steps(), 0);
}

void TestMainWindow::closeAsksForARefusedText()
{
    EditorStage stage;
    stage.select({0});
    stage.type("line_load", QStringLiteral("2,5"));
    const QString refusal =
        QStringLiteral("Line load: \"2,5\": decimals stand behind a point; nothing is written");
    {
        Answer answer(QMessageBox::Cancel);
        QVERIFY(!stage.window.close());
        QCOMPARE(answer.text, refusal);
        QCOMPARE(stage.text("line_load"), QStringLiteral("2,5"));
    }
    stage.enter("moment", QStringLiteral("5"));
    {
        Answer answer(QMessageBox::Cancel);
        QVERIFY(!stage.window.close());
        QCOMPARE(answer.text,
                 QStringLiteral("The model has changes that are not saved.\n") + refusal);
    }
    stage.document.undoStack().undo();
    Answer answer(QMessageBox::Discard);
    QVERIFY(stage.window.close());
    QCOMPARE(answer.text, refusal);
}

void TestMainWindow::saveTellsOfARefusedText()
{
    SavedStage stage;
    stage.type("line_load", QStringLiteral("2,5"));
    QVERIFY(stage.window.save());
    QCOMPARE(stage.status(),
             QStringLiteral("m.json saved; Line load: \"2,5\": decimals stand behind a point; "
                            "nothing is written"));
    QCOMPARE(stage.text("line_load"), QStringLiteral("2,5"));
    stage.enter("line_load", QStringLiteral("2.5"));
    QVERIFY(stage.window.save());
    QCOMPARE(stage.status(), QStringLiteral("m.json saved"));
}

void TestMainWindow::closeWithFailedSave()
{
    QTemporaryDir folder;
    EditorStage stage;
    stage.document.setModel(stage.document.model(), folder.filePath(QStringLiteral("no/m.json")));
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1.5"));
    Answer question(QMessageBox::Save);
    Answer warning(QMessageBox::Ok);
    // The two boxes come one after the other; the second answer waits for its own.
    QVERIFY(!stage.window.close());
    QVERIFY(stage.document.isModified());
    QVERIFY(stage.status().contains(QStringLiteral("not saved")));
}

void TestMainWindow::saveTwice()
{
    SavedStage stage;
    stage.enter("line_load", QStringLiteral("1.5"));
    QTest::keyClick(&stage.window, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(stage.status(), QStringLiteral("m.json saved"));
    stage.enter("line_load", QStringLiteral("2.5"));
    QVERIFY(stage.window.isWindowModified());
    QTest::keyClick(&stage.window, Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(&stage.window, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!stage.window.isWindowModified());
    QCOMPARE(loadModel(stage.fileName).members.at(0).lineLoad, 2.5);
    // What was saved first is one step back.
    QTest::keyClick(&stage.window, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(stage.window.isWindowModified());
    QTest::keyClick(&stage.window, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(loadModel(stage.fileName).members.at(0).lineLoad, 1.5);
    QCOMPARE(QDir(stage.folder.path()).entryList(QDir::Files),
             QStringList{QStringLiteral("m.json")});
}

void TestMainWindow::fileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << QStringLiteral("my frame  2.json");
    QTest::newRow("umlauts") << QStringLiteral("Halle S\u00fcd \u2013 St\u00fctze.json");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("\xf0\x9f\x8f\x97.json");
    QTest::newRow("marks") << QStringLiteral("a&b[*] <b>%1.json");
}

void TestMainWindow::fileNames()
{
    QFETCH(QString, name);
    SavedStage stage(name);
    stage.enter("line_load", QStringLiteral("1.5"));
    QVERIFY(stage.window.save());
    QCOMPARE(stage.status(), name + QStringLiteral(" saved"));
    EditorStage other;
    QVERIFY(other.window.openFile(stage.fileName));
    QCOMPARE(other.member(0).lineLoad, 1.5);
    QCOMPARE(other.status(), name + QStringLiteral(" opened"));
}

void TestMainWindow::savedNameGetsASuffix()
{
    QTemporaryDir folder;
    EditorStage stage;
    stage.document.saveAs(folder.filePath(QStringLiteral("m.json")));
    QString offered;
    {
        const DialogVisit visit([&offered](QFileDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            offered = name->text();
            name->selectAll();
            QTest::keyClicks(name, QStringLiteral("Hall 2"));
            auto* buttons = dialog.findChild<QDialogButtonBox*>();
            QTest::mouseClick(buttons->button(QDialogButtonBox::Save), Qt::LeftButton);
        });
        QTest::keyClick(&stage.window, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    }
    QCOMPARE(offered, QStringLiteral("m.json"));
    QCOMPARE(stage.document.fileName(), folder.filePath(QStringLiteral("Hall 2.json")));
    QVERIFY(QFile::exists(stage.document.fileName()));
    // Given up, nothing is saved.
    const DialogVisit visit([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QVERIFY(!stage.window.saveWithDialog());
}

void TestMainWindow::marksInNames()
{
    QTemporaryDir folder;
    EditorStage stage;
    stage.document.saveAs(folder.filePath(QStringLiteral("a[*].json")));
    QCOMPARE(stage.window.windowTitle(), QStringLiteral("a[*][*].json[*] - Frame editor"));
}

void TestMainWindow::openAsksForChanges()
{
    EditorStage stage;
    stage.select({0});
    stage.type("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Cancel);
    QTest::keyClick(&stage.window, Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(answer.text, QStringLiteral("The model has changes that are not saved."));
    QCOMPARE(stage.member(0).lineLoad, 1.5);
}

void TestMainWindow::statusFollowsTheHistory()
{
    SavedStage stage;
    stage.enter("line_load", QStringLiteral("1.5"));
    QCOMPARE(stage.status(), QStringLiteral("Line load of C1: written"));
    QTest::keyClick(&stage.window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.status(), QStringLiteral("Line load of C1: undone"));
    QTest::keyClick(&stage.window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(stage.status(), QStringLiteral("Line load of C1: redone"));
    QVERIFY(stage.window.save());
    QCOMPARE(stage.status(), QStringLiteral("m.json saved"));
    QTest::keyClick(&stage.window, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.status(), QStringLiteral("Line load of C1: undone"));
    QTest::keyClick(&stage.window, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(stage.status(), QStringLiteral("Line load of C1: redone"));
    // Typing ends what could be redone, and says so by what it wrote.
    QTest::keyClick(&stage.window, Qt::Key_Z, Qt::ControlModifier);
    stage.type("moment", QStringLiteral("5"));
    stage.window.findChild<QAction*>(QStringLiteral("redo"))->trigger();
    QCOMPARE(stage.status(), QStringLiteral("Moment of C1: written"));
    QCOMPARE(stage.member(0).moment, 5.0);
    QCOMPARE(stage.member(0).lineLoad, 3.6);
}

void TestMainWindow::statusAfterARefusedText()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("moment", QStringLiteral("5"));
    stage.type("line_load", QStringLiteral("2,5"));
    stage.window.findChild<QAction*>(QStringLiteral("undo"))->trigger();
    QCOMPARE(stage.member(0).moment, 0.0);
    QCOMPARE(stage.text("line_load"), QStringLiteral("2,5"));
    QCOMPARE(stage.status(),
             QStringLiteral("Moment of C1: undone; Line load: \"2,5\": decimals stand behind a "
                            "point; nothing is written"));
}

void TestMainWindow::statusStaysBelowAMenu()
{
    EditorStage stage;
    stage.window.showStatus(QStringLiteral("C1: said"));
    QTest::keyClick(&stage.window, Qt::Key_E, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QCOMPARE(stage.status(), QStringLiteral("C1: said"));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QCOMPARE(stage.status(), QStringLiteral("C1: said"));
}

void TestMainWindow::statusOfADrag()
{
    EditorStage stage;
    Canvas& canvas = stage.window.canvas();
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1.5"));
    const QPoint from =
        canvas.viewport()->mapTo(&stage.window, canvas.mapFromScene(canvas.nodeGrips()[3]->pos()));
    const QPoint to = from + QPoint(20, -20);
    QCursor::setPos(stage.window.mapToGlobal(from));
    QCoreApplication::processEvents();
    QTest::mousePress(stage.window.windowHandle(), Qt::LeftButton, {}, from);
    QCursor::setPos(stage.window.mapToGlobal(to));
    QCoreApplication::processEvents();
    QTest::mouseRelease(stage.window.windowHandle(), Qt::LeftButton, {}, to);
    QCOMPARE(stage.steps(), 2);
    QCOMPARE(stage.status(), QStringLiteral("Move of N4: written"));
}

void TestMainWindow::badFile()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("bad.json"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"frame_model\",\n \"version\": }");
    file.close();
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Ok);
    QVERIFY(!stage.window.openFile(fileName));
    QCOMPARE(answer.text, fileName + QStringLiteral(":2:13: no value begins with \"}\""));
    QCOMPARE(stage.status(), answer.text);
    QCOMPARE(stage.text("line_load"), QStringLiteral("1.50 kN/m"));
    QCOMPARE(stage.steps(), 1);
}

void TestMainWindow::goodFile()
{
    EditorStage stage;
    QVERIFY(stage.window.openFile(QStringLiteral(FRAME_EDITOR_MODELS "/multi_storey.json")));
    QCOMPARE(stage.window.windowTitle(), QStringLiteral("multi_storey.json[*] - Frame editor"));
    QCOMPARE(stage.window.findChild<MemberList*>()->count(), 96);
}

void TestMainWindow::selectionByName()
{
    EditorStage stage;
    stage.window.select({QStringLiteral("R1"), QStringLiteral("C1")});
    QCOMPARE(stage.document.selection().members(), (QVector<int>{0, 2}));
    QCOMPARE(stage.status(), QStringLiteral("Ready"));
    stage.window.select(
        {QStringLiteral("R2"), QStringLiteral("R9"), QString(), QStringLiteral("c1")});
    QCOMPARE(stage.document.selection().members(), QVector<int>{3});
    QCOMPARE(stage.status(), QStringLiteral("There is no member \"R9\", \"\", \"c1\""));
}

void TestMainWindow::undoTexts()
{
    EditorStage stage;
    auto* undo = stage.window.findChild<QAction*>(QStringLiteral("undo"));
    auto* redo = stage.window.findChild<QAction*>(QStringLiteral("redo"));
    QVERIFY(!undo->isEnabled());
    QCOMPARE(undo->text(), QStringLiteral("&Undo"));
    QVERIFY(!redo->isEnabled());
    QCOMPARE(redo->text(), QStringLiteral("&Redo"));
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1"));
    QCOMPARE(undo->text(), QStringLiteral("&Undo Line load of C1"));
    QVERIFY(undo->isEnabled());
    undo->trigger();
    QVERIFY(!undo->isEnabled());
    QCOMPARE(redo->text(), QStringLiteral("&Redo Line load of C1"));
}

void TestMainWindow::selectionInTheList()
{
    EditorStage stage;
    auto* list = stage.window.findChild<MemberList*>();
    list->setFocus();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    QCOMPARE(stage.document.selection().members(), QVector<int>{1});
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(stage.document.selection().members(), (QVector<int>{1, 2, 3}));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list->visualItemRect(list->item(2)).center());
    QCOMPARE(stage.document.selection().members(), (QVector<int>{1, 3}));
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(stage.document.selection().members().size(), 11);
    QCOMPARE(stage.text("name"), QStringLiteral("*VARIES*"));
}

void TestMainWindow::listFollows()
{
    EditorStage stage;
    auto* list = stage.window.findChild<MemberList*>();
    stage.select({2, 4});
    QVERIFY(list->item(2)->isSelected());
    QVERIFY(list->item(4)->isSelected());
    QCOMPARE(list->selectedItems().size(), 2);
    stage.select({2});
    stage.enter("name", QStringLiteral("Roof"));
    QVERIFY(list->item(2)->text().startsWith(QStringLiteral("Roof ")));
    stage.document.undoStack().undo();
    QVERIFY(list->item(2)->text().startsWith(QStringLiteral("R1 ")));
}

void TestMainWindow::captionsAndBuddies()
{
    // Every field has a name for those who cannot see the form, and a caption that leads to it.
    EditorStage stage;
    const QList<QLabel*> labels = stage.window.panel().findChildren<QLabel*>();
    for (const PropertyField* field : stage.window.panel().fields()) {
        const QByteArray id = field->property().id.toUtf8();
        QWidget* focus =
            field->editor()->focusProxy() ? field->editor()->focusProxy() : field->editor();
        QVERIFY2(focus->accessibleName() == field->property().label, id.constData());
        const bool bearsCaption = field->property().kind == PropertyKind::Flag;
        const bool hasBuddy = std::any_of(labels.begin(), labels.end(), [field](QLabel* label) {
            return label->buddy() == field->editor();
        });
        QVERIFY2(hasBuddy != bearsCaption, id.constData());
    }
}

void TestMainWindow::tabOrder()
{
    EditorStage stage;
    stage.select({7}); // bedded, so that no field is disabled
    stage.edit("name").setFocus(Qt::TabFocusReason);
    QStringList visited{QStringLiteral("name")};
    for (int i = 0; i < 60 && visited.last() != QLatin1String("drawing"); ++i) {
        stage.tab();
        for (const PropertyField* field : stage.window.panel().fields()) {
            QWidget* focus = stage.window.focusWidget();
            const bool inside =
                focus == field->editor() || (field->editor()->isAncestorOf(focus) &&
                                             !qobject_cast<QGroupBox*>(field->editor()));
            if (inside && visited.last() != field->property().id) {
                visited << field->property().id;
            }
        }
    }
    QStringList expected;
    for (const PropertyField* field : stage.window.panel().fields()) {
        expected << field->property().id;
    }
    QCOMPARE(visited, expected);
}

void TestMainWindow::alignment()
{
    // Edits of quantities begin and end at one line each; captions too.
    EditorStage stage;
    stage.select({7});
    const auto left = [&stage](const char* property) {
        return stage.edit(property).mapTo(&stage.window, QPoint()).x();
    };
    const auto right = [&stage, &left](const char* property) {
        return left(property) + stage.edit(property).width();
    };
    for (const char* property : {"length_offset", "line_load", "moment", "rotation", "thickness",
                                 "temperature_difference"}) {
        QCOMPARE(left(property), left("elastic_modulus"));
        QCOMPARE(right(property), right("elastic_modulus"));
    }
    QCOMPARE(left("name"), left("elastic_modulus"));
    QVERIFY(std::abs(left("bedding_modulus") - left("elastic_modulus")) <= 4);
}

void TestMainWindow::mnemonics()
{
    EditorStage stage;
    QSet<QString> letters{QStringLiteral("f"), QStringLiteral("e"), QStringLiteral("n")};
    int count = 0;
    for (const QLabel* label : stage.window.panel().findChildren<QLabel*>()) {
        const int place = label->text().indexOf(QLatin1Char('&'));
        if (label->buddy() && place >= 0) {
            const QString letter = label->text().mid(place + 1, 1).toLower();
            QVERIFY2(!letters.contains(letter), qPrintable(label->text()));
            letters.insert(letter);
            ++count;
        }
    }
    QVERIFY(count >= 12);
}

void TestMainWindow::movesOfTheMouseLayNothingOut()
{
    EditorStage stage;
    QWidget* const area = stage.window.canvas().viewport();
    auto* const place = stage.window.findChild<QLabel*>(QStringLiteral("place"));
    const auto sweep = [area] {
        for (int x = 100; x < 200; x += 7) {
            QCursor::setPos(area->mapToGlobal(QPoint(x, 2 * x)));
            QCoreApplication::processEvents();
        }
    };
    sweep();
    QVERIFY(!place->text().isEmpty());
    EventCount window(&stage.window, QEvent::LayoutRequest);
    EventCount bar(stage.window.statusBar(), QEvent::LayoutRequest);
    const QString text = place->text();
    sweep();
    QCOMPARE(place->text(), text);
    QCOMPARE(window.take(), 0);
    QCOMPARE(bar.take(), 0);
    // There is room for all of the text.
    QVERIFY(place->width() >= place->fontMetrics().horizontalAdvance(text));
}

QTEST_MAIN(TestMainWindow)
#include "tst_main_window.moc"
