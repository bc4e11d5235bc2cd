#include "qt/inc/controls.h"
#include "qt/inc/factories.h"
#include "qt/inc/validators.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/any_compare.h"
#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>
#include <stdexcept>

using namespace zel::qt;
using boost::property_tree::ptree_bad_path;
using zel::test::equalInts;
using zel::test::runDeferred;
using Quantity = zel::units::v1::IConverter::quantity;

namespace {

using EqualFn = bool (*)(const boost::any&, const boost::any&);
using ResetFn = std::function<void(int, boost::any&, boost::any&)>;
using CallbackFn = std::function<bool(QWidget*, boost::any&)>;

const ValidatorKey doubleKey(typeid(double), "");
const ValidatorKey quantityKey(typeid(Quantity), "");
const ValidatorKey countedKey(typeid(int), "counted");

/// Counts its instances, to see that nothing is left behind.
class Counted : public IntegerValidator<int>
{
public:
    Counted()
        : IntegerValidator(0, 100, true)
    {
        ++alive;
    }
    ~Counted() override
    {
        --alive;
    }
    static int alive;
};

int Counted::alive = 0;

void put(HintTree& hints, const char* path, const boost::any& value)
{
    hints.put_child(path, HintTree(value));
}

/// The library's validators, one of quantities and one that counts its instances.
std::shared_ptr<DefaultValidatorFactory> validators()
{
    auto factory = std::make_shared<DefaultValidatorFactory>();
    factory->add(quantityKey, [](const HintTree&) {
        return std::make_unique<UnitValidator>(zel::units::v1::Context(0),
                                               zel::units::UnitId(1001));
    });
    factory->add(countedKey, [](const HintTree&) { return std::make_unique<Counted>(); });
    return factory;
}

HintTree hintsFor(const ValidatorKey& kind)
{
    HintTree hints;
    put(hints, "validator.kind", kind);
    return hints;
}

HintTree namedHints()
{
    HintTree hints;
    put(hints, "entries", NamedValueList{{"one", 1}, {"two", 2}});
    put(hints, "is_equal", EqualFn(&equalInts));
    return hints;
}

/// The editor together with its widget, which the test owns.
struct Built
{
    explicit Built(std::unique_ptr<Editor> built)
        : editor(std::move(built))
        , widget(editor ? editor->widget : nullptr)
    {}
    Built(Built&&) = default;

    MultiEditLineEdit* lineEdit() const
    {
        return dynamic_cast<MultiEditLineEdit*>(widget.get());
    }
    MultiEditEnumBox* enumBox() const
    {
        return dynamic_cast<MultiEditEnumBox*>(widget.get());
    }
    bool hasResetButton() const
    {
        return dynamic_cast<MultiEditLineEditWithResetButton*>(widget.get()) != nullptr;
    }
    QComboBox* combo() const
    {
        return widget->findChild<QComboBox*>();
    }

    std::unique_ptr<Editor> editor;
    std::unique_ptr<QWidget> widget;
};

/// Replaces the text as a user would and ends the editing.
void enter(QLineEdit& edit, const QString& text)
{
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
}

double number(const boost::any& value)
{
    return boost::any_cast<double>(value);
}

} // namespace

class EditorFactoryTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void knowsItsSixKinds_data();
    void knowsItsSixKinds();
    void addRefusesADuplicate();
    void unknownKindThrows();
    void emptyBuilderThrows();
    void plainTable();

    void lineEditWithAValidator();
    void lineEditWithoutAValidator_data();
    void lineEditWithoutAValidator();
    void validatorGetsItsSubtree();
    void unknownValidatorThrows_data();
    void unknownValidatorThrows();
    void optionalLineEditHasAResetButton();
    void oneFlagChoosesTheWidgetAndTheEmptyValue();

    void unitEditKeepsAUnitValidator();
    void unitEditDropsOtherValidators();
    void optionalUnitEdit();

    void namedValues();
    void namedValuesNeedBothHints_data();
    void namedValuesNeedBothHints();
    void editableNamedValues();
    void editableNamedValuesWithoutAValidator();
    void validatorIsForEditableOnly();
    void namedValuesWithPixmaps();

    void yesNo();

    void resetButtonCallsItsFunction();
    void resetButtonNeedsItsFunction();

    void callbackRunsOnTheNextTurn();
    void callbackThatAnswersFalse();
    void callbackWhoseWidgetIsGone();
    void callbackNeedsBothHints_data();
    void callbackNeedsBothHints();

    void otherTypesThrowAndLeaveNothing_data();
    void otherTypesThrowAndLeaveNothing();

    void copyKeepsAskingTheFirst();
    void movedFromFactoryStaysUsable();
    void assignedFactories();
};

void EditorFactoryTest::knowsItsSixKinds_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("lineedit") << true;
    QTest::newRow("unit") << true;
    QTest::newRow("named_value_list") << true;
    QTest::newRow("yes_no") << true;
    QTest::newRow("multi_edit_line_edit_with_reset_button") << true;
    QTest::newRow("callback") << true;
    QTest::newRow("enumbox") << false;
    QTest::newRow("Lineedit") << false;
    QTest::newRow("") << false;
}

void EditorFactoryTest::knowsItsSixKinds()
{
    const DefaultEditorFactory factory(nullptr);
    QTEST(factory.exists(QTest::currentDataTag()), "exists");
}

void EditorFactoryTest::addRefusesADuplicate()
{
    DefaultEditorFactory factory(nullptr);
    QString what;
    try {
        factory.add("lineedit", EditorBuilder());
    } catch (const std::logic_error& e) {
        what = e.what();
    }
    QCOMPARE(what, QString("duplicate key"));
    QVERIFY(Built(factory.create("lineedit", HintTree())).lineEdit() != nullptr);

    factory.add("mine", [](const HintTree&) { return std::make_unique<Editor>(); });
    QVERIFY(factory.exists("mine"));
    QVERIFY(factory.create("mine", HintTree())->widget == nullptr);
}

void EditorFactoryTest::unknownKindThrows()
{
    const DefaultEditorFactory factory(nullptr);
    QVERIFY_EXCEPTION_THROWN(factory.create("enumbox", HintTree()), std::out_of_range);
}

void EditorFactoryTest::emptyBuilderThrows()
{
    DefaultEditorFactory factory(nullptr);
    factory.add("mine", EditorBuilder());
    QVERIFY_EXCEPTION_THROWN(factory.create("mine", HintTree()), std::bad_function_call);
}

void EditorFactoryTest::plainTable()
{
    EditorFactory factory;
    QVERIFY(!factory.exists("lineedit"));
    const HintTree* seen = nullptr;
    factory.add("mine", [&](const HintTree& hints) {
        seen = &hints;
        return nullptr;
    });
    const HintTree hints;
    QVERIFY(factory.create("mine", hints) == nullptr);
    QVERIFY(seen == &hints);
}

void EditorFactoryTest::lineEditWithAValidator()
{
    const DefaultEditorFactory factory(validators());
    const Built built(factory.create("lineedit", hintsFor(doubleKey)));
    MultiEditLineEdit* const edit = built.lineEdit();
    QVERIFY(edit != nullptr);
    QVERIFY(!built.hasResetButton());
    QVERIFY(built.editor->control == edit);
    QVERIFY(edit->parent() == nullptr);
    QVERIFY(dynamic_cast<QHBoxLayout*>(edit->layout()) != nullptr);
    // No style flags: the edit keeps its border.
    QCOMPARE(edit->edit().styleSheet(), QString());
    built.editor->control->setValue(2.5);
    QCOMPARE(edit->edit().text(), QString("2.500"));
    const QSignalSpy changed(edit, &SimpleLineEdit::valueChanged);
    enter(edit->edit(), "7");
    QCOMPARE(changed.count(), 1);
    QCOMPARE(number(built.editor->control->getCurrentValue()), 7.0);
}

