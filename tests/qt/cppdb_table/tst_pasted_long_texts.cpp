#include "qt/inc/controls.h"
#include "qt/inc/delegates/roles.h"
#include "qt/inc/table_view.h"
#include "qt/inc/validators.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/typed_table_model.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>

#include <boost/make_shared.hpp>

#include <memory>

using namespace zel::qt;
using zel::test::TypedTableModel;
using zel::units::v1::Context;
using zel::units::v1::IConverter;
using zel::units::v1::UnitId;

/// What somebody pastes by accident, into a cell and into a field of a length: it is refused, or
/// means what a short text of its kind means, and takes a time in proportion to its length. Were it
/// the square of that, a megabyte would not end.
class PastedLongTextsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void intoACell_data();
    void intoACell();
    void intoAField_data();
    void intoAField();

private:
    static void addTexts();
    /// The text of the row with so many characters.
    static QString rowText(int size);
};

namespace {

constexpr int longestPasted = 1'048'576;
constexpr int longestTyped = 32'767; // what a line edit takes

boost::shared_ptr<IValidator> lengthValidator()
{
    return boost::make_shared<UnitValidator>(Context(0), UnitId(1001));
}

QString lengthText(const boost::any& value)
{
    const auto* length = boost::any_cast<IConverter::quantity>(&value);
    return length != nullptr && length->unit_id == 1001 ? QString::number(length->value)
                                                        : QStringLiteral("none");
}

} // namespace

void PastedLongTextsTest::addTexts()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("repeated");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("length"); ///< in metres
    const auto row = [](const char* tag, const char* before, const char* repeated,
                        const char* after, const char* length) {
        QTest::newRow(tag) << before << repeated << after << length;
    };
    row("blanks", "", " ", "", "none");
    row("blanks between number and unit", "2.5", " ", "cm", "0.025");
    row("zeros", "", "0", "25 cm", "0.25");
    row("letters", "", "m", "", "none");
    row("points", "", ".", "", "0");
    row("fractions", "", "1/1 ", "", "none");
    row("signs of feet and inches", "", "'", "", "0");
    row("blanks between feet and inches", "10'", " ", "0''", "3.048");
    row("characters outside the basic plane", "", "\xf0\x9d\x9f\x93", "", "none");
}

QString PastedLongTextsTest::rowText(int size)
{
    QFETCH(QString, before);
    QFETCH(QString, repeated);
    QFETCH(QString, after);
    return before + repeated.repeated((size - before.size() - after.size()) / repeated.size()) +
           after;
}

void PastedLongTextsTest::intoACell_data()
{
    addTexts();
}

void PastedLongTextsTest::intoACell()
{
    QFETCH(QString, length);
    TypedTableModel model(2, 2);
    detail::CppDbTableViewBase view(
        &model, [](int) { return lengthValidator(); }, nullptr);
    view.selectionModel()->select(model.index(0, 0), QItemSelectionModel::Select);
    const QString text = rowText(longestPasted);
    // Alone, and beside other cells.
    QGuiApplication::clipboard()->setText(text);
    QTest::keySequence(&view, QKeySequence(QKeySequence::Paste));
    QCOMPARE(lengthText(model.value(0, 0)), length);
    QGuiApplication::clipboard()->setText(QStringLiteral("1 m\t") + text + QStringLiteral("\n2 m"));
    QTest::keySequence(&view, QKeySequence(QKeySequence::Paste));
    QCOMPARE(lengthText(model.value(0, 0)), QStringLiteral("1"));
    QCOMPARE(lengthText(model.value(0, 1)), length);
    QCOMPARE(lengthText(model.value(1, 0)), QStringLiteral("2"));
}

void PastedLongTextsTest::intoAField_data()
{
    addTexts();
}

void PastedLongTextsTest::intoAField()
{
    QFETCH(QString, length);
    const std::unique_ptr<SimpleLineEdit> field(
        SimpleLineEdit::create(nullptr, QString(), lengthValidator(), 0, ExpandRight));
    QVERIFY(zel::test::showActive(*field));
    const QString text = rowText(longestTyped);
    QGuiApplication::clipboard()->setText(text);
    QTest::keySequence(&field->edit(), QKeySequence(QKeySequence::Paste));
    QCOMPARE(field->edit().text(), text);
    QCOMPARE(field->isValueValid(), length != QLatin1String("none"));
    if (field->isValueValid()) {
        QCOMPARE(lengthText(field->getValue()), length);
    }
    // One more key, in a text of the greatest length.
    QTest::keyClick(&field->edit(), Qt::Key_Backspace);
    QCOMPARE(field->edit().text(), text.left(text.size() - (text.back().isLowSurrogate() ? 2 : 1)));
}

QTEST_MAIN(PastedLongTextsTest)
#include "tst_pasted_long_texts.moc"
