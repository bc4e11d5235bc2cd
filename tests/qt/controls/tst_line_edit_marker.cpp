#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "tests/helpers/multi_edit_steps.h"
#include "tests/helpers/number_validator.h"
#include "tests/helpers/two_fields_test.h"
#include "tests/helpers/validation.h"
#include "tests/helpers/word_translator.h"

#include <QSignalSpy>
#include <QToolButton>

#include <boost/make_shared.hpp>

#include <memory>
#include <string>

using namespace zel::qt;
using zel::test::answer;
using zel::test::apply;
using zel::test::NumberValidator;
using zel::test::told;
using zel::test::typeOver;

namespace {

const QString marker = QStringLiteral("*VARIES*");
const QString black = QStringLiteral("QLineEdit { color: #000; }");
const QString red = QStringLiteral("QLineEdit { color: #e61414; }");

} // namespace

Q_DECLARE_METATYPE(zel::test::NumberValidator::EmptyText)

/// What becomes of a field whose values differ. It stands above another one in an active window.
class LineEditMarkerTest : public zel::test::TwoFieldsTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void userMeetsTheMarker_data();
    void userMeetsTheMarker();
    void markerTypedBackIn();
    void markerBroughtBackByUndoing_data();
    void markerBroughtBackByUndoing();
    void markerOfAnotherLanguage();
    void languageChangesWhileTheMarkerIsShown();
    void editCutsTheMarker_data();
    void editCutsTheMarker();
    void valueThatReadsLikeTheMarker();
    void markerThatAResetLeavesIsNoText();
    void markerIsCopied();
    void textThatWasNeverValidated_data();
    void textThatWasNeverValidated();

private:
    void passThrough(MultiEditLineEdit& field);
};

void LineEditMarkerTest::init()
{
    CheckedTest::init();
    setUpFields();
}

void LineEditMarkerTest::cleanup()
{
    tearDownFields();
    CheckedTest::cleanup();
}

/// Clicks into a field and on another one.
void LineEditMarkerTest::passThrough(MultiEditLineEdit& field)
{
    QTest::mouseClick(&field.edit(), Qt::LeftButton);
    QVERIFY(field.edit().hasFocus());
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QVERIFY(!field.edit().hasFocus());
}

void LineEditMarkerTest::userMeetsTheMarker_data()
{
    using V = NumberValidator;
    QTest::addColumn<NumberValidator::EmptyText>("emptyText");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("whileTyping"); // validity and answer after the last keystroke
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("afterwards");
    QTest::addColumn<int>("changes");
    QTest::newRow("leaves it unchanged") << V::EmptyRefused << QString() << "valid varies -"
                                         << "" << marker << "varies -" << 0;
    QTest::newRow("types a valid text") << V::EmptyRefused << "2.5"
                                        << "valid one 2.5" << black << "2.500"
                                        << "one 2.5" << 1;
    QTest::newRow("types an invalid text") << V::EmptyRefused << "abc"
                                           << "invalid varies -" << red << "abc"
                                           << "varies -" << 1;
    QTest::newRow("clears it, empty allowed") << V::EmptyAllowed << ""
                                              << "valid one -" << black << ""
                                              << "one -" << 1;
    QTest::newRow("clears it, empty is zero") << V::EmptyAsZero << ""
                                              << "valid one 0" << black << "0.000"
                                              << "one 0" << 1;
    QTest::newRow("clears it, empty refused") << V::EmptyRefused << ""
                                              << "invalid varies -" << red << ""
                                              << "varies -" << 1;
}

void LineEditMarkerTest::userMeetsTheMarker()
{
    QFETCH(NumberValidator::EmptyText, emptyText);
    QFETCH(QString, typed);
    QFETCH(int, changes);
    MultiEditLineEdit* const field = add(new NumberValidator(emptyText));
    apply(*field, QStringLiteral("12"));
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(&field->edit(), Qt::LeftButton);
    QVERIFY(field->edit().hasFocus());
    if (!typed.isNull()) {
        typeOver(field->edit(), typed);
    }
    QTEST((field->isValueValid() ? QStringLiteral("valid ") : QStringLiteral("invalid ")) +
              answer(*field),
          "whileTyping");
    QTEST(field->edit().styleSheet(), "sheet");
    QCOMPARE(changed.count(), 0);
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QCOMPARE(changed.count(), changes);
    QTEST(answer(*field), "afterwards");
    QTEST(field->edit().text(), "text");
    QTEST(field->edit().styleSheet(), "sheet");
}

