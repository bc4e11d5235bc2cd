#include "qt/inc/controls.h"
#include "qt/inc/factories.h"
#include "qt/inc/validators.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/word_translator.h"
#include "units/inc/units.h"

#include <QComboBox>
#include <QLayout>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QToolButton>

#include <limits>
#include <memory>

using namespace zel::qt;

namespace {

using DefaultFn = boost::function<QString(const QString&)>;
using Quantity = zel::units::v1::IConverter::quantity;
using EqualFn = bool (*)(const boost::any&, const boost::any&);

constexpr int imperialColumn = 8;

HintTree lineEditHints(const std::string& type)
{
    HintTree hints;
    hints.put_child("editor", HintTree(std::string("lineedit")));
    if (!type.empty()) {
        hints.put_child("validator.type", HintTree(type));
    }
    return hints;
}

void put(HintTree& hints, const char* path, const boost::any& value)
{
    hints.put_child(path, HintTree(value));
}

bool isEmpty(const EditorMetaData& data)
{
    return data.editor == nullptr && data.setValue.empty() && data.forceVaries.empty() &&
           data.getValue.empty();
}

MultiEditLineEdit* lineEdit(const EditorMetaData& data)
{
    return dynamic_cast<MultiEditLineEdit*>(data.editor);
}

/// Types a text into the editor and ends the editing.
void enter(const EditorMetaData& data, const QString& text)
{
    QLineEdit& edit = lineEdit(data)->edit();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
}

bool equalInts(const boost::any& a, const boost::any& b)
{
    return !a.empty() && !b.empty() && boost::any_cast<int>(a) == boost::any_cast<int>(b);
}

NamedValueList twoValues()
{
    return {{QStringLiteral("one"), 1}, {QStringLiteral("two"), 2}};
}

HintTree enumBoxHints()
{
    HintTree hints;
    put(hints, "editor", std::string("enumbox"));
    put(hints, "equal_value_fn", EqualFn(&equalInts));
    put(hints, "values", twoValues());
    return hints;
}

} // namespace

class EditorFromHintsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void emptyResults_data();
    void emptyResults();
    void lineEditIsBorderlessAndOwnedByTheParent();
    void lineEditWithoutParentBelongsToTheCaller();
    void typedValue_data();
    void typedValue();
    void emptyText_data();
    void emptyText();
    void refusedText_data();
    void refusedText();
    void lengthOfAString();
    void unitIsThatOfTheHint();
    void contextIsCopiedAtCreation();
    void optionalDoubleHasAButton();
    void tooltipOfTheButtonIsTranslated();
    void buttonWithoutDefaultIsReported_data();
    void buttonWithoutDefaultIsReported();
    void defaultFunctionIsDroppedUnlessOptional();
    void operationsOfALineEdit();
    void getValueWritesNothingWhileVarying();
    void getValueOfABadTextIsEmpty();
    void enumBox();
    void operationsOfAnEnumBox();
    void missingHintThrows_data();
    void missingHintThrows();
    void hintOfAnotherTypeThrows_data();
    void hintOfAnotherTypeThrows();
    void registeredEditorComesFirst();
    void registeredEditorGetsTheWholeTree();
    void lastRegistrationWins();
    void namesAreComparedExactly();
    void unregisteringBringsTheBuiltInBack();
    void unregisteringAnUnknownNameDoesNothing();
    void emptyCreatorThrows();
    void creatorMayUnregisterItself();
    void optionalWidgetBase();

private:
    EditorMetaData create(const HintTree& hints);

    std::unique_ptr<QWidget> m_parent;
};

void EditorFromHintsTest::init()
{
    CheckedTest::init();
    m_parent = std::make_unique<QWidget>();
}

void EditorFromHintsTest::cleanup()
{
    m_parent.reset();
    unregisterEditor("lineedit");
    unregisterEditor("own");
    CheckedTest::cleanup();
}

EditorMetaData EditorFromHintsTest::create(const HintTree& hints)
{
    return createEditorFromHints(m_parent.get(), hints);
}

void EditorFromHintsTest::emptyResults_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("type");
    QTest::newRow("no editor named") << QString() << QString();
    QTest::newRow("empty name") << ""
                                << "";
    QTest::newRow("unknown editor") << "slider"
                                    << "double";
    QTest::newRow("editor in other case") << "LineEdit"
                                          << "double";
    QTest::newRow("unknown type") << "lineedit"
                                  << "float";
    QTest::newRow("type in other case") << "lineedit"
                                        << "Double";
    QTest::newRow("type with a blank") << "lineedit"
                                       << "int ";
}

