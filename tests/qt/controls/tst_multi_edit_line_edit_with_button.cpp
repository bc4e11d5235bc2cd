#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/multi_edit_steps.h"
#include "tests/helpers/number_validator.h"
#include "tests/helpers/word_translator.h"

#include <QBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QToolButton>

#include <functional>
#include <memory>

using namespace zel::qt;
using zel::test::answer;
using zel::test::NumberValidator;

namespace {

using ValueHandler = std::function<void(QWidget*, int, boost::any&)>;
using ResetFn = std::function<void(int, boost::any&, boost::any&)>;

/// A field whose subclass hears of each value that is set.
template <class Field>
struct CountsSets : Field
{
    using Field::Field;
    void setValue(const boost::any& value) override
    {
        ++sets;
        Field::setValue(value);
    }
    int sets = 0;
};

} // namespace

class MultiEditLineEditWithButtonTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void buttonStandsBehindTheUnit();
    void validatorIsOwned();
    void plainHandlerGetsTheId();
    void valueHandlerFillsTheField();
    void valueHandlerThatLeavesTheValueEmpty();
    void buttonGoesThroughSetValue();
    void emptyHandlerThrows();
    void handlerMayDeleteTheField_data();
    void handlerMayDeleteTheField();

    void resetButtonStandsBehindTheUnit();
    void tooltipIsTranslated();
    void resetShowsAndGives();
    void resetIsDoneWhenItIsTold();
    void resetFunctionGetsEmptyValues();
    void resetOfAVaryingField();
    void onlyTypingEndsAReset_data();
    void onlyTypingEndsAReset();
    void varyingFieldHasNoResetValue();
    void resetToNoValue();
    void resetWhileLoadingIsTold();
    void emptyResetFunctionThrows();

    void configurationIsEmptyAtFirst();
    void configurationKeepsHandlerAndIcon();
    void configurationDropsTheWidget();
    void configurationIsCopiedAndMoved();
};

void MultiEditLineEditWithButtonTest::buttonStandsBehindTheUnit()
{
    MultiEditLineEditWithButton field(new NumberValidator, 3, [](int) {});
    QToolButton* const button = field.getButton();
    QVERIFY(button != nullptr);
    QCOMPARE(button->objectName(), QStringLiteral("m_btn"));
    QCOMPARE(button->parentWidget(), &field);
    QVERIFY(field.parent() == nullptr);
    QVERIFY(qobject_cast<QHBoxLayout*>(field.layout()) != nullptr);
    QCOMPARE(field.layout()->contentsMargins(), QMargins());
    QCOMPARE(field.layout()->spacing(), 0);
    QCOMPARE(field.layout()->count(), 3);
    QCOMPARE(field.layout()->itemAt(0)->widget(), &field.edit());
    QCOMPARE(field.layout()->itemAt(2)->widget(), button);
    QCOMPARE(field.styleSheet(), QString());
}

void MultiEditLineEditWithButtonTest::validatorIsOwned()
{
    for (const bool withReset : {false, true}) {
        bool destroyed = false;
        auto* validator = new NumberValidator;
        validator->destroyed = &destroyed;
        if (withReset) {
            const MultiEditLineEditWithResetButton field(validator, 0, ResetFn());
        } else {
            const MultiEditLineEditWithButton field(validator, 0, std::function<void(int)>());
        }
        QVERIFY(destroyed);
    }
}

void MultiEditLineEditWithButtonTest::plainHandlerGetsTheId()
{
    QList<int> ids;
    MultiEditLineEditWithButton field(new NumberValidator, 42, [&ids](int id) { ids << id; });
    field.setValue(1.0);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(field.getButton(), Qt::LeftButton);
    QCOMPARE(ids, QList<int>{42});
    QCOMPARE(changed.count(), 0);
    QCOMPARE(field.edit().text(), QStringLiteral("1.000"));
}

