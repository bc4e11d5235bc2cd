#include "examples/frame_editor/member_table_paste.h"

#include "examples/frame_editor/member_table_model.h"

#include <algorithm>

namespace frame_editor {

namespace {

/// A text of a cell as the clipboard has it. A tab or a line end in it would part it into several
/// cells, and push those behind it out of their places.
QString inOneCell(QString text)
{
    for (QChar& c : text) {
        if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            c = QLatin1Char(' ');
        }
    }
    return text;
}

} // namespace

PasteRun::PasteRun(MemberTableModel& model, const QString& text, const QModelIndexList& selected)
    : m_model(model)
    , m_cells(selected)
    , m_isBlock(text.contains(QLatin1Char('\t')) || text.contains(QLatin1Char('\n')))
{
    if (!m_cells.isEmpty()) {
        m_top = m_cells.first().row();
        m_left = m_cells.first().column();
    }
    for (const QModelIndex& cell : qAsConst(m_cells)) {
        m_top = qMin(m_top, cell.row());
        m_left = qMin(m_left, cell.column());
    }
    m_row = m_top - 1;
    m_isOverMembers =
        std::any_of(m_cells.cbegin(), m_cells.cend(), [&model](const QModelIndex& cell) {
            return model.member(cell.row()) != nullptr;
        });
}

int PasteRun::row() const
{
    return m_row;
}

QRect PasteRun::block() const
{
    return m_isBlock ? QRect(QPoint(m_left, m_top), QPoint(m_right, m_row)) : QRect();
}

bool PasteRun::take(int column, const QString& text, const CellText& rules)
{
    if (!m_isBlock) {
        m_row = m_cells.value(m_asked).row();
    } else if (column == m_left) {
        ++m_row;
    }
    ++m_asked;
    m_right = qMax(m_right, column);
    // The blank row belongs to a column that is selected as a whole, and nobody asked for a member.
    if (!m_isBlock && m_isOverMembers && !m_model.member(m_row)) {
        return false;
    }
    const bool isColumn = column < m_model.columnCount();
    const bool mayBeEmpty = isColumn && memberColumn(column).cell == MemberColumn::Cell::Text &&
                            memberColumn(column).property->kind == PropertyKind::Text;
    if (text.isEmpty() && !(mayBeEmpty && m_model.hasCell(m_row, column))) {
        return false;
    }
    if (!isColumn || !rules.validator) {
        m_model.refuse(m_row, column, QObject::tr("\"%1\" has no place here").arg(text));
        return false;
    }
    // What a cell shows stands for its value, to the last digit.
    if (m_model.member(m_row) && m_model.hasCell(m_row, column) &&
        (text == inOneCell(m_model.fullText(m_row, column)) ||
         text == m_model.index(m_row, column).data().toString())) {
        return false;
    }
    boost::any value;
    if (!rules.validator->validate(text, value, {})) {
        m_model.refuse(m_row, column, rules.refusal(text));
        return false;
    }
    return true;
}

ClipboardValidator::ClipboardValidator(int column, const CellText& rules, PasteRun* run)
    : m_column(column)
    , m_rules(rules)
    , m_run(run)
{}

bool ClipboardValidator::validate(const QString& text, boost::any& value,
                                  const std::bitset<32>& flags)
{
    return m_run != nullptr && m_run->take(m_column, text, m_rules) &&
           m_rules.validator->validate(text, value, flags);
}

QString ClipboardValidator::reformat(const boost::any& value, const std::bitset<32>& flags)
{
    return m_rules.validator ? inOneCell(m_rules.validator->reformat(value, flags)) : QString();
}

} // namespace frame_editor
