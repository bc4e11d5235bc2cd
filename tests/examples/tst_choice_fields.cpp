#include "examples/frame_editor/key_driver.h"
#include "examples/frame_editor/model_file.h"
#include "tests/examples/editor_stage.h"
#include "tests/helpers/checked_test.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWheelEvent>

using namespace frame_editor;
using zel::test::EditorStage;

namespace {

const QString varies = QStringLiteral("*VARIES*");

QRadioButton* radio(EditorStage& stage, const char* label)
{
    for (auto* button : stage.field("load_direction").editor()->findChildren<QRadioButton*>()) {
        if (button->text() == QLatin1String(label)) {
            return button;
        }
    }
    return nullptr;
}

QGroupBox* bedding(EditorStage& stage)
{
    return qobject_cast<QGroupBox*>(stage.field("bedded").editor());
}

} // namespace

/// Members of the frame: 0 C1, 1 C2, 2 R1, 3 R2, 4 R3, 5 R4, 6 P1, 7 B1, 8 B2, 9 T1.
class TestChoiceFields : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void shown();
    void varying();
    void selectingWritesNothing();
    void picked();
    void pickedWhileVarying();
    void variesItemPicked();
    void wheelChangesNothing();
    void pictures();
    void materialTyped();
    void materialRefused();
    void materialLeft();
    void materialBeingTyped_data();
    void materialBeingTyped();
    void materialEscaped();
    void radioButtons();
    void checkBox();
    void checkBoxWhileVarying();
    void groupBox();
    void groupBoxWhileVarying();
    void undoRefreshes();
    void path();
    void enteredTexts_data();
    void enteredTexts();
    void unknownChoices_data();
    void unknownChoices();
};

void TestChoiceFields::shown()
{
    EditorStage stage;
    stage.select({0});
    QCOMPARE(stage.inside<QComboBox>("kind").currentText(), QStringLiteral("Column"));
    QCOMPARE(stage.inside<QComboBox>("section").currentText(), QStringLiteral("HEB 300"));
    QCOMPARE(stage.inside<QComboBox>("material").currentText(), QStringLiteral("S355"));
    QCOMPARE(stage.inside<QComboBox>("support").currentText(), QStringLiteral("Pinned"));
    QVERIFY(radio(stage, "Normal to the member")->isChecked());
    QVERIFY(!stage.inside<QCheckBox>("hinge_start").isChecked());
    QVERIFY(!bedding(stage)->isChecked());
    QVERIFY(!stage.edit("bedding_modulus").isEnabled());
    stage.select({7});
    QVERIFY(bedding(stage)->isChecked());
    QVERIFY(stage.edit("bedding_modulus").isEnabled());
    QCOMPARE(stage.text("bedding_modulus"), QStringLiteral("25000.00 kN/m3"));
}

void TestChoiceFields::varying()
{
    EditorStage stage;
    stage.select({0, 2, 7, 9});
    QCOMPARE(stage.inside<QComboBox>("kind").currentText(), varies);
    QCOMPARE(stage.inside<QComboBox>("section").currentText(), varies);
    QCOMPARE(stage.inside<QComboBox>("material").currentText(), varies);
    QCOMPARE(stage.inside<QComboBox>("support").currentText(), varies);
    for (auto* button : stage.field("load_direction").editor()->findChildren<QRadioButton*>()) {
        QVERIFY(!button->isChecked());
    }
    QCOMPARE(stage.inside<QCheckBox>("hinge_start").checkState(), Qt::PartiallyChecked);
    QVERIFY(!bedding(stage)->isEnabled());
    QVERIFY(stage.window.findChild<QPushButton*>(QStringLiteral("beddedAll"))->isVisible());
    stage.select({0});
    QVERIFY(bedding(stage)->isEnabled());
    QVERIFY(!stage.window.findChild<QPushButton*>(QStringLiteral("beddedAll"))->isVisible());
}

void TestChoiceFields::selectingWritesNothing()
{
    EditorStage stage;
    const QByteArray before = writeModel(stage.document.model());
    for (int member = 0; member < 10; ++member) {
        stage.select({member});
        stage.select({member, (member + 3) % 10});
        for (int i = 0; i < 40; ++i) {
            stage.tab();
        }
    }
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(writeModel(stage.document.model()), before);
}

