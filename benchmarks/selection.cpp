// What a selection costs: reading many values into one unit field, and building a form of 200
// editors from hints. Beside each stands what it is made of.

#include "benchmarks/report.h"
#include "qt/inc/controls.h"
#include "qt/inc/factories.h"
#include "qt/inc/validators.h"
#include "units/inc/units.h"

#include <QApplication>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <bitset>
#include <locale>
#include <memory>
#include <string>
#include <vector>

namespace {

using zel::qt::HintTree;
using zel::units::v1::Context;
using zel::units::v1::IConverter;
using zel::units::v1::UnitId;

constexpr int editorCount = 200;
constexpr int valueCount = 100000;
const UnitId lengthId = UnitId(1001);

/// Values that all show as the same text, so that every one of them is formatted and compared.
std::vector<boost::any> equalLengths()
{
    std::vector<boost::any> values;
    values.reserve(valueCount);
    for (int i = 0; i < valueCount; ++i) {
        values.emplace_back(IConverter::quantity{lengthId, 2.5 + 1e-9 * i});
    }
    return values;
}

void countValues(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * valueCount);
}

void readSelection(benchmark::State& state)
{
    const std::vector<boost::any> values = equalLengths();
    const std::unique_ptr<zel::qt::MultiEditLineEdit> edit(zel::qt::MultiEditLineEdit::create(
        nullptr, QString(), new zel::qt::UnitValidator(Context(0), lengthId), 0,
        zel::qt::ExpandRight));
    for (const auto _ : state) {
        edit->reset();
        for (const boost::any& value : values) {
            edit->readValue(value);
        }
        if (edit->dataVaries()) {
            state.SkipWithError("the values vary");
            break;
        }
    }
    countValues(state);
}
BENCHMARK(readSelection)->Unit(benchmark::kMillisecond);

/// The part of readSelection that the validator takes.
void reformatValues(benchmark::State& state)
{
    const std::vector<boost::any> values = equalLengths();
    zel::qt::UnitValidator validator(Context(0), lengthId);
    for (const auto _ : state) {
        for (const boost::any& value : values) {
            benchmark::DoNotOptimize(validator.reformat(value, std::bitset<32>()));
        }
    }
    countValues(state);
}
BENCHMARK(reformatValues)->Unit(benchmark::kMillisecond);

/// The part of reformatValues that the units library takes.
void formatQuantities(benchmark::State& state)
{
    const std::vector<boost::any> values = equalLengths();
    const Context context(0);
    for (const auto _ : state) {
        for (const boost::any& value : values) {
            benchmark::DoNotOptimize(context.format(*boost::any_cast<IConverter::quantity>(&value),
                                                    std::locale::classic()));
        }
    }
    countValues(state);
}
BENCHMARK(formatQuantities)->Unit(benchmark::kMillisecond);

void countEditors(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * editorCount);
}

HintTree lengthHints()
{
    HintTree hints;
    hints.put_child("editor", HintTree(boost::any(std::string("lineedit"))));
    hints.put_child("validator.type", HintTree(boost::any(std::string("unit"))));
    hints.put_child("validator.unit_id", HintTree(boost::any(lengthId)));
    return hints;
}

void buildForm(benchmark::State& state)
{
    const HintTree hints = lengthHints();
    for (const auto _ : state) {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        for (int i = 0; i < editorCount; ++i) {
            layout->addWidget(zel::qt::createEditorFromHints(&window, hints).editor);
        }
    }
    countEditors(state);
}
BENCHMARK(buildForm)->Unit(benchmark::kMillisecond);

/// The part of buildForm that the line edits take, with their popups.
void buildLineEdits(benchmark::State& state)
{
    const boost::shared_ptr<zel::qt::IValidator> validator(
        new zel::qt::UnitValidator(Context(0), lengthId));
    for (const auto _ : state) {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        for (int i = 0; i < editorCount; ++i) {
            layout->addWidget(zel::qt::MultiEditLineEdit::create(&window, QString(), validator, 1,
                                                                 zel::qt::ExpandRight));
        }
    }
    countEditors(state);
}
BENCHMARK(buildLineEdits)->Unit(benchmark::kMillisecond);

/// The part of buildForm that the validators take, each with a context of its own.
void buildValidators(benchmark::State& state)
{
    for (const auto _ : state) {
        std::vector<std::unique_ptr<zel::qt::IValidator>> validators;
        for (int i = 0; i < editorCount; ++i) {
            validators.push_back(std::make_unique<zel::qt::UnitValidator>(
                zel::units::v1::get_active_input_context(), lengthId));
        }
        benchmark::DoNotOptimize(validators.data());
    }
    countEditors(state);
}
BENCHMARK(buildValidators)->Unit(benchmark::kMillisecond);

/// The baseline: plain line edits.
void buildPlainLineEdits(benchmark::State& state)
{
    for (const auto _ : state) {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        for (int i = 0; i < editorCount; ++i) {
            layout->addWidget(new QLineEdit(&window));
        }
    }
    countEditors(state);
}
BENCHMARK(buildPlainLineEdits)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    const zel::bench::Report report(argc, argv);
    const double read = report.seconds("readSelection") / valueCount;
    const double reformat = report.seconds("reformatValues") / valueCount;
    const double format = report.seconds("formatQuantities") / valueCount;
    const auto row = [&](const char* what, const char* name) {
        return std::vector<std::string>{what, report.time(report.seconds(name) / editorCount)};
    };
    report.print({{"What", "Time"},
                  {"`readValue`, a value", report.time(read)},
                  {"of that formatting in the units library", report.time(format)},
                  {"of that making the `QString`", report.time(reformat - format)},
                  {"of that comparing", report.time(read - reformat)},
                  row("`createEditorFromHints`, an editor", "buildForm"),
                  row("of that the line edit", "buildLineEdits"),
                  row("of that the validator with its context", "buildValidators"),
                  row("a plain `QLineEdit`", "buildPlainLineEdits")});
    return report.status();
}
