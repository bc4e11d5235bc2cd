// Text of quantities: parsing and formatting through a context, beside the expressions and streams
// that define them and beside QLocale with the bare number.

#include "benchmarks/report.h"
#include "tests/units/reference/expression_parser.h"
#include "tests/units/reference/stream_formatter.h"
#include "units/inc/units.h"

#include <benchmark/benchmark.h>

#include <QLocale>
#include <QString>

#include <algorithm>
#include <ctime>
#include <string>
#include <vector>

using namespace zel::units::v1;
namespace reference = zel::test::reference;

namespace {

struct Typed
{
    std::wstring text;
    QString number; ///< the number in it, for QLocale
    UnitId id;      ///< the unit set of the field
};

const std::vector<Typed>& typedTexts()
{
    static const std::vector<Typed> texts = {
        {L"2.5", "2.5", UnitId(1001)},       {L"2.5 m", "2.5", UnitId(1001)},
        {L"250 cm", "250", UnitId(1001)},    {L"5' 6 1/2''", "5", UnitId(1001)},
        {L"5 ft 6.5 in", "5", UnitId(1001)}, {L"2.5 kN/m2", "2.5", UnitId(1192)},
        {L"1 3/4 in", "1", UnitId(1001)},    {L"1.2e-3 m", "1.2e-3", UnitId(1001)},
        {L"5 kg/sec/m2", "5", UnitId(1227)}, {L"abc", "abc", UnitId(1001)},
        {L"12 xyz", "12", UnitId(1001)},     {L"-3.25 mm", "-3.25", UnitId(1003)},
        {L"100 kN", "100", UnitId(1101)},    {L"0.5 MPa", "0.5", UnitId(1092)},
        {L"12 N/mm2", "12", UnitId(1092)},   {L"3 t/m3", "3", UnitId(1224)},
        {L"20 kNm", "20", UnitId(1104)},     {L"45 \u00b0", "45", UnitId(1200)},
        {L"1 yd", "1", UnitId(1006)},        {L"2 km", "2", UnitId(1000)},
    };
    return texts;
}

const std::vector<double>& shownValues()
{
    static const std::vector<double> values = {0.0,     2.5,    -3.25,       0.001234, 12345.678,
                                               1e-9,    0.6096, 999.9995,    -17.0,    1.0 / 3.0,
                                               250.125, 1.5e6,  -0.00049999, 100.0,    42.424242};
    return values;
}

Context contextWithNotation(int notation)
{
    Context context(0);
    context.format_provider().set_notation(UnitId(1001), notation);
    context.format_provider().set_decimals(UnitId(1001), notation == Notation::Fraction ? 16 : 3);
    return context;
}

/// The time of one run over all inputs, shown as items per second and as time per item.
void countItems(benchmark::State& state, std::size_t itemsPerTurn)
{
    const auto items = static_cast<double>(state.iterations()) * static_cast<double>(itemsPerTurn);
    state.counters["per_item"] =
        benchmark::Counter(items, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void parseNumberWithQLocale(benchmark::State& state)
{
    const QLocale locale = QLocale::c();
    for (auto _ : state) {
        for (const Typed& typed : typedTexts()) {
            bool ok = false;
            benchmark::DoNotOptimize(locale.toDouble(typed.number, &ok));
        }
    }
    countItems(state, typedTexts().size());
}

void parseQuantity(benchmark::State& state)
{
    const Context context(0);
    for (auto _ : state) {
        for (const Typed& typed : typedTexts()) {
            benchmark::DoNotOptimize(context.parse(typed.text, typed.id, std::locale::classic()));
        }
    }
    countItems(state, typedTexts().size());
}

void parseQuantityByDefinition(benchmark::State& state)
{
    const Context context(0);
    reference::ExpressionParser expressions(reference::ExpressionParser::Compile::PerAttempt);
    for (auto _ : state) {
        for (const Typed& typed : typedTexts()) {
            // The labels are collected for each text, as the definition has it.
            const reference::LabelMap labels = reference::labelsOf(context.unit_provider());
            benchmark::DoNotOptimize(
                expressions.parse(context, labels, typed.text, typed.id, std::locale::classic()));
        }
    }
    countItems(state, typedTexts().size());
}

/// One piece, repeated: what makes a matcher try again and again.
const std::vector<std::wstring>& repeatedPieces()
{
    static const std::vector<std::wstring> pieces = {
        L" ", L"9", L"m", L".", L"/", L"'", L"-", L"e5", L"1 ", L"1/1 ", L"ft ", L"\u00a0"};
    return pieces;
}

/// The slowest of the texts that are one piece, repeated: 32,767 characters are what a line edit
/// takes, and a megabyte is more than anyone pastes into a cell.
void parseRepeated(benchmark::State& state)
{
    const Context context(0);
    const auto size = static_cast<std::size_t>(state.range(0));
    std::vector<std::wstring> texts;
    for (const std::wstring& piece : repeatedPieces()) {
        std::wstring text;
        while (text.size() + piece.size() <= size) {
            text += piece;
        }
        texts.push_back(text);
    }
    for (auto _ : state) {
        double slowest = 0.0;
        for (const std::wstring& text : texts) {
            const std::clock_t start =
                std::clock(); // of the processor: other work may come between
            benchmark::DoNotOptimize(context.parse(text, UnitId(1001), std::locale::classic()));
            const double taken = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
            slowest = std::max(slowest, taken);
        }
        state.SetIterationTime(slowest);
    }
}

void formatNumberWithQLocale(benchmark::State& state)
{
    const QLocale locale = QLocale::c();
    for (auto _ : state) {
        for (const double value : shownValues()) {
            benchmark::DoNotOptimize(locale.toString(value, 'f', 3));
        }
    }
    countItems(state, shownValues().size());
}

void formatQuantity(benchmark::State& state)
{
    const Context context = contextWithNotation(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        for (const double value : shownValues()) {
            benchmark::DoNotOptimize(context.format({UnitId(1001), value}, std::locale::classic()));
        }
    }
    countItems(state, shownValues().size());
}

void formatQuantityByDefinition(benchmark::State& state)
{
    const Context context = contextWithNotation(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        for (const double value : shownValues()) {
            benchmark::DoNotOptimize(
                reference::quantityText(context, {UnitId(1001), value}, std::locale::classic()));
        }
    }
    countItems(state, shownValues().size());
}

BENCHMARK(parseNumberWithQLocale);
BENCHMARK(parseQuantity);
BENCHMARK(parseQuantityByDefinition);
BENCHMARK(parseRepeated)
    ->ArgName("characters")
    ->Arg(32'767)
    ->Arg(1'048'576)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(formatNumberWithQLocale);
BENCHMARK(formatQuantity)->ArgName("notation")->DenseRange(0, 2);
BENCHMARK(formatQuantityByDefinition)->ArgName("notation")->DenseRange(0, 2);

} // namespace

int main(int argc, char** argv)
{
    const zel::bench::Report report(argc, argv);
    const auto texts = static_cast<double>(typedTexts().size());
    const auto values = static_cast<double>(shownValues().size());
    const double number = report.seconds("parseNumberWithQLocale") / texts;
    const double definition = report.seconds("parseQuantityByDefinition") / texts;
    const double library = report.seconds("parseQuantity") / texts;
    const double shownNumber = report.seconds("formatNumberWithQLocale") / values;
    const auto formatted = [&](const char* who, int notation) {
        return report.seconds(who + ("/notation:" + std::to_string(notation))) / values;
    };
    const double fixed = formatted("formatQuantity", 0);
    const auto formatRow = [&](const char* what, int notation) {
        return std::vector<std::string>{
            what,
            "",
            report.time(formatted("formatQuantityByDefinition", notation)),
            report.time(formatted("formatQuantity", notation)),
            "",
            ""};
    };
    report.print(
        {{"What", "`QLocale`, number only", "Definition", "Library", "Library beside", "Bound"},
         {"Parse", report.time(number), report.time(definition), report.time(library),
          report.number(library / number) + " times `QLocale`, " +
              report.number(definition / library) + " times faster than the definition",
          "8; 500"},
         {"Format, fixed", report.time(shownNumber),
          report.time(formatted("formatQuantityByDefinition", 0)), report.time(fixed),
          report.number(fixed / shownNumber) + " times `QLocale`", "3"},
         formatRow("Format, scientific", 1),
         formatRow("Format, fractional", 2)});
    const auto longRow = [&](const char* characters, const char* bound) {
        return std::vector<std::string>{
            characters,
            report.time(report.seconds(std::string("parseRepeated/characters:") + characters)),
            bound};
    };
    report.print({{"Characters", "Slowest text", "Bound"},
                  longRow("32767", "1 ms"),
                  longRow("1048576", "")});
    return report.status();
}