void TestChoiceFields::picked()
{
    EditorStage stage;
    stage.select({0, 1});
    QSignalSpy changed(&stage.document, &Document::changed);
    auto& combo = stage.inside<QComboBox>("section");
    combo.setFocus(Qt::TabFocusReason);
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_Home);
    QTest::keyClick(combo.view(), Qt::Key_Down);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QCOMPARE(stage.member(0).section, QStringLiteral("IPE 300"));
    QCOMPARE(stage.member(1).section, QStringLiteral("IPE 300"));
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(stage.status(), QStringLiteral("Cross section of 2 members: written"));
}

void TestChoiceFields::pickedWhileVarying()
{
    EditorStage stage;
    stage.select({0, 2});
    auto& combo = stage.inside<QComboBox>("kind");
    combo.setFocus(Qt::TabFocusReason);
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_Home);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QVERIFY(stage.member(2).kind == MemberKind::Column);
    QCOMPARE(combo.currentText(), QStringLiteral("Column"));
    // Only the one of the two that was another has changed.
    QCOMPARE(stage.document.undoStack().undoText(), QStringLiteral("Kind of R1"));
}

void TestChoiceFields::variesItemPicked()
{
    EditorStage stage;
    stage.select({0, 2});
    auto& combo = stage.inside<QComboBox>("kind");
    combo.setFocus(Qt::TabFocusReason);
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_Home);
    QTest::keyClick(combo.view(), Qt::Key_End);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QCOMPARE(combo.currentText(), varies);
    QCOMPARE(stage.steps(), 0);
    QVERIFY(!stage.status().contains(QStringLiteral("not in the list")));
}

void TestChoiceFields::wheelChangesNothing()
{
    EditorStage stage;
    stage.select({0});
    for (const char* property : {"kind", "section", "material", "support"}) {
        auto& combo = stage.inside<QComboBox>(property);
        combo.setFocus();
        const QString before = combo.currentText();
        for (const int delta : {-120, 120, 120}) {
            QWheelEvent wheel(QPointF(5, 5), combo.mapToGlobal(QPoint(5, 5)), QPoint(),
                              QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            QApplication::sendEvent(&combo, &wheel);
        }
        QCOMPARE(combo.currentText(), before);
    }
    QCOMPARE(stage.steps(), 0);
}

void TestChoiceFields::pictures()
{
    EditorStage stage;
    auto& combo = stage.inside<QComboBox>("section");
    for (int i = 0; i < combo.count(); ++i) {
        QVERIFY(!combo.itemIcon(i).isNull());
    }
    // The wide section covers more of its picture than the slender one.
    const auto ink = [&combo](const char* name) {
        const int row = combo.findText(QLatin1String(name));
        const QImage image = combo.itemIcon(row).pixmap(24, 24).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y).alpha() > 127 ? 1 : 0;
            }
        }
        return count;
    };
    QVERIFY(ink("IPE 200") > 10);
    QVERIFY(ink("HEB 300") > 2 * ink("IPE 200"));
}

void TestChoiceFields::materialTyped()
{
    EditorStage stage;
    stage.select({0, 1});
    auto& combo = stage.inside<QComboBox>("material");
    for (const bool byReturn : {true, false}) {
        const QString name = byReturn ? QStringLiteral("S235") : QStringLiteral("S355");
        combo.setFocus(Qt::TabFocusReason);
        combo.lineEdit()->selectAll();
        QTest::keyClicks(combo.lineEdit(), name);
        if (byReturn) {
            QTest::keyClick(combo.lineEdit(), Qt::Key_Return);
        } else {
            stage.tab();
        }
        QCOMPARE(stage.member(0).material, name);
        QCOMPARE(stage.member(1).material, name);
    }
    QCOMPARE(stage.steps(), 2);
}

