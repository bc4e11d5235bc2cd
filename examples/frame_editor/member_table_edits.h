#pragma once

#include "examples/frame_editor/member_property.h"

#include <QSet>
#include <QString>

#include <vector>

namespace frame_editor {

/// A cell of the table of members that keeps what it has, and why.
struct CellRefusal
{
    int row = -1;
    int column = -1;
    QString reason;
};

/// Changes of cells that are to be one step: a paste, or the edit of one cell. They are made on a
/// copy of the members and settled when all are known, since a paste may well exchange two names or
/// turn a member round. Rows behind the last member are new members.
class MemberEdits
{
public:
    /// The model has to stay as it is while there are edits.
    explicit MemberEdits(const FrameModel& model);

    const std::vector<Member>& members() const;
    /// Whether a row is none of the members of the model.
    bool isNew(int row) const;

    /// Makes new members until there is this row.
    /// @return false if the model has not what a member needs
    bool growTo(int row);

    /// Gives a cell a value. A value that cannot stand there is a refusal.
    void set(int row, int column, const PropertyValue& value);
    /// Empties a cell: a text, a number to 0, a mark. Of the others each needs a value.
    void clear(int row, int column);
    void refuse(int row, int column, const QString& reason);

    /// Sees to what hangs together: names that are taken, members from a node to itself, and what a
    /// new member was not given. New members that were given nothing go away.
    void settle();

    int newMembers() const;
    /// Cells of the members of the model that differ now.
    int changedCells() const;
    /// In the order in which they came up.
    const std::vector<CellRefusal>& refusals() const;

private:
    struct Row
    {
        bool touched = false;
        QSet<int> given; ///< columns
    };

    Member newMember() const;
    bool isGiven(std::size_t row, int column) const;
    void restore(std::size_t row, int column, const QString& reason);
    void dropNotGiven();
    void completeNew(std::size_t row);
    void settleNodes(std::size_t row);
    void settleNames();
    void giveNames();

    const FrameModel& m_model;
    std::vector<Member> m_members;
    std::vector<Row> m_rows;
    std::vector<CellRefusal> m_refusals;
};

} // namespace frame_editor
