#include "tests/helpers/checked_test.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QStringList linesOf(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.readAll()).split('\n');
}

QDir root()
{
    return QDir(QStringLiteral(ZEL_SOURCE_DIR));
}

/// The lines between the marks "//! [name]" of a file, in CMake "#! [name]", without their common
/// indentation. The marks switch on and off, so that lines in between can be left out. The name "*"
/// is the whole file.
QStringList snippetLines(const QString& fileName, const QString& name)
{
    QStringList lines;
    if (name == "*") {
        lines = linesOf(fileName);
        lines.removeLast(); // behind the last line end
        return lines;
    }
    bool inside = false;
    int indentation = 1000;
    for (const QString& line : linesOf(fileName)) {
        if (line.trimmed() == "//! [" + name + "]" || line.trimmed() == "#! [" + name + "]") {
            inside = !inside;
        } else if (inside && !line.trimmed().startsWith("//! [")) {
            lines.append(line);
            if (!line.trimmed().isEmpty()) {
                indentation = qMin(indentation, int(line.indexOf(QRegularExpression("\\S"))));
            }
        }
    }
    for (QString& line : lines) {
        line.remove(0, indentation);
    }
    return inside ? QStringList() : lines;
}

} // namespace

/// Holds the pages of the guide against the files that they quote and link.
class GuideTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void quotesItsSources_data();
    void quotesItsSources();
    void showsNoCodeBesides_data()
    {
        quotesItsSources_data();
    }
    void showsNoCodeBesides();
    void linksLeadSomewhere_data()
    {
        quotesItsSources_data();
    }
    void linksLeadSomewhere();
    void everySnippetIsQuoted();
};

void GuideTest::quotesItsSources_data()
{
    QTest::addColumn<QString>("page");
    QStringList pages{"README.md"};
    for (const QString& folder : QStringList{"docs", "docs/decisions"}) {
        for (const QString& name : QDir(root().filePath(folder)).entryList({"*.md"})) {
            pages.append(folder + "/" + name);
        }
    }
    for (const QString& page : pages) {
        QTest::newRow(qPrintable(page)) << page;
    }
}

void GuideTest::quotesItsSources()
{
    QFETCH(QString, page);
    // A block of C++ stands behind the place that it quotes:
    // <!-- snippet: docs/snippets/start.cpp field -->
    static const QRegularExpression source(QStringLiteral("^<!-- snippet: (\\S+) (.+) -->$"));
    const QStringList lines = linesOf(root().filePath(page));
    QVERIFY(!lines.isEmpty());
    for (int i = 0; i < lines.size(); ++i) {
        const auto match = source.match(i > 0 ? lines.at(i - 1) : QString());
        if (lines.at(i) != QLatin1String("```cpp") && !match.hasMatch()) {
            continue;
        }
        QVERIFY2(match.hasMatch() && lines.at(i).startsWith(QLatin1String("```")),
                 qPrintable(QStringLiteral("line %1 quotes no source").arg(i + 1)));
        const int end = lines.indexOf(QStringLiteral("```"), i);
        QVERIFY(end > i);
        const QStringList wanted =
            snippetLines(root().filePath(match.captured(1)), match.captured(2));
        QVERIFY2(!wanted.isEmpty(), qPrintable(match.captured(0)));
        QCOMPARE(lines.mid(i + 1, end - i - 1).join('\n'), wanted.join('\n'));
        i = end;
    }
}

/// A block that is merely indented is a command or a text. C++ would escape the test above.
void GuideTest::showsNoCodeBesides()
{
    QFETCH(QString, page);
    bool fenced = false;
    for (const QString& line : linesOf(root().filePath(page))) {
        fenced = fenced != line.startsWith(QLatin1String("```"));
        if (!fenced && line.startsWith(QLatin1String("    "))) {
            QVERIFY2(!line.endsWith(';') && !line.trimmed().startsWith("#include"),
                     qPrintable(line));
        }
    }
}

void GuideTest::linksLeadSomewhere()
{
    QFETCH(QString, page);
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)#\\s]+)(#[^)]*)?\\)"));
    const QDir folder = QFileInfo(root().filePath(page)).dir();
    const QString text = linesOf(root().filePath(page)).join('\n');
    for (auto it = link.globalMatch(text); it.hasNext();) {
        const QString target = it.next().captured(1);
        QVERIFY2(target.contains("://") || QFileInfo::exists(folder.filePath(target)),
                 qPrintable(target));
    }
}

void GuideTest::everySnippetIsQuoted()
{
    QString pages;
    const QDir docs(root().filePath("docs"));
    for (const QString& name : docs.entryList({"*.md"})) {
        pages += linesOf(docs.filePath(name)).join('\n');
    }
    pages += linesOf(root().filePath("README.md")).join('\n');
    static const QRegularExpression mark(QStringLiteral("^//! \\[(.+)\\]$"));
    for (const QString& name : QDir(docs.filePath("snippets")).entryList({"*.cpp"})) {
        for (const QString& line : linesOf(docs.filePath("snippets/" + name))) {
            const auto match = mark.match(line.trimmed());
            if (match.hasMatch()) {
                const QString quoted = "docs/snippets/" + name + " " + match.captured(1) + " -->";
                QVERIFY2(pages.contains(quoted), qPrintable(quoted));
            }
        }
    }
}

QTEST_GUILESS_MAIN(GuideTest)
#include "tst_guide.moc"