void EditorFromHintsTest::emptyResults()
{
    QFETCH(QString, editor);
    QFETCH(QString, type);
    HintTree hints;
    if (!editor.isNull()) {
        put(hints, "editor", editor.toStdString());
        put(hints, "validator.type", type.toStdString());
    }
    QVERIFY(isEmpty(create(hints)));
    QVERIFY(m_parent->children().isEmpty());
}

void EditorFromHintsTest::lineEditIsBorderlessAndOwnedByTheParent()
{
    const EditorMetaData data = create(lineEditHints("double"));
    MultiEditLineEdit* const edit = lineEdit(data);
    QVERIFY(edit != nullptr);
    QCOMPARE(edit->parentWidget(), m_parent.get());
    QCOMPARE(edit->edit().styleSheet(),
             QStringLiteral("QLineEdit { border:0; background-color:white; }"));
    QVERIFY(qobject_cast<QHBoxLayout*>(edit->layout()) != nullptr);
    QVERIFY(edit->findChildren<QToolButton*>().isEmpty());
    QVERIFY(!edit->isValueValid());
}

void EditorFromHintsTest::lineEditWithoutParentBelongsToTheCaller()
{
    const EditorMetaData data = createEditorFromHints(nullptr, lineEditHints("int"));
    const std::unique_ptr<QWidget> owner(data.editor);
    QVERIFY(owner);
    QVERIFY(owner->parent() == nullptr);
}

void EditorFromHintsTest::typedValue_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("valueType");
    QTest::addColumn<QString>("shown");
    QTest::newRow("no type: wide text") << ""
                                        << "a b"
                                        << "std::wstring a b"
                                        << "a b";
    QTest::newRow("string: UTF-8 text") << "string"
                                        << "a b"
                                        << "std::string a b"
                                        << "a b";
    QTest::newRow("double") << "double"
                            << "1.5"
                            << "double 1.5"
                            << "1.500000";
    QTest::newRow("int") << "int"
                         << "-42"
                         << "int -42"
                         << "-42";
    QTest::newRow("largest int") << "int"
                                 << "2147483647"
                                 << "int 2147483647"
                                 << "2147483647";
    QTest::newRow("smallest int") << "int"
                                  << "-2147483648"
                                  << "int -2147483648"
                                  << "-2147483648";
}

namespace {

QString described(const boost::any& value)
{
    if (const auto* wide = boost::any_cast<std::wstring>(&value)) {
        return QStringLiteral("std::wstring ") + QString::fromStdWString(*wide);
    }
    if (const auto* narrow = boost::any_cast<std::string>(&value)) {
        return QStringLiteral("std::string ") + QString::fromStdString(*narrow);
    }
    if (const auto* real = boost::any_cast<double>(&value)) {
        return QStringLiteral("double ") + QString::number(*real);
    }
    if (const auto* whole = boost::any_cast<int>(&value)) {
        return QStringLiteral("int ") + QString::number(*whole);
    }
    return value.empty() ? QStringLiteral("empty") : QStringLiteral("other");
}

} // namespace

void EditorFromHintsTest::typedValue()
{
    QFETCH(QString, type);
    QFETCH(QString, typed);
    const EditorMetaData data = create(lineEditHints(type.toStdString()));
    QVERIFY(lineEdit(data) != nullptr);
    const QSignalSpy changed(lineEdit(data), &SimpleLineEdit::valueChanged);
    enter(data, typed);
    QCOMPARE(changed.count(), 1);
    boost::any value;
    QVERIFY(data.getValue(value));
    QTEST(described(value), "valueType");
    if (type == QLatin1String("double")) {
        QVERIFY(lineEdit(data)->edit().text().startsWith(typed));
    } else {
        QTEST(lineEdit(data)->edit().text(), "shown");
    }
}

void EditorFromHintsTest::emptyText_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("optional");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("complaints");
    QTest::newRow("no type") << "" << false << "std::wstring " << 0;
    QTest::newRow("no type, optional") << "" << true << "std::wstring " << 1;
    QTest::newRow("string") << "string" << false << "std::string " << 0;
    QTest::newRow("string, optional") << "string" << true << "std::string " << 1;
    QTest::newRow("double") << "double" << false << "double 0" << 0;
    QTest::newRow("double, optional") << "double" << true << "empty" << 1;
    QTest::newRow("int") << "int" << false << "empty" << 0;
    QTest::newRow("int, optional") << "int" << true << "empty" << 1;
    QTest::newRow("distance") << "distance" << false << "double 0" << 0;
    QTest::newRow("distance, optional") << "distance" << true << "empty" << 1;
    QTest::newRow("unit, optional") << "unit" << true << "empty" << 1;
}

