#include "examples/frame_editor/document_commands.h"

#include "examples/frame_editor/member_selection.h"

namespace frame_editor {

MemberCommand::MemberCommand(Document& document, const MemberProperty& property,
                             const std::vector<MemberChange>& changes)
    : m_document(document)
    , m_property(property)
    , m_after(changes)
{
    for (const MemberChange& change : changes) {
        const auto index = static_cast<std::size_t>(change.member);
        m_before.push_back({change.member, property.get(document.m_model.members.at(index))});
    }
    const QString label = property.label;
    setText(changes.size() == 1
                ? QObject::tr("%1 of %2")
                      .arg(label, document.m_model.members
                                      .at(static_cast<std::size_t>(changes.front().member))
                                      .name)
                : QObject::tr("%1 of %n members", nullptr, static_cast<int>(changes.size()))
                      .arg(label));
}

void MemberCommand::undo()
{
    write(m_before);
}

void MemberCommand::redo()
{
    write(m_after);
}

void MemberCommand::write(const std::vector<MemberChange>& changes)
{
    for (const MemberChange& change : changes) {
        m_property.set(m_document.m_model.members.at(static_cast<std::size_t>(change.member)),
                       change.value);
    }
    Q_EMIT m_document.changed();
}

MembersCommand::MembersCommand(Document& document, const std::vector<Member>& members,
                               const QString& text)
    : QUndoCommand(text)
    , m_document(document)
    , m_before(document.m_model.members)
    , m_after(members)
{}

void MembersCommand::undo()
{
    write(m_before);
}

void MembersCommand::redo()
{
    write(m_after);
}

void MembersCommand::write(const std::vector<Member>& members)
{
    // Views ask the model for the selected members whenever they please.
    QVector<int> selected;
    for (const int member : m_document.selection().members()) {
        if (static_cast<std::size_t>(member) < members.size()) {
            selected << member;
        }
    }
    m_document.selection().set(selected);
    m_document.m_model.members = members;
    Q_EMIT m_document.changed();
}

NodeCommand::NodeCommand(Document& document, const std::vector<NodeMove>& moves)
    : m_document(document)
    , m_after(moves)
{
    for (const NodeMove& move : moves) {
        const Node& node = document.m_model.nodes.at(static_cast<std::size_t>(move.node));
        m_before.push_back({move.node, node.x, node.y});
    }
    setText(
        moves.size() == 1
            ? QObject::tr("Move of %1")
                  .arg(document.m_model.nodes.at(static_cast<std::size_t>(moves.front().node)).name)
            : QObject::tr("Move of %n nodes", nullptr, static_cast<int>(moves.size())));
}

void NodeCommand::undo()
{
    write(m_before);
}

void NodeCommand::redo()
{
    write(m_after);
}

void NodeCommand::write(const std::vector<NodeMove>& moves)
{
    for (const NodeMove& move : moves) {
        Node& node = m_document.m_model.nodes.at(static_cast<std::size_t>(move.node));
        node.x = move.x;
        node.y = move.y;
    }
    Q_EMIT m_document.changed();
}

} // namespace frame_editor