void TestChoiceFields::materialRefused()
{
    EditorStage stage;
    stage.select({0});
    auto& combo = stage.inside<QComboBox>("material");
    const int count = combo.count();
    combo.setFocus(Qt::TabFocusReason);
    combo.lineEdit()->selectAll();
    QTest::keyClicks(combo.lineEdit(), QStringLiteral("Wood"));
    QTest::keyClick(combo.lineEdit(), Qt::Key_Return);
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(stage.status(),
             QStringLiteral("Material: \"Wood\" is not in the list; nothing is written"));
    QVERIFY(combo.lineEdit()->styleSheet().contains(QLatin1String("#e61414")));
    QCOMPARE(combo.count(), count);
    stage.select({1});
    QCOMPARE(combo.currentText(), QStringLiteral("S355"));
    QVERIFY(!combo.lineEdit()->styleSheet().contains(QLatin1String("#e61414")));
}

void TestChoiceFields::materialLeft()
{
    EditorStage stage;
    stage.select({0, 9});
    auto& combo = stage.inside<QComboBox>("material");
    combo.setFocus(Qt::TabFocusReason);
    QTest::keyClick(combo.lineEdit(), Qt::Key_Return);
    stage.tab();
    QCOMPARE(combo.currentText(), varies);
    QCOMPARE(stage.steps(), 0);
}

void TestChoiceFields::materialBeingTyped_data()
{
    QTest::addColumn<QString>("means");
    QTest::newRow("save") << "save";
    QTest::newRow("other selection") << "select";
    QTest::newRow("other units") << "units";
    QTest::newRow("other form") << "form";
    QTest::newRow("undo and redo") << "redo";
}

void TestChoiceFields::materialBeingTyped()
{
    // A shortcut leaves the focus where it is, and the text counts all the same.
    QFETCH(QString, means);
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("m.json"));
    EditorStage stage;
    stage.document.saveAs(fileName);
    stage.select({0});
    auto& combo = stage.inside<QComboBox>("material");
    combo.setFocus(Qt::TabFocusReason);
    combo.lineEdit()->selectAll();
    QTest::keyClicks(&combo, QStringLiteral("S235"));
    // What changes elsewhere leaves it alone.
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("moment")), {{0, 4.0}});
    QCOMPARE(combo.currentText(), QStringLiteral("S235"));
    QCOMPARE(stage.member(0).material, QStringLiteral("S355"));
    if (means == QLatin1String("save")) {
        QVERIFY(stage.window.save());
        QCOMPARE(loadModel(fileName).members.at(0).material, QStringLiteral("S235"));
    } else if (means == QLatin1String("select")) {
        stage.select({1});
        QCOMPARE(combo.currentText(), QStringLiteral("S355"));
        QCOMPARE(stage.member(1).material, QStringLiteral("S355"));
    } else if (means == QLatin1String("units")) {
        stage.units.setColumn(8);
    } else if (means == QLatin1String("form")) {
        stage.window.panel().setForm(builtInForm());
    } else {
        stage.window.findChild<QAction*>(QStringLiteral("undo"))->trigger();
        QCOMPARE(stage.member(0).material, QStringLiteral("S355"));
        QCOMPARE(combo.currentText(), QStringLiteral("S355"));
        QCOMPARE(stage.member(0).moment, 4.0);
        stage.window.findChild<QAction*>(QStringLiteral("redo"))->trigger();
    }
    QCOMPARE(stage.member(0).material, QStringLiteral("S235"));
    QCOMPARE(stage.steps(), 2);
    // Taken once and for all.
    stage.window.panel().commitPending();
    QCOMPARE(stage.steps(), 2);
}

void TestChoiceFields::materialEscaped()
{
    EditorStage stage;
    stage.select({0});
    auto& combo = stage.inside<QComboBox>("material");
    combo.setFocus(Qt::TabFocusReason);
    combo.lineEdit()->selectAll();
    QTest::keyClicks(&combo, QStringLiteral("Wood"));
    QTest::keyClick(&combo, Qt::Key_Escape);
    QCOMPARE(combo.currentText(), QStringLiteral("S355"));
    QCOMPARE(stage.window.panel().commitPending(), QString());
    // A refused text stays for the user to mend; an entry chosen in its place counts.
    combo.lineEdit()->selectAll();
    QTest::keyClicks(&combo, QStringLiteral("Wood"));
    const QString refusal =
        QStringLiteral("Material: \"Wood\" is not in the list; nothing is written");
    QCOMPARE(stage.window.panel().commitPending(), refusal);
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("moment")), {{0, 4.0}});
    QCOMPARE(combo.currentText(), QStringLiteral("Wood"));
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_Home);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QCOMPARE(stage.window.panel().commitPending(), QString());
    QCOMPARE(stage.member(0).material, combo.itemText(0));
}