void EditorFromHintsTest::emptyText()
{
    QFETCH(QString, type);
    QFETCH(bool, optional);
    HintTree hints = lineEditHints(type.toStdString());
    put(hints, "optional", optional);
    const EditorMetaData data = create(hints);
    QTEST(int(takeReports().size()), "complaints");
    enter(data, QString());
    const QString text = lineEdit(data)->edit().text();
    QVERIFY(lineEdit(data)->isValueValid());
    boost::any value;
    QVERIFY(data.getValue(value));
    if (type == QLatin1String("int") && !optional) {
        QCOMPARE(text, QStringLiteral("0")); // no value is shown as the zero, which is a value
        QCOMPARE(described(value), QStringLiteral("int 0"));
    } else {
        QTEST(described(value), "expected");
        QCOMPARE(text.isEmpty(), value.empty() || !described(value).contains(QLatin1Char('0')));
    }
}

void EditorFromHintsTest::refusedText_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("double") << "double";
    QTest::newRow("int") << "int";
    QTest::newRow("unit") << "unit";
}

void EditorFromHintsTest::refusedText()
{
    QFETCH(QString, type);
    const EditorMetaData data = create(lineEditHints(type.toStdString()));
    enter(data, QStringLiteral("?"));
    QVERIFY(!lineEdit(data)->isValueValid());
    QCOMPARE(lineEdit(data)->edit().text(), QStringLiteral("?"));
}

void EditorFromHintsTest::lengthOfAString()
{
    HintTree hints = lineEditHints("string");
    const QString longest(256, QLatin1Char('x'));
    const EditorMetaData byDefault = create(hints);
    enter(byDefault, longest);
    QVERIFY(lineEdit(byDefault)->isValueValid());
    enter(byDefault, longest + QLatin1Char('x'));
    QVERIFY(!lineEdit(byDefault)->isValueValid());
    put(hints, "validator.max_length", 3);
    const EditorMetaData short3 = create(hints);
    enter(short3, QStringLiteral("abc"));
    QVERIFY(lineEdit(short3)->isValueValid());
    enter(short3, QStringLiteral("abcd"));
    QVERIFY(!lineEdit(short3)->isValueValid());
    // The length belongs to "string"; the text without a type keeps its own.
    HintTree plain = lineEditHints("");
    put(plain, "validator.max_length", 3);
    const EditorMetaData noType = create(plain);
    enter(noType, QStringLiteral("abcd"));
    QVERIFY(lineEdit(noType)->isValueValid());
}

void EditorFromHintsTest::unitIsThatOfTheHint()
{
    HintTree hints = lineEditHints("unit");
    put(hints, "validator.unit_id", zel::units::UnitId(1001));
    const EditorMetaData data = create(hints);
    enter(data, QStringLiteral("250 cm"));
    QVERIFY(lineEdit(data)->isValueValid());
    boost::any value;
    QVERIFY(data.getValue(value));
    const auto quantity = boost::any_cast<Quantity>(value);
    QCOMPARE(int(quantity.unit_id), 1001);
    QCOMPARE(quantity.value, 2.5);
    // A time is no length.
    enter(data, QStringLiteral("3 h"));
    QVERIFY(!lineEdit(data)->isValueValid());
}

void EditorFromHintsTest::contextIsCopiedAtCreation()
{
    const zel::units::v1::Context before = zel::units::v1::get_active_input_context();
    HintTree hints = lineEditHints("unit");
    put(hints, "validator.unit_id", zel::units::UnitId(1001));
    const EditorMetaData data = create(hints);
    const Quantity length{zel::units::UnitId(1001), 2.5};
    data.setValue(length);
    const QString shownBefore = lineEdit(data)->edit().text();
    zel::units::v1::set_active_input_context(zel::units::v1::Context(imperialColumn));
    data.setValue(length);
    const QString shownAfter = lineEdit(data)->edit().text();
    const EditorMetaData later = create(hints);
    later.setValue(length);
    const QString shownByLater = lineEdit(later)->edit().text();
    zel::units::v1::set_active_input_context(before);
    QCOMPARE(shownAfter, shownBefore);
    QVERIFY(shownByLater != shownBefore);
}

