#include "qt/inc/detail/cppdb_table_view_base.h"

#include "platform/smart_assert.h"
#include "qt/inc/delegates/roles.h"
#include "qt/src/cppdb_table/clipboard_text.h"
#include "qt/src/row_tracker.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>
#include <climits>
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

    std::deque<boost::optional<boost::any>> valuesOf(const QStringRef& row, int left)
    {
        std::deque<boost::optional<boost::any>> values;
        int column = left;
        const QVector<QStringRef> cells = clipboardCells(row);
        for (const QStringRef& cell : cells) {
            values.push_back(validate(column, cell.toString()));
            ++column;
        }
        return values;
    }

    QString textOf(const QModelIndex& index)
    {
        IValidator* validator = at(index.column());
        if (validator == nullptr) {
            return {};
        }
        const QVariant data = index.data(EditRole);
        if (!data.canConvert<boost::any>()) {
            return {};
        }
        // Copied text is for other programs of this user, hence in the user's locale.
        const std::bitset<32> flags(1);
        if (data.userType() == qMetaTypeId<boost::any>()) {
            return validator->reformat(*static_cast<const boost::any*>(data.constData()), flags);
        }
        return validator->reformat(data.value<boost::any>(), flags);
    }

private:
    const ColumnValidatorFn& m_fn;
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

/// The text of a block, made from front to back so that its cost is that of its length.
QString blockText(QModelIndexList indexes, ColumnValidators& validators)
{
    const Bounds bounds(indexes);
    if (!std::is_sorted(indexes.cbegin(), indexes.cend(), isBefore)) {
        std::sort(indexes.begin(), indexes.end(), isBefore);
    }
    QString text;
    int row = bounds.top;
    int column = bounds.left;
    const auto finishRow = [&] {
        text.append(QString(bounds.right - column, QLatin1Char('\t')));
        text.append(QLatin1Char('\n'));
        ++row;
        column = bounds.left;
    };
    for (const QModelIndex& index : qAsConst(indexes)) {
        while (row < index.row()) {
            finishRow();
        }
        for (; column < index.column(); ++column) {
            text.append(QLatin1Char('\t'));
        }
        text.append(validators.textOf(index));
    }
    finishRow();
    return text;
}

void writeValue(QAbstractItemModel& model, const QModelIndex& index, const boost::any& value)
{
    if (index.isValid()) {
        model.setData(index, QVariant::fromValue<boost::any>(value), EditRole);
    }
}

/// Writes the values that there are to the cells from column `left` on; `cell` gives the index of
/// a column.
template <class CellFn>
void writeRow(QAbstractItemModel& model, int left,
              const std::deque<boost::optional<boost::any>>& values, const CellFn& cell)
{
    int column = left;
    for (const boost::optional<boost::any>& value : values) {
        if (value) {
            writeValue(model, cell(column), *value);
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
    for (const QModelIndex& index : selected) {
        writeValue(*selectionModel()->model(), rows.cell(index.row(), index.column()), {});
    }
}

void CppDbTableViewBase::copySelectedCells() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.isEmpty()) {
        return;
    }
    ColumnValidators validators(m_getColumnValidator);
    QGuiApplication::clipboard()->setText(selected.size() == 1 ? validators.textOf(selected.first())
                                                               : blockText(selected, validators));
}

void CppDbTableViewBase::pasteOverSelectedCells()
{
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
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
            writeValue(*selectionModel()->model(), rows.cell(index.row(), index.column()), *value);
        }
    }
}

void CppDbTableViewBase::pasteBlock(const QString& text, int top, int left)
{
    ColumnValidators validators(m_getColumnValidator);
    const QVector<QStringRef> rows = clipboardRows(text);
    const int present = std::min(m_model->rowCount(QModelIndex()) - top, rows.size());
    int i = 0;
    {
        QModelIndexList targets;
        for (int row = top; row < top + present; ++row) {
            targets.append(m_model->index(row, left, QModelIndex()));
        }
        const RowTracker tracker(*m_model, targets);
        for (; i < present; ++i) {
            writeRow(*m_model, left, validators.valuesOf(rows[i], left),
                     [&](int column) { return tracker.cell(top + i, column); });
        }
    }
    // The tracker is gone by now: a model adjusts every persistent index at each new row.
    for (; i < rows.size(); ++i) {
        const int target = top + i;
        const auto values = validators.valuesOf(rows[i], left);
        if (target < m_model->rowCount(QModelIndex())) { // the handler may make rows ahead
            writeRow(*m_model, left, values,
                     [&](int column) { return m_model->index(target, column, QModelIndex()); });
            continue;
        }
        m_createNewRow(left, values);
        if (target >= m_model->rowCount(QModelIndex())) {
            return;
        }
    }
}

} // namespace zel::qt::detail
