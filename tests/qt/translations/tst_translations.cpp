#include "qt/inc/controls.h"
#include "qt/inc/factories.h"
#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QProcess>
#include <QSignalSpy>
#include <QToolButton>
#include <QTranslator>

#include <cstdio>
#include <cstring>

using namespace zel::qt;

namespace {

/// Accepts every text as it stands.
class TextValidator : public IValidator
{
public:
    bool validate(const QString& text, boost::any& value, const std::bitset<32>&) override
    {
        value = text;
        return true;
    }
    QString reformat(const boost::any& value, const std::bitset<32>&) override
    {
        return value.empty() ? QString() : boost::any_cast<QString>(value);
    }
};

} // namespace

/// Runs under a German locale, which is set before the application object exists; see main().
class TranslationsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void languageFollowsTheLocale_data();
    void languageFollowsTheLocale();
    void aFieldShowsTheTranslatedMarker();
    void theTranslatedMarkerIsVetoedAtTheEndOfEditing();
    void theEnglishMarkerIsAnOrdinaryText();
    void theTranslatedMarkerStaysOutOfTheHistory();
    void yesAndNoAreTranslated();
    void aBoxShowsTheTranslatedMarker();
    void aTranslatorInstalledLaterTakesOver();
};

void TranslationsTest::languageFollowsTheLocale_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("marker");
    QTest::newRow("de_DE") << "de_DE"
                           << "*VARIIERT*";
    QTest::newRow("de_AT") << "de_AT"
                           << "*VARIIERT*";
    QTest::newRow("fr_CA") << "fr_CA"
                           << "*VARIE*";
    QTest::newRow("en_GB") << "en_GB"
                           << "*VARIES*";
    QTest::newRow("no translation") << "nb_NO"
                                    << "*VARIES*";
    QTest::newRow("second wish") << "nb:fr"
                                 << "*VARIE*";
    QTest::newRow("English before German") << "en:de"
                                           << "*VARIES*";
}

void TranslationsTest::languageFollowsTheLocale()
{
    QFETCH(QString, language);
    QFETCH(QString, marker);
    // The locale counts when the application object is made, so each row is a process.
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("LC_ALL");
    environment.insert("LANG", language.contains(':') ? QStringLiteral("en_US.UTF-8")
                                                      : language + ".UTF-8");
    environment.insert("LANGUAGE", language);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"--print-marker"});
    QVERIFY(process.waitForFinished());
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), marker);
}

void TranslationsTest::aFieldShowsTheTranslatedMarker()
{
    QCOMPARE(getVariesString(), QStringLiteral("*VARIIERT*"));
    QWidget window;
    auto* field = MultiEditLineEdit::create(&window, QString(), new TextValidator, 0, ExpandRight);
    field->readValue(QStringLiteral("HEA 200"));
    QVERIFY(!field->dataVaries());
    field->readValue(QStringLiteral("HEA 240"));
    QCOMPARE(field->edit().text(), QStringLiteral("*VARIIERT*"));
    QVERIFY(field->dataVaries());
    QVERIFY(field->getCurrentValue().empty());
}

void TranslationsTest::theTranslatedMarkerIsVetoedAtTheEndOfEditing()
{
    QWidget window;
    auto* field = MultiEditLineEdit::create(&window, QString(), new TextValidator, 0, ExpandRight);
    field->forceVaries();
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    QTest::keyClick(&field->edit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 0);
    QVERIFY(field->dataVaries());

    field->edit().selectAll();
    QTest::keyClicks(&field->edit(), QStringLiteral("IPE 300"));
    QTest::keyClick(&field->edit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!field->dataVaries());
    QCOMPARE(boost::any_cast<QString>(field->getCurrentValue()), QStringLiteral("IPE 300"));
}