void EditorFromHintsTest::optionalDoubleHasAButton()
{
    HintTree hints = lineEditHints("double");
    put(hints, "optional", true);
    QString given;
    put(hints, "default_fn", DefaultFn([&given](const QString& text) {
            given = text;
            return QStringLiteral("7.5");
        }));
    const EditorMetaData data = create(hints);
    MultiEditLineEdit* const edit = lineEdit(data);
    const auto buttons = edit->findChildren<QToolButton*>();
    QCOMPARE(buttons.size(), 1);
    QCOMPARE(buttons[0]->toolTip(), QStringLiteral("Reset to default."));
    QCOMPARE(buttons[0]->parentWidget(), &edit->edit());
    QCOMPARE(buttons[0]->iconSize(), QSize(12, 12));
    QCOMPARE(buttons[0]->icon().pixmap(16, 16).toImage(),
             Pixmap::createOrDefault(L"control_repeat_blue.png").toImage());
    data.setValue(1.0);
    const QString shown = edit->edit().text();
    const QSignalSpy changed(edit, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(buttons[0], Qt::LeftButton);
    QCOMPARE(given, shown);
    QCOMPARE(edit->edit().text(), QStringLiteral("7.5"));
    QCOMPARE(changed.count(), 0);
    QTest::keyClick(&edit->edit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    boost::any value;
    QVERIFY(data.getValue(value));
    QCOMPARE(boost::any_cast<double>(value), 7.5);
}

void EditorFromHintsTest::tooltipOfTheButtonIsTranslated()
{
    const zel::test::WordTranslator translator(
        "QObject", "Reset to default.", "makeLineEditWithOptionalValue", QStringLiteral("Vorgabe"));
    HintTree hints = lineEditHints("double");
    put(hints, "optional", true);
    put(hints, "default_fn", DefaultFn([](const QString& text) { return text; }));
    const EditorMetaData data = create(hints);
    QCOMPARE(data.editor->findChild<QToolButton*>()->toolTip(), QStringLiteral("Vorgabe"));
}

void EditorFromHintsTest::buttonWithoutDefaultIsReported_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("hasDefault");
    QTest::newRow("double without default_fn") << "double" << false;
    QTest::newRow("no type drops default_fn") << "" << true;
    QTest::newRow("string drops default_fn") << "string" << true;
    QTest::newRow("int drops default_fn") << "int" << true;
    QTest::newRow("unit drops default_fn") << "unit" << true;
    QTest::newRow("distance drops default_fn") << "distance" << true;
}

void EditorFromHintsTest::buttonWithoutDefaultIsReported()
{
    QFETCH(QString, type);
    QFETCH(bool, hasDefault);
    HintTree hints = lineEditHints(type.toStdString());
    put(hints, "optional", true);
    if (hasDefault) {
        put(hints, "default_fn", DefaultFn([](const QString& text) { return text; }));
    }
    const EditorMetaData data = create(hints);
    QVERIFY(lineEdit(data) != nullptr);
    QVERIFY(lineEdit(data)->findChildren<QToolButton*>().isEmpty());
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("fn"));
    QVERIFY(reports[0].file.rfind("qt/src/controls", 0) == 0);
}

void EditorFromHintsTest::defaultFunctionIsDroppedUnlessOptional()
{
    HintTree hints = lineEditHints("double");
    put(hints, "default_fn", DefaultFn([](const QString& text) { return text; }));
    QVERIFY(create(hints).editor->findChildren<QToolButton*>().isEmpty());
    put(hints, "default_fn", DefaultFn());
    put(hints, "optional", false);
    QVERIFY(create(hints).editor->findChildren<QToolButton*>().isEmpty());
}

void EditorFromHintsTest::operationsOfALineEdit()
{
    const EditorMetaData data = create(lineEditHints("int"));
    const QSignalSpy changed(lineEdit(data), &SimpleLineEdit::valueChanged);
    data.setValue(5);
    QCOMPARE(lineEdit(data)->edit().text(), QStringLiteral("5"));
    boost::any value;
    QVERIFY(data.getValue(value));
    QCOMPARE(boost::any_cast<int>(value), 5);
    data.forceVaries();
    QCOMPARE(lineEdit(data)->edit().text(), QStringLiteral("*VARIES*"));
    QVERIFY(lineEdit(data)->dataVaries());
    QCOMPARE(changed.count(), 0);
}

void EditorFromHintsTest::getValueWritesNothingWhileVarying()
{
    const EditorMetaData data = create(lineEditHints("int"));
    data.forceVaries();
    boost::any value = std::string("untouched");
    QVERIFY(!data.getValue(value));
    QCOMPARE(boost::any_cast<std::string>(value), std::string("untouched"));
}

