#include "examples/frame_editor/document.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/model_file.h"
#include "tests/helpers/checked_test.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUndoStack>

#include <functional>
#include <limits>
#include <stdexcept>
#include <utility>

using namespace frame_editor;

namespace {

const QString portalFrame = QStringLiteral(FRAME_EDITOR_MODELS "/portal_frame.json");

const MemberProperty& propertyOf(const char* id)
{
    return *findMemberProperty(QLatin1String(id));
}

} // namespace

class TestDocument : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void openedModelIsClean();
    void editIsOneStep();
    void unchangedValuesAreNoStep();
    void mixedChangeKeepsEachOldValue();
    void refusedChanges_data();
    void refusedChanges();
    void namesOfSeveralMembers();
    void movedNodes();
    void replacedMembers();
    void refusedMembers();
    void removedMembers();
    void removedMembersLeaveTheSelection();
    void nobodyRemoved();
    void nodesOnlyOf();
    void valueOfALink();
    void modifiedMark();
    void failedOpenLeavesEverything();
    void failedSaveLeavesTheMark();
    void openStartsAnew();
    void selection();
};

void TestDocument::openedModelIsClean()
{
    Document document;
    QSignalSpy changed(&document, &Document::changed);
    QSignalSpy fileChanged(&document, &Document::fileChanged);
    document.open(portalFrame);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(fileChanged.count(), 1);
    QVERIFY(!document.isModified());
    QCOMPARE(document.fileName(), portalFrame);
    QCOMPARE(document.undoStack().count(), 0);
}