void TestChoiceFields::radioButtons()
{
    EditorStage stage;
    stage.select({0, 2});
    QTest::mouseClick(radio(stage, "Vertical, per length"), Qt::LeftButton);
    QVERIFY(stage.member(0).loadDirection == LoadDirection::Vertical);
    QVERIFY(stage.member(2).loadDirection == LoadDirection::Vertical);
    QCOMPARE(stage.steps(), 1);
    radio(stage, "Vertical, per length")->setFocus();
    QTest::keyClick(radio(stage, "Vertical, per length"), Qt::Key_Space);
    QCOMPARE(stage.steps(), 1);
}

void TestChoiceFields::checkBox()
{
    EditorStage stage;
    stage.select({0, 1});
    auto& box = stage.inside<QCheckBox>("hinge_end");
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
    QVERIFY(stage.member(0).hingeEnd);
    QVERIFY(stage.member(1).hingeEnd);
    QVERIFY(!stage.member(0).hingeStart);
    QTest::keyClick(&box, Qt::Key_Space);
    QVERIFY(!stage.member(1).hingeEnd);
    QCOMPARE(stage.steps(), 2);
}

void TestChoiceFields::checkBoxWhileVarying()
{
    EditorStage stage;
    stage.select({0, 9});
    auto& box = stage.inside<QCheckBox>("hinge_start");
    QCOMPARE(box.checkState(), Qt::PartiallyChecked);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
    QVERIFY(stage.member(0).hingeStart);
    QCOMPARE(stage.steps(), 1);
    QTest::keyClick(&box, Qt::Key_Space);
    QVERIFY(!stage.member(0).hingeStart);
    QVERIFY(!stage.member(9).hingeStart);
    QCOMPARE(stage.steps(), 2);
}

void TestChoiceFields::groupBox()
{
    EditorStage stage;
    stage.select({0, 1});
    bedding(stage)->setFocus();
    QTest::keyClick(bedding(stage), Qt::Key_Space);
    QVERIFY(stage.member(0).bedded);
    QVERIFY(stage.member(1).bedded);
    QCOMPARE(stage.steps(), 1);
    stage.enter("bedding_modulus", QStringLiteral("20 MN/m3"));
    QCOMPARE(stage.member(1).beddingModulus, 20000.0);
    QCOMPARE(stage.steps(), 2);
}

void TestChoiceFields::groupBoxWhileVarying()
{
    EditorStage stage;
    stage.select({0, 7});
    auto* all = stage.window.findChild<QPushButton*>(QStringLiteral("beddedAll"));
    auto* none = stage.window.findChild<QPushButton*>(QStringLiteral("beddedNone"));
    QTest::mouseClick(all, Qt::LeftButton);
    QVERIFY(stage.member(0).bedded);
    QVERIFY(stage.member(7).bedded);
    QCOMPARE(stage.steps(), 1);
    QVERIFY(bedding(stage)->isEnabled());
    QVERIFY(bedding(stage)->isChecked());
    QVERIFY(!all->isVisible());
    stage.document.undoStack().undo();
    QVERIFY(all->isVisible());
    QTest::mouseClick(none, Qt::LeftButton);
    QVERIFY(!stage.member(7).bedded);
    QVERIFY(!stage.member(0).bedded);
    QVERIFY(bedding(stage)->isEnabled());
    QVERIFY(!bedding(stage)->isChecked());
}