void EditorFromHintsTest::getValueOfABadTextIsEmpty()
{
    const EditorMetaData data = create(lineEditHints("int"));
    enter(data, QStringLiteral("x"));
    boost::any value = 1;
    QVERIFY(data.getValue(value));
    QVERIFY(value.empty());
}

void EditorFromHintsTest::enumBox()
{
    const EditorMetaData data = create(enumBoxHints());
    auto* const box = dynamic_cast<MultiEditEnumBox*>(data.editor);
    QVERIFY(box != nullptr);
    QCOMPARE(box->parentWidget(), m_parent.get());
    QCOMPARE(box->layout()->contentsMargins(), QMargins());
    const auto* combo = box->findChild<QComboBox*>();
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->itemText(0), QStringLiteral("one"));
    QCOMPARE(combo->itemText(1), QStringLiteral("two"));
}

void EditorFromHintsTest::operationsOfAnEnumBox()
{
    const EditorMetaData data = create(enumBoxHints());
    const auto* combo = data.editor->findChild<QComboBox*>();
    data.setValue(2);
    QCOMPARE(combo->currentText(), QStringLiteral("two"));
    boost::any value;
    QVERIFY(data.getValue(value));
    QCOMPARE(boost::any_cast<int>(value), 2);
    data.forceVaries();
    value = std::string("untouched");
    QVERIFY(!data.getValue(value));
    QCOMPARE(boost::any_cast<std::string>(value), std::string("untouched"));
}

void EditorFromHintsTest::missingHintThrows_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("comparison") << "equal_value_fn";
    QTest::newRow("values") << "values";
}

void EditorFromHintsTest::missingHintThrows()
{
    QFETCH(QString, missing);
    HintTree hints = enumBoxHints();
    hints.erase(missing.toStdString());
    QString text;
    try {
        create(hints);
    } catch (const boost::property_tree::ptree_bad_path& e) {
        text = QString::fromUtf8(e.what());
    }
    QCOMPARE(text, QStringLiteral("No such node (%1)").arg(missing));
    QVERIFY(m_parent->children().isEmpty());
}

void EditorFromHintsTest::hintOfAnotherTypeThrows_data()
{
    QTest::addColumn<QString>("editor");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("wrong");
    QTest::newRow("editor") << "lineedit"
                            << "int"
                            << "editor";
    QTest::newRow("optional of a line edit") << "lineedit"
                                             << "int"
                                             << "optional";
    QTest::newRow("optional of an enum box") << "enumbox"
                                             << ""
                                             << "optional";
    QTest::newRow("optional of an unknown editor") << "slider"
                                                   << ""
                                                   << "optional";
    QTest::newRow("validator.type") << "lineedit"
                                    << ""
                                    << "validator.type";
    QTest::newRow("validator.unit_id") << "lineedit"
                                       << "unit"
                                       << "validator.unit_id";
    QTest::newRow("validator.max_length") << "lineedit"
                                          << "string"
                                          << "validator.max_length";
    QTest::newRow("default_fn") << "lineedit"
                                << "double"
                                << "default_fn";
    QTest::newRow("equal_value_fn") << "enumbox"
                                    << ""
                                    << "equal_value_fn";
    QTest::newRow("values") << "enumbox"
                            << ""
                            << "values";
}

void EditorFromHintsTest::hintOfAnotherTypeThrows()
{
    QFETCH(QString, editor);
    QFETCH(QString, type);
    QFETCH(QString, wrong);
    HintTree hints = enumBoxHints();
    put(hints, "editor", editor.toStdString());
    put(hints, "validator.type", type.toStdString());
    put(hints, wrong.toUtf8().constData(), 2.0f);
    QVERIFY_EXCEPTION_THROWN(create(hints), boost::bad_any_cast);
    QVERIFY(m_parent->children().isEmpty());
    // A node without a value is one of another type, too.
    put(hints, wrong.toUtf8().constData(), boost::any());
    QVERIFY_EXCEPTION_THROWN(create(hints), boost::bad_any_cast);
}

void EditorFromHintsTest::registeredEditorComesFirst()
{
    registerEditor("lineedit", [](QWidget* parent, const HintTree&) {
        EditorMetaData data;
        data.editor = new QWidget(parent);
        data.editor->setObjectName(QStringLiteral("own"));
        return data;
    });
    const EditorMetaData data = create(lineEditHints("int"));
    QCOMPARE(data.editor->objectName(), QStringLiteral("own"));
    QCOMPARE(data.editor->parentWidget(), m_parent.get());
    QVERIFY(data.getValue.empty());
}

