#include "docs/snippets/expect.h"
//! [headers]
#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "units/inc/units.h"

#include <boost/make_shared.hpp>

using namespace zel::qt;
using namespace zel::units;
using zel::units::v1::Context;
using zel::units::v1::IConverter;
//! [headers]

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <cmath>

namespace {

//! [own]
/// The name of a grid axis: letters only, shown in capitals. Its value is a QString.
class AxisValidator : public IValidator
{
public:
    bool validate(const QString& text, boost::any& value, const std::bitset<32>&) override
    {
        for (const QChar c : text) {
            if (!c.isLetter()) {
                return false;
            }
        }
        value = text.toUpper();
        return !text.isEmpty();
    }

    QString reformat(const boost::any& value, const std::bitset<32>&) override
    {
        return value.empty() ? QString() : boost::any_cast<QString>(value);
    }
};
//! [own]

void type(SimpleLineEdit& field, const QString& text)
{
    field.selectAll();
    QTest::keyClicks(&field.edit(), text);
    QTest::keyClick(&field.edit(), Qt::Key_Return);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget panel;

    auto* axis = SimpleLineEdit::create(&panel, QString(), new AxisValidator, 0, ExpandRight);
    type(*axis, QStringLiteral("ab"));
    EXPECT(axis->edit().text() == QStringLiteral("AB"));
    type(*axis, QStringLiteral("a1"));
    EXPECT(!axis->isValueValid() && axis->edit().text() == QStringLiteral("a1"));

    //! [hint]
    auto share = boost::make_shared<DoubleEditValidator>(0, 0.0, 100.0, false);
    share->setPostfix(QStringLiteral("%"));
    share->setEditHintFunction([](const QString& text) {
        return text.isEmpty() ? QStringLiteral("0 to 100") : QString();
    });
    //! [hint]
    EXPECT(share->reformatForDisplay(40.0, {}) == QStringLiteral("40 %"));
    EXPECT(share->getEditHint(QString()) == QStringLiteral("0 to 100"));

    //! [quantity]
    const Context context(0);            // metric settings
    const UnitId lengths = UnitId(1001); // a unit set: values are held in metres
    const std::locale locale = std::locale::classic();

    const auto typed = context.parse(L"8 ft 2 in", lengths, locale);
    const auto inMillimetres = context.converter().convert(*typed, UnitId(16));
    const std::wstring shown = context.format(*typed, locale);
    //! [quantity]
    EXPECT(typed && std::abs(typed->value - 2.4892) < 1e-12);
    EXPECT(std::abs(inMillimetres.value - 2489.2) < 1e-9);
    EXPECT(shown == L"2.489 m");
    EXPECT(!context.parse(L"8 kN", lengths, locale));

    //! [unit field]
    auto* validator = new UnitValidator(v1::get_active_input_context(), lengths);
    validator->set_minimum(0.0);
    auto* length =
        SimpleLineEdit::create(&panel, QStringLiteral("Length:"), validator, 0, ExpandRight);
    length->setValue(IConverter::quantity{lengths, 2.5});
    //! [unit field]
    EXPECT(length->edit().text() == QStringLiteral("2.500 m"));
    type(*length, QStringLiteral("-3"));
    EXPECT(length->edit().text() == QStringLiteral("0.000 m"));

    //! [settings]
    Context imperial(8);
    imperial.format_provider().set_decimals(lengths, 3);
    v1::set_active_input_context(imperial); // reaches fields that are made from now on
    //! [settings]
    auto* later = SimpleLineEdit::create(&panel, QString(),
                                         new UnitValidator(v1::get_active_input_context(), lengths),
                                         0, ExpandRight);
    later->setValue(IConverter::quantity{lengths, 2.5});
    EXPECT(later->edit().text() == QStringLiteral("8.202 ft"));
    EXPECT(length->edit().text() == QStringLiteral("0.000 m"));
    return failedExpectations();
}
