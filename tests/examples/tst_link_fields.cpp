#include "examples/frame_editor/key_driver.h"
#include "examples/frame_editor/model_file.h"
#include "tests/examples/editor_stage.h"
#include "tests/helpers/checked_test.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace frame_editor;
using zel::test::EditorStage;

namespace {

const QString varies = QStringLiteral("*VARIES*");
const QString reason = QStringLiteral("A rigid link has no such value");

constexpr int linkMember = 10;

QGroupBox& bedding(EditorStage& stage)
{
    return *qobject_cast<QGroupBox*>(stage.field("bedded").editor());
}

QWidget* captionOf(EditorStage& stage, const char* property)
{
    for (auto* label : stage.window.panel().findChildren<QLabel*>()) {
        if (label->buddy() == stage.field(property).editor()) {
            return label;
        }
    }
    return nullptr;
}

/// The widget of the field that the user is in, which bears the tips.
const QWidget& focusOf(const PropertyField& field)
{
    const QWidget* focus = field.editor()->focusProxy();
    return focus ? *focus : *field.editor();
}

QString toolTipOf(const PropertyField& field)
{
    return focusOf(field).toolTip();
}

/// Whether any button of the load's directions is chosen.
bool hasDirection(EditorStage& stage)
{
    for (auto* button : stage.field("load_direction").editor()->findChildren<QRadioButton*>()) {
        if (button->isChecked()) {
            return true;
        }
    }
    return false;
}

} // namespace

/// The panel and rigid links, which have neither section nor loads: by themselves and among others.
class TestLinkFields : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void linkAlone_data();
    void linkAlone();
    void nothingIsShown();
    void fieldsComeBack();
    void variesGoesByThoseThatHaveIt();
    void commitLeavesTheLinkAlone();
    void choicesLeaveTheLinkAlone();
    void groupLeavesTheLinkAlone();
    void memberBecomesALinkAndBack();
    void pendingTextOfAMemberThatBecomesALink();
    void pendingTextOfSeveral();
    void tabGoesOverIt();
    void keyDriver();
    void nothingSelectedShowsNothing();
};

void TestLinkFields::linkAlone_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<bool>("hasIt");
    for (const MemberProperty& property : memberProperties()) {
        const bool hasIt =
            QStringList{"name", "kind", "support", "note", "drawing"}.contains(property.id);
        QTest::newRow(qPrintable(property.id)) << property.id << hasIt;
    }
}

void TestLinkFields::linkAlone()
{
    QFETCH(QString, property);
    QFETCH(bool, hasIt);
    EditorStage stage;
    stage.select({linkMember});
    const QByteArray id = property.toUtf8();
    const PropertyField& field = stage.field(id.constData());
    QCOMPARE(field.editor()->isEnabled(), hasIt);
    QCOMPARE(field.applies(), hasIt);
    QCOMPARE(toolTipOf(field) == reason, !hasIt);
    QCOMPARE(focusOf(field).accessibleDescription() == reason, !hasIt);
    if (const QWidget* caption = captionOf(stage, id.constData())) {
        QCOMPARE(caption->isEnabled(), hasIt);
    }
    stage.select({0});
    QCOMPARE(toolTipOf(field), field.limitsText());
    QVERIFY(focusOf(field).accessibleDescription() != reason);
    QCOMPARE(field.editor()->isEnabled(), property != QLatin1String("bedding_modulus"));
    stage.select({linkMember});
    stage.select({});
    QVERIFY(focusOf(field).accessibleDescription() != reason);
}

void TestLinkFields::nothingIsShown()
{
    EditorStage stage;
    stage.select({linkMember});
    for (const char* property :
         {"length_offset", "divisions", "line_load", "moment", "elastic_modulus"}) {
        QCOMPARE(stage.text(property), QString());
        QVERIFY(!stage.edit(property).styleSheet().contains(QLatin1String("#e61414")));
    }
    QCOMPARE(stage.inside<QComboBox>("section").currentText(), QString());
    QCOMPARE(stage.inside<QComboBox>("material").currentText(), QString());
    QVERIFY(!hasDirection(stage));
    QVERIFY(!stage.inside<QCheckBox>("hinge_start").isChecked());
    QVERIFY(!bedding(stage).isChecked());
    QVERIFY(!stage.window.findChild<QPushButton*>(QStringLiteral("beddedAll"))->isVisible());
    QCOMPARE(stage.text("name"), QStringLiteral("L1"));
    QCOMPARE(stage.text("note"),
             QStringLiteral("Bracket of the crane rail, stiff beside the frame"));
    QCOMPARE(stage.steps(), 0);
}