void EditorFactoryTest::lineEditWithoutAValidator_data()
{
    QTest::addColumn<bool>("factory");
    QTest::addColumn<int>("hints");
    QTest::newRow("no validator factory") << false << 2;
    QTest::newRow("no node") << true << 0;
    QTest::newRow("no kind") << true << 1;
}

void EditorFactoryTest::lineEditWithoutAValidator()
{
    QFETCH(bool, factory);
    QFETCH(int, hints);
    HintTree tree;
    if (hints == 1) {
        put(tree, "validator.minimum", 1.0);
    } else if (hints == 2) {
        tree = hintsFor(ValidatorKey(typeid(long), ""));
    }
    const DefaultEditorFactory editors(factory ? validators() : nullptr);
    for (const char* kind : {"lineedit", "unit"}) {
        const Built built(editors.create(kind, tree));
        MultiEditLineEdit* const edit = built.lineEdit();
        QVERIFY(edit != nullptr);
        const QSignalSpy changed(edit, &SimpleLineEdit::valueChanged);
        enter(edit->edit(), "anything");
        QCOMPARE(changed.count(), 1);
        QCOMPARE(edit->edit().text(), QString("anything"));
        QVERIFY(edit->isValueValid());
    }
}

void EditorFactoryTest::validatorGetsItsSubtree()
{
    auto factory = validators();
    const HintTree* seen = nullptr;
    factory->add("mine", [&](const HintTree& hints) {
        seen = &hints;
        return std::make_unique<StringEditValidator>(5);
    });
    HintTree hints = hintsFor(ValidatorKey(typeid(std::string), "mine"));
    put(hints, "validator.max_length", 3);
    const DefaultEditorFactory editors(factory);
    const Built built(editors.create("lineedit", hints));
    QVERIFY(seen == &hints.get_child("validator"));
}

void EditorFactoryTest::unknownValidatorThrows_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("lineedit") << "lineedit";
    QTest::newRow("unit") << "unit";
    QTest::newRow("reset button") << "multi_edit_line_edit_with_reset_button";
    QTest::newRow("editable list") << "named_value_list";
}

void EditorFactoryTest::unknownValidatorThrows()
{
    QFETCH(QString, kind);
    HintTree hints = namedHints();
    put(hints, "editable", true);
    put(hints, "validator.kind", ValidatorKey(typeid(long), ""));
    put(hints, "reset_callback", ResetFn([](int, boost::any&, boost::any&) {}));
    const DefaultEditorFactory editors(validators());
    QVERIFY_EXCEPTION_THROWN(editors.create(kind.toStdString(), hints), std::out_of_range);
}

