#include "qt/inc/detail/cppdb_table_view_base.h"

#include "platform/smart_assert.h"
#include "qt/inc/delegates/roles.h"
#include "qt/src/cppdb_table/clipboard_text.h"
#include "qt/src/row_tracker.h"

#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>

#include <algorithm>
#include <climits>
#include <numeric>
#include <utility>
#include <vector>

namespace zel::qt::detail {
namespace {

using ColumnValidatorFn = boost::function<boost::shared_ptr<IValidator>(int)>;

/// Asks for the validator of each column once.
class ColumnValidators
{
public:
    explicit ColumnValidators(const ColumnValidatorFn& fn)
        : m_fn(fn)
    {}

    IValidator* at(int column)
    {
        const auto i = static_cast<std::size_t>(column);
        if (i >= m_validators.size()) {
            m_validators.resize(i + 1);
        }
        if (!m_validators[i]) {
            m_validators[i] = m_fn.empty() ? nullptr : m_fn(column);
        }
        return m_validators[i]->get();
    }

    boost::optional<boost::any> validate(int column, const QString& text)
    {
        boost::any value;
        IValidator* validator = at(column);
        if (validator == nullptr || !validator->validate(text, value, {})) {
            return boost::none;
        }
        return value;
    }

    /// Fills a container with the values of a row.
    template <class Values>
    void read(const QStringRef& row, int left, Values& values)
    {
        values.clear();
        forEachClipboardCell(row, [&, column = left](const QStringRef& cell) mutable {
            values.push_back(validate(column, cell.toString()));
            ++column;
        });
    }

    QString textOf(const QModelIndex& index)
    {
        IValidator* validator = at(index.column());
        if (validator == nullptr) {
            return {};
        }
        const QVariant data = index.data(EditRole);
        // Copied text is for other programs of this user, hence in the user's locale.
        const std::bitset<32> flags(1);
        if (data.userType() == qMetaTypeId<boost::any>()) {
            return validator->reformat(*static_cast<const boost::any*>(data.constData()), flags);
        }
        return data.canConvert<boost::any>() ? validator->reformat(data.value<boost::any>(), flags)
                                             : QString();
    }

private:
    const ColumnValidatorFn m_fn; // its own, the view may go while values are written
    std::vector<boost::optional<boost::shared_ptr<IValidator>>> m_validators; // none: not asked
};

/// The smallest and largest rows and columns of a selection that is not empty.
struct Bounds
{
    explicit Bounds(const QModelIndexList& indexes)
    {
        for (const QModelIndex& index : indexes) {
            top = std::min(top, index.row());
            left = std::min(left, index.column());
            bottom = std::max(bottom, index.row());
            right = std::max(right, index.column());
        }
    }

    int top = INT_MAX;
    int left = INT_MAX;
    int bottom = 0;
    int right = 0;
};

bool isBefore(const QModelIndex& a, const QModelIndex& b)
{
    return a.row() != b.row() ? a.row() < b.row() : a.column() < b.column();
}

/// The cells of a selection row by row. It was made range by range, perhaps column after column,
/// and is put in order in time proportional to its size.
std::vector<const QModelIndex*> inReadingOrder(const QModelIndexList& indexes, const Bounds& bounds)
{
    const auto rowOf = [&bounds](const QModelIndex& index) {
        return static_cast<std::size_t>(index.row() - bounds.top);
    };
    std::vector<std::size_t> begins(static_cast<std::size_t>(bounds.bottom - bounds.top) + 2);
    for (const QModelIndex& index : indexes) {
        ++begins[rowOf(index) + 1];
    }
    std::partial_sum(begins.begin(), begins.end(), begins.begin());
    std::vector<const QModelIndex*> ordered(static_cast<std::size_t>(indexes.size()));
    std::vector<std::size_t> next(begins.begin(), begins.end() - 1);
    for (const QModelIndex& index : indexes) {
        ordered[next[rowOf(index)]++] = &index;
    }
    const auto byColumn = [](const QModelIndex* a, const QModelIndex* b) {
        return a->column() < b->column();
    };
    for (std::size_t row = 0; row + 1 < begins.size(); ++row) {
        const auto begin = ordered.begin() + static_cast<std::ptrdiff_t>(begins[row]);
        const auto end = ordered.begin() + static_cast<std::ptrdiff_t>(begins[row + 1]);
        if (!std::is_sorted(begin, end, byColumn)) {
            std::sort(begin, end, byColumn);
        }
    }
    return ordered;
}

/// Makes the text of a block from cells in reading order.
class BlockText
{
public:
    BlockText(const Bounds& bounds, ColumnValidators& validators)
        : m_bounds(bounds)
        , m_validators(validators)
        , m_row(bounds.top)
        , m_column(bounds.left)
    {}

    void append(const QModelIndex& index)
    {
        while (m_row < index.row()) {
            finishRow();
        }
        for (; m_column < index.column(); ++m_column) {
            m_text.append(QLatin1Char('\t'));
        }
        m_text.append(m_validators.textOf(index));
    }

    QString finished()
    {
        finishRow();
        return m_text;
    }

private:
    void finishRow()
    {
        m_text.append(QString(m_bounds.right - m_column, QLatin1Char('\t')));
        m_text.append(QLatin1Char('\n'));
        ++m_row;
        m_column = m_bounds.left;
    }

