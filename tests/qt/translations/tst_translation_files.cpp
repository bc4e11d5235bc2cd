#include "tests/helpers/checked_test.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace {

struct Message
{
    QString source;
    QStringList translations; ///< one, or one for each plural form
    bool numerus = false;     ///< whether the text depends on a number
    bool finished = false;
};

/// The messages of a ts file by context, text and disambiguation.
QMap<QString, Message> readMessages(const QString& fileName)
{
    QMap<QString, Message> messages;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return messages;
    }
    QXmlStreamReader xml(&file);
    QString context;
    QString comment;
    Message message;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("message")) {
            message = {};
            message.numerus = xml.attributes().value(QLatin1String("numerus")) == "yes";
            comment.clear();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("comment")) {
            comment = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("translation")) {
            message.finished = !xml.attributes().hasAttribute(QLatin1String("type"));
            if (!message.numerus) {
                message.translations << xml.readElementText();
            }
        } else if (xml.isStartElement() && xml.name() == QLatin1String("numerusform")) {
            message.translations << xml.readElementText();
        } else if (xml.isEndElement() && xml.name() == QLatin1String("message")) {
            messages.insert(context + " | " + message.source + " | " + comment, message);
        }
    }
    return messages;
}

/// What stands in a text that is not language, and that a translation has as well: the places that
/// are filled in, line ends, letters for the keyboard, the mark of an open document, patterns of
/// files, options, and the dots of what asks on.
QStringList marksOf(const QString& text)
{
    static const QRegularExpression mark(
        QStringLiteral("%[0-9Ln]+|\n|&(?=\\w)|\\[\\*\\]|\\(\\*[^)]*\\)|--[a-z-]+|\\.\\.\\.|^ | $"),
        QRegularExpression::UseUnicodePropertiesOption);
    QStringList marks;
    for (auto it = mark.globalMatch(text); it.hasNext();) {
        marks.append(it.next().captured());
    }
    marks.sort();
    return marks;
}

} // namespace

/// Holds the translation files against the texts in the code.
class TranslationFilesTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void holdEveryTextAndNoOther_data();
    void holdEveryTextAndNoOther();
    void areComplete_data()
    {
        holdEveryTextAndNoOther_data();
    }
    void areComplete();
};

void TranslationFilesTest::holdEveryTextAndNoOther_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("sources");
    const QStringList library = {"platform", "qt"};
    const QStringList example = {"examples/frame_editor"};
    for (const QString& language : QStringList{"de", "fr"}) {
        QTest::newRow(qPrintable("library, " + language))
            << "qt/translations/zel_qt2_dll_" + language + ".ts" << library;
        QTest::newRow(qPrintable("example, " + language))
            << "examples/frame_editor/translations/zel_frame_editor_" + language + ".ts" << example;
    }
}

void TranslationFilesTest::holdEveryTextAndNoOther()
{
    QFETCH(QString, file);
    QFETCH(QStringList, sources);
    const QDir root(QStringLiteral(ZEL_SOURCE_DIR));
    const QTemporaryDir folder;
    const QString fresh = folder.filePath(QStringLiteral("fresh.ts"));
    QProcess lupdate;
    lupdate.setWorkingDirectory(root.path());
    lupdate.start(QStringLiteral(ZEL_LUPDATE),
                  QStringList{"-silent", "-locations", "none", "-I", "."} + sources +
                      QStringList{"-ts", fresh});
    QVERIFY(lupdate.waitForFinished());
    QCOMPARE(lupdate.exitCode(), 0);
    // It speaks up where it cannot tell the context of a text.
    QCOMPARE(QString::fromUtf8(lupdate.readAllStandardError()), QString());

    const QStringList wanted = readMessages(fresh).keys();
    QVERIFY(!wanted.isEmpty());
    QCOMPARE(readMessages(root.filePath(file)).keys(), wanted);
}

void TranslationFilesTest::areComplete()
{
    QFETCH(QString, file);
    const QMap<QString, Message> messages =
        readMessages(QDir(QStringLiteral(ZEL_SOURCE_DIR)).filePath(file));
    for (auto it = messages.cbegin(); it != messages.cend(); ++it) {
        QVERIFY2(it->finished, qPrintable(it.key()));
        // German and French have a form for one and a form for many.
        QVERIFY2(it->translations.size() == (it->numerus ? 2 : 1), qPrintable(it.key()));
        for (const QString& translation : it->translations) {
            QVERIFY2(!translation.isEmpty(), qPrintable(it.key()));
            QVERIFY2(marksOf(translation) == marksOf(it->source), qPrintable(it.key()));
        }
    }
}

QTEST_GUILESS_MAIN(TranslationFilesTest)
#include "tst_translation_files.moc"
