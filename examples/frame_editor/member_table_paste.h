#pragma once

#include "examples/frame_editor/member_table_cells.h"

#include <QModelIndexList>
#include <QRect>

namespace frame_editor {

class MemberTableModel;

/// Follows the table view through one paste. The view asks the validators of the columns for each
/// cell and says nothing of a text that is refused; which cell that was follows from the order in
/// which it asks: a block goes row by row, each from its first column on, and a single value goes
/// through the selected cells.
class PasteRun
{
public:
    /// @param text     that of the clipboard
    /// @param selected cells, in the order of the selection
    PasteRun(MemberTableModel& model, const QString& text, const QModelIndexList& selected);

    /// Whether the text goes into the cell that comes next, which is in this column. Notes a
    /// refusal; leaves alone a cell that shows this text already, an empty text where a value is
    /// needed, and the blank row if a single value goes into members too.
    bool take(int column, const QString& text, const CellText& rules);

    /// The row that is being pasted.
    int row() const;
    /// The cells of a block so far; empty for a single value.
    QRect block() const;

private:
    MemberTableModel& m_model;
    QModelIndexList m_cells; ///< of a single value
    bool m_isBlock;
    bool m_isOverMembers = false;
    int m_left = 0;
    int m_top = 0;
    int m_right = -1;
    int m_row = -1;
    int m_asked = 0;
};

/// The validator of a column for the clipboard, which asks a PasteRun, if there is one.
class ClipboardValidator : public zel::qt::IValidator
{
public:
    ClipboardValidator(int column, const CellText& rules, PasteRun* run);

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

private:
    int m_column;
    CellText m_rules;
    PasteRun* m_run;
};

} // namespace frame_editor
