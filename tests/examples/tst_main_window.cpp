#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/member_list.h"
#include "examples/frame_editor/model_file.h"
#include "tests/examples/editor_stage.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/view_stage.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

using namespace frame_editor;
using zel::test::EditorStage;
using zel::test::EventCount;

namespace {

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

} // namespace

class TestMainWindow : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void title();
    void closeUnchanged();
    void closeAndSave();
    void closeAndDiscard();
    void closeAndCancel();
    void closeTakesWhatIsBeingTyped();
    void closeTakesATypedChoice();
    void closeAsksForARefusedText();
    void closeWithFailedSave();
    void saveTellsOfARefusedText();
    void badFile();
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

void TestMainWindow::closeUnchanged()
{
    EditorStage stage;
    QVERIFY(stage.window.close());
}

void TestMainWindow::closeAndSave()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("m.json"));
    EditorStage stage;
    stage.document.saveAs(fileName);
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Save);
    QVERIFY(stage.window.close());
    QVERIFY(!answer.text.isEmpty());
    QCOMPARE(loadModel(fileName).members.at(0).lineLoad, 1.5);
}

void TestMainWindow::closeAndDiscard()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("m.json"));
    EditorStage stage;
    stage.document.saveAs(fileName);
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1.5"));
    Answer answer(QMessageBox::Discard);
    QVERIFY(stage.window.close());
    QCOMPARE(loadModel(fileName).members.at(0).lineLoad, 3.6);
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
    QTemporaryDir folder;
    EditorStage stage;
    stage.document.saveAs(folder.filePath(QStringLiteral("m.json")));
    stage.select({0});
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
