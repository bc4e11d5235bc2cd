// The smallest host: one window with one length, of two beams at once.
//! [headers]
#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "units/inc/units.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

#include <array>

using namespace zel::qt;
using namespace zel::units;
//! [headers]

namespace {

struct Beam
{
    double length; // in metres
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);

    QWidget window;
    window.setWindowTitle(QStringLiteral("Two beams"));
    auto* layout = new QVBoxLayout(&window);

    //! [field]
    const UnitId lengths = UnitId(1001);
    auto* field = MultiEditLineEdit::create(
        &window, QStringLiteral("Length:"),
        new UnitValidator(v1::get_active_input_context(), lengths), 0, ExpandRight);
    //! [field]
    auto* report = new QLabel(&window);
    layout->addWidget(field);
    layout->addWidget(report);

    std::array<Beam, 2> beams{{{4.0}, {6.5}}};
    //! [read]
    field->reset();
    for (const Beam& beam : beams) {
        field->readValue(v1::IConverter::quantity{lengths, beam.length});
    }
    field->selectAll(); // what is typed now takes the place of the marker
    //! [read]

    //! [write]
    QObject::connect(field, &SimpleLineEdit::valueChanged, field, [&] {
        const boost::any value = field->getCurrentValue();
        if (!value.empty()) {
            for (Beam& beam : beams) {
                beam.length = boost::any_cast<v1::IConverter::quantity>(value).value;
            }
        }
        report->setText(QStringLiteral("%1 m and %2 m").arg(beams[0].length).arg(beams[1].length));
    });
    //! [write]

    window.show();
    return application.exec();
}