void TestChoiceFields::undoRefreshes()
{
    EditorStage stage;
    stage.select({0, 2});
    enterText(stage.field("kind"), QStringLiteral("Brace"));
    enterText(stage.field("hinge_end"), QStringLiteral("yes"));
    enterText(stage.field("load_direction"), QStringLiteral("Vertical, per length"));
    QCOMPARE(stage.steps(), 3);
    for (int i = 0; i < 3; ++i) {
        stage.document.undoStack().undo();
    }
    QCOMPARE(stage.inside<QComboBox>("kind").currentText(), varies);
    QCOMPARE(stage.inside<QCheckBox>("hinge_end").checkState(), Qt::Unchecked);
    QVERIFY(!radio(stage, "Vertical, per length")->isChecked());
    QCOMPARE(stage.steps(), 3);
}

void TestChoiceFields::path()
{
    EditorStage stage;
    stage.select({0, 1});
    QCOMPARE(stage.text("drawing"), QString());
    stage.enter("drawing", QStringLiteral("details/eaves 2.pdf"));
    QCOMPARE(stage.member(1).drawing, QStringLiteral("details/eaves 2.pdf"));
    QCOMPARE(stage.steps(), 1);
    stage.tab();
    stage.select({1, 2});
    QCOMPARE(stage.text("drawing"), varies);
    stage.edit("drawing").setFocus();
    stage.tab();
    QCOMPARE(stage.steps(), 1);
}

void TestChoiceFields::enteredTexts_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* property, const char* text, const char* value) {
        QTest::addRow("%s=%s", property, text)
            << QString::fromUtf8(property) << QString::fromUtf8(text) << QString::fromUtf8(value);
    };
    row("kind", "Brace", "brace");
    row("kind", "rafter", "rafter");
    row("section", "HEA 240", "HEA 240");
    row("material", "S235", "S235");
    row("support", "none", "none");
    row("load_direction", "projected", "projected");
    row("load_direction", "Vertical, per length", "vertical");
    row("hinge_start", "yes", "true");
    row("hinge_end", "False", "false");
    row("bedded", "true", "true");
    row("bedded", "no", "false");
    row("note", "A \"note\" with \u00e4 and = and ,", "A \"note\" with \u00e4 and = and ,");
    row("note", "", "");
    row("drawing", "/tmp/a b.pdf", "/tmp/a b.pdf");
}

void TestChoiceFields::enteredTexts()
{
    // One member, and a selection in which the members differ.
    QFETCH(QString, property);
    QFETCH(QString, text);
    QFETCH(QString, value);
    for (const QVector<int>& members : {QVector<int>{0}, QVector<int>{0, 2, 7, 9}}) {
        EditorStage stage;
        stage.select(members);
        PropertyField* field = stage.window.panel().field(property);
        enterText(*field, text);
        for (const int member : members) {
            const PropertyValue written = field->property().get(stage.member(member));
            if (const bool* flag = std::get_if<bool>(&written)) {
                QCOMPARE(*flag, value == QLatin1String("true"));
            } else {
                QCOMPARE(std::get<QString>(written), value);
            }
        }
    }
}

void TestChoiceFields::unknownChoices_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    QTest::newRow("list") << "kind"
                          << "Arch"
                          << "Kind: \"Arch\" is not in the list";
    QTest::newRow("varies item") << "kind" << varies << "Kind: \"*VARIES*\" is not in the list";
    QTest::newRow("radio") << "load_direction"
                           << "up"
                           << "Load direction: there is no choice \"up\"";
    QTest::newRow("check") << "hinge_start"
                           << "1"
                           << "Hinge at start: \"1\" is neither yes nor no";
    QTest::newRow("group") << "bedded"
                           << "maybe"
                           << "Bedded foundation: \"maybe\" is neither yes nor no";
}

void TestChoiceFields::unknownChoices()
{
    QFETCH(QString, property);
    QFETCH(QString, text);
    QFETCH(QString, message);
    EditorStage stage;
    stage.select({0, 2});
    try {
        enterText(*stage.window.panel().field(property), text);
        QFAIL("the choice was accepted");
    } catch (const NoSuchChoice& error) {
        QCOMPARE(QString::fromUtf8(error.what()), message);
    }
    QCOMPARE(stage.steps(), 0);
}

QTEST_MAIN(TestChoiceFields)
#include "tst_choice_fields.moc"