void TestLinkFields::fieldsComeBack()
{
    EditorStage stage;
    const QByteArray before = writeModel(stage.document.model());
    for (int i = 0; i < 2; ++i) {
        stage.select({linkMember});
        stage.select({7});
        QCOMPARE(stage.text("line_load"), QStringLiteral("4.50 kN/m"));
        QCOMPARE(stage.text("divisions"), QStringLiteral("1"));
        QCOMPARE(stage.inside<QComboBox>("section").currentText(), QStringLiteral("HEA 200"));
        QCOMPARE(stage.inside<QComboBox>("material").currentText(), QStringLiteral("S235"));
        QVERIFY(hasDirection(stage));
        QVERIFY(bedding(stage).isChecked());
        QVERIFY(stage.edit("bedding_modulus").isEnabled());
        QVERIFY(stage.edit("line_load").isEnabled());
        stage.select({linkMember});
        stage.select({0, 7});
        QVERIFY(!bedding(stage).isEnabled());
        QVERIFY(stage.window.findChild<QPushButton*>(QStringLiteral("beddedAll"))->isVisible());
    }
    QCOMPARE(stage.steps(), 0);
    QCOMPARE(writeModel(stage.document.model()), before);
}

void TestLinkFields::variesGoesByThoseThatHaveIt()
{
    // The values that a link keeps do not count: C1 alone says what is shown.
    EditorStage stage;
    stage.select({0, linkMember});
    QCOMPARE(stage.text("line_load"), QStringLiteral("3.60 kN/m"));
    QCOMPARE(stage.text("thickness"), QStringLiteral("0.020 m"));
    QCOMPARE(stage.inside<QComboBox>("section").currentText(), QStringLiteral("HEB 300"));
    QCOMPARE(stage.inside<QComboBox>("material").currentText(), QStringLiteral("S355"));
    QVERIFY(hasDirection(stage));
    QVERIFY(bedding(stage).isEnabled());
    QVERIFY(!bedding(stage).isChecked());
    QCOMPARE(stage.text("name"), varies);
    QCOMPARE(stage.text("note"), varies);
    QCOMPARE(stage.inside<QComboBox>("support").currentText(), varies);
    stage.select({0, 2, linkMember});
    QCOMPARE(stage.text("line_load"), varies);
}

void TestLinkFields::commitLeavesTheLinkAlone()
{
    EditorStage stage;
    const Member before = stage.member(linkMember);
    stage.select({0, 1, linkMember});
    stage.enter("line_load", QStringLiteral("2.5"));
    QCOMPARE(stage.member(0).lineLoad, 2.5);
    QCOMPARE(stage.member(1).lineLoad, 2.5);
    QVERIFY(stage.member(linkMember) == before);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(), QStringLiteral("Line load of 2 members: written"));
    stage.enter("note", QStringLiteral("checked"));
    QCOMPARE(stage.member(linkMember).note, QStringLiteral("checked"));
    QCOMPARE(stage.document.undoStack().undoText(), QStringLiteral("Note of 3 members"));
}

void TestLinkFields::choicesLeaveTheLinkAlone()
{
    EditorStage stage;
    const Member before = stage.member(linkMember);
    stage.select({0, linkMember});
    auto& combo = stage.inside<QComboBox>("section");
    combo.setFocus(Qt::TabFocusReason);
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_Home);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    auto& hinge = stage.inside<QCheckBox>("hinge_end");
    hinge.setFocus();
    QTest::keyClick(&hinge, Qt::Key_Space);
    for (auto* button : stage.field("load_direction").editor()->findChildren<QRadioButton*>()) {
        if (button->text() == QLatin1String("Vertical, per plan length")) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    QCOMPARE(stage.steps(), 3);
    QCOMPARE(stage.member(0).section, combo.itemText(0));
    QVERIFY(stage.member(0).hingeEnd);
    QVERIFY(stage.member(0).loadDirection == LoadDirection::Projected);
    QVERIFY(stage.member(linkMember) == before);
}