void MultiEditLineEditWithButtonTest::valueHandlerFillsTheField()
{
    QWidget* givenWidget = nullptr;
    int givenId = 0;
    bool givenEmpty = false;
    MultiEditLineEditWithButton field(new NumberValidator, -7,
                                      [&](QWidget* widget, int id, boost::any& value) {
                                          givenWidget = widget;
                                          givenId = id;
                                          givenEmpty = value.empty();
                                          value = 2.5;
                                      });
    field.readValue(1.0);
    field.readValue(2.0);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    const QSignalSpy finished(&field.edit(), &QLineEdit::editingFinished);
    QTest::mouseClick(field.getButton(), Qt::LeftButton);
    QCOMPARE(givenWidget, &field);
    QCOMPARE(givenId, -7);
    QVERIFY(givenEmpty);
    QCOMPARE(field.edit().text(), QStringLiteral("2.500"));
    QCOMPARE(answer(field), QStringLiteral("one 2.5"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(finished.count(), 0);
}

void MultiEditLineEditWithButtonTest::valueHandlerThatLeavesTheValueEmpty()
{
    MultiEditLineEditWithButton field(new NumberValidator(NumberValidator::EmptyAllowed), 0,
                                      [](QWidget*, int, boost::any&) {});
    field.setValue(1.0);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(field.getButton(), Qt::LeftButton);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(field.edit().text(), QString());
    QCOMPARE(answer(field), QStringLiteral("one -"));
}

void MultiEditLineEditWithButtonTest::buttonGoesThroughSetValue()
{
    CountsSets<MultiEditLineEditWithButton> field(
        new NumberValidator, 0, [](QWidget*, int, boost::any& value) { value = 1.0; });
    field.getButton()->click();
    QCOMPARE(field.sets, 1);
    CountsSets<MultiEditLineEditWithResetButton> withReset(
        new NumberValidator, 0, [](int, boost::any& shown, boost::any&) { shown = 1.0; });
    withReset.findChild<QToolButton*>()->click();
    QCOMPARE(withReset.sets, 1);
}

void MultiEditLineEditWithButtonTest::emptyHandlerThrows()
{
    // The signal is sent directly: the gesture does not survive an exception without a leak.
    MultiEditLineEditWithButton plain(new NumberValidator, 0, std::function<void(int)>());
    QVERIFY_EXCEPTION_THROWN(plain.getButton()->clicked(), std::bad_function_call);
    MultiEditLineEditWithButton filling(new NumberValidator, 0, ValueHandler());
    filling.setValue(1.0);
    QVERIFY_EXCEPTION_THROWN(filling.getButton()->clicked(), std::bad_function_call);
    QCOMPARE(filling.edit().text(), QStringLiteral("1.000"));
}

void MultiEditLineEditWithButtonTest::handlerMayDeleteTheField_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"plain", "value", "reset"}) {
        QTest::newRow(kind) << kind;
    }
}

void MultiEditLineEditWithButtonTest::handlerMayDeleteTheField()
{
    // A dialog that the handler opens lets the host go on, which may take the panel away.
    QFETCH(QString, kind);
    QPointer<MultiEditLineEdit> field;
    int calls = 0;
    const auto remove = [&] {
        ++calls;
        delete field;
    };
    if (kind == QLatin1String("plain")) {
        field = new MultiEditLineEditWithButton(new NumberValidator, 0, [=](int) { remove(); });
    } else if (kind == QLatin1String("value")) {
        field = new MultiEditLineEditWithButton(new NumberValidator, 0,
                                                [=](QWidget*, int, boost::any& value) {
                                                    remove();
                                                    value = 1.0;
                                                });
    } else {
        field = new MultiEditLineEditWithResetButton(new NumberValidator, 0,
                                                     [=](int, boost::any& shown, boost::any&) {
                                                         remove();
                                                         shown = 1.0;
                                                     });
    }
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(field->findChild<QToolButton*>(), Qt::LeftButton);
    QVERIFY(!field);
    QCOMPARE(calls, 1);
    QCOMPARE(changed.count(), 0);
}

void MultiEditLineEditWithButtonTest::resetButtonStandsBehindTheUnit()
{
    MultiEditLineEditWithResetButton field(new NumberValidator, 0, ResetFn());
    const auto buttons = field.findChildren<QToolButton*>();
    QCOMPARE(buttons.size(), 1);
    QCOMPARE(buttons[0]->objectName(), QStringLiteral("btn"));
    QCOMPARE(buttons[0]->toolTip(), QStringLiteral("Reset to default."));
    QCOMPARE(buttons[0]->icon().pixmap(16, 16).toImage(),
             Pixmap::createOrDefault(L"control_repeat_blue.png").toImage());
    QVERIFY(Pixmap::create(L"control_repeat_blue.png"));
    QCOMPARE(field.layout()->contentsMargins(), QMargins());
    QCOMPARE(field.layout()->spacing(), 0);
    QCOMPARE(field.layout()->itemAt(2)->widget(), buttons[0]);
    QVERIFY(qobject_cast<QHBoxLayout*>(field.layout()) != nullptr);
}

void MultiEditLineEditWithButtonTest::tooltipIsTranslated()
{
    const zel::test::WordTranslator translator(
        "QObject", "Reset to default.", "makeLineEditWithOptionalValue", QStringLiteral("Vorgabe"));
    MultiEditLineEditWithResetButton field(new NumberValidator, 0, ResetFn());
    QCOMPARE(field.findChild<QToolButton*>()->toolTip(), QStringLiteral("Vorgabe"));
}