void TestDocument::editIsOneStep()
{
    Document document;
    document.open(portalFrame);
    QSignalSpy changed(&document, &Document::changed);
    QSignalSpy fileChanged(&document, &Document::fileChanged);
    QCOMPARE(document.setMemberValues(propertyOf("line_load"), {{0, 2.5}, {1, 2.5}, {2, 2.5}}),
             QString());
    QCOMPARE(document.undoStack().count(), 1);
    QCOMPARE(document.undoStack().undoText(), QStringLiteral("Line load of 3 members"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(fileChanged.count(), 1);
    QCOMPARE(document.model().members.at(2).lineLoad, 2.5);
    document.undoStack().undo();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(document.model().members.at(0).lineLoad, 3.6);
    QCOMPARE(document.model().members.at(1).lineLoad, 1.8);
    QCOMPARE(document.model().members.at(2).lineLoad, 6.75);
    document.undoStack().redo();
    QCOMPARE(changed.count(), 3);
    QCOMPARE(document.model().members.at(1).lineLoad, 2.5);
}

void TestDocument::unchangedValuesAreNoStep()
{
    Document document;
    document.open(portalFrame);
    QSignalSpy changed(&document, &Document::changed);
    QCOMPARE(document.setMemberValues(propertyOf("line_load"), {{0, 3.6}, {1, 1.8}}), QString());
    QCOMPARE(document.setMemberValues(propertyOf("line_load"), {}), QString());
    QCOMPARE(document.undoStack().count(), 0);
    QCOMPARE(changed.count(), 0);
}

void TestDocument::mixedChangeKeepsEachOldValue()
{
    Document document;
    document.open(portalFrame);
    QCOMPARE(document.setMemberValues(propertyOf("line_load"), {{0, 3.6}, {1, 3.6}}), QString());
    QCOMPARE(document.undoStack().undoText(), QStringLiteral("Line load of C2"));
    document.undoStack().undo();
    QCOMPARE(document.model().members.at(0).lineLoad, 3.6);
    QCOMPARE(document.model().members.at(1).lineLoad, 1.8);
}

void TestDocument::refusedChanges_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("reason");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("not a number") << "line_load" << QString() << nan << "this is no finite number";
    QTest::newRow("infinite") << "line_load" << QString() << std::numeric_limits<double>::infinity()
                              << "this is no finite number";
    QTest::newRow("section") << "section"
                             << "IPE 1" << 0.0 << "the model has no cross section \"IPE 1\"";
    QTest::newRow("material") << "material"
                              << "Wood" << 0.0 << "the model has no material \"Wood\"";
    QTest::newRow("choice") << "support"
                            << "loose" << 0.0 << "\"loose\" is no such choice";
    QTest::newRow("empty name") << "name"
                                << "" << 0.0 << "a member needs a name";
    QTest::newRow("taken name") << "name"
                                << "R1" << 0.0 << "there is a member \"R1\" already";
}

void TestDocument::refusedChanges()
{
    QFETCH(QString, id);
    QFETCH(QString, text);
    QFETCH(double, number);
    QFETCH(QString, reason);
    Document document;
    document.open(portalFrame);
    const QByteArray before = writeModel(document.model());
    QSignalSpy changed(&document, &Document::changed);
    const MemberProperty& changedProperty = *findMemberProperty(id);
    const PropertyValue value = changedProperty.kind == PropertyKind::Quantity
                                    ? PropertyValue(number)
                                    : PropertyValue(text);
    QCOMPARE(document.setMemberValues(changedProperty, {{0, value}}), reason);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(document.undoStack().count(), 0);
    QCOMPARE(writeModel(document.model()), before);
}

void TestDocument::namesOfSeveralMembers()
{
    Document document;
    document.open(portalFrame);
    const QString name = QStringLiteral("X");
    QCOMPARE(document.setMemberValues(propertyOf("name"), {{0, name}, {1, name}}),
             QStringLiteral("two members cannot have the same name"));
    QCOMPARE(document.undoStack().count(), 0);
    QCOMPARE(document.setMemberValues(propertyOf("name"), {{0, name}}), QString());
    QCOMPARE(document.model().findMember(name), 0);
}

void TestDocument::movedNodes()
{
    Document document;
    document.open(portalFrame);
    QSignalSpy changed(&document, &Document::changed);
    QCOMPARE(document.moveNodes({{1, 0.0, 7.0}}), QString());
    QCOMPARE(document.undoStack().count(), 0);
    QCOMPARE(document.moveNodes({{1, 0.5, 7.5}, {5, 24.5, 7.5}}), QString());
    QCOMPARE(document.undoStack().count(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(document.model().nodes.at(5).x, 24.5);
    document.undoStack().undo();
    QCOMPARE(document.model().nodes.at(1).x, 0.0);
    QCOMPARE(document.model().nodes.at(5).y, 7.0);
    QCOMPARE(document.moveNodes({{1, std::numeric_limits<double>::quiet_NaN(), 0.0}}),
             QStringLiteral("this is no finite number"));
    QCOMPARE(document.undoStack().undoText(), QString());
}

void TestDocument::replacedMembers()
{
    Document document;
    document.open(portalFrame);
    const QByteArray before = writeModel(document.model());
    std::vector<Member> members = document.model().members;
    QCOMPARE(document.replaceMembers(members, QStringLiteral("Nothing")), QString());
    QCOMPARE(document.undoStack().count(), 0);
    members.push_back(members.front());
    members.back().name = QStringLiteral("X");
    members.front().lineLoad = 1.0;
    QCOMPARE(document.replaceMembers(members, QStringLiteral("More")), QString());
    QCOMPARE(document.undoStack().undoText(), QStringLiteral("More"));
    QCOMPARE(document.model().members.back().name, QStringLiteral("X"));

    // A selected member that goes leaves the selection while it is still there to be asked for.
    document.selection().set({0, 11});
    std::size_t present = 0;
    QVector<int> selected;
    connect(&document, &Document::selectionChanged, this, [&] {
        present = document.model().members.size();
        selected = document.selection().members();
    });
    document.undoStack().undo();
    QCOMPARE(present, std::size_t(12));
    QCOMPARE(selected, QVector<int>{0});
    QCOMPARE(writeModel(document.model()), before);
    document.undoStack().redo();
    QCOMPARE(document.model().members.front().lineLoad, 1.0);
    QCOMPARE(document.selection().members(), QVector<int>{0});
}

void TestDocument::refusedMembers()
{
    Document document;
    document.open(portalFrame);
    const QByteArray before = writeModel(document.model());
    const auto refusal = [&document](const std::function<void(Member&)>& change) {
        std::vector<Member> members = document.model().members;
        change(members.front());
        return document.replaceMembers(members, QStringLiteral("Step"));
    };
    QCOMPARE(refusal([](Member& member) { member.name = QStringLiteral("R1"); }),
             QStringLiteral("two members cannot have the same name"));
    QCOMPARE(refusal([](Member& member) { member.name.clear(); }),
             QStringLiteral("a member needs a name"));
    QCOMPARE(refusal([](Member& member) { member.start = member.end; }),
             QStringLiteral("a member needs two different nodes"));
    QCOMPARE(refusal([](Member& member) { member.end = 99; }),
             QStringLiteral("a member needs two different nodes"));
    QCOMPARE(refusal([](Member& member) { member.section = QStringLiteral("none"); }),
             QStringLiteral("the model has no cross section \"none\""));
    QCOMPARE(refusal([](Member& member) { member.divisions = 0; }),
             QStringLiteral("a whole number from 1 to 1000 is needed here"));
    QCOMPARE(
        refusal([](Member& member) { member.moment = std::numeric_limits<double>::infinity(); }),
        QStringLiteral("this is no finite number"));
    QCOMPARE(document.undoStack().count(), 0);
    QCOMPARE(writeModel(document.model()), before);
    // Two members can exchange their names.
    std::vector<Member> members = document.model().members;
    std::swap(members[0].name, members[1].name);
    QCOMPARE(document.replaceMembers(members, QStringLiteral("Step")), QString());
}

void TestDocument::removedMembers()
{
    Document document;
    document.open(portalFrame);
    const std::vector<Member> members = document.model().members;
    const QByteArray before = writeModel(document.model());
    QSignalSpy changed(&document, &Document::changed);
    QSignalSpy removed(&document, &Document::membersRemoved);
    QSignalSpy inserted(&document, &Document::membersInserted);
    document.removeMembers({9, 0, 2, 1, 2});
    QCOMPARE(document.undoStack().count(), 1);
    QCOMPARE(document.undoStack().undoText(), QStringLiteral("Deletion of 4 members"));
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed.at(0).at(0).value<QVector<int>>(), (QVector<int>{0, 1, 2, 9}));
    QCOMPARE(changed.count(), 1);
    std::vector<Member> rest(members.begin() + 3, members.begin() + 9);
    rest.push_back(members.back());
    QVERIFY(document.model().members == rest);
    QCOMPARE(int(document.model().nodes.size()), 9);
    document.undoStack().undo();
    QCOMPARE(writeModel(document.model()), before);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(inserted.at(0).at(0), removed.at(0).at(0));
    QCOMPARE(changed.count(), 2);
    QVERIFY(!document.isModified());
    document.undoStack().redo();
    QVERIFY(document.model().members == rest);
    QVERIFY(document.isModified());
    // Later steps count the members that are left.
    QCOMPARE(document.setMemberValues(propertyOf("moment"), {{0, 7.0}}), QString());
    document.removeMembers({0});
    QCOMPARE(document.undoStack().undoText(), QStringLiteral("Deletion of R2"));
    document.undoStack().undo();
    document.undoStack().undo();
    document.undoStack().undo();
    QCOMPARE(writeModel(document.model()), before);
}

void TestDocument::removedMembersLeaveTheSelection()
{
    Document document;
    document.open(portalFrame);
    document.selection().set({1, 2, 5, 10});
    // Whoever asks during the step, asks for members that are there.
    std::size_t asked = 0;
    connect(&document, &Document::selectionChanged, this, [&] {
        for (const int member : document.selection().members()) {
            asked += document.model().members.at(std::size_t(member)).name.size() > 0 ? 1 : 0;
        }
    });
    connect(&document, &Document::changed, this,
            [&document] { QVERIFY(document.selection().isEmpty()); });
    document.removeMembers({0, 2, 6});
    QCOMPARE(document.selection().members(), (QVector<int>{0, 3, 7}));
    QCOMPARE(document.model().members.at(3).name, QStringLiteral("R4"));
    document.selection().set({4});
    document.undoStack().undo();
    QCOMPARE(document.selection().members(), (QVector<int>{1, 2, 5, 10}));
    document.selection().set({2});
    document.undoStack().redo();
    QVERIFY(document.selection().isEmpty());
    document.undoStack().undo();
    QCOMPARE(document.selection().members(), QVector<int>{2});
    QCOMPARE(asked, std::size_t(3 + 1 + 4 + 1 + 1));
}

void TestDocument::nobodyRemoved()
{
    Document document;
    document.open(portalFrame);
    document.removeMembers({});
    QCOMPARE(document.undoStack().count(), 0);
    QVERIFY_EXCEPTION_THROWN(document.removeMembers({11}), std::out_of_range);
    QCOMPARE(document.undoStack().count(), 0);
    // All of them can go, and a model without members is one.
    document.removeMembers({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    QVERIFY(document.model().members.empty());
    QCOMPARE(readModel(writeModel(document.model()), QStringLiteral("m.json")).nodes.size(),
             std::size_t(9));
}

void TestDocument::nodesOnlyOf()
{
    Document document;
    document.open(portalFrame);
    const FrameModel& model = document.model();
    QCOMPARE(model.nodesOnlyOf({}), QStringList());
    QCOMPARE(model.nodesOnlyOf({10}), QStringList{QStringLiteral("N9")});
    QCOMPARE(model.nodesOnlyOf({0}), QStringList());
    // N1 is the foot of C1 and the start of B1.
    QCOMPARE(model.nodesOnlyOf({0, 7}), QStringList{QStringLiteral("N1")});
    QCOMPARE(model.nodesOnlyOf({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}).size(), 9);
}

void TestDocument::valueOfALink()
{
    Document document;
    document.open(portalFrame);
    QCOMPARE(document.setMemberValues(propertyOf("line_load"), {{0, 1.0}, {10, 1.0}}),
             QStringLiteral("a rigid link has no such value"));
    QCOMPARE(document.undoStack().count(), 0);
    QCOMPARE(document.setMemberValues(propertyOf("note"), {{10, QStringLiteral("x")}}), QString());
}

void TestDocument::modifiedMark()
{
    QTemporaryDir folder;
    Document document;
    document.open(portalFrame);
    document.setMemberValues(propertyOf("note"), {{0, QStringLiteral("a")}});
    QVERIFY(document.isModified());
    document.undoStack().undo();
    QVERIFY(!document.isModified());
    document.undoStack().redo();
    document.saveAs(folder.filePath(QStringLiteral("a.json")));
    QVERIFY(!document.isModified());
    QCOMPARE(document.fileName(), folder.filePath(QStringLiteral("a.json")));
    document.undoStack().undo();
    QVERIFY(document.isModified());
}

void TestDocument::failedOpenLeavesEverything()
{
    QTemporaryDir folder;
    const QString bad = folder.filePath(QStringLiteral("bad.json"));
    QFile file(bad);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"frame_model\", \"version\": 7}");
    file.close();
    Document document;
    document.open(portalFrame);
    document.selection().set({2, 3});
    document.setMemberValues(propertyOf("note"), {{0, QStringLiteral("kept")}});
    const QByteArray before = writeModel(document.model());
    QSignalSpy changed(&document, &Document::changed);
    QSignalSpy selected(&document, &Document::selectionChanged);
    QSignalSpy fileChanged(&document, &Document::fileChanged);
    QVERIFY_EXCEPTION_THROWN(document.open(bad), FileError);
    QCOMPARE(changed.count() + selected.count() + fileChanged.count(), 0);
    QCOMPARE(writeModel(document.model()), before);
    QCOMPARE(document.selection().members(), (QVector<int>{2, 3}));
    QCOMPARE(document.undoStack().count(), 1);
    QCOMPARE(document.fileName(), portalFrame);
    QVERIFY(document.isModified());
}

void TestDocument::failedSaveLeavesTheMark()
{
    QTemporaryDir folder;
    Document document;
    document.open(portalFrame);
    document.setMemberValues(propertyOf("note"), {{0, QStringLiteral("kept")}});
    QVERIFY_EXCEPTION_THROWN(document.saveAs(folder.filePath(QStringLiteral("none/a.json"))),
                             FileError);
    QVERIFY(document.isModified());
    QCOMPARE(document.fileName(), portalFrame);
}

void TestDocument::openStartsAnew()
{
    Document document;
    document.open(portalFrame);
    document.selection().set({9});
    document.setMemberValues(propertyOf("note"), {{0, QStringLiteral("gone")}});
    document.open(portalFrame);
    QVERIFY(document.selection().isEmpty());
    QCOMPARE(document.undoStack().count(), 0);
    QVERIFY(!document.isModified());
}

void TestDocument::selection()
{
    Document document;
    document.open(portalFrame);
    QSignalSpy selected(&document, &Document::selectionChanged);
    document.selection().set({3, 1, 3});
    QCOMPARE(document.selection().members(), (QVector<int>{1, 3}));
    QVERIFY(document.selection().contains(3));
    QVERIFY(!document.selection().contains(2));
    QCOMPARE(selected.count(), 1);
    document.selection().set({1, 3});
    QCOMPARE(selected.count(), 1);
    document.selection().clear();
    QCOMPARE(selected.count(), 2);
    QVERIFY(document.selection().isEmpty());
}

QTEST_MAIN(TestDocument)
#include "tst_document.moc"