void TestLinkFields::groupLeavesTheLinkAlone()
{
    EditorStage stage;
    const Member before = stage.member(linkMember);
    stage.select({0, linkMember});
    bedding(stage).setFocus();
    QTest::keyClick(&bedding(stage), Qt::Key_Space);
    QVERIFY(stage.member(0).bedded);
    QVERIFY(stage.edit("bedding_modulus").isEnabled());
    stage.select({0, 1, linkMember});
    QTest::mouseClick(stage.window.findChild<QPushButton*>(QStringLiteral("beddedAll")),
                      Qt::LeftButton);
    QVERIFY(stage.member(1).bedded);
    stage.enter("bedding_modulus", QStringLiteral("20 MN/m3"));
    QCOMPARE(stage.member(1).beddingModulus, 20000.0);
    QVERIFY(stage.member(linkMember) == before);
    QCOMPARE(stage.steps(), 3);
}

void TestLinkFields::memberBecomesALinkAndBack()
{
    EditorStage stage;
    stage.select({0});
    auto& combo = stage.inside<QComboBox>("kind");
    combo.setFocus(Qt::TabFocusReason);
    combo.showPopup();
    QTest::keyClick(combo.view(), Qt::Key_End);
    QTest::keyClick(combo.view(), Qt::Key_Return);
    QVERIFY(stage.member(0).kind == MemberKind::Link);
    QVERIFY(!stage.edit("line_load").isEnabled());
    QCOMPARE(stage.text("line_load"), QString());
    stage.window.findChild<QAction*>(QStringLiteral("undo"))->trigger();
    QVERIFY(stage.edit("line_load").isEnabled());
    QCOMPARE(stage.text("line_load"), QStringLiteral("3.60 kN/m"));
    QVERIFY(bedding(stage).isEnabled());
}

void TestLinkFields::pendingTextOfAMemberThatBecomesALink()
{
    EditorStage stage;
    stage.select({0});
    stage.type("line_load", QStringLiteral("2.5"));
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("kind")),
                                   {{0, QStringLiteral("link")}});
    QCOMPARE(stage.text("line_load"), QStringLiteral("2.5"));
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Return);
    QCOMPARE(stage.member(0).lineLoad, 3.6);
    QCOMPARE(stage.steps(), 1);
    QCOMPARE(stage.status(),
             QStringLiteral("Line load: a rigid link has no such value; nothing is written"));
    // It waits for its user, who can give it up.
    QCOMPARE(stage.text("line_load"), QStringLiteral("2.50 kN/m"));
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Escape);
    QCOMPARE(stage.text("line_load"), QString());
    QVERIFY(!stage.edit("line_load").isEnabled());
}

void TestLinkFields::pendingTextOfSeveral()
{
    EditorStage stage;
    stage.select({0, 1});
    stage.type("line_load", QStringLiteral("2.5"));
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("kind")),
                                   {{0, QStringLiteral("link")}});
    QTest::keyClick(&stage.edit("line_load"), Qt::Key_Return);
    QCOMPARE(stage.member(0).lineLoad, 3.6);
    QCOMPARE(stage.member(1).lineLoad, 2.5);
    QCOMPARE(stage.document.undoStack().undoText(), QStringLiteral("Line load of C2"));
}

void TestLinkFields::tabGoesOverIt()
{
    EditorStage stage;
    stage.select({linkMember});
    stage.edit("name").setFocus(Qt::TabFocusReason);
    stage.tab();
    QVERIFY(stage.inside<QComboBox>("kind").hasFocus());
    stage.tab();
    QVERIFY(stage.inside<QComboBox>("support").hasFocus());
    stage.tab();
    QVERIFY(stage.edit("note").hasFocus());
}

void TestLinkFields::keyDriver()
{
    EditorStage stage;
    stage.select({linkMember});
    enterText(stage.field("note"), QStringLiteral("x"));
    QCOMPARE(stage.member(linkMember).note, QStringLiteral("x"));
}

void TestLinkFields::nothingSelectedShowsNothing()
{
    EditorStage stage;
    stage.select({7});
    stage.edit("line_load").setFocus();
    stage.select({});
    QCOMPARE(stage.text("line_load"), QString());
    QCOMPARE(stage.text("divisions"), QString());
    QCOMPARE(stage.inside<QComboBox>("section").currentText(), QString());
    QVERIFY(!hasDirection(stage));
    QVERIFY(!bedding(stage).isChecked());
    stage.select({7});
    QVERIFY(bedding(stage).isChecked());
    QCOMPARE(stage.text("divisions"), QStringLiteral("1"));
}

QTEST_MAIN(TestLinkFields)
#include "tst_link_fields.moc"
