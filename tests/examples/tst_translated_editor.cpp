#include "examples/frame_editor/form_texts.h"
#include "examples/frame_editor/member_results.h"
#include "examples/frame_editor/member_table_cells.h"
#include "examples/frame_editor/member_table_columns.h"
#include "examples/frame_editor/translations.h"
#include "tests/examples/editor_stage.h"
#include "tests/helpers/checked_test.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QXmlStreamReader>

using namespace frame_editor;
using zel::test::EditorStage;

namespace {

/// Of the texts that are expected, the one in the language of this process.
QString language = QStringLiteral("de");

QString either(const char* german, const char* french)
{
    return QString::fromUtf8(language == QLatin1String("de") ? german : french);
}

/// The text without what is not language; buttons of a tool bar leave the dots of a menu out too.
QString plainText(const QString& text)
{
    static const QRegularExpression marks(QStringLiteral("&|\\[\\*\\]|\\.\\.\\.$"));
    return QString(text).remove(marks);
}

/// A translation that depends on a number stands in several elements.
QString wanted(const QString& element, bool numerus)
{
    return numerus && element == QLatin1String("translation") ? QStringLiteral("numerusform")
                                                              : element;
}

const char* const libraryTexts = "/qt/translations/zel_qt2_dll_%1.ts";
const char* const ownTexts = "/examples/frame_editor/translations/zel_frame_editor_%1.ts";

/// The texts of a file of translations: by context, English or translated.
QMap<QString, QStringList> textsOf(const char* fileName, const QString& element)
{
    QMap<QString, QStringList> texts;
    QFile file(QStringLiteral(ZEL_SOURCE_DIR) + QString::fromLatin1(fileName).arg(language));
    QString context;
    bool numerus = false;
    if (!file.open(QIODevice::ReadOnly)) {
        return texts;
    }
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.isStartElement() && xml.name() == QLatin1String("message")) {
            numerus = xml.attributes().hasAttribute(QLatin1String("numerus"));
        } else if (xml.isStartElement() && xml.name() == wanted(element, numerus)) {
            texts[context] << xml.readElementText();
        }
    }
    return texts;
}

/// Tells the texts that may stand in a translated window: translations, what comes from the model,
/// numbers and units, and what is put together from these.
class KnownTexts
{
public:
    explicit KnownTexts(const FrameModel& model)
    {
        for (const char* fileName : {libraryTexts, ownTexts}) {
            for (const QStringList& texts : textsOf(fileName, QStringLiteral("translation"))) {
                for (const QString& text : texts) {
                    addPattern(plainText(text));
                }
            }
        }
        for (const Member& member : model.members) {
            m_data << member.name;
        }
        for (const Section& section : model.sections) {
            m_data << section.name;
        }
        for (const Material& material : model.materials) {
            m_data << material.name;
        }
        for (int column = 0; column < UnitSettings::columnCount; ++column) {
            m_data << columnName(column);
        }
        for (const MemberProperty& property : memberProperties()) {
            if (property.unitSet != 0) {
                m_data << shownUnit(zel::units::v1::Context(0), property.unitSet);
            }
        }
        m_data << QStringLiteral("portal_frame.json");
        m_data << QDockWidget::tr("Close"); // Qt names the button
        for (const QString& file : formFiles()) {
            m_data << QFileInfo(file).completeBaseName();
        }
    }

    bool contain(const QString& text) const
    {
        static const QRegularExpression number(QStringLiteral("^-?[\\d.]+(e[-+]?\\d+)?( \\S+)?$"));
        if (text.isEmpty() || m_data.contains(text) || number.match(text).hasMatch()) {
            return true;
        }
        return isTranslation(text) || isPutTogether(text);
    }

private:
    void addPattern(const QString& translation)
    {
        QString pattern = QRegularExpression::escape(translation.trimmed());
        pattern.replace(QRegularExpression(QStringLiteral("\\\\%(n|[0-9]|L[0-9])")),
                        QStringLiteral("(.+)"));
        if (translation.startsWith(QLatin1Char(' '))) {
            pattern.prepend(QStringLiteral("(.+) ")); // it goes on behind another text
        }
        m_patterns << QRegularExpression(QLatin1Char('^') + pattern + QLatin1Char('$'));
    }

