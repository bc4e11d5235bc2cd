// Which delegate works in which cell of the table of members.
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/form_editors.h"
#include "examples/frame_editor/member_table.h"
#include "examples/frame_editor/member_table_cells.h"
#include "examples/frame_editor/member_table_model.h"

#include "qt/inc/controls.h"

#include <algorithm>
#include <cstddef>

namespace frame_editor {

using Cell = MemberColumn::Cell;

/// Each use of a delegate is an object of its own: the forwarding one tells the view of an edit
/// once for each key that it knows it by.
QAbstractItemDelegate* MemberTable::makeDelegate(int column)
{
    const MemberColumn& target = memberColumn(column);
    switch (target.cell) {
    case Cell::Button:
        return new zel::qt::ButtonItemDelegate(
            [this](QAbstractItemModel*, const QModelIndex& index) {
                if (m_cells->member(index.row())) {
                    Q_EMIT zoomRequested(index.row());
                }
            },
            this);
    case Cell::Choice:
        return new zel::qt::ComboItemDelegate(
            this,
            [this](zel::qt::MultiEditEnumBox& box, const QModelIndex& index) {
                fillChoices(box, index);
            },
            &equalTexts, nullptr);
    case Cell::Flag:
        return new zel::qt::CheckboxItemDelegate(this);
    case Cell::Text:
    case Cell::Quantity:
    case Cell::Count:
        break;
    }
    return new TextCellDelegate(
        editingText(target),
        [this](const QModelIndex& index, const QString& reason) {
            m_cells->tellRefusal(index.row(), index.column(), reason);
        },
        this);
}

void MemberTable::fillChoices(zel::qt::MultiEditEnumBox& box, const QModelIndex& index) const
{
    const MemberColumn& column = memberColumn(index.column());
    const FrameModel& model = m_document.model();
    const Member* member = m_cells->member(index.row());
    // A member does not go from a node to itself, so the other node is no choice.
    QString taken;
    if (member && column.node) {
        const int other = column.node == &Member::start ? member->end : member->start;
        taken = model.nodes.at(static_cast<std::size_t>(other)).name;
    }
    zel::qt::NamedValueList entries;
    for (const auto& [key, label] : column.choices(model)) {
        if (!column.node || key != taken) {
            entries.emplace_back(label, key.toStdString());
        }
    }
    box.setValues(entries);
}

void MemberTable::chooseByColumn()
{
    for (int column = 0; column < m_cells->columnCount(); ++column) {
        m_columnDelegates.push_back(makeDelegate(column));
        m_delegates->setItemDelegateForColumn(column, m_columnDelegates.back());
    }
}

MemberTable::RowDelegates::Sort MemberTable::sortOf(int row) const
{
    const Member* member = m_cells->member(row);
    if (member && member->kind == MemberKind::Link) {
        return RowDelegates::Link;
    }
    return row == m_cells->memberCount() ? RowDelegates::Blank : RowDelegates::Plain;
}

void MemberTable::chooseByRow(int first, int last)
{
    if (m_rowDelegates.size() <= static_cast<std::size_t>(last)) {
        m_rowDelegates.resize(static_cast<std::size_t>(last) + 1);
    }
    for (int row = first; row <= last; ++row) {
        RowDelegates& chosen = m_rowDelegates[static_cast<std::size_t>(row)];
        const RowDelegates::Sort sort = sortOf(row);
        if (chosen.sort == sort) {
            continue;
        }
        const RowDelegates before = std::exchange(chosen, {});
        chosen.sort = sort;
        if (sort != RowDelegates::Plain) {
            chosen.row = new NoCellDelegate(this);
            for (int column = 0; column < m_cells->columnCount(); ++column) {
                if (m_cells->hasCell(row, column)) {
                    chosen.cells.emplace_back(column, makeDelegate(column));
                }
            }
        }
        uninstall(row, before);
        install(row, chosen);
        release(before);
    }
}

/// The keys of the forwarding delegate have moved down already.
void MemberTable::insertRows(int first, int last)
{
    const int count = last - first + 1;
    const auto at = std::min(m_rowDelegates.size(), static_cast<std::size_t>(first));
    m_rowDelegates.insert(m_rowDelegates.begin() + static_cast<std::ptrdiff_t>(at),
                          static_cast<std::size_t>(count), RowDelegates());
    chooseByRow(first, last);
}

/// The keys of the forwarding delegate stay where they are, so those of the rows below move here.
/// Their delegates go along: an editor of theirs may be open.
void MemberTable::forgetRows(int first, int last)
{
    const int rows = static_cast<int>(m_rowDelegates.size());
    for (int row = first; row < rows; ++row) {
        uninstall(row, m_rowDelegates[static_cast<std::size_t>(row)]);
    }
    for (int row = first; row <= last; ++row) {
        release(m_rowDelegates[static_cast<std::size_t>(row)]);
    }
    m_rowDelegates.erase(m_rowDelegates.begin() + first, m_rowDelegates.begin() + last + 1);
    for (int row = first; row < rows - (last - first + 1); ++row) {
        install(row, m_rowDelegates[static_cast<std::size_t>(row)]);
    }
}

void MemberTable::install(int row, const RowDelegates& chosen)
{
    if (chosen.row) {
        m_delegates->setItemDelegateForRow(row, chosen.row);
    }
    for (const auto& [column, delegate] : chosen.cells) {
        m_delegates->setItemDelegateForCell(row, column, delegate);
    }
}

void MemberTable::uninstall(int row, const RowDelegates& chosen)
{
    if (chosen.row) {
        m_delegates->setItemDelegateForRow(row, nullptr);
    }
    for (const auto& cell : chosen.cells) {
        m_delegates->setItemDelegateForCell(row, cell.first, nullptr);
    }
}

void MemberTable::release(const RowDelegates& chosen)
{
    for (const auto& cell : chosen.cells) {
        release(cell.second);
    }
    release(chosen.row);
}

/// Lets go of a delegate that may be just at work: an edit of its own can make it superfluous. The
/// view is still to hear that its editor closes.
void MemberTable::release(QAbstractItemDelegate* delegate)
{
    if (delegate) {
        connect(delegate, &QAbstractItemDelegate::closeEditor, m_delegates,
                &QAbstractItemDelegate::closeEditor);
        delegate->deleteLater();
    }
}

} // namespace frame_editor
