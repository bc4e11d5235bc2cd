// What the clipboard of the table view costs: copying up to a million selected cells and pasting
// up to a hundred thousand. Beside each stands a plain loop over the same cells that calls the
// model, and the validator for the texts, in the same way, with the same view looking on.

#include "qt/inc/table_view.h"

#include "benchmarks/report.h"
#include "qt/inc/delegates/roles.h"
#include "qt/inc/integer_validator.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

#include <boost/make_shared.hpp>

#include <limits>
#include <vector>

namespace {

using zel::qt::EditRole;
using zel::qt::IValidator;
using zel::qt::detail::CppDbTableViewBase;

/// Whole numbers.
class NumberModel : public QAbstractTableModel
{
public:
    NumberModel(int cells, int columns)
        : m_columns(columns)
        , m_values(static_cast<std::size_t>(cells))
    {
        int number = 0;
        for (boost::any& value : m_values) {
            value = number++;
        }
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_values.size()) / m_columns;
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : m_columns;
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == EditRole ? QVariant::fromValue<boost::any>(m_values[position(index)])
                                : QVariant();
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != EditRole) {
            return false;
        }
        m_values[position(index)] = value.value<boost::any>();
        Q_EMIT dataChanged(index, index, {role});
        return true;
    }

private:
    std::size_t position(const QModelIndex& index) const
    {
        return static_cast<std::size_t>(index.row() * m_columns + index.column());
    }

    int m_columns;
    std::vector<boost::any> m_values;
};

boost::shared_ptr<IValidator> wholeNumbers()
{
    return boost::make_shared<zel::qt::IntegerValidator<int>>(
        std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), false);
}

/// A table of as many cells and columns as the benchmark's arguments say, all of them selected.
struct Fixture
{
    explicit Fixture(const benchmark::State& state)
        : columns(static_cast<int>(state.range(1)))
        , model(static_cast<int>(state.range(0)), columns)
        , view(
              &model, [this](int) { return validator; }, nullptr)
    {
        view.resize(1000, 600);
        view.show();
        view.selectAll();
        QApplication::processEvents();
    }

    void press(QKeySequence::StandardKey key)
    {
        const int code = QKeySequence(key)[0];
        QKeyEvent event(QEvent::KeyPress, code & ~int(Qt::KeyboardModifierMask),
                        Qt::KeyboardModifiers(code & int(Qt::KeyboardModifierMask)));
        QApplication::sendEvent(&view, &event);
    }

    int columns;
    boost::shared_ptr<IValidator> validator = wholeNumbers();
    NumberModel model;
    CppDbTableViewBase view;
};

QStringList cellTexts(const Fixture& f)
{
    QStringList texts;
    for (int i = 0; i < f.model.rowCount() * f.columns; ++i) {
        texts << QString::number(i);
    }
    return texts;
}

QString blockText(const Fixture& f)
{
    QString text;
    for (int row = 0; row < f.model.rowCount(); ++row) {
        for (int column = 0; column < f.columns; ++column) {
            text += QString::number(row + column);
            text += column < f.columns - 1 ? QLatin1Char('\t') : QLatin1Char('\n');
        }
    }
    return text;
}

