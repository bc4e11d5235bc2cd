#pragma once

#include "examples/frame_editor/frame_model.h"
#include "examples/frame_editor/member_property.h"

#include <QObject>
#include <QString>
#include <QVector>

class QUndoStack;

namespace frame_editor {

class MemberSelection;

/// A new value of a property for one member.
struct MemberChange
{
    int member = -1;
    PropertyValue value;
};

/// A new place for one node.
struct NodeMove
{
    int node = -1;
    double x = 0.0; ///< m
    double y = 0.0; ///< m
};

/// The open model with its file, its selection and its history. Every change of the model is a
/// step of the undo stack; views follow changed() and selectionChanged() and never keep a value.
class Document : public QObject
{
    Q_OBJECT
public:
    explicit Document(QObject* parent = nullptr);
    ~Document() override;

    const FrameModel& model() const;
    MemberSelection& selection() const;
    /// The stack is clean when the model is as it was last opened or saved.
    QUndoStack& undoStack() const;

    /// The file of the model; empty before the first open() or saveAs().
    const QString& fileName() const;
    bool isModified() const;

    /// Opens a model file. The selection and the history start anew.
    /// @throws FileError; the open model, its selection and its history then stay as they are
    void open(const QString& fileName);
    /// Writes the model to a file, which becomes that of the document.
    /// @throws FileError; the document then stays as it is, modified mark included
    void saveAs(const QString& fileName);
    /// Replaces the model, as if it had been opened from `fileName`.
    void setModel(const FrameModel& model, const QString& fileName);

    /// Writes a property of some members as one undo step. Members that have the value already do
    /// not count; if none is left there is no step.
    /// @return why the change is refused, which leaves the model alone, or an empty text
    QString setMemberValues(const MemberProperty& property,
                            const std::vector<MemberChange>& changes);

    /// Replaces all members as one undo step with that text, under the same rules: members may be
    /// others, more or fewer. Selected members that are there no longer leave the selection first.
    QString replaceMembers(const std::vector<Member>& members, const QString& text);

    /// Takes members out of the model as one undo step, which also takes them out of the selection.
    /// Undo brings them back in their places and selects what was selected. Nodes stay, also those
    /// that are left without a member: they can be given to others, and nothing else makes nodes.
    void removeMembers(const QVector<int>& members);

    /// Moves nodes as one undo step, under the same rules.
    QString moveNodes(const std::vector<NodeMove>& moves);

Q_SIGNALS:
    /// Another model is open; changed() follows.
    void modelReplaced();
    /// Members have come or gone among others; changed() follows. The indexes, in ascending order,
    /// are those that the members have now, or had before they went.
    void membersInserted(const QVector<int>& members);
    void membersRemoved(const QVector<int>& members);
    /// A value of the model is another one: an edit, an undo, a redo, another file.
    void changed();
    void selectionChanged();
    /// The file or the modified mark is another one.
    void fileChanged();

private:
    friend class MemberCommand;
    friend class MembersCommand;
    friend class NodeCommand;
    friend class RemovalCommand;

    QString refusal(const MemberProperty& property, const std::vector<MemberChange>& changes) const;
    QString refusal(const std::vector<Member>& members) const;

    FrameModel m_model;
    MemberSelection* m_selection;
    QUndoStack* m_undoStack;
    QString m_fileName;
};

} // namespace frame_editor