void EditorFactoryTest::optionalLineEditHasAResetButton()
{
    const DefaultEditorFactory factory(validators());
    HintTree hints = hintsFor(doubleKey);
    put(hints, "validator.optional", true);
    const Built built(factory.create("lineedit", hints));
    QVERIFY(built.hasResetButton());
    MultiEditLineEdit* const edit = built.lineEdit();
    QVERIFY(built.editor->control == edit);
    QVERIFY(edit->parent() == nullptr);
    built.editor->control->setValue(2.5);
    const auto buttons = edit->findChildren<QToolButton*>();
    QCOMPARE(buttons.size(), 1);
    const QSignalSpy changed(edit, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(buttons[0], Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(edit->edit().text(), QString());
    QVERIFY(!built.editor->control->dataVaries());
    QVERIFY(built.editor->control->getCurrentValue().empty());
}

void EditorFactoryTest::oneFlagChoosesTheWidgetAndTheEmptyValue()
{
    const DefaultEditorFactory factory(validators());
    for (const bool optional : {false, true}) {
        HintTree hints = hintsFor(doubleKey);
        put(hints, "validator.optional", optional);
        const Built built(factory.create("lineedit", hints));
        QCOMPARE(built.hasResetButton(), optional);
        enter(built.lineEdit()->edit(), "");
        QCOMPARE(built.editor->control->getCurrentValue().empty(), optional);
    }
}

void EditorFactoryTest::unitEditKeepsAUnitValidator()
{
    const DefaultEditorFactory factory(validators());
    const Built built(factory.create("unit", hintsFor(quantityKey)));
    QVERIFY(!built.hasResetButton());
    enter(built.lineEdit()->edit(), "250 cm");
    QCOMPARE(built.lineEdit()->edit().text(), QString("2.500 m"));
    const auto quantity = boost::any_cast<Quantity>(built.editor->control->getCurrentValue());
    QCOMPARE(int(quantity.unit_id), 1001);
    QCOMPARE(quantity.value, 2.5);
}

void EditorFactoryTest::unitEditDropsOtherValidators()
{
    const DefaultEditorFactory factory(validators());
    const Built built(factory.create("unit", hintsFor(doubleKey)));
    enter(built.lineEdit()->edit(), "no number");
    QVERIFY(built.lineEdit()->isValueValid());
    QCOMPARE(built.lineEdit()->edit().text(), QString("no number"));

    const Built other(factory.create("unit", hintsFor(countedKey)));
    QCOMPARE(Counted::alive, 0);
}

void EditorFactoryTest::optionalUnitEdit()
{
    const DefaultEditorFactory factory(validators());
    HintTree hints = hintsFor(quantityKey);
    put(hints, "validator.optional", true);
    const Built built(factory.create("unit", hints));
    QVERIFY(built.hasResetButton());
}

void EditorFactoryTest::namedValues()
{
    const DefaultEditorFactory factory(validators());
    const Built built(factory.create("named_value_list", namedHints()));
    QVERIFY(built.enumBox() != nullptr);
    QVERIFY(built.editor->control == built.enumBox());
    QVERIFY(built.widget->parent() == nullptr);
    QCOMPARE(int(built.combo()->sizeAdjustPolicy()), 2);
    QVERIFY(!built.combo()->isEditable());
    QCOMPARE(built.combo()->count(), 2);
    built.editor->control->setValue(2);
    QCOMPARE(built.combo()->currentText(), QString("two"));
    QCOMPARE(boost::any_cast<int>(built.editor->control->getCurrentValue()), 2);
    QVERIFY(built.combo()->itemIcon(0).isNull());
}

void EditorFactoryTest::namedValuesNeedBothHints_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("entries") << "entries";
    QTest::newRow("is_equal") << "is_equal";
}

void EditorFactoryTest::namedValuesNeedBothHints()
{
    QFETCH(QString, missing);
    HintTree hints = namedHints();
    hints.erase(missing.toStdString());
    const DefaultEditorFactory factory(validators());
    QVERIFY(factory.create("named_value_list", hints) == nullptr);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("nvl && equal_fn"));
    QCOMPARE(reports[0].file, std::string("qt/src/default_editor_factory.cpp"));
}

void EditorFactoryTest::editableNamedValues()
{
    const DefaultEditorFactory factory(validators());
    HintTree hints = namedHints();
    put(hints, "editable", true);
    put(hints, "validator.kind", countedKey);
    {
        Built built(factory.create("named_value_list", hints));
        QCOMPARE(Counted::alive, 1);
        QVERIFY(built.combo()->isEditable());
        // The parent that the editor gets takes the edit over as well.
        QWidget window;
        built.widget->setParent(&window);
        QVERIFY(zel::test::showActive(window));
        built.widget.release();
        MultiEditControlBase& control = *built.editor->control;
        control.setValue(55);
        QCOMPARE(boost::any_cast<int>(control.getCurrentValue()), 55);
    }
    QCOMPARE(Counted::alive, 0);
}

