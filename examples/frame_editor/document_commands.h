#pragma once

#include "examples/frame_editor/document.h"

#include <QUndoCommand>

namespace frame_editor {

/// The step of Document::setMemberValues().
class MemberCommand : public QUndoCommand
{
public:
    MemberCommand(Document& document, const MemberProperty& property,
                  const std::vector<MemberChange>& changes);

    void undo() override;
    void redo() override;

private:
    void write(const std::vector<MemberChange>& changes);

    Document& m_document;
    const MemberProperty& m_property; ///< of memberProperties(), which outlives every command
    std::vector<MemberChange> m_before;
    std::vector<MemberChange> m_after;
};

/// The step of Document::replaceMembers().
class MembersCommand : public QUndoCommand
{
public:
    MembersCommand(Document& document, const std::vector<Member>& members, const QString& text);

    void undo() override;
    void redo() override;

private:
    void write(const std::vector<Member>& members);

    Document& m_document;
    std::vector<Member> m_before;
    std::vector<Member> m_after;
};

/// The step of Document::removeMembers().
class RemovalCommand : public QUndoCommand
{
public:
    /// @param members ascending, each once
    RemovalCommand(Document& document, const QVector<int>& members);

    void undo() override;
    void redo() override;

private:
    Document& m_document;
    QVector<int> m_places;         ///< where the members stand when they are there
    std::vector<Member> m_members; ///< in the same order
    QVector<int> m_selected;       ///< when they went
};

/// The step of Document::moveNodes().
class NodeCommand : public QUndoCommand
{
public:
    NodeCommand(Document& document, const std::vector<NodeMove>& moves);

    void undo() override;
    void redo() override;

private:
    void write(const std::vector<NodeMove>& moves);

    Document& m_document;
    std::vector<NodeMove> m_before;
    std::vector<NodeMove> m_after;
};

} // namespace frame_editor