    bool isTranslation(const QString& text) const
    {
        for (const QRegularExpression& pattern : m_patterns) {
            const QRegularExpressionMatch match = pattern.match(text);
            bool known = match.hasMatch();
            for (int i = 1; known && i <= match.lastCapturedIndex(); ++i) {
                known = match.captured(i) != text && contain(match.captured(i));
            }
            if (known) {
                return true;
            }
        }
        return false;
    }

    bool isPutTogether(const QString& text) const
    {
        static const QRegularExpression separators(QStringLiteral("[][(),]|  +"));
        const QStringList parts = text.split(separators, Qt::SkipEmptyParts);
        return parts != QStringList{text} &&
               std::all_of(parts.begin(), parts.end(),
                           [this](const auto& part) { return contain(part.trimmed()); });
    }

    QSet<QString> m_data;
    QVector<QRegularExpression> m_patterns;
};

/// All that a window says: captions, titles, entries, tool tips, names for assistive tools.
QStringList textsIn(QMainWindow& window)
{
    QStringList texts{window.windowTitle()};
    for (const QMenu* menu : window.menuBar()->findChildren<QMenu*>()) {
        texts << menu->title();
        for (const QAction* action : menu->actions()) {
            texts << action->text();
        }
    }
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible()) {
            continue;
        }
        texts << widget->toolTip() << widget->accessibleName();
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            texts << label->text();
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            texts << button->text();
        } else if (const auto* box = qobject_cast<const QGroupBox*>(widget)) {
            texts << box->title();
        } else if (const auto* dock = qobject_cast<const QDockWidget*>(widget)) {
            texts << dock->windowTitle();
        } else if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
            for (int i = 0; i < combo->count(); ++i) {
                texts << combo->itemText(i);
            }
        } else if (const auto* list = qobject_cast<const QListWidget*>(widget)) {
            for (int i = 0; i < list->count(); ++i) {
                texts << list->item(i)->text();
            }
        } else if (const auto* bar = qobject_cast<const QStatusBar*>(widget)) {
            texts << bar->currentMessage();
        }
    }
    return texts;
}

} // namespace

/// The window under a German or French locale, set before the application object exists; see
/// main().
class TestTranslatedEditor : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void menus();
    void captions();
    void marker();
    void nothingStaysEnglish_data();
    void nothingStaysEnglish();
    void plurals();
    void textsOfForms_data();
    void textsOfForms();
    void formsHaveNoOtherTexts();
    void textsOfOtherFormsStay();
    void messages();
    void buttonsOfQt();
    void numbersAreReadAsEver();
    void clipboardIsOfNoLanguage();
    void letters();
};

void TestTranslatedEditor::menus()
{
    EditorStage stage;
    QStringList titles;
    for (const QAction* action : stage.window.menuBar()->actions()) {
        titles << action->text();
    }
    QCOMPARE(titles, (QStringList{either("&Datei", "&Fichier"), either("&Bearbeiten", "É&dition"),
                                  either("&Ansicht", "&Affichage")}));
}

void TestTranslatedEditor::captions()
{
    EditorStage stage;
    QCOMPARE(stage.field("line_load").property().label, either("Linienlast", "Charge linéique"));
    QStringList groups;
    for (const QGroupBox* box : stage.window.panel().findChildren<QGroupBox*>()) {
        if (!box->title().isEmpty()) {
            groups << plainText(box->title());
        }
    }
    QCOMPARE(groups, (QStringList{either("Stab", "Barre"), either("Lasten", "Charges"),
                                  either("Stabenden", "Extrémités"),
                                  either("Elastische Bettung", "Appui élastique continu"),
                                  either("Bemerkungen", "Remarques")}));
    const auto& kinds = stage.inside<QComboBox>("kind");
    QCOMPARE(kinds.itemText(0), either("Stütze", "Poteau"));
    QCOMPARE(memberResults().front().label, either("Länge", "Longueur"));
}

void TestTranslatedEditor::marker()
{
    EditorStage stage;
    stage.select({0, 2});
    QCOMPARE(stage.text("line_load"), either("*VARIIERT*", "*VARIE*"));
}

void TestTranslatedEditor::nothingStaysEnglish_data()
{
    QTest::addColumn<QVector<int>>("members");
    QTest::addColumn<QString>("form");
    QTest::newRow("nothing selected") << QVector<int>{} << "member";
    QTest::newRow("one member") << QVector<int>{0} << "member";
    QTest::newRow("members that differ") << QVector<int>{0, 2, 7} << "member";
    QTest::newRow("more than have room") << QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9} << "member";
    QTest::newRow("loads") << QVector<int>{0} << "loads";
}