void MultiEditLineEditWithButtonTest::resetShowsAndGives()
{
    MultiEditLineEditWithResetButton field(new NumberValidator, 9,
                                           [](int id, boost::any& shown, boost::any& result) {
                                               shown = double(id);
                                               result = -1.0;
                                           });
    field.setValue(5.0);
    QCOMPARE(answer(field), QStringLiteral("one 5"));
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(field.findChild<QToolButton*>(), Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(field.edit().text(), QStringLiteral("9.000"));
    QCOMPARE(answer(field), QStringLiteral("one -1"));
    // One typed character makes it the typed value again.
    QTest::keyClicks(&field.edit(), QStringLiteral("5"));
    QCOMPARE(field.edit().text(), QStringLiteral("9.0005"));
    QCOMPARE(answer(field), QStringLiteral("one 9.0005"));
    QCOMPARE(changed.count(), 1);
    QTest::keyClick(&field.edit(), Qt::Key_Return);
    QCOMPARE(changed.count(), 2);
}

void MultiEditLineEditWithButtonTest::resetIsDoneWhenItIsTold()
{
    // A listener writes what it is answered to the objects.
    MultiEditLineEditWithResetButton field(new NumberValidator, 0,
                                           [](int, boost::any& shown, boost::any& result) {
                                               shown = 1.0;
                                               result = -1.0;
                                           });
    field.setValue(5.0);
    QStringList heard;
    connect(&field.edit(), &QLineEdit::textChanged, &field,
            [&](const QString& text) { heard.append("shows " + text + ", " + answer(field)); });
    connect(&field, &SimpleLineEdit::valueChanged, &field,
            [&] { heard.append("changed " + field.edit().text() + ", " + answer(field)); });
    QTest::mouseClick(field.findChild<QToolButton*>(), Qt::LeftButton);
    QCOMPARE(heard, (QStringList{"shows 1.000, one -1", "changed 1.000, one -1"}));
}

void MultiEditLineEditWithButtonTest::resetFunctionGetsEmptyValues()
{
    int calls = 0;
    MultiEditLineEditWithResetButton field(new NumberValidator, 0,
                                           [&calls](int, boost::any& shown, boost::any& result) {
                                               ++calls;
                                               QVERIFY(shown.empty());
                                               QVERIFY(result.empty());
                                               shown = 1.0;
                                               result = 2.0;
                                           });
    field.findChild<QToolButton*>()->click();
    field.findChild<QToolButton*>()->click();
    QCOMPARE(calls, 2);
}

void MultiEditLineEditWithButtonTest::resetOfAVaryingField()
{
    MultiEditLineEditWithResetButton field(new NumberValidator, 0,
                                           [](int, boost::any& shown, boost::any& result) {
                                               shown = 1.0;
                                               result = 2.0;
                                           });
    field.readValue(3.0);
    field.readValue(4.0);
    QVERIFY(field.dataVaries());
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    field.findChild<QToolButton*>()->click();
    QCOMPARE(field.edit().text(), QStringLiteral("1.000"));
    QCOMPARE(answer(field), QStringLiteral("one 2"));
    QCOMPARE(changed.count(), 1);
}

void MultiEditLineEditWithButtonTest::onlyTypingEndsAReset_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("expected");
    QTest::newRow("setValue") << "set"
                              << "one -1";
    QTest::newRow("reset and readValue") << "read"
                                         << "one -1";
    QTest::newRow("end of editing") << "return"
                                    << "one -1";
    QTest::newRow("text set by the host") << "setText"
                                          << "one -1";
    QTest::newRow("typing") << "type"
                            << "one 9";
    QTest::newRow("typing a bad text") << "type bad"
                                       << "one -";
}

void MultiEditLineEditWithButtonTest::onlyTypingEndsAReset()
{
    QFETCH(QString, what);
    MultiEditLineEditWithResetButton field(new NumberValidator, 0,
                                           [](int, boost::any& shown, boost::any& result) {
                                               shown = 1.0;
                                               result = -1.0;
                                           });
    field.findChild<QToolButton*>()->click();
    if (what == QLatin1String("set")) {
        field.setValue(4.0);
    } else if (what == QLatin1String("read")) {
        field.reset();
        field.readValue(4.0);
        field.readValue(4.0);
        QCOMPARE(field.edit().text(), QStringLiteral("4.000"));
    } else if (what == QLatin1String("return")) {
        QTest::keyClick(&field.edit(), Qt::Key_Return);
    } else if (what == QLatin1String("setText")) {
        field.edit().setText(QStringLiteral("9"));
    } else {
        field.edit().selectAll();
        QTest::keyClicks(&field.edit(),
                         what == QLatin1String("type") ? QStringLiteral("9") : QStringLiteral("x"));
    }
    QTEST(answer(field), "expected");
}