    const Bounds& m_bounds;
    ColumnValidators& m_validators;
    QString m_text;
    int m_row;
    int m_column;
};

QString blockText(const QModelIndexList& indexes, ColumnValidators& validators)
{
    const Bounds bounds(indexes);
    BlockText text(bounds, validators);
    if (std::is_sorted(indexes.cbegin(), indexes.cend(), isBefore)) {
        for (const QModelIndex& index : indexes) {
            text.append(index);
        }
    } else {
        for (const QModelIndex* index : inReadingOrder(indexes, bounds)) {
            text.append(*index);
        }
    }
    return text.finished();
}

/// Calls `write` with the column and the data of each value that there is, from column `left` on.
template <class Values, class WriteFn>
void writeRow(int left, const Values& values, const WriteFn& write)
{
    int column = left;
    for (const boost::optional<boost::any>& value : values) {
        if (value) {
            write(column, QVariant::fromValue<boost::any>(*value));
        }
        ++column;
    }
}

} // namespace

CppDbTableViewBase::CppDbTableViewBase(
    QAbstractItemModel* model,
    boost::function<boost::shared_ptr<IValidator>(int)> getColumnValidator, QWidget* parent)
    : QTableView(parent)
    , m_model(model)
    , m_getColumnValidator(std::move(getColumnValidator))
{
    ZEL_SMART_ASSERT(m_model != nullptr, "m_model");
    ZEL_SMART_ASSERT(!m_getColumnValidator.empty(), "m_getColumnValidator");
    setModel(m_model);
}

CppDbTableViewBase::~CppDbTableViewBase() = default;

void CppDbTableViewBase::setCreateNewRowHandler(
    boost::function<void(int, const std::deque<boost::optional<boost::any>>&)> handler)
{
    m_createNewRow = std::move(handler);
}

void CppDbTableViewBase::keyPressEvent(QKeyEvent* event)
{
    const QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr && viewport()->isAncestorOf(focus)) {
        // Typed into the open editor of a cell, which has no use for the key. A combo box, for one,
        // leaves all of these, and whoever corrects a search in it by Backspace clears no cells.
        QTableView::keyPressEvent(event);
        return;
    }
    if (event->matches(QKeySequence::Delete) ||
        (event->type() == QEvent::KeyPress && event->key() == Qt::Key_Backspace)) {
        clearSelectedCells();
    } else if (event->matches(QKeySequence::Cut)) {
        copySelectedCells();
        clearSelectedCells();
    } else if (event->matches(QKeySequence::Copy)) {
        copySelectedCells();
    } else if (event->matches(QKeySequence::Paste)) {
        pasteOverSelectedCells();
    } else {
        QTableView::keyPressEvent(event);
    }
}

void CppDbTableViewBase::clearSelectedCells()
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        return;
    }
    const RowTracker rows(*selectionModel()->model(), selected);
    const QVariant empty = QVariant::fromValue(boost::any());
    for (const QModelIndex& index : selected) {
        rows.setData(index.row(), index.column(), empty, EditRole);
    }
}

void CppDbTableViewBase::copySelectedCells() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        return;
    }
    ColumnValidators validators(m_getColumnValidator);
    QApplication::clipboard()->setText(selected.size() == 1 ? validators.textOf(selected.first())
                                                            : blockText(selected, validators));
}

void CppDbTableViewBase::pasteOverSelectedCells()
{
    const QMimeData* mime = QApplication::clipboard()->mimeData();
    if (mime == nullptr || !mime->hasText()) {
        return;
    }
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        return;
    }
    const QString text = mime->text();
    if (isClipboardBlock(text)) {
        const Bounds bounds(selected);
        pasteBlock(text, bounds.top, bounds.left);
    } else {
        pasteValue(text, selected);
    }
}

void CppDbTableViewBase::pasteValue(const QString& text, const QModelIndexList& selected)
{
    ColumnValidators validators(m_getColumnValidator);
    const RowTracker rows(*selectionModel()->model(), selected);
    for (const QModelIndex& index : selected) {
        if (const auto value = validators.validate(index.column(), text)) {
            rows.setData(index.row(), index.column(), QVariant::fromValue<boost::any>(*value),
                         EditRole);
        }
    }
}

void CppDbTableViewBase::pasteBlock(const QString& text, int top, int left)
{
    // The handler, or whoever hears of a value, may close the window with the table.
    const QPointer<CppDbTableViewBase> view = this;
    const QPointer<QAbstractItemModel> model = m_model;
    ColumnValidators validators(m_getColumnValidator);
    const QVector<QStringRef> rows = clipboardRows(text);
    const int present = std::min(m_model->rowCount(QModelIndex()) - top, rows.size());
    int i = 0;
    {
        const RowTracker tracker(*m_model, top, present, left);
        std::vector<boost::optional<boost::any>> values;
        for (; i < present; ++i) {
            validators.read(rows[i], left, values);
            writeRow(left, values, [&](int column, const QVariant& value) {
                tracker.setData(top + i, column, value, EditRole);
            });
        }
    }
    // The tracker is gone by now: a model adjusts every persistent index at each new row.
    for (; i < rows.size() && view && model; ++i) {
        const int target = top + i;
        std::deque<boost::optional<boost::any>> values;
        validators.read(rows[i], left, values);
        if (target < model->rowCount(QModelIndex())) { // the handler may make rows ahead
            writeRow(left, values, [&](int column, const QVariant& value) {
                const QModelIndex index =
                    model ? model->index(target, column, QModelIndex()) : QModelIndex();
                if (index.isValid()) {
                    model->setData(index, value, EditRole);
                }
            });
            continue;
        }
        const auto createNewRow = m_createNewRow; // it may replace itself while it runs
        createNewRow(left, values);
        if (!model || target >= model->rowCount(QModelIndex())) {
            return;
        }
    }
}

} // namespace zel::qt::detail