void LineEditMarkerTest::markerTypedBackIn()
{
    // The text before the last keystroke is judged, the marker itself is not.
    apply(*m_field, QStringLiteral("1"));
    const QSignalSpy changed(m_field, &SimpleLineEdit::valueChanged);
    m_field->setFocus();
    typeOver(m_field->edit(), marker);
    QCOMPARE(m_field->edit().text(), marker);
    QVERIFY(!m_field->isValueValid());
    QVERIFY(!m_field->dataVaries());
    QCOMPARE(m_field->edit().styleSheet(), red);
    QTest::keyClick(&m_field->edit(), Qt::Key_Return);
    m_other->setFocus();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(answer(*m_field), QStringLiteral("one -"));

    m_field->forceVaries();
    m_field->setFocus();
    typeOver(m_field->edit(), marker);
    m_other->setFocus();
    QCOMPARE(changed.count(), 0);
    QVERIFY(m_field->dataVaries());

    // From a text that has validated.
    typeOver(m_field->edit(), QStringLiteral("7"));
    QVERIFY(!m_field->dataVaries());
    typeOver(m_field->edit(), marker);
    QVERIFY(!m_field->dataVaries());
    m_field->setFocus();
    m_other->setFocus();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(answer(*m_field), QStringLiteral("one -"));
}

void LineEditMarkerTest::markerBroughtBackByUndoing_data()
{
    QTest::addColumn<bool>("isText"); // a text that any validator of texts accepts, marker included
    QTest::newRow("number") << false;
    QTest::newRow("text") << true;
}

void LineEditMarkerTest::markerBroughtBackByUndoing()
{
    QFETCH(bool, isText);
    MultiEditLineEdit* const field =
        add(isText ? static_cast<IValidator*>(new StringEditValidator(20)) : new NumberValidator);
    field->setValue(isText ? boost::any(std::wstring(L"a")) : boost::any(1.0));
    field->forceVaries();
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    QLineEdit& edit = field->edit();
    QTest::mouseClick(&edit, Qt::LeftButton);
    edit.selectAll();
    QTest::keyClicks(&edit, QStringLiteral("7"));
    QVERIFY(!field->dataVaries());
    QVERIFY(!field->getCurrentValue().empty());
    for (int i = 0; i < 3 && edit.text() != marker; ++i) {
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    }
    QCOMPARE(edit.text(), marker);
    // The state is that of the last text that was judged, but nothing is there to be written.
    QVERIFY(!field->dataVaries());
    QVERIFY(field->isValueValid());
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("empty"));
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(edit.text(), marker);
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("empty"));
    // Redoing decides the value again.
    QTest::mouseClick(&edit, Qt::LeftButton);
    for (int i = 0; i < 3 && edit.text() != QLatin1String("7"); ++i) {
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(told(field->getCurrentValue()),
             isText ? QStringLiteral("wstring '7'") : QStringLiteral("double 7"));
}

void LineEditMarkerTest::markerOfAnotherLanguage()
{
    const QString translated = QStringLiteral("*VERSCHIEDEN*");
    const zel::test::WordTranslator translator("QObject", "*VARIES*", nullptr, translated);
    apply(*m_field, QStringLiteral("12"));
    QCOMPARE(m_field->edit().text(), translated);
    const QSignalSpy changed(m_field, &SimpleLineEdit::valueChanged);
    m_field->setFocus();
    m_other->setFocus();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_field->edit().text(), translated);
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    m_field->setValueHistory(history);
    m_field->addCurrentValueToValueHistory();
    std::deque<std::wstring> values;
    QCOMPARE(history->get(values), std::size_t(0));
    // The untranslated text is a text like any other.
    m_field->setFocus();
    typeOver(m_field->edit(), marker);
    m_other->setFocus();
    QCOMPARE(changed.count(), 1);
    QVERIFY(!m_field->isValueValid());
}

void LineEditMarkerTest::languageChangesWhileTheMarkerIsShown()
{
    MultiEditLineEdit* const field = add(new StringEditValidator(20));
    {
        const zel::test::WordTranslator translator("QObject", "*VARIES*", nullptr,
                                                   QStringLiteral("*VERSCHIEDEN*"));
        field->forceVaries();
    }
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    passThrough(*field);
    QCOMPARE(changed.count(), 0);
    QVERIFY(field->dataVaries());
    QCOMPARE(field->edit().text(), QStringLiteral("*VERSCHIEDEN*"));
    field->forceVaries();
    QCOMPARE(field->edit().text(), marker);
    // From here on the old marker is a text like any other.
    QTest::mouseClick(&field->edit(), Qt::LeftButton);
    typeOver(field->edit(), QStringLiteral("*VERSCHIEDEN*"));
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("wstring '*VERSCHIEDEN*'"));
}

void LineEditMarkerTest::editCutsTheMarker_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<QString>("shown");
    QTest::newRow("shorter than the marker") << 5 << 5 << "*VARI";
    QTest::newRow("as long as the marker") << 8 << 8 << "*VARIES*";
    QTest::newRow("shortened while the marker is shown") << 20 << 3 << "*VA";
    QTest::newRow("lengthened while a cut marker is shown") << 5 << 20 << "*VARI";
    QTest::newRow("shortened twice") << 5 << 4 << "*VAR";
}