void EditorFactoryTest::editableNamedValuesWithoutAValidator()
{
    HintTree hints = namedHints();
    put(hints, "editable", true);
    put(hints, "validator.kind", doubleKey);
    const DefaultEditorFactory factory(nullptr);
    const Built built(factory.create("named_value_list", hints));
    QVERIFY(built.combo()->isEditable());
    built.editor->control->setValue(2);
    QCOMPARE(boost::any_cast<int>(built.editor->control->getCurrentValue()), 2);
}

void EditorFactoryTest::validatorIsForEditableOnly()
{
    HintTree hints = namedHints();
    put(hints, "validator.kind", ValidatorKey(typeid(long), ""));
    const DefaultEditorFactory factory(validators());
    const Built built(factory.create("named_value_list", hints));
    QVERIFY(!built.combo()->isEditable());
}

void EditorFactoryTest::namedValuesWithPixmaps()
{
    HintTree hints = namedHints();
    auto pixmap = boost::shared_ptr<QPixmap>(new QPixmap(8, 8));
    pixmap->fill(Qt::red);
    put(hints, "pixmaps", PixmapPtrList{nullptr, pixmap});
    const DefaultEditorFactory factory(validators());
    const Built built(factory.create("named_value_list", hints));
    QVERIFY(built.combo()->itemIcon(0).isNull());
    QCOMPARE(built.combo()->itemIcon(1).pixmap(8, 8).toImage(), pixmap->toImage());
}

void EditorFactoryTest::yesNo()
{
    const DefaultEditorFactory factory(nullptr);
    HintTree hints;
    put(hints, "entries", 5);
    const Built built(factory.create("yes_no", hints));
    QVERIFY(built.enumBox() != nullptr);
    QVERIFY(built.editor->control == built.enumBox());
    QVERIFY(built.widget->parent() == nullptr);
    QCOMPARE(built.combo()->count(), 2);
    QCOMPARE(built.combo()->itemText(0), QString("Yes"));
    QCOMPARE(built.combo()->itemText(1), QString("No"));
    QCOMPARE(boost::any_cast<bool>(built.editor->control->getCurrentValue()), true);
    built.editor->control->setValue(false);
    QCOMPARE(built.combo()->currentText(), QString("No"));
    QCOMPARE(boost::any_cast<bool>(built.editor->control->getCurrentValue()), false);
    built.editor->control->reset();
    built.editor->control->readValue(true);
    built.editor->control->readValue(false);
    QVERIFY(built.editor->control->dataVaries());
}

void EditorFactoryTest::resetButtonCallsItsFunction()
{
    HintTree hints = hintsFor(doubleKey);
    int calls = 0;
    int id = -1;
    put(hints, "reset_callback", ResetFn([&](int given, boost::any& shown, boost::any& value) {
            ++calls;
            id = given;
            shown = 1.5;
            value = 3.5;
        }));
    for (const bool optional : {false, true}) {
        put(hints, "validator.optional", optional);
        const DefaultEditorFactory factory(validators());
        const Built built(factory.create("multi_edit_line_edit_with_reset_button", hints));
        QVERIFY(built.hasResetButton());
        QVERIFY(built.editor->control == built.lineEdit());
        QVERIFY(built.widget->parent() == nullptr);
        calls = 0;
        QTest::mouseClick(built.widget->findChild<QToolButton*>(), Qt::LeftButton);
        QCOMPARE(calls, 1);
        QCOMPARE(id, 0);
        QCOMPARE(built.lineEdit()->edit().text(), QString("1.500"));
        QCOMPARE(number(built.editor->control->getCurrentValue()), 3.5);
    }
}

void EditorFactoryTest::resetButtonNeedsItsFunction()
{
    const DefaultEditorFactory factory(validators());
    QString what;
    try {
        factory.create("multi_edit_line_edit_with_reset_button", hintsFor(countedKey));
    } catch (const ptree_bad_path& e) {
        what = e.what();
    }
    QCOMPARE(what, QString("No such node (reset_callback)"));
    QCOMPARE(Counted::alive, 0);
}

