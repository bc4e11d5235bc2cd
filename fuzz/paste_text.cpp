// Text pasted into the table view: a byte chooses the cell, another one how many rows the handler
// makes, and the rest is the text in UTF-8. Beside crashes it looks for cells that differ from what
// reading the text character by character puts into them.

#include "qt/inc/delegates/roles.h"
#include "qt/inc/table_view.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include <boost/make_shared.hpp>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

using zel::qt::EditRole;
using zel::qt::IValidator;

namespace {

constexpr int columns = 3;
constexpr int firstRows = 3;
const QString untouched = QStringLiteral("untouched");

using Cells = std::vector<std::vector<QString>>;

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// Takes every text but those with an "x".
struct TextValidator : IValidator
{
    bool validate(const QString& text, boost::any& value, const std::bitset<32>&) override
    {
        value = text;
        return !text.contains(QLatin1Char('x'));
    }

    QString reformat(const boost::any& value, const std::bitset<32>&) override
    {
        return boost::any_cast<QString>(value);
    }
};

class TextModel : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(cells.size());
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : columns;
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == EditRole ? QVariant::fromValue<boost::any>(at(index)) : QVariant();
    }

    bool setData(const QModelIndex& index, const QVariant& value, int) override
    {
        at(index) = boost::any_cast<QString>(value.value<boost::any>());
        Q_EMIT dataChanged(index, index);
        return true;
    }

    void restart()
    {
        beginResetModel();
        cells.assign(firstRows, std::vector<QString>(columns, untouched));
        endResetModel();
    }

    void append(int left, const std::deque<boost::optional<boost::any>>& values)
    {
        beginInsertRows({}, rowCount(), rowCount());
        cells.emplace_back(columns, untouched);
        for (std::size_t i = 0; i < values.size() && left + static_cast<int>(i) < columns; ++i) {
            if (values[i]) {
                cells.back()[static_cast<std::size_t>(left) + i] =
                    boost::any_cast<QString>(*values[i]);
            }
        }
        endInsertRows();
    }

    Cells cells;

private:
    const QString& at(const QModelIndex& index) const
    {
        return cells[static_cast<std::size_t>(index.row())]
                    [static_cast<std::size_t>(index.column())];
    }

    QString& at(const QModelIndex& index)
    {
        return const_cast<QString&>(static_cast<const TextModel*>(this)->at(index));
    }
};

/// What the table holds after the paste, by the definition of the text.
Cells pasted(const QString& text, std::size_t top, std::size_t left, std::size_t mostRows)
{
    Cells cells(firstRows, std::vector<QString>(columns, untouched));
    const bool isBlock = text.contains(QLatin1Char('\t')) || text.contains(QLatin1Char('\n'));
    std::size_t row = top;
    std::size_t column = left;
    QString cell;
    const auto finishCell = [&] {
        while (row >= cells.size() && cells.size() < mostRows) {
            cells.emplace_back(columns, untouched);
        }
        if (row < cells.size() && column < columns && !cell.contains(QLatin1Char('x'))) {
            cells[row][column] = cell;
        }
        cell.clear();
    };
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool endsLine =
            c == QLatin1Char('\r') && i + 1 < text.size() && text[i + 1] == QLatin1Char('\n');
        if (isBlock && endsLine) {
            continue;
        }
        if (isBlock && c == QLatin1Char('\t')) {
            finishCell();
            ++column;
        } else if (isBlock && c == QLatin1Char('\n')) {
            finishCell();
            ++row;
            column = left;
        } else {
            cell += c;
        }
    }
    if (!isBlock || !text.endsWith(QLatin1Char('\n'))) {
        finishCell();
    }
    return cells;
}

struct Fixture
{
    Fixture()
    {
        view.setCreateNewRowHandler(
            [this](int left, const std::deque<boost::optional<boost::any>>& values) {
                if (model.cells.size() < mostRows) {
                    model.append(left, values);
                }
            });
    }

    int argc = 1;
    char name[6] = "paste";
    char* argv[2] = {name, nullptr};
    QApplication app{argc, argv};
    TextModel model;
    boost::shared_ptr<IValidator> validator = boost::make_shared<TextValidator>();
    zel::qt::detail::CppDbTableViewBase view{&model, [this](int) { return validator; }, nullptr};
    std::size_t mostRows = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fixture& fixture = *new Fixture; // left standing: Qt is gone when statics end
    if (size < 2) {
        return 0;
    }
    const std::size_t top = data[0] % firstRows;
    const std::size_t left = data[0] / firstRows % columns;
    fixture.mostRows = firstRows + data[1] % 8u;
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data + 2), static_cast<int>(size - 2));
    if (text.isEmpty()) {
        return 0; // is no text to the clipboard
    }

    fixture.model.restart();
    fixture.view.selectionModel()->select(
        fixture.model.index(static_cast<int>(top), static_cast<int>(left)),
        QItemSelectionModel::ClearAndSelect);
    QGuiApplication::clipboard()->setText(text);
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    QApplication::sendEvent(&fixture.view, &paste);
    if (fixture.model.cells != pasted(text, top, left, fixture.mostRows)) {
        fail("differs from the definition");
    }
    return 0;
}
