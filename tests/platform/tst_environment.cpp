#include "platform/environment.h"
#include "tests/helpers/checked_test.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using zel::app::Environment;
using zel::app::PathGroup;

class EnvironmentTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void emptyGroupFindsNothing();
    void findsBelowAnAddedFolder();
    void firstFolderWins();
    void folderIsNoFile();
    void fileBelowARelativeFolderHasItsFullName();
    void findsInResources();
    void absoluteNameStandsForItself();
    void emptyNameIsNotFound();
    void thereIsOneEnvironment();
    void groupsAreApart();
    void libraryImagesAreFoundWithoutSetUp();

private:
    std::wstring folder(const char* name);
    std::wstring file(const char* folder, const char* name);

    QTemporaryDir m_dir;
};

void EnvironmentTest::init()
{
    CheckedTest::init();
    QVERIFY(m_dir.isValid());
}

std::wstring EnvironmentTest::folder(const char* name)
{
    QDir(m_dir.path()).mkpath(QString::fromUtf8(name));
    return m_dir.filePath(QString::fromUtf8(name)).toStdWString();
}

std::wstring EnvironmentTest::file(const char* inFolder, const char* name)
{
    const QString path =
        QString::fromStdWString(folder(inFolder)) + QLatin1Char('/') + QString::fromUtf8(name);
    QFile f(path);
    return f.open(QIODevice::WriteOnly) ? path.toStdWString() : std::wstring();
}

void EnvironmentTest::emptyGroupFindsNothing()
{
    QVERIFY(PathGroup().find(L"anything.png").empty());
}

void EnvironmentTest::findsBelowAnAddedFolder()
{
    const std::wstring wanted = file("a", "gr\xc3\xbcn.png");
    PathGroup group;
    group.add(folder("a"));
    QVERIFY(!wanted.empty());
    QCOMPARE(group.find(L"gr\u00fcn.png"), wanted);
    QVERIFY(group.find(L"other.png").empty());
}

void EnvironmentTest::firstFolderWins()
{
    const std::wstring first = file("first", "same.png");
    file("second", "same.png");
    const std::wstring only = file("second", "only.png");
    PathGroup group;
    group.add(folder("missing") + L"/deeper");
    group.add(folder("first"));
    group.add(folder("second"));
    QCOMPARE(group.find(L"same.png"), first);
    QCOMPARE(group.find(L"only.png"), only);
}

void EnvironmentTest::folderIsNoFile()
{
    folder("outer/inner.png");
    PathGroup group;
    group.add(folder("outer"));
    QVERIFY(group.find(L"inner.png").empty());
    QVERIFY(group.find(folder("outer/inner.png")).empty());
}

void EnvironmentTest::fileBelowARelativeFolderHasItsFullName()
{
    const std::wstring wanted = file("relative", "full.png");
    PathGroup group;
    group.add(L"relative");
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir.path()));
    const std::wstring found = group.find(L"full.png");
    QVERIFY(QDir::setCurrent(before));
    // Good also when the program has gone to another folder.
    QCOMPARE(QFileInfo(QString::fromStdWString(found)).canonicalFilePath(),
             QFileInfo(QString::fromStdWString(wanted)).canonicalFilePath());
    QVERIFY(!found.empty());
}

void EnvironmentTest::findsInResources()
{
    PathGroup group;
    group.add(L":/zel/images");
    const QString found = QString::fromStdWString(group.find(L"control_repeat_blue.png"));
    QVERIFY(found.startsWith(QLatin1String(":/")));
    QVERIFY(QFileInfo(found).isFile());
}

void EnvironmentTest::absoluteNameStandsForItself()
{
    const std::wstring wanted = file("b", "absolute.png");
    QCOMPARE(PathGroup().find(wanted), wanted);
    QVERIFY(PathGroup().find(wanted + L".missing").empty());
}

void EnvironmentTest::emptyNameIsNotFound()
{
    PathGroup group;
    group.add(folder("a"));
    QVERIFY(group.find(L"").empty());
}

void EnvironmentTest::thereIsOneEnvironment()
{
    QCOMPARE(&Environment::instance(), &Environment::instance());
    QCOMPARE(&Environment::instance().getPaths("images"),
             &Environment::instance().getPaths("images"));
}

void EnvironmentTest::groupsAreApart()
{
    const std::wstring wanted = file("c", "apart.png");
    Environment::instance().getPaths("of this test").add(folder("c"));
    QCOMPARE(Environment::instance().getPaths("of this test").find(L"apart.png"), wanted);
    QVERIFY(Environment::instance().getPaths("").find(L"apart.png").empty());
}

void EnvironmentTest::libraryImagesAreFoundWithoutSetUp()
{
    const std::wstring found =
        Environment::instance().getPaths("").find(L"control_repeat_blue.png");
    QVERIFY(QFileInfo(QString::fromStdWString(found)).isFile());
}

QTEST_GUILESS_MAIN(EnvironmentTest)
#include "tst_environment.moc"
