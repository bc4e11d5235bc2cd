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
    QString translation;
    bool finished;
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
            comment.clear();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("comment")) {
            comment = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("translation")) {
            message.finished = !xml.attributes().hasAttribute(QLatin1String("type"));
            message.translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (xml.isEndElement() && xml.name() == QLatin1String("message")) {
            messages.insert(context + " | " + message.source + " | " + comment, message);
        }
    }
    return messages;
}

/// The places of a text that are filled in, and its line ends: a translation has the same.
QStringList marksOf(const QString& text)
{
    static const QRegularExpression mark(QStringLiteral("%[0-9Ln]+|\n"));
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
    for (const QString& language : QStringList{"de", "fr"}) {
        QTest::newRow(qPrintable("library, " + language))
            << "qt/translations/zel_qt2_dll_" + language + ".ts" << library;
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
        QVERIFY2(it->finished && !it->translation.isEmpty(), qPrintable(it.key()));
        QCOMPARE(marksOf(it->translation), marksOf(it->source));
    }
}

QTEST_GUILESS_MAIN(TranslationFilesTest)
#include "tst_translation_files.moc"