void EditorFromHintsTest::registeredEditorGetsTheWholeTree()
{
    HintTree seen;
    registerEditor("lineedit", [&seen](QWidget*, const HintTree& hints) {
        seen = hints;
        return EditorMetaData();
    });
    HintTree hints = lineEditHints("no such type");
    put(hints, "optional", std::string("not even a bool"));
    QVERIFY(isEmpty(create(hints)));
    QCOMPARE(seen.size(), std::size_t(3));
    QCOMPARE(readNeededHint<std::string>(seen, "editor"), std::string("lineedit"));
    QCOMPARE(readNeededHint<std::string>(seen, "optional"), std::string("not even a bool"));
    QCOMPARE(readNeededHint<std::string>(seen, "validator.type"), std::string("no such type"));
}

void EditorFromHintsTest::lastRegistrationWins()
{
    int first = 0;
    int second = 0;
    registerEditor("own", [&first](QWidget*, const HintTree&) {
        ++first;
        return EditorMetaData();
    });
    registerEditor("own", [&second](QWidget*, const HintTree&) {
        ++second;
        return EditorMetaData();
    });
    HintTree hints;
    put(hints, "editor", std::string("own"));
    create(hints);
    QCOMPARE(first, 0);
    QCOMPARE(second, 1);
}

void EditorFromHintsTest::namesAreComparedExactly()
{
    int calls = 0;
    registerEditor("own", [&calls](QWidget*, const HintTree&) {
        ++calls;
        return EditorMetaData();
    });
    HintTree hints;
    for (const char* name : {"Own", "own ", " own", "ow"}) {
        put(hints, "editor", std::string(name));
        QVERIFY(isEmpty(create(hints)));
    }
    QCOMPARE(calls, 0);
}

void EditorFromHintsTest::unregisteringBringsTheBuiltInBack()
{
    registerEditor("lineedit", [](QWidget*, const HintTree&) { return EditorMetaData(); });
    QVERIFY(isEmpty(create(lineEditHints("int"))));
    unregisterEditor("lineedit");
    QVERIFY(lineEdit(create(lineEditHints("int"))) != nullptr);
}

void EditorFromHintsTest::unregisteringAnUnknownNameDoesNothing()
{
    unregisterEditor("never registered");
    unregisterEditor("");
    QVERIFY(lineEdit(create(lineEditHints("int"))) != nullptr);
}

void EditorFromHintsTest::emptyCreatorThrows()
{
    registerEditor("own", {});
    HintTree hints;
    put(hints, "editor", std::string("own"));
    QString text;
    try {
        create(hints);
    } catch (const boost::bad_function_call& e) {
        text = QString::fromUtf8(e.what());
    }
    QCOMPARE(text, QStringLiteral("call to empty boost::function"));
}

void EditorFromHintsTest::creatorMayUnregisterItself()
{
    registerEditor("own", [name = std::string("own")](QWidget* parent, const HintTree&) {
        unregisterEditor(name);
        EditorMetaData data;
        data.editor = new QWidget(parent);
        data.editor->setObjectName(QString::fromStdString(name));
        return data;
    });
    HintTree hints;
    put(hints, "editor", std::string("own"));
    QCOMPARE(create(hints).editor->objectName(), QStringLiteral("own"));
    QVERIFY(isEmpty(create(hints)));
}

void EditorFromHintsTest::optionalWidgetBase()
{
    OptionalMultiEditWidgetBase widget(m_parent.get());
    QCOMPARE(widget.parentWidget(), m_parent.get());
    QVERIFY(!widget.isWindow());
    const QMetaObject& meta = OptionalMultiEditWidgetBase::staticMetaObject;
    QCOMPARE(meta.className(), "zel::qt::OptionalMultiEditWidgetBase");
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    const QMetaMethod signal = meta.method(meta.methodOffset());
    QCOMPARE(signal.methodSignature(), QByteArray("valueChanged()"));
    QCOMPARE(int(signal.methodType()), int(QMetaMethod::Signal));
    int calls = 0;
    const OnValueChangedHook hook(&widget, [&calls] { ++calls; });
    Q_EMIT widget.valueChanged();
    QCOMPARE(calls, 1);
}

QTEST_MAIN(EditorFromHintsTest)
#include "tst_editor_from_hints.moc"
