#include "examples/frame_editor/member_property.h"
#include "examples/frame_editor/model_file.h"
#include "tests/helpers/checked_test.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstring>
#include <random>

using namespace frame_editor;

namespace {

QString modelPath(const char* name)
{
    return QStringLiteral(FRAME_EDITOR_MODELS "/") + QLatin1String(name);
}

QByteArray bytesOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The smallest model with everything in it.
FrameModel smallModel()
{
    FrameModel model;
    model.title = QStringLiteral("Small");
    Material steel;
    steel.name = QStringLiteral("S235");
    steel.elasticModulus = 2.1e8;
    model.materials = {steel};
    Section section;
    section.name = QStringLiteral("IPE 200");
    section.area = 0.002848;
    model.sections = {section};
    Node first;
    first.name = QStringLiteral("N1");
    Node second;
    second.name = QStringLiteral("N2");
    second.x = 5.0;
    model.nodes = {first, second};
    Member member;
    member.name = QStringLiteral("B1");
    member.start = 0;
    member.end = 1;
    member.section = section.name;
    member.material = steel.name;
    model.members = {member};
    member.name = QStringLiteral("B2");
    model.members.push_back(member);
    return model;
}

bool sameBits(double left, double right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

} // namespace

class TestModelFile : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void suppliedModels_data();
    void suppliedModels();
    void portalFrame();
    void multiStorey();
    void catalogue();
    void everyPropertyRoundTrips();
    void randomNumbersRoundTrip();
    void textsRoundTrip();
    void refused_data();
    void refused();
    void nameWithAPercentSign();
    void missingFile();
    void savedFile();
    void folderThatIsNoFolder();
    void failedSaveKeepsTheFile();
};

void TestModelFile::suppliedModels_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("portal frame") << modelPath("portal_frame.json");
    QTest::newRow("multi storey") << modelPath("multi_storey.json");
}

void TestModelFile::suppliedModels()
{
    // Written back, a model that nobody touched is the same file: nothing is lost or rounded, and
    // a difference tool shows only what the user did.
    QFETCH(QString, fileName);
    QCOMPARE(writeModel(loadModel(fileName)), bytesOf(fileName));
}

void TestModelFile::portalFrame()
{
    const FrameModel model = loadModel(modelPath("portal_frame.json"));
    QCOMPARE(model.members.size(), std::size_t(11));
    const Member& column = model.members.at(std::size_t(model.findMember(QStringLiteral("C1"))));
    QCOMPARE(model.nodes.at(std::size_t(column.start)).name, QStringLiteral("N1"));
    QCOMPARE(model.memberLength(column), 7.0);
    QVERIFY(column.kind == MemberKind::Column);
    QVERIFY(column.support == Support::Pinned);
    QVERIFY(column.loadDirection == LoadDirection::Normal);
    QCOMPARE(column.lineLoad, 3.6);
    const Member& tie = model.members.at(std::size_t(model.findMember(QStringLiteral("T1"))));
    QCOMPARE(tie.lengthOffset, 0.0004);
    QCOMPARE(tie.divisions, 1);
    QCOMPARE(model.members.at(3).divisions, 4);
    const Member& link = model.members.at(std::size_t(model.findMember(QStringLiteral("L1"))));
    QVERIFY(link.kind == MemberKind::Link);
    // An offset of its length would not count.
    Member longer = link;
    longer.lengthOffset = 1.0;
    QCOMPARE(model.memberLength(longer), model.memberLength(link));
    QVERIFY(tie.hingeStart);
    QVERIFY(tie.hingeEnd);
}

void TestModelFile::multiStorey()
{
    const FrameModel model = loadModel(modelPath("multi_storey.json"));
    QVERIFY(model.members.size() >= 90);
}

void TestModelFile::catalogue()
{
    // Area and inertia follow from the sizes of a rolled section: two flanges, the web and four
    // fillets. A slip of the pen in the table would show.
    const FrameModel model = loadModel(modelPath("multi_storey.json"));
    std::vector<Section> sections = loadModel(modelPath("portal_frame.json")).sections;
    sections.insert(sections.end(), model.sections.begin(), model.sections.end());
    QVERIFY(sections.size() >= 20);
    for (const Section& section : sections) {
        const double h = section.depth;
        const double b = section.width;
        const double web = h - 2 * section.flangeThickness;
        const double r = section.rootRadius;
        const double fillet = (1 - M_PI / 4) * r * r;
        const double inset = r * (10 - 3 * M_PI) / (12 - 3 * M_PI);
        const double area =
            2 * b * section.flangeThickness + web * section.webThickness + 4 * fillet;
        const double inertiaY =
            b * std::pow(h, 3) / 12 - (b - section.webThickness) * std::pow(web, 3) / 12 +
            4 * (0.00755 * std::pow(r, 4) + fillet * std::pow(web / 2 - inset, 2));
        const double inertiaZ =
            section.flangeThickness * std::pow(b, 3) / 6 +
            web * std::pow(section.webThickness, 3) / 12 +
            4 * (0.00755 * std::pow(r, 4) + fillet * std::pow(section.webThickness / 2 + inset, 2));
        const QByteArray name = section.name.toUtf8();
        QVERIFY2(std::abs(section.area / area - 1) < 0.002, name.constData());
        QVERIFY2(std::abs(section.inertiaY / inertiaY - 1) < 0.002, name.constData());
        QVERIFY2(std::abs(section.inertiaZ / inertiaZ - 1) < 0.002, name.constData());
    }
}