void count(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Many columns, and one: there a cell bears the cost of its row alone.
void sizesOfCopy(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgsProduct({{100000, 1000000}, {10, 1}});
}

void sizesOfPaste(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgsProduct({{10000, 100000}, {10, 1}});
}

void copy(benchmark::State& state)
{
    Fixture f(state);
    for (const auto _ : state) {
        f.press(QKeySequence::Copy);
    }
    if (!QGuiApplication::clipboard()->text().endsWith(
            QStringLiteral("%1\n").arg(state.range(0) - 1))) {
        state.SkipWithError("not copied");
    }
    count(state);
}
BENCHMARK(copy)->Apply(sizesOfCopy)->Unit(benchmark::kMillisecond);

/// A selection made column after column, the last one first.
void copyColumnByColumn(benchmark::State& state)
{
    Fixture f(state);
    f.view.clearSelection();
    for (int column = f.columns - 1; column >= 0; --column) {
        const QItemSelection cells(f.model.index(0, column),
                                   f.model.index(f.model.rowCount() - 1, column));
        f.view.selectionModel()->select(cells, QItemSelectionModel::Select);
    }
    for (const auto _ : state) {
        f.press(QKeySequence::Copy);
    }
    count(state);
}
BENCHMARK(copyColumnByColumn)->Apply(sizesOfCopy)->Unit(benchmark::kMillisecond);

/// Asks the model and the validator, and keeps nothing.
void copyPlainLoop(benchmark::State& state)
{
    const Fixture f(state);
    for (const auto _ : state) {
        for (int row = 0; row < f.model.rowCount(); ++row) {
            for (int column = 0; column < f.columns; ++column) {
                const QVariant value = f.model.index(row, column).data(EditRole);
                benchmark::DoNotOptimize(
                    f.validator->reformat(value.value<boost::any>(), std::bitset<32>(1)));
            }
        }
    }
    count(state);
}
BENCHMARK(copyPlainLoop)->Apply(sizesOfCopy)->Unit(benchmark::kMillisecond);

/// Only the calls of the model.
void readPlainLoop(benchmark::State& state)
{
    const Fixture f(state);
    for (const auto _ : state) {
        for (int row = 0; row < f.model.rowCount(); ++row) {
            for (int column = 0; column < f.columns; ++column) {
                benchmark::DoNotOptimize(
                    f.model.index(row, column).data(EditRole).value<boost::any>());
            }
        }
    }
    count(state);
}
BENCHMARK(readPlainLoop)->Apply(sizesOfCopy)->Unit(benchmark::kMillisecond);

/// The part of copy in which Qt lists the selected cells.
void listSelection(benchmark::State& state)
{
    const Fixture f(state);
    for (const auto _ : state) {
        benchmark::DoNotOptimize(f.view.selectionModel()->selectedIndexes());
    }
    count(state);
}
BENCHMARK(listSelection)->Apply(sizesOfCopy)->Unit(benchmark::kMillisecond);

void pasteBlock(benchmark::State& state)
{
    Fixture f(state);
    QGuiApplication::clipboard()->setText(blockText(f));
    for (const auto _ : state) {
        f.press(QKeySequence::Paste);
    }
    count(state);
}
BENCHMARK(pasteBlock)->Apply(sizesOfPaste)->Unit(benchmark::kMillisecond);

void pasteValue(benchmark::State& state)
{
    Fixture f(state);
    QGuiApplication::clipboard()->setText(QStringLiteral("12345"));
    for (const auto _ : state) {
        f.press(QKeySequence::Paste);
    }
    count(state);
}
BENCHMARK(pasteValue)->Apply(sizesOfPaste)->Unit(benchmark::kMillisecond);

/// Asks the validator and the model with texts that are there already.
void pastePlainLoop(benchmark::State& state)
{
    Fixture f(state);
    const QStringList texts = cellTexts(f);
    for (const auto _ : state) {
        int i = 0;
        for (int row = 0; row < f.model.rowCount(); ++row) {
            for (int column = 0; column < f.columns; ++column) {
                boost::any value;
                if (f.validator->validate(texts[i++], value, {})) {
                    f.model.setData(f.model.index(row, column),
                                    QVariant::fromValue<boost::any>(value), EditRole);
                }
            }
        }
    }
    count(state);
}
BENCHMARK(pastePlainLoop)->Apply(sizesOfPaste)->Unit(benchmark::kMillisecond);

/// Writes a value to each cell with the calls of the model alone.
void writeToAll(benchmark::State& state, const boost::any& value)
{
    Fixture f(state);
    for (const auto _ : state) {
        for (int row = 0; row < f.model.rowCount(); ++row) {
            for (int column = 0; column < f.columns; ++column) {
                f.model.setData(f.model.index(row, column), QVariant::fromValue<boost::any>(value),
                                EditRole);
            }
        }
    }
    count(state);
}

void writePlainLoop(benchmark::State& state)
{
    writeToAll(state, 12345);
}
BENCHMARK(writePlainLoop)->Apply(sizesOfPaste)->Unit(benchmark::kMillisecond);

void clear(benchmark::State& state)
{
    Fixture f(state);
    for (const auto _ : state) {
        f.press(QKeySequence::Delete);
    }
    count(state);
}
BENCHMARK(clear)->Apply(sizesOfPaste)->Unit(benchmark::kMillisecond);

void clearPlainLoop(benchmark::State& state)
{
    writeToAll(state, boost::any());
}
BENCHMARK(clearPlainLoop)->Apply(sizesOfPaste)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    const zel::bench::Report report(argc, argv);
    using Row = std::vector<std::string>;
    const auto row = [&report](const char* what, const char* keys, const char* model,
                               const char* modelAndValidator, int cells, int columns = 10) {
        const std::string size = "/" + std::to_string(cells) + "/" + std::to_string(columns);
        const double time = report.seconds(keys + size);
        const double alone = report.seconds(model + size);
        Row cell{what,
                 std::to_string(cells),
                 report.time(time),
                 report.time(alone),
                 report.number(time / alone),
                 "",
                 "",
                 "2"};
        if (modelAndValidator != nullptr) {
            const double both = report.seconds(modelAndValidator + size);
            cell[5] = report.time(both);
            cell[6] = report.number(time / both);
        }
        return cell;
    };
    report.print(
        {{"What", "Cells", "Time", "Model alone", "Ratio", "Model and validator", "Ratio", "Bound"},
         row("Copy", "copy", "readPlainLoop", "copyPlainLoop", 100000),
         row("Copy", "copy", "readPlainLoop", "copyPlainLoop", 1000000),
         row("Copy of one column", "copy", "readPlainLoop", "copyPlainLoop", 1000000, 1),
         row("Copy, selected column by column", "copyColumnByColumn", "readPlainLoop",
             "copyPlainLoop", 1000000),
         row("Paste of a block", "pasteBlock", "writePlainLoop", "pastePlainLoop", 10000),
         row("Paste of a block", "pasteBlock", "writePlainLoop", "pastePlainLoop", 100000),
         row("Paste of one column", "pasteBlock", "writePlainLoop", "pastePlainLoop", 100000, 1),
         row("Paste of one value into all cells", "pasteValue", "writePlainLoop", "pastePlainLoop",
             100000),
         row("Clear", "clear", "clearPlainLoop", nullptr, 100000)});
    std::printf("Of a copy of 1000000 cells, listing the selected ones: %s\n",
                report.time(report.seconds("listSelection/1000000/10")).c_str());
    return report.status();
}
