// What a keystroke costs: typing into a unit field in a form of 40 fields, beside typing into a
// plain QLineEdit with a QDoubleValidator in a form of the same size. One iteration types a length
// that is good after each key and takes it away again with the backspace key but for one digit, so
// that the colour does not change; in a further one the last key makes the text red, and the first
// backspace key black again. After each key the events that it caused are handled: the popups take
// their place and what changed is painted.

#include "benchmarks/report.h"
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
constexpr int formWidth = 300;
const std::string typedText = "2.3456";
const std::string typedToRed = "2.345x";

void press(QWidget& widget, int key, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &up);
    QCoreApplication::processEvents();
}

void typeInto(benchmark::State& state, QWidget& window, QLineEdit& field, const std::string& typed)
{
    // The forms have fields of one width, whatever they would like.
    window.resize(formWidth, window.sizeHint().height());
    window.show();
    window.activateWindow();
    field.setFocus();
    QCoreApplication::processEvents();
    press(field, Qt::Key_0, QStringLiteral("1"));
    for (const auto _ : state) {
        for (const char c : typed) {
            press(field, c, QString(QLatin1Char(c)));
        }
        for (std::size_t i = 0; i < typed.size(); ++i) {
            press(field, Qt::Key_Backspace, QStringLiteral("\b"));
        }
        if (field.text() != QLatin1String("1")) {
            state.SkipWithError("the text was not typed");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(2 * typed.size()));
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
    typeInto(state, window, *first, typedText);
}
BENCHMARK(plainLineEdit);

enum class Hint
{
    None,
    Same,   ///< for any text
    Changes ///< with each key
};

void unitField(benchmark::State& state, Hint hint, const std::string& typed = typedText)
{
    QWidget window;
    auto* layout = new QFormLayout(&window);
    zel::qt::MultiEditLineEdit* first = nullptr;
    for (int i = 0; i < fieldCount; ++i) {
        auto* validator =
            new zel::qt::UnitValidator(zel::units::v1::Context(0), zel::units::v1::UnitId(1001));
        if (hint != Hint::None) {
            validator->setEditHintFunction([hint](const QString& text) {
                return hint == Hint::Same ? QStringLiteral("0 to 9") : text;
            });
        }
        auto* edit = zel::qt::MultiEditLineEdit::create(&window, QString(), validator, 0,
                                                        zel::qt::ExpandRight);
        layout->addRow(QStringLiteral("Length"), edit);
        first = first == nullptr ? edit : first;
    }
    typeInto(state, window, first->edit(), typed);
}
BENCHMARK_CAPTURE(unitField, withoutHint, Hint::None);
BENCHMARK_CAPTURE(unitField, withSameHint, Hint::Same);
BENCHMARK_CAPTURE(unitField, withChangingHint, Hint::Changes);
BENCHMARK_CAPTURE(unitField, withChangingColor, Hint::None, typedToRed);

} // namespace

int main(int argc, char** argv)
{
    // The off-screen platform warns at each change of a window's size limits, which is no part of
    // a keystroke on a screen.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication app(argc, argv);
    const zel::bench::Report report(argc, argv);
    const auto keyTime = [&report](const char* name) {
        return report.seconds(name) / static_cast<double>(2 * typedText.size());
    };
    const double plain = keyTime("plainLineEdit");
    const auto row = [&](const char* what, const char* name, const char* bound) {
        const double time = keyTime(name);
        return std::vector<std::string>{what, report.time(time), report.number(time / plain),
                                        bound};
    };
    report.print({{"Field", "Time of a key", "Ratio", "Bound"},
                  row("`QLineEdit` with a `QDoubleValidator`", "plainLineEdit", ""),
                  row("Unit field", "unitField/withoutHint", "2"),
                  row("Unit field with one edit hint for all texts", "unitField/withSameHint", "2"),
                  row("Unit field with an edit hint that changes with each key",
                      "unitField/withChangingHint", "2"),
                  row("Unit field whose colour changes with every sixth key",
                      "unitField/withChangingColor", "")});
    return report.status();
}