void TestModelFile::everyPropertyRoundTrips()
{
    FrameModel model = smallModel();
    Member& member = model.members.front();
    double number = 0.1;
    for (const MemberProperty& property : memberProperties()) {
        switch (property.kind) {
        case PropertyKind::Quantity:
            number *= -3.7;
            property.set(member, number);
            break;
        case PropertyKind::Count:
            property.set(member, property.maximum);
            break;
        case PropertyKind::Flag:
            property.set(member, true);
            break;
        case PropertyKind::Choice:
            property.set(member, property.choices.back().first);
            break;
        case PropertyKind::Text:
        case PropertyKind::Name:
            property.set(member, QString(QStringLiteral("text of ") + property.id));
            break;
        case PropertyKind::Section:
        case PropertyKind::Material:
            break;
        }
    }
    const FrameModel read = readModel(writeModel(model), QStringLiteral("m"));
    for (const MemberProperty& property : memberProperties()) {
        QVERIFY2(property.get(read.members.front()) == property.get(member),
                 qPrintable(property.id));
    }
    QCOMPARE(read.members.size(), std::size_t(2));
    QCOMPARE(read.members.front().end, 1);
}

void TestModelFile::randomNumbersRoundTrip()
{
    std::mt19937_64 random(20240229);
    FrameModel model = smallModel();
    for (int i = 0; i < 3000; ++i) {
        const std::uint64_t bits = random();
        double number = 0.0;
        std::memcpy(&number, &bits, sizeof number);
        if (!std::isfinite(number)) {
            continue;
        }
        model.members.front().lineLoad = number;
        const FrameModel read = readModel(writeModel(model), QStringLiteral("m"));
        QVERIFY2(sameBits(read.members.front().lineLoad, number),
                 qPrintable(QString::number(number, 'g', 17)));
    }
    for (const double number : {0.1 + 0.2, -0.0, 5e-324, 1.7976931348623157e308, 0.0004}) {
        model.nodes.front().x = number;
        const FrameModel read = readModel(writeModel(model), QStringLiteral("m"));
        QVERIFY(sameBits(read.nodes.front().x, number));
    }
}

void TestModelFile::textsRoundTrip()
{
    FrameModel model = smallModel();
    const QString text = QStringLiteral("\"\\/ \b\f\n\r\t\u0001\u007f \u00e4\u2028 \U0001F3D7");
    model.members.front().note = text;
    model.title = text;
    const FrameModel read = readModel(writeModel(model), QStringLiteral("m"));
    QCOMPARE(read.members.front().note, text);
    QCOMPARE(read.title, text);
}