void TestTranslatedEditor::nothingStaysEnglish()
{
    QFETCH(QVector<int>, members);
    QFETCH(QString, form);
    EditorStage stage;
    stage.window.openForm(QStringLiteral(ZEL_SOURCE_DIR "/examples/frame_editor/forms/") + form +
                          QStringLiteral(".json"));
    stage.select(members);
    QApplication::processEvents();
    const KnownTexts known(stage.document.model());
    const QStringList texts = textsIn(stage.window);
    QVERIFY(texts.size() > 100);
    QStringList unknown;
    for (const QString& text : texts) {
        if (!known.contain(plainText(text).trimmed())) {
            unknown << text;
        }
    }
    QVERIFY2(unknown.isEmpty(), qPrintable(unknown.join(QStringLiteral(" | "))));
}

void TestTranslatedEditor::plurals()
{
    EditorStage stage;
    const auto* heading = stage.window.findChild<QLabel*>(QStringLiteral("selectedMembers"));
    stage.select({0, 1});
    QCOMPARE(heading->text(), either("2 Stäbe: C1, C2", "2 barres\u00a0: C1, C2"));
    stage.select({0, 1, 2, 3, 4, 5, 6, 7, 8});
    QVERIFY(heading->text().endsWith(either(" und 1 weiterer", " et 1 autre")));
    stage.select({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    QVERIFY(heading->text().endsWith(either(" und 2 weitere", " et 2 autres")));
    stage.enter("moment", QStringLiteral("1"));
    QCOMPARE(stage.document.undoStack().undoText(),
             either("Moment von 10 Stäben", "Moment de 10 barres"));
}

void TestTranslatedEditor::textsOfForms_data()
{
    QTest::addColumn<QString>("text");
    const QDir folder(QStringLiteral(ZEL_SOURCE_DIR "/examples/frame_editor/forms"));
    for (const QString& name : folder.entryList({QStringLiteral("*.json")})) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QJsonObject form = QJsonDocument::fromJson(file.readAll()).object();
        QSet<QString> texts{form.value(QStringLiteral("title")).toString()};
        for (const QJsonValue& group : form.value(QStringLiteral("groups")).toArray()) {
            texts << group[QStringLiteral("title")].toString();
            for (const QJsonValue& field : group[QStringLiteral("fields")].toArray()) {
                texts << field[QStringLiteral("caption")].toString();
            }
        }
        texts.remove(QString());
        for (const QString& text : qAsConst(texts)) {
            QTest::newRow(qPrintable(name + QStringLiteral(": ") + text)) << text;
        }
    }
}

void TestTranslatedEditor::textsOfForms()
{
    QFETCH(QString, text);
    const QStringList sources =
        textsOf(ownTexts, QStringLiteral("source")).value(QStringLiteral("frame_editor::Form"));
    const QStringList translations = textsOf(ownTexts, QStringLiteral("translation"))
                                         .value(QStringLiteral("frame_editor::Form"));
    QVERIFY(sources.contains(text));
    QCOMPARE(translatedFormText(text), translations.at(sources.indexOf(text)));
}

void TestTranslatedEditor::formsHaveNoOtherTexts()
{
    const QDir folder(QStringLiteral(ZEL_SOURCE_DIR "/examples/frame_editor/forms"));
    QByteArray all;
    for (const QString& name : folder.entryList({QStringLiteral("*.json")})) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        all += file.readAll();
    }
    const QStringList sources =
        textsOf(ownTexts, QStringLiteral("source")).value(QStringLiteral("frame_editor::Form"));
    for (const QString& source : sources) {
        QVERIFY2(all.contains('"' + source.toUtf8() + '"'), qPrintable(source));
    }
}

void TestTranslatedEditor::textsOfOtherFormsStay()
{
    const Form form = readForm(
        R"({"format": "frame_form", "version": 1, "title": "Mine", "groups": [{"title": "My loads",
            "fields": [{"property": "line_load", "caption": "q", "hints": {"editor": "quantity",
            "validator": {"unit_id": 1191}}}]}]})",
        QStringLiteral("mine.json"));
    QCOMPARE(form.title, QStringLiteral("Mine"));
    QCOMPARE(form.groups.front().title, QStringLiteral("My loads"));
    QCOMPARE(form.groups.front().fields.front().caption, QStringLiteral("q"));
}

