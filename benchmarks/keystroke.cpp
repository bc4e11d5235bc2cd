// What a keystroke costs: typing into a unit field in a form of 40 fields, beside typing into a
// plain QLineEdit with a QDoubleValidator in a form of the same size. One iteration types a length
// that is good after each key and takes it away again with the backspace key but for one digit, so
// that the colour does not change. After each key the events that it caused are handled: the
// popups take their place and what changed is painted.

#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "units/inc/units.h"

#include <QApplication>
#include <QDoubleValidator>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr int fieldCount = 40;
const std::string typedText = "2.3456";

void press(QWidget& widget, int key, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &up);
    QCoreApplication::processEvents();
}

void typeInto(benchmark::State& state, QWidget& window, QLineEdit& field)
{
    window.show();
    window.activateWindow();
    field.setFocus();
    QCoreApplication::processEvents();
    press(field, Qt::Key_0, QStringLiteral("1"));
    for (const auto _ : state) {
        for (const char c : typedText) {
            press(field, c, QString(QLatin1Char(c)));
        }
        for (std::size_t i = 0; i < typedText.size(); ++i) {
            press(field, Qt::Key_Backspace, QStringLiteral("\b"));
        }
        if (field.text() != QLatin1String("1")) {
            state.SkipWithError("the text was not typed");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(2 * typedText.size()));
}

void plainLineEdit(benchmark::State& state)
{
    QWidget window;
    auto* layout = new QFormLayout(&window);
    QLineEdit* first = nullptr;
    for (int i = 0; i < fieldCount; ++i) {
        auto* edit = new QLineEdit(&window);
        edit->setValidator(new QDoubleValidator(edit));
        layout->addRow(QStringLiteral("Length"), edit);
        first = first == nullptr ? edit : first;
    }
    typeInto(state, window, *first);
}
BENCHMARK(plainLineEdit);

void unitField(benchmark::State& state, bool withHint)
{
    QWidget window;
    auto* layout = new QFormLayout(&window);
    zel::qt::MultiEditLineEdit* first = nullptr;
    for (int i = 0; i < fieldCount; ++i) {
        auto* validator =
            new zel::qt::UnitValidator(zel::units::v1::Context(0), zel::units::v1::UnitId(1001));
        if (withHint) {
            validator->setEditHintFunction([](const QString& text) { return text; });
        }
        auto* edit = zel::qt::MultiEditLineEdit::create(&window, QString(), validator, 0,
                                                        zel::qt::ExpandRight);
        layout->addRow(QStringLiteral("Length"), edit);
        first = first == nullptr ? edit : first;
    }
    typeInto(state, window, first->edit());
}
BENCHMARK_CAPTURE(unitField, withoutHint, false);
BENCHMARK_CAPTURE(unitField, withHint, true);

} // namespace

int main(int argc, char** argv)
{
    // The off-screen platform warns at each change of a window's size limits, which is no part of
    // a keystroke on a screen.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
