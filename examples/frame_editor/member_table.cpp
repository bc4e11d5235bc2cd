#include "examples/frame_editor/member_table.h"

#include "examples/frame_editor/document.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/member_table_cells.h"
#include "examples/frame_editor/member_table_model.h"
#include "examples/frame_editor/member_table_paste.h"
#include "examples/frame_editor/unit_settings.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>

#include <boost/make_shared.hpp>

#include <algorithm>

namespace frame_editor {

using Cell = MemberColumn::Cell;

namespace {

constexpr int widestColumn = 220; // pixels
constexpr int shownRows = 6;

} // namespace

MemberTable::MemberTable(Document& document, UnitSettings& units, QWidget* parent)
    : CppDbTableViewBase(
          new MemberTableModel(document, nullptr),
          [this](int column) { return clipboardValidator(column); }, parent)
    , m_document(document)
    , m_cells(static_cast<MemberTableModel*>(model()))
    , m_delegates(new zel::qt::ForwardDelegate(*this))
{
    m_cells->setParent(this);
    setObjectName(QStringLiteral("memberTable"));
    setAccessibleName(tr("Table of members"));
    // Tab goes on to the next view of the window; in an editor it goes on to the next cell.
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setCreateNewRowHandler([this](int left, const auto& values) { addRow(left, values); });
    setItemDelegate(m_delegates);
    chooseByColumn();
    chooseByRow(0, m_cells->rowCount() - 1);

    connect(m_cells, &MemberTableModel::told, this, &MemberTable::told);
    connect(m_cells, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) {
                chooseByRow(first.row(), last.row());
                if (first.column() == 0 && last.column() > 0) {
                    takeSelection(); // a selected row may have become a member
                }
            });
    connect(m_cells, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { insertRows(first, last); });
    connect(m_cells, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int first, int last) { forgetRows(first, last); });
    connect(m_cells, &QAbstractItemModel::modelReset, this, [this] {
        forgetRows(0, static_cast<int>(m_rowDelegates.size()) - 1);
        chooseByRow(0, m_cells->rowCount() - 1);
        fitColumns();
    });
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        if (memberColumn(index.column()).cell == Cell::Button) {
            edit(index); // a button is pressed by one click
        }
    });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MemberTable::takeSelection);
    connect(&document, &Document::selectionChanged, this, &MemberTable::showSelection);
    connect(&units, &UnitSettings::aboutToChange, this, &MemberTable::closeOpenEditor);
    connect(&units, &UnitSettings::changed, this, &MemberTable::showUnits);
    createMenu();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    fitColumns();
    showSelection();
}

MemberTable::~MemberTable() = default;

MemberTableModel& MemberTable::cells() const
{
    return *m_cells;
}

QString MemberTable::commitPending()
{
    QString refusal;
    QWidget* editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (editor) {
        const auto watching = connect(m_cells, &MemberTableModel::refused, this,
                                      [&refusal](const QString& text) { refusal = text; });
        commitData(editor);
        disconnect(watching);
        if (refusal.isEmpty()) {
            closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }
    return refusal;
}

/// Its delegate goes: a text that is refused cannot stay.
void MemberTable::closeOpenEditor()
{
    commitPending();
    if (QWidget* editor = indexWidget(currentIndex())) {
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

MemberTable::OpenText MemberTable::openText() const
{
    const auto* editor =
        state() == EditingState ? qobject_cast<QLineEdit*>(indexWidget(currentIndex())) : nullptr;
    return editor ? OpenText{currentIndex(), editor->text()} : OpenText();
}

void MemberTable::reopen(const OpenText& open)
{
    if (!open.cell.isValid() || indexWidget(open.cell)) {
        return;
    }
    setCurrentIndex(open.cell);
    edit(open.cell);
    if (auto* editor = qobject_cast<QLineEdit*>(indexWidget(open.cell))) {
        editor->setText(open.text);
    }
}

QSize MemberTable::sizeHint() const
{
    const int rows = shownRows * verticalHeader()->defaultSectionSize();
    return {CppDbTableViewBase::sizeHint().width(),
            horizontalHeader()->sizeHint().height() + rows + 2 * frameWidth()};
}

void MemberTable::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste)) {
        paste(event);
    } else if (event->matches(QKeySequence::Cut) || event->matches(QKeySequence::Delete) ||
               event->key() == Qt::Key_Backspace) {
        m_cells->beginEdits();
        CppDbTableViewBase::keyPressEvent(event);
        m_cells->endEdits(event->matches(QKeySequence::Cut) ? tr("Cut") : tr("Clearing"));
    } else {
        CppDbTableViewBase::keyPressEvent(event);
    }
}

void MemberTable::createMenu()
{
    const auto add = [this](const QString& text, QKeySequence::StandardKey key) {
        // The key is for the table as it is; here it is only told.
        const QString shown = QKeySequence(key).toString(QKeySequence::NativeText);
        auto* action = new QAction(text + QLatin1Char('\t') + shown, this);
        connect(action, &QAction::triggered, this, [this, key] { pressKey(key); });
        addAction(action);
    };
    add(tr("Cu&t"), QKeySequence::Cut);
    add(tr("&Copy"), QKeySequence::Copy);
    add(tr("&Paste"), QKeySequence::Paste);
    add(tr("C&lear cells"), QKeySequence::Delete);
    auto* separator = new QAction(this);
    separator->setSeparator(true);
    addAction(separator);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    verticalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(verticalHeader(), &QWidget::customContextMenuRequested, this,
            &MemberTable::showMenuOfRow);
}