void MultiEditLineEditWithButtonTest::varyingFieldHasNoResetValue()
{
    MultiEditLineEditWithResetButton field(new NumberValidator, 0,
                                           [](int, boost::any& shown, boost::any& result) {
                                               shown = 1.0;
                                               result = -1.0;
                                           });
    field.findChild<QToolButton*>()->click();
    field.forceVaries();
    QCOMPARE(answer(field), QStringLiteral("varies -"));
    field.setValue(3.0);
    QCOMPARE(answer(field), QStringLiteral("one -1"));
}

void MultiEditLineEditWithButtonTest::resetToNoValue()
{
    MultiEditLineEditWithResetButton field(new NumberValidator(NumberValidator::EmptyAllowed), 0,
                                           [](int, boost::any& shown, boost::any& result) {
                                               result = boost::any();
                                               shown = result;
                                           });
    field.setValue(5.0);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QTest::mouseClick(field.findChild<QToolButton*>(), Qt::LeftButton);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(field.edit().text(), QString());
    QCOMPARE(answer(field), QStringLiteral("one -"));
    QVERIFY(field.isValueValid());
}

void MultiEditLineEditWithButtonTest::resetWhileLoadingIsTold()
{
    MultiEditLineEditWithResetButton field(
        new NumberValidator, 0,
        [](int, boost::any& shown, boost::any& result) { shown = result = 1.0; });
    field.setLoading(true);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    field.findChild<QToolButton*>()->click();
    QCOMPARE(changed.count(), 1); // the signals are blocked within setValue() only
}

void MultiEditLineEditWithButtonTest::emptyResetFunctionThrows()
{
    MultiEditLineEditWithResetButton field(new NumberValidator, 0, ResetFn());
    field.setValue(5.0);
    const QSignalSpy changed(&field, &SimpleLineEdit::valueChanged);
    QVERIFY_EXCEPTION_THROWN(field.findChild<QToolButton*>()->clicked(), std::bad_function_call);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(answer(field), QStringLiteral("one 5"));
}

void MultiEditLineEditWithButtonTest::configurationIsEmptyAtFirst()
{
    const ButtonConfiguration configuration;
    QVERIFY(!configuration.getBtnHandler());
    QVERIFY(configuration.getIcon().isNull());
}

void MultiEditLineEditWithButtonTest::configurationKeepsHandlerAndIcon()
{
    ButtonConfiguration configuration;
    QWidget* given = nullptr;
    configuration.setBtnHandler([&given](QWidget* widget, boost::any& value) {
        given = widget;
        value = 1;
        return true;
    });
    QPixmap red(4, 4);
    red.fill(Qt::red);
    configuration.setIcon(QIcon(red));
    QWidget widget;
    boost::any value;
    QVERIFY(configuration.getBtnHandler()(&widget, value));
    QCOMPARE(given, &widget);
    QCOMPARE(boost::any_cast<int>(value), 1);
    QCOMPARE(configuration.getIcon().pixmap(4, 4).toImage(), red.toImage());
    configuration.setIcon(QIcon());
    QVERIFY(configuration.getIcon().isNull());
}

void MultiEditLineEditWithButtonTest::configurationDropsTheWidget()
{
    ButtonConfiguration configuration;
    configuration.setBtnHandler([](boost::any& value) {
        value = 2;
        return false;
    });
    boost::any value;
    QVERIFY(configuration.getBtnHandler());
    QVERIFY(!configuration.getBtnHandler()(nullptr, value));
    QCOMPARE(boost::any_cast<int>(value), 2);
}

void MultiEditLineEditWithButtonTest::configurationIsCopiedAndMoved()
{
    ButtonConfiguration original;
    original.setBtnHandler([](boost::any&) { return true; });
    const ButtonConfiguration copy = original;
    boost::any value;
    QVERIFY(copy.getBtnHandler()(nullptr, value));
    QVERIFY(original.getBtnHandler()(nullptr, value));
    const ButtonConfiguration moved = std::move(original);
    QVERIFY(moved.getBtnHandler()(nullptr, value));
}

QTEST_MAIN(MultiEditLineEditWithButtonTest)
#include "tst_multi_edit_line_edit_with_button.moc"