void TestTranslatedEditor::messages()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("2,5"));
    QCOMPARE(stage.status(),
             either("Linienlast: „2,5“: Dezimalstellen stehen hinter einem Punkt; "
                    "nichts wird übernommen",
                    "Charge linéique\u00a0: «\u00a02,5\u00a0»\u00a0: les décimales suivent un "
                    "point\u00a0; rien n’est modifié"));
    QCOMPARE(stage.steps(), 0);
    stage.enter("line_load", QStringLiteral("2.5"));
    QCOMPARE(stage.status(), either("Linienlast von C1: übernommen",
                                    "Charge linéique de C1\u00a0: pris en compte"));
}

void TestTranslatedEditor::buttonsOfQt()
{
    QMessageBox box;
    box.setStandardButtons(QMessageBox::Save | QMessageBox::Cancel);
    QCOMPARE(plainText(box.button(QMessageBox::Cancel)->text()), either("Abbrechen", "Annuler"));
}

void TestTranslatedEditor::numbersAreReadAsEver()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1234.5 kN/m"));
    QCOMPARE(stage.member(0).lineLoad, 1000.0); // the limit of the form
    stage.enter("line_load", QStringLiteral("2500 N/m"));
    QCOMPARE(stage.member(0).lineLoad, 2.5);
    QCOMPARE(stage.text("line_load"), QStringLiteral("2.50 kN/m"));
}

void TestTranslatedEditor::clipboardIsOfNoLanguage()
{
    const EditorStage stage;
    const FrameModel& model = stage.document.model();
    boost::any value;
    const auto kinds =
        clipboardText(memberColumn(findMemberColumn(QStringLiteral("kind"))), model).validator;
    QCOMPARE(kinds->reformat(std::string("column"), {}), QStringLiteral("Column"));
    QVERIFY(kinds->validate(QStringLiteral("Column"), value, {}));
    QCOMPARE(boost::any_cast<std::string>(value), std::string("column"));
    QVERIFY(kinds->validate(QStringLiteral("column"), value, {}));
    QVERIFY(!kinds->validate(either("Stütze", "Poteau"), value, {}));
    const auto flags =
        clipboardText(memberColumn(findMemberColumn(QStringLiteral("hinge_end"))), model).validator;
    QCOMPARE(flags->reformat(true, {}), QStringLiteral("yes"));
    QVERIFY(flags->validate(QStringLiteral("no"), value, {}));
    QVERIFY(!flags->validate(either("nein", "non"), value, {}));
}

void TestTranslatedEditor::letters()
{
    // No letter leads to two places.
    EditorStage stage;
    QStringList texts{stage.window.findChild<QLabel*>(QStringLiteral("unitsLabel"))->text()};
    for (const QAction* action : stage.window.menuBar()->actions()) {
        texts << action->text();
    }
    for (const QLabel* label : stage.window.panel().findChildren<QLabel*>()) {
        if (label->buddy()) {
            texts << label->text();
        }
    }
    for (const QCheckBox* box : stage.window.panel().findChildren<QCheckBox*>()) {
        texts << box->text();
    }
    for (const QGroupBox* box : stage.window.panel().findChildren<QGroupBox*>()) {
        texts << box->title();
    }
    QSet<QChar> taken;
    for (const QString& text : texts) {
        const int place = text.indexOf(QLatin1Char('&'));
        if (place >= 0) {
            const QChar letter = text.at(place + 1).toLower();
            QVERIFY2(!taken.contains(letter), qPrintable(text));
            QVERIFY2(letter.unicode() < 128, qPrintable(text));
            taken.insert(letter);
        }
    }
    QVERIFY(taken.size() >= 16);
}

int main(int argc, char** argv)
{
    if (argc > 1 && qstrcmp(argv[1], "fr") == 0) {
        language = QStringLiteral("fr");
        argv[1] = argv[0];
        --argc;
        ++argv;
    }
    QLocale::setDefault(QLocale(language));
    registerTranslations();
    QApplication application(argc, argv);
    loadQtTranslations();
    TestTranslatedEditor test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translated_editor.moc"
