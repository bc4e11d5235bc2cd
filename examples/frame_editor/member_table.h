#pragma once

#include "qt/inc/delegates.h"
#include "qt/inc/table_view.h"

#include <QKeySequence>
#include <QPersistentModelIndex>

#include <deque>
#include <utility>
#include <vector>

namespace zel::qt {
class MultiEditEnumBox;
}

namespace frame_editor {

class Document;
class MemberTableModel;
class PasteRun;
class UnitSettings;
struct MemberColumn;

/// The members as a table: edited in place, and through the clipboard of a spreadsheet. Its rows
/// are the selection of the document as soon as one of their cells is selected.
///
/// Columns choose the delegates. A rigid link, and the blank row at the end, have fewer cells than
/// other rows: there the row chooses a delegate without an editor, and each cell that is there the
/// one of its column.
class MemberTable : public zel::qt::detail::CppDbTableViewBase
{
    Q_OBJECT
public:
    /// Document and settings have to outlive the table.
    MemberTable(Document& document, UnitSettings& units, QWidget* parent);
    ~MemberTable() override;

    MemberTableModel& cells() const;

    /// Ends the editing of a cell: to be called before the model changes by other means. The editor
    /// of a text that is refused stays open.
    /// @return why it is refused, or an empty text
    QString commitPending();

    /// A cell that is being edited, with what stands in its editor.
    struct OpenText
    {
        QPersistentModelIndex cell; ///< invalid if there is none
        QString text;
    };
    OpenText openText() const;
    /// Edits the cell again where it was left: an editor closes when a dialog takes the focus.
    void reopen(const OpenText& open);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// One line on what came of an edit.
    void told(const QString& text);
    /// The button of a member was pressed.
    void zoomRequested(int member);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What is chosen by row, as long as the row is of that sort.
    struct RowDelegates
    {
        enum Sort
        {
            Plain,
            Link,
            Blank
        };
        Sort sort = Plain;
        QAbstractItemDelegate* row = nullptr;
        std::vector<std::pair<int, QAbstractItemDelegate*>> cells;
    };

    zel::qt::IValidator::pointer clipboardValidator(int column) const;
    void createMenu();
    void pressKey(QKeySequence::StandardKey key);
    void showMenuOfRow(const QPoint& pos);
    void paste(QKeyEvent* event);
    void addRow(int left, const std::deque<boost::optional<boost::any>>& values);

    QAbstractItemDelegate* makeDelegate(int column);
    void fillChoices(zel::qt::MultiEditEnumBox& box, const QModelIndex& index) const;
    void chooseByColumn();
    void chooseByRow(int first, int last);
    void insertRows(int first, int last);
    void forgetRows(int first, int last);
    void install(int row, const RowDelegates& chosen);
    void uninstall(int row, const RowDelegates& chosen);
    void release(const RowDelegates& chosen);
    void release(QAbstractItemDelegate* delegate);
    RowDelegates::Sort sortOf(int row) const;

    void fitColumns();
    void closeOpenEditor();
    void showUnits();
    void showSelection();
    void takeSelection();
    QVector<int> selectedRows() const;

    Document& m_document;
    MemberTableModel* m_cells;
    zel::qt::ForwardDelegate* m_delegates;
    std::vector<QAbstractItemDelegate*> m_columnDelegates;
    std::vector<RowDelegates> m_rowDelegates;
    PasteRun* m_paste = nullptr; ///< while there is one
    bool m_showing = false;      ///< the table follows the document
};

} // namespace frame_editor
