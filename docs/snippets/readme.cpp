#include "docs/snippets/expect.h"
#include "platform/smart_assert.h"
#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "units/inc/units.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace zel::qt;
using namespace zel::units;
using zel::units::v1::IConverter;

namespace {

QVector<double> written;

void write(const boost::any& value)
{
    written.append(boost::any_cast<IConverter::quantity>(value).value);
}

} // namespace

int main(int argc, char** argv)
{
    zel::smartassert::setReportHandler([](const zel::smartassert::Report& report) {
        std::fprintf(stderr, "%s\n", report.expression.c_str());
        ++failedExpectations();
    });
    QApplication application(argc, argv);
    QWidget panel;
    //! [field]
    auto* length = MultiEditLineEdit::create(
        &panel, "Length:", new UnitValidator(v1::get_active_input_context(), UnitId(1001)), 0,
        ExpandRight);
    for (double metres : {4.0, 6.5}) {
        length->readValue(IConverter::quantity{UnitId(1001), metres});
    }
    // The two differ: the field shows *VARIES*, and until the user decides, nothing is written.
    QObject::connect(length, &SimpleLineEdit::valueChanged, [length] {
        if (!length->getCurrentValue().empty())
            write(length->getCurrentValue());
    });
    //! [field]
    EXPECT(length->edit().text() == "*VARIES*");
    QTest::keyClick(&length->edit(), Qt::Key_Return);
    EXPECT(written.isEmpty());
    length->selectAll();
    QTest::keyClicks(&length->edit(), "8 ft 2 in");
    QTest::keyClick(&length->edit(), Qt::Key_Return);
    EXPECT(written.size() == 1 && qFuzzyCompare(written.first(), 2.489));
    length->selectAll();
    QTest::keyClicks(&length->edit(), "8 kN");
    QTest::keyClick(&length->edit(), Qt::Key_Return);
    EXPECT(written.size() == 1 && length->edit().text() == "8 kN");
    return failedExpectations();
}