void EditorFactoryTest::callbackRunsOnTheNextTurn()
{
    int calls = 0;
    boost::any given;
    QWidget* shown = nullptr;
    HintTree hints;
    put(hints, "is_equal", EqualFn([](const boost::any& a, const boost::any& b) {
            return !equalInts(a, b); // whether they differ, as MultiEditValue asks
        }));
    put(hints, "callback", CallbackFn([&](QWidget* widget, boost::any& value) {
            ++calls;
            shown = widget;
            given = value;
            value = 8;
            return true;
        }));
    std::unique_ptr<Editor> editor;
    {
        const DefaultEditorFactory factory(nullptr);
        editor = factory.create("callback", hints);
    }
    const std::unique_ptr<MultiEditValue> control(dynamic_cast<MultiEditValue*>(editor->control));
    QVERIFY(control != nullptr);
    const QPointer<QWidget> widget(editor->widget);
    QVERIFY(widget->parent() == nullptr);
    QVERIFY(widget->metaObject() == &QWidget::staticMetaObject);
    QCOMPARE(widget->property("zel_property_delegate_filter_focus_out"), QVariant(true));
    control->setValue(5);
    QCOMPARE(calls, 0);

    runDeferred();
    QCOMPARE(calls, 1);
    QVERIFY(shown == editor->widget);
    QCOMPARE(boost::any_cast<int>(given), 5);
    QCOMPARE(boost::any_cast<int>(control->getCurrentValue()), 8);
    QVERIFY(!control->dataVaries());
    QTRY_VERIFY(widget.isNull());
    runDeferred();
    QCOMPARE(calls, 1);
}

void EditorFactoryTest::callbackThatAnswersFalse()
{
    int calls = 0;
    HintTree hints;
    put(hints, "is_equal", EqualFn(&equalInts));
    put(hints, "callback", CallbackFn([&](QWidget*, boost::any& value) {
            ++calls;
            value = 8;
            return false;
        }));
    const DefaultEditorFactory factory(nullptr);
    const auto editor = factory.create("callback", hints);
    const std::unique_ptr<MultiEditValue> control(dynamic_cast<MultiEditValue*>(editor->control));
    const QPointer<QWidget> widget(editor->widget);
    control->setValue(5);
    runDeferred();
    QCOMPARE(calls, 1);
    QCOMPARE(boost::any_cast<int>(control->getCurrentValue()), 5);
    QTRY_VERIFY(widget.isNull());
}

void EditorFactoryTest::callbackWhoseWidgetIsGone()
{
    int calls = 0;
    HintTree hints;
    put(hints, "is_equal", EqualFn(&equalInts));
    put(hints, "callback", CallbackFn([&](QWidget*, boost::any&) {
            ++calls;
            return true;
        }));
    const DefaultEditorFactory factory(nullptr);
    auto editor = factory.create("callback", hints);
    const std::unique_ptr<MultiEditValue> control(dynamic_cast<MultiEditValue*>(editor->control));
    delete editor->widget;
    editor.reset();
    runDeferred();
    QCOMPARE(calls, 0);
}

void EditorFactoryTest::callbackNeedsBothHints_data()
{
    QTest::addColumn<bool>("callback");
    QTest::addColumn<bool>("isEqual");
    QTest::newRow("neither") << false << false;
    QTest::newRow("no callback") << false << true;
    QTest::newRow("no comparison") << true << false;
}

void EditorFactoryTest::callbackNeedsBothHints()
{
    QFETCH(bool, callback);
    QFETCH(bool, isEqual);
    HintTree hints;
    if (callback) {
        put(hints, "callback", CallbackFn([](QWidget*, boost::any&) { return true; }));
    }
    if (isEqual) {
        put(hints, "is_equal", EqualFn(&equalInts));
    }
    const DefaultEditorFactory factory(nullptr);
    QVERIFY(factory.create("callback", hints) == nullptr);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("callback && equal_fn"));
    QCOMPARE(reports[0].file, std::string("qt/src/default_editor_factory.cpp"));
}