void TestModelFile::refused_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* tag, const char* before, const char* after,
                        const char* message) {
        QTest::newRow(tag) << QByteArray(before) << QByteArray(after) << QString::fromUtf8(message);
    };
    row("no JSON", "\"format\"", "format", "m.json:2:3: a name in quotes is needed here");
    row("format", "\"frame_model\"", "\"plan\"",
        "m.json:2:13: $.format: \"frame_model\" is needed here");
    row("no format", "\"format\": \"frame_model\",", "",
        "m.json:1:1: $: the key \"format\" is missing");
    row("version", "\"version\": 1", "\"version\": 2",
        "m.json:3:14: $.version: this program reads version 1, not 2");
    row("version as text", "\"version\": 1", "\"version\": \"1\"",
        "m.json:3:14: $.version: a number is needed here, not a text");
    row("unknown key", "\"title\"", "\"colour\": 3, \"title\"",
        "m.json:4:13: $.colour: the format has no key \"colour\" here");
    row("missing list", "\"nodes\"", "\"points\"",
        "m.json:11:13: $.points: the format has no key \"points\" here");
    row("node without x", "\"x\": 0, ", "", "m.json:12:5: $.nodes[0]: the key \"x\" is missing");
    row("unknown key of a node", "\"x\": 5", "\"z\": 1, \"x\": 5",
        "m.json:13:25: $.nodes[1].z: the format has no key \"z\" here");
    row("node twice", "\"N2\", \"x\"", "\"N1\", \"x\"",
        "m.json:13:14: $.nodes[1].name: the name \"N1\" is taken already");
    row("nameless section", "\"IPE 200\", \"depth\"", "\" \", \"depth\"",
        "m.json:9:14: $.sections[0].name: a name must not be empty");
    row("number as text", "\"line_load\": 0", "\"line_load\": \"2.5 kN/m\"",
        "m.json:24:20: $.members[0].line_load: a number is needed here, not a text");
    row("number null", "\"moment\": 0", "\"moment\": null",
        "m.json:26:17: $.members[0].moment: a number is needed here, not null");
    row("flag as number", "\"bedded\": false", "\"bedded\": 0",
        "m.json:34:17: $.members[0].bedded: true or false is needed here, not a number");
    row("text as number", "\"note\": \"\"", "\"note\": 7",
        "m.json:36:15: $.members[0].note: a text is needed here, not a number");
    row("NaN", "\"rotation\": 0", "\"rotation\": NaN", "m.json:28:19: \"NaN\" is no JSON value");
    row("infinity", "\"rotation\": 0", "\"rotation\": 1e400",
        "m.json:28:19: the number 1e400 is out of the range of a double");
    row("unknown section", "\"section\": \"IPE 200\"", "\"section\": \"IPE 210\"",
        "m.json:21:18: $.members[0].section: the model has no cross section \"IPE 210\"");
    row("unknown material", "\"material\": \"S235\"", "\"material\": \"S999\"",
        "m.json:22:19: $.members[0].material: the model has no material \"S999\"");
    row("unknown node", "\"end\": \"N2\"", "\"end\": \"N3\"",
        "m.json:19:14: $.members[0].end: the model has no node \"N3\"");
    row("both ends on one node", "\"end\": \"N2\"", "\"end\": \"N1\"",
        "m.json:19:14: $.members[0].end: a member needs two different nodes");
    row("unknown kind", "\"kind\": \"beam\"", "\"kind\": \"arch\"",
        "m.json:20:15: $.members[0].kind: \"arch\" is no such choice");
    row("member twice", "\"name\": \"B2\"", "\"name\": \"B1\"",
        "m.json:40:15: $.members[1].name: there is a member \"B1\" already");
    row("nameless member", "\"name\": \"B2\"", "\"name\": \"\"",
        "m.json:40:15: $.members[1].name: a member needs a name");
    row("missing key of a member", "\"thickness\": 0,", "",
        "m.json:16:5: $.members[0]: the key \"thickness\" is missing");
    row("unknown key of a member", "\"thickness\": 0,", "\"thickness\": 0, \"colour\": 1,",
        "m.json:29:33: $.members[0].colour: the format has no key \"colour\" here");
    row("key with a line end", "\"title\"", R"("a\n\u2028b": 3, "title")",
        "m.json:4:17: $.a\ufffd\ufffdb: the format has no key \"a\ufffd\ufffdb\" here");
    for (const char* number : {"0", "1001", "2.5", "-4294967295", "1e300"}) {
        const QByteArray tag = QByteArray("divisions ") + number;
        const QByteArray text = QByteArray("\"note\": \"\", \"divisions\": ") + number;
        row(tag, "\"note\": \"\"", text,
            "m.json:36:32: $.members[0].divisions: a whole number from 1 to 1000 is needed here");
    }
    row("key twice", "\"moment\": 0,", "\"moment\": 0, \"moment\": 5,",
        "m.json:26:20: the name \"moment\" stands twice in one object");
}

void TestModelFile::refused()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, message);
    QByteArray text = writeModel(smallModel());
    const int place = text.indexOf(before);
    QVERIFY(place >= 0);
    text.replace(place, before.size(), after);
    try {
        readModel(text, QStringLiteral("m.json"));
        QFAIL("the model was accepted");
    } catch (const FileError& error) {
        QCOMPARE(error.message(), message);
    }
}

void TestModelFile::nameWithAPercentSign()
{
    try {
        readModel("{}", QStringLiteral("50%1 %2%3%4%5.json"));
        QFAIL("the model was accepted");
    } catch (const FileError& error) {
        QCOMPARE(error.message(), QStringLiteral("50%1 %2%3%4%5.json:1:1: $: the key \"format\" is "
                                                 "missing"));
    }
}

void TestModelFile::missingFile()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("none.json"));
    try {
        loadModel(fileName);
        QFAIL("there is no such file");
    } catch (const FileError& error) {
        QVERIFY(error.message().startsWith(fileName + QStringLiteral(": ")));
    }
}

void TestModelFile::savedFile()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("out.json"));
    const FrameModel model = smallModel();
    saveModel(model, fileName);
    QCOMPARE(bytesOf(fileName), writeModel(model));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("out.json")});
}

void TestModelFile::folderThatIsNoFolder()
{
    QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("none/out.json"));
    try {
        saveModel(smallModel(), fileName);
        QFAIL("there is no such folder");
    } catch (const FileError& error) {
        QVERIFY(error.message().startsWith(fileName + QStringLiteral(": not saved: ")));
    }
}

void TestModelFile::failedSaveKeepsTheFile()
{
    // A folder of the name cannot be replaced by a file, also by a user who may do everything.
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("out.json/inside")));
    try {
        saveModel(smallModel(), folder.filePath(QStringLiteral("out.json")));
        QFAIL("a folder was overwritten");
    } catch (const FileError&) {
    }
    QVERIFY(QDir(folder.filePath(QStringLiteral("out.json/inside"))).exists());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

QTEST_GUILESS_MAIN(TestModelFile)
#include "tst_model_file.moc"
