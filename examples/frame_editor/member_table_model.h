#pragma once

#include "examples/frame_editor/member_table_columns.h"

#include "units/inc/units.h"

#include <QAbstractTableModel>

#include <memory>

namespace frame_editor {

class Document;
class MemberEdits;

/// The members of a document as a table for the library's delegates and its table view: a row for
/// each member, a column for each of memberColumns(), and at the end a blank row that a name or a
/// paste turns into a new member.
///
/// What is written to a cell goes to the document, as one step of its history: each setData() for
/// itself, or all between beginEdits() and endEdits() together.
class MemberTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    /// The document has to outlive the model.
    MemberTableModel(Document& document, QObject* parent);
    ~MemberTableModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Text and tool tip follow from the value; a text for them is taken and has no effect.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// The number of members that are shown: the blank row has this number.
    int memberCount() const;
    /// The member of a row, null for the blank one.
    const Member* member(int row) const;
    /// Whether the cell is there: a rigid link has no section, and the blank row has a name alone.
    bool hasCell(int row, int column) const;
    /// The text of the cell as its editor shows it, with the unit.
    QString fullText(int row, int column) const;

    /// Collects what is written from here on.
    void beginEdits();
    /// Makes rows until there is this one, which turns into a new member.
    /// @return false if the model has not what a member needs
    bool growTo(int row);
    /// Notes that a text was refused before it came to setData().
    void refuse(int row, int column, const QString& reason);
    /// Writes what was collected as one step, but for the cells that were refused, and tells what
    /// came of it.
    /// @param text of the step where several cells of members change
    void endEdits(const QString& text);

    /// Tells that a text was not taken from an editor.
    void tellRefusal(int row, int column, const QString& reason);

    /// Shows numbers in the units of the active settings.
    void showUnits();

Q_SIGNALS:
    /// One line on what came of an edit.
    void told(const QString& text);
    /// Cells were refused, for these reasons; told() follows.
    void refused(const QString& text);

private:
    bool write(int row, int column, const QVariant& value, int role);
    void finishEdits(const QString& text, bool isWhole);
    void insertMembers(const QVector<int>& members);
    void removeMembers(const QVector<int>& members);
    void showModel();
    void showRows(const std::vector<Member>& before);
    QString stepText(const QString& text) const;
    QString outcome(bool isWhole) const;
    QString numberText(const MemberColumn& column, const Member& member) const;
    QVariant display(int row, int column) const;

    Document& m_document;
    std::vector<Member> m_members; ///< as they are shown
    int m_rows = 1;
    std::unique_ptr<MemberEdits> m_edits; ///< null while nothing is collected
    zel::units::v1::Context m_units;      ///< the active one, without labels
};

} // namespace frame_editor