void LineEditMarkerTest::editCutsTheMarker()
{
    QFETCH(int, before);
    QFETCH(int, after);
    MultiEditLineEdit* const field = add(new StringEditValidator(20));
    field->setMaxLength(before);
    field->readValue(std::wstring(L"ab"));
    field->readValue(std::wstring(L"cd"));
    field->setMaxLength(after);
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    passThrough(*field);
    QCOMPARE(changed.count(), 0);
    QVERIFY(field->dataVaries());
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("empty"));
    QTEST(field->edit().text(), "shown");
    QCOMPARE(field->edit().styleSheet(), QString());
    // A text of the user counts, and so does a value that reads like the rest of the marker.
    QTest::mouseClick(&field->edit(), Qt::LeftButton);
    typeOver(field->edit(), QStringLiteral("*V"));
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("wstring '*V'"));
    QFETCH(QString, shown);
    if (shown != marker) {
        field->setValue(shown.toStdWString());
        passThrough(*field);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(told(field->getCurrentValue()), QStringLiteral("wstring '%1'").arg(shown));
    }
}

void LineEditMarkerTest::valueThatReadsLikeTheMarker()
{
    MultiEditLineEdit* const field = add(new StringEditValidator(20));
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    for (const bool variedBefore : {false, true}) {
        if (variedBefore) {
            field->forceVaries();
        }
        field->setValue(marker.toStdWString());
        QVERIFY(!field->dataVaries());
        QVERIFY(field->isValueValid());
        QCOMPARE(told(field->getCurrentValue()), QStringLiteral("wstring '*VARIES*'"));
        passThrough(*field);
        QCOMPARE(changed.count(), 0); // the text alone decides this
        QCOMPARE(told(field->getCurrentValue()), QStringLiteral("wstring '*VARIES*'"));
    }
}

void LineEditMarkerTest::markerThatAResetLeavesIsNoText()
{
    // The text stays until the first object is read, and there may be none.
    MultiEditLineEdit* const field = add(new StringEditValidator(20));
    field->setValue(std::wstring(L"a"));
    field->forceVaries();
    field->reset();
    QCOMPARE(field->edit().text(), marker);
    QVERIFY(!field->dataVaries());
    QVERIFY(field->isValueValid());
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("empty"));
    MultiEditLineEdit* const copy = add(new StringEditValidator(20));
    copy->setValue(std::wstring(L"b"));
    copy->copyStateFrom(*field);
    QVERIFY(!copy->dataVaries());
    QCOMPARE(told(copy->getCurrentValue()), QStringLiteral("empty"));
}

void LineEditMarkerTest::markerIsCopied()
{
    MultiEditLineEdit* const field = add(new StringEditValidator(20));
    MultiEditLineEdit* const original = add(new StringEditValidator(20));
    original->setMaxLength(5);
    original->forceVaries();
    field->setValue(std::wstring(L"a"));
    field->copyStateFrom(*original);
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    passThrough(*field);
    QCOMPARE(changed.count(), 0);
    QVERIFY(field->dataVaries());
    QCOMPARE(field->edit().text(), QStringLiteral("*VARI"));
    original->setValue(std::wstring(L"*VARI"));
    field->copyStateFrom(*original);
    passThrough(*field);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("wstring '*VARI'"));
    // A marker that the user has typed over is not taken along.
    original->forceVaries();
    typeOver(original->edit(), QStringLiteral("b"));
    field->copyStateFrom(*original);
    typeOver(field->edit(), QStringLiteral("*VARI"));
    passThrough(*field);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(told(field->getCurrentValue()), QStringLiteral("wstring '*VARI'"));
}

void LineEditMarkerTest::textThatWasNeverValidated_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("set by the host") << "set";
    QTest::newRow("copied") << "copied";
    QTest::newRow("marker that a reset leaves") << "reset";
    QTest::newRow("given by the button in the edit") << "button";
}

void LineEditMarkerTest::textThatWasNeverValidated()
{
    // What the validator leaves behind for a text that it refuses, 0 here, is no value.
    QFETCH(QString, how);
    m_field->setValue(1.0);
    const QSignalSpy changed(m_field, &SimpleLineEdit::valueChanged);
    if (how == QLatin1String("set")) {
        m_field->edit().setText(QStringLiteral("abc"));
    } else if (how == QLatin1String("copied")) {
        m_other->edit().setText(QStringLiteral("abc"));
        m_field->copyStateFrom(*m_other);
    } else if (how == QLatin1String("reset")) {
        m_field->forceVaries();
        m_field->reset();
    } else {
        auto* button =
            m_field->addButton([](const QString&) { return QStringLiteral("abc"); }, QPixmap());
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(m_field->edit().text(), QStringLiteral("abc"));
    }
    QVERIFY(m_field->isValueValid());
    QCOMPARE(answer(*m_field), QStringLiteral("one -"));
    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(LineEditMarkerTest)
#include "tst_line_edit_marker.moc"
