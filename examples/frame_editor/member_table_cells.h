#pragma once

#include "examples/frame_editor/member_table_columns.h"

#include "qt/inc/delegates.h"
#include "qt/inc/validators.h"

#include <QItemDelegate>

#include <functional>

namespace frame_editor {

/// How the texts of a column are read and written, and why one is refused.
struct CellText
{
    zel::qt::IValidator::pointer validator; ///< null for a button
    std::function<QString(const QString& text)> refusal;
};

/// For the editor of a cell. It remembers what it wrote, so each delegate needs one of its own.
CellText editingText(const MemberColumn& column);

/// For the clipboard: its texts can be read back without losing a digit, whatever the cell shows.
CellText clipboardText(const MemberColumn& column, const FrameModel& model);

/// A text that stands for exactly this number of base units, in the unit shown if there is one.
QString exactQuantityText(const zel::units::v1::Context& units, int unitSet, double value);

/// Edits a text, a number with a unit or a whole number; tells a text that it refuses.
class TextCellDelegate : public zel::qt::LineEditItemDelegate
{
    Q_OBJECT
public:
    using Refuse = std::function<void(const QModelIndex& index, const QString& reason)>;

    TextCellDelegate(const CellText& text, const Refuse& refuse, QObject* parent);

    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

private:
    CellText m_text;
    Refuse m_refuse;
};

/// Paints a cell that is not there as one without a text, and opens no editor in it.
class NoCellDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    explicit NoCellDelegate(QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
};

} // namespace frame_editor