void EditorFactoryTest::otherTypesThrowAndLeaveNothing_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("hint");
    QTest::newRow("lineedit, kind") << "lineedit"
                                    << "validator.kind";
    QTest::newRow("lineedit, optional") << "lineedit"
                                        << "validator.optional";
    QTest::newRow("unit, optional") << "unit"
                                    << "validator.optional";
    QTest::newRow("reset button") << "multi_edit_line_edit_with_reset_button"
                                  << "reset_callback";
    QTest::newRow("entries") << "named_value_list"
                             << "entries";
    QTest::newRow("is_equal") << "named_value_list"
                              << "is_equal";
    QTest::newRow("editable") << "named_value_list"
                              << "editable";
    QTest::newRow("pixmaps") << "named_value_list"
                             << "pixmaps";
    QTest::newRow("callback") << "callback"
                              << "callback";
    QTest::newRow("callback, is_equal") << "callback"
                                        << "is_equal";
}

void EditorFactoryTest::otherTypesThrowAndLeaveNothing()
{
    QFETCH(QString, kind);
    QFETCH(QString, hint);
    HintTree hints = namedHints();
    put(hints, "editable", true);
    put(hints, "validator.kind", countedKey);
    put(hints, "reset_callback", ResetFn([](int, boost::any&, boost::any&) {}));
    put(hints, "callback", CallbackFn([](QWidget*, boost::any&) { return true; }));
    put(hints, hint.toLatin1().constData(), std::string("another type"));
    const DefaultEditorFactory factory(validators());
    QVERIFY_EXCEPTION_THROWN(factory.create(kind.toStdString(), hints), boost::bad_any_cast);
    QCOMPARE(Counted::alive, 0);
}

void EditorFactoryTest::copyKeepsAskingTheFirst()
{
    auto first = std::make_unique<DefaultEditorFactory>(validators());
    const DefaultEditorFactory copy(*first);
    // The copy's own builders are the first factory's: what it shows is that one's validator.
    *first = DefaultEditorFactory(nullptr);
    const Built built(copy.create("lineedit", hintsFor(doubleKey)));
    enter(built.lineEdit()->edit(), "no number");
    QVERIFY(built.lineEdit()->isValueValid());
}

void EditorFactoryTest::movedFromFactoryStaysUsable()
{
    DefaultEditorFactory first(validators());
    const DefaultEditorFactory moved(std::move(first));
    const Built built(moved.create("lineedit", hintsFor(doubleKey)));
    enter(built.lineEdit()->edit(), "3");
    QCOMPARE(number(built.editor->control->getCurrentValue()), 3.0);
    // NOLINTNEXTLINE(bugprone-use-after-move): a move leaves the factory as it is
    QVERIFY(first.exists("lineedit"));
    const Built other(first.create("lineedit", hintsFor(doubleKey)));
    enter(other.lineEdit()->edit(), "4");
    QCOMPARE(number(other.editor->control->getCurrentValue()), 4.0);
}

void EditorFactoryTest::assignedFactories()
{
    DefaultEditorFactory first(validators());
    first.add("mine", [](const HintTree&) { return nullptr; });
    DefaultEditorFactory copied(nullptr);
    copied = first;
    DefaultEditorFactory moved(nullptr);
    moved = std::move(first);
    for (const DefaultEditorFactory* factory : {&copied, &moved}) {
        QVERIFY(factory->exists("mine"));
        const Built built(factory->create("lineedit", hintsFor(doubleKey)));
        enter(built.lineEdit()->edit(), "3");
        QCOMPARE(number(built.editor->control->getCurrentValue()), 3.0);
    }
}

QTEST_MAIN(EditorFactoryTest)
#include "tst_editor_factory.moc"