void MemberTable::pressKey(QKeySequence::StandardKey key)
{
    const int combination = QKeySequence(key)[0];
    QKeyEvent event(QEvent::KeyPress, combination & ~int(Qt::KeyboardModifierMask),
                    Qt::KeyboardModifiers(combination & int(Qt::KeyboardModifierMask)));
    keyPressEvent(&event);
}

/// A row that is pointed at by its number becomes the one that the menu is about.
void MemberTable::showMenuOfRow(const QPoint& pos)
{
    const int row = verticalHeader()->logicalIndexAt(pos);
    if (row >= 0 && !selectionModel()->isRowSelected(row, QModelIndex())) {
        selectRow(row);
    }
    QMenu::exec(actions(), verticalHeader()->viewport()->mapToGlobal(pos), nullptr, this);
}

void MemberTable::paste(QKeyEvent* event)
{
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    PasteRun run(*m_cells, mime != nullptr ? mime->text() : QString(),
                 selectionModel()->selectedIndexes());
    {
        const QScopedValueRollback<PasteRun*> pasting(m_paste, &run);
        m_cells->beginEdits();
        CppDbTableViewBase::keyPressEvent(event);
        m_cells->endEdits(tr("Paste"));
    }
    // What was pasted is selected, as in a spreadsheet; new members count from now on.
    const QRect block = run.block() & QRect(0, 0, m_cells->columnCount(), m_cells->memberCount());
    if (!block.isEmpty()) {
        selectionModel()->select(QItemSelection(m_cells->index(block.top(), block.left()),
                                                m_cells->index(block.bottom(), block.right())),
                                 QItemSelectionModel::ClearAndSelect);
    }
    takeSelection();
}

void MemberTable::addRow(int left, const std::deque<boost::optional<boost::any>>& values)
{
    // A row of which nothing was said goes away in the end, but the paste is to go on behind it.
    const int row = m_paste->row();
    if (!m_cells->growTo(row)) {
        m_cells->refuse(row, left, tr("a member needs two nodes, a section and a material"));
        return;
    }
    int column = left;
    for (const boost::optional<boost::any>& value : values) {
        if (value) {
            m_cells->setData(m_cells->index(row, column), QVariant::fromValue<boost::any>(*value),
                             zel::qt::EditRole);
        }
        ++column;
    }
}

zel::qt::IValidator::pointer MemberTable::clipboardValidator(int column) const
{
    CellText rules;
    if (column < m_cells->columnCount()) {
        rules = clipboardText(memberColumn(column), m_document.model());
    }
    return boost::make_shared<ClipboardValidator>(column, rules, m_paste);
}

void MemberTable::showUnits()
{
    for (std::size_t i = 0; i < m_columnDelegates.size(); ++i) {
        const int column = static_cast<int>(i);
        if (memberColumn(column).cell == Cell::Quantity) {
            QAbstractItemDelegate* const before =
                std::exchange(m_columnDelegates[i], makeDelegate(column));
            m_delegates->setItemDelegateForColumn(column, m_columnDelegates[i]);
            release(before);
        }
    }
    m_cells->showUnits();
    fitColumns();
}

void MemberTable::fitColumns()
{
    resizeColumnsToContents();
    for (int column = 0; column < m_cells->columnCount(); ++column) {
        // A list needs room for its arrow beside the longest text.
        const bool isChoice = memberColumn(column).cell == Cell::Choice;
        const int arrow = isChoice ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
        setColumnWidth(column, qMin(columnWidth(column), widestColumn) + 2 * arrow);
    }
}

QVector<int> MemberTable::selectedRows() const
{
    // In the midst of a change the table may still show a member that is there no longer.
    const int members =
        qMin(m_cells->memberCount(), static_cast<int>(m_document.model().members.size()));
    QVector<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= qMin(range.bottom(), members - 1); ++row) {
            rows << row;
        }
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void MemberTable::takeSelection()
{
    // While rows come and go the document is not in step.
    if (!m_showing && !m_paste) {
        const QScopedValueRollback<bool> showing(m_showing, true);
        m_document.selection().set(selectedRows());
    }
}

void MemberTable::showSelection()
{
    const QVector<int>& members = m_document.selection().members();
    if (m_showing || selectedRows() == members) {
        return;
    }
    const QScopedValueRollback<bool> showing(m_showing, true);
    QItemSelection selection;
    for (const int row : members) {
        if (row < m_cells->memberCount()) {
            selection.select(m_cells->index(row, 0),
                             m_cells->index(row, m_cells->columnCount() - 1));
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!selection.isEmpty() && !members.contains(currentIndex().row())) {
        const QModelIndex first = m_cells->index(members.first(), qMax(currentIndex().column(), 1));
        // To the row, and not to another part of it.
        const int offset = horizontalScrollBar()->value();
        selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        scrollTo(first);
        horizontalScrollBar()->setValue(offset);
    }
}

} // namespace frame_editor