void TranslationsTest::theEnglishMarkerIsAnOrdinaryText()
{
    QWidget window;
    auto* field = MultiEditLineEdit::create(&window, QString(), new TextValidator, 0, ExpandRight);
    field->setValue(QStringLiteral("a"));
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    field->edit().selectAll();
    QTest::keyClicks(&field->edit(), QStringLiteral("*VARIES*"));
    QTest::keyClick(&field->edit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(boost::any_cast<QString>(field->getCurrentValue()), QStringLiteral("*VARIES*"));
}

void TranslationsTest::theTranslatedMarkerStaysOutOfTheHistory()
{
    QWidget window;
    auto* field = MultiEditLineEdit::create(&window, QString(), new TextValidator, 0, ExpandRight);
    const auto history = zel::ValueHistory::create(std::wstring(), L"translations");
    field->setValueHistory(history);
    field->forceVaries();
    field->addCurrentValueToValueHistory();
    std::deque<std::wstring> values;
    QCOMPARE(history->get(values), std::size_t(0));
    field->setValue(QStringLiteral("*VARIES*"));
    field->addCurrentValueToValueHistory();
    QCOMPARE(history->get(values), std::size_t(1));
}

void TranslationsTest::yesAndNoAreTranslated()
{
    const DefaultEditorFactory editors(nullptr);
    const std::unique_ptr<Editor> editor = editors.create("yes_no", HintTree());
    const std::unique_ptr<QWidget> widget(editor->widget);
    auto* box = qobject_cast<MultiEditEnumBox*>(widget.get());
    QVERIFY(box != nullptr);
    QCOMPARE(box->getNameForValue(true), QStringLiteral("Ja"));
    QCOMPARE(box->getNameForValue(false), QStringLiteral("Nein"));
    box->selectByName(QStringLiteral("Nein"));
    QCOMPARE(boost::any_cast<bool>(editor->control->getCurrentValue()), false);

    const DefaultValidatorFactory validators;
    const std::unique_ptr<IValidator> validator =
        validators.create({typeid(bool), std::string()}, HintTree());
    boost::any value;
    QVERIFY(validator->validate(QStringLiteral("Ja"), value, {}));
    QCOMPARE(boost::any_cast<bool>(value), true);
    QVERIFY(!validator->validate(QStringLiteral("Yes"), value, {}));
    QCOMPARE(validator->reformat(false, {}), QStringLiteral("Nein"));
}

void TranslationsTest::aBoxShowsTheTranslatedMarker()
{
    QWidget window;
    auto* box =
        MultiEditEnumBox::create(&window, QString(), [](const boost::any& a, const boost::any& b) {
            return boost::any_cast<int>(a) == boost::any_cast<int>(b);
        });
    box->setValues({{QStringLiteral("S235"), 1}, {QStringLiteral("S355"), 2}});
    box->readValue(1);
    box->readValue(2);
    QCOMPARE(box->findChild<QComboBox*>()->currentText(), QStringLiteral("*VARIIERT*"));
    QVERIFY(box->getCurrentValue().empty());
}

void TranslationsTest::aTranslatorInstalledLaterTakesOver()
{
    QTranslator french;
    QVERIFY(french.load(QLocale(QLocale::French), QStringLiteral("zel_qt2_dll"),
                        QStringLiteral("_"), QStringLiteral(":/zel/translations")));
    QVERIFY(QCoreApplication::installTranslator(&french));
    QCOMPARE(getVariesString(), QStringLiteral("*VARIE*"));
    QWidget window;
    auto* field = MultiEditLineEdit::create(&window, QString(), new TextValidator, 0, ExpandRight);
    field->forceVaries();
    QCOMPARE(field->edit().text(), QStringLiteral("*VARIE*"));
    QVERIFY(QCoreApplication::removeTranslator(&french));
    QCOMPARE(getVariesString(), QStringLiteral("*VARIIERT*"));
}

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "--print-marker") == 0) {
        const QCoreApplication application(argc, argv);
        std::fputs(qPrintable(getVariesString()), stdout);
        return 0;
    }
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QApplication application(argc, argv);
    TranslationsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translations.moc"
